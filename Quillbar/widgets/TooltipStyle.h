// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace quillbar {

/// The desktop's style, but for tooltips, which look as `LiftedSurface` has it, in the theme and
/// the text size of the widget that they belong to. They do not reach beyond the edges of its
/// window, unless they are wider than that. For QApplication::setStyle().
class TooltipStyle final : public QProxyStyle {
public:
    /// On the style that the application has.
    TooltipStyle();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element,
                       const QStyleOption* option,
                       QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric,
                                  const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint,
                                const QStyleOption* option,
                                const QWidget* widget,
                                QStyleHintReturn* result) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quillbar
