// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/ToggleGuard.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using Action = ToggleGuard::Action;
using HiddenBy = ToggleGuard::HiddenBy;

class ToggleGuardTest : public ::testing::Test {
protected:
    void after(std::chrono::milliseconds span) { m_elapsed += span; }

    void open() {
        m_guard.shown();
        after(5s);
    }

    std::chrono::milliseconds m_elapsed{1000};
    ToggleGuard m_guard{[this] { return m_elapsed; }};
};

TEST_F(ToggleGuardTest, aClickOpensAndAnotherCloses) {
    EXPECT_EQ(m_guard.clicked(), Action::open);
    open();
    EXPECT_EQ(m_guard.clicked(), Action::close);
}

TEST_F(ToggleGuardTest, theSecondHalfOfADoubleClickLeavesThePanelOpen) {
    EXPECT_FALSE(m_guard.hasJustOpened());
    m_guard.shown();
    after(399ms);
    EXPECT_TRUE(m_guard.hasJustOpened());
    EXPECT_FALSE(m_guard.closesAtPress());
    EXPECT_EQ(m_guard.clicked(), Action::nothing);
    after(1ms);
    EXPECT_FALSE(m_guard.hasJustOpened());
    EXPECT_TRUE(m_guard.closesAtPress());
    EXPECT_EQ(m_guard.clicked(), Action::close);
}

TEST_F(ToggleGuardTest, aCommandClosesAtOnceButDoesNotReopenWhatItsClickClosed) {
    m_guard.shown();
    EXPECT_EQ(m_guard.commanded(), Action::close);
    m_guard.hidden(HiddenBy::other);
    EXPECT_EQ(m_guard.commanded(), Action::open);
    open();
    m_guard.pressedOutside();
    m_guard.hidden(HiddenBy::pointer);
    EXPECT_EQ(m_guard.commanded(), Action::nothing);
    m_guard.released();
    after(400ms);
    EXPECT_EQ(m_guard.commanded(), Action::open);
}

TEST_F(ToggleGuardTest, theClickWhosePressClosedThePanelDoesNotReopenIt) {
    open();
    m_guard.pressedOutside();
    m_guard.hidden(HiddenBy::pointer);
    after(50ms);
    m_guard.released();
    after(100ms);
    EXPECT_EQ(m_guard.clicked(), Action::nothing);
    after(300ms);
    EXPECT_EQ(m_guard.clicked(), Action::open);
}

TEST_F(ToggleGuardTest, neitherDoesAPressThatIsHeldLong) {
    open();
    m_guard.pressedOutside();
    m_guard.hidden(HiddenBy::pointer);
    after(3s);
    EXPECT_EQ(m_guard.clicked(), Action::nothing);
    EXPECT_TRUE(m_guard.isPressHeld());
    m_guard.released();
    after(399ms);
    EXPECT_EQ(m_guard.clicked(), Action::nothing);
    after(1ms);
    EXPECT_EQ(m_guard.clicked(), Action::open);
}

TEST_F(ToggleGuardTest, focusLostToTheBarCountsAsAPress) {
    open();
    m_guard.hidden(HiddenBy::pointer);
    after(100ms);
    EXPECT_EQ(m_guard.clicked(), Action::nothing);
}

TEST_F(ToggleGuardTest, afterTheKeyboardTheItemOpensAtOnce) {
    open();
    m_guard.hidden(HiddenBy::other);
    EXPECT_EQ(m_guard.clicked(), Action::open);
}

TEST_F(ToggleGuardTest, aReleaseThatEndsNoPressOfOursMeansNothing) {
    m_guard.released();
    EXPECT_EQ(m_guard.clicked(), Action::open);
    EXPECT_FALSE(m_guard.closesAtPress());
}

}  // namespace

}  // namespace quillbar
