// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/HTTPDataFetching.h"
#include "tests/support/ScriptedAnswers.h"

#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// A fetcher that records the URLs it is asked for and answers what the test has scripted; without
/// a script it answers status 0 with an empty body.
class FakeFetcher final : public HTTPDataFetching {
public:
    Task<HTTPResponse> fetch(std::string url) override {
        requests.push_back(std::move(url));
        HTTPResponse response = co_await answers.next();
        co_return response;
    }

    /// Scripts a status and a body.
    void answer(int status, std::string body = {}) {
        HTTPResponse response;
        response.status = status;
        response.body = std::move(body);
        answers.value(std::move(response));
    }

    /// Scripts an error.
    template <class Error>
    void fail(Error error) {
        answers.error(std::move(error));
    }

    std::vector<std::string> requests;
    ScriptedAnswers<HTTPResponse> answers;
};

}  // namespace quillbar
