// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/FirstStart.h"
#include "tests/app/QuillbarAppFixture.h"
#include "tests/support/Files.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

/// What the panel tells somebody who starts Quillbar for the first time.
struct FirstMinuteTest : QuillbarAppFixture {};

TEST_F(FirstMinuteTest, theFirstPanelTellsWhereTheItemIsOnceAndForAll) {
    startInTray();
    EXPECT_FALSE(std::filesystem::exists(folder.path() / FirstStart::kFileName));
    app->showPanel(QString());
    EXPECT_TRUE(tells(Notice::firstStart));

    app.reset();
    host.registered.clear();
    start(bus);
    ASSERT_TRUE(spinUntil([this] { return !host.registered.isEmpty(); }));
    app->showPanel(QString());
    EXPECT_FALSE(tells(Notice::firstStart)) << "at the next start";
}

TEST_F(FirstMinuteTest, whoHasAListKnowsWhereTheItemIs) {
    writeContents(folder.path() / "watchlist.json", "{}");
    startInTray();
    app->showPanel(QString());
    EXPECT_FALSE(tells(Notice::firstStart));
}

TEST_F(FirstMinuteTest, withoutATrayThereIsNoItemToTellOf) {
    startWithoutTray(bus);
    EXPECT_TRUE(tells(Notice::noTray));
    EXPECT_FALSE(tells(Notice::firstStart));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / FirstStart::kFileName))
        << "the first start in a tray is yet to come";
}

TEST_F(FirstMinuteTest, theFirstPanelAfterATrayHasComeTellsWhereTheItemIs) {
    startWithoutTray(bus);
    ASSERT_TRUE(tells(Notice::noTray));
    host.beWatcher();
    ASSERT_TRUE(spinUntil([] { return !tells(Notice::noTray); }));
    EXPECT_FALSE(tells(Notice::firstStart)) << "not below the pointer, but at the next opening";
    panel()->dismiss();
    ASSERT_EQ(panel(), nullptr);
    app->showPanel(QString());
    EXPECT_TRUE(tells(Notice::firstStart));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / FirstStart::kFileName));
}

TEST_F(FirstMinuteTest, aPanelThatOpensBeforeATrayIsFoundLeavesItToALaterOne) {
    start(bus);
    app->showPanel(QString());
    EXPECT_FALSE(tells(Notice::firstStart));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / FirstStart::kFileName));
    panel()->dismiss();
    host.beWatcher();
    ASSERT_TRUE(spinUntil([this] { return !host.registered.isEmpty(); }));
    app->showPanel(QString());
    EXPECT_TRUE(tells(Notice::firstStart));
}

TEST_F(FirstMinuteTest, aTrayThatRefusesTheItemAfterAllIsNotToldOf) {
    host.refuses = true;
    host.onRegistration = [this] {
        app->showPanel(QString());
        EXPECT_TRUE(tells(Notice::firstStart)) << "while the tray is still to answer";
    };
    host.beWatcher();
    start(bus);
    ASSERT_TRUE(spinUntil([] { return panel() != nullptr; }));
    ASSERT_TRUE(spinUntil([this] {
        endPatience();
        return tells(Notice::noTray);
    }));
    EXPECT_FALSE(tells(Notice::firstStart));
}

TEST_F(FirstMinuteTest, aPanelThatIsMadeButNotShownTellsNothing) {
    startInTray();
    host.callItem(QStringLiteral("ProvideXdgActivationToken"), {QStringLiteral("token")});
    EXPECT_FALSE(std::filesystem::exists(folder.path() / FirstStart::kFileName));
    app->showPanel(QString());
    EXPECT_TRUE(tells(Notice::firstStart));
}

}  // namespace

}  // namespace quillbar
