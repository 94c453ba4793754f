// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PanelHeader.h"

#include "Quillbar/panel/SettingsButton.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/AddCoinButton.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/ThemedLabel.h"

#include <QHBoxLayout>
#include <QMargins>
#include <QMouseEvent>
#include <QSize>
#include <QWindow>

#include <utility>

namespace quillbar {

namespace {

constexpr int kHorizontalPadding = 12;
constexpr int kVerticalPadding = 8;
constexpr int kSpacing = 4;
constexpr double kTitleFontSize = 13;
constexpr double kCloseGlyphSize = 11;
constexpr int kCloseSize = 24;
constexpr double kBackGlyphSize = 12;
constexpr int kBackSize = 24;
/// The padding is measured from the arrow, not from the button around it.
constexpr int kPaddingBeforeBack = 4;

QString productName() {
    return QStringLiteral("Quillbar");
}

}  // namespace

PanelHeader::PanelHeader(const ViewEnvironment& environment,
                         SettingsMenu& settings,
                         std::function<void()> quit,
                         QWidget* parent)
    : QWidget(parent)
    , m_back(new GlyphButton(Glyph::chevronLeft, kBackGlyphSize, QSize(kBackSize, kBackSize), this))
    , m_title(new ThemedLabel(systemFont(kTitleFontSize, QFont::DemiBold),
                              &ThemeColors::Resolved::primaryText,
                              this))
    , m_plus(new AddCoinButton(environment, this))
    , m_gear(new SettingsButton(settings, environment.appState.watchlist(), std::move(quit), this))
    , m_close(new GlyphButton(Glyph::xmark, kCloseGlyphSize, QSize(kCloseSize, kCloseSize), this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_back->setAccessibleName(translated("panel", "返回"));
    m_back->setToolTip(translated("panel", "返回"));
    m_back->hide();
    connect(m_back, &QAbstractButton::clicked, this, [this] { onBack(); });
    m_title->setText(productName());
    m_plus->onAdded = [this](const std::string& symbol, Qt::FocusReason reason) {
        if (onCoinAdded) {
            onCoinAdded(symbol, reason);
        }
    };
    m_gear->onPreferences = [this](Qt::FocusReason reason) {
        if (onPreferences) {
            onPreferences(reason);
        }
    };
    m_close->setAccessibleName(translated("panel", "关闭面板"));
    m_close->setToolTip(translated("panel", "关闭面板"));
    m_close->hide();
    connect(m_close, &QAbstractButton::clicked, this, [this] { onClose(); });

    auto* const layout = new QHBoxLayout(this);
    layout->addWidget(m_back);
    layout->addWidget(m_title);
    layout->addStretch();
    layout->addWidget(m_plus);
    layout->addWidget(m_gear);
    layout->addWidget(m_close);
    TextScale::follow(*this, [this] { fit(); });
}

void PanelHeader::fit() {
    const int left = m_back->isHidden() ? kHorizontalPadding : kPaddingBeforeBack;
    layout()->setContentsMargins(
        TextScale::margins(*this, {left, kVerticalPadding, kHorizontalPadding, kVerticalPadding}));
    layout()->setSpacing(TextScale::length(*this, kSpacing));
}

void PanelHeader::setStandalone(bool isStandalone) {
    m_isStandalone = isStandalone;
    m_close->setVisible(isStandalone);
}

QWidget& PanelHeader::settingsButton() const noexcept {
    return *m_gear;
}

void PanelHeader::setPage(const QString& title) {
    const bool isPage = !title.isEmpty();
    m_title->setText(isPage ? title : productName());
    m_back->setVisible(isPage);
    m_plus->setVisible(!isPage);
    m_gear->setVisible(!isPage);
    fit();
}

void PanelHeader::mousePressEvent(QMouseEvent* event) {
    if (!m_isStandalone || event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    if (!window()->windowHandle()->startSystemMove()) {
        m_grip = event->globalPosition().toPoint() - window()->pos();
    }
}

void PanelHeader::mouseMoveEvent(QMouseEvent* event) {
    if (m_grip) {
        window()->move(event->globalPosition().toPoint() - *m_grip);
    } else {
        QWidget::mouseMoveEvent(event);
    }
}

void PanelHeader::mouseReleaseEvent(QMouseEvent* event) {
    m_grip.reset();
    QWidget::mouseReleaseEvent(event);
}

}  // namespace quillbar
