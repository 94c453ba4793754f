// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/DesktopEntry.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillbar {
namespace {

using std::nullopt;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

DesktopEntry parsed(std::string_view text) {
    const auto entry = DesktopEntry::parse(text);
    EXPECT_TRUE(entry) << text;
    return entry.value_or(DesktopEntry());
}

DesktopEntry withLine(std::string_view line) {
    return parsed(fmt::format("[Desktop Entry]\n{}\n", line));
}

std::optional<std::string> programOf(std::string_view exec) {
    return withLine(fmt::format("Exec={}", exec)).program();
}

TEST(DesktopEntryTest, readsTheKeysOfItsGroup) {
    const DesktopEntry entry = parsed("[Desktop Entry]\nType=Application\nName = Some name \n");
    EXPECT_EQ(entry.text("Type"), "Application");
    EXPECT_EQ(entry.text("Name"), "Some name");
    EXPECT_EQ(entry.text("Comment"), nullopt);
    EXPECT_TRUE(entry.has("Type"));
    EXPECT_FALSE(entry.has("Comment"));
}

TEST(DesktopEntryTest, needsNoLineFeedAtItsEnd) {
    EXPECT_EQ(parsed("[Desktop Entry]\nType=Application").text("Type"), "Application");
}

TEST(DesktopEntryTest, readsLinesThatEndAsUnderWindows) {
    const DesktopEntry entry = parsed("[Desktop Entry]\r\n\r\nHidden=true\r\nType=X\r\n");
    EXPECT_TRUE(entry.boolean("Hidden", false));
    EXPECT_EQ(entry.text("Type"), "X");
}

TEST(DesktopEntryTest, passesOverCommentsAndEmptyLines) {
    const DesktopEntry entry = parsed("# first\n\n[Desktop Entry]\n#Type=A\n  \nType=B\n");
    EXPECT_EQ(entry.text("Type"), "B");
}

TEST(DesktopEntryTest, passesOverOtherGroups) {
    const DesktopEntry entry = parsed(
        "[Before]\nHidden=true\n[Desktop Entry]\nType=X\n[Desktop Action y]\nType=Y\nExec=y\n");
    EXPECT_EQ(entry.text("Type"), "X");
    EXPECT_FALSE(entry.has("Hidden"));
    EXPECT_FALSE(entry.has("Exec"));
}

TEST(DesktopEntryTest, aTranslationIsAnotherKey) {
    const DesktopEntry entry = parsed("[Desktop Entry]\nName[de]=B\nHidden[de]=true\nName=A\n");
    EXPECT_EQ(entry.text("Name"), "A");
    EXPECT_FALSE(entry.boolean("Hidden", false));
}

TEST(DesktopEntryTest, theLastOfDuplicateKeysHolds) {
    EXPECT_EQ(withLine("Type=A\nType=B").text("Type"), "B");
    EXPECT_EQ(parsed("[Desktop Entry]\nType=A\n[x]\n[Desktop Entry]\nType=B\n").text("Type"), "B");
}

TEST(DesktopEntryTest, isRefusedWhereDesktopsRefuseIt) {
    for (const std::string_view text : {"",
                                        "\n# only a comment\n",
                                        "[Other]\nType=X\n",
                                        "Type=X\n[Desktop Entry]\n",
                                        "[Desktop Entry\nType=X\n",
                                        "[Desktop Entry]\nno key\n",
                                        "[Desktop Entry]\n=value\n",
                                        "[Desktop Entry]\n[Other]\nno key\n",
                                        "\xEF\xBB\xBF[Desktop Entry]\nType=X\n"}) {
        EXPECT_FALSE(DesktopEntry::parse(text)) << text;
    }
    EXPECT_FALSE(DesktopEntry::parse(std::string_view("[Desktop Entry]\nType=\0X\n", 24)));
}

TEST(DesktopEntryTest, resolvesTheEscapesOfTexts) {
    EXPECT_EQ(withLine(R"(Name=\sa\nb\tc\rd\\e\;f\)").text("Name"), " a\nb\tc\rd\\e;f\\");
}

TEST(DesktopEntryTest, aTruthIsOneOfTwoWords) {
    EXPECT_TRUE(withLine("Hidden=true").boolean("Hidden", false));
    EXPECT_TRUE(withLine("Hidden=1").boolean("Hidden", false));
    EXPECT_FALSE(withLine("Hidden=false").boolean("Hidden", true));
    EXPECT_FALSE(withLine("Hidden=0").boolean("Hidden", true));
    for (const bool otherwise : {false, true}) {
        EXPECT_EQ(withLine("Hidden=yes").boolean("Hidden", otherwise), otherwise);
        EXPECT_EQ(withLine("Hidden=").boolean("Hidden", otherwise), otherwise);
        EXPECT_EQ(withLine("Type=X").boolean("Hidden", otherwise), otherwise);
    }
}

TEST(DesktopEntryTest, aListIsSeparatedBySemicolons) {
    EXPECT_THAT(withLine("OnlyShowIn=GNOME;KDE;").list("OnlyShowIn"), ElementsAre("GNOME", "KDE"));
    EXPECT_THAT(withLine("OnlyShowIn=GNOME").list("OnlyShowIn"), ElementsAre("GNOME"));
    EXPECT_THAT(withLine(R"(OnlyShowIn=;A\;B;;C\)").list("OnlyShowIn"), ElementsAre("A;B", "C\\"));
    EXPECT_THAT(withLine("OnlyShowIn=").list("OnlyShowIn"), IsEmpty());
    EXPECT_THAT(withLine("Type=X").list("OnlyShowIn"), IsEmpty());
}

TEST(DesktopEntryTest, theProgramIsTheFirstArgument) {
    EXPECT_EQ(programOf("quillbar"), "quillbar");
    EXPECT_EQ(programOf("/usr/bin/quillbar --show %U"), "/usr/bin/quillbar");
    EXPECT_EQ(programOf(R"("/opt/my programs/quillbar" --show)"), "/opt/my programs/quillbar");
    EXPECT_EQ(programOf(R"("/opt/a\\"b\\\\c\\$d\\`e")"), R"(/opt/a"b\c$d`e)");
    EXPECT_EQ(programOf(R"(/opt/my\\ programs/quillbar -x)"), "/opt/my programs/quillbar");
}

TEST(DesktopEntryTest, aProgramMayBeQuotedAsInAShell) {
    EXPECT_EQ(programOf("'/x/quillbar' --x"), "/x/quillbar");
    EXPECT_EQ(programOf("'/opt/my programs/quillbar'"), "/opt/my programs/quillbar");
    EXPECT_EQ(programOf(R"('/a"b\\c$d' x)"), R"(/a"b\c$d)") << "a backslash stands for itself";
    EXPECT_EQ(programOf(R"("/it's here" x)"), "/it's here");
    EXPECT_EQ(programOf(R"(/a' 'b"' c"d x)"), "/a b' cd") << "quotes may begin anywhere";
    EXPECT_EQ(programOf(R"("/a\\b" x)"), R"(/a\b)") << "escapes nothing that needs no escape";
}

TEST(DesktopEntryTest, brokenQuotingStartsNothing) {
    EXPECT_EQ(programOf(R"("/usr/bin/quillbar)"), nullopt);
    EXPECT_EQ(programOf("'/usr/bin/quillbar"), nullopt);
    EXPECT_EQ(programOf(R"(/usr/bin/quillbar\\)"), nullopt);
    EXPECT_EQ(programOf(R"("/usr/bin/quillbar\\)"), nullopt);
    EXPECT_EQ(programOf(""), nullopt);
    EXPECT_EQ(programOf(R"("")"), nullopt);
    EXPECT_EQ(programOf("''"), nullopt);
    EXPECT_EQ(withLine("Type=X").program(), nullopt);
}

TEST(DesktopEntryTest, aPercentSignInTheProgramStartsNothing) {
    for (const std::string_view exec : {"%k", "%", "/100%/x", R"("/100%%/x")", "/opt/%f"}) {
        EXPECT_EQ(programOf(exec), nullopt) << exec;
    }
}

TEST(DesktopEntryTest, quotesAProgramsPath) {
    EXPECT_EQ(DesktopEntry::execOf("/usr/bin/quillbar"), R"("/usr/bin/quillbar")");
    EXPECT_EQ(DesktopEntry::execOf("/a b"), R"("/a b")");
    EXPECT_EQ(DesktopEntry::execOf("/a\"b"), R"("/a\\"b")");
    EXPECT_EQ(DesktopEntry::execOf("/a$b`c"), R"("/a\\$b\\`c")");
}

TEST(DesktopEntryTest, readsBackWhatItQuotes) {
    for (const std::string program : {"/usr/bin/quillbar",
                                      "/a b/c  d",
                                      R"(/"/"")",
                                      "/'a'/;#[&]|<>*?~(){}!",
                                      "/$HOME/`x`",
                                      "/程序/ü/\xF0\x9F\x98\x80/\xED\x9F\xBF/\xF4\x8F\xBF\xBF",
                                      "/ends with a blank "}) {
        const auto exec = DesktopEntry::execOf(program);
        ASSERT_TRUE(exec) << program;
        EXPECT_EQ(programOf(*exec), program);
    }
}

TEST(DesktopEntryTest, refusesPathsThatNoEntryCanHold) {
    for (const std::string program : {"/a=b",
                                      "/100%",
                                      "/%%f",
                                      R"(/a\b)",
                                      "/a\nb",
                                      "/a\tb",
                                      "/a\x7f",
                                      "/\x80",
                                      "/\xC3",
                                      "/\xC3/",
                                      "/\xC0\xAF",
                                      "/\xE0\x80\xAF",
                                      "/\xE4\xB8/",
                                      "/\xED\xA0\x80",
                                      "/\xF0\x80\x80\xAF",
                                      "/\xF4\x90\x80\x80",
                                      "/\xF5\x80\x80\x80",
                                      "/\xFF"}) {
        EXPECT_EQ(DesktopEntry::execOf(program), nullopt) << program;
    }
}

}  // namespace
}  // namespace quillbar
