// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapEntry.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Time.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace quillbar {

/// The last good list of market capitalisations, on disk, so that a restart shows the board at
/// once. A small value; blocks the caller.
class MarketCapCache final {
public:
    struct Snapshot {
        TimePoint fetchedAt{};
        std::vector<MarketCapEntry> entries;

        [[nodiscard]] bool operator==(const Snapshot&) const = default;
    };

    /// The file is "market-cap.json" in `directory`, which need not exist.
    explicit MarketCapCache(const std::filesystem::path& directory, Clock now = systemClock());

    /// What the file holds, however old; absent, silently, when it cannot be read or understood.
    [[nodiscard]] std::optional<Snapshot> load() const;

    /// Writes the entries with the current instant; does nothing for none. A failure is logged.
    void save(const std::vector<MarketCapEntry>& entries) const;

private:
    std::filesystem::path m_file;
    Clock m_now;
    Logger m_logger{"MarketCapCache"};
};

}  // namespace quillbar
