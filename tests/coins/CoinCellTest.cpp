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
    /// A name after the icon, drawn by the test, and the mark if there is one.
    [[nodiscard]] QImage drawn(const QString& name, PinMark mark) const {
        const QFont font = systemFont(13, QFont::DemiBold);
        QImage image(cell->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        painter.setFont(font);
        painter.setPen(colors.primaryText);
        painter.drawText(QRectF(kAfterTheIcon, 0, 100, 28), Qt::AlignLeft | Qt::AlignVCenter, name);
        if (mark == PinMark::pinned) {
            const double end = kAfterTheIcon + QFontMetricsF(font).horizontalAdvance(name);
            drawGlyph(painter, Glyph::pinFill, QRectF(end + 4, 9.5, 9, 9), colors.accent);
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
    spinUntilIdle();
    PaintCount paints(*cell);
    cell->setBaseAsset("BTC");
    cell->setPinMark(PinMark::none);
    spinUntilIdle();
    EXPECT_EQ(paints.count, 0);
    cell->setPinMark(PinMark::pinned);
    spinUntilIdle();
    EXPECT_EQ(paints.count, 1);
    cell->setBaseAsset("ETH");
    spinUntilIdle();
    EXPECT_EQ(paints.count, 2);
}

}  // namespace
}  // namespace quillbar
