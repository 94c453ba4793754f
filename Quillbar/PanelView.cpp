// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/PanelView.h"

#include "Quillbar/CoinDetailView.h"
#include "Quillbar/CoinListView.h"
#include "Quillbar/ConnectionBanner.h"
#include "Quillbar/ErrorLine.h"
#include "Quillbar/NoticeLines.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/ThemedLabel.h"
#include "Quillbar/UnderlineTabs.h"

#include <QVBoxLayout>

#include <algorithm>

namespace quillbar {

namespace {

constexpr int kSpacing = 8;
constexpr int kHeaderHorizontalPadding = 12;
constexpr int kHeaderVerticalPadding = 8;
constexpr double kTitleFontSize = 13;
constexpr int kTabsPadding = 8;
constexpr double kUnderlineHeight = 1.5;

}  // namespace

PanelView::PanelView(const ViewEnvironment& environment,
                     const Observed<ColorScheme>& systemScheme,
                     QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_systemScheme(systemScheme) {
    setFixedWidth(kWidth);
    applyTheme();
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(kSpacing);
    buildHeader(*stack);
    buildTabs(*stack);
    stack->addWidget(new ErrorLine(environment.appState, this));
    stack->addWidget(new NoticeLines(environment.notices, this));
    stack->addWidget(new ConnectionBanner(environment.appState, this));
    buildContent(*stack);

    m_observations.push_back(environment.appState.settings().observe(
        [this](const AppSettings& /*settings*/) { applyTheme(); }));
    m_observations.push_back(
        systemScheme.observe([this](ColorScheme /*scheme*/) { applyTheme(); }));
}

PanelView::~PanelView() = default;

std::vector<PanelTab> PanelView::tabs() {
    return {PanelTab::watchlist()};
}

QSize PanelView::sizeHint() const {
    // Only with the line that may wrap does the layout depend on the width.
    const QLayout& stack = *layout();
    return {
        kWidth,
        stack.hasHeightForWidth() ? stack.totalHeightForWidth(kWidth) : stack.sizeHint().height()};
}

void PanelView::showEvent(QShowEvent* event) {
    restoreTab();
    QWidget::showEvent(event);
}

void PanelView::buildHeader(QVBoxLayout& stack) {
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
    stack.addLayout(header);
}

void PanelView::buildTabs(QVBoxLayout& stack) {
    std::vector<QString> titles;
    for (const PanelTab tab : tabs()) {
        titles.push_back(tab.title());
    }
    m_tabs = new UnderlineTabs(titles, kTabsPadding, kUnderlineHeight, this);
    m_tabs->onSelect = [this](std::size_t index) {
        m_tab = tabs()[index];
        m_environment.appState.setLastBoard(m_tab.board());
    };
    stack.addWidget(m_tabs);
}

void PanelView::buildContent(QVBoxLayout& stack) {
    auto* const list = new CoinListView(
        m_environment,
        m_expandedSymbol,
        [this](const Coin& coin, QWidget* parent) -> QWidget* {
            return new CoinDetailView(m_environment, coin, parent);
        },
        this);
    stack.addWidget(list);
}

void PanelView::applyTheme() {
    const ColorScheme scheme =
        resolvedScheme(m_environment.appState.settings()->appearance, *m_systemScheme);
    ThemeKey::set(*this, {.colors = ThemeColors::of(scheme)});
}

void PanelView::restoreTab() {
    const std::vector<PanelTab> offered = tabs();
    const PanelTab last(m_environment.appState.settings()->lastBoard);
    const auto found = std::find(offered.begin(), offered.end(), last);
    const auto index = found == offered.end() ? 0 : found - offered.begin();
    m_tabs->setSelection(static_cast<std::size_t>(index));
    m_tab = offered[static_cast<std::size_t>(index)];
}

}  // namespace quillbar
