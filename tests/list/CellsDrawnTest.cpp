// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/ColumnHeader.h"
#include "Quillbar/list/NumericCell.h"
#include "Quillbar/list/SortableHeader.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/widgets/Glyphs.h"
#include "tests/qtsupport/BlocksDrawn.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/PaintCount.h"

#include <QLayout>
#include <QWindow>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <optional>
#include <set>
#include <utility>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

using CellsDrawnTest = BlocksDrawnFixture;

const QString kVolume = QStringLiteral("成交额");

TEST_F(CellsDrawnTest, theTitlesOfColumnsAreOf9Point5SemiboldAndLeaveTheSeparatorFree) {
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
    EXPECT_EQ(coin.geometry(), QRect(12, 0, 200 - 24 - 6 - 64, 19));
    EXPECT_EQ(volume.geometry(), QRect(200 - 12 - 64, 0, 64, 19));
    EXPECT_EQ(pictureOf(coin), title(coin.size(), Qt::AlignLeft, QStringLiteral("币种")));
    EXPECT_EQ(pictureOf(volume), title(volume.size(), Qt::AlignRight, kVolume));
}

TEST_F(CellsDrawnTest, titlesStandOnOneLineAtEveryTextSize) {
    ColumnHeader header(&window);
    header.addFlexibleTitle(QStringLiteral("币种"));
    header.addSortable(kVolume, 64);
    window.show();
    for (const double scale : {1.0, 1.15, 1.3}) {
        SCOPED_TRACE(scale);
        ThemeKey::set(window, {.colors = colors, .scale = scale});
        header.resize(300, header.height());
        header.layout()->activate();
        const auto heightsOfInk = [&](const QString& name) {
            QWidget& title = *named(header, name);
            const QRect ink = boundsOfInk(pictureOf(title), colors.surface);
            return std::pair(title.y() + ink.top(), title.y() + ink.bottom());
        };
        EXPECT_EQ(heightsOfInk(QStringLiteral("币种")).second, heightsOfInk(kVolume).second);
    }
}

TEST_F(CellsDrawnTest, aTitleThatCanBeClickedEndsEightPointsBeforeItsColumnWhereItsArrowBegins) {
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

TEST_F(CellsDrawnTest, theArrowOfNinePointsStandsRightAfterTheTitleWithoutTouchingIt) {
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

TEST_F(CellsDrawnTest, aNumberEndsWhereItsColumnDoes) {
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

TEST_F(CellsDrawnTest, aNumberThatJustFitsIsNotMadeSmaller) {
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

TEST_F(CellsDrawnTest, anArrowThatTurnsIsPainted) {
    SortableHeader header(kVolume, 64, &window);
    window.show();
    ASSERT_TRUE(spinUntil([this] { return window.windowHandle()->isExposed(); }));
    const auto turn = [&] { header.setDirection(SortDirection::ascending); };
    EXPECT_EQ(paintsOf(header, turn), 1);
    EXPECT_EQ(paintsOf(header, turn), 0);
}

}  // namespace
}  // namespace quillbar
