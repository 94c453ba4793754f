// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/AppOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

AppOptions optionsOf(const std::vector<std::string>& arguments) {
    return std::get<AppOptions>(parseAppOptions(arguments));
}

std::string informationOf(const std::vector<std::string>& arguments) {
    return std::get<AppInformation>(parseAppOptions(arguments)).text;
}

std::string errorOf(const std::vector<std::string>& arguments) {
    return std::get<AppUsageError>(parseAppOptions(arguments)).text;
}

TEST(AppOptionsTest, aPlainStartAsksForNothing) {
    EXPECT_EQ(optionsOf({}), AppOptions{});
}

TEST(AppOptionsTest, eachActionHasItsOption) {
    EXPECT_EQ(optionsOf({"--show"}).action, ApplicationAction::showPanel);
    EXPECT_EQ(optionsOf({"--toggle"}).action, ApplicationAction::togglePanel);
    EXPECT_EQ(optionsOf({"--preferences"}).action, ApplicationAction::showPreferences);
    EXPECT_EQ(optionsOf({"--discreet"}).action, ApplicationAction::toggleDiscreet);
    EXPECT_EQ(optionsOf({"--quit"}).action, ApplicationAction::quit);
}

TEST(AppOptionsTest, aStartInTheBackgroundAsksForNothingEither) {
    EXPECT_EQ(optionsOf({}).manner, StartManner::usual);
    const AppOptions options = optionsOf({"--background"});
    EXPECT_EQ(options.manner, StartManner::background);
    EXPECT_EQ(options.action, std::nullopt);
}

TEST(AppOptionsTest, anActionMayBeRepeatedButNotContradicted) {
    EXPECT_EQ(optionsOf({"--show", "--show"}).action, ApplicationAction::showPanel);
    EXPECT_EQ(optionsOf({"--background", "--background"}).manner, StartManner::background);
    const std::string contradiction =
        "--show、--toggle、--preferences、--discreet、--quit 与 --background 只能使用其一";
    EXPECT_EQ(errorOf({"--preferences", "--toggle"}), contradiction);
    EXPECT_EQ(errorOf({"--show", "--quit"}), contradiction);
    EXPECT_EQ(errorOf({"--discreet", "--toggle"}), contradiction);
    EXPECT_EQ(errorOf({"--background", "--show"}), contradiction);
    EXPECT_EQ(errorOf({"--toggle", "--background"}), contradiction);
}

TEST(AppOptionsTest, theHelpNamesEveryOptionAndVariable) {
    EXPECT_THAT(informationOf({"--help"}), StartsWith("用法：quillbar [选项]\n"));
    EXPECT_EQ(informationOf({"-h"}), informationOf({"--help"}));
    for (const char* const name : {"--show",
                                   "--toggle",
                                   "--preferences",
                                   "--discreet",
                                   "--quit",
                                   "--background",
                                   "--version",
                                   "QUILLBAR_REST_ENDPOINTS",
                                   "QUILLBAR_STREAM_ENDPOINTS",
                                   "QUILLBAR_MARKETCAP_ENDPOINT",
                                   "QUILLBAR_ICON_ENDPOINT",
                                   "QUILLBAR_CA_FILE"}) {
        EXPECT_THAT(informationOf({"--help"}), HasSubstr(name));
    }
}

TEST(AppOptionsTest, theVersionIsOneLine) {
    EXPECT_EQ(informationOf({"--version"}), "quillbar " QUILLBAR_VERSION "\n");
}

TEST(AppOptionsTest, anythingElseIsAnErrorInOneLine) {
    EXPECT_EQ(errorOf({"--loud"}), "未知的参数「--loud」，请看 --help");
    EXPECT_EQ(errorOf({"panel"}), "未知的参数「panel」，请看 --help");
    EXPECT_EQ(errorOf({""}), "未知的参数「」，请看 --help");
    EXPECT_EQ(errorOf({"--show", "--Quit"}), "未知的参数「--Quit」，请看 --help");
}

}  // namespace

}  // namespace quillbar
