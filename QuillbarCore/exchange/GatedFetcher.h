// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/HostBreakers.h"
#include "QuillbarCore/exchange/HTTPDataFetching.h"
#include "QuillbarCore/exchange/ServiceGate.h"

#include <memory>
#include <string>

namespace quillbar {

/// A fetcher behind a service's gate. While the gate is closed nothing is sent: every request is
/// answered at once, with the status that closed the gate and without a body. Behind the gate, each
/// host that fails again and again (a transport error, or a status from 500 to 599) gets a pause of
/// its own, during which its requests fail at once like the last one. Callers need not know of
/// this.
class GatedFetcher final : public HTTPDataFetching {
public:
    GatedFetcher(std::shared_ptr<HTTPDataFetching> fetcher,
                 std::shared_ptr<ServiceGate> gate,
                 HostBreakers breakers);

    Task<HTTPResponse> fetch(std::string url) override;

    /// Ends the pauses of all hosts; the service's gate stays as it is.
    void forgetFailures() { m_breakers.forget(); }

private:
    std::shared_ptr<HTTPDataFetching> m_fetcher;
    std::shared_ptr<ServiceGate> m_gate;
    HostBreakers m_breakers;
};

}  // namespace quillbar
