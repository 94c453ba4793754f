// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"
#include "tests/tray/StatusItemFixture.h"

#include <gmock/gmock.h>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::Pair;

constexpr QPoint kInBar(1200, 12);
constexpr QPoint kElsewhereInBar(900, 14);
constexpr QPoint kOutOfBars(1200, 300);

/// Under Wayland, where the pointer's position is an old one. The bar is 30 pixels high.
struct StatusItemAnchorTest : StatusItemFixture {
    StatusItemAnchorTest() {
        pointer = QPoint(400, 170);
        pointerPosition = PointerPosition::outdated;
    }

    void choosePanelInMenu() { chooseInMenu(StatusItem::kOpenPanel); }
    void chooseInMenu(int id) {
        const QVariant nothing = QVariant::fromValue(QDBusVariant(0));
        host->callMenu(QStringLiteral("AboutToShow"), {0});
        host->callMenu(QStringLiteral("Event"), {id, QStringLiteral("clicked"), nothing, 0U});
    }
    void click(QPoint reported) {
        host->callItem(QStringLiteral("Activate"), {reported.x(), reported.y()});
        activations.clear();
    }
    void clickMiddle() { host->callItem(QStringLiteral("XAyatanaSecondaryActivate"), {7U}); }
};

TEST_F(StatusItemAnchorTest, anOldPointerPositionIsNoAnchor) {
    startAt("gnome-shell");
    choosePanelInMenu();
    clickMiddle();
    EXPECT_THAT(activations,
                ElementsAre(Pair(std::nullopt, ActivationSource::menu),
                            Pair(std::nullopt, ActivationSource::click)));
}

TEST_F(StatusItemAnchorTest, theLastClickInABarIsTheAnchorOfWhatTellsNoPosition) {
    startAt("gnome-shell");
    click(kElsewhereInBar);
    click(kInBar);
    choosePanelInMenu();
    clickMiddle();
    EXPECT_THAT(
        activations,
        ElementsAre(Pair(kInBar, ActivationSource::menu), Pair(kInBar, ActivationSource::click)));
}

TEST_F(StatusItemAnchorTest, otherEntriesOfTheMenuHaveTheSameAnchor) {
    startAt("gnome-shell");
    item->setMenu({MenuEntry{.id = 10, .label = QStringLiteral("设置")}});
    chooseInMenu(10);
    click(kInBar);
    chooseInMenu(10);
    EXPECT_THAT(chosen, ElementsAre(10, 10));
    EXPECT_THAT(menuAnchors, ElementsAre(std::nullopt, kInBar));
}

TEST_F(StatusItemAnchorTest, aClickOutOfAnyBarIsTheAnchorOfItselfAlone) {
    startAt("gnome-shell");
    click(kInBar);
    host->callItem(QStringLiteral("Activate"), {kOutOfBars.x(), kOutOfBars.y()});
    choosePanelInMenu();
    EXPECT_THAT(activations,
                ElementsAre(Pair(kOutOfBars, ActivationSource::click),
                            Pair(kInBar, ActivationSource::menu)));
}

TEST_F(StatusItemAnchorTest, aClickIsForgottenWithItsHost) {
    startAt("gnome-shell");
    click(kInBar);
    FakeTrayHost next(daemon.address());
    next.beWatcher();
    ASSERT_TRUE(seesRegistrations(next, 1));
    next.callItem(QStringLiteral("XAyatanaSecondaryActivate"), {7U});
    EXPECT_THAT(activations, ElementsAre(Pair(std::nullopt, ActivationSource::click)));
}

TEST_F(StatusItemAnchorTest, aHostThatCannotTellLeavesNoAnchor) {
    startAt("waybar");
    host->callItem(QStringLiteral("Activate"), {75, 17});
    choosePanelInMenu();
    EXPECT_THAT(activations,
                ElementsAre(Pair(std::nullopt, ActivationSource::click),
                            Pair(std::nullopt, ActivationSource::menu)));
}

TEST_F(StatusItemAnchorTest, inTheOlderTrayThePointerIsOverAWindowOfX11AndSoKnown) {
    hasOlderTray = true;
    start();
    EXPECT_TRUE(spinUntil([this] {
        pass(10s);
        return olderIcon() != nullptr;
    }));
    Q_EMIT olderIcon()->activated(QSystemTrayIcon::Trigger);
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(400, 170), ActivationSource::click)));
}

}  // namespace

}  // namespace quillbar
