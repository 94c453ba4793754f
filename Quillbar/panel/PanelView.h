// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/panel/PanelTab.h"
#include "Quillbar/widgets/Theme.h"
#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QVBoxLayout;

namespace quillbar {

class CoinListView;
class LanguageSection;
class MarketBoardView;
class PanelHeader;
class PreferencesState;
class PreferencesView;
class SettingsMenu;
class UnderlineTabs;
class UndoLine;

/// The content of the panel: the header, the tabs, the lines about what went wrong, and the content
/// of the selected tab; or, below the header, the page of preferences in the place of the rest. It
/// sets the theme of all widgets in it. Its size hint is the size that it wants; with less height,
/// its list shrinks. The page leaves the size as it is, unless it needs more itself.
class PanelView final : public QWidget {
public:
    /// The width at a text size of 100 %, in points. At a larger one the panel wants to be wider in
    /// proportion, and takes this much where the screen has no more.
    static constexpr int kWidth = 400;

    /// `systemScheme` is the desktop's colour scheme. It, the settings, the preferences and the
    /// environment outlive the view. `quit` ends the application; it must not destroy the view
    /// before it returns. The view opens on the tab that was selected last.
    PanelView(const ViewEnvironment& environment,
              const Observed<ColorScheme>& systemScheme,
              SettingsMenu& settings,
              PreferencesState& preferences,
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

    /// Shows the page of preferences, and gives it the focus. `reason` is by what the user asked
    /// for it, as far as a ring tells. Does nothing while the page is shown.
    void showPreferences(Qt::FocusReason reason = Qt::OtherFocusReason);
    /// Shows the tabs again, and gives the focus back. Does nothing while they are shown.
    void closePreferences();
    /// Shows the watchlist with the chart of that coin open, and its row with the focus, whatever
    /// page was shown before. Does nothing for a coin that is not on the list.
    void showChart(const std::string& symbol);

    /// Whether the panel is a window by itself, because there is no item. Its header then drags it
    /// and has a mark that closes it. The default is that it is not.
    void setStandalone(bool isStandalone);
    /// Called when that mark is clicked.
    std::function<void()> onClose;
    /// Called when the page of preferences has taken the place of the rest, and when the rest is
    /// about to come back.
    std::function<void(bool areShown)> onPreferences;

    /// Builds all that is shown anew, for texts that were read in another language. The page and
    /// the tab stay; an open chart closes, and an offer to undo ends. On the page of preferences,
    /// the language that is chosen has the focus then. Must not be called from a widget of the
    /// panel, because it destroys that.
    void renew();

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build(QVBoxLayout& pages);
    void buildHeader(QVBoxLayout& stack);
    void buildTabs(QVBoxLayout& stack);
    void buildList();
    [[nodiscard]] QWidget* makeDetail(const Coin& coin, QWidget* parent) const;
    [[nodiscard]] ColorScheme scheme() const;
    [[nodiscard]] bool isShowingPreferences() const;
    void tellOfPreferences(bool areShown) const;
    void applyTheme();
    void restoreTab();
    void showTab();
    void showBoard(RankingBoard board);
    void updatePinHint();
    void onCoinAdded(const std::string& symbol, Qt::FocusReason reason);

    const ViewEnvironment& m_environment;
    const Observed<ColorScheme>& m_systemScheme;
    SettingsMenu& m_settings;
    PreferencesState& m_preferences;
    std::function<void()> m_quit;
    std::vector<PanelTab> m_offered = PanelTab::allCases();
    PanelTab m_tab = PanelTab::watchlist();
    Observed<std::optional<std::string>> m_expandedSymbol;
    bool m_isStandalone = false;
    // Children, owned by Qt. One view shows all boards; it is made when the first board is opened.
    PanelHeader* m_header = nullptr;
    // All below the header but the page of preferences.
    QWidget* m_main = nullptr;
    PreferencesView* m_preferencesView = nullptr;
    LanguageSection* m_language = nullptr;
    // What had the focus when the page of preferences opened.
    QPointer<QWidget> m_focusBefore;
    UnderlineTabs* m_tabs = nullptr;
    CoinListView* m_list = nullptr;
    MarketBoardView* m_board = nullptr;
    QWidget* m_pinHint = nullptr;
    UndoLine* m_undo = nullptr;
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
