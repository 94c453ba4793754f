// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/HTTPDataFetching.h"

#include <memory>
#include <string>

namespace quillbar {

/// A fetcher for hosts that do not serve every place in the world. To us such a host is one that
/// cannot be reached, and the next one is asked: the public mirror of the market's data serves
/// where the exchange itself may not. Belongs to the executor's thread.
class RegionalFetcher final : public HTTPDataFetching {
public:
    explicit RegionalFetcher(std::shared_ptr<HTTPDataFetching> fetcher);

    /// Throws also `URLError::Code::notServedHere`: the answer is 451, or 403 with a body that says
    /// that the place is the reason. Every other answer is returned.
    Task<HTTPResponse> fetch(std::string url) override;

private:
    std::shared_ptr<HTTPDataFetching> m_fetcher;
};

}  // namespace quillbar
