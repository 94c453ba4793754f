// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/PanelTab.h"
#include "Quillbar/Theme.h"
#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QVBoxLayout;

namespace quillbar {

class CoinListView;
class MarketBoardView;
class SettingsMenu;
class UnderlineTabs;

/// All that drops down from the item: the header, the tabs, what went wrong,
/// and the selected tab's content. It decides the palette of everything in it.
/// Its size hint is the size it wants; given less height, its list shrinks.
class PanelView final : public QWidget {
public:
    static constexpr int kWidth = 400;

    /// `systemScheme` is the desktop's; it, the settings and the environment outlive the view.
    /// `quit` ends the application, and destroys nothing inline. Opens on the tab of last time.
    PanelView(const ViewEnvironment& environment,
              const Observed<ColorScheme>& systemScheme,
              SettingsMenu& settings,
              std::function<void()> quit,
              QWidget* parent = nullptr);
    PanelView(const PanelView&) = delete;
    PanelView& operator=(const PanelView&) = delete;
    PanelView(PanelView&&) = delete;
    PanelView& operator=(PanelView&&) = delete;
    ~PanelView() override;

    [[nodiscard]] PanelTab tab() const { return m_tab; }

    /// The symbol of the watchlist row whose chart is open.
    [[nodiscard]] const Observed<std::optional<std::string>>& expandedSymbol() const noexcept {
        return m_expandedSymbol;
    }

    [[nodiscard]] QSize sizeHint() const override;

private:
    void buildHeader(QVBoxLayout& stack, SettingsMenu& settings, std::function<void()> quit);
    void buildTabs(QVBoxLayout& stack);
    void buildList();
    [[nodiscard]] QWidget* makeDetail(const Coin& coin, QWidget* parent) const;
    void applyTheme();
    void restoreTab();
    void showTab();
    void showBoard(RankingBoard board);

    const ViewEnvironment& m_environment;
    const Observed<ColorScheme>& m_systemScheme;
    std::vector<PanelTab> m_offered = PanelTab::allCases();
    PanelTab m_tab = PanelTab::watchlist();
    Observed<std::optional<std::string>> m_expandedSymbol;
    // Children, owned by Qt. One view shows every board; there is none before the first.
    UnderlineTabs* m_tabs = nullptr;
    CoinListView* m_list = nullptr;
    MarketBoardView* m_board = nullptr;
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
