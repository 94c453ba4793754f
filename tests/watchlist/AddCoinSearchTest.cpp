// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceError.h"
#include "tests/watchlist/AddCoinViewFixture.h"

#include <QInputMethodEvent>

#include <gmock/gmock.h>

#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ResultArea = AddCoinView::ResultArea;

/// What is searched for, and what is found.
struct AddCoinSearchTest : AddCoinViewFixture {};

// Searching

TEST_F(AddCoinSearchTest, typingQuicklySearchesOnceAMomentAfterTheLastKeystroke) {
    show();
    // Each search asks again as long as the catalog cannot be had.
    api.exchangeInfoAnswers.otherwiseError(failure(URLError::Code::timedOut));
    type(QStringLiteral("S"));
    time.advance(Seconds{0.2});
    type(QStringLiteral("O"));
    time.advance(Seconds{0.2});
    type(QStringLiteral("L"));
    time.advance(Seconds{0.29});
    EXPECT_EQ(api.exchangeInfoRequests, 0);
    time.advance(Seconds{0.02});
    EXPECT_EQ(api.exchangeInfoRequests, 1);
    time.advance(Seconds{10});
    EXPECT_EQ(api.exchangeInfoRequests, 1);
}

TEST_F(AddCoinSearchTest, listsTheMatchesTheBestFirst) {
    show();
    searchFor(QStringLiteral("sol"));
    EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT", "SOLV，SOLV/USDT", "WSOL，WSOL/USDT"));
    EXPECT_THAT(view->results(), ElementsAre(coinOf("SOL"), coinOf("SOLV"), coinOf("WSOL")));
    EXPECT_EQ(row("SOLV")->y(), row("SOL")->y() + row("SOL")->height());
    EXPECT_FALSE(row("SOLV")->isAlternate());
}

TEST_F(AddCoinSearchTest, saysThatNothingMatchesOnceASearchHasFoundNothing) {
    show();
    searchFor(QStringLiteral("XYZ"));
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
    time.advance(Seconds{60});
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
}

TEST_F(AddCoinSearchTest, saysThatItSearchesUntilTheAnswerIsThere) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    type(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre(kSearching));
    EXPECT_EQ(view->resultArea(), ResultArea::searching);
    time.advance(Seconds{5});
    EXPECT_THAT(area(), ElementsAre(kSearching)) << "the catalog is on its way";
    catalog.setValue(listOf({"SOL"}).coins);
    executor.run();
    EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT"));
}

TEST_F(AddCoinSearchTest, saysThatItSearchesWhenEnterBeginsASearchAtOnce) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    type(QStringLiteral("SOL"));
    press(Qt::Key_Return);
    EXPECT_THAT(area(), ElementsAre(kSearching));
    catalog.setError(std::make_exception_ptr(failure(URLError::Code::timedOut)));
    executor.run();
    ASSERT_THAT(area(), ElementsAre(kError));
    auto again = api.exchangeInfoAnswers.held();
    press(Qt::Key_Return);
    EXPECT_THAT(area(), ElementsAre(kError)) << "until the next answer or keystroke";
    again.setValue({});
    executor.run();
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
}

TEST_F(AddCoinSearchTest, clearingTheFieldShowsTheHintAgain) {
    show();
    searchFor(QStringLiteral("XYZ"));
    field().clear();
    executor.run();
    EXPECT_THAT(area(), ElementsAre(kHint));
    time.advance(Seconds{1});
    EXPECT_THAT(area(), ElementsAre(kHint));
    EXPECT_THAT(view->results(), IsEmpty());
}

TEST_F(AddCoinSearchTest, spacesAloneAreNothingToSearchFor) {
    show();
    searchFor(QStringLiteral("   "));
    EXPECT_THAT(area(), ElementsAre(kHint));
    EXPECT_EQ(api.exchangeInfoRequests, 0);
}

TEST_F(AddCoinSearchTest, keepsTheMatchesUntilThereAreOthers) {
    show();
    searchFor(QStringLiteral("SOL"));
    type(QStringLiteral("V"));
    EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT", "SOLV，SOLV/USDT", "WSOL，WSOL/USDT"));
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre("SOLV，SOLV/USDT"));
}

TEST_F(AddCoinSearchTest, discardsASearchThatTypingHasOvertaken) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("W"));
    ASSERT_EQ(api.exchangeInfoAnswers.waitingCount(), 1U);
    type(QStringLiteral("S"));
    catalog.setValue(listOf({"W", "WSOL"}).coins);
    executor.run();
    EXPECT_THAT(area(), ElementsAre(kSearching));
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre("WSOL，WSOL/USDT"));
}

TEST_F(AddCoinSearchTest, discardsAnAnswerThatCameJustBeforeTheKeystroke) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("W"));
    catalog.setValue(listOf({"W", "WSOL"}).coins);
    QTest::keyClick(&field(), 'S');
    executor.run();
    EXPECT_THAT(view->results(), IsEmpty());
    EXPECT_THAT(area(), ElementsAre(kSearching));
}

TEST_F(AddCoinSearchTest, discardsMatchesThatTheKeystrokeOvertakesOnTheirWayToTheView) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("W"));
    catalog.setValue(listOf({"W", "WSOL"}).coins);
    // The list of coins is there now, and the search is about to go on with it.
    ASSERT_TRUE(executor.runOne());
    QTest::keyClick(&field(), 'S');
    executor.run();
    EXPECT_THAT(view->results(), IsEmpty());
    EXPECT_THAT(area(), ElementsAre(kSearching));
}

TEST_F(AddCoinSearchTest, showsACoinOnceThatAFileNamesTwice) {
    show();
    api.exchangeInfoAnswers.otherwise(listOf({"SOL", "SOL", "SOLV"}).coins);
    searchFor(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT", "SOLV，SOLV/USDT"));
}

TEST_F(AddCoinSearchTest, otherMatchesBeginAtTheTop) {
    show();
    std::vector<std::string> coins;
    for (char each = 'A'; each <= 'T'; ++each) {
        coins.push_back(std::string("C") + each);
    }
    theExchangeTrades(coins);
    searchFor(QStringLiteral("C"));
    ASSERT_EQ(view->results().size(), 20U);
    rows().scrollTo(10000);
    ASSERT_EQ(rows().scrollOffset(), 20 * 28 - 200);
    press(Qt::Key_Backspace);
    searchFor(QStringLiteral("c"));
    EXPECT_EQ(rows().scrollOffset(), 0);
}

TEST_F(AddCoinSearchTest, textThatIsBeingComposedIsNotSearchedForBeforeItIsWhole) {
    show();
    QInputMethodEvent composing(QStringLiteral("so"), {});
    QApplication::sendEvent(&field(), &composing);
    time.advance(Seconds{1});
    EXPECT_EQ(view->query(), QString());
    EXPECT_EQ(api.exchangeInfoRequests, 0);
    QInputMethodEvent done;
    done.setCommitString(QStringLiteral("SOLV"));
    QApplication::sendEvent(&field(), &done);
    executor.run();
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre("SOLV，SOLV/USDT"));
}

// Failures

TEST_F(AddCoinSearchTest, aFailureStaysUntilSomethingElseIsTyped) {
    show();
    api.exchangeInfoAnswers.error(failure(URLError::Code::cannotConnect));
    searchFor(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre(kError));
    EXPECT_EQ(view->errorMessage(), QString::fromUtf8(kError));
    EXPECT_THAT(view->results(), IsEmpty());
    time.advance(Seconds{60});
    EXPECT_THAT(area(), ElementsAre(kError));
    type(QStringLiteral("V"));
    EXPECT_EQ(view->errorMessage(), std::nullopt);
    EXPECT_THAT(area(), ElementsAre(kSearching));
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre("SOLV，SOLV/USDT"));
}

TEST_F(AddCoinSearchTest, whatTheExchangeRefusesIsAFailureToo) {
    show();
    api.exchangeInfoAnswers.error(BinanceError(451));
    searchFor(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre(kError));
}

TEST_F(AddCoinSearchTest, clearingTheFieldAfterAFailureShowsTheHint) {
    show();
    api.exchangeInfoAnswers.error(failure(URLError::Code::timedOut));
    searchFor(QStringLiteral("S"));
    press(Qt::Key_Backspace);
    EXPECT_THAT(area(), ElementsAre(kHint));
}

TEST_F(AddCoinSearchTest, aRequestThatWasCancelledShowsNoError) {
    show();
    api.exchangeInfoAnswers.error(failure(URLError::Code::cancelled));
    searchFor(QStringLiteral("SOL"));
    EXPECT_EQ(view->errorMessage(), std::nullopt);
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
}

TEST_F(AddCoinSearchTest, aFailureThatTypingHasOvertakenIsNotShown) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("S"));
    catalog.setError(std::make_exception_ptr(failure(URLError::Code::timedOut)));
    QTest::keyClick(&field(), 'O');
    executor.run();
    EXPECT_EQ(view->errorMessage(), std::nullopt);
    EXPECT_THAT(area(), ElementsAre(kSearching));
}

TEST_F(AddCoinSearchTest, goesInTheMiddleOfASearch) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("S"));
    type(QStringLiteral("O"));
    const std::size_t sleeping = time.sleepingCount();
    view.reset();
    EXPECT_EQ(time.sleepingCount(), sleeping - 1) << "it waits no more";
    catalog.setValue(listOf({"SOL"}).coins);
    time.advance(Seconds{1});
}

}  // namespace
}  // namespace quillbar
