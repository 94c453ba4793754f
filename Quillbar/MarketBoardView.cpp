// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/MarketBoardView.h"

#include "Quillbar/BannerRow.h"
#include "Quillbar/BoardPlaceholder.h"
#include "Quillbar/ColumnHeader.h"
#include "Quillbar/MarketRowMenu.h"
#include "Quillbar/MarketRowView.h"
#include "Quillbar/RowAccessibility.h"
#include "Quillbar/RowIds.h"
#include "Quillbar/RowList.h"
#include "QuillbarCore/market/MarketCapRanking.h"
#include "QuillbarCore/market/Ranking.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QHideEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace quillbar {

namespace {

constexpr std::array kColumns{SecondaryColumn::volume, SecondaryColumn::marketCap};
constexpr Seconds kMinute{60};

std::vector<FrozenRank> ranksOf(const std::vector<RankedCoin>& rows) {
    std::vector<FrozenRank> ranks;
    ranks.reserve(rows.size());
    for (const RankedCoin& row : rows) {
        ranks.push_back({.symbol = row.coin.symbol, .rank = row.rank});
    }
    return ranks;
}

}  // namespace

/// A row of the board as it stands.
class MarketBoardView::Row final : public MarketRowView {
public:
    Row(MarketBoardView& board, QWidget* parent)
        : MarketRowView(
            board.m_environment,
            [&board](const std::string& symbol) { board.toggle(symbol); },
            parent)
        , m_board(board) {}

    void present(const std::string& id, std::size_t index) override {
        setAlternate(index % 2 == 1);
        setEntry(m_board.m_shown[index],
                 secondaryColumnOf(m_board.m_board),
                 m_board.m_expandedSymbol == id ? Chart::open : Chart::closed);
    }

private:
    MarketBoardView& m_board;
};

MarketBoardView::MarketBoardView(const ViewEnvironment& environment,
                                 RankingBoard board,
                                 DetailFactory makeDetail,
                                 QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_models(environment.marketModels())
    , m_board(board)
    , m_banner(new BannerRow(this))
    , m_headers{makeHeader(kColumns[0]), makeHeader(kColumns[1])}
    , m_rows(makeRows(std::move(makeDetail)))
    , m_placeholder(new BoardPlaceholder(ColumnHeader::kHeight + kBoardHeight, this))
    , m_start(this)
    , m_refresh(this)
    , m_look(this)
    , m_scope(environment.executor) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_banner);
    for (ColumnHeader* const header : m_headers) {
        layout->addWidget(header);
    }
    layout->addWidget(m_rows);
    layout->addWidget(m_placeholder);
    m_placeholder->onRetry = [this] { retry(); };

    m_start.setSingleShot(true);
    QObject::connect(&m_start, &QTimer::timeout, this, [this] { startPolling(); });
    m_refresh.setSingleShot(true);
    QObject::connect(&m_refresh, &QTimer::timeout, this, [this] {
        m_isStarting = false;
        refresh();
    });
    m_look.setObjectName(QStringLiteral("look"));
    m_look.setInterval(kLookInterval);
    m_look.setTimerType(Qt::VeryCoarseTimer);
    QObject::connect(&m_look, &QTimer::timeout, this, [this] {
        // Polling that nobody saw going on ends by itself, as it does while the machine sleeps; and
        // a window that nobody can see paints no frame.
        startPolling();
        refresh();
    });
    showContent();
}

MarketBoardView::~MarketBoardView() {
    if (m_isOnScreen) {
        leave();
    }
    // Rows that end in the middle of their way call back.
    delete m_rows;
}

// Its parts

ColumnHeader* MarketBoardView::makeHeader(SecondaryColumn column) {
    auto* const header = new ColumnHeader(this);
    header->addGap(MarketRowView::kRankWidth);
    header->addFlexibleTitle(QStringLiteral("币种"));
    header->addTitle(columnTitle(column), MarketRowView::kSecondaryWidth);
    header->addTitle(QStringLiteral("价格"), MarketRowView::kPriceWidth);
    header->addTitle(QStringLiteral("涨跌"), MarketRowView::kChangeWidth);
    header->addGap(MarketRowView::kAddWidth);
    return header;
}

RowList* MarketBoardView::makeRows(DetailFactory makeDetail) {
    auto* const rows = new RowList(
        RowListContent{
            .makeRow = [this](QWidget* parent) { return new Row(*this, parent); },
            .makeDetail = [this, makeDetail = std::move(makeDetail)](
                              const std::string& id,
                              QWidget* parent) { return makeDetail(*shownCoin(id), parent); },
            .activate = [this](const std::string& id) { toggle(id); },
            .openMenu =
                [this](const std::string& id, const QPoint& position) {
                    MarketRowMenu::make(m_environment, *shownCoin(id), this)->popup(position);
                },
            .settled = [] {},
        },
        kDetailHeight,
        this);
    rows->setPreferredHeight(kBoardHeight);
    return rows;
}

// Of a row that is shown.
const Coin* MarketBoardView::shownCoin(const std::string& symbol) const {
    const auto found = std::find_if(m_shown.begin(), m_shown.end(), [&](const RankedCoin& row) {
        return row.coin.symbol == symbol;
    });
    return found == m_shown.end() ? nullptr : &found->coin;
}

// What is shown

std::vector<RankedCoin> MarketBoardView::liveEntries() const {
    if (const auto exchangeBoard = Ranking::exchangeBoard(m_board)) {
        return m_models.market.board(*exchangeBoard, kExchangeLimit);
    }
    const MarketState::Snapshot market = m_models.market.snapshot();
    return MarketCapRanking::rank(
        m_models.marketCaps.entries(), market.tickers, market.universe, kMarketCapLimit);
}

void MarketBoardView::refresh() {
    std::vector<RankedCoin> entries = liveEntries();
    RowIds::dropRepeated(entries);
    const bool isExpandedThere =
        m_expandedSymbol
        && std::any_of(entries.begin(), entries.end(), [this](const RankedCoin& entry) {
               return entry.coin.symbol == *m_expandedSymbol;
           });
    if (!isExpandedThere) {
        m_expandedSymbol.reset();
        m_frozenRows.clear();
    }
    m_shown = FrozenOrder::project(entries, m_frozenRows);
    // A chart whose row is gone goes with it.
    m_rows->setIds(RowIds::of(m_shown));
    m_rows->refreshAll();
    showContent();
}

void MarketBoardView::showContent() {
    const bool hasRows = !m_shown.empty();
    const bool isLoading = m_awaitsFrame || m_isStarting || *m_models.market.isLoading()
                           || (isOfMarketCaps() && *m_models.marketCaps.isLoading());
    const bool hasFailed =
        *m_models.market.loadFailed() || (isOfMarketCaps() && *m_models.marketCaps.loadFailed());
    using Content = BoardPlaceholder::Content;
    const Content otherwise = hasFailed ? Content::failed : Content::empty;
    m_placeholder->setContent(isLoading ? Content::loading : otherwise);
    const bool passesFocusOn = hasRows && m_placeholder->holdsFocus();
    if (passesFocusOn) {
        // What is hidden with the focus passes it on to whatever comes next.
        setFocus(Qt::OtherFocusReason);
    }
    m_placeholder->setVisible(!hasRows);
    for (std::size_t each = 0; each < m_headers.size(); ++each) {
        m_headers[each]->setVisible(hasRows && kColumns[each] == secondaryColumnOf(m_board));
    }
    const std::string_view name = displayName(m_board);
    RowAccessibility::setName(
        *m_rows,
        QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())) + QStringLiteral("榜"));
    m_rows->setVisible(hasRows);
    if (passesFocusOn) {
        m_rows->setFocus(Qt::TabFocusReason);
    }
    m_banner->setText(staleText());
    m_banner->setVisible(hasRows && isStale(m_models.market.dataAge(), lastLoad()));
}

void MarketBoardView::dropRows() {
    m_expandedSymbol.reset();
    m_frozenRows.clear();
    m_shown.clear();
    // Also back to the first row, for the view and for the focus.
    m_rows->setIds({});
}

void MarketBoardView::scheduleRefresh() {
    if (!m_refresh.isActive()) {
        m_refresh.start();
    }
}

// How old it is

MarketBoardView::LastLoad MarketBoardView::lastLoad() const {
    return *m_models.market.loadFailed() ? LastLoad::failed : LastLoad::succeeded;
}

bool MarketBoardView::isStale(std::optional<Seconds> age, LastLoad lastLoad) {
    return lastLoad == LastLoad::failed || (age && *age > kStaleAge);
}

QString MarketBoardView::staleText(std::optional<Seconds> age, LastLoad lastLoad) {
    if (!age) {
        return QStringLiteral("数据刷新失败");
    }
    const auto minutes = static_cast<qlonglong>(*age / kMinute);
    const QString when = minutes < 1 ? QStringLiteral("刚才的")
                                     : QString::number(minutes) + QStringLiteral(" 分钟前的");
    return (lastLoad == LastLoad::failed ? QStringLiteral("刷新失败,数据为")
                                         : QStringLiteral("已停止刷新,数据为"))
           + when;
}

QString MarketBoardView::staleText() const {
    return staleText(m_models.market.dataAge(), lastLoad());
}

// What the user does

void MarketBoardView::setBoard(RankingBoard board) {
    if (board == m_board) {
        return;
    }
    m_board = board;
    dropRows();
    if (m_isOnScreen) {
        observe();
        pollAfterFrame();
        refresh();
    }
}

void MarketBoardView::toggle(const std::string& symbol) {
    if (m_expandedSymbol == symbol) {
        m_expandedSymbol.reset();
        m_frozenRows.clear();
    } else {
        m_expandedSymbol = symbol;
        m_frozenRows = ranksOf(m_shown);
    }
    refresh();
    m_rows->setExpanded(m_expandedSymbol);
}

void MarketBoardView::retry() {
    if (!m_retry.isRunning()) {
        m_retry = m_scope.spawn(load(m_board));
    }
}

Task<void> MarketBoardView::load(RankingBoard board) {
    co_await m_models.market.refreshOnce();
    if (board == RankingBoard::marketCap) {
        co_await m_models.marketCaps.refreshOnce();
    }
}

// What the models tell

void MarketBoardView::observe() {
    m_observations.clear();
    const auto changed = [this](const auto& /*value*/) { scheduleRefresh(); };
    observe(m_models.market);
    m_observations.push_back(m_models.market.tickers().observe(changed));
    m_observations.push_back(m_models.market.universe().observe(changed));
    if (isOfMarketCaps()) {
        observe(m_models.marketCaps);
        m_observations.push_back(m_models.marketCaps.snapshot().observe(changed));
    }
    m_observations.push_back(m_environment.appState.watchlist().observe(
        [this](const Watchlist& /*watchlist*/) { m_rows->refreshAll(); }));
}

void MarketBoardView::observe(const PolledModel& model) {
    const auto changed = [this](const auto& /*value*/) { scheduleRefresh(); };
    m_observations.push_back(model.isLoading().observe(changed));
    m_observations.push_back(model.loadFailed().observe(changed));
    m_observations.push_back(model.lastUpdate().observe(changed));
}

// When it is on the screen

bool MarketBoardView::isPolling() const {
    return m_models.market.isPolling() && (!isOfMarketCaps() || m_models.marketCaps.isPolling());
}

void MarketBoardView::pollAfterFrame() {
    m_start.stop();
    m_awaitsFrame = !isPolling();
    if (!m_awaitsFrame) {
        return;
    }
    // The answer of the exchange would compete with the frame that the user waits for.
    update();
}

void MarketBoardView::startPolling() {
    m_awaitsFrame = false;
    m_start.stop();
    if (isPolling()) {
        return;
    }
    m_models.market.startPolling();
    if (isOfMarketCaps()) {
        m_models.marketCaps.startPolling();
    }
    // The refresh that begins has its turn first.
    m_isStarting = true;
    scheduleRefresh();
}

void MarketBoardView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_isOnScreen) {
        return;
    }
    m_isOnScreen = true;
    observe();
    pollAfterFrame();
    m_look.start();
    refresh();
}

void MarketBoardView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (m_isOnScreen && !event->spontaneous()) {
        leave();
    }
}

void MarketBoardView::paintEvent(QPaintEvent* /*event*/) {
    if (m_awaitsFrame && !m_start.isActive()) {
        // After the frame has been handed on.
        m_start.start();
    }
}

void MarketBoardView::leave() {
    m_isOnScreen = false;
    m_isStarting = false;
    m_awaitsFrame = false;
    m_observations.clear();
    m_start.stop();
    m_refresh.stop();
    m_look.stop();
    m_retry.cancel();
    m_models.market.stopPolling();
    m_models.marketCaps.stopPolling();
    dropRows();
}

}  // namespace quillbar
