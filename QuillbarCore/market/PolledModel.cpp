// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/PolledModel.h"

#include "QuillbarCore/exchange/URLError.h"

#include <exception>
#include <string>
#include <utility>

namespace quillbar {

namespace {

// Clears `isLoading` when a refresh ends, even if it is destroyed while it waits.
class LoadingEnd {
public:
    explicit LoadingEnd(Observed<bool>& isLoading)
        : m_isLoading(isLoading) {}
    LoadingEnd(const LoadingEnd&) = delete;
    LoadingEnd& operator=(const LoadingEnd&) = delete;
    LoadingEnd(LoadingEnd&&) = delete;
    LoadingEnd& operator=(LoadingEnd&&) = delete;
    ~LoadingEnd() { m_isLoading.set(false); }

private:
    Observed<bool>& m_isLoading;
};

bool isCancelledTransfer(const std::exception& error) {
    const auto* const transport = dynamic_cast<const URLError*>(&error);
    return transport != nullptr && transport->code() == URLError::Code::cancelled;
}

}  // namespace

PolledModel::PolledModel(Clock now, PollingLoop& polling)
    : m_now(std::move(now))
    , m_polling(polling) {}

std::optional<Seconds> PolledModel::dataAge() const {
    if (!*m_lastUpdate) {
        return std::nullopt;
    }
    return m_now() - **m_lastUpdate;
}

Task<void> PolledModel::run(Shown shown, Task<Outcome> load, std::string_view what, Logger logger) {
    m_isLoading.set(shown == Shown::nothing);
    const LoadingEnd end(m_isLoading);
    std::optional<std::string> failure;
    try {
        const Outcome outcome = co_await std::move(load);
        if (outcome == Outcome::succeeded) {
            m_loadFailed.set(false);
        }
    } catch (const std::exception& error) {
        if (!isCancelledTransfer(error)) {
            failure = error.what();
        }
    }
    // An error that occurred before the refresh was cancelled still arrives here.
    const bool isCancelled = co_await IsCancelled();
    if (failure && !isCancelled) {
        logger.error("{} failed: {}", what, *failure);
        m_loadFailed.set(true);
    }
}

}  // namespace quillbar
