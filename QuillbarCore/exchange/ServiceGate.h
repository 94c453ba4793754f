// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Time.h"

#include <filesystem>
#include <optional>
#include <string>

namespace quillbar {

/// Keeps away from a service that has asked us to: closed by an answer 429 ("too many requests") or
/// 418 ("banned for going on"), it opens by itself when the time that the service named has passed.
/// Its limits are per address, so one gate stands before all hosts of a service, and it stays closed
/// over a restart of the program. Of two processes with the same file neither shortens the pause of
/// the other. When the clock is set back to before the answer, the pause begins anew.
///
/// Belongs to one thread, which it blocks while it reads or writes its small file.
class ServiceGate final {
public:
    /// Without a Retry-After, or with one that is not a number of seconds.
    static constexpr Seconds kDefaultPause{60};
    /// The longest pauses that a service is believed.
    static constexpr Seconds kLongestPause{3600};
    static constexpr Seconds kLongestBan{3 * 86400};

    /// `service` names it in the log and in its file, "SERVICE-gate.json" in `directory`, which need
    /// not exist. A file that is missing or not understood leaves the gate open, silently.
    ServiceGate(std::string service, const std::filesystem::path& directory, Clock now);

    /// The status with which requests are to be answered while the gate is closed; absent while it
    /// is open. The first call after the time has passed opens it, with a line in the log.
    [[nodiscard]] std::optional<int> closedWith();

    /// Tells of an answer of the service. Closes the gate for 429 and 418, with a line in the log
    /// when it was open; a later answer can only prolong the pause. Does nothing for any other
    /// status.
    void noteAnswer(int status, const std::optional<std::string>& retryAfter);

private:
    struct Closure {
        int status;
        TimePoint closedAt;
        TimePoint until;
    };

    [[nodiscard]] std::optional<Closure> load() const;
    /// What the file holds when that closes the gate for longer than until then.
    [[nodiscard]] std::optional<Closure> storedBeyond(TimePoint until) const;
    void save() const;

    std::string m_service;
    std::filesystem::path m_file;
    Clock m_now;
    Logger m_logger{"ServiceGate"};
    std::optional<Closure> m_closure;
};

}  // namespace quillbar
