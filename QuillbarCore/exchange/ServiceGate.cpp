// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ServiceGate.h"

#include "QuillbarCore/model/JSONDocument.h"
#include "QuillbarCore/model/ReferenceDate.h"
#include "QuillbarCore/runtime/AtomicFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <exception>
#include <nlohmann/json.hpp>
#include <string_view>
#include <system_error>
#include <utility>

namespace quillbar {

namespace {

constexpr int kTooManyRequests = 429;
constexpr int kBanned = 418;
constexpr const char* kStatus = "status";
constexpr const char* kUntil = "until";

bool closes(std::int64_t status) {
    return status == kTooManyRequests || status == kBanned;
}

Seconds longestFor(int status) {
    return status == kBanned ? ServiceGate::kLongestBan : ServiceGate::kLongestPause;
}

Seconds pauseFor(int status, const std::optional<std::string>& retryAfter) {
    if (!retryAfter) {
        return ServiceGate::kDefaultPause;
    }
    std::uint64_t seconds = 0;
    const char* const end = retryAfter->data() + retryAfter->size();
    const auto [stop, error] = std::from_chars(retryAfter->data(), end, seconds);
    if (stop == end && error == std::errc::result_out_of_range) {
        return longestFor(status);
    }
    if (stop != end || error != std::errc()) {
        return ServiceGate::kDefaultPause;
    }
    return std::min(Seconds(static_cast<double>(seconds)), longestFor(status));
}

}  // namespace

ServiceGate::ServiceGate(std::string service, const std::filesystem::path& directory, Clock now)
    : m_service(std::move(service))
    , m_file(directory / (m_service + "-gate.json"))
    , m_now(std::move(now))
    , m_closure(load()) {}

std::optional<int> ServiceGate::closedWith() {
    if (!m_closure) {
        return std::nullopt;
    }
    // A clock that was set back must not close the gate for longer than the service could have.
    m_closure->until = std::min(m_closure->until, m_now() + longestFor(m_closure->status));
    if (m_now() < m_closure->until) {
        return m_closure->status;
    }
    m_closure.reset();
    std::error_code error;
    std::filesystem::remove(m_file, error);
    m_logger.log("{} may be asked again", m_service);
    return std::nullopt;
}

void ServiceGate::noteAnswer(int status, const std::optional<std::string>& retryAfter) {
    if (!closes(status)) {
        return;
    }
    const Seconds pause = pauseFor(status, retryAfter);
    const TimePoint until = m_now() + pause;
    if (pause == Seconds(0) || (m_closure && m_closure->until >= until)) {
        return;
    }
    if (!m_closure) {
        m_logger.log("{} answered {}: not asked again for {} s", m_service, status, pause.count());
    }
    m_closure = Closure{.status = status, .until = until};
    save();
}

std::optional<ServiceGate::Closure> ServiceGate::load() const {
    try {
        const auto json = JSONDocument::parse(AtomicFile::read(m_file));
        const std::int64_t status = JSONDocument::requiredInteger(json, kStatus);
        const Seconds until(JSONDocument::requiredNumber(json, kUntil));
        if (closes(status)) {
            return Closure{.status = static_cast<int>(status), .until = kReferenceDate + until};
        }
    } catch (const std::exception&) {
        // No file, or none of ours: nothing is known against asking.
    }
    return std::nullopt;
}

void ServiceGate::save() const {
    try {
        nlohmann::ordered_json json;
        json[kStatus] = m_closure->status;
        json[kUntil] = (m_closure->until - kReferenceDate).count();
        AtomicFile::write(m_file, JSONDocument::compactText(json));
    } catch (const std::exception& error) {
        m_logger.error("failed to save the gate of {}: {}", m_service, error.what());
    }
}

}  // namespace quillbar
