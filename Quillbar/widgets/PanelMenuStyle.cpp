// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/PanelMenuStyle.h"

#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/LiftedSurface.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QIcon>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <QStyleOptionMenuItem>
#include <QWidget>

#include <algorithm>

namespace quillbar {

namespace {

// The parts of an entry, from the left: a column for marks and icons, the text, the shortcut, and a
// margin or the arrow of a submenu.
// Their lengths are those at a text size of 100 %.
constexpr int kMarkColumn = 28;
constexpr int kRightColumn = 20;
constexpr int kVerticalPadding = 5;
constexpr int kMaximumTextWidth = 190;
constexpr int kKeyGap = 16;
constexpr int kSeparatorHeight = 9;
constexpr int kMenuPadding = 5;
constexpr int kIconSize = 16;
constexpr double kCheckmarkSize = 10;
constexpr double kArrowSize = 8;
constexpr double kTintMargin = 4;
constexpr double kTintRadius = 4;
constexpr float kTintOpacity = 0.24F;

// Chinese text may break anywhere. A single ampersand marks a mnemonic, and is not drawn.
constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap
                           | Qt::TextWrapAnywhere | Qt::TextHideMnemonic;

/// The two parts of the text of an entry, which the menu joins by a tab.
struct Texts {
    explicit Texts(const QStyleOptionMenuItem& item)
        : label(item.text.section(u'\t', 0, 0))
        , key(item.text.section(u'\t', 1)) {}

    QString label;
    /// The shortcut of the entry, as text; empty when there is none.
    QString key;
};

QSize labelSize(const QStyleOptionMenuItem& item, const QString& label, int greatestWidth) {
    const QFontMetrics metrics(item.font);
    return metrics.boundingRect(QRect(0, 0, greatestWidth, 0), kTextFlags, label).size();
}

void drawSeparator(QPainter& painter,
                   const QStyleOptionMenuItem& item,
                   const ThemeColors::Resolved& colors) {
    const QRectF area(item.rect);
    painter.fillRect(QRectF(area.left(), area.center().y() - 0.5, area.width(), 1),
                     colors.separator);
}

/// A square of that size at 100 % in the middle of a column.
QRectF squareIn(const QRectF& column, double points, const QWidget& menu) {
    const double side = points * TextScale::of(menu);
    QRectF square(0, 0, side, side);
    square.moveCenter(column.center());
    return square;
}

void drawMark(QPainter& painter,
              const QStyleOptionMenuItem& item,
              const ThemeColors::Resolved& colors,
              const QWidget& menu) {
    const QRectF column(item.rect.left(),
                        item.rect.top(),
                        TextScale::length(menu, kMarkColumn),
                        item.rect.height());
    if (item.checkType != QStyleOptionMenuItem::NotCheckable) {
        if (item.checked) {
            const QRectF square = squareIn(column, kCheckmarkSize, menu);
            drawGlyph(painter, Glyph::checkmark, square, colors.accent);
        }
        return;
    }
    if (!item.icon.isNull()) {
        const int side = TextScale::length(menu, kIconSize);
        QRect square(0, 0, side, side);
        square.moveCenter(column.center().toPoint());
        const bool isEnabled = item.state.testFlag(QStyle::State_Enabled);
        item.icon.paint(
            &painter, square, Qt::AlignCenter, isEnabled ? QIcon::Normal : QIcon::Disabled);
    }
}

void drawEntry(QPainter& painter,
               const QStyleOptionMenuItem& item,
               const ThemeColors::Resolved& colors,
               const QWidget& menu) {
    if (item.state.testFlag(QStyle::State_Selected) && item.state.testFlag(QStyle::State_Enabled)) {
        QColor tint = colors.accent;
        tint.setAlphaF(kTintOpacity);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tint);
        painter.drawRoundedRect(
            QRectF(item.rect).adjusted(kTintMargin, 0, -kTintMargin, 0), kTintRadius, kTintRadius);
    }
    drawMark(painter, item, colors, menu);
    painter.setFont(item.font);
    painter.setPen(item.palette.color(QPalette::Text));
    const int rightColumn = TextScale::length(menu, kRightColumn);
    const QRect area = item.rect.adjusted(TextScale::length(menu, kMarkColumn), 0, -rightColumn, 0);
    const Texts texts(item);
    painter.drawText(area, kTextFlags, texts.label);
    if (!texts.key.isEmpty()) {
        painter.setPen(colors.tertiaryText);
        painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter, texts.key);
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const QRectF column(
            item.rect.right() + 1 - rightColumn, item.rect.top(), rightColumn, item.rect.height());
        drawGlyph(painter,
                  Glyph::chevronRight,
                  squareIn(column, kArrowSize, menu),
                  item.palette.color(QPalette::Text));
    }
}

}  // namespace

PanelMenuStyle::PanelMenuStyle()
    : QProxyStyle(QStringLiteral("fusion")) {}

void PanelMenuStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    LiftedSurface::lift(*widget);
}

void PanelMenuStyle::drawPrimitive(PrimitiveElement element,
                                   const QStyleOption* option,
                                   QPainter* painter,
                                   const QWidget* widget) const {
    if (widget == nullptr || (element != PE_PanelMenu && element != PE_FrameMenu)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    // The frame goes with the surface: what is painted as the frame is not seen around the corners.
    if (element == PE_PanelMenu) {
        painter->save();
        LiftedSurface::paint(*painter, *widget);
        painter->restore();
    }
}

void PanelMenuStyle::drawControl(ControlElement element,
                                 const QStyleOption* option,
                                 QPainter* painter,
                                 const QWidget* widget) const {
    if (element == CE_MenuEmptyArea) {
        // The menu has drawn its surface already.
        return;
    }
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuItem || item == nullptr || widget == nullptr) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    const ThemeColors::Resolved& colors = ThemeKey::value(*widget).colors;
    painter->save();
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        drawSeparator(*painter, *item, colors);
    } else {
        drawEntry(*painter, *item, colors, *widget);
    }
    painter->restore();
}

QSize PanelMenuStyle::sizeFromContents(ContentsType type,
                                       const QStyleOption* option,
                                       const QSize& contents,
                                       const QWidget* widget) const {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || item == nullptr || widget == nullptr) {
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
    const auto length = [widget](int points) { return TextScale::length(*widget, points); };
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        // An entry without a width is left out.
        return {length(kMarkColumn), length(kSeparatorHeight)};
    }
    const Texts texts(*item);
    const QSize text = labelSize(*item, texts.label, length(kMaximumTextWidth));
    // The menu itself adds the column for the shortcuts.
    const int gap = texts.key.isEmpty() ? 0 : length(kKeyGap);
    return {length(kMarkColumn) + text.width() + gap + length(kRightColumn),
            std::max(text.height(), length(kIconSize)) + 2 * length(kVerticalPadding)};
}

int PanelMenuStyle::pixelMetric(PixelMetric metric,
                                const QStyleOption* option,
                                const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuVMargin:
        return widget == nullptr ? kMenuPadding : TextScale::length(*widget, kMenuPadding);
    case PM_MenuHMargin:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int PanelMenuStyle::styleHint(StyleHint hint,
                              const QStyleOption* option,
                              const QWidget* widget,
                              QStyleHintReturn* result) const {
    switch (hint) {
    case SH_Menu_AllowActiveAndDisabled:
    case SH_Menu_Mask:
    case SH_Menu_FlashTriggeredItem:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

}  // namespace quillbar
