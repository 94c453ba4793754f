// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/StatusItemEnvironment.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/TemporaryFolder.h"

#include <QCursor>
#include <QDBusConnection>
#include <QGuiApplication>
#include <QIcon>
#include <QScreen>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/prctl.h>
#include <unistd.h>

namespace quillbar {

namespace {

/// What the item is told of a desktop that has no X11, as where these tests run.
struct StatusItemEnvironmentTest : ::testing::Test {
    ManualExecutor executor;
    ManualTime time{executor};
    StatusItemEnvironment environment =
        StatusItemEnvironment::ofDesktop(QDBusConnection(QStringLiteral("none")),
                                         executor,
                                         time.sleeper());
};

TEST_F(StatusItemEnvironmentTest, namesTheProcessOfAnId) {
    std::array<char, 16> name{};
    ASSERT_EQ(::prctl(PR_GET_NAME, name.data()), 0);
    EXPECT_EQ(environment.processName(static_cast<uint>(::getpid())), std::string(name.data()));
    EXPECT_EQ(environment.processName(0), "") << "no process has it";
}

TEST_F(StatusItemEnvironmentTest, hasNoOlderTrayWithoutX11) {
    EXPECT_FALSE(environment.hasOlderTray());
}

TEST_F(StatusItemEnvironmentTest, knowsThePointerButDoesNotTrustIt) {
    QCursor::setPos(123, 45);
    EXPECT_EQ(environment.pointer(), QPoint(123, 45));
    EXPECT_EQ(environment.pointerPosition, PointerPosition::outdated);
}

TEST_F(StatusItemEnvironmentTest, popsMenusUpButUnderWayland) {
    ASSERT_FALSE(QGuiApplication::platformName().startsWith(QStringLiteral("wayland")));
    EXPECT_TRUE(environment.canPopUpMenus);
}

TEST_F(StatusItemEnvironmentTest, findsIconsOfThemesWhereTheyAreInstalled) {
    const QStringList pathsBefore = QIcon::themeSearchPaths();
    const QString themeBefore = QIcon::themeName();
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path() / "hicolor/16x16/apps");
    std::ofstream(folder.path() / "hicolor/index.theme")
        << "[Icon Theme]\nName=hicolor\nDirectories=16x16/apps\n[16x16/apps]\nSize=16\n";
    std::ofstream(folder.path() / "hicolor/16x16/apps/installed.png") << "";
    QIcon::setThemeSearchPaths({QString::fromStdString(folder.path().string())});
    QIcon::setThemeName(QStringLiteral("hicolor"));
    EXPECT_TRUE(environment.hasThemeIcon(QStringLiteral("installed")));
    EXPECT_FALSE(environment.hasThemeIcon(QStringLiteral("not-installed")));
    QIcon::setThemeSearchPaths(pathsBefore);
    QIcon::setThemeName(themeBefore);
}

TEST_F(StatusItemEnvironmentTest, takesReportedPositionsAsTheyAre) {
    EXPECT_EQ(environment.logicalPosition({1500, 14}), QPoint(1500, 14));
}

TEST_F(StatusItemEnvironmentTest, findsNoBarOnAScreenWithoutOneAndBesideTheScreens) {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    ASSERT_EQ(QGuiApplication::primaryScreen()->availableGeometry(), screen);
    EXPECT_FALSE(environment.isInBar(screen.center()));
    EXPECT_FALSE(environment.isInBar(screen.bottomRight() + QPoint(5000, 5000)));
}

}  // namespace

}  // namespace quillbar
