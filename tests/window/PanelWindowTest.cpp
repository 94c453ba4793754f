// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelWindow.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/window/PanelWindowFixture.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using AskedBy = PanelWindow::AskedBy;

using PanelWindowTest = PanelWindowFixture;

TEST_F(PanelWindowTest, handsATokenToTheCompositorUnlessItIsLongerThanAnyDesktops) {
    const TemporaryEnvironment handed("XDG_ACTIVATION_TOKEN", std::nullopt);
    const std::string longest(1024, 't');
    m_window.setActivationToken(QString::fromStdString(longest));
    EXPECT_EQ(handed.value(), longest);
    m_window.setActivationToken(QString::fromStdString(longest + "t"));
    EXPECT_EQ(handed.value(), "");
    m_window.setActivationToken(QStringLiteral("kwin-5"));
    EXPECT_EQ(handed.value(), "kwin-5");
}

TEST_F(PanelWindowTest, opensAtTheSizeOfItsContentAndClosesAtTheSecondClick) {
    clickItem();
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(m_window.size(), QSize(400, 300));
    EXPECT_EQ(m_content->size(), QSize(400, 300));
    EXPECT_TRUE(m_window.screen()->availableGeometry().contains(m_window.geometry()));
    clickItem();
    EXPECT_FALSE(m_window.isVisible());
    clickItem();
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(PanelWindowTest, withAnItemGoesBackToItWhereverItIs) {
    clickItem();
    const QPoint beside = m_window.pos();
    m_window.move(beside + QPoint(20, 20));
    m_content->grow({400, 350});
    ASSERT_TRUE(spinUntil([this] { return m_window.height() == 350; }));
    EXPECT_EQ(m_window.pos(), beside);
}

TEST_F(PanelWindowTest, tellsWhenItOpensAndCloses) {
    std::vector<std::string> told;
    m_window.onOpened = [&] { told.emplace_back("opened"); };
    m_window.onClosed = [&] { told.emplace_back("closed"); };
    clickItem();
    m_window.open(PanelWindow::AskedBy::command);
    clickItem();
    EXPECT_EQ(told, (std::vector<std::string>{"opened", "closed"}));
    m_window.onOpened = nullptr;
    m_window.onClosed = nullptr;
}

TEST_F(PanelWindowTest, takesTheFocusAndClosesAtEscape) {
    clickItem();
    EXPECT_TRUE(spinUntil([this] { return m_content->hasFocus(); }));
    QTest::keyClick(m_content, Qt::Key_Escape);
    EXPECT_FALSE(m_window.isVisible());
    m_window.toggle(AskedBy::pointer, QPoint{300, 0});
    EXPECT_TRUE(m_window.isVisible()) << "the keyboard's closing must not hold the item back";
}

TEST_F(PanelWindowTest, aCommandTogglesItToo) {
    m_window.toggle(AskedBy::command);
    EXPECT_TRUE(m_window.isVisible());
    m_window.toggle(AskedBy::command);
    EXPECT_FALSE(m_window.isVisible());
    m_window.toggle(AskedBy::command);
    EXPECT_TRUE(m_window.isVisible()) << "a key is not held back as a click would be";
}

TEST_F(PanelWindowTest, tellsWhenItOpensAndNotWhenItIsRaised) {
    int openings = 0;
    m_window.onOpened = [&openings] { ++openings; };
    m_window.open(AskedBy::command);
    m_window.open(AskedBy::command);
    EXPECT_EQ(openings, 1);
    m_window.toggle(AskedBy::command);
    m_window.open(AskedBy::command);
    EXPECT_EQ(openings, 2);
}

TEST_F(PanelWindowTest, aClickWithoutAPlaceOpensItWhereTheItemWasLast) {
    m_window.open(AskedBy::pointer, QPoint{300, 0});
    const QRect beside = m_window.geometry();
    m_window.dismiss();
    m_window.toggle(AskedBy::pointer);
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(m_window.geometry(), beside);
}

TEST_F(PanelWindowTest, theSecondClickOfADoubleClickWithoutAPlaceLeavesItOpen) {
    m_window.toggle(AskedBy::pointer);
    m_elapsed += 200ms;
    m_window.toggle(AskedBy::pointer);
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(PanelWindowTest, otherKeysLeaveItOpen) {
    clickItem();
    QTest::keyClick(m_content, Qt::Key_A);
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(PanelWindowTest, followsTheSizeOfItsContent) {
    clickItem();
    m_content->grow({400, 420});
    EXPECT_TRUE(spinUntil([this] { return m_window.height() == 420; }));
    EXPECT_EQ(m_content->height(), 420);
}

TEST_F(PanelWindowTest, shrinksContentThatTheScreenCannotHold) {
    m_content->grow({400, 100'000});
    clickItem();
    EXPECT_LT(m_window.height(), m_window.screen()->availableGeometry().height());
    EXPECT_EQ(m_content->height(), m_window.height());
}

TEST_F(PanelWindowTest, opensInTheMiddleWhenThereIsNoItem) {
    m_window.open(AskedBy::command);
    const QRect workArea = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(m_window.geometry().center(), QRect(workArea).center());
}

TEST_F(PanelWindowTest, goesWhereAnItemWouldBeWhenTheScreenOfTheItemIsGone) {
    m_window.open(AskedBy::command);
    const QRect withoutItem = m_window.geometry();
    m_window.open(AskedBy::pointer, QPoint{300, 0});
    EXPECT_NE(m_window.geometry(), withoutItem);
    m_window.open(AskedBy::pointer, QPoint{30'000, 0});
    EXPECT_EQ(m_window.geometry(), withoutItem);
}

TEST_F(PanelWindowTest, goesToItsPlaceOnceMoreWhenAWindowManagerMovesItAsItOpens) {
    m_window.open(AskedBy::pointer, QPoint{300, 0});
    const QRect wanted = m_window.geometry();
    moveByWindowManager({2, 20});
    EXPECT_EQ(m_window.geometry(), wanted);
    moveByWindowManager({2, 20});
    EXPECT_EQ(m_window.geometry(), wanted.translated(2, 20)) << "who insists is right";
    m_window.dismiss();
    m_window.open(AskedBy::pointer, QPoint{300, 0});
    moveByWindowManager({2, 20});
    EXPECT_EQ(m_window.geometry(), wanted);
}

TEST_F(PanelWindowTest, staysWhereTheUserMovesIt) {
    clickItem();
    const QRect before = m_window.geometry();
    moveByWindowManager({2, 20});
    EXPECT_EQ(m_window.geometry(), before.translated(2, 20));
}

TEST_F(PanelWindowTest, itsOwnMenuDoesNotCloseIt) {
    clickItem();
    QMenu menu(&m_window);
    menu.addAction(QStringLiteral("x"));
    menu.popup({310, 50});
    EXPECT_TRUE(spinUntil([&menu] { return menu.isVisible(); }));
    spinUntilIdle();
    EXPECT_TRUE(m_window.isVisible());
    QTest::keyClick(&menu, Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(PanelWindowTest, closesWhenTheFocusGoesToAnotherProgram) {
    clickItem();
    movePointerInside();
    loseFocus();
    EXPECT_TRUE(focusWait().isActive());
    EXPECT_TRUE(focusWait().isSingleShot());
    EXPECT_EQ(focusWait().intervalAsDuration(), 60ms);
    EXPECT_TRUE(m_window.isVisible());
    endFocusWait();
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(PanelWindowTest, waitsLongerForAPointerThatHasNotBeenInside) {
    clickItem();
    loseFocus();
    EXPECT_TRUE(focusWait().isActive());
    EXPECT_EQ(focusWait().intervalAsDuration(), 500ms);
    endFocusWait();
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(PanelWindowTest, waitsForThePointerAnewEachTimeItOpens) {
    clickItem();
    movePointerInside();
    m_window.dismiss();
    EXPECT_FALSE(focusWait().isActive());
    clickItem();
    loseFocus();
    EXPECT_EQ(focusWait().intervalAsDuration(), 500ms);
}

TEST_F(PanelWindowTest, staysWhenThePointerBringsTheFocusBackInTime) {
    clickItem();
    loseFocus();
    ASSERT_TRUE(focusWait().isActive());
    // However slow the machine is.
    focusWait().stop();
    movePointerInside();
    m_window.activateWindow();
    ASSERT_TRUE(spinUntil([this] { return m_window.isActiveWindow(); }));
    endFocusWait();
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(PanelWindowTest, staysWhereItIsToldThatElsewhereIsNothing) {
    m_window.setElsewhere(PanelWindow::Elsewhere::changesNothing);
    clickItem();
    loseFocus();
    endFocusWait();
    EXPECT_TRUE(m_window.isVisible());
    QTest::keyClick(m_content, Qt::Key_Escape);
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(PanelWindowTest, saysThatItHasClosed) {
    int closed = 0;
    m_window.onClosed = [&closed] { ++closed; };
    clickItem();
    EXPECT_EQ(closed, 0);
    QTest::keyClick(m_content, Qt::Key_Escape);
    EXPECT_EQ(closed, 1);
}

TEST_F(PanelWindowTest, hasNotClosedWhenItIsMinimised) {
    int closed = 0;
    m_window.onClosed = [&closed] { ++closed; };
    clickItem();
    becomes(Qt::WindowMinimized);
    ASSERT_TRUE(m_window.isMinimized());
    EXPECT_EQ(closed, 0);
    becomes(Qt::WindowNoState);
    EXPECT_EQ(closed, 0);
    EXPECT_TRUE(m_window.isVisible());
    QTest::keyClick(m_content, Qt::Key_Escape);
    EXPECT_EQ(closed, 1);
}

TEST_F(PanelWindowTest, aClickBringsItBackWhenItIsMinimised) {
    clickItem();
    becomes(Qt::WindowMinimized);
    clickItem();
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_FALSE(m_window.isMinimized());
}

TEST_F(PanelWindowTest, isNotMinimisedWhenItOpensAgain) {
    clickItem();
    becomes(Qt::WindowMinimized);
    m_window.dismiss();
    clickItem();
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_FALSE(m_window.isMinimized());
}

TEST_F(PanelWindowTest, itsMenusCloseWithIt) {
    clickItem();
    QMenu menu(m_content);
    QMenu* const below = menu.addMenu(QStringLiteral("x"));
    below->addAction(QStringLiteral("y"));
    menu.popup({310, 50});
    below->popup({320, 60});
    ASSERT_EQ(QApplication::activePopupWidget(), below);
    m_window.toggle(AskedBy::command);
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_FALSE(menu.isVisible());
    EXPECT_FALSE(below->isVisible());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(PanelWindowTest, aMenuThatIsNotItsOwnStays) {
    clickItem();
    QMenu menu;
    menu.addAction(QStringLiteral("x"));
    menu.popup({310, 50});
    m_window.dismiss();
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_TRUE(menu.isVisible());
}

}  // namespace

}  // namespace quillbar
