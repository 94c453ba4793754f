// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/GatedFetcher.h"

#include <utility>

namespace quillbar {

GatedFetcher::GatedFetcher(std::shared_ptr<HTTPDataFetching> fetcher,
                           std::shared_ptr<ServiceGate> gate)
    : m_fetcher(std::move(fetcher))
    , m_gate(std::move(gate)) {}

Task<HTTPResponse> GatedFetcher::fetch(std::string url) {
    if (const auto status = m_gate->closedWith()) {
        HTTPResponse refusal;
        refusal.status = *status;
        co_return refusal;
    }
    HTTPResponse response = co_await m_fetcher->fetch(std::move(url));
    m_gate->noteAnswer(response.status, response.retryAfter);
    co_return response;
}

}  // namespace quillbar
