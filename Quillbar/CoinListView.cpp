// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/CoinListView.h"

#include "Quillbar/CenteredText.h"
#include "Quillbar/CoinListRow.h"
#include "Quillbar/CoinRowMenu.h"
#include "Quillbar/CoinRowView.h"
#include "Quillbar/ColumnHeader.h"
#include "Quillbar/RowIds.h"
#include "Quillbar/RowList.h"
#include "Quillbar/SortableHeader.h"
#include "Quillbar/WatchlistMove.h"
#include "QuillbarCore/market/FrozenOrder.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QHideEvent>
#include <QMenu>
#include <QPoint>
#include <QShowEvent>
#include <QString>
#include <QVBoxLayout>

#include <algorithm>
#include <string_view>
#include <utility>

namespace quillbar {

namespace {

constexpr int kEmptyPadding = 16;

struct Column {
    WatchlistSortColumn column;
    const char16_t* title;
    int width;
};

constexpr std::array<Column, kAllWatchlistSortColumns.size()> kColumns{{
    {WatchlistSortColumn::volume, u"成交额", CoinRowView::kVolumeWidth},
    {WatchlistSortColumn::price, u"价格", CoinRowView::kPriceWidth},
    {WatchlistSortColumn::change, u"涨跌", CoinRowView::kChangeWidth},
}};

}  // namespace

CoinListView::CoinListView(const ViewEnvironment& environment,
                           Observed<std::optional<std::string>>& expandedSymbol,
                           DetailFactory makeDetail,
                           QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_expandedSymbol(expandedSymbol)
    , m_empty(new CenteredText(QStringLiteral("自选列表是空的,点 + 添加币种"), kEmptyPadding, this))
    , m_header(new ColumnHeader(this))
    , m_source{.coins = m_displayed,
               .expandedSymbol = expandedSymbol,
               .toggle = [this](const std::string& symbol) { toggle(symbol); }}
    , m_basis(environment.appState.settings()->changeBasis)
    , m_reorder(this)
    , m_staleness(this) {
    makeHeader();
    makeRows(std::move(makeDetail));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_empty);
    layout->addWidget(m_header);
    layout->addWidget(m_rows);

    m_reorder.setObjectName(QStringLiteral("reorder"));
    m_reorder.setSingleShot(true);
    QObject::connect(&m_reorder, &QTimer::timeout, this, [this] { updateOrder(); });
    m_staleness.setObjectName(QStringLiteral("staleness"));
    m_staleness.setInterval(kStalenessInterval);
    m_staleness.setTimerType(Qt::VeryCoarseTimer);
    QObject::connect(&m_staleness, &QTimer::timeout, this, [this] { checkStaleness(); });

    observeEdits();
    onWatchlistChange();
    m_rows->setExpanded(*m_expandedSymbol);
}

CoinListView::~CoinListView() {
    // Rows that end in the middle of their way call back.
    delete m_rows;
}

// Its parts

void CoinListView::makeHeader() {
    m_header->addGap(CoinListRow::kDisclosureWidth);
    m_header->addFlexibleTitle(QStringLiteral("币种"));
    for (std::size_t each = 0; each < kColumns.size(); ++each) {
        const Column& column = kColumns[each];
        auto* const title =
            new SortableHeader(QString::fromUtf16(column.title), column.width, m_header);
        QObject::connect(title, &QAbstractButton::clicked, this, [this, which = column.column] {
            sortBy(which);
        });
        m_header->addColumn(title);
        m_columns[each] = title;
    }
    m_header->addGap(CoinRowView::kTrailingGap);
}

void CoinListView::makeRows(DetailFactory makeDetail) {
    m_rows = new RowList(
        RowListContent{
            .makeRow =
                [this](QWidget* parent) {
                    return new CoinListRow(m_environment, m_source, parent);
                },
            .makeDetail =
                [this, makeDetail = std::move(makeDetail)](const std::string& id, QWidget* parent) {
                    const auto coin = std::find_if(
                        m_displayed.begin(), m_displayed.end(), [&id](const Coin& each) {
                            return each.symbol == id;
                        });
                    return makeDetail(*coin, parent);
                },
            .activate = [this](const std::string& id) { toggle(id); },
            .openMenu = [this](const std::string& id,
                               const QPoint& position) { openMenu(id, position); },
            .settled = [this] { updateHeight(); },
            .drag = {.canMove =
                         [this](const std::string& /*id*/) {
                             return !m_sort && m_displayed.size() > 1;
                         },
                     .moved = [this](const std::string& id,
                                     std::size_t before) { move(id, before); }},
        },
        kExpandedDetailHeight,
        this);
    m_rows->setAccessibleName(QStringLiteral("自选列表"));
}

void CoinListView::move(const std::string& symbol, std::size_t before) {
    const std::optional<std::string> next =
        before < m_displayed.size() ? std::optional(m_displayed[before].symbol) : std::nullopt;
    m_environment.edits.spawn(WatchlistMove::inFrontOf(m_environment.appState, symbol, next));
    // Edits run by themselves, and the row is not to be seen in its old place until then.
    const auto from = std::find_if(m_displayed.begin(), m_displayed.end(), [&](const Coin& coin) {
        return coin.symbol == symbol;
    });
    const auto to = m_displayed.begin() + static_cast<std::ptrdiff_t>(before);
    if (from < to) {
        std::rotate(from, from + 1, to);
    } else {
        std::rotate(to, from, from + 1);
    }
    m_rows->setIds(RowIds::of(m_displayed));
}

void CoinListView::openMenu(const std::string& symbol, const QPoint& position) {
    std::function<void()> restoreManualOrder;
    if (m_sort) {
        restoreManualOrder = [this] { setSort(std::nullopt); };
    }
    CoinRowMenu::make(m_environment, symbol, std::move(restoreManualOrder), this)->popup(position);
}

// What is shown

std::vector<Coin> CoinListView::displayedCoins() const {
    const AppState& state = m_environment.appState;
    std::vector<Coin> sorted = WatchlistSorter::sorted(state.watchlist()->coins,
                                                       *state.tickers(),
                                                       m_sort,
                                                       state.settings()->changeBasis,
                                                       *state.todayOpens());
    if (!m_sort || !m_expandedSymbol->has_value()) {
        return sorted;
    }
    return FrozenOrder::project(sorted, m_frozenOrder);
}

int CoinListView::listHeight(std::size_t coinCount, Chart chart) {
    // Beyond as many rows it is as high as it gets; a longer list would not fit into an int.
    const std::size_t rows = std::min<std::size_t>(coinCount, kMaxPanelHeight / TableRow::kHeight);
    const int height = static_cast<int>(rows) * TableRow::kHeight
                       + (chart == Chart::open ? kExpandedDetailHeight : 0) + kBottomSlack;
    return std::min(height, kMaxPanelHeight);
}

int CoinListView::listHeight() const {
    return listHeight(m_environment.appState.watchlist()->coins.size(),
                      m_expandedSymbol->has_value() ? Chart::open : Chart::closed);
}

void CoinListView::updateOrder() {
    m_sinceReorder.start();
    m_displayed = displayedCoins();
    RowIds::dropRepeated(m_displayed);
    m_rows->setIds(RowIds::of(m_displayed));
}

void CoinListView::updateHeight() {
    const int height = listHeight();
    // A list that shrinks does so after its rows have moved together.
    if (height >= m_rows->preferredHeight() || !m_rows->isMoving()) {
        m_rows->setPreferredHeight(height);
    }
}

void CoinListView::scheduleReorder() {
    if (!m_sort || m_expandedSymbol->has_value() || m_reorder.isActive()) {
        return;
    }
    const auto spacing = std::chrono::milliseconds(kReorderSpacing).count();
    const qint64 wait = std::max<qint64>(0, spacing - m_sinceReorder.elapsed());
    m_reorder.start(static_cast<int>(wait));
}

// What the user does

void CoinListView::sortBy(WatchlistSortColumn column) {
    setSort(WatchlistSort::next(m_sort, column));
}

void CoinListView::setSort(std::optional<WatchlistSort> sort) {
    m_sort = sort;
    for (std::size_t each = 0; each < kColumns.size(); ++each) {
        std::optional<SortDirection> direction;
        if (sort && sort->column == kColumns[each].column) {
            direction = sort->ascending ? SortDirection::ascending : SortDirection::descending;
        }
        m_columns[each]->setDirection(direction);
    }
    updateOrder();
}

void CoinListView::toggle(const std::string& symbol) {
    if (*m_expandedSymbol == symbol) {
        m_frozenOrder.clear();
        m_expandedSymbol.set(std::nullopt);
        return;
    }
    m_expandedSymbol.set(symbol);
    m_frozenOrder = RowIds::of(displayedCoins());
}

// What the models tell

void CoinListView::observeEdits() {
    m_watchlistObservation = m_environment.appState.watchlist().observe(
        [this](const Watchlist& /*watchlist*/) { onWatchlistChange(); });
    m_expandedObservation = m_expandedSymbol.observe(
        [this](const std::optional<std::string>& /*symbol*/) { onExpandedChange(); });
}

void CoinListView::observePrices() {
    const AppState& state = m_environment.appState;
    const auto onPrice = [this](const std::string& symbol) { onPriceChange(symbol); };
    m_priceObservations.emplace_back(state.tickers().observe(onPrice));
    m_priceObservations.emplace_back(state.todayOpens().observe(onPrice));
    m_priceObservations.emplace_back(state.settings().observe([this](const AppSettings& settings) {
        if (settings.changeBasis != m_basis) {
            m_basis = settings.changeBasis;
            m_rows->refreshAll();
            scheduleReorder();
        }
    }));
    m_priceObservations.emplace_back(
        state.connectionState().observe([this](ConnectionState /*state*/) { checkStaleness(); }));
    m_priceObservations.emplace_back(state.lastUpdate().observe(
        [this](const std::optional<TimePoint>& /*time*/) { checkStaleness(); }));
}

void CoinListView::onWatchlistChange() {
    const Watchlist& watchlist = *m_environment.appState.watchlist();
    const auto& expanded = *m_expandedSymbol;
    if (expanded && !watchlist.contains(*expanded)) {
        m_frozenOrder.clear();
        m_expandedSymbol.set(std::nullopt);
    }
    updateOrder();
    m_rows->refreshAll();
    updateHeight();
    const bool isEmpty = watchlist.coins.empty();
    m_empty->setVisible(isEmpty);
    m_header->setVisible(!isEmpty);
    m_rows->setVisible(!isEmpty);
}

void CoinListView::onExpandedChange() {
    if (!m_expandedSymbol->has_value()) {
        m_frozenOrder.clear();
    }
    updateOrder();
    m_rows->setExpanded(*m_expandedSymbol);
    m_rows->refreshAll();
    updateHeight();
}

void CoinListView::onPriceChange(const std::string& symbol) {
    m_rows->refresh(symbol);
    scheduleReorder();
}

void CoinListView::checkStaleness() {
    const bool isStale = m_environment.appState.isDataStale();
    if (isStale != m_isStale) {
        m_isStale = isStale;
        m_rows->refreshAll();
    }
}

void CoinListView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!m_priceObservations.empty()) {
        return;
    }
    observePrices();
    m_staleness.start();
    m_basis = m_environment.appState.settings()->changeBasis;
    m_isStale = m_environment.appState.isDataStale();
    if (m_expandedSymbol->has_value()) {
        // A chart that was left open holds the rows where they are seen again.
        m_frozenOrder = RowIds::of(displayedCoins());
    }
    m_rows->refreshAll();
    if (std::exchange(m_hasLostItsOrder, false)) {
        // Where the list was scrolled to has other rows in it.
        scrollToBeginning();
    }
}

void CoinListView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (event->spontaneous()) {
        return;
    }
    m_priceObservations.clear();
    m_staleness.stop();
    m_reorder.stop();
    m_frozenOrder.clear();
    m_hasLostItsOrder = m_hasLostItsOrder || m_sort.has_value();
    setSort(std::nullopt);
}

void CoinListView::scrollToBeginning() {
    m_rows->scrollTo(0);
    if (m_expandedSymbol->has_value()) {
        m_rows->scrollToSee(**m_expandedSymbol);
    }
}

}  // namespace quillbar
