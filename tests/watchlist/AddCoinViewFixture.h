// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/watchlist/AddCoinView.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Deferred.h"
#include "tests/watchlist/AddCoinFixture.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// The search for a coin, in a window of its own.
struct AddCoinViewFixture : AddCoinFixture {
    static constexpr const char* kHint = "输入币种代号开始搜索";
    static constexpr const char* kSearching = "搜索中…";
    static constexpr const char* kNoMatches = "无匹配结果";
    static constexpr const char* kError = "搜索失败,请检查网络后重试";

    [[nodiscard]] static URLError failure(URLError::Code code) {
        return {code, "the test says so"};
    }

    void show(const std::vector<std::string>& watched = {"BTC"}) {
        startConnected(listOf(watched));
        theExchangeTrades({"SOLV", "BTC", "SOL", "WSOL", "ETH"});
        view = std::make_unique<AddCoinView>(environment(), [this](const std::string& symbol) {
            ++dismissals;
            added = symbol;
        });
        showActive(*view);
        view->setFocus(Qt::PopupFocusReason);
    }

    /// Clicks a coin whose price does not come before `endAdding`.
    void pickOnASlowLine(const std::string& baseAsset) {
        prices = api.ticker24hAnswers.held();
        click(baseAsset);
    }
    void endAdding() {
        prices->setValue({});
        executor.run();
    }

    [[nodiscard]] QWidget& root() const override { return *view; }

    int dismissals = 0;
    // The coin that the last dismissal was told of.
    std::string added;
    std::optional<Deferred<TickerMap>> prices;
    std::unique_ptr<AddCoinView> view;
};

}  // namespace quillbar
