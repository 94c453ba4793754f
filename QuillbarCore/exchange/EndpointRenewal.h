// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/EndpointSelector.h"
#include "QuillbarCore/runtime/Time.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quillbar {

/// Builds the selector of a list of addresses, and builds it anew when a restart of the program
/// would help: a selector never goes back, so that one bad minute would keep everybody on the last
/// address for ever. Belongs to the executor's thread and outlives the selectors.
class EndpointRenewal final {
public:
    /// Hands a new selector to those who use the list.
    using Use = std::function<void(std::shared_ptr<EndpointSelector>)>;

    /// The least time between two renewals because the last address fails.
    static constexpr Seconds kSpacing{600};

    EndpointRenewal(std::vector<std::string> urls, Clock now);
    EndpointRenewal(const EndpointRenewal&) = delete;
    EndpointRenewal& operator=(const EndpointRenewal&) = delete;
    EndpointRenewal(EndpointRenewal&&) = delete;
    EndpointRenewal& operator=(EndpointRenewal&&) = delete;
    ~EndpointRenewal() = default;

    /// A selector that begins with the first address. Each failure of the last one renews the list,
    /// unless that happened less than `kSpacing` ago.
    [[nodiscard]] std::shared_ptr<EndpointSelector> makeSelector();

    /// Who takes the new selectors; absent until then.
    void whenRenewed(Use use) { m_use = std::move(use); }

    /// Hands out a new selector now: the machine woke up, or the network came back.
    void renew();

private:
    void renewIfDue();

    std::vector<std::string> m_urls;
    Clock m_now;
    Use m_use;
    TimePoint m_exhaustedAt = kDistantPast;
    Logger m_logger{"Endpoint"};
};

}  // namespace quillbar
