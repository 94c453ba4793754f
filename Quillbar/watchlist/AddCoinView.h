// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/watchlist/ListOffer.h"
#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/catalog/CoinNames.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

class QStackedLayout;

namespace quillbar {

class ListOfferView;
class RowList;
class SearchField;

/// The search for a coin to add, for a popover: a field, and below it the coins that match its
/// text, a moment after the last keystroke. Picking a coin adds it to the watchlist and then closes
/// the popover, unless the user has typed something else meanwhile.
///
/// For a text of two names or more, such as "BTC, ETH", there is one row instead, which adds all
/// coins of the list that are not watched yet (`CoinNames` tells how a list is read).
///
/// By the keyboard: Enter in the field picks the first match, and waits for it if the search is
/// still running. The arrow down goes to the matches. There Enter picks a coin, and letters that
/// are typed go to the field.
class AddCoinView final : public QWidget {
public:
    // In points at a text size of 100 %.
    static constexpr int kPopoverWidth = 280;
    static constexpr int kResultListHeight = 200;
    /// How long after the last keystroke a search begins.
    static constexpr Seconds kDebounce{0.3};

    /// What is shown below the field.
    enum class ResultArea {
        error,
        hint,
        /// The search for the text in the field has not ended yet.
        searching,
        noMatches,
        results,
        /// What of a list of names can be added.
        list,
    };

    /// The environment, which has a sleeper, outlives the view. `dismiss` closes the popover that
    /// the view is in; it gets the symbol of the coin that was added, of several the first one. It
    /// is called from the executor's queue, and never after the view was destroyed.
    AddCoinView(const ViewEnvironment& environment,
                std::function<void(const std::string& symbol)> dismiss,
                QWidget* parent = nullptr);

    /// The text in the field, as it was typed.
    [[nodiscard]] QString query() const;
    /// The latest matches, the best first. They stay until another search has ended.
    [[nodiscard]] const std::vector<Coin>& results() const noexcept { return m_results; }
    /// What is offered for the list of names in the field; absent unless the latest search was for
    /// one.
    [[nodiscard]] const std::optional<ListOffer>& offer() const noexcept { return m_offer; }
    /// Why the latest search failed; absent once something else is typed.
    [[nodiscard]] const std::optional<QString>& errorMessage() const noexcept {
        return m_errorMessage;
    }
    [[nodiscard]] ResultArea resultArea() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What is done with what a search finds.
    enum class Purpose { show, showAndPickFirst };

    void makeArea();
    void fitArea();
    [[nodiscard]] RowList* makeRows();
    void updateArea();

    void startSearch(Purpose purpose);
    Task<void> search(std::string query, Purpose purpose);
    void showMatches(std::vector<Coin> matches);
    void showOffer(CoinNames::List list, CoinNames::Found found);
    void show(std::vector<Coin> matches, std::optional<ListOffer> offer);
    void showFailure();

    void pickFirst();
    // Picks those of the coins that are not watched.
    void pick(const std::vector<Coin>& coins);
    // The edit goes on without the view, which may be destroyed before the coins are added.
    static Task<void> addAndDismiss(AppState& state,
                                    std::vector<Coin> coins,
                                    QPointer<AddCoinView> view,
                                    std::uint64_t changes);
    // `changes` is how often the text had changed when the coins were picked.
    void onAdded(const std::vector<Coin>& coins, std::uint64_t changes);
    void onWatchlistChange(const Watchlist& watchlist);

    void onQueryChange();
    void onEnter();
    bool onKeyInRows(const RowList& rows, QKeyEvent& event);
    // The rows that are shown; null while there are none.
    [[nodiscard]] RowList* shownRows() const;
    static void focusFirst(RowList& rows);

    const ViewEnvironment& m_environment;
    std::function<void(const std::string& symbol)> m_dismiss;
    std::vector<Coin> m_results;
    std::optional<ListOffer> m_offer;
    std::optional<QString> m_errorMessage;
    // Whether the latest search has not ended yet.
    bool m_isSearching = false;
    // The symbols for which an edit is under way.
    std::set<std::string> m_picked;
    // How often the text in the field has changed.
    std::uint64_t m_changes = 0;

    SearchField* m_field;
    QStackedLayout* m_area = nullptr;
    RowList* m_rows = nullptr;
    ListOfferView* m_offerView = nullptr;
    Observation m_watchlistObservation;

    TaskScope::Handle m_search;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
