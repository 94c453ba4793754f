// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/HostBreakers.h"

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

constexpr Seconds kFirstPause{2};
constexpr Seconds kLongestPause{60};

// Scheme, name and port.
std::string_view originOf(std::string_view url) {
    constexpr std::string_view kSeparator = "://";
    const std::size_t scheme = url.find(kSeparator);
    const std::size_t name = scheme == std::string_view::npos ? 0 : scheme + kSeparator.size();
    return url.substr(0, url.find_first_of("/?#", name));
}

}  // namespace

/// What is known of one host.
class HostBreakers::Host final {
public:
    Host(std::string origin, Clock now, ReconnectPolicy policy)
        : m_origin(std::move(origin))
        , m_now(std::move(now))
        , m_policy(std::move(policy)) {}

    [[nodiscard]] bool isBroken() const { return m_failures >= kFailures; }

    [[nodiscard]] std::optional<Failure> refusal() const {
        return isBroken() && (m_isProbed || isPaused()) ? m_lastFailure : std::nullopt;
    }

    void setProbed(bool isProbed) { m_isProbed = isProbed; }

    void noteSuccess() {
        if (isBroken()) {
            m_logger.log("{} answers again", m_origin);
        }
        m_failures = 0;
        m_lastFailure.reset();
    }

    void noteFailure(Failure failure, bool isProbe) {
        m_lastFailure = std::move(failure);
        // Ignore requests that were sent before the pause began, even if they fail after it.
        if (isBroken() && (!isProbe || isPaused())) {
            return;
        }
        ++m_failures;
        if (m_failures == kFailures) {
            m_logger.log(
                "{} has failed {} times in a row, asking it less often", m_origin, kFailures);
        }
        if (isBroken()) {
            m_pausedAt = m_now();
            m_pause = m_policy.delay(m_failures - kFailures + 1);
        }
    }

private:
    [[nodiscard]] bool isPaused() const { return isYoungerThan(m_pause, m_pausedAt, m_now()); }

    std::string m_origin;
    Clock m_now;
    ReconnectPolicy m_policy;
    Logger m_logger{"ServiceGate"};
    int m_failures = 0;
    std::optional<Failure> m_lastFailure;
    TimePoint m_pausedAt;
    Seconds m_pause{};
    // Whether the one request after a pause is under way.
    bool m_isProbed = false;
};

HostBreakers::Attempt::Attempt(std::shared_ptr<Host> host)
    : m_host(std::move(host))
    , m_isProbe(m_host->isBroken()) {
    if (m_isProbe) {
        m_host->setProbed(true);
    }
}

HostBreakers::Attempt::~Attempt() {
    if (m_isProbe) {
        m_host->setProbed(false);
    }
}

void HostBreakers::Attempt::succeeded() {
    m_host->noteSuccess();
}

void HostBreakers::Attempt::failed(Failure failure) {
    m_host->noteFailure(std::move(failure), m_isProbe);
}

HostBreakers::HostBreakers(Clock now, ReconnectPolicy::Jitter jitter)
    : m_now(std::move(now))
    , m_policy{.baseDelay = kFirstPause, .maxDelay = kLongestPause, .jitter = std::move(jitter)} {}

std::optional<HostBreakers::Failure> HostBreakers::refusal(std::string_view url) const {
    const auto found = m_hosts.find(originOf(url));
    return found == m_hosts.end() ? std::nullopt : found->second->refusal();
}

HostBreakers::Attempt HostBreakers::begin(std::string_view url) {
    const std::string_view origin = originOf(url);
    auto found = m_hosts.find(origin);
    if (found == m_hosts.end()) {
        auto host = std::make_shared<Host>(std::string(origin), m_now, m_policy);
        found = m_hosts.emplace(std::string(origin), std::move(host)).first;
    }
    return Attempt(found->second);
}

}  // namespace quillbar
