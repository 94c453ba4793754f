// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/PanelView.h"

#include "Quillbar/AddCoinButton.h"
#include "Quillbar/CoinDetailView.h"
#include "Quillbar/CoinListView.h"
#include "Quillbar/ConnectionBanner.h"
#include "Quillbar/ErrorLine.h"
#include "Quillbar/MarketBoardView.h"
#include "Quillbar/NoticeLines.h"
#include "Quillbar/SettingsButton.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/ThemedLabel.h"
#include "Quillbar/UnderlineTabs.h"

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

constexpr int kSpacing = 8;
constexpr int kHeaderHorizontalPadding = 12;
constexpr int kHeaderVerticalPadding = 8;
constexpr int kHeaderSpacing = 4;
constexpr double kTitleFontSize = 13;
constexpr int kTabsPadding = 8;
constexpr double kUnderlineHeight = 1.5;

}  // namespace

PanelView::PanelView(const ViewEnvironment& environment,
                     const Observed<ColorScheme>& systemScheme,
                     SettingsMenu& settings,
                     std::function<void()> quit,
                     QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_systemScheme(systemScheme) {
    setFixedWidth(kWidth);
    applyTheme();
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(kSpacing);
    buildHeader(*stack, settings, std::move(quit));
    buildTabs(*stack);
    stack->addWidget(new ErrorLine(environment.appState, this));
    stack->addWidget(new NoticeLines(environment.notices, this));
    stack->addWidget(new ConnectionBanner(environment.appState, this));
    buildList();
    stack->addWidget(m_list);
    restoreTab();

    m_observations.push_back(environment.appState.settings().observe(
        [this](const AppSettings& /*settings*/) { applyTheme(); }));
    m_observations.push_back(
        systemScheme.observe([this](ColorScheme /*scheme*/) { applyTheme(); }));
}

PanelView::~PanelView() = default;

QSize PanelView::sizeHint() const {
    // Only with the line that may wrap does the layout depend on the width.
    const QLayout& stack = *layout();
    return {
        kWidth,
        stack.hasHeightForWidth() ? stack.totalHeightForWidth(kWidth) : stack.sizeHint().height()};
}

void PanelView::buildHeader(QVBoxLayout& stack,
                            SettingsMenu& settings,
                            std::function<void()> quit) {
    auto* const header = new QHBoxLayout;
    header->setContentsMargins(kHeaderHorizontalPadding,
                               kHeaderVerticalPadding,
                               kHeaderHorizontalPadding,
                               kHeaderVerticalPadding);
    auto* const title = new ThemedLabel(
        systemFont(kTitleFontSize, QFont::DemiBold), &ThemeColors::Resolved::primaryText, this);
    title->setText(QStringLiteral("Quillbar"));
    header->addWidget(title);
    header->addStretch();
    header->setSpacing(kHeaderSpacing);
    header->addWidget(new AddCoinButton(m_environment, this));
    header->addWidget(new SettingsButton(settings, std::move(quit), this));
    stack.addLayout(header);
}

void PanelView::buildTabs(QVBoxLayout& stack) {
    std::vector<QString> titles;
    titles.reserve(m_offered.size());
    for (const PanelTab tab : m_offered) {
        titles.push_back(tab.title());
    }
    m_tabs = new UnderlineTabs(titles, kTabsPadding, kUnderlineHeight, this);
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
        this);
}

QWidget* PanelView::makeDetail(const Coin& coin, QWidget* parent) const {
    return new CoinDetailView(m_environment, coin, parent);
}

void PanelView::applyTheme() {
    const ColorScheme scheme =
        resolvedScheme(m_environment.appState.settings()->appearance, *m_systemScheme);
    ThemeKey::set(*this, {.colors = ThemeColors::of(scheme)});
}

void PanelView::restoreTab() {
    m_tab = PanelTab(m_environment.appState.settings()->lastBoard);
    const auto found = std::find(m_offered.begin(), m_offered.end(), m_tab);
    m_tabs->setSelection(static_cast<std::size_t>(found - m_offered.begin()));
    showTab();
}

void PanelView::showTab() {
    // What goes is hidden first, so that the panel never asks for room for both.
    if (const auto board = m_tab.board()) {
        m_list->hide();
        showBoard(*board);
    } else {
        if (m_board != nullptr) {
            m_board->hide();
        }
        m_list->show();
    }
}

void PanelView::showBoard(RankingBoard board) {
    if (m_board == nullptr) {
        m_board = new MarketBoardView(
            m_environment,
            board,
            [this](const Coin& coin, QWidget* parent) { return makeDetail(coin, parent); },
            this);
        layout()->addWidget(m_board);
    }
    m_board->setBoard(board);
    m_board->show();
}

}  // namespace quillbar
