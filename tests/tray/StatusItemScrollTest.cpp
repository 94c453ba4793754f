// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/tray/StatusItemFixture.h"

#include <QApplication>
#include <QWheelEvent>

#include <gmock/gmock.h>

#include <limits>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct StatusItemScrollTest : StatusItemFixture {
    void scroll(int delta, const char* orientation) {
        host->callItem(QStringLiteral("Scroll"), {delta, QString::fromLatin1(orientation)});
    }
    void turnWheelOverOlderIcon(QPoint angle) {
        QWheelEvent event(
            QPointF(), QPointF(), QPoint(), angle, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(olderIcon(), &event);
    }
};

TEST_F(StatusItemScrollTest, tellsTheDirectionWhateverTheUnits) {
    startAt("kded5");
    scroll(-120, "vertical");
    scroll(1, "Vertical");
    scroll(15, "vertical");
    scroll(std::numeric_limits<int>::min(), "vertical");
    EXPECT_THAT(scrolled, ElementsAre(1, -1, -1, 1));
    EXPECT_THAT(activations, IsEmpty());
}

TEST_F(StatusItemScrollTest, isTheSameTurnOfTheWheelWhateverSignTheHostGivesIt) {
    startAt("panel-7-systray");
    scroll(1, "vertical");
    scroll(-1, "vertical");
    EXPECT_THAT(scrolled, ElementsAre(1, -1)) << "Xfce counts a turn towards the user as positive";
}

TEST_F(StatusItemScrollTest, ignoresTheWheelThatGoesSideways) {
    startAt("kded5");
    scroll(120, "horizontal");
    scroll(120, "");
    scroll(0, "vertical");
    EXPECT_THAT(scrolled, IsEmpty());
}

TEST_F(StatusItemScrollTest, hearsTheWheelInTheOlderTray) {
    hasOlderTray = true;
    start(QDBusConnection(QStringLiteral("no such connection")));
    ASSERT_NE(olderIcon(), nullptr);
    turnWheelOverOlderIcon({0, -120});
    turnWheelOverOlderIcon({0, 120});
    turnWheelOverOlderIcon({120, 0});
    EXPECT_THAT(scrolled, ElementsAre(1, -1));
}

}  // namespace

}  // namespace quillbar
