// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/MenuEntry.h"

#include <functional>
#include <vector>

class QAction;
class QMenu;

namespace quillbar {

/// Makes `menu` show these entries instead of its own. `clicked` is called with the id of each
/// action that is chosen. It is kept as long as these entries.
void fillMenu(QMenu& menu,
              const std::vector<MenuEntry>& entries,
              const std::function<void(int id)>& clicked);

/// The kind of the entry that an action of such a menu shows; `action` for any other action.
[[nodiscard]] MenuEntry::Kind entryKindOf(const QAction& action);

}  // namespace quillbar
