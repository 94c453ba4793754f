// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/CoinListView.h"

#include "Quillbar/list/ColumnHeader.h"
#include "Quillbar/list/ColumnWidths.h"
#include "Quillbar/list/SortableHeader.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/watchlist/AlertForm.h"
#include "Quillbar/watchlist/CoinListRow.h"
#include "Quillbar/watchlist/CoinRowMenu.h"
#include "Quillbar/watchlist/WatchlistMove.h"
#include "Quillbar/widgets/CenteredText.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/alerts/AlertKeeper.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QHideEvent>
#include <QMenu>
#include <QMetaObject>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QShowEvent>
#include <QString>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace quillbar {

namespace {

constexpr int kEmptyPadding = 16;

struct Column {
    WatchlistSortColumn column;
    int width;
};

constexpr std::array<Column, kAllWatchlistSortColumns.size()> kColumns{{
    {WatchlistSortColumn::volume, ColumnWidths::kAmount},
    {WatchlistSortColumn::price, ColumnWidths::kPrice},
    {WatchlistSortColumn::change, ColumnWidths::kChange},
}};

QString titleOf(WatchlistSortColumn column) {
    switch (column) {
    case WatchlistSortColumn::volume:
        return translated("watchlist", "成交额");
    case WatchlistSortColumn::price:
        return translated("watchlist", "价格");
    case WatchlistSortColumn::change:
        break;
    }
    return translated("watchlist", "涨跌");
}

}  // namespace

CoinListView::CoinListView(const ViewEnvironment& environment,
                           Observed<std::optional<std::string>>& expandedSymbol,
                           DetailFactory makeDetail,
                           QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_expandedSymbol(expandedSymbol)
    , m_empty(new CenteredText(translated("watchlist", "自选列表是空的,点 + 添加币种"),
                               kEmptyPadding,
                               this))
    , m_header(makeHeader())
    , m_list(expandedSymbol, rowContent(), std::move(makeDetail), this)
    , m_rows(m_list.rows())
    , m_basis(environment.appState.settings()->changeBasis)
    , m_reorder(this)
    , m_staleness(this) {
    m_rows.setAccessibleName(translated("watchlist", "自选列表"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_empty);
    layout->addWidget(m_header);
    layout->addWidget(&m_rows);

    m_reorder.setObjectName(QStringLiteral("reorder"));
    m_reorder.setSingleShot(true);
    QObject::connect(&m_reorder, &QTimer::timeout, this, [this] { updateOrder(); });
    m_staleness.setObjectName(QStringLiteral("staleness"));
    m_staleness.setInterval(kStalenessInterval);
    m_staleness.setTimerType(Qt::VeryCoarseTimer);
    QObject::connect(&m_staleness, &QTimer::timeout, this, [this] { checkStaleness(); });

    observeEdits();
    onWatchlistChange();
    m_list.unfold();
    TextScale::follow(*this, [this] { updateHeight(); });
}

// Its parts

ColumnHeader* CoinListView::makeHeader() {
    auto* const header = new ColumnHeader(this);
    header->addGap(CoinListRow::kDisclosureWidth);
    header->addFlexibleTitle(translated("watchlist", "币种"));
    for (std::size_t each = 0; each < kColumns.size(); ++each) {
        const Column& column = kColumns[each];
        SortableHeader* const title = header->addSortable(titleOf(column.column), column.width);
        QObject::connect(title, &QAbstractButton::clicked, this, [this, which = column.column] {
            sortBy(which);
        });
        m_columns[each] = title;
    }
    header->addGap(ColumnWidths::kTrailing);
    return header;
}

RowListContent CoinListView::rowContent() {
    return {
        .makeRow =
            [this](QWidget* parent) {
                return new CoinListRow(
                    m_environment,
                    m_list,
                    [this](const std::string& symbol) { toggle(symbol); },
                    parent);
            },
        .activate = [this](const std::string& symbol) { toggle(symbol); },
        .openMenu = [this](const std::string& symbol,
                           const QPoint& position) { openMenu(symbol, position); },
        .openForm = m_environment.alerts == nullptr
                        ? std::function<void(const std::string&)>()
                        : [this](const std::string& symbol) { openAlerts(symbol); },
        .settled = [this] { updateHeight(); },
        .drag = {.canMove =
                     [this](const std::string& /*symbol*/) {
                         return !m_sort && m_list.items().size() > 1;
                     },
                 .moved = [this](const std::string& symbol,
                                 std::size_t before) { move(symbol, before); },
                 .refused = [this](const std::string& symbol,
                                   const QPoint& position) { refuseDrag(symbol, position); }},
    };
}

void CoinListView::move(const std::string& symbol, std::size_t before) {
    std::vector<Coin> coins = m_list.items();
    const std::optional<std::string> next =
        before < coins.size() ? std::optional(coins[before].symbol) : std::nullopt;
    m_environment.edits.spawn(WatchlistMove::inFrontOf(m_environment.appState, symbol, next));
    // The edit runs later. Show its result now, so that the row does not go back to its old place
    // first.
    const auto from = coins.begin() + (RowIds::find(coins, symbol) - coins.data());
    const auto to = coins.begin() + static_cast<std::ptrdiff_t>(before);
    if (from < to) {
        std::rotate(from, from + 1, to);
    } else {
        std::rotate(to, from, from + 1);
    }
    m_list.show(std::move(coins), RowOrder::live);
}

void CoinListView::refuseDrag(const std::string& symbol, const QPoint& position) {
    // After Qt has told the rows that the pointer has left or entered them with the release: each
    // of these events hides what is shown before it. Without a rectangle it stays while the pointer
    // is dragged over other rows.
    QMetaObject::invokeMethod(
        this,
        [this, symbol, position] {
            ListRow* const row = m_rows.row(symbol);
            if (m_sort && row != nullptr) {
                QToolTip::showText(position, translated("watchlist", "按列排序时不能拖动"), row);
            }
        },
        Qt::QueuedConnection);
}

void CoinListView::openMenu(const std::string& symbol, const QPoint& position) {
    std::function<void()> restoreManualOrder;
    if (m_sort) {
        restoreManualOrder = [this] { setSort(std::nullopt); };
    }
    std::function<void()> openAlerts;
    if (m_environment.alerts != nullptr) {
        // After the menu has gone: a menu that takes the activation with it closes what is open.
        openAlerts = [this, symbol] {
            m_environment.executor.post([view = QPointer(this), symbol] {
                if (!view.isNull()) {
                    view->openAlerts(symbol);
                }
            });
        };
    }
    CoinRowMenu::make(
        m_environment, symbol, std::move(restoreManualOrder), std::move(openAlerts), this)
        ->popup(position);
}

void CoinListView::openAlerts(const std::string& symbol) {
    const Watchlist& watchlist = *m_environment.appState.watchlist();
    const auto index = watchlist.indexOf(symbol);
    const QWidget* const row = m_rows.row(symbol);
    // The panel may have closed with the menu.
    if (!index || row == nullptr || !isVisible()) {
        return;
    }
    AlertForm::open(m_environment,
                    watchlist.coins[*index],
                    QRect(row->mapTo(this, QPoint()), row->size()),
                    *this);
}

// What is shown

int CoinListView::listHeight(std::size_t coinCount, Chart chart, double scale) {
    const auto length = [scale](int points) {
        return static_cast<int>(std::lround(points * scale));
    };
    // With this many rows the list has its greatest height. The height of more rows may not fit
    // into an int.
    constexpr std::size_t kMostRows = kMaxPanelHeight / TableRow::kHeight + 1;
    const std::size_t rows = std::min(coinCount, kMostRows);
    const int height = static_cast<int>(rows) * length(TableRow::kHeight)
                       + (chart == Chart::open ? length(kExpandedDetailHeight) : 0)
                       + length(kBottomSlack);
    return std::min(height, length(kMaxPanelHeight));
}

int CoinListView::listHeight() const {
    return listHeight(m_environment.appState.watchlist()->coins.size(),
                      m_expandedSymbol->has_value() ? Chart::open : Chart::closed,
                      TextScale::of(*this));
}

void CoinListView::updateOrder() {
    m_sinceReorder.start();
    const AppState& state = m_environment.appState;
    m_list.show(WatchlistSorter::sorted(state.watchlist()->coins,
                                        *state.tickers(),
                                        m_sort,
                                        state.settings()->changeBasis,
                                        *state.todayOpens()),
                m_sort ? RowOrder::frozen : RowOrder::live);
}

void CoinListView::updateHeight() {
    const int height = listHeight();
    // A list that gets smaller waits until its rows have moved.
    if (height >= m_rows.preferredHeight() || !m_rows.isMoving()) {
        m_rows.setPreferredHeight(height);
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
    // The rows keep the order of this moment. Prices may have changed it since the last sort.
    updateOrder();
    m_list.toggle(symbol);
}

void CoinListView::focusCoin(const std::string& symbol, Qt::FocusReason reason) {
    m_rows.focusOn(symbol, reason);
}

// What the models tell

void CoinListView::observeEdits() {
    m_watchlistObservation = m_environment.appState.watchlist().observe(
        [this](const Watchlist& /*watchlist*/) { onWatchlistChange(); });
    if (m_environment.alerts != nullptr) {
        m_alertsObservation = m_environment.alerts->alerts().observe(
            [this](const std::vector<Alert>& /*alerts*/) { m_rows.refreshAll(); });
    }
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
            m_rows.refreshAll();
            scheduleReorder();
        }
    }));
    m_priceObservations.emplace_back(
        state.connectionState().observe([this](ConnectionState /*state*/) { checkStaleness(); }));
    m_priceObservations.emplace_back(state.lastUpdate().observe(
        [this](const std::optional<TimePoint>& /*time*/) { checkStaleness(); }));
}

void CoinListView::onWatchlistChange() {
    updateOrder();
    m_rows.refreshAll();
    updateHeight();
    const bool isEmpty = m_list.items().empty();
    m_empty->setVisible(isEmpty);
    m_header->setVisible(!isEmpty);
    m_rows.setVisible(!isEmpty);
}

void CoinListView::onExpandedChange() {
    updateOrder();
    m_list.unfold();
    m_rows.refreshAll();
    updateHeight();
}

void CoinListView::onPriceChange(const std::string& symbol) {
    m_rows.refresh(symbol);
    scheduleReorder();
}

void CoinListView::checkStaleness() {
    const bool isStale = m_environment.appState.isDataStale();
    if (isStale != m_isStale) {
        m_isStale = isStale;
        m_rows.refreshAll();
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
    // While a chart is open, the rows keep the order in which they are shown now.
    m_list.freezeOrder();
    m_rows.refreshAll();
    if (std::exchange(m_hasLostItsOrder, false)) {
        // Other rows are there now, so the old scroll position means nothing.
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
    m_hasLostItsOrder = m_hasLostItsOrder || m_sort.has_value();
    setSort(std::nullopt);
}

void CoinListView::scrollToBeginning() {
    m_rows.scrollTo(0);
    if (m_expandedSymbol->has_value()) {
        m_rows.scrollToSee(**m_expandedSymbol);
    }
}

}  // namespace quillbar
