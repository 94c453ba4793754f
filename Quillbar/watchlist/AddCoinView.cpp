// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/AddCoinView.h"

#include "Quillbar/list/RowIds.h"
#include "Quillbar/list/RowList.h"
#include "Quillbar/watchlist/SearchField.h"
#include "Quillbar/watchlist/SearchResultRow.h"
#include "Quillbar/widgets/CenteredText.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/model/Watchlist.h"

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

/// The texts that are shown in place of results, in the order of `ResultArea`.
constexpr std::array<const char16_t*, 4> kTexts{u"搜索失败,请检查网络后重试",
                                                u"输入币种代号开始搜索",
                                                u"搜索中…",
                                                u"无匹配结果"};

QString textOf(AddCoinView::ResultArea area) {
    return QString::fromUtf16(kTexts.at(static_cast<std::size_t>(area)));
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
    , m_field(new SearchField(QStringLiteral("搜索币种,如 SOL"), this))
    , m_scope(environment.executor) {
    setAccessibleName(QStringLiteral("添加币种"));
    setFixedWidth(kPopoverWidth);
    setFocusProxy(m_field);
    m_field->setAccessibleName(QStringLiteral("搜索币种"));
    QObject::connect(m_field, &QLineEdit::textChanged, this, [this] { onQueryChange(); });
    QObject::connect(m_field, &QLineEdit::returnPressed, this, [this] { onEnter(); });
    makeArea();

    auto* const field = new QVBoxLayout;
    field->setContentsMargins(kFieldMargin, kFieldMargin, kFieldMargin, 0);
    field->addWidget(m_field);
    auto* const area = new QVBoxLayout;
    area->setContentsMargins(kAreaMargin, kSpacing, kAreaMargin, kAreaMargin);
    area->addLayout(m_area);
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addLayout(field);
    stack->addLayout(area);

    m_watchlistObservation = environment.appState.watchlist().observe(
        [this](const Watchlist& /*watchlist*/) { m_rows->refreshAll(); });
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
    if (!m_results.empty()) {
        return ResultArea::results;
    }
    return m_isSearching ? ResultArea::searching : ResultArea::noMatches;
}

QSize AddCoinView::sizeHint() const {
    return {kPopoverWidth, layout()->sizeHint().height()};
}

// Its parts

void AddCoinView::makeArea() {
    m_area = new QStackedLayout;
    for (std::size_t each = 0; each < kTexts.size(); ++each) {
        auto* const text = new CenteredText(textOf(static_cast<ResultArea>(each)), 0, this);
        text->setFixedHeight(kResultListHeight);
        m_area->addWidget(text);
    }
    m_rows = makeRows();
    m_area->addWidget(m_rows);
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
                    row->onPick = [this](const Coin& coin) { pick(coin); };
                    return row;
                },
            .activate =
                [this](const std::string& id) {
                    if (const Coin* const coin = RowIds::find(m_results, id)) {
                        pick(Coin(*coin));
                    }
                },
        },
        0,
        this);
    rows->setAccessibleName(QStringLiteral("搜索结果"));
    rows->setPreferredHeight(kResultListHeight);
    rows->setFixedHeight(kResultListHeight);
    rows->installEventFilter(this);
    return rows;
}

void AddCoinView::updateArea() {
    const ResultArea area = resultArea();
    if (area != ResultArea::results && m_rows->isAncestorOf(window()->focusWidget())) {
        m_field->setFocus(Qt::OtherFocusReason);
    }
    m_area->setCurrentIndex(static_cast<int>(area));
    m_rows->refreshAll();
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
    std::vector<Coin> matches;
    try {
        if (purpose == Purpose::show) {
            Task<void> pause = m_environment.sleeper(kDebounce);
            co_await std::move(pause);
        }
        matches = co_await m_environment.appState.catalog().search(std::move(query));
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
    showMatches(std::move(matches));
    if (purpose == Purpose::showAndPickFirst) {
        pickFirst();
    }
}

void AddCoinView::showMatches(std::vector<Coin> matches) {
    RowIds::dropRepeated(matches);
    m_results = std::move(matches);
    m_errorMessage.reset();
    m_rows->setIds(RowIds::of(m_results));
    if (!m_rows->isAncestorOf(window()->focusWidget())) {
        m_rows->scrollTo(0);
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
    if (!m_results.empty()) {
        pick(Coin(m_results.front()));
    }
}

void AddCoinView::pick(const Coin& coin) {
    AppState& state = m_environment.appState;
    if (state.watchlist()->contains(coin.symbol) || !m_picked.insert(coin.symbol).second) {
        return;
    }
    m_environment.edits.spawn(addAndDismiss(state, coin, QPointer(this), m_changes));
}

Task<void> AddCoinView::addAndDismiss(AppState& state,
                                      Coin coin,
                                      QPointer<AddCoinView> view,
                                      std::uint64_t changes) {
    const std::string symbol = coin.symbol;
    Task<void> adding = state.add(std::move(coin));
    co_await std::move(adding);
    if (!view.isNull()) {
        view->onAdded(symbol, changes);
    }
}

void AddCoinView::onAdded(const std::string& symbol, std::uint64_t changes) {
    m_picked.erase(symbol);
    // On a slow connection the user may be typing the next code already.
    if (changes == m_changes && !m_field->isComposing()) {
        // A copy, because the call may delete the view.
        const std::function<void(const std::string&)> dismiss = m_dismiss;
        dismiss(symbol);
    }
}

bool AddCoinView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_rows && event->type() == QEvent::KeyPress
        && onKeyInRows(static_cast<QKeyEvent&>(*event))) {
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool AddCoinView::onKeyInRows(QKeyEvent& event) {
    const bool isOnFirst = !m_results.empty() && m_rows->current() == m_results.front().symbol;
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
    if (event->key() == Qt::Key_Down && m_field->hasFocus()
        && resultArea() == ResultArea::results) {
        focusFirstRow();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void AddCoinView::focusFirstRow() {
    m_rows->scrollTo(0);
    if (ListRow* const row = m_rows->row(m_results.front().symbol)) {
        // For this reason the row shows its ring.
        row->setFocus(Qt::TabFocusReason);
    }
}

}  // namespace quillbar
