// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Observed.h"

#include <QString>

#include <vector>

namespace quillbar {

/// The notices, in the order in which they are shown: first what the machine or the session lacks.
enum class Notice {
    /// No installed font has Chinese characters.
    noChineseFont,
    /// There is no session bus, so no program shows an item, and no commands can be passed on.
    noSessionBus,
    /// There is a session bus, but no program on it shows an item.
    noTray,
    /// The panel opens for the first time ever while the item is in the status area.
    firstStart,
};

/// The notices about the session that the application runs in, each with what to do. A notice is
/// shown until its reason is gone or the user has read it.
///
/// Lives on the main thread.
class Notices final {
public:
    /// Adding a notice that is there, or removing one that is not, changes nothing.
    void add(Notice notice);
    void remove(Notice notice);

    /// The notices that are shown, in the order of the enumeration.
    [[nodiscard]] const Observed<std::vector<Notice>>& standing() const noexcept {
        return m_standing;
    }

    /// What is wrong and what to do, in a sentence or two. Pure.
    [[nodiscard]] static QString text(Notice notice);

private:
    Observed<std::vector<Notice>> m_standing;
};

}  // namespace quillbar
