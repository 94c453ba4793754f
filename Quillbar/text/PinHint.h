// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/Translated.h"

#include <QString>

namespace quillbar {

/// The hint for users without a pinned coin: how to get a price into the item. It names the entry
/// of a coin's menu.
[[nodiscard]] inline QString pinHint() {
    return translated("text", "右键任一币种，固定到菜单栏");
}

}  // namespace quillbar
