// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/AddCoinButton.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/watchlist/AddCoinView.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/Popover.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QPainter>
#include <QRectF>

namespace quillbar {

namespace {

constexpr int kSize = 24;
constexpr double kGlyphSize = 13;

}  // namespace

AddCoinButton::AddCoinButton(const ViewEnvironment& environment, QWidget* parent)
    : PlainButton(parent)
    , m_environment(environment) {
    TextScale::follow(*this, [this] { setFixedSize(TextScale::size(*this, {kSize, kSize})); });
    setAccessibleName(translated("watchlist", "添加币种"));
    setToolTip(translated("watchlist", "添加币种"));
    QObject::connect(this, &QAbstractButton::clicked, this, [this] { toggle(); });
}

void AddCoinButton::drawContent(QPainter& painter) {
    QRectF square(0, 0, kGlyphSize, kGlyphSize);
    square.moveCenter(TextScale::enlarge(painter, *this).center());
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    drawGlyph(painter,
              Glyph::plus,
              square,
              isOpen() || isHovered() ? colors.primaryText : colors.secondaryText);
}

void AddCoinButton::toggle() {
    if (isOpen()) {
        m_popover->close();
        return;
    }
    m_popover = new Popover(*this);
    m_popover->onClosed = [this] {
        m_popover.clear();
        update();
    };
    const auto dismiss =
        [this, popover = m_popover.data(), reason = focusReason()](const std::string& symbol) {
            popover->close();
            if (onAdded) {
                onAdded(symbol, reason);
            }
        };
    m_popover->open(new AddCoinView(m_environment, dismiss, m_popover));
    update();
}

}  // namespace quillbar
