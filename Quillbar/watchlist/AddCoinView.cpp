// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/AddCoinView.h"

#include "Quillbar/list/RowIds.h"
#include "Quillbar/list/RowList.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/watchlist/ListOfferView.h"
#include "Quillbar/watchlist/SearchField.h"
#include "Quillbar/watchlist/SearchResultRow.h"
#include "Quillbar/widgets/CenteredText.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/exchange/URLError.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <array>
#include <exception>
#include <utility>

namespace quillbar {

namespace {

constexpr int kFieldMargin = 8;
// Aligns the icons with the text in the field.
constexpr int kAreaMargin = 4;
constexpr int kSpacing = 6;

/// What is shown in place of results, in the order of `ResultArea`.
constexpr std::array kTextAreas{AddCoinView::ResultArea::error,
                                AddCoinView::ResultArea::hint,
                                AddCoinView::ResultArea::searching,
                                AddCoinView::ResultArea::noMatches};

QString textOf(AddCoinView::ResultArea area) {
    switch (area) {
    case AddCoinView::ResultArea::error:
        return translated("watchlist", "搜索失败,请检查网络后重试");
    case AddCoinView::ResultArea::hint:
        return translated("watchlist", "输入币种代号开始搜索");
    case AddCoinView::ResultArea::searching:
        return translated("watchlist", "搜索中…");
    case AddCoinView::ResultArea::noMatches:
        return translated("watchlist", "无匹配结果");
    default:
        return {};
    }
}

bool isTyping(const QKeyEvent& event) {
    const bool isPlain = (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    const bool isText = !event.text().isEmpty() && event.text().front().isPrint();
    return isPlain && (isText || event.key() == Qt::Key_Backspace);
}

}  // namespace

AddCoinView::AddCoinView(const ViewEnvironment& environment,
                         std::function<void(const std::string& symbol)> dismiss,
                         QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_dismiss(std::move(dismiss))
    , m_field(new SearchField(translated("watchlist", "搜索币种,如 SOL"), this))
    , m_scope(environment.executor) {
    setAccessibleName(translated("watchlist", "添加币种"));
    setFocusProxy(m_field);
    m_field->setAccessibleName(translated("watchlist", "搜索币种"));
    QObject::connect(m_field, &QLineEdit::textChanged, this, [this] { onQueryChange(); });
    QObject::connect(m_field, &QLineEdit::returnPressed, this, [this] { onEnter(); });
    makeArea();

    auto* const field = new QVBoxLayout;
    field->addWidget(m_field);
    auto* const area = new QVBoxLayout;
    area->addLayout(m_area);
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addLayout(field);
    stack->addLayout(area);
    TextScale::follow(*this, [this, field, area] {
        setFixedWidth(TextScale::length(*this, kPopoverWidth));
        field->setContentsMargins(
            TextScale::margins(*this, {kFieldMargin, kFieldMargin, kFieldMargin, 0}));
        area->setContentsMargins(
            TextScale::margins(*this, {kAreaMargin, kSpacing, kAreaMargin, kAreaMargin}));
        fitArea();
    });

    m_watchlistObservation = environment.appState.watchlist().observe(
        [this](const Watchlist& watchlist) { onWatchlistChange(watchlist); });
    updateArea();
}

QString AddCoinView::query() const {
    return m_field->text();
}

AddCoinView::ResultArea AddCoinView::resultArea() const {
    if (m_errorMessage) {
        return ResultArea::error;
    }
    if (query().trimmed().isEmpty()) {
        return ResultArea::hint;
    }
    if (m_offer) {
        return ResultArea::list;
    }
    if (!m_results.empty()) {
        return ResultArea::results;
    }
    return m_isSearching ? ResultArea::searching : ResultArea::noMatches;
}

QSize AddCoinView::sizeHint() const {
    return {TextScale::length(*this, kPopoverWidth), layout()->sizeHint().height()};
}

// Its parts

void AddCoinView::makeArea() {
    m_area = new QStackedLayout;
    for (const ResultArea area : kTextAreas) {
        m_area->addWidget(new CenteredText(textOf(area), 0, this));
    }
    m_rows = makeRows();
    m_area->addWidget(m_rows);
    m_offerView = new ListOfferView([this] { pickFirst(); }, this);
    m_offerView->rows().installEventFilter(this);
    m_area->addWidget(m_offerView);
}

void AddCoinView::fitArea() {
    const int height = TextScale::length(*this, kResultListHeight);
    m_rows->setPreferredHeight(height);
    for (int each = 0; each < m_area->count(); ++each) {
        QWidget& shown = *m_area->widget(each);
        if (&shown != m_offerView) {
            shown.setFixedHeight(height);
        }
    }
}

RowList* AddCoinView::makeRows() {
    auto* const rows = new RowList(
        RowListContent{
            .makeRow =
                [this](QWidget* parent) {
                    auto* const row = new SearchResultRow(
                        m_environment,
                        [this](std::size_t index) -> const Coin& { return m_results[index]; },
                        parent);
                    row->onPick = [this](const Coin& coin) { pick({coin}); };
                    return row;
                },
            .activate =
                [this](const std::string& id) {
                    if (const Coin* const coin = RowIds::find(m_results, id)) {
                        pick({*coin});
                    }
                },
        },
        0,
        this);
    rows->setAccessibleName(translated("watchlist", "搜索结果"));
    rows->installEventFilter(this);
    return rows;
}

void AddCoinView::updateArea() {
    const ResultArea area = resultArea();
    for (const RowList* const rows : {m_rows, &m_offerView->rows()}) {
        if (rows != shownRows() && rows->isAncestorOf(window()->focusWidget())) {
            m_field->setFocus(Qt::OtherFocusReason);
        }
    }
    if (m_offer) {
        m_offerView->present(*m_offer);
    }
    m_area->setCurrentIndex(static_cast<int>(area));
    m_rows->refreshAll();
}

RowList* AddCoinView::shownRows() const {
    const ResultArea area = resultArea();
    if (area == ResultArea::list && !m_offer->fresh.empty()) {
        return &m_offerView->rows();
    }
    return area == ResultArea::results ? m_rows : nullptr;
}

// Searching

void AddCoinView::startSearch(Purpose purpose) {
    m_search.cancel();
    m_isSearching = true;
    m_search = m_scope.spawn(search(query().toStdString(), purpose));
}

Task<void> AddCoinView::search(std::string query, Purpose purpose) {
    enum class Outcome { matches, failure, cancelled };
    Outcome outcome = Outcome::matches;
    CoinNames::List list;
    CoinNames::Found found;
    std::vector<Coin> matches;
    try {
        if (purpose == Purpose::show) {
            Task<void> pause = m_environment.sleeper(kDebounce);
            co_await std::move(pause);
        }
        CoinCatalog& catalog = m_environment.appState.catalog();
        list = CoinNames::parse(query);
        if (list.names.size() > 1) {
            std::vector<std::string> names = list.names;
            found = co_await catalog.find(std::move(names));
        } else {
            std::string name = list.names.empty() ? std::string() : list.names.front();
            matches = co_await catalog.search(std::move(name));
        }
    } catch (const URLError& error) {
        outcome = error.code() == URLError::Code::cancelled ? Outcome::cancelled : Outcome::failure;
    } catch (const std::exception&) {
        outcome = Outcome::failure;
    }
    // An answer that came just before the cancellation still arrives here.
    const bool isCancelled = co_await IsCancelled();
    if (isCancelled) {
        co_return;
    }
    m_isSearching = false;
    if (outcome != Outcome::matches) {
        if (outcome == Outcome::failure) {
            showFailure();
        }
        updateArea();
        co_return;
    }
    if (list.names.size() > 1) {
        showOffer(std::move(list), std::move(found));
    } else {
        showMatches(std::move(matches));
    }
    if (purpose == Purpose::showAndPickFirst) {
        pickFirst();
    }
}

void AddCoinView::showMatches(std::vector<Coin> matches) {
    RowIds::dropRepeated(matches);
    show(std::move(matches), std::nullopt);
}

void AddCoinView::showOffer(CoinNames::List list, CoinNames::Found found) {
    const Watchlist& watchlist = *m_environment.appState.watchlist();
    show({}, ListOffer::of(std::move(list), std::move(found), watchlist));
}

void AddCoinView::show(std::vector<Coin> matches, std::optional<ListOffer> offer) {
    m_results = std::move(matches);
    m_offer = std::move(offer);
    m_errorMessage.reset();
    m_rows->setIds(RowIds::of(m_results));
    if (!m_rows->isAncestorOf(window()->focusWidget())) {
        m_rows->scrollTo(0);
    }
    updateArea();
}

void AddCoinView::onWatchlistChange(const Watchlist& watchlist) {
    if (m_offer) {
        m_offer = ListOffer::of(std::move(m_offer->list), std::move(m_offer->found), watchlist);
    }
    updateArea();
}

void AddCoinView::showFailure() {
    showMatches({});
    m_errorMessage = textOf(ResultArea::error);
    updateArea();
}

// What the user does

void AddCoinView::onQueryChange() {
    ++m_changes;
    m_errorMessage.reset();
    startSearch(Purpose::show);
    updateArea();
}

void AddCoinView::onEnter() {
    if (query().trimmed().isEmpty()) {
        return;
    }
    if (m_isSearching || m_errorMessage) {
        startSearch(Purpose::showAndPickFirst);
    } else {
        pickFirst();
    }
}

void AddCoinView::pickFirst() {
    if (m_offer) {
        pick(std::vector<Coin>(m_offer->fresh));
    } else if (!m_results.empty()) {
        pick({m_results.front()});
    }
}

void AddCoinView::pick(const std::vector<Coin>& coins) {
    AppState& state = m_environment.appState;
    std::vector<Coin> picked;
    for (const Coin& coin : coins) {
        if (!state.watchlist()->contains(coin.symbol) && m_picked.insert(coin.symbol).second) {
            picked.push_back(coin);
        }
    }
    if (!picked.empty()) {
        m_environment.edits.spawn(
            addAndDismiss(state, std::move(picked), QPointer(this), m_changes));
    }
}

Task<void> AddCoinView::addAndDismiss(AppState& state,
                                      std::vector<Coin> coins,
                                      QPointer<AddCoinView> view,
                                      std::uint64_t changes) {
    Task<void> adding = state.addAll(coins);
    co_await std::move(adding);
    if (!view.isNull()) {
        view->onAdded(coins, changes);
    }
}

void AddCoinView::onAdded(const std::vector<Coin>& coins, std::uint64_t changes) {
    for (const Coin& coin : coins) {
        m_picked.erase(coin.symbol);
    }
    // On a slow connection the user may be typing the next code already.
    if (changes == m_changes && !m_field->isComposing()) {
        // A copy, because the call may delete the view.
        const std::function<void(const std::string&)> dismiss = m_dismiss;
        dismiss(coins.front().symbol);
    }
}

bool AddCoinView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        for (const RowList* const rows : {m_rows, &m_offerView->rows()}) {
            if (watched == rows && onKeyInRows(*rows, static_cast<QKeyEvent&>(*event))) {
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool AddCoinView::onKeyInRows(const RowList& rows, QKeyEvent& event) {
    const bool isOnFirst = !rows.ids().empty() && rows.current() == rows.ids().front();
    if (event.key() == Qt::Key_Up && isOnFirst) {
        m_field->setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (isTyping(event)) {
        m_field->setFocus(Qt::OtherFocusReason);
        QApplication::sendEvent(m_field, &event);
        return true;
    }
    return false;
}

void AddCoinView::keyPressEvent(QKeyEvent* event) {
    RowList* const rows = shownRows();
    if (event->key() == Qt::Key_Down && m_field->hasFocus() && rows != nullptr) {
        focusFirst(*rows);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void AddCoinView::focusFirst(RowList& rows) {
    rows.scrollTo(0);
    if (ListRow* const row = rows.row(rows.ids().front())) {
        // For this reason the row shows its ring.
        row->setFocus(Qt::TabFocusReason);
    }
}

}  // namespace quillbar
