// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/PanelMenuStyle.h"

#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/LiftedSurface.h"
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

QSize labelSize(const QStyleOptionMenuItem& item, const QString& label) {
    const QFontMetrics metrics(item.font);
    return metrics.boundingRect(QRect(0, 0, kMaximumTextWidth, 0), kTextFlags, label).size();
}

void drawSeparator(QPainter& painter,
                   const QStyleOptionMenuItem& item,
                   const ThemeColors::Resolved& colors) {
    const QRectF area(item.rect);
    painter.fillRect(QRectF(area.left(), area.center().y() - 0.5, area.width(), 1),
                     colors.separator);
}

void drawMark(QPainter& painter,
              const QStyleOptionMenuItem& item,
              const ThemeColors::Resolved& colors) {
    const QRectF column(item.rect.left(), item.rect.top(), kMarkColumn, item.rect.height());
    if (item.checkType != QStyleOptionMenuItem::NotCheckable) {
        if (item.checked) {
            QRectF square(0, 0, kCheckmarkSize, kCheckmarkSize);
            square.moveCenter(column.center());
            drawGlyph(painter, Glyph::checkmark, square, colors.accent);
        }
        return;
    }
    if (!item.icon.isNull()) {
        QRect square(0, 0, kIconSize, kIconSize);
        square.moveCenter(column.center().toPoint());
        const bool isEnabled = item.state.testFlag(QStyle::State_Enabled);
        item.icon.paint(
            &painter, square, Qt::AlignCenter, isEnabled ? QIcon::Normal : QIcon::Disabled);
    }
}

void drawEntry(QPainter& painter,
               const QStyleOptionMenuItem& item,
               const ThemeColors::Resolved& colors) {
    if (item.state.testFlag(QStyle::State_Selected) && item.state.testFlag(QStyle::State_Enabled)) {
        QColor tint = colors.accent;
        tint.setAlphaF(kTintOpacity);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tint);
        painter.drawRoundedRect(
            QRectF(item.rect).adjusted(kTintMargin, 0, -kTintMargin, 0), kTintRadius, kTintRadius);
    }
    drawMark(painter, item, colors);
    painter.setFont(item.font);
    painter.setPen(item.palette.color(QPalette::Text));
    const QRect area = item.rect.adjusted(kMarkColumn, 0, -kRightColumn, 0);
    const Texts texts(item);
    painter.drawText(area, kTextFlags, texts.label);
    if (!texts.key.isEmpty()) {
        painter.setPen(colors.tertiaryText);
        painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter, texts.key);
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const QRectF column(item.rect.right() + 1 - kRightColumn,
                            item.rect.top(),
                            kRightColumn,
                            item.rect.height());
        QRectF square(0, 0, kArrowSize, kArrowSize);
        square.moveCenter(column.center());
        drawGlyph(painter, Glyph::chevronRight, square, item.palette.color(QPalette::Text));
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
        drawEntry(*painter, *item, colors);
    }
    painter->restore();
}

QSize PanelMenuStyle::sizeFromContents(ContentsType type,
                                       const QStyleOption* option,
                                       const QSize& contents,
                                       const QWidget* widget) const {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || item == nullptr) {
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        // An entry without a width is left out.
        return {kMarkColumn, kSeparatorHeight};
    }
    const Texts texts(*item);
    const QSize text = labelSize(*item, texts.label);
    // The menu itself adds the column for the shortcuts.
    const int gap = texts.key.isEmpty() ? 0 : kKeyGap;
    return {kMarkColumn + text.width() + gap + kRightColumn,
            std::max(text.height(), kIconSize) + 2 * kVerticalPadding};
}

int PanelMenuStyle::pixelMetric(PixelMetric metric,
                                const QStyleOption* option,
                                const QWidget* widget) const {
    switch (metric) {
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuVMargin:
        return kMenuPadding;
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
