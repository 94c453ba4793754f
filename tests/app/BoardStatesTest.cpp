// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/MarketBoardView.h"
#include "Quillbar/list/RowList.h"
#include "Quillbar/widgets/BannerRow.h"
#include "Quillbar/widgets/Spinner.h"
#include "simulator/Simulator.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"
#include "tests/services/AppServicesFixture.h"

#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace quillbar {

namespace {

using simulator::RequestFault;

constexpr const char* kTickersPath = "/api/v3/ticker/24hr";
constexpr const char* kAllTickers = "/api/v3/ticker/24hr?type=MINI";
constexpr const char* kMarketCapsPath = "/coingecko/api/v3/coins/markets";

constexpr const char* kFailure = "加载行情失败";
constexpr const char* kEmpty = "暂无数据";

// Many more than a test makes.
constexpr int kAlways = 1000;

/// A board over everything that stands behind it: the models, the transports,
/// sockets, and an exchange that fails as it is told to.
class BoardStatesTest : public AppServicesFixture {
protected:
    /// The services, whose own first requests have been answered before anything
    /// fails.
    void SetUp() override {
        m_exchange = &exchange();
        start({m_exchange});
        ASSERT_TRUE(isSettled(*m_exchange));
    }

    void TearDown() override {
        delete m_view;
        m_edits.reset();
        AppServicesFixture::TearDown();
    }

    void open(RankingBoard board) {
        m_edits.emplace(*m_executor);
        m_environment.emplace(
            ViewEnvironment{.executor = *m_executor,
                            .now = wallClock(),
                            .calendar = Calendar::utc(),
                            .appState = m_services->appState(),
                            .edits = *m_edits,
                            .marketModels =
                                [this] {
                                    return MarketModels{.market = m_services->marketState(),
                                                        .marketCaps = m_services->marketCapState()};
                                },
                            .sleeper = m_sleeper.sleeper()});
        m_view =
            new MarketBoardView(*m_environment, board, [](const Coin& /*coin*/, QWidget* parent) {
                return new QWidget(parent);
            });
        m_view->setFixedWidth(400);
        // It fires when a test says so.
        lookTimer()->setInterval(std::chrono::hours(24));
        showActive(*m_view);
    }
    void openWithRows(RankingBoard board) {
        open(board);
        ASSERT_TRUE(spinUntil([this] { return hasRows(); }));
    }

    // What the world does.

    void theExchangeFails() { m_exchange->faults().status(503, kAlways, kTickersPath); }
    void theExchangeKeepsSilent() {
        m_exchange->faults().on(RequestFault::Kind::hold, kTickersPath, kAlways);
    }
    void allIsWell() { m_exchange->faults().clear(); }
    /// Lets the clock go on for these minutes, and the board look at it.
    void minutesPass(int minutes) {
        letPass(Seconds(60.0 * minutes));
        look();
    }
    void look() { QMetaObject::invokeMethod(lookTimer(), "timeout"); }
    /// Ends the wait before the next refresh; whether the exchange has been asked
    /// then.
    [[nodiscard]] bool isAskedAgain() {
        const auto before = askedCount();
        return spinUntil([&] {
            m_sleeper.wake([](double span) { return span == MarketState::kPollInterval.count(); });
            return askedCount() > before;
        });
    }

    // What the user does.

    void clickRetry() {
        QWidget* const button = named(*m_view, QStringLiteral("重试"));
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton);
    }

    // What is seen.

    [[nodiscard]] bool says(const char* text) const {
        return named(*m_view, QString::fromUtf8(text)) != nullptr;
    }
    [[nodiscard]] bool hasFailed() const { return says(kFailure) && says("重试"); }
    [[nodiscard]] bool isSpinning() const {
        return widgetsOf<Spinner>(*m_view).front()->isVisible();
    }
    [[nodiscard]] bool hasRows() const {
        const RowList* const rows = widgetsOf<RowList>(*m_view).front();
        return rows->isVisible() && !rows->ids().empty();
    }
    /// What the banner says; empty while there is none.
    [[nodiscard]] std::string warning() const {
        const BannerRow* const banner = widgetsOf<BannerRow>(*m_view).front();
        return banner->isVisible() ? banner->accessibleName().toStdString() : "";
    }
    [[nodiscard]] bool warns(const std::string& text) const {
        return spinUntil([&] { return warning() == text; });
    }

    /// How often the exchange has been asked for the whole market.
    [[nodiscard]] std::ptrdiff_t askedCount() const {
        const auto& requests = m_exchange->requests();
        return std::count_if(requests.begin(), requests.end(), [](const auto& request) {
            return request.target == kAllTickers;
        });
    }
    [[nodiscard]] QTimer* lookTimer() const {
        return m_view->findChild<QTimer*>(QStringLiteral("look"));
    }

    simulator::Simulator* m_exchange = nullptr;
    std::optional<TaskScope> m_edits;
    std::optional<ViewEnvironment> m_environment;
    MarketBoardView* m_view = nullptr;
};

TEST_F(BoardStatesTest, spinsUntilTheExchangeAnswers) {
    theExchangeKeepsSilent();
    open(RankingBoard::gainers);
    EXPECT_TRUE(isSpinning());
    ASSERT_TRUE(spinUntil([this] { return askedCount() == 1; }));
    spinUntilIdle();
    EXPECT_TRUE(isSpinning());
    EXPECT_FALSE(hasRows());
    EXPECT_FALSE(says(kFailure));
    EXPECT_FALSE(says(kEmpty));
    EXPECT_EQ(m_exchange->faults().releaseHeld(), 1);
    ASSERT_TRUE(spinUntil([this] { return hasRows(); }));
    EXPECT_FALSE(isSpinning());
    EXPECT_EQ(warning(), "");
}

TEST_F(BoardStatesTest, tellsOfAFailureAndTriesAgainWhenAsked) {
    theExchangeFails();
    open(RankingBoard::volume);
    ASSERT_TRUE(spinUntil([this] { return hasFailed(); }));
    EXPECT_FALSE(isSpinning());
    EXPECT_EQ(warning(), "") << "there is nothing that could be old";

    allIsWell();
    theExchangeKeepsSilent();
    const auto before = askedCount();
    clickRetry();
    ASSERT_TRUE(spinUntil([this] { return isSpinning(); })) << "it is tried";
    EXPECT_FALSE(says(kFailure));
    ASSERT_TRUE(spinUntil([&] { return askedCount() > before; }));
    EXPECT_EQ(m_exchange->faults().releaseHeld(), 1);
    EXPECT_TRUE(spinUntil([this] { return hasRows(); }));
    EXPECT_FALSE(isSpinning());
}

TEST_F(BoardStatesTest, failsAgainWhileTheExchangeDoes) {
    for (const RequestFault::Kind kind : {RequestFault::Kind::status,
                                          RequestFault::Kind::cutShort,
                                          RequestFault::Kind::notJson,
                                          RequestFault::Kind::reset}) {
        m_exchange->faults().on(kind, kTickersPath, kAlways);
        if (m_view == nullptr) {
            open(RankingBoard::losers);
        } else {
            clickRetry();
            ASSERT_TRUE(spinUntil([this] { return isSpinning(); }));
        }
        ASSERT_TRUE(spinUntil([this] { return hasFailed(); })) << static_cast<int>(kind);
        allIsWell();
    }
    clickRetry();
    ASSERT_TRUE(spinUntil([this] { return hasRows(); }));
    EXPECT_FALSE(says(kFailure));
}

TEST_F(BoardStatesTest, failsWhenTheExchangeCannotBeReached) {
    m_exchange->faults().refuseConnections(simulator::OpenConnections::drop);
    open(RankingBoard::gainers);
    ASSERT_TRUE(spinUntil([this] { return hasFailed(); }));
    m_exchange->faults().listenAgain();
    clickRetry();
    EXPECT_TRUE(spinUntil([this] { return hasRows(); }));
}

TEST_F(BoardStatesTest, onlyTheirOwnBoardFailsWithTheMarketCaps) {
    m_exchange->faults().status(500, kAlways, kMarketCapsPath);
    open(RankingBoard::marketCap);
    ASSERT_TRUE(spinUntil([this] { return hasFailed(); }));
    m_view->setBoard(RankingBoard::gainers);
    EXPECT_TRUE(spinUntil([this] { return hasRows(); }));
    EXPECT_EQ(warning(), "");
    m_view->setBoard(RankingBoard::marketCap);
    ASSERT_TRUE(spinUntil([this] { return hasFailed(); }));

    allIsWell();
    clickRetry();
    ASSERT_TRUE(spinUntil([this] { return hasRows(); }));
    EXPECT_TRUE(named(*m_view, QStringLiteral("市值")));
    EXPECT_EQ(warning(), "");
}

TEST_F(BoardStatesTest, theMarketCapBoardFailsWithTheExchangeToo) {
    theExchangeFails();
    open(RankingBoard::marketCap);
    ASSERT_TRUE(spinUntil([this] { return hasFailed(); }));
    allIsWell();
    clickRetry();
    EXPECT_TRUE(spinUntil([this] { return hasRows(); }));
}

TEST_F(BoardStatesTest, saysThatThereIsNothingWhenTheAnswerIsEmpty) {
    m_exchange->faults().on(RequestFault::Kind::emptyList, kTickersPath, kAlways);
    open(RankingBoard::gainers);
    ASSERT_TRUE(spinUntil([this] { return says(kEmpty); }));
    EXPECT_FALSE(isSpinning());
    EXPECT_FALSE(says(kFailure));
    EXPECT_FALSE(says("重试"));

    allIsWell();
    ASSERT_TRUE(isAskedAgain());
    EXPECT_TRUE(spinUntil([this] { return hasRows(); }));
    EXPECT_FALSE(says(kEmpty));
}

TEST_F(BoardStatesTest, onlyTheirOwnBoardIsEmptyWithoutMarketCaps) {
    m_exchange->faults().on(RequestFault::Kind::emptyList, kMarketCapsPath, kAlways);
    open(RankingBoard::marketCap);
    ASSERT_TRUE(spinUntil([this] { return says(kEmpty); }));
    EXPECT_FALSE(isSpinning());
    m_view->setBoard(RankingBoard::losers);
    EXPECT_TRUE(spinUntil([this] { return hasRows(); }));
}

TEST_F(BoardStatesTest, warnsOfRowsThatCouldNotBeRefreshedAndCountsTheMinutes) {
    openWithRows(RankingBoard::gainers);
    EXPECT_EQ(warning(), "");
    theExchangeFails();
    ASSERT_TRUE(isAskedAgain());
    ASSERT_TRUE(warns("刷新失败,数据为刚才的"));
    EXPECT_TRUE(hasRows());
    minutesPass(1);
    EXPECT_EQ(warning(), "刷新失败,数据为1 分钟前的");
    minutesPass(2);
    EXPECT_EQ(warning(), "刷新失败,数据为3 分钟前的");
    ASSERT_TRUE(isAskedAgain());
    ASSERT_TRUE(warns("刷新失败,数据为3 分钟前的"));
    minutesPass(60);
    EXPECT_EQ(warning(), "刷新失败,数据为63 分钟前的");
    EXPECT_TRUE(hasRows());

    allIsWell();
    ASSERT_TRUE(isAskedAgain());
    EXPECT_TRUE(warns("")) << "the data are fresh";
    EXPECT_TRUE(hasRows());
}

TEST_F(BoardStatesTest, warnsOfRowsThatNobodyRefreshes) {
    openWithRows(RankingBoard::volume);
    minutesPass(1);
    EXPECT_EQ(warning(), "");
    letPass(Seconds(1));
    look();
    EXPECT_EQ(warning(), "已停止刷新,数据为1 分钟前的");
    minutesPass(2);
    EXPECT_EQ(warning(), "已停止刷新,数据为3 分钟前的");
    ASSERT_TRUE(isAskedAgain());
    EXPECT_TRUE(warns(""));
}

TEST_F(BoardStatesTest, opensAgainWithTheOldRowsUntilThereAreOthers) {
    openWithRows(RankingBoard::gainers);
    m_view->hide();
    letPass(Seconds(200));
    theExchangeKeepsSilent();
    const auto before = askedCount();
    m_view->show();
    EXPECT_TRUE(hasRows());
    EXPECT_EQ(warning(), "已停止刷新,数据为3 分钟前的");
    ASSERT_TRUE(spinUntil([&] { return askedCount() > before; }));
    EXPECT_EQ(warning(), "已停止刷新,数据为3 分钟前的");
    EXPECT_EQ(m_exchange->faults().releaseHeld(), 1);
    EXPECT_TRUE(warns(""));
}

TEST_F(BoardStatesTest, aHiddenBoardAsksForNothing) {
    openWithRows(RankingBoard::gainers);
    m_view->hide();
    const auto before = askedCount();
    m_sleeper.wake([](double /*span*/) { return true; });
    // By the time this is answered, whatever was asked before has arrived.
    TaskScope scope(*m_executor);
    const auto other = scope.spawn(m_services->marketCapState().refreshOnce());
    ASSERT_TRUE(spinUntil([&] { return !other.isRunning(); }));
    EXPECT_EQ(askedCount(), before);
}

}  // namespace

}  // namespace quillbar
