// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/NoticeLines.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/ThemedLabel.h"

#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace quillbar {

namespace {

constexpr double kFontSize = 10.5;
constexpr int kHorizontalPadding = 12;
constexpr int kVerticalPadding = 4;
constexpr float kBackgroundOpacity = 0.1F;
constexpr double kGlyphSize = 8;
constexpr int kButtonSize = 20;
/// The padding is measured from the glyph, not from the button around it.
constexpr int kButtonMargin = 6;

}  // namespace

/// One notice, with the background of the banner.
class NoticeLines::Line final : public ThemedLabel {
public:
    Line(Notices& notices, Notice told, QWidget* parent)
        : ThemedLabel(systemFont(kFontSize), &ThemeColors::Resolved::warning, parent)
        , m_notice(told)
        , m_button(
              new GlyphButton(Glyph::xmark, kGlyphSize, QSize(kButtonSize, kButtonSize), this)) {
        const QString text = Notices::text(told);
        setText(text);
        setAccessibleName(text);
        setWordWrap(true);
        TextScale::follow(*this, [this] {
            setContentsMargins(TextScale::margins(*this,
                                                  {kHorizontalPadding,
                                                   kVerticalPadding,
                                                   kButtonMargin + kButtonSize,
                                                   kVerticalPadding}));
            placeButton();
        });
        m_button->setToolTip(translated("panel", "关闭提示"));
        m_button->setAccessibleName(translated("panel", "关闭提示，%1").arg(text));
        connect(
            m_button, &QAbstractButton::clicked, this, [&notices, told] { notices.remove(told); });
    }

    [[nodiscard]] Notice notice() const noexcept { return m_notice; }

protected:
    void paintEvent(QPaintEvent* event) override {
        QColor background = ThemeKey::value(*this).colors.warning;
        background.setAlphaF(kBackgroundOpacity);
        QPainter(this).fillRect(rect(), background);
        ThemedLabel::paintEvent(event);
    }

    void resizeEvent(QResizeEvent* event) override {
        ThemedLabel::resizeEvent(event);
        placeButton();
    }

private:
    void placeButton() {
        m_button->move(width() - TextScale::length(*this, kButtonMargin + kButtonSize), 1);
    }

    Notice m_notice;
    GlyphButton* m_button;
};

NoticeLines::NoticeLines(Notices* notices, QWidget* parent)
    : QWidget(parent)
    , m_notices(notices) {
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(1);
    if (m_notices != nullptr) {
        m_observation = m_notices->standing().observe(
            [this](const std::vector<Notice>& /*standing*/) { refresh(); });
        refresh();
    } else {
        hide();
    }
}

void NoticeLines::refresh() {
    // Deleted later, because the call may come from the line's own button.
    for (Line* const line : std::exchange(m_lines, {})) {
        line->hide();
        line->deleteLater();
    }
    for (const Notice notice : *m_notices->standing()) {
        auto* const line = new Line(*m_notices, notice, this);
        m_lines.push_back(line);
        layout()->addWidget(line);
    }
    setVisible(!m_lines.empty());
}

}  // namespace quillbar
