// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/FakeConnection.h"

#include <fmt/format.h>

#include <utility>

namespace quillbar {

AsyncStream<std::string> FakeConnection::connect(const std::string& url) {
    urls.push_back(url);
    auto [stream, source] = AsyncStream<std::string>::make();
    m_source = std::move(source);
    return std::move(stream);
}

void FakeConnection::cancel() {
    ++cancelCount;
    fail("cancelled", URLError::Code::cancelled);
}

void FakeConnection::message(std::string bytes) {
    m_source->push(std::move(bytes));
}

void FakeConnection::frame(const std::string& symbol, const std::string& lastPrice) {
    message(miniTickerFrame(symbol, lastPrice));
}

void FakeConnection::closeByServer() {
    m_source->finish();
}

void FakeConnection::fail(const std::string& text, URLError::Code code) {
    if (m_source) {
        m_source->fail(URLError(code, text));
    }
}

bool FakeConnection::isRead() const {
    return m_source && !m_source->isTerminated();
}

std::function<std::shared_ptr<WebSocketConnecting>()> FakeConnections::factory() {
    return [this] {
        made.push_back(std::make_shared<FakeConnection>());
        return made.back();
    };
}

std::string miniTickerFrame(const std::string& symbol, const std::string& lastPrice) {
    return fmt::format(
        R"({{"stream":"any@miniTicker","data":{{"s":"{}","c":"{}","o":"100","q":"5000"}}}})",
        symbol,
        lastPrice);
}

}  // namespace quillbar
