// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/login/LoginItemService.h"
#include "Quillbar/login/LoginSession.h"
#include "QuillbarCore/runtime/FileOperations.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace quillbar {

/// The application's entry among the programs that the desktop starts at login: a desktop entry in
/// the user's autostart folder, as freedesktop.org's Autostart Specification has it.
///
/// The entry belongs to the user as much as to this program. One that this program wrote ends with
/// the key X-Quillbar-Checksum, over all that stands before it: so an entry without that key is
/// known to be somebody else's (a settings program's, an administrator's), and one whose checksum
/// does not hold to be edited, whichever version wrote it. Neither is ever replaced.
///
/// A system-wide entry holds where the user has none. To take that back, an entry that hides it is
/// written for the user; a desktop's settings can switch that one on again.
class AutostartEntry final : public LoginItemService {
public:
    /// As the desktop file, so that desktops know whose entry it is.
    static constexpr std::string_view kFileName = "io.github.quillbar.Quillbar.desktop";

    /// Touches no file. `operations` outlives this.
    explicit AutostartEntry(LoginSession session,
                            FileOperations& operations = FileOperations::system());

    /// Makes the next login start the program of the session. An entry that the user's desktop has
    /// switched off stays as it is, so that the status is `requiresApproval` afterwards; one that
    /// starts the application already, too. An unedited entry of ours is brought up to date.
    ///
    /// Throws when the entry cannot be written, when the user has no folder for it, when no entry
    /// can hold the program's path, and when somebody else's or an edited entry is in the way,
    /// which starts nothing.
    void registerItem() override;

    /// Removes the entry, an edited one of ours too; where the system has an entry that starts the
    /// program, one that hides it takes its place. Throws when the entry cannot be removed or
    /// written, when it was not written by this program, and when it is edited, starts the program,
    /// and would have to be replaced by one that hides the system's.
    void unregisterItem() override;

    /// Requires approval: the entry is hidden, not for this desktop, bound to a condition on a file
    /// that is not met, or switched off by a key that desktops use for it. Not found: what it
    /// starts is not an executable file, or desktops cannot read the entry. A system-wide entry
    /// that starts nothing counts as none.
    [[nodiscard]] LoginItemStatus status() const override;

    /// The user's entry, whether or not it is there; empty when the user has no folder for it.
    [[nodiscard]] const std::filesystem::path& path() const noexcept { return m_path; }

private:
    [[nodiscard]] bool isStartedBySystem() const;
    void write(std::string_view bytes);
    void remove();

    LoginSession m_session;
    FileOperations& m_operations;
    std::filesystem::path m_path;
};

}  // namespace quillbar
