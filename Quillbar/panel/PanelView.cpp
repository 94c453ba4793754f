// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PanelView.h"

#include "Quillbar/boards/MarketBoardView.h"
#include "Quillbar/chart/CoinDetailView.h"
#include "Quillbar/panel/AgeLine.h"
#include "Quillbar/panel/AlertLines.h"
#include "Quillbar/panel/AlertsSection.h"
#include "Quillbar/panel/ConnectionBanner.h"
#include "Quillbar/panel/ErrorLine.h"
#include "Quillbar/panel/LabelCoinsSection.h"
#include "Quillbar/panel/LabelSection.h"
#include "Quillbar/panel/LanguageSection.h"
#include "Quillbar/panel/NoticeLines.h"
#include "Quillbar/panel/PanelHeader.h"
#include "Quillbar/panel/PreferencesView.h"
#include "Quillbar/panel/UnderlineTabs.h"
#include "Quillbar/panel/UndoLine.h"
#include "Quillbar/text/PinHint.h"
#include "Quillbar/watchlist/CoinListView.h"
#include "Quillbar/widgets/CenteredText.h"
#include "Quillbar/widgets/PlainButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

constexpr int kSpacing = 8;
constexpr int kTabsPadding = 8;
constexpr double kUnderlineHeight = 1.5;
constexpr int kHintPadding = 8;

/// Whether the item shows a coin of the list.
bool isPinned(const Watchlist& watchlist) {
    return watchlist.pinnedSymbol && watchlist.contains(*watchlist.pinnedSymbol);
}

QVBoxLayout* makeStack(QWidget& owner) {
    auto* const stack = new QVBoxLayout(&owner);
    stack->setContentsMargins(0, 0, 0, 0);
    TextScale::follow(owner,
                      [&owner, stack] { stack->setSpacing(TextScale::length(owner, kSpacing)); });
    return stack;
}

/// A menu would stay open over what is hidden or destroyed, and act on it.
void closePopup() {
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    }
}

/// The height that the layout wants in the panel. It depends on the width only while a line that
/// may wrap is shown.
int heightOf(const QLayout& layout, int width) {
    return layout.hasHeightForWidth() ? layout.totalHeightForWidth(width)
                                      : layout.sizeHint().height();
}

}  // namespace

PanelView::PanelView(const ViewEnvironment& environment,
                     const Observed<ColorScheme>& systemScheme,
                     SettingsMenu& settings,
                     PreferencesState& preferences,
                     std::function<void()> quit,
                     QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_systemScheme(systemScheme)
    , m_settings(settings)
    , m_preferences(preferences)
    , m_quit(std::move(quit)) {
    applyTheme();
    // Where the screen is too narrow, less than the text size wants is better than a panel cut off.
    setMinimumWidth(kWidth);
    TextScale::follow(*this, [this] { setMaximumWidth(TextScale::length(*this, kWidth)); });
    build(*makeStack(*this));

    m_observations.push_back(environment.appState.settings().observe(
        [this](const AppSettings& /*settings*/) { applyTheme(); }));
    m_observations.push_back(preferences.preferences().observe(
        [this](const Preferences& /*preferences*/) { applyTheme(); }));
    m_observations.push_back(environment.appState.watchlist().observe(
        [this](const Watchlist& /*watchlist*/) { updatePinHint(); }));
    m_observations.push_back(
        systemScheme.observe([this](ColorScheme /*scheme*/) { applyTheme(); }));
}

PanelView::~PanelView() = default;

void PanelView::build(QVBoxLayout& pages) {
    buildHeader(pages);
    m_main = new QWidget(this);
    pages.addWidget(m_main);
    auto* const stack = makeStack(*m_main);
    buildTabs(*stack);
    stack->addWidget(new ErrorLine(m_environment.appState, m_main));
    stack->addWidget(new NoticeLines(m_environment.notices, m_main));
    stack->addWidget(new AlertLines(m_environment, m_main));
    stack->addWidget(new ConnectionBanner(m_environment.appState, m_main));
    // Made before the list of coins, as `UndoLine` requires.
    m_undo = new UndoLine(m_environment, m_expandedSymbol, m_main);
    m_undo->onBack = [this](const std::string& symbol, Qt::FocusReason reason) {
        if (!m_tab.board()) {
            m_list->focusCoin(symbol, reason);
        }
    };
    buildList();
    stack->addWidget(new AgeLine(m_environment.appState, m_environment.now, *m_list, m_main));
    stack->addWidget(m_list);
    m_pinHint = new CenteredText(pinHint(), kHintPadding, m_main);
    stack->addWidget(m_pinHint);
    stack->addWidget(m_undo);
    // While the window is still higher than its content, the content keeps its place.
    stack->addStretch();
    m_undo->moveToEndOfTabOrder();
    restoreTab();
}

void PanelView::renew() {
    const bool wasShowingPreferences = isShowingPreferences();
    const auto* const focused = dynamic_cast<PlainButton*>(window()->focusWidget());
    const Qt::FocusReason reason =
        focused == nullptr ? Qt::OtherFocusReason : focused->focusReason();
    closePopup();
    setFocus(Qt::PopupFocusReason);
    m_expandedSymbol.set(std::nullopt);
    m_board = nullptr;
    delete std::exchange(m_preferencesView, nullptr);
    m_language = nullptr;
    delete std::exchange(m_main, nullptr);
    delete std::exchange(m_header, nullptr);
    build(dynamic_cast<QVBoxLayout&>(*layout()));
    m_header->setStandalone(m_isStandalone);
    if (wasShowingPreferences) {
        // Qt shows a new child of a visible parent only later, and the page needs its place below
        // the header now.
        m_header->show();
        showPreferences(reason);
        m_focusBefore = &m_header->settingsButton();
        m_language->takeFocus(reason);
    }
}

QSize PanelView::sizeHint() const {
    const int width = TextScale::length(*this, kWidth);
    int height = heightOf(*m_main->layout(), width);
    if (isShowingPreferences()) {
        height = std::max(height, m_preferencesView->heightFor(width));
    }
    return {width, m_header->sizeHint().height() + TextScale::length(*this, kSpacing) + height};
}

bool PanelView::focusNextPrevChild(bool next) {
    // Charts that have been opened since come after it in the order of the Tab key.
    m_undo->moveToEndOfTabOrder();
    return QWidget::focusNextPrevChild(next);
}

void PanelView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isShowingPreferences()) {
        closePreferences();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void PanelView::showPreferences(Qt::FocusReason reason) {
    if (isShowingPreferences()) {
        return;
    }
    if (m_preferencesView == nullptr) {
        m_preferencesView = new PreferencesView(
            m_preferences, [this] { return scheme(); }, this);
        m_language = new LanguageSection(m_preferences, m_preferencesView);
        m_preferencesView->add(m_language);
        m_preferencesView->add(
            new LabelSection(m_preferences, m_environment.appState, m_preferencesView));
        m_preferencesView->add(new LabelCoinsSection(m_preferences, m_preferencesView));
        if (m_environment.alerts != nullptr) {
            m_preferencesView->add(
                new AlertsSection(m_environment, m_preferences, m_preferencesView));
        }
        layout()->addWidget(m_preferencesView);
    }
    closePopup();
    m_focusBefore = window()->focusWidget();
    // What is hidden with the focus would pass it on to whatever comes next.
    setFocus(Qt::PopupFocusReason);
    // Hide the old content first, so that the layout never has to find room for both.
    m_main->hide();
    m_header->setPage(PreferencesView::title());
    m_preferencesView->show();
    m_preferencesView->takeFocus(reason);
    tellOfPreferences(true);
}

void PanelView::closePreferences() {
    if (!isShowingPreferences()) {
        return;
    }
    tellOfPreferences(false);
    setFocus(Qt::PopupFocusReason);
    m_preferencesView->hide();
    m_header->setPage(QString());
    m_main->show();
    if (m_focusBefore != nullptr) {
        m_focusBefore->setFocus(Qt::PopupFocusReason);
    }
}

void PanelView::tellOfPreferences(bool areShown) const {
    if (onPreferences) {
        onPreferences(areShown);
    }
}

bool PanelView::isShowingPreferences() const {
    return m_preferencesView != nullptr && !m_preferencesView->isHidden();
}

void PanelView::buildHeader(QVBoxLayout& stack) {
    m_header = new PanelHeader(m_environment, m_settings, m_quit, this);
    m_header->onCoinAdded = [this](const std::string& symbol, Qt::FocusReason reason) {
        onCoinAdded(symbol, reason);
    };
    m_header->onPreferences = [this](Qt::FocusReason reason) { showPreferences(reason); };
    m_header->onBack = [this] { closePreferences(); };
    m_header->onClose = [this] {
        if (onClose) {
            onClose();
        }
    };
    stack.addWidget(m_header);
}

void PanelView::setStandalone(bool isStandalone) {
    m_isStandalone = isStandalone;
    m_header->setStandalone(isStandalone);
}

void PanelView::showChart(const std::string& symbol) {
    if (!m_environment.appState.watchlist()->contains(symbol)) {
        return;
    }
    closePreferences();
    if (m_tab.board()) {
        m_tab = PanelTab::watchlist();
        m_tabs->setSelection(0);
        showTab();
        m_environment.appState.setLastBoard(std::nullopt);
    }
    m_expandedSymbol.set(symbol);
    m_list->focusCoin(symbol, Qt::OtherFocusReason);
}

void PanelView::buildTabs(QVBoxLayout& stack) {
    std::vector<QString> titles;
    titles.reserve(m_offered.size());
    for (const PanelTab tab : m_offered) {
        titles.push_back(tab.title());
    }
    m_tabs = new UnderlineTabs(titles, kTabsPadding, kUnderlineHeight, m_main);
    m_tabs->onSelect = [this](std::size_t index) {
        m_tab = m_offered[index];
        showTab();
        m_environment.appState.setLastBoard(m_tab.board());
    };
    stack.addWidget(m_tabs);
}

void PanelView::buildList() {
    m_list = new CoinListView(
        m_environment,
        m_expandedSymbol,
        [this](const Coin& coin, QWidget* parent) { return makeDetail(coin, parent); },
        m_main);
}

QWidget* PanelView::makeDetail(const Coin& coin, QWidget* parent) const {
    return new CoinDetailView(m_environment, coin, parent);
}

ColorScheme PanelView::scheme() const {
    return resolvedScheme(m_environment.appState.settings()->appearance, *m_systemScheme);
}

void PanelView::applyTheme() {
    const Preferences& preferences = *m_preferences.preferences();
    ThemeKey::set(*this,
                  {.colors = ThemeColors::of(scheme(), preferences.changeColors),
                   .scale = scaleOf(preferences.textSize)});
}

void PanelView::restoreTab() {
    m_tab = PanelTab(m_environment.appState.settings()->lastBoard);
    const auto found = std::find(m_offered.begin(), m_offered.end(), m_tab);
    m_tabs->setSelection(static_cast<std::size_t>(found - m_offered.begin()));
    showTab();
}

void PanelView::showTab() {
    // Hide the old content first, so that the panel never asks for the height of both.
    m_pinHint->hide();
    if (const auto board = m_tab.board()) {
        m_list->hide();
        showBoard(*board);
    } else {
        if (m_board != nullptr) {
            m_board->hide();
        }
        m_list->show();
    }
    updatePinHint();
}

void PanelView::updatePinHint() {
    const Watchlist& watchlist = *m_environment.appState.watchlist();
    // It speaks of a row.
    m_pinHint->setVisible(!m_tab.board() && !watchlist.coins.empty() && !isPinned(watchlist));
}

void PanelView::onCoinAdded(const std::string& symbol, Qt::FocusReason reason) {
    // The menu key opens the menu of the row with the focus, from which the user pins the coin.
    if (!m_tab.board() && !isPinned(*m_environment.appState.watchlist())) {
        m_list->focusCoin(symbol, reason);
    }
}

void PanelView::showBoard(RankingBoard board) {
    if (m_board == nullptr) {
        m_board = new MarketBoardView(
            m_environment,
            board,
            [this](const Coin& coin, QWidget* parent) { return makeDetail(coin, parent); },
            m_main);
        auto& stack = dynamic_cast<QVBoxLayout&>(*m_main->layout());
        stack.insertWidget(stack.indexOf(m_list) + 1, m_board);
        m_undo->moveToEndOfTabOrder();
    }
    m_board->setBoard(board);
    m_board->show();
}

}  // namespace quillbar
