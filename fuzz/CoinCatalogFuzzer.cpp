// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/Completed.h"
#include "fuzz/DocumentRules.h"
#include "fuzz/FuzzTarget.h"
#include "QuillbarCore/catalog/CoinCatalog.h"
#include "QuillbarCore/exchange/URLError.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeBinanceAPI.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <vector>

namespace quillbar {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFileName = "coin-catalog.json";
constexpr TimePoint kNow{Seconds{1794657600}};

/// The coins of a catalog whose file is in `folder`; absent when it asks an exchange that refuses.
std::optional<std::vector<Coin>> coinsIn(const fs::path& folder) {
    ManualExecutor executor;
    FakeBinanceAPI exchange;
    exchange.exchangeInfoAnswers.otherwiseError(
        URLError(URLError::Code::cannotConnect, "no network"));
    CoinCatalog catalog(executor, exchange, folder, [] { return kNow; });
    try {
        return completed(executor, catalog.allCoins());
    } catch (const URLError&) {
        return std::nullopt;
    }
}

/// Has a catalog fetch these coins and write its file in `folder`.
void save(const fs::path& folder, const std::vector<Coin>& coins) {
    ManualExecutor executor;
    FakeBinanceAPI exchange;
    exchange.exchangeInfoAnswers.otherwise(coins);
    CoinCatalog catalog(executor, exchange, folder, [] { return kNow; });
    require(completed(executor, catalog.allCoins()) == coins, "what was fetched is the catalog");
}

}  // namespace

void fuzz(std::string_view input) {
    static const TemporaryFolder given;
    static const TemporaryFolder saved;
    std::ofstream(given.path() / kFileName, std::ios::binary | std::ios::trunc)
        .write(input.data(), static_cast<std::streamsize>(input.size()));

    const auto coins = coinsIn(given.path());
    if (!coins) {
        return;
    }
    requireJSON(input);

    const CapturedLog log;
    fs::remove(saved.path() / kFileName);
    save(saved.path(), *coins);
    require(log.lines().empty(), "what was read can be written");
    require(coinsIn(saved.path()) == coins, "a catalog is the same after it was saved");
}

}  // namespace quillbar
