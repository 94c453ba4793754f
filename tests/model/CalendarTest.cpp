// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/Calendar.h"
#include "tests/model/Instants.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>

namespace quillbar {
namespace {

// 16:30 UTC: already the 15th in Shanghai and Tokyo, still the 14th in Europe and America.
const TimePoint kAfternoon = utcInstant(2026, 11, 14, 16, 30);

constexpr CalendarDate k14th{2026, 11, 14};
constexpr CalendarDate k15th{2026, 11, 15};

/// The date on which the user's calendar sees the afternoon, with TZ set like that, on the machine
/// of that folder.
CalendarDate currentDate(const std::optional<std::string>& tz,
                         const std::string& systemFolder = "/etc") {
    const TemporaryEnvironment environment("TZ", tz);
    return Calendar::autoupdatingCurrent(systemFolder).dateAt(kAfternoon);
}

/// The date on which the C library sees it.
CalendarDate dateOfTheCLibrary(const std::optional<std::string>& tz) {
    const TemporaryEnvironment environment("TZ", tz);
    ::tzset();
    const auto seconds = static_cast<std::time_t>(kAfternoon.time_since_epoch().count());
    std::tm local{};
    ::localtime_r(&seconds, &local);
    return {local.tm_year + 1900,
            static_cast<unsigned>(local.tm_mon + 1),
            static_cast<unsigned>(local.tm_mday)};
}

/// A machine whose zone can be changed.
class Machine final {
public:
    [[nodiscard]] std::string systemFolder() const { return m_folder.path(); }

    void linkTo(const std::string& target) const {
        std::filesystem::remove(localtime());
        std::filesystem::create_symlink(target, localtime());
    }
    void copyUnnamedRules() const { std::ofstream(localtime()) << "rules without their name"; }
    void nameTheZone(const std::string& name) const {
        std::ofstream(m_folder.path() / "timezone") << name << "\n";
    }

private:
    [[nodiscard]] std::filesystem::path localtime() const { return m_folder.path() / "localtime"; }

    TemporaryFolder m_folder;
};

TEST(Calendar, takesTheDateInItsZone) {
    EXPECT_EQ(Calendar::fixed("Asia/Shanghai").dateAt(kAfternoon), k15th);
    EXPECT_EQ(Calendar::fixed("America/New_York").dateAt(kAfternoon), k14th);
    EXPECT_EQ(Calendar::utc().dateAt(kAfternoon), k14th);
}

TEST(Calendar, refusesAZoneThatTheSystemDoesNotKnow) {
    for (const char* const name : {"", "Asia/Nowhere", "CET-1CEST", "../../../etc/localtime"}) {
        EXPECT_THROW(static_cast<void>(Calendar::fixed(name)), std::invalid_argument) << name;
    }
}

TEST(Calendar, countsDaysBeforeTheEpochAndFractionsOfASecondDownwards) {
    const Calendar utc = Calendar::utc();
    EXPECT_EQ(utc.dateAt(utcInstant(1970, 1, 1, 0, 0, -0.001)), (CalendarDate{1969, 12, 31}));
    EXPECT_EQ(utc.startOfDay(utcInstant(1969, 12, 31, 23, 59, 59.5)), utcInstant(1969, 12, 31));
    EXPECT_EQ(utc.dateAt(utcInstant(1, 1, 1)), (CalendarDate{1, 1, 1}));
    EXPECT_EQ(utc.dateAt(utcInstant(2024, 2, 29, 23, 59, 59.999)), (CalendarDate{2024, 2, 29}));
}

TEST(Calendar, readsTheLocalClockToTheMinute) {
    EXPECT_EQ(Calendar::fixed("Asia/Shanghai").timeAt(kAfternoon), (CalendarTime{k15th, 30}));
    EXPECT_EQ(Calendar::fixed("America/New_York").timeAt(kAfternoon),
              (CalendarTime{k14th, 11 * 60 + 30}));
    EXPECT_EQ(Calendar::utc().timeAt(kAfternoon + Seconds(59.9)),
              (CalendarTime{k14th, 16 * 60 + 30}));
    EXPECT_EQ(Calendar::utc().timeAt(utcInstant(1970, 1, 1, 0, 0, -0.5)),
              (CalendarTime{{1969, 12, 31}, 24 * 60 - 1}));
}

TEST(Calendar, findsTheInstantOfALocalTime) {
    EXPECT_EQ(Calendar::fixed("Asia/Shanghai").instantAt({k15th, 30}), kAfternoon);
    EXPECT_EQ(Calendar::utc().instantAt({k14th, 16 * 60 + 30}), kAfternoon);
    const Calendar kathmandu = Calendar::fixed("Asia/Kathmandu");
    EXPECT_EQ(kathmandu.instantAt({k14th, 12 * 60}), utcInstant(2026, 11, 14, 6, 15));
}

TEST(Calendar, knowsTheTimesThatAClockSkipsOrShowsTwice) {
    const Calendar newYork = Calendar::fixed("America/New_York");
    EXPECT_EQ(newYork.instantAt({{2026, 3, 8}, 2 * 60}), std::nullopt);
    EXPECT_EQ(newYork.instantAt({{2026, 3, 8}, 2 * 60 + 59}), std::nullopt);
    EXPECT_EQ(newYork.instantAt({{2026, 3, 8}, 3 * 60}), utcInstant(2026, 3, 8, 7));
    EXPECT_EQ(newYork.instantAt({{2026, 11, 1}, 60}), utcInstant(2026, 11, 1, 5));
    const Calendar santiago = Calendar::fixed("America/Santiago");
    EXPECT_EQ(santiago.instantAt({{2025, 9, 7}, 0}), std::nullopt);
    EXPECT_EQ(santiago.timeAt(utcInstant(2025, 9, 7, 4)), (CalendarTime{{2025, 9, 7}, 60}));
}

TEST(Calendar, goesFromDayToDay) {
    const Calendar shanghai = Calendar::fixed("Asia/Shanghai");
    EXPECT_EQ(shanghai.startOfNextDay(kAfternoon), utcInstant(2026, 11, 15, 16));
    EXPECT_EQ(shanghai.startOfNextDay(utcInstant(2026, 11, 15, 16)), utcInstant(2026, 11, 16, 16));
    EXPECT_EQ(Calendar::utc().startOfNextDay(utcInstant(2024, 2, 28, 23, 59)),
              utcInstant(2024, 2, 29));
}

TEST(Calendar, goesToADayThatBeginsLateOrIsLeftOut) {
    const Calendar santiago = Calendar::fixed("America/Santiago");
    EXPECT_EQ(santiago.startOfNextDay(utcInstant(2025, 9, 6, 12)), utcInstant(2025, 9, 7, 4));
    EXPECT_EQ(santiago.startOfNextDay(utcInstant(2025, 9, 7, 4)), utcInstant(2025, 9, 8, 3));
    // Samoa went from the 29th of December 2011 to the 31st.
    const Calendar apia = Calendar::fixed("Pacific/Apia");
    EXPECT_EQ(apia.startOfNextDay(utcInstant(2011, 12, 30, 0)), utcInstant(2011, 12, 30, 10));
    EXPECT_EQ(apia.dateAt(utcInstant(2011, 12, 30, 10)), (CalendarDate{2011, 12, 31}));
}

TEST(Calendar, namesInstantsThirtyThousandYearsAway) {
    constexpr Seconds kFurthest{946'708'560'000};
    EXPECT_EQ(Calendar::utc().dateAt(TimePoint{kFurthest}).year, 31'970);
    EXPECT_EQ(Calendar::utc().dateAt(TimePoint{-kFurthest}).year, -28'030);
}

TEST(CalendarDeathTest, abortsOnAnInstantThatNoDateCanName) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const double seconds :
         {std::numeric_limits<double>::infinity(), std::nan(""), -1e18, 946'708'560'001.0}) {
        EXPECT_DEATH(static_cast<void>(Calendar::utc().dateAt(TimePoint{Seconds{seconds}})),
                     "an instant that no date can name");
    }
}

TEST(Calendar, followsTheZoneThatTheEnvironmentNames) {
    EXPECT_EQ(currentDate("Asia/Shanghai"), k15th);
    EXPECT_EQ(currentDate(":Asia/Shanghai"), k15th);
    EXPECT_EQ(currentDate("/usr/share/zoneinfo/Asia/Shanghai"), k15th);
    EXPECT_EQ(currentDate(":/usr/share/zoneinfo/posix/Asia/Shanghai"), k15th);
    EXPECT_EQ(currentDate(":/usr/share/zoneinfo/right/Asia/Shanghai"), k15th);
    EXPECT_EQ(currentDate("America/New_York"), k14th);
}

TEST(Calendar, agreesWithTheCLibraryOnTheZoneOfTheEnvironment) {
    for (const char* const tz :
         {"", ":", "UTC", "Asia/Shanghai", ":Asia/Tokyo", "America/Santiago", "EST5EDT", "GMT"}) {
        EXPECT_EQ(currentDate(tz), dateOfTheCLibrary(tz)) << tz;
    }
    EXPECT_EQ(currentDate(std::nullopt), dateOfTheCLibrary(std::nullopt));
}

TEST(Calendar, followsTheMachineWhenTheEnvironmentNamesNoZone) {
    const Machine machine;
    machine.linkTo("/usr/share/zoneinfo/Asia/Shanghai");
    EXPECT_EQ(currentDate(std::nullopt, machine.systemFolder()), k15th);
    for (const char* const tz : {"CET-1CEST", "CET-1CEST,M3.5.0,M10.5.0/3", "Asia/Nowhere", "/"}) {
        EXPECT_EQ(currentDate(tz, machine.systemFolder()), k15th) << tz;
    }
    EXPECT_EQ(currentDate("", machine.systemFolder()), k14th);
    EXPECT_EQ(currentDate("UTC", machine.systemFolder()), k14th);
}

TEST(Calendar, noticesThatTheMachineOrTheEnvironmentMoved) {
    const TemporaryEnvironment unset("TZ", std::nullopt);
    const Machine machine;
    const Calendar calendar = Calendar::autoupdatingCurrent(machine.systemFolder());
    machine.linkTo("../usr/share/zoneinfo/Asia/Shanghai");
    EXPECT_EQ(calendar.dateAt(kAfternoon), k15th);
    machine.linkTo("/usr/share/zoneinfo/America/New_York");
    EXPECT_EQ(calendar.dateAt(kAfternoon), k14th);
    const TemporaryEnvironment tokyo("TZ", "Asia/Tokyo");
    EXPECT_EQ(calendar.dateAt(kAfternoon), k15th);
}

TEST(Calendar, fallsBackToUTCOnAMachineWithoutAZone) {
    const Machine machine;
    EXPECT_EQ(currentDate(std::nullopt, machine.systemFolder()), k14th);
    machine.linkTo("/nowhere");
    EXPECT_EQ(currentDate(std::nullopt, machine.systemFolder()), k14th);
    EXPECT_EQ(currentDate("Asia/Nowhere", machine.systemFolder()), k14th);
}

TEST(Calendar, takesTheZoneThatTheMachineNamesWhenItsRulesAreAPlainFile) {
    const Machine machine;
    machine.nameTheZone("Asia/Shanghai");
    machine.copyUnnamedRules();
    EXPECT_EQ(currentDate(std::nullopt, machine.systemFolder()), k15th);
    machine.nameTheZone("Asia/Nowhere");
    EXPECT_EQ(currentDate(std::nullopt, machine.systemFolder()), k14th);
}

TEST(Calendar, usesUTCOnAMachineWithoutRulesAsTheCLibraryDoes) {
    const Machine machine;
    machine.nameTheZone("Asia/Shanghai");
    EXPECT_EQ(currentDate(std::nullopt, machine.systemFolder()), k14th);
}

}  // namespace
}  // namespace quillbar
