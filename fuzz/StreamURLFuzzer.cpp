// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/Completed.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/Lines.h"
#include "QuillbarCore/exchange/PriceStreamClient.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeConnection.h"

#include <memory>
#include <string>
#include <vector>

namespace quillbar {

namespace {

constexpr const char* kBase = "wss://stream.example:9443";
constexpr std::string_view kLowerCase = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::string_view kSymbolCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

bool isValid(const std::string& symbol) {
    return !symbol.empty() && symbol.find_first_not_of(kSymbolCharacters) == std::string::npos;
}

/// Takes the address apart again: the streams' names after the base.
void requireNames(const std::string& url, const std::vector<std::string>& symbols) {
    const std::string head = std::string(kBase) + "/stream?streams=";
    require(url.starts_with(head), "the address begins with base and path");
    std::string_view rest = std::string_view(url).substr(head.size());
    for (std::size_t index = 0; index < symbols.size(); ++index) {
        require(index == 0 || rest.starts_with('/'), "a slash stands between two streams");
        rest.remove_prefix(index == 0 ? 0 : 1);
        const std::string_view name = rest.substr(0, rest.find('@'));
        require(name.size() == symbols[index].size()
                    && name.find_first_not_of(kLowerCase) == std::string_view::npos,
                "a stream's name is the symbol in lower case");
        for (std::size_t place = 0; place < name.size(); ++place) {
            require((name[place] | ' ') == (symbols[index][place] | ' '),
                    "a stream's name is the symbol's");
        }
        rest.remove_prefix(name.size());
        require(rest.starts_with("@miniTicker"), "a stream is a mini ticker's");
        rest.remove_prefix(std::string_view("@miniTicker").size());
    }
    require(rest.empty(), "nothing follows the streams");
}

}  // namespace

/// Each line is a symbol of the watchlist.
void fuzz(std::string_view input) {
    const std::vector<std::string> symbols = linesOf(input);
    std::vector<std::string> valid;
    for (const std::string& symbol : symbols) {
        if (isValid(symbol)) {
            valid.push_back(symbol);
        }
    }

    const CapturedLog log;
    ManualExecutor executor;
    ManualTime time(executor);
    FakeConnections connections;
    PriceStreamClient stream(executor,
                             connections.factory(),
                             ReconnectPolicy{Seconds(1), Seconds(60)},
                             time.sleeper(),
                             Seconds(30),
                             time.clock(),
                             std::make_shared<EndpointSelector>(std::vector<std::string>{kBase}));
    {
        TaskScope scope(executor);
        scope.spawn(stream.setSymbols(symbols));
        executor.run();
    }

    require(log.lines("PriceStream").size() == symbols.size() - valid.size(),
            "each symbol that is left out is logged");
    require(connections.made.empty() == valid.empty(), "nothing is opened for no symbols");
    if (!valid.empty()) {
        require(connections.last().urls.size() == 1, "a connection is opened once");
        requireNames(connections.last().urls.front(), valid);
    }
}

}  // namespace quillbar
