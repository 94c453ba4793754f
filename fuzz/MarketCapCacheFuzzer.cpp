// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/DocumentRules.h"
#include "fuzz/FuzzTarget.h"
#include "QuillbarCore/market/MarketCapCache.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/TemporaryFolder.h"

#include <cmath>
#include <filesystem>
#include <fstream>

namespace quillbar {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFileName = "market-cap.json";

}  // namespace

void fuzz(std::string_view input) {
    static const TemporaryFolder given;
    static const TemporaryFolder saved;
    const CapturedLog log;
    std::ofstream(given.path() / kFileName, std::ios::binary | std::ios::trunc)
        .write(input.data(), static_cast<std::streamsize>(input.size()));

    const auto snapshot = MarketCapCache(given.path()).load();
    require(log.lines().empty(), "a file that is not understood is passed over silently");
    if (!snapshot) {
        return;
    }
    requireJSON(input);
    require(std::isfinite(snapshot->fetchedAt.time_since_epoch().count()), "a date is a number");

    fs::remove(saved.path() / kFileName);
    const MarketCapCache cache(saved.path(), [&snapshot] { return snapshot->fetchedAt; });
    cache.save(snapshot->entries);
    require(log.lines().empty(), "what was read can be written");
    const auto again = cache.load();
    require(again.has_value() == !snapshot->entries.empty(), "a list is saved unless it is empty");
    if (again) {
        require(again->entries == snapshot->entries, "a list is the same after it was saved");
        // Dates are kept as doubles, and far ones are not exact.
        const double date = snapshot->fetchedAt.time_since_epoch().count();
        const double error = again->fetchedAt.time_since_epoch().count() - date;
        require(std::abs(error) <= std::abs(date) * 1e-15 + 1e-6, "so is its date");
    }
}

}  // namespace quillbar
