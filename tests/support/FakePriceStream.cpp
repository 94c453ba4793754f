// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/FakePriceStream.h"

namespace quillbar {

FakePriceStream::FakePriceStream()
    : FakePriceStream(AsyncStream<PriceEvent>::make()) {}

FakePriceStream::FakePriceStream(std::pair<AsyncStream<PriceEvent>, StreamSource<PriceEvent>> ends)
    : m_events(std::move(ends.first))
    , m_source(std::move(ends.second)) {}

Task<void> FakePriceStream::setSymbols(std::vector<std::string> symbols) {
    symbolLists.push_back(std::move(symbols));
    co_return;
}

Task<void> FakePriceStream::stop() {
    ++stopCount;
    co_return;
}

void FakePriceStream::ticker(std::string symbol, Ticker ticker) {
    m_source.push(TickerEvent{std::move(symbol), ticker});
}

void FakePriceStream::state(ConnectionState state) {
    m_source.push(StateEvent{state});
}

}  // namespace quillbar
