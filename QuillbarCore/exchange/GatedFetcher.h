// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/HTTPDataFetching.h"
#include "QuillbarCore/exchange/ServiceGate.h"

#include <memory>
#include <string>

namespace quillbar {

/// A fetcher behind a service's gate: while that is closed, every request is answered at once with
/// the status that closed it and no body, and nothing is sent. Whoever fetches need not know.
class GatedFetcher final : public HTTPDataFetching {
public:
    GatedFetcher(std::shared_ptr<HTTPDataFetching> fetcher, std::shared_ptr<ServiceGate> gate);

    Task<HTTPResponse> fetch(std::string url) override;

private:
    std::shared_ptr<HTTPDataFetching> m_fetcher;
    std::shared_ptr<ServiceGate> m_gate;
};

}  // namespace quillbar
