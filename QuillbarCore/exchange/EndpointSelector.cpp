// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/EndpointSelector.h"

#include <cstddef>
#include <utility>

namespace quillbar {

EndpointSelector::EndpointSelector(std::vector<std::string> urls,
                                   std::function<void()> whenExhausted)
    : m_urls(std::move(urls))
    , m_whenExhausted(std::move(whenExhausted)) {}

int EndpointSelector::count() const noexcept {
    return static_cast<int>(m_urls.size());
}

std::optional<EndpointSelector::Endpoint> EndpointSelector::current() const {
    if (m_urls.empty()) {
        return std::nullopt;
    }
    return Endpoint{m_urls[static_cast<std::size_t>(m_index)], m_index};
}

void EndpointSelector::markFailed(int index) {
    if (index != m_index) {
        return;
    }
    if (index + 1 >= count()) {
        if (m_whenExhausted) {
            m_whenExhausted();
        }
        return;
    }
    ++m_index;
    m_logger.log("switching endpoint to {}", m_urls[static_cast<std::size_t>(m_index)]);
}

}  // namespace quillbar
