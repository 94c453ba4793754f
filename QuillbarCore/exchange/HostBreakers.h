// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ReconnectPolicy.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Time.h"

#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace quillbar {

/// Spares hosts that fail. After `kFailures` failures in a row no request is sent to a host for 2
/// s. Then one request is sent; each time that it fails the pause doubles, up to 60 s. During a
/// pause every request fails at once like the last one. A request that was sent before the pause
/// does not prolong it by failing. One success ends all this. Each host has its own pause, so that
/// another host can be asked at once.
///
/// Belongs to one thread.
class HostBreakers final {
    class Host;

public:
    static constexpr int kFailures = 3;

    /// What a request failed with: the status of an answer, or an error.
    using Failure = std::variant<int, std::exception_ptr>;

    /// One request, from before it is sent until it is answered. If it is destroyed without a call
    /// of `succeeded` or `failed`, as when the request is cancelled, it counts as neither.
    class Attempt final {
    public:
        Attempt(const Attempt&) = delete;
        Attempt& operator=(const Attempt&) = delete;
        Attempt(Attempt&&) = delete;
        Attempt& operator=(Attempt&&) = delete;
        ~Attempt();

        void succeeded();
        void failed(Failure failure);

    private:
        friend class HostBreakers;

        explicit Attempt(std::shared_ptr<Host> host);

        std::shared_ptr<Host> m_host;
        bool m_isProbe;
    };

    /// The jitter is applied to each pause, as `ReconnectPolicy` says.
    explicit HostBreakers(Clock now,
                          ReconnectPolicy::Jitter jitter = ReconnectPolicy::randomJitter());

    /// What a request of this absolute URL fails with at this moment; absent when it may be sent.
    [[nodiscard]] std::optional<Failure> refusal(std::string_view url) const;

    /// Notes that a request of this URL is sent.
    [[nodiscard]] Attempt begin(std::string_view url);

    /// Ends every pause. For a change of network.
    void forget() { m_hosts.clear(); }

private:
    Clock m_now;
    ReconnectPolicy m_policy;
    // By scheme, name and port. There are only a few.
    std::map<std::string, std::shared_ptr<Host>, std::less<>> m_hosts;
};

}  // namespace quillbar
