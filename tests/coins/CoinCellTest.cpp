// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/coins/CoinCell.h"
#include "Quillbar/coins/CoinIconView.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Glyphs.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/ViewFixture.h"
#include "tests/qtsupport/Widgets.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QWindow>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

namespace quillbar {
namespace {

constexpr int kAfterTheIcon = 16 + 4;

/// A cell of the watchlist's width, in the dark.
struct CoinCellTest : ViewFixture {
    void SetUp() override {
        build();
        cell = std::make_unique<CoinCell>(environment());
        cell->resize(140, 28);
        cell->setBaseAsset("BTC");
        cell->show();
    }
    void TearDown() override { cell.reset(); }

    [[nodiscard]] QImage seen() const {
        return pictureOf(*cell).copy(kAfterTheIcon, 0, cell->width() - kAfterTheIcon, 28);
    }
    /// A name after the icon, drawn by the test, and the marks that there are.
    [[nodiscard]] QImage drawn(const QString& name,
                               PinMark mark,
                               BellMark bell = BellMark::none) const {
        const QFont font = systemFont(13, QFont::DemiBold);
        QImage image(cell->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        painter.setFont(font);
        painter.setPen(colors.primaryText);
        painter.drawText(QRectF(kAfterTheIcon, 0, 100, 28), Qt::AlignLeft | Qt::AlignVCenter, name);
        double left = kAfterTheIcon + QFontMetricsF(font).horizontalAdvance(name) + 4;
        if (mark == PinMark::pinned) {
            drawGlyph(painter, Glyph::pinFill, QRectF(left, 9.5, 9, 9), colors.accent);
            left += 9 + 4;
        }
        if (bell == BellMark::bell) {
            drawGlyph(painter, Glyph::bellFill, QRectF(left, 9.5, 9, 9), colors.secondaryText);
        }
        return image.copy(kAfterTheIcon, 0, cell->width() - kAfterTheIcon, 28);
    }

    std::unique_ptr<CoinCell> cell;
    ThemeColors::Resolved colors = ThemeColors::dark();
};

TEST_F(CoinCellTest, theNameIsOf13PointsSemiboldFourPointsAfterTheIcon) {
    EXPECT_EQ(seen(), drawn(QStringLiteral("BTC"), PinMark::none));
    cell->setBaseAsset("PEPE");
    EXPECT_EQ(seen(), drawn(QStringLiteral("PEPE"), PinMark::none));
}

TEST_F(CoinCellTest, theIconIsOf16PointsInTheMiddleOfTheHeight) {
    const auto* const icon = widgetsOf<CoinIconView>(*cell).at(0);
    EXPECT_EQ(icon->geometry(), QRect(0, 6, 16, 16));
    cell->resize(140, 40);
    EXPECT_EQ(icon->geometry(), QRect(0, 12, 16, 16));
}

TEST_F(CoinCellTest, thePinIsOfNinePointsFourAfterTheName) {
    cell->setPinMark(PinMark::pinned);
    EXPECT_EQ(seen(), drawn(QStringLiteral("BTC"), PinMark::pinned));
    cell->setPinMark(PinMark::none);
    EXPECT_EQ(seen(), drawn(QStringLiteral("BTC"), PinMark::none));
}

TEST_F(CoinCellTest, theBellIsAsLargeAndStandsAfterThePin) {
    cell->setBellMark(BellMark::bell);
    EXPECT_EQ(seen(), drawn(QStringLiteral("BTC"), PinMark::none, BellMark::bell));
    cell->setPinMark(PinMark::pinned);
    EXPECT_EQ(seen(), drawn(QStringLiteral("BTC"), PinMark::pinned, BellMark::bell));
}

TEST_F(CoinCellTest, aNameLeavesEachMarkItsRoom) {
    const QString name = QStringLiteral("1000SATS");
    const double width = QFontMetricsF(systemFont(13, QFont::DemiBold)).horizontalAdvance(name);
    cell->setBaseAsset("1000SATS");
    cell->setPinMark(PinMark::pinned);
    cell->setBellMark(BellMark::bell);
    const int enough = kAfterTheIcon + static_cast<int>(std::ceil(width)) + 2 * (4 + 9);
    cell->resize(enough, 28);
    EXPECT_EQ(seen(), drawn(name, PinMark::pinned, BellMark::bell));
    cell->resize(enough - 1, 28);
    EXPECT_NE(seen(), drawn(name, PinMark::pinned, BellMark::bell)) << "the name is smaller";
}

TEST_F(CoinCellTest, leavesThePointerToItsRow) {
    QWidget row;
    cell->setParent(&row);
    cell->show();
    row.show();
    EXPECT_EQ(row.childAt(8, 14), nullptr);
    EXPECT_EQ(row.childAt(100, 14), nullptr);
    cell->setParent(nullptr);
}

TEST_F(CoinCellTest, aLongNameIsWrittenSmallerBeforeItLosesLetters) {
    const QString name = QStringLiteral("1000SATS");
    const double width = QFontMetricsF(systemFont(13, QFont::DemiBold)).horizontalAdvance(name);
    cell->setBaseAsset("1000SATS");
    cell->resize(kAfterTheIcon + static_cast<int>(width) + 1, 28);
    EXPECT_EQ(seen(), drawn(name, PinMark::none));
    const QRect whole = boundsOfInk(seen(), colors.surface);
    cell->resize(kAfterTheIcon + static_cast<int>(width * 0.9), 28);
    const QRect smaller = boundsOfInk(seen(), colors.surface);
    EXPECT_LT(smaller.width(), whole.width());
    EXPECT_LT(smaller.height(), whole.height());
}

TEST_F(CoinCellTest, aNameThatIsFarTooLongLeavesThePinItsRoom) {
    cell->setBaseAsset("AVERYLONGNAMEOFACOINTHATNOBODYKNOWS");
    cell->setPinMark(PinMark::pinned);
    const QImage image = pictureOf(*cell);
    QRect pin;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = kAfterTheIcon; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colors.accent) {
                pin = pin.united(QRect(x, y, 1, 1));
            }
        }
    }
    // The whole of it, close to the end of the cell.
    EXPECT_GE(pin.height(), 4);
    EXPECT_GE(pin.left(), 140 - 9 - 4 - 12);
    EXPECT_LT(pin.right(), 140);
}

TEST_F(CoinCellTest, repaintsOnlyForAnotherNameOrMark) {
    ASSERT_TRUE(spinUntil([this] { return cell->windowHandle()->isExposed(); }));
    EXPECT_EQ(paintsOf(*cell, [this] { cell->setBaseAsset("BTC"); }), 0);
    EXPECT_EQ(paintsOf(*cell, [this] { cell->setPinMark(PinMark::none); }), 0);
    EXPECT_EQ(paintsOf(*cell, [this] { cell->setBellMark(BellMark::none); }), 0);
    EXPECT_EQ(paintsOf(*cell, [this] { cell->setPinMark(PinMark::pinned); }), 1);
    EXPECT_EQ(paintsOf(*cell, [this] { cell->setBellMark(BellMark::bell); }), 1);
    EXPECT_EQ(paintsOf(*cell, [this] { cell->setBaseAsset("ETH"); }), 1);
}

}  // namespace
}  // namespace quillbar
