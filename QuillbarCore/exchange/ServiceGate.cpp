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
constexpr const char* kClosedAt = "closedAt";
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
    const TimePoint now = m_now();
    if (now < m_closure->closedAt) {
        // The clock was set back. The pause begins anew, on disk too: otherwise each restart would
        // begin it once more.
        m_closure->until = now + (m_closure->until - m_closure->closedAt);
        m_closure->closedAt = now;
        save();
    }
    if (m_closure->until <= now) {
        // Another process may have been told to wait for longer.
        m_closure = storedBeyond(now);
    }
    if (m_closure) {
        return m_closure->status;
    }
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
    const TimePoint now = m_now();
    const TimePoint until = now + pause;
    if (pause == Seconds(0) || (m_closure && m_closure->until >= until)) {
        return;
    }
    if (!m_closure) {
        m_logger.log("{} answered {}: not asked again for {} s", m_service, status, pause.count());
    }
    m_closure = Closure{.status = status, .closedAt = now, .until = until};
    if (!storedBeyond(until)) {
        save();
    }
}

std::optional<ServiceGate::Closure> ServiceGate::load() const {
    try {
        const auto json = JSONDocument::parse(AtomicFile::read(m_file));
        const std::int64_t status = JSONDocument::requiredInteger(json, kStatus);
        const Seconds closedAt(JSONDocument::requiredNumber(json, kClosedAt));
        const Seconds until(JSONDocument::requiredNumber(json, kUntil));
        if (closes(status)) {
            Closure closure{.status = static_cast<int>(status),
                            .closedAt = kReferenceDate + closedAt,
                            .until = kReferenceDate};
            closure.until =
                closure.closedAt + std::min(until - closedAt, longestFor(closure.status));
            return closure;
        }
    } catch (const std::exception&) {
        // No file, or one that is not ours: the gate is open.
    }
    return std::nullopt;
}

std::optional<ServiceGate::Closure> ServiceGate::storedBeyond(TimePoint until) const {
    auto stored = load();
    // A closure from the future was stored before the clock was set back: ignore it.
    return stored && stored->closedAt <= m_now() && stored->until > until ? stored : std::nullopt;
}

void ServiceGate::save() const {
    try {
        nlohmann::ordered_json json;
        json[kStatus] = m_closure->status;
        json[kClosedAt] = (m_closure->closedAt - kReferenceDate).count();
        json[kUntil] = (m_closure->until - kReferenceDate).count();
        AtomicFile::write(m_file, JSONDocument::compactText(json));
    } catch (const std::exception& error) {
        m_logger.error("failed to save the gate of {}: {}", m_service, error.what());
    }
}

}  // namespace quillbar
