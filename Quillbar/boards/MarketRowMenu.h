// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/model/Coin.h"

class QMenu;
class QWidget;

/// The context menu of a coin on a board.
namespace quillbar::MarketRowMenu {

/// Makes the menu. `parent` owns it, and it deletes itself when it closes. It offers to add the
/// coin to the watchlist, or says that it is there. The environment outlives it.
[[nodiscard]] QMenu* make(const ViewEnvironment& environment, const Coin& coin, QWidget* parent);

}  // namespace quillbar::MarketRowMenu
