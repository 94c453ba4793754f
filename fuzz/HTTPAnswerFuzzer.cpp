// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzTarget.h"
#include "fuzz/LoopbackServer.h"
#include "QuillbarCore/exchange/URLSessionFetcher.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/qtsupport/SpinUntil.h"

namespace quillbar {

namespace {

constexpr TransferLimits kLimits{.withoutProgress = std::chrono::milliseconds{2'000},
                                 .bodySize = std::size_t{64} * 1024};

void requireSound(const HTTPResponse& response) {
    require(response.body.size() <= kLimits.bodySize, "no body is larger than what is accepted");
    require(response.status >= 100 && response.status <= 999, "a status has three digits");
}

Task<void> fetch(std::string url, bool& isOver) {
    URLSessionFetcher fetcher(kLimits);
    try {
        const HTTPResponse response = co_await fetcher.fetch(std::move(url));
        requireSound(response);
    } catch (const URLError& error) {
        requireSound(error);
    }
    isOver = true;
}

}  // namespace

/// The input is what a server answers to a request, whatever that is.
void fuzz(std::string_view input) {
    Executor& executor = loopbackExecutor();
    static auto& server = *new LoopbackServer;
    const LoopbackServer::Manner manner = mannerOf(input);
    QByteArray answer(input.data(), static_cast<qsizetype>(input.size()));
    server.setAnswer([&answer](const QByteArray& /*request*/) { return answer; }, manner);
    bool isOver = false;
    TaskScope scope(executor);
    scope.spawn(fetch("http://" + server.address() + "/", isOver));
    require(spinUntil([&isOver] { return isOver; }), "every fetch ends");
    spinUntilIdle();
}

}  // namespace quillbar
