// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/Calendar.h"

#include "QuillbarCore/model/ProgrammingError.h"

#include <fmt/core.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <date/date.h>
#include <date/tz.h>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace quillbar {

namespace {

constexpr double kFurthestSecond = 30'000 * 365.2425 * 86'400;

/// The zone of that name with its file loaded; null when the system lacks it or cannot read it.
const date::time_zone* loadedZone(std::string_view name) {
    try {
        const date::time_zone* zone = date::locate_zone(name);
        static_cast<void>(zone->get_info(date::sys_seconds{}));
        return zone;
    } catch (const std::exception&) {
        return nullptr;
    }
}

/// The name of a zone from its file's path, "/usr/share/zoneinfo/posix/Asia/Tokyo"; any other text
/// is returned unchanged.
std::string_view zoneNameOfPath(std::string_view path) {
    constexpr std::string_view kDatabase = "zoneinfo/";
    const std::size_t found = path.rfind(kDatabase);
    std::string_view name =
        found == std::string_view::npos ? path : path.substr(found + kDatabase.size());
    // These folders hold the same zones, without and with leap seconds.
    for (const std::string_view variant : {"posix/", "right/"}) {
        if (name.starts_with(variant)) {
            name.remove_prefix(variant.size());
        }
    }
    return name;
}

/// The system's time zone; null when it cannot be determined.
const date::time_zone* systemZone(const std::string& systemFolder) {
    const std::string localtime = systemFolder + "/localtime";
    std::array<char, 4096> target;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled below
    const ssize_t size = ::readlink(localtime.c_str(), target.data(), target.size());
    if (size >= 0) {
        return loadedZone(zoneNameOfPath({target.data(), static_cast<std::size_t>(size)}));
    }
    if (errno != EINVAL) {  // it does not exist
        return nullptr;
    }
    std::string name;
    std::ifstream(systemFolder + "/timezone") >> name;
    return loadedZone(name);
}

const date::time_zone* currentZone(const std::string& systemFolder) {
    const char* const variable = std::getenv("TZ");
    if (variable == nullptr) {
        return systemZone(systemFolder);
    }
    std::string_view name = variable;
    if (name.starts_with(':')) {
        name.remove_prefix(1);
    }
    if (name.empty()) {
        return nullptr;
    }
    const date::time_zone* const zone = loadedZone(zoneNameOfPath(name));
    return zone != nullptr ? zone : systemZone(systemFolder);
}

/// The whole second at or before the instant.
date::sys_seconds wholeSecond(TimePoint instant) {
    const double seconds = std::floor(instant.time_since_epoch().count());
    if (!(std::abs(seconds) <= kFurthestSecond)) {
        programmingError("Calendar: an instant that no date can name");
    }
    return date::sys_seconds{std::chrono::seconds{static_cast<std::int64_t>(seconds)}};
}

date::local_seconds localSecond(const date::time_zone* zone, date::sys_seconds instant) {
    const std::chrono::seconds offset =
        zone == nullptr ? std::chrono::seconds{0} : zone->get_info(instant).offset;
    return date::local_seconds{instant.time_since_epoch() + offset};
}

date::local_days localDay(const date::time_zone* zone, date::sys_seconds instant) {
    return date::floor<date::days>(localSecond(zone, instant));
}

TimePoint firstInstant(const date::time_zone* zone, date::local_days day) {
    const date::sys_seconds start = zone == nullptr ? date::sys_seconds{day.time_since_epoch()}
                                                    : zone->to_sys(day, date::choose::earliest);
    return TimePoint{Seconds{start.time_since_epoch()}};
}

CalendarDate calendarDate(date::local_days day) {
    const date::year_month_day ymd{day};
    return {int{ymd.year()}, unsigned{ymd.month()}, unsigned{ymd.day()}};
}

}  // namespace

Calendar::Calendar(const date::time_zone* zone, std::string systemFolder)
    : m_zone(zone)
    , m_systemFolder(std::move(systemFolder)) {}

Calendar Calendar::fixed(std::string_view zoneName) {
    const date::time_zone* const zone = loadedZone(zoneName);
    if (zone == nullptr) {
        throw std::invalid_argument(fmt::format("unknown time zone \"{}\"", zoneName));
    }
    return {zone, {}};
}

Calendar Calendar::utc() {
    return {nullptr, {}};
}

Calendar Calendar::autoupdatingCurrent(std::string systemFolder) {
    return {nullptr, std::move(systemFolder)};
}

const date::time_zone* Calendar::zone() const {
    return m_systemFolder.empty() ? m_zone : currentZone(m_systemFolder);
}

CalendarDate Calendar::dateAt(TimePoint instant) const {
    return calendarDate(localDay(zone(), wholeSecond(instant)));
}

TimePoint Calendar::startOfDay(TimePoint instant) const {
    const date::time_zone* const zone = this->zone();
    return firstInstant(zone, localDay(zone, wholeSecond(instant)));
}

TimePoint Calendar::startOfNextDay(TimePoint instant) const {
    const date::time_zone* const zone = this->zone();
    return firstInstant(zone, localDay(zone, wholeSecond(instant)) + date::days{1});
}

CalendarTime Calendar::timeAt(TimePoint instant) const {
    const date::local_seconds local = localSecond(zone(), wholeSecond(instant));
    const date::local_days day = date::floor<date::days>(local);
    const auto minutes = date::floor<std::chrono::minutes>(local - day);
    return {calendarDate(day), static_cast<int>(minutes.count())};
}

std::optional<TimePoint> Calendar::instantAt(const CalendarTime& time) const {
    const date::local_days day{date::year{time.date.year} / static_cast<int>(time.date.month)
                               / static_cast<int>(time.date.day)};
    const date::local_seconds local = day + std::chrono::minutes{time.minuteOfDay};
    const date::time_zone* const zone = this->zone();
    if (zone == nullptr) {
        return TimePoint{Seconds{local.time_since_epoch()}};
    }
    const date::local_info info = zone->get_info(local);
    if (info.result == date::local_info::nonexistent) {
        return std::nullopt;
    }
    return TimePoint{Seconds{local.time_since_epoch() - info.first.offset}};
}

}  // namespace quillbar
