// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/PriceStreaming.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// A price stream that records what it is asked and tells what the test says.
class FakePriceStream final : public PriceStreaming {
public:
    FakePriceStream();

    AsyncStream<PriceEvent>& events() override { return m_events; }
    const Observed<std::optional<ConnectionFailure>>& failure() const override { return m_failure; }
    Task<void> setSymbols(std::vector<std::string> symbols) override;
    Task<void> stop() override;

    /// Tells of a price.
    void ticker(std::string symbol, Ticker ticker);
    /// Tells of a state.
    void state(ConnectionState state);
    /// Tells why the last attempt failed.
    void fails(ConnectionFailure failure) { m_failure.set(failure); }
    /// Tells that a connection delivers again.
    void recovers() { m_failure.set(std::nullopt); }
    /// Ends the events.
    void finish() { m_source.finish(); }
    /// Whether nobody listens any more.
    [[nodiscard]] bool isAbandoned() const { return m_source.isTerminated(); }

    // What was asked, in order.
    std::vector<std::vector<std::string>> symbolLists;
    int stopCount = 0;

private:
    explicit FakePriceStream(std::pair<AsyncStream<PriceEvent>, StreamSource<PriceEvent>> ends);

    AsyncStream<PriceEvent> m_events;
    StreamSource<PriceEvent> m_source;
    Observed<std::optional<ConnectionFailure>> m_failure;
};

}  // namespace quillbar
