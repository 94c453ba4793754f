// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/boards/MarketBoardFixture.h"
#include "tests/watchlist/CoinListFixture.h"

#include <QAccessible>
#include <QAccessibleInterface>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

/// What a screen reader is told of a row whose price changes all the time.
struct RowSpeechTest : CoinListFixture {
    [[nodiscard]] std::string name(const std::string& baseAsset) const {
        return row(baseAsset)->accessibleName().toStdString();
    }
    [[nodiscard]] QTimer* reading(const std::string& baseAsset) const {
        return row(baseAsset)->findChild<QTimer*>(QStringLiteral("reading"));
    }
    /// The time that reading a row takes is over.
    void endReading(const std::string& baseAsset) const {
        ASSERT_TRUE(reading(baseAsset)->isActive());
        reading(baseAsset)->stop();
        QMetaObject::invokeMethod(reading(baseAsset), "timeout");
    }
};

TEST_F(RowSpeechTest, aRowWithTheFocusIsRenamedAtMostEveryTenSeconds) {
    show({"BTC", "ETH"});
    row("BTC")->setFocus();
    EXPECT_EQ(reading("BTC")->interval(), 10'000);
    for (const double last : {110, 120, 130}) {
        tick("BTC", {last, 100});
        EXPECT_EQ(name("BTC"), "BTC，价格 —，涨跌 —，成交额 —") << "the reader has just begun";
    }
    endReading("BTC");
    EXPECT_EQ(name("BTC"), "BTC，价格 130.00，涨跌 +30.00%，成交额 —");
    tick("BTC", {140, 100});
    EXPECT_EQ(name("BTC"), "BTC，价格 130.00，涨跌 +30.00%，成交额 —");
    endReading("BTC");
    EXPECT_EQ(name("BTC"), "BTC，价格 140.00，涨跌 +40.00%，成交额 —");
    endReading("BTC");
    EXPECT_FALSE(reading("BTC")->isActive()) << "nothing has changed";
    tick("BTC", {150, 100});
    EXPECT_EQ(name("BTC"), "BTC，价格 150.00，涨跌 +50.00%，成交额 —")
        << "it has been left alone for long enough";
    tick("BTC", {160, 100});
    EXPECT_EQ(name("BTC"), "BTC，价格 150.00，涨跌 +50.00%，成交额 —");
}

TEST_F(RowSpeechTest, aReaderThatAsksIsToldTheLatest) {
    show({"BTC"});
    row("BTC")->setFocus();
    tick("BTC", {110, 100});
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(row("BTC"));
    EXPECT_EQ(told->text(QAccessible::Name),
              QStringLiteral("BTC，价格 110.00，涨跌 +10.00%，成交额 —"));
    EXPECT_EQ(told->text(QAccessible::Description), QStringLiteral("第 1 位，共 1 位"));
}

TEST_F(RowSpeechTest, aRowWithoutTheFocusHasItsNewNameAtOnce) {
    show({"BTC", "ETH"});
    row("BTC")->setFocus();
    tick("ETH", {110, 100});
    EXPECT_EQ(name("ETH"), "ETH，价格 110.00，涨跌 +10.00%，成交额 —");
    tick("BTC", {120, 100});
    EXPECT_EQ(name("BTC"), "BTC，价格 —，涨跌 —，成交额 —");
    row("ETH")->setFocus();
    EXPECT_EQ(name("BTC"), "BTC，价格 120.00，涨跌 +20.00%，成交额 —") << "it has lost the focus";
    EXPECT_FALSE(reading("BTC")->isActive());
}

/// A row that says what it shows, with a price.
class SpokenRow final : public ListRow {
public:
    void present(const std::string& id, std::size_t index) override {
        setSpokenText(id, QString::fromStdString(id) + QString::number(index));
    }
};

TEST(SpokenRowTest, theFocusedRowThatShowsAnotherItemSaysSoAtOnce) {
    SpokenRow row;
    row.present("a", 1);
    showActive(row);
    row.setFocus();
    row.present("a", 2);
    EXPECT_EQ(row.accessibleName(), QStringLiteral("a1"));
    row.present("b", 3);
    EXPECT_EQ(row.accessibleName(), QStringLiteral("b3"));
}

struct BoardRowSpeechTest : MarketBoardFixture {};

TEST_F(BoardRowSpeechTest, aRowOfABoardWithTheFocusIsLeftAloneToo) {
    openThree();
    MarketRowView* const focused = row("SOL");
    focused->setFocus();
    const QString before = focused->accessibleName();
    theMarketIs({{"BTC", {120, 100, 3e9}}, {"ETH", {120, 100, 2e9}}, {"SOL", {140, 100, 1e8}}});
    pass(Seconds(30));
    ASSERT_EQ(row("SOL"), focused);
    EXPECT_EQ(focused->accessibleName(), before);
    EXPECT_EQ(focused->spokenText(),
              QStringLiteral("1，SOL，价格 140.00，涨跌 +40.00%，成交额 1.00亿"));
    EXPECT_EQ(row("BTC")->accessibleName(), row("BTC")->spokenText());
}

}  // namespace
}  // namespace quillbar
