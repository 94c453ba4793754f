// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/HTTPDataFetching.h"

#include <memory>
#include <string>

namespace quillbar {

/// A fetcher for hosts that do not serve every region. It reports such a refusal as a transport
/// error, so that the next host is asked: the public mirror of the market's data also serves
/// regions that the exchange itself may not serve. Belongs to the executor's thread.
class RegionalFetcher final : public HTTPDataFetching {
public:
    explicit RegionalFetcher(std::shared_ptr<HTTPDataFetching> fetcher);

    /// Also throws `URLError::Code::notServedHere`, for a 451 and for a 403 whose body names the
    /// region as the reason. Every other answer is returned.
    Task<HTTPResponse> fetch(std::string url) override;

private:
    std::shared_ptr<HTTPDataFetching> m_fetcher;
};

}  // namespace quillbar
