// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/watchlist/AddCoinViewFixture.h"

#include <gmock/gmock.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

/// The keyboard in the field and in the matches.
struct AddCoinKeyboardTest : AddCoinViewFixture {};

TEST_F(AddCoinKeyboardTest, theArrowDownGoesToTheMatchesAndUpBackToTheField) {
    show();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Down);
    EXPECT_TRUE(row("SOL")->hasFocus());
    press(Qt::Key_Down);
    EXPECT_TRUE(row("SOLV")->hasFocus());
    press(Qt::Key_Up);
    EXPECT_TRUE(row("SOL")->hasFocus());
    press(Qt::Key_Up);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(field().selectedText(), QString()) << "what was typed is not about to be overwritten";
    press(Qt::Key_Down);
    EXPECT_TRUE(row("SOL")->hasFocus()) << "it begins at the first";
}

TEST_F(AddCoinKeyboardTest, theRowThatHasTheFocusShowsARing) {
    show();
    searchFor(QStringLiteral("SOL"));
    const QImage before = pictureOf(*row("SOL"));
    press(Qt::Key_Down);
    EXPECT_NE(pictureOf(*row("SOL")), before);
    EXPECT_EQ(pictureOf(*row("SOL")).pixelColor(140, 1), ThemeColors::dark().accent);
}

TEST_F(AddCoinKeyboardTest, theArrowDownStaysInAFieldWithoutMatches) {
    show();
    press(Qt::Key_Down);
    EXPECT_TRUE(field().hasFocus());
    searchFor(QStringLiteral("XYZ"));
    press(Qt::Key_Down);
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(AddCoinKeyboardTest, enterOnARowPicksIt) {
    show();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(isWatched("SOLV"));
    EXPECT_FALSE(isWatched("SOL"));
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinKeyboardTest, typingOnARowGoesOnInTheField) {
    show();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Down);
    type(QStringLiteral("V"));
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(view->query(), QStringLiteral("SOLV"));
    time.advance(Seconds{0.3});
    press(Qt::Key_Down);
    press(Qt::Key_Backspace);
    EXPECT_EQ(view->query(), QStringLiteral("SOL"));
}

TEST_F(AddCoinKeyboardTest, theFocusReturnsToTheFieldWhenTheMatchesGo) {
    show();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Down);
    field().setText(QStringLiteral("XYZ"));
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(AddCoinKeyboardTest, enterInTheFieldPicksTheFirstMatch) {
    show();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Enter);
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_FALSE(isWatched("SOLV"));
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinKeyboardTest, enterPicksNothingButTheFirstMatch) {
    show({"SOL"});
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Return);
    EXPECT_EQ(*state->watchlist(), listOf({"SOL"})) << "nobody asked for SOLV";
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AddCoinKeyboardTest, enterBeforeTheSearchBeginsItAtOnceAndPicksWhatItFinds) {
    show();
    searchFor(QStringLiteral("SOL"));
    type(QStringLiteral("V"));
    press(Qt::Key_Return);
    EXPECT_TRUE(isWatched("SOLV")) << "not the match for what was typed before";
    EXPECT_FALSE(isWatched("SOL"));
}

TEST_F(AddCoinKeyboardTest, enterWaitsForACatalogThatIsOnItsWay) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Return);
    EXPECT_EQ(dismissals, 0);
    catalog.setValue(listOf({"SOL"}).coins);
    executor.run();
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinKeyboardTest, typingOnTakesEnterBack) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Return);
    type(QStringLiteral("V"));
    catalog.setValue(listOf({"SOL", "SOLV"}).coins);
    time.advance(Seconds{1});
    EXPECT_THAT(area(), ElementsAre("SOLV，SOLV/USDT"));
    EXPECT_EQ(*state->watchlist(), listOf({"BTC"}));
}

TEST_F(AddCoinKeyboardTest, enterTriesAgainAfterAFailure) {
    show();
    api.exchangeInfoAnswers.error(failure(URLError::Code::timedOut));
    searchFor(QStringLiteral("SOL"));
    ASSERT_THAT(area(), ElementsAre(kError));
    press(Qt::Key_Return);
    EXPECT_EQ(api.exchangeInfoRequests, 2);
    EXPECT_TRUE(isWatched("SOL"));
}

TEST_F(AddCoinKeyboardTest, enterInAnEmptyFieldPicksNothing) {
    show();
    searchFor(QStringLiteral("S"));
    ASSERT_FALSE(view->results().empty());
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    executor.run();
    EXPECT_EQ(*state->watchlist(), listOf({"BTC"}));
}

}  // namespace
}  // namespace quillbar
