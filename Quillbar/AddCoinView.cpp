// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/AddCoinView.h"

#include "Quillbar/CenteredText.h"
#include "Quillbar/RowIds.h"
#include "Quillbar/RowList.h"
#include "Quillbar/SearchField.h"
#include "Quillbar/SearchResultRow.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

namespace quillbar {

namespace {

constexpr int kFieldMargin = 8;
// So that the icons stand under what is typed.
constexpr int kAreaMargin = 4;
constexpr int kSpacing = 6;

/// The texts that stand in the place of results, by their `ResultArea`.
constexpr std::array<const char16_t*, 3> kTexts{u"搜索失败,请检查网络后重试",
                                                u"输入币种代号开始搜索",
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
                         std::function<void()> dismiss,
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
    return m_results.empty() ? ResultArea::noMatches : ResultArea::results;
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
            .makeDetail = [](const std::string& /*id*/,
                             QWidget* parent) { return new QWidget(parent); },
            .activate =
                [this](const std::string& id) {
                    const auto found =
                        std::find_if(m_results.begin(), m_results.end(), [&id](const Coin& coin) {
                            return coin.id() == id;
                        });
                    if (found != m_results.end()) {
                        pick(Coin(*found));
                    }
                },
            .openMenu = [](const std::string& /*id*/, const QPoint& /*position*/) {},
            .settled = [] {},
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
    m_search = m_scope.spawn(search(query().toStdString(), purpose, ++m_run));
}

Task<void> AddCoinView::search(std::string query, Purpose purpose, std::uint64_t run) {
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
    // An answer that came before the cancellation is delivered all the same.
    if (run != m_run) {
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
    m_environment.edits.spawn(addAndDismiss(state, coin, QPointer(this), m_dismiss));
}

Task<void> AddCoinView::addAndDismiss(AppState& state,
                                      Coin coin,
                                      QPointer<AddCoinView> view,
                                      std::function<void()> dismiss) {
    const std::string symbol = coin.symbol;
    Task<void> adding = state.add(std::move(coin));
    co_await std::move(adding);
    if (!view.isNull()) {
        view->m_picked.erase(symbol);
        dismiss();
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
        // The reason that has it show its ring.
        row->setFocus(Qt::TabFocusReason);
    }
}

}  // namespace quillbar
