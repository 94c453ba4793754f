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

/// Makes the selector of a list of addresses, and replaces it when it helps to begin with the first
/// address again. A selector never goes back, so without a new one a single bad minute would keep
/// everybody on the last address for ever. Belongs to the executor's thread and outlives the
/// selectors.
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

    /// A selector that begins with the first address. A failure of the last address hands out a new
    /// selector, unless that happened less than `kSpacing` ago or there is only one address.
    [[nodiscard]] std::shared_ptr<EndpointSelector> makeSelector();

    /// Sets who takes the new selectors. Until then there are none.
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
