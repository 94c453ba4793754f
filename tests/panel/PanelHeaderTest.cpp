// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PanelHeader.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "tests/panel/PanelFixture.h"
#include "tests/qtsupport/Pointer.h"

namespace quillbar {

namespace {

const QString kClose = QStringLiteral("关闭面板");
constexpr QPoint kPlace(100, 100);

struct PanelHeaderTest : PanelFixture {
    void TearDown() override {
        if (panel) {
            pointer::letGo(*panel);
        }
    }

    void showStandalone() {
        startConnected(listOf({"BTC"}));
        show().setStandalone(true);
        panel->move(kPlace);
        spinUntilIdle();
    }
    [[nodiscard]] PanelHeader& header() const { return *widgetsOf<PanelHeader>(*panel).at(0); }
    /// Presses the header in its middle and pulls it by as much.
    void drag(const QPoint& way) {
        const QPoint middle = header().rect().center();
        pointer::press(header(), middle, Qt::LeftButton);
        pointer::pull(header(), middle + way);
        spinUntilIdle();
        // Where the header is pressed and held, it is under the pointer still.
        pointer::release(header(), panel->pos() == kPlace ? middle + way : middle, Qt::LeftButton);
    }
};

TEST_F(PanelHeaderTest, hasNoMarkThatClosesWhereThereIsAnItem) {
    startConnected(listOf({"BTC"}));
    show();
    EXPECT_EQ(named(*panel, kClose), nullptr);
    panel->setStandalone(true);
    EXPECT_NE(named(*panel, kClose), nullptr);
    panel->setStandalone(false);
    EXPECT_EQ(named(*panel, kClose), nullptr);
}

TEST_F(PanelHeaderTest, theMarkStandsAtTheEndAndCloses) {
    showStandalone();
    int closed = 0;
    panel->onClose = [&closed] { ++closed; };
    QWidget& mark = *named(*panel, kClose);
    EXPECT_EQ(mark.mapTo(panel.get(), QPoint(mark.width(), 0)).x(), 400 - 12);
    EXPECT_EQ(mark.size(), QSize(24, 24));
    EXPECT_EQ(mark.toolTip(), kClose);
    QTest::mouseClick(&mark, Qt::LeftButton);
    EXPECT_EQ(closed, 1);
}

TEST_F(PanelHeaderTest, dragsAPanelThatIsAWindowByItself) {
    showStandalone();
    drag(QPoint(30, 20));
    EXPECT_EQ(panel->pos(), kPlace + QPoint(30, 20));
}

TEST_F(PanelHeaderTest, dragsNoPanelThatDropsFromAnItem) {
    showStandalone();
    panel->setStandalone(false);
    drag(QPoint(30, 20));
    EXPECT_EQ(panel->pos(), kPlace);
}

TEST_F(PanelHeaderTest, aRowDragsNoWindow) {
    showStandalone();
    pointer::press(onlyRow(), onlyRow().rect().center(), Qt::LeftButton);
    pointer::pull(onlyRow(), onlyRow().rect().center() + QPoint(30, 20));
    spinUntilIdle();
    pointer::letGo(onlyRow());
    EXPECT_EQ(panel->pos(), kPlace);
}

}  // namespace

}  // namespace quillbar
