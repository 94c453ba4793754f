// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/EndpointRenewal.h"

#include <utility>

namespace quillbar {

EndpointRenewal::EndpointRenewal(std::vector<std::string> urls, Clock now)
    : m_urls(std::move(urls))
    , m_now(std::move(now)) {}

std::shared_ptr<EndpointSelector> EndpointRenewal::makeSelector() {
    return std::make_shared<EndpointSelector>(m_urls, [this] { renewIfDue(); });
}

void EndpointRenewal::renew() {
    if (m_use) {
        m_use(makeSelector());
    }
}

void EndpointRenewal::renewIfDue() {
    const TimePoint now = m_now();
    if (m_urls.size() < 2 || isYoungerThan(kSpacing, m_exhaustedAt, now)) {
        return;
    }
    m_exhaustedAt = now;
    m_logger.log("every endpoint has failed, beginning anew with {}", m_urls.front());
    renew();
}

}  // namespace quillbar
