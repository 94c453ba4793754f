// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"

#include <functional>
#include <string>

class QMenu;
class QWidget;

/// The context menu of a watched coin.
namespace quillbar::CoinRowMenu {

/// Makes the menu of the coin of that symbol, for the watchlist as it is now. `parent` owns the
/// menu, which deletes itself when it closes. `restoreManualOrder` is set while the list is sorted:
/// the menu then offers it in place of moving the coin. `openAlerts` opens the coin's price alerts;
/// where it is empty the menu has no entry for them. Choosing an item edits the list as it is at
/// that time, and does nothing if the coin is gone by then.
[[nodiscard]] QMenu* make(const ViewEnvironment& environment,
                          const std::string& symbol,
                          std::function<void()> restoreManualOrder,
                          std::function<void()> openAlerts,
                          QWidget* parent);

}  // namespace quillbar::CoinRowMenu
