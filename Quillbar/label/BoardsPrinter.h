// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapState.h"
#include "QuillbarCore/market/MarketState.h"
#include "QuillbarCore/market/RankedCoin.h"
#include "QuillbarCore/market/RankingBoard.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// One board as plain text: its name, then a line for each row with rank, base asset, price, change
/// over 24 hours and volume, or capitalisation on the market-cap board. Where there is no row,
/// "暂无数据" when it was loaded and "加载行情失败" when not. `note`, where there is one, stands
/// behind the name. Each line ends with a line feed. Pure.
[[nodiscard]] std::string boardText(RankingBoard board,
                                    const std::vector<RankedCoin>& rows,
                                    bool isLoaded,
                                    const std::optional<std::string>& note = {});

/// Prints the market's four boards, once. Lives on the main thread; what it is handed outlives it.
class BoardsPrinter final {
public:
    /// The rows of each board.
    static constexpr int kRows = 10;
    /// How long it waits for the market; what has come by then is printed.
    static constexpr Seconds kPatience{15};
    /// The exit statuses: every board has rows, one has none, or nothing could be printed.
    static constexpr int kSuccess = 0;
    static constexpr int kMissing = 3;
    static constexpr int kNotWritten = 4;

    struct Output {
        /// Writes text that ends with a line feed. Returns false when it cannot be written.
        std::function<bool(std::string_view text)> print;
        /// Ends the program with an exit status. Called once.
        std::function<void(int status)> finish;
    };

    BoardsPrinter(MarketState& market,
                  MarketCapState& marketCaps,
                  Executor& executor,
                  Sleeper sleeper,
                  Output output);
    BoardsPrinter(const BoardsPrinter&) = delete;
    BoardsPrinter& operator=(const BoardsPrinter&) = delete;
    BoardsPrinter(BoardsPrinter&&) = delete;
    BoardsPrinter& operator=(BoardsPrinter&&) = delete;
    ~BoardsPrinter() = default;

    /// Begins to load. Once.
    void start();

private:
    Task<void> load(Task<void> refresh);
    Task<void> giveUp();
    [[nodiscard]] std::vector<RankedCoin> rowsOf(RankingBoard board);
    [[nodiscard]] bool isLoaded(RankingBoard board) const;
    [[nodiscard]] std::optional<std::string> noteOf(RankingBoard board) const;
    void finish();

    MarketState& m_market;
    MarketCapState& m_marketCaps;
    Sleeper m_sleeper;
    Output m_output;
    int m_pendingLoads = 2;
    bool m_isFinished = false;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
