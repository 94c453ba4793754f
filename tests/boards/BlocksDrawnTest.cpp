// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/BoardPlaceholder.h"
#include "Quillbar/list/ColumnHeader.h"
#include "Quillbar/list/NumericCell.h"
#include "Quillbar/list/SortableHeader.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/widgets/CenteredText.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/TextButton.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/Widgets.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QWindow>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <set>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

const QString kVolume = QStringLiteral("成交额");

/// What the blocks of a table look like, beside drawings by the test on a dark panel.
struct BlocksDrawnTest : testing::Test {
    BlocksDrawnTest() { window.resize(400, 300); }

    [[nodiscard]] QImage drawn(const QSize& size,
                               const std::function<void(QPainter&)>& draw) const {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        draw(painter);
        return image;
    }
    static void underPointer(QWidget& widget) { widget.setAttribute(Qt::WA_UnderMouse); }

    QWidget window;
    Roles colors = ThemeColors::dark();
};

TEST_F(BlocksDrawnTest, theTitlesOfColumnsAreOf9Point5SemiboldAndLeaveTheSeparatorFree) {
    ColumnHeader header(&window);
    header.addFlexibleTitle(QStringLiteral("币种"));
    header.addTitle(kVolume, 64);
    header.resize(200, ColumnHeader::kHeight);
    window.show();
    const QFont font = systemFont(9.5, QFont::DemiBold);
    const auto title = [&](const QSize& size, Qt::Alignment side, const QString& text) {
        return drawn(size, [&](QPainter& painter) {
            painter.setFont(font);
            painter.setPen(colors.secondaryText);
            painter.drawText(
                QRect(QPoint(), size), static_cast<int>(side | Qt::AlignVCenter), text);
        });
    };
    QWidget& coin = *named(header, QStringLiteral("币种"));
    QWidget& volume = *named(header, kVolume);
    EXPECT_EQ(coin.geometry(), QRect(12, 0, 200 - 24 - 6 - 64, 20));
    EXPECT_EQ(volume.geometry(), QRect(200 - 12 - 64, 0, 64, 20));
    EXPECT_EQ(pictureOf(coin), title(coin.size(), Qt::AlignLeft, QStringLiteral("币种")));
    EXPECT_EQ(pictureOf(volume), title(volume.size(), Qt::AlignRight, kVolume));
}

TEST_F(BlocksDrawnTest, aTitleThatCanBeClickedEndsEightPointsBeforeItsColumnWhereItsArrowBegins) {
    SortableHeader header(kVolume, 64, &window);
    window.show();
    ASSERT_EQ(header.size(), QSize(64, 19)) << "without the line of the separator";
    const auto title = [&](const QColor& color, const std::function<void(QPainter&)>& more) {
        return drawn(header.size(), [&](QPainter& painter) {
            painter.setFont(systemFont(9.5, QFont::DemiBold));
            painter.setPen(color);
            painter.drawText(QRect(0, 0, 56, 19), Qt::AlignRight | Qt::AlignVCenter, kVolume);
            more(painter);
        });
    };
    const auto arrow = [this](Glyph glyph) {
        return [this, glyph](QPainter& painter) {
            drawGlyph(painter, glyph, QRectF(60 - 4.5, 9.5 - 4.5, 9, 9), colors.accent);
        };
    };
    const auto nothing = [](QPainter& /*painter*/) {};
    EXPECT_EQ(pictureOf(header), title(colors.secondaryText, nothing));
    header.setDirection(SortDirection::descending);
    EXPECT_EQ(pictureOf(header), title(colors.primaryText, arrow(Glyph::chevronDown)));
    header.setDirection(SortDirection::ascending);
    EXPECT_EQ(pictureOf(header), title(colors.primaryText, arrow(Glyph::chevronUp)));
    header.setDirection(std::nullopt);
    underPointer(header);
    EXPECT_EQ(pictureOf(header), title(colors.primaryText, nothing));
}

TEST_F(BlocksDrawnTest, theArrowOfNinePointsStandsRightAfterTheTitleWithoutTouchingIt) {
    SortableHeader header(kVolume, 64, &window);
    window.show();
    underPointer(header);
    const QImage title = pictureOf(header);
    header.setDirection(SortDirection::descending);
    const QImage both = pictureOf(header);
    // The columns that show something on this ground, and those in which the arrow does.
    std::set<int> written;
    std::set<int> pointed;
    constexpr int kVisible = 32;
    const auto differ = [](QRgb one, QRgb other) {
        return std::abs(qRed(one) - qRed(other)) > kVisible
               || std::abs(qBlue(one) - qBlue(other)) > kVisible;
    };
    for (int y = 0; y < title.height(); ++y) {
        for (int x = 0; x < title.width(); ++x) {
            if (differ(title.pixel(x, y), title.pixel(0, 0))) {
                written.insert(x);
            }
            if (differ(both.pixel(x, y), title.pixel(x, y))) {
                pointed.insert(x);
            }
        }
    }
    ASSERT_FALSE(written.empty());
    ASSERT_FALSE(pointed.empty());
    EXPECT_LT(*written.rbegin(), *pointed.begin());
    EXPECT_GE(*pointed.begin(), 56) << "the arrow's slot begins there";
    EXPECT_GE(*pointed.rbegin() - *pointed.begin() + 1, 7) << "a chevron of nine points";
}

TEST_F(BlocksDrawnTest, aNumberEndsWhereItsColumnDoes) {
    NumericCell cell(82, 12, &window);
    cell.resize(82, 28);
    cell.setText(QStringLiteral("67,234.50"));
    const auto number = [this](const QColor& color) {
        return drawn({82, 28}, [&color](QPainter& painter) {
            painter.setPen(color);
            TabularText::draw(painter,
                              QRectF(0, 0, 82, 28),
                              Qt::AlignRight | Qt::AlignVCenter,
                              QStringLiteral("67,234.50"),
                              systemFont(12));
        });
    };
    EXPECT_EQ(pictureOf(cell), number(colors.secondaryText));
    cell.setColor(&Roles::up);
    EXPECT_EQ(pictureOf(cell), number(colors.up));
}

TEST_F(BlocksDrawnTest, aNumberThatJustFitsIsNotMadeSmaller) {
    const QString text = QStringLiteral("67,234.50");
    const int needed = static_cast<int>(std::ceil(TabularText::width(text, systemFont(12))));
    const auto heightAt = [&](int width) {
        NumericCell cell(width, 12, &window);
        cell.resize(width, 28);
        cell.setText(text);
        return boundsOfInk(pictureOf(cell), colors.surface).height();
    };
    EXPECT_EQ(heightAt(needed), heightAt(200));
    EXPECT_LT(heightAt(needed * 7 / 10), heightAt(200));
    // Not smaller than this, where it runs out of its column instead.
    EXPECT_EQ(heightAt(needed / 10), heightAt(needed / 5));
}

TEST_F(BlocksDrawnTest, aLineInTheMiddleIsOf10Point5AndAsLargeAsItsTextAndItsPadding) {
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

TEST_F(BlocksDrawnTest, aFailedBoardIsALineAndAButtonSixPointsApartInTheMiddle) {
    BoardPlaceholder placeholder(440, &window);
    EXPECT_EQ(placeholder.sizeHint().height(), 440);
    placeholder.resize(400, 440);
    placeholder.setContent(BoardPlaceholder::Content::failed);
    window.show();
    spinUntilIdle();
    const QRect line = named(placeholder, QStringLiteral("加载行情失败"))->geometry();
    const QRect retry = named(placeholder, QStringLiteral("重试"))->geometry();
    EXPECT_EQ(retry.top(), line.bottom() + 1 + 6);
    EXPECT_NEAR((line.top() + retry.bottom()) / 2.0, 220, 1);
    EXPECT_NEAR(retry.center().x(), 200, 1);
    placeholder.setContent(BoardPlaceholder::Content::loading);
    spinUntilIdle();
    const QRect spinner = named(placeholder, QStringLiteral("正在加载行情"))->geometry();
    EXPECT_EQ(spinner.size(), QSize(16, 16));
    EXPECT_NEAR(spinner.center().x(), 200, 1);
    EXPECT_NEAR(spinner.center().y(), 220, 1);
    placeholder.setContent(BoardPlaceholder::Content::empty);
    spinUntilIdle();
    EXPECT_NEAR(named(placeholder, QStringLiteral("暂无数据"))->geometry().center().y(), 220, 1);
}

TEST_F(BlocksDrawnTest, aButtonOfTextIsUnderlinedUnderThePointer) {
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
    EXPECT_EQ(pictureOf(button), label(false));
    underPointer(button);
    EXPECT_EQ(pictureOf(button), label(true));
}

TEST_F(BlocksDrawnTest, aButtonOfAGlyphShowsItInTheMiddleStrongerUnderThePointer) {
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
    button.setGlyph(Glyph::xmark);
    underPointer(button);
    EXPECT_EQ(pictureOf(button), glyph(Glyph::xmark, colors.down, 1));
}

TEST_F(BlocksDrawnTest, aChangeOfWhatAButtonShowsRepaintsIt) {
    GlyphButton button(Glyph::plus, 9, QSize(14, 28), &window);
    SortableHeader header(kVolume, 64, &window);
    window.show();
    ASSERT_TRUE(spinUntil([this] { return window.windowHandle()->isExposed(); }));
    const auto repaints = [](QWidget& widget, const std::function<void()>& change) {
        spinUntilIdle();
        PaintCount paints(widget);
        change();
        spinUntilIdle();
        return paints.count;
    };
    EXPECT_EQ(repaints(button, [&] { button.setGlyph(Glyph::xmark); }), 1);
    EXPECT_EQ(repaints(button, [&] { button.setGlyph(Glyph::xmark); }), 0);
    EXPECT_EQ(repaints(button, [&] { button.setRestingOpacity(0.5); }), 1);
    EXPECT_EQ(repaints(button, [&] { button.setColors(&Roles::up, &Roles::down); }), 1);
    EXPECT_EQ(repaints(button, [&] { pointerEnters(button); }), 1);
    EXPECT_EQ(repaints(button, [&] { pointerLeaves(button); }), 1);
    EXPECT_EQ(repaints(header, [&] { header.setDirection(SortDirection::ascending); }), 1);
    EXPECT_EQ(repaints(header, [&] { header.setDirection(SortDirection::ascending); }), 0);
}

}  // namespace
}  // namespace quillbar
