// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/SearchRow.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/Widgets.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace quillbar {
namespace {

constexpr int kTextLeft = 12 + 16 + 6;

/// A row whose texts a test sets.
class TestedRow final : public SearchRow {
public:
    using SearchRow::setPickable;
    using SearchRow::setTexts;
    using SearchRow::Texts;

    explicit TestedRow(QWidget* parent)
        : SearchRow(parent) {}

    void present(const std::string& /*id*/, std::size_t /*index*/) override {}

    int clicks = 0;

protected:
    void onClick() override { ++clicks; }
};

/// A row in a dark window.
struct SearchRowTest : testing::Test {
    SearchRowTest() {
        window.resize(300, 60);
        row.resize(300, TableRow::kHeight);
        row.setTexts({.name = kName, .beside = kPair});
    }

    void show() {
        window.show();
        ASSERT_TRUE(spinUntil([this] { return window.windowHandle()->isExposed(); }));
    }
    /// The row as wide as that, with its name at full size and nothing else.
    [[nodiscard]] QImage nameAlone(int width) const {
        const ThemeColors::Resolved& colors = ThemeColors::dark();
        const QFont font = systemFont(13, QFont::Medium);
        const QFontMetricsF metrics(font);
        QImage image(width, TableRow::kHeight, QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        painter.setFont(font);
        painter.setPen(colors.primaryText);
        painter.drawText(
            QPointF(kTextLeft,
                    std::round((TableRow::kHeight - metrics.height()) / 2 + metrics.ascent())),
            kName);
        return image;
    }

    const QString kName = QStringLiteral("1000SATS");
    const QString kPair = QStringLiteral("1000SATS/USDT");
    QWidget window;
    TestedRow row{&window};
};

TEST_F(SearchRowTest, itsNameShrinksOnceLessThan48PointsAreLeftBesideIt) {
    const double advance = QFontMetricsF(systemFont(13, QFont::Medium)).horizontalAdvance(kName);
    const int name = static_cast<int>(std::ceil(advance));
    const int enough = kTextLeft + name + 6 + 48 + 12;
    const QRect place(kTextLeft, 0, name, TableRow::kHeight);
    row.resize(enough, TableRow::kHeight);
    EXPECT_EQ(pictureOf(row).copy(place), nameAlone(enough).copy(place));
    row.resize(enough - 1, TableRow::kHeight);
    EXPECT_NE(pictureOf(row).copy(place), nameAlone(enough).copy(place));
}

TEST_F(SearchRowTest, isPaintedWhenItsTextsChange) {
    show();
    const TestedRow::Texts texts{.name = kName, .beside = kPair, .atEnd = QStringLiteral("已添加")};
    EXPECT_EQ(paintsOf(row, [&] { row.setTexts(texts); }), 1);
    EXPECT_EQ(paintsOf(row, [&] { row.setTexts(texts); }), 0);
}

TEST_F(SearchRowTest, isPaintedWhenItCanNoLongerBePicked) {
    show();
    EXPECT_EQ(paintsOf(row, [&] { row.setPickable(false); }), 1);
    EXPECT_EQ(paintsOf(row, [&] { row.setPickable(false); }), 0);
    EXPECT_EQ(paintsOf(row, [&] { row.setPickable(true); }), 1);
}

TEST_F(SearchRowTest, isClickedByTheLeftButtonWhereItCanBePicked) {
    show();
    QTest::mouseClick(&row, Qt::LeftButton);
    QTest::mouseClick(&row, Qt::RightButton);
    EXPECT_EQ(row.clicks, 1);
    row.setPickable(false);
    QTest::mouseClick(&row, Qt::LeftButton);
    EXPECT_EQ(row.clicks, 1);
    row.setPickable(true);
    QTest::mousePress(&row, Qt::LeftButton);
    QTest::mouseRelease(&row, Qt::LeftButton, {}, QPoint(100, TableRow::kHeight));
    EXPECT_EQ(row.clicks, 1) << "let go below it";
}

}  // namespace
}  // namespace quillbar
