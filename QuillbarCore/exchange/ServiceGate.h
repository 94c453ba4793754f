// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Time.h"

#include <filesystem>
#include <optional>
#include <string>

namespace quillbar {

/// Stops requests to a service that has asked for a pause. An answer 429 ("too many requests") or
/// 418 ("banned for going on") closes the gate. It opens by itself when the time that the service
/// named has passed. The service's limits are per IP address, so one gate stands before all its
/// hosts and stays closed over a restart of the program. Two processes with the same file do not
/// shorten each other's pause. When the clock is set back to before the answer, the pause begins
/// anew.
///
/// Belongs to one thread, which it blocks while it reads or writes its small file.
class ServiceGate final {
public:
    /// The pause after an answer without a Retry-After, or with one that is not a number of
    /// seconds.
    static constexpr Seconds kDefaultPause{60};
    /// A longer pause or ban that a service asks for is shortened to this.
    static constexpr Seconds kLongestPause{3600};
    static constexpr Seconds kLongestBan{3 * 86400};

    /// `service` names it in the log and in its file, "SERVICE-gate.json" in `directory`, which
    /// need not exist. A file that is missing or not understood leaves the gate open, silently.
    ServiceGate(std::string service, const std::filesystem::path& directory, Clock now);

    /// The status with which requests are to be answered while the gate is closed; absent while it
    /// is open. The first call after the time has passed opens it, with a line in the log.
    [[nodiscard]] std::optional<int> closedWith();

    /// Takes note of an answer of the service. 429 and 418 close the gate, with a line in the log
    /// if it was open; a later answer can only prolong the pause. Does nothing for any other
    /// status.
    void noteAnswer(int status, const std::optional<std::string>& retryAfter);

private:
    struct Closure {
        int status;
        TimePoint closedAt;
        TimePoint until;
    };

    [[nodiscard]] std::optional<Closure> load() const;
    /// The closure in the file, if it lasts longer than `until`.
    [[nodiscard]] std::optional<Closure> storedBeyond(TimePoint until) const;
    void save() const;

    std::string m_service;
    std::filesystem::path m_file;
    Clock m_now;
    Logger m_logger{"ServiceGate"};
    std::optional<Closure> m_closure;
};

}  // namespace quillbar
