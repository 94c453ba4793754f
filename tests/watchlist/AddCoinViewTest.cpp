// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/AddCoinView.h"
#include "Quillbar/widgets/PanelMenu.h"
#include "QuillbarCore/exchange/URLError.h"
#include "tests/qtsupport/Pointer.h"
#include "tests/watchlist/AddCoinFixture.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>

#include <gmock/gmock.h>

#include <exception>
#include <memory>
#include <optional>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ResultArea = AddCoinView::ResultArea;

constexpr const char* kHint = "输入币种代号开始搜索";
constexpr const char* kSearching = "搜索中…";
constexpr const char* kNoMatches = "无匹配结果";
constexpr const char* kError = "搜索失败,请检查网络后重试";

URLError failure(URLError::Code code) {
    return {code, "the test says so"};
}

struct AddCoinViewTest : AddCoinFixture {
    void show(const std::vector<std::string>& watched = {"BTC"}) {
        startConnected(listOf(watched));
        theExchangeTrades({"SOLV", "BTC", "SOL", "WSOL", "ETH"});
        view = std::make_unique<AddCoinView>(environment(), [this](const std::string& symbol) {
            ++dismissals;
            added = symbol;
        });
        showActive(*view);
        view->setFocus(Qt::PopupFocusReason);
    }

    /// Clicks a coin whose price does not come before `endAdding`.
    void pickOnASlowLine(const std::string& baseAsset) {
        prices = api.ticker24hAnswers.held();
        click(baseAsset);
    }
    void endAdding() {
        prices->setValue({});
        executor.run();
    }

    [[nodiscard]] QWidget& root() const override { return *view; }

    int dismissals = 0;
    // The coin that the last dismissal was told of.
    std::string added;
    std::optional<Deferred<TickerMap>> prices;
    std::unique_ptr<AddCoinView> view;
};

// Layout

TEST_F(AddCoinViewTest, isAFieldOverAnAreaOf200Points) {
    show();
    EXPECT_EQ(view->width(), 280);
    EXPECT_EQ(view->sizeHint().width(), 280);
    EXPECT_EQ(field().pos(), QPoint(8, 8));
    EXPECT_EQ(field().width(), 280 - 2 * 8);
    const int belowTheField = 8 + field().height() + 6;
    EXPECT_EQ(named(*view, QString::fromUtf8(kHint))->pos(), QPoint(4, belowTheField));
    EXPECT_EQ(named(*view, QString::fromUtf8(kHint))->width(), 280 - 2 * 4);
    EXPECT_EQ(view->height(), belowTheField + 200 + 4);
    EXPECT_EQ(field().placeholderText(), QStringLiteral("搜索币种,如 SOL"));
    EXPECT_EQ(named(*view, QString::fromUtf8(kHint))->height(), 200);
    searchFor(QStringLiteral("SOL"));
    EXPECT_EQ(rows().height(), 200);
    EXPECT_EQ(rows().pos(), QPoint(4, belowTheField));
    EXPECT_EQ(view->height(), view->sizeHint().height());
}

TEST_F(AddCoinViewTest, beginsWithTheHintAndTheFocusInTheField) {
    show();
    EXPECT_THAT(area(), ElementsAre(kHint));
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(view->query(), QString());
    EXPECT_THAT(view->results(), IsEmpty());
    EXPECT_EQ(view->errorMessage(), std::nullopt);
    time.advance(Seconds{10});
    EXPECT_EQ(api.exchangeInfoRequests, 0) << "nobody has asked for anything";
}

TEST_F(AddCoinViewTest, speaksToScreenReaders) {
    show();
    EXPECT_EQ(view->accessibleName(), QStringLiteral("添加币种"));
    EXPECT_EQ(field().accessibleName(), QStringLiteral("搜索币种"));
    EXPECT_EQ(rows().accessibleName(), QStringLiteral("搜索结果"));
}

TEST_F(AddCoinViewTest, takesNoEndlessText) {
    show();
    QGuiApplication::clipboard()->setText(QString(1'048'576, QLatin1Char('A')));
    field().paste();
    EXPECT_EQ(view->query().size(), SearchField::kMaximumLength);
    EXPECT_EQ(SearchField::kMaximumLength, 16'385);
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
}

// Searching

TEST_F(AddCoinViewTest, typingQuicklySearchesOnceAMomentAfterTheLastKeystroke) {
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

TEST_F(AddCoinViewTest, listsTheMatchesTheBestFirst) {
    show();
    searchFor(QStringLiteral("sol"));
    EXPECT_THAT(area(), ElementsAre("SOL, SOL/USDT", "SOLV, SOLV/USDT", "WSOL, WSOL/USDT"));
    EXPECT_THAT(view->results(), ElementsAre(coinOf("SOL"), coinOf("SOLV"), coinOf("WSOL")));
    EXPECT_EQ(row("SOLV")->y(), row("SOL")->y() + row("SOL")->height());
    EXPECT_FALSE(row("SOLV")->isAlternate());
}

TEST_F(AddCoinViewTest, saysThatNothingMatchesOnceASearchHasFoundNothing) {
    show();
    searchFor(QStringLiteral("XYZ"));
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
    time.advance(Seconds{60});
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
}

TEST_F(AddCoinViewTest, saysThatItSearchesUntilTheAnswerIsThere) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    type(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre(kSearching));
    EXPECT_EQ(view->resultArea(), ResultArea::searching);
    time.advance(Seconds{5});
    EXPECT_THAT(area(), ElementsAre(kSearching)) << "the catalog is on its way";
    catalog.setValue(listOf({"SOL"}).coins);
    executor.run();
    EXPECT_THAT(area(), ElementsAre("SOL, SOL/USDT"));
}

TEST_F(AddCoinViewTest, saysThatItSearchesWhenEnterBeginsASearchAtOnce) {
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

TEST_F(AddCoinViewTest, clearingTheFieldShowsTheHintAgain) {
    show();
    searchFor(QStringLiteral("XYZ"));
    field().clear();
    executor.run();
    EXPECT_THAT(area(), ElementsAre(kHint));
    time.advance(Seconds{1});
    EXPECT_THAT(area(), ElementsAre(kHint));
    EXPECT_THAT(view->results(), IsEmpty());
}

TEST_F(AddCoinViewTest, spacesAloneAreNothingToSearchFor) {
    show();
    searchFor(QStringLiteral("   "));
    EXPECT_THAT(area(), ElementsAre(kHint));
    EXPECT_EQ(api.exchangeInfoRequests, 0);
}

TEST_F(AddCoinViewTest, keepsTheMatchesUntilThereAreOthers) {
    show();
    searchFor(QStringLiteral("SOL"));
    type(QStringLiteral("V"));
    EXPECT_THAT(area(), ElementsAre("SOL, SOL/USDT", "SOLV, SOLV/USDT", "WSOL, WSOL/USDT"));
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre("SOLV, SOLV/USDT"));
}

TEST_F(AddCoinViewTest, discardsASearchThatTypingHasOvertaken) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("W"));
    ASSERT_EQ(api.exchangeInfoAnswers.waitingCount(), 1U);
    type(QStringLiteral("S"));
    catalog.setValue(listOf({"W", "WSOL"}).coins);
    executor.run();
    EXPECT_THAT(area(), ElementsAre(kSearching));
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre("WSOL, WSOL/USDT"));
}

TEST_F(AddCoinViewTest, discardsAnAnswerThatCameJustBeforeTheKeystroke) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("W"));
    catalog.setValue(listOf({"W", "WSOL"}).coins);
    QTest::keyClick(&field(), 'S');
    executor.run();
    EXPECT_THAT(view->results(), IsEmpty());
    EXPECT_THAT(area(), ElementsAre(kSearching));
}

TEST_F(AddCoinViewTest, discardsMatchesThatTheKeystrokeOvertakesOnTheirWayToTheView) {
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

TEST_F(AddCoinViewTest, showsACoinOnceThatAFileNamesTwice) {
    show();
    api.exchangeInfoAnswers.otherwise(listOf({"SOL", "SOL", "SOLV"}).coins);
    searchFor(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre("SOL, SOL/USDT", "SOLV, SOLV/USDT"));
}

TEST_F(AddCoinViewTest, otherMatchesBeginAtTheTop) {
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

TEST_F(AddCoinViewTest, textThatIsBeingComposedIsNotSearchedForBeforeItIsWhole) {
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
    EXPECT_THAT(area(), ElementsAre("SOLV, SOLV/USDT"));
}

// Failures

TEST_F(AddCoinViewTest, aFailureStaysUntilSomethingElseIsTyped) {
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
    EXPECT_THAT(area(), ElementsAre("SOLV, SOLV/USDT"));
}

TEST_F(AddCoinViewTest, whatTheExchangeRefusesIsAFailureToo) {
    show();
    api.exchangeInfoAnswers.error(BinanceError(451));
    searchFor(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre(kError));
}

TEST_F(AddCoinViewTest, clearingTheFieldAfterAFailureShowsTheHint) {
    show();
    api.exchangeInfoAnswers.error(failure(URLError::Code::timedOut));
    searchFor(QStringLiteral("S"));
    press(Qt::Key_Backspace);
    EXPECT_THAT(area(), ElementsAre(kHint));
}

TEST_F(AddCoinViewTest, aRequestThatWasCancelledShowsNoError) {
    show();
    api.exchangeInfoAnswers.error(failure(URLError::Code::cancelled));
    searchFor(QStringLiteral("SOL"));
    EXPECT_EQ(view->errorMessage(), std::nullopt);
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
}

TEST_F(AddCoinViewTest, aFailureThatTypingHasOvertakenIsNotShown) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("S"));
    catalog.setError(std::make_exception_ptr(failure(URLError::Code::timedOut)));
    QTest::keyClick(&field(), 'O');
    executor.run();
    EXPECT_EQ(view->errorMessage(), std::nullopt);
    EXPECT_THAT(area(), ElementsAre(kSearching));
}

TEST_F(AddCoinViewTest, goesInTheMiddleOfASearch) {
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

// Picking

TEST_F(AddCoinViewTest, aClickAddsTheCoinThenDismisses) {
    show({"BTC"});
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_EQ(storedList().coins.back(), coinOf("SOL"));
    EXPECT_EQ(dismissals, 0) << "its price is still being fetched";
    EXPECT_EQ(row("SOL")->accessibleName(), QStringLiteral("SOL, SOL/USDT, 已添加"));
    endAdding();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinViewTest, staysOpenForTheTextThatIsTypedWhileTheCoinIsAdded) {
    show({"BTC"});
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    type(QStringLiteral("V"));
    endAdding();
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_EQ(dismissals, 0);
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre("SOLV, SOLV/USDT"));
    click("SOLV");
    EXPECT_TRUE(isWatched("SOLV"));
    EXPECT_EQ(dismissals, 1) << "nothing was typed after this one";
    EXPECT_EQ(added, symbolOf("SOLV"));
}

TEST_F(AddCoinViewTest, staysOpenForTextThatWasChangedAndChangedBack) {
    show();
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    type(QStringLiteral("V"));
    press(Qt::Key_Backspace);
    endAdding();
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AddCoinViewTest, staysOpenForTextThatIsBeingComposedWhileTheCoinIsAdded) {
    show();
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    QInputMethodEvent composing(QStringLiteral("et"), {});
    QApplication::sendEvent(&field(), &composing);
    endAdding();
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AddCoinViewTest, composingThatWasGivenUpKeepsItOpenNoLonger) {
    show();
    searchFor(QStringLiteral("SOL"));
    pickOnASlowLine("SOL");
    QInputMethodEvent composing(QStringLiteral("et"), {});
    QApplication::sendEvent(&field(), &composing);
    QInputMethodEvent givenUp;
    QApplication::sendEvent(&field(), &givenUp);
    endAdding();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinViewTest, aSearchThatEndsWhileTheCoinIsAddedDoesNotKeepItOpen) {
    show();
    searchFor(QStringLiteral("SO"));
    type(QStringLiteral("L"));
    pickOnASlowLine("SOL");
    time.advance(Seconds{0.3});
    endAdding();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinViewTest, aClickWithAPointerThatSlipsAddsToo) {
    show();
    searchFor(QStringLiteral("SOL"));
    const QPoint place(100, 14);
    pointer::press(*row("SOL"), place, Qt::LeftButton);
    pointer::pull(*row("SOL"), place + QPoint(2 * QApplication::startDragDistance(), 0));
    pointer::release(
        *row("SOL"), place + QPoint(2 * QApplication::startDragDistance(), 0), Qt::LeftButton);
    executor.run();
    EXPECT_TRUE(isWatched("SOL"));
}

TEST_F(AddCoinViewTest, twoClicksAddOnce) {
    show();
    searchFor(QStringLiteral("SOL"));
    api.ticker24hRequests.clear();
    QTest::mouseClick(row("SOL"), Qt::LeftButton);
    QTest::mouseClick(row("SOL"), Qt::LeftButton);
    executor.run();
    EXPECT_EQ(api.ticker24hRequests.size(), 1U);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinViewTest, aCoinThatHasGoneAgainIsAddedAgain) {
    show();
    searchFor(QStringLiteral("SOL"));
    click("SOL");
    ASSERT_TRUE(isWatched("SOL"));
    scope.spawn(state->remove(symbolOf("SOL")));
    executor.run();
    ASSERT_FALSE(isWatched("SOL"));
    click("SOL");
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_EQ(dismissals, 2);
}

TEST_F(AddCoinViewTest, pickingAWatchedCoinDoesNothing) {
    show({"BTC", "SOL"});
    searchFor(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre("SOL, SOL/USDT, 已添加", "SOLV, SOLV/USDT", "WSOL, WSOL/USDT"));
    api.ticker24hRequests.clear();
    click("SOL");
    press(Qt::Key_Return);
    EXPECT_EQ(*state->watchlist(), listOf({"BTC", "SOL"}));
    EXPECT_THAT(api.ticker24hRequests, IsEmpty());
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AddCoinViewTest, aClickOnAWatchedCoinLeavesTheFocusInTheField) {
    show({"BTC", "SOL"});
    searchFor(QStringLiteral("SOL"));
    const QPoint middle = row("SOL")->rect().center();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        pointer::press(*row("SOL"), middle, button);
        pointer::release(*row("SOL"), middle, button);
        EXPECT_TRUE(field().hasFocus());
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    type(QStringLiteral("E"));
    EXPECT_EQ(view->query(), QStringLiteral("E"));
}

TEST_F(AddCoinViewTest, aPressThatPicksNothingLeavesTheFocusInTheField) {
    show();
    searchFor(QStringLiteral("SOL"));
    pointer::press(*row("SOL"), QPoint(10, 10), Qt::LeftButton);
    pointer::release(*row("SOL"), QPoint(10, 40), Qt::LeftButton);
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(AddCoinViewTest, theMatchesTakeTheFocusForAScreenReader) {
    show({"BTC", "SOL"});
    searchFor(QStringLiteral("SOL"));
    for (const std::string baseAsset : {"SOL", "SOLV"}) {
        QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(row(baseAsset));
        ASSERT_NE(told, nullptr);
        EXPECT_EQ(told->role(), QAccessible::ListItem);
        EXPECT_TRUE(told->state().focusable) << baseAsset;
        const QString setFocus = QAccessibleActionInterface::setFocusAction();
        EXPECT_TRUE(told->actionInterface()->actionNames().contains(setFocus)) << baseAsset;
        told->actionInterface()->doAction(setFocus);
        EXPECT_TRUE(row(baseAsset)->hasFocus()) << baseAsset;
    }
}

TEST_F(AddCoinViewTest, onlyWhatCanBeClickedIsTintedUnderThePointer) {
    show({"BTC", "SOL"});
    searchFor(QStringLiteral("SOL"));
    const QImage watched = pictureOf(*row("SOL"));
    const QImage unwatched = pictureOf(*row("SOLV"));
    row("SOL")->setHovering(true);
    row("SOLV")->setHovering(true);
    EXPECT_EQ(pictureOf(*row("SOL")), watched);
    EXPECT_NE(pictureOf(*row("SOLV")), unwatched);
}

TEST_F(AddCoinViewTest, aPressThatIsLetGoElsewhereOrOfAnotherButtonPicksNothing) {
    show();
    searchFor(QStringLiteral("SOL"));
    QTest::mousePress(row("SOL"), Qt::LeftButton);
    QTest::mouseRelease(row("SOL"), Qt::LeftButton, {}, QPoint(10, 40));
    QTest::mouseClick(row("SOL"), Qt::RightButton);
    executor.run();
    EXPECT_FALSE(isWatched("SOL"));
}

TEST_F(AddCoinViewTest, aRowFollowsTheWatchlistWhileItIsShown) {
    show();
    searchFor(QStringLiteral("SOLV"));
    const QImage before = pictureOf(*row("SOLV"));
    run(state->add(coinOf("SOLV")));
    EXPECT_EQ(row("SOLV")->accessibleName(), QStringLiteral("SOLV, SOLV/USDT, 已添加"));
    EXPECT_EQ(row("SOLV")->watched(), Watched::yes);
    EXPECT_NE(pictureOf(*row("SOLV")), before);
    EXPECT_EQ(dismissals, 0);
    run(state->remove(symbolOf("SOLV")));
    EXPECT_EQ(row("SOLV")->accessibleName(), QStringLiteral("SOLV, SOLV/USDT"));
    click("SOLV");
    EXPECT_TRUE(isWatched("SOLV"));
}

TEST_F(AddCoinViewTest, addsToTheEndThoughTheViewHasGone) {
    show({"BTC"});
    searchFor(QStringLiteral("SOL"));
    QTest::mouseClick(row("SOL"), Qt::LeftButton);
    view.reset();
    api.ticker24hRequests.clear();
    executor.run();
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_EQ(api.ticker24hRequests.size(), 1U) << "its price is fetched too";
    EXPECT_EQ(dismissals, 0);
}

// The keyboard

TEST_F(AddCoinViewTest, theArrowDownGoesToTheMatchesAndUpBackToTheField) {
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

TEST_F(AddCoinViewTest, theRowThatHasTheFocusShowsARing) {
    show();
    searchFor(QStringLiteral("SOL"));
    const QImage before = pictureOf(*row("SOL"));
    press(Qt::Key_Down);
    EXPECT_NE(pictureOf(*row("SOL")), before);
    EXPECT_EQ(pictureOf(*row("SOL")).pixelColor(140, 1), ThemeColors::dark().accent);
}

TEST_F(AddCoinViewTest, theArrowDownStaysInAFieldWithoutMatches) {
    show();
    press(Qt::Key_Down);
    EXPECT_TRUE(field().hasFocus());
    searchFor(QStringLiteral("XYZ"));
    press(Qt::Key_Down);
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(AddCoinViewTest, enterOnARowPicksIt) {
    show();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(isWatched("SOLV"));
    EXPECT_FALSE(isWatched("SOL"));
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinViewTest, typingOnARowGoesOnInTheField) {
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

TEST_F(AddCoinViewTest, theFocusReturnsToTheFieldWhenTheMatchesGo) {
    show();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Down);
    field().setText(QStringLiteral("XYZ"));
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(AddCoinViewTest, enterInTheFieldPicksTheFirstMatch) {
    show();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Enter);
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_FALSE(isWatched("SOLV"));
    EXPECT_EQ(dismissals, 1);
}

TEST_F(AddCoinViewTest, enterPicksNothingButTheFirstMatch) {
    show({"SOL"});
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Return);
    EXPECT_EQ(*state->watchlist(), listOf({"SOL"})) << "nobody asked for SOLV";
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AddCoinViewTest, enterBeforeTheSearchBeginsItAtOnceAndPicksWhatItFinds) {
    show();
    searchFor(QStringLiteral("SOL"));
    type(QStringLiteral("V"));
    press(Qt::Key_Return);
    EXPECT_TRUE(isWatched("SOLV")) << "not the match for what was typed before";
    EXPECT_FALSE(isWatched("SOL"));
}

TEST_F(AddCoinViewTest, enterWaitsForACatalogThatIsOnItsWay) {
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

TEST_F(AddCoinViewTest, typingOnTakesEnterBack) {
    show();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Return);
    type(QStringLiteral("V"));
    catalog.setValue(listOf({"SOL", "SOLV"}).coins);
    time.advance(Seconds{1});
    EXPECT_THAT(area(), ElementsAre("SOLV, SOLV/USDT"));
    EXPECT_EQ(*state->watchlist(), listOf({"BTC"}));
}

TEST_F(AddCoinViewTest, enterTriesAgainAfterAFailure) {
    show();
    api.exchangeInfoAnswers.error(failure(URLError::Code::timedOut));
    searchFor(QStringLiteral("SOL"));
    ASSERT_THAT(area(), ElementsAre(kError));
    press(Qt::Key_Return);
    EXPECT_EQ(api.exchangeInfoRequests, 2);
    EXPECT_TRUE(isWatched("SOL"));
}

TEST_F(AddCoinViewTest, enterInAnEmptyFieldPicksNothing) {
    show();
    searchFor(QStringLiteral("S"));
    ASSERT_FALSE(view->results().empty());
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    executor.run();
    EXPECT_EQ(*state->watchlist(), listOf({"BTC"}));
}

// Look

TEST_F(AddCoinViewTest, followsTheTheme) {
    show();
    searchFor(QStringLiteral("SOL"));
    ThemeKey::set(*view, {.colors = ThemeColors::light()});
    EXPECT_EQ(field().palette().color(QPalette::Text), ThemeColors::light().primaryText);
    const QImage light = pictureOf(*row("SOL"));
    ThemeKey::set(*view, {.colors = ThemeColors::dark()});
    EXPECT_EQ(field().palette().color(QPalette::Text), ThemeColors::dark().primaryText);
    EXPECT_EQ(field().palette().color(QPalette::PlaceholderText),
              ThemeColors::dark().secondaryText);
    EXPECT_NE(pictureOf(*row("SOL")), light);
}

TEST_F(AddCoinViewTest, theOutlineOfTheFieldShowsTheFocus) {
    show();
    searchFor(QStringLiteral("SOL"));
    EXPECT_EQ(pictureOf(field()).pixelColor(100, 0), ThemeColors::dark().accent);
    press(Qt::Key_Down);
    EXPECT_NE(pictureOf(field()).pixelColor(100, 0), ThemeColors::dark().accent);
}

TEST_F(AddCoinViewTest, theMenuOfTheFieldIsChinese) {
    show();
    QGuiApplication::clipboard()->setText(QStringLiteral("ETH"));
    type(QStringLiteral("SOL"));
    field().selectAll();
    QContextMenuEvent event(
        QContextMenuEvent::Mouse, QPoint(5, 5), field().mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&field(), &event);
    auto* const menu = dynamic_cast<PanelMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr) << "it is drawn as the panel is";
    std::vector<std::string> titles;
    for (const QAction* const action : menu->actions()) {
        titles.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        EXPECT_TRUE(action->isEnabled());
    }
    EXPECT_THAT(titles, ElementsAre("剪切", "拷贝", "粘贴", "-", "全选"));
    QTest::mouseClick(
        menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(2)).center());
    spinUntilIdle();
    EXPECT_EQ(view->query(), QStringLiteral("ETH"));
}

// The pair of a coin

TEST(SearchResultRowTest, writesAPairAsPeopleDo) {
    EXPECT_EQ(SearchResultRow::pairOf(coinOf("SOL")), QStringLiteral("SOL/USDT"));
    EXPECT_EQ(SearchResultRow::pairOf({"USDTUSDT", "USDT"}), QStringLiteral("USDT/USDT"));
    EXPECT_EQ(SearchResultRow::pairOf({"ODD", "SOL"}), QStringLiteral("ODD"));
    EXPECT_EQ(SearchResultRow::pairOf({"SOL", "SOL"}), QStringLiteral("SOL"));
    EXPECT_EQ(SearchResultRow::pairOf({"USDT", ""}), QStringLiteral("USDT"));
    EXPECT_EQ(SearchResultRow::pairOf({"A\nBUSDT", "A\nB"}), QStringLiteral("A B/USDT"));
}

}  // namespace
}  // namespace quillbar
