// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ViewEnvironment.h"

#include <functional>
#include <string>

class QMenu;
class QWidget;

/// The context menu of a watched coin.
namespace quillbar::CoinRowMenu {

/// Makes the menu of the coin of that symbol as the watchlist stands; `parent` owns it, and it goes
/// when it closes. `restoreManualOrder` is set while the list is sorted: the menu then offers that
/// in place of moving the coin. An edit is of the list as it stands when its item is chosen, and
/// nothing is done for a coin that has gone by then.
[[nodiscard]] QMenu* make(const ViewEnvironment& environment,
                          const std::string& symbol,
                          std::function<void()> restoreManualOrder,
                          QWidget* parent);

}  // namespace quillbar::CoinRowMenu
