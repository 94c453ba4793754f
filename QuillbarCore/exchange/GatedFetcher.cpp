// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/GatedFetcher.h"

#include "QuillbarCore/exchange/URLError.h"

#include <exception>
#include <utility>
#include <variant>

namespace quillbar {

namespace {

HTTPResponse withoutBody(int status) {
    HTTPResponse response;
    response.status = status;
    return response;
}

// Repeats the failure: returns its answer or throws its error.
HTTPResponse repeated(const HostBreakers::Failure& failure) {
    if (const auto* const error = std::get_if<std::exception_ptr>(&failure)) {
        std::rethrow_exception(*error);
    }
    return withoutBody(std::get<int>(failure));
}

bool isServerError(int status) {
    return status >= 500 && status <= 599;
}

bool isOfTheHost(const URLError& error) {
    return error.code() != URLError::Code::cancelled && error.code() != URLError::Code::badURL;
}

}  // namespace

GatedFetcher::GatedFetcher(std::shared_ptr<HTTPDataFetching> fetcher,
                           std::shared_ptr<ServiceGate> gate,
                           HostBreakers breakers)
    : m_fetcher(std::move(fetcher))
    , m_gate(std::move(gate))
    , m_breakers(std::move(breakers)) {}

Task<HTTPResponse> GatedFetcher::fetch(std::string url) {
    if (const auto status = m_gate->closedWith()) {
        co_return withoutBody(*status);
    }
    if (const auto failure = m_breakers.refusal(url)) {
        co_return repeated(*failure);
    }
    HostBreakers::Attempt attempt = m_breakers.begin(url);
    HTTPResponse response;
    try {
        response = co_await m_fetcher->fetch(std::move(url));
    } catch (const URLError& error) {
        if (isOfTheHost(error)) {
            attempt.failed(std::current_exception());
        }
        throw;
    }
    m_gate->noteAnswer(response.status, response.retryAfter);
    if (isServerError(response.status)) {
        attempt.failed(response.status);
    } else {
        attempt.succeeded();
    }
    co_return response;
}

}  // namespace quillbar
