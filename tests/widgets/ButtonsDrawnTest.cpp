// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/CenteredText.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/TextButton.h"
#include "tests/qtsupport/BlocksDrawn.h"
#include "tests/qtsupport/PaintCount.h"

#include <QFontMetricsF>
#include <QWindow>

#include <cmath>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

using ButtonsDrawnTest = BlocksDrawnFixture;

TEST_F(ButtonsDrawnTest, aLineInTheMiddleIsOf10Point5AndAsLargeAsItsTextAndItsPadding) {
    const QString text = QStringLiteral("暂无数据");
    const QFontMetricsF metrics(systemFont(10.5));
    CenteredText line(text, 16, &window);
    EXPECT_EQ(line.sizeHint().width(), std::ceil(metrics.horizontalAdvance(text)) + 32);
    EXPECT_EQ(line.sizeHint().height(), std::ceil(metrics.height()) + 32);
    line.resize(200, 60);
    EXPECT_EQ(pictureOf(line), drawn({200, 60}, [&](QPainter& painter) {
                  painter.setFont(systemFont(10.5));
                  painter.setPen(colors.secondaryText);
                  painter.drawText(QRect(0, 0, 200, 60), Qt::AlignCenter, text);
              }));
}

TEST_F(ButtonsDrawnTest, aButtonOfTextIsUnderlinedUnderThePointer) {
    const QString text = QStringLiteral("重试");
    TextButton button(text, &window);
    const auto label = [&](bool isUnderlined) {
        return drawn(button.size(), [&](QPainter& painter) {
            QFont font = systemFont(10.5);
            font.setUnderline(isUnderlined);
            painter.setFont(font);
            painter.setPen(colors.accent);
            painter.drawText(QRect(QPoint(), button.size()), Qt::AlignCenter, text);
        });
    };
    const double width = QFontMetricsF(systemFont(10.5)).horizontalAdvance(text);
    EXPECT_EQ(button.size(), QSize(static_cast<int>(std::ceil(width)) + 2 * 4, 20));
    EXPECT_EQ(pictureOf(button), label(false));
    underPointer(button);
    EXPECT_EQ(pictureOf(button), label(true));
}

TEST_F(ButtonsDrawnTest, aButtonOfAGlyphShowsItInTheMiddleStrongerUnderThePointer) {
    GlyphButton button(Glyph::plus, 9, QSize(14, 28), &window);
    const auto glyph = [this](Glyph which, const QColor& color, double opacity) {
        return drawn({14, 28}, [&](QPainter& painter) {
            painter.setOpacity(opacity);
            drawGlyph(painter, which, QRectF(2.5, 9.5, 9, 9), color);
        });
    };
    EXPECT_EQ(pictureOf(button), glyph(Glyph::plus, colors.secondaryText, 1));
    button.setColors(&Roles::up, &Roles::down);
    button.setRestingOpacity(0.55);
    EXPECT_EQ(pictureOf(button), glyph(Glyph::plus, colors.up, 0.55));
    button.setLit(true);
    EXPECT_EQ(pictureOf(button), glyph(Glyph::plus, colors.down, 1));
    button.setLit(false);
    button.setGlyph(Glyph::xmark);
    underPointer(button);
    EXPECT_EQ(pictureOf(button), glyph(Glyph::xmark, colors.down, 1));
}

TEST_F(ButtonsDrawnTest, aChangeOfWhatAButtonShowsPaintsIt) {
    GlyphButton button(Glyph::plus, 9, QSize(14, 28), &window);
    window.show();
    ASSERT_TRUE(spinUntil([this] { return window.windowHandle()->isExposed(); }));
    EXPECT_EQ(paintsOf(button, [&] { button.setGlyph(Glyph::xmark); }), 1);
    EXPECT_EQ(paintsOf(button, [&] { button.setGlyph(Glyph::xmark); }), 0);
    EXPECT_EQ(paintsOf(button, [&] { button.setRestingOpacity(0.5); }), 1);
    EXPECT_EQ(paintsOf(button, [&] { button.setColors(&Roles::up, &Roles::down); }), 1);
    EXPECT_EQ(paintsOf(button, [&] { button.setLit(true); }), 1);
    EXPECT_EQ(paintsOf(button, [&] { button.setLit(false); }), 1);
    EXPECT_EQ(paintsOf(button, [&] { pointerEnters(button); }), 1);
    EXPECT_EQ(paintsOf(button, [&] { pointerLeaves(button); }), 1);
}

}  // namespace
}  // namespace quillbar
