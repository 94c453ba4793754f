// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/MarketBoardView.h"

#include "Quillbar/boards/BoardPlaceholder.h"
#include "Quillbar/boards/MarketRowMenu.h"
#include "Quillbar/boards/MarketRowView.h"
#include "Quillbar/list/ColumnHeader.h"
#include "Quillbar/list/ColumnWidths.h"
#include "Quillbar/list/RowAccessibility.h"
#include "Quillbar/platform/MarketCapAgeText.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/BannerRow.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/market/MarketCapAge.h"
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
#include <utility>

namespace quillbar {

namespace {

constexpr std::array kColumns{SecondaryColumn::volume, SecondaryColumn::marketCap};
constexpr Seconds kMinute{60};

}  // namespace

/// What a row shows now.
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
        setEntry(m_board.m_list.items()[index],
                 secondaryColumnOf(m_board.m_board),
                 m_board.expandedSymbol() == id ? Chart::open : Chart::closed);
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
    , m_marketCapBanner(new BannerRow(this))
    , m_headers{makeHeader(kColumns[0]), makeHeader(kColumns[1])}
    , m_list(m_expandedSymbol, rowContent(), std::move(makeDetail), this)
    , m_placeholder(new BoardPlaceholder(ColumnHeader::kHeight + kBoardHeight, this))
    , m_turn(this)
    , m_look(this)
    , m_scope(environment.executor) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_banner);
    layout->addWidget(m_marketCapBanner);
    for (ColumnHeader* const header : m_headers) {
        layout->addWidget(header);
    }
    layout->addWidget(&m_list.rows());
    layout->addWidget(m_placeholder);
    TextScale::follow(*this, [this] {
        m_list.rows().setPreferredHeight(TextScale::length(*this, kBoardHeight));
    });
    m_placeholder->onRetry = [this] { retry(); };

    m_turn.setSingleShot(true);
    QObject::connect(&m_turn, &QTimer::timeout, this, [this] { onTurn(); });
    m_look.setObjectName(QStringLiteral("look"));
    m_look.setInterval(kLookInterval);
    m_look.setTimerType(Qt::VeryCoarseTimer);
    QObject::connect(&m_look, &QTimer::timeout, this, [this] {
        // Begins the polling anew if it has ended by itself, as it does while the machine sleeps.
        // It also begins it for a window that nobody can see, which paints no frame.
        poll();
        refresh();
    });
    showContent();
}

MarketBoardView::~MarketBoardView() {
    if (m_life != Life::hidden) {
        enter(Life::hidden);
    }
}

// Its parts

ColumnHeader* MarketBoardView::makeHeader(SecondaryColumn column) {
    auto* const header = new ColumnHeader(this);
    header->addGap(MarketRowView::kRankWidth);
    header->addFlexibleTitle(translated("boards", "币种"));
    header->addTitle(columnTitle(column), ColumnWidths::kAmount);
    header->addTitle(translated("boards", "价格"), ColumnWidths::kPrice);
    header->addTitle(translated("boards", "涨跌"), ColumnWidths::kChange);
    header->addGap(ColumnWidths::kTrailing);
    return header;
}

RowListContent MarketBoardView::rowContent() {
    return {
        .makeRow = [this](QWidget* parent) { return new Row(*this, parent); },
        .activate = [this](const std::string& symbol) { toggle(symbol); },
        .openMenu =
            [this](const std::string& symbol, const QPoint& position) {
                MarketRowMenu::make(m_environment, m_list.coin(symbol), this)->popup(position);
            },
    };
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
    m_list.show(liveEntries(), RowOrder::frozen);
    m_list.rows().refreshAll();
    showContent();
}

void MarketBoardView::showContent() {
    const bool hasRows = !m_list.items().empty();
    bool isLoading = m_life != Life::hidden && m_life != Life::live;
    bool hasFailed = false;
    for (const PolledModel* const model : polledModels()) {
        isLoading = isLoading || *model->isLoading();
        hasFailed = hasFailed || *model->loadFailed();
    }
    using Content = BoardPlaceholder::Content;
    const Content otherwise = hasFailed ? Content::failed : Content::empty;
    m_placeholder->setContent(isLoading ? Content::loading : otherwise);
    const bool passesFocusOn = hasRows && m_placeholder->holdsFocus();
    if (passesFocusOn) {
        // When a widget with the focus is hidden, Qt passes the focus to the next one.
        setFocus(Qt::OtherFocusReason);
    }
    m_placeholder->setVisible(!hasRows);
    for (std::size_t each = 0; each < m_headers.size(); ++each) {
        m_headers[each]->setVisible(hasRows && kColumns[each] == secondaryColumnOf(m_board));
    }
    RowAccessibility::setName(
        m_list.rows(), translated("boards", "%1榜").arg(translatedFromCore(displayName(m_board))));
    m_list.rows().setVisible(hasRows);
    if (passesFocusOn) {
        m_list.rows().setFocus(Qt::TabFocusReason);
    }
    showWarnings();
}

void MarketBoardView::showWarnings() {
    const bool hasRows = !m_list.items().empty();
    m_banner->setText(staleText());
    m_banner->setVisible(hasRows && isStale(m_models.market.dataAge(), lastLoad()));
    std::optional<MarketCapAge> marketCapAge;
    if (hasRows && isOfMarketCaps()) {
        marketCapAge = MarketCapAge::ifOld(m_models.marketCaps.dataAge());
    }
    if (marketCapAge) {
        const QString text = *m_models.marketCaps.loadFailed()
                                 ? translated("boards", "市值刷新失败,%1")
                                 : translated("boards", "市值已停止刷新,%1");
        m_marketCapBanner->setText(text.arg(marketCapAgeText(*marketCapAge)));
    }
    m_marketCapBanner->setVisible(marketCapAge.has_value());
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
        return translated("boards", "数据刷新失败");
    }
    const auto minutes = static_cast<int>(*age / kMinute);
    if (minutes < 1) {
        return lastLoad == LastLoad::failed ? translated("boards", "刷新失败,数据为刚才的")
                                            : translated("boards", "已停止刷新,数据为刚才的");
    }
    return lastLoad == LastLoad::failed
               ? translated("boards", "刷新失败,数据为%n 分钟前的", nullptr, minutes)
               : translated("boards", "已停止刷新,数据为%n 分钟前的", nullptr, minutes);
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
    // Without rows, the list begins at its first row again, and so does the focus.
    m_list.show({}, RowOrder::live);
    if (m_life != Life::hidden) {
        begin();
    }
}

void MarketBoardView::toggle(const std::string& symbol) {
    m_list.toggle(symbol);
    refresh();
    m_list.unfold();
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
    const auto changed = [this](const auto& /*value*/) { scheduleTurn(); };
    for (const PolledModel* const model : polledModels()) {
        m_observations.push_back(model->isLoading().observe(changed));
        m_observations.push_back(model->loadFailed().observe(changed));
        m_observations.push_back(model->lastUpdate().observe(changed));
    }
    m_observations.push_back(m_models.market.tickers().observe(changed));
    m_observations.push_back(m_models.market.universe().observe(changed));
    if (isOfMarketCaps()) {
        m_observations.push_back(m_models.marketCaps.snapshot().observe(changed));
    }
    m_observations.push_back(m_environment.appState.watchlist().observe(
        [this](const Watchlist& /*watchlist*/) { m_list.rows().refreshAll(); }));
}

std::vector<PolledModel*> MarketBoardView::polledModels() const {
    std::vector<PolledModel*> models{&m_models.market};
    if (isOfMarketCaps()) {
        models.push_back(&m_models.marketCaps);
    }
    return models;
}

// Its life

void MarketBoardView::enter(Life life) {
    m_life = life;
    switch (life) {
    case Life::hidden:
        m_observations.clear();
        m_turn.stop();
        m_look.stop();
        m_retry.cancel();
        m_models.market.stopPolling();
        m_models.marketCaps.stopPolling();
        m_list.show({}, RowOrder::live);
        break;
    case Life::waitingForFrame:
        update();
        break;
    case Life::painted:
        scheduleTurn();
        break;
    case Life::starting:
        for (PolledModel* const model : polledModels()) {
            model->startPolling();
        }
        // Lets the refresh begin first.
        scheduleTurn();
        break;
    case Life::live:
        break;
    }
}

bool MarketBoardView::isPolling() const {
    const std::vector<PolledModel*> models = polledModels();
    return std::all_of(
        models.begin(), models.end(), [](const PolledModel* model) { return model->isPolling(); });
}

void MarketBoardView::begin() {
    observe();
    if (isPolling()) {
        poll();
    } else {
        enter(Life::waitingForFrame);
    }
    refresh();
}

void MarketBoardView::poll() {
    if (!isPolling()) {
        enter(Life::starting);
    } else if (m_life != Life::starting) {
        enter(Life::live);
    }
}

void MarketBoardView::onTurn() {
    if (m_life == Life::painted) {
        poll();
        return;
    }
    if (m_life == Life::starting) {
        enter(Life::live);
    }
    refresh();
}

void MarketBoardView::scheduleTurn() {
    if (!m_turn.isActive()) {
        m_turn.start();
    }
}

void MarketBoardView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (m_life == Life::hidden) {
        m_look.start();
        begin();
    }
}

void MarketBoardView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (m_life != Life::hidden && !event->spontaneous()) {
        enter(Life::hidden);
    }
}

void MarketBoardView::paintEvent(QPaintEvent* /*event*/) {
    if (m_life == Life::waitingForFrame) {
        enter(Life::painted);
    }
}

}  // namespace quillbar
