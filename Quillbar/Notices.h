// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Observed.h"

#include <QString>

#include <vector>

namespace quillbar {

/// What the machine or the session lacks, in the order in which it is told.
enum class Notice {
    /// No installed font has Chinese characters.
    noChineseFont,
    /// There is no session bus, so nobody shows an item or passes commands on.
    noSessionBus,
    /// There is a session bus, and still nobody who shows an item.
    noTray,
};

/// What the user is told of the session that the application runs in: things that went missing
/// before there was a panel to say so. Each stands until its reason is gone or the user has read
/// it.
///
/// Lives on the main thread.
class Notices final {
public:
    /// Adding what is there, and removing what is not, changes nothing.
    void add(Notice notice);
    void remove(Notice notice);

    /// Those that stand, in the order of the enumeration.
    [[nodiscard]] const Observed<std::vector<Notice>>& standing() const noexcept {
        return m_standing;
    }

    /// What is wrong and what to do, in a sentence or two. Pure.
    [[nodiscard]] static QString text(Notice notice);

private:
    Observed<std::vector<Notice>> m_standing;
};

}  // namespace quillbar
