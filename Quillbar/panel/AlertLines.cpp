// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/AlertLines.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/AlertText.h"
#include "Quillbar/text/LocalTimeText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/alerts/AlertKeeper.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLocale>
#include <QPainter>
#include <QPaintEvent>
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

QString textOf(const FiredAlert& fired) {
    const QDateTime time = QDateTime::fromSecsSinceEpoch(fired.time).toLocalTime();
    const QLocale locale = LocalTimeText::localeOfTexts();
    return LocalTimeText::dayAndMonth(time.date(), locale) + u' '
           + LocalTimeText::hoursAndMinutes(time.time(), locale) + QStringLiteral("  ")
           + AlertText::title(fired) + u'\n' + AlertText::details(fired);
}

}  // namespace

class AlertLines::Line final : public QWidget {
public:
    Line(AlertKeeper& alerts, const FiredAlert& fired, QWidget* parent)
        : QWidget(parent) {
        Announcement::mark(*this);
        const QString text = textOf(fired);
        setAccessibleName(text);
        auto* const label =
            new ThemedLabel(systemFont(kFontSize), &ThemeColors::Resolved::primaryText, this);
        label->setText(text);
        label->setWordWrap(true);
        auto* const button =
            new GlyphButton(Glyph::xmark, kGlyphSize, QSize(kButtonSize, kButtonSize), this);
        button->setToolTip(translated("panel", "知道了"));
        button->setAccessibleName(translated("panel", "知道了，%1").arg(text));
        connect(button, &QAbstractButton::clicked, this, [&alerts, serial = fired.serial] {
            alerts.markShown(serial);
        });
        auto* const layout = new QHBoxLayout(this);
        TextScale::follow(*this, [this, layout] {
            layout->setContentsMargins(TextScale::margins(
                *this, {kHorizontalPadding, kVerticalPadding, kButtonMargin, kVerticalPadding}));
        });
        layout->setSpacing(0);
        layout->addWidget(label, 1);
        layout->addWidget(button, 0, Qt::AlignTop);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QColor background = ThemeKey::value(*this).colors.accent;
        background.setAlphaF(kBackgroundOpacity);
        QPainter(this).fillRect(rect(), background);
    }
};

AlertLines::AlertLines(const ViewEnvironment& environment, QWidget* parent)
    : QWidget(parent)
    , m_environment(environment) {
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(1);
    if (m_environment.alerts == nullptr || m_environment.unshownAlerts == nullptr) {
        hide();
        return;
    }
    m_observation = m_environment.unshownAlerts->observe(
        [this](const std::vector<FiredAlert>& /*unshown*/) { refresh(); });
    refresh();
}

void AlertLines::refresh() {
    // Deleted later, because the call may come from the line's own button.
    for (Line* const line : std::exchange(m_lines, {})) {
        line->hide();
        line->deleteLater();
    }
    for (const FiredAlert& fired : **m_environment.unshownAlerts) {
        auto* const line = new Line(*m_environment.alerts, fired, this);
        m_lines.push_back(line);
        layout()->addWidget(line);
    }
    setVisible(!m_lines.empty());
}

}  // namespace quillbar
