// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/HostBreakers.h"
#include "QuillbarCore/exchange/HTTPDataFetching.h"
#include "QuillbarCore/exchange/ServiceGate.h"

#include <memory>
#include <string>

namespace quillbar {

/// A fetcher behind a service's gate: while that is closed, every request is answered at once with
/// the status that closed it and no body, and nothing is sent. Behind the gate each host has a
/// pause of its own when it fails again and again: with a transport error, or with a status from
/// 500 to 599. Meanwhile its requests fail at once as the last one did. Whoever fetches need not
/// know.
class GatedFetcher final : public HTTPDataFetching {
public:
    GatedFetcher(std::shared_ptr<HTTPDataFetching> fetcher,
                 std::shared_ptr<ServiceGate> gate,
                 HostBreakers breakers);

    Task<HTTPResponse> fetch(std::string url) override;

    /// Asks every host again at once; the service's gate stays as it is.
    void forgetFailures() { m_breakers.forget(); }

private:
    std::shared_ptr<HTTPDataFetching> m_fetcher;
    std::shared_ptr<ServiceGate> m_gate;
    HostBreakers m_breakers;
};

}  // namespace quillbar
