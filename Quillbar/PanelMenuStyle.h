// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace quillbar {

/// How the menus of the panel look, in place of the desktop's style: everything is drawn from the
/// theme of the widget, but the text of an entry, whose colour is the Text of the option's palette.
class PanelMenuStyle final : public QProxyStyle {
public:
    /// On Qt's own style, which is there on every desktop.
    PanelMenuStyle();

    void drawPrimitive(PrimitiveElement element,
                       const QStyleOption* option,
                       QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element,
                     const QStyleOption* option,
                     QPainter* painter,
                     const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type,
                                         const QStyleOption* option,
                                         const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric,
                                  const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint,
                                const QStyleOption* option,
                                const QWidget* widget,
                                QStyleHintReturn* result) const override;
};

}  // namespace quillbar
