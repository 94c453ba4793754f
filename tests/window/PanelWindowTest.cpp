// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/Theme.h"
#include "Quillbar/window/PanelWindow.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/window/FakeSway.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QPen>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <QWindowStateChangeEvent>

#include <gtest/gtest.h>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

/// Content of a size that the test sets.
class Content final : public QWidget {
public:
    explicit Content(QSize size)
        : m_size(size) {
        setFocusPolicy(Qt::StrongFocus);
    }

    [[nodiscard]] QSize sizeHint() const override { return m_size; }

    void grow(QSize size) {
        m_size = size;
        updateGeometry();
    }

private:
    QSize m_size;
};

class PanelWindowTest : public ::testing::Test {
protected:
    void clickItem() {
        m_window.toggle(QPoint{300, 0});
        m_elapsed += 1s;
    }

    /// The focus goes where no window of the program is.
    void loseFocus() {
        {
            QWidget other;
            other.show();
            other.activateWindow();
            EXPECT_TRUE(spinUntil([&other] { return other.isActiveWindow(); }));
        }
        ASSERT_EQ(QGuiApplication::focusWindow(), nullptr);
        QEvent deactivated(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(&m_window, &deactivated);
    }

    /// The window manager makes an icon of the window, or shows it again.
    void becomes(Qt::WindowStates states) {
        QWindow& native = *m_window.windowHandle();
        const Qt::WindowStates before = native.windowStates();
        native.setWindowStates(states);
        QWindowStateChangeEvent changed(before);
        QCoreApplication::sendEvent(&native, &changed);
    }

    // Its absence: these tests may themselves run in a session of sway.
    TemporaryEnvironment m_swaySocket{"SWAYSOCK", std::nullopt};
    std::chrono::milliseconds m_elapsed{0};
    Content* m_content = new Content({400, 300});
    PanelWindow m_window{m_content, [this] { return m_elapsed; }};
};

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

TEST_F(PanelWindowTest, takesTheFocusAndClosesAtEscape) {
    clickItem();
    EXPECT_TRUE(spinUntil([this] { return m_content->hasFocus(); }));
    QTest::keyClick(m_content, Qt::Key_Escape);
    EXPECT_FALSE(m_window.isVisible());
    m_window.toggle(QPoint{300, 0});
    EXPECT_TRUE(m_window.isVisible()) << "the keyboard's closing must not hold the item back";
}

TEST_F(PanelWindowTest, aCommandTogglesItToo) {
    m_window.toggle(std::nullopt);
    EXPECT_TRUE(m_window.isVisible());
    m_window.toggle(std::nullopt);
    EXPECT_FALSE(m_window.isVisible());
    m_window.toggle(std::nullopt);
    EXPECT_TRUE(m_window.isVisible()) << "a key is not held back as a click would be";
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
    m_window.open(std::nullopt);
    const QRect workArea = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(m_window.geometry().center(), QRect(workArea).center());
}

TEST_F(PanelWindowTest, goesWhereAnItemWouldBeWhenTheScreenOfTheItemIsGone) {
    m_window.open(std::nullopt);
    const QRect withoutItem = m_window.geometry();
    m_window.open(QPoint{300, 0});
    EXPECT_NE(m_window.geometry(), withoutItem);
    m_window.open(QPoint{30'000, 0});
    EXPECT_EQ(m_window.geometry(), withoutItem);
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
    loseFocus();
    EXPECT_TRUE(spinUntil([this] { return !m_window.isVisible(); }));
}

TEST_F(PanelWindowTest, staysWhereItIsToldThatElsewhereIsNothing) {
    m_window.setElsewhere(PanelWindow::Elsewhere::changesNothing);
    clickItem();
    loseFocus();
    bool isOver = false;
    QTimer::singleShot(200ms, &m_window, [&isOver] { isOver = true; });
    EXPECT_TRUE(spinUntil([&isOver] { return isOver; }));
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
    m_window.toggle(std::nullopt);
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

TEST_F(PanelWindowTest, isDrawnInTheContentsTheme) {
    ThemeKey::set(*m_content, {.colors = ThemeColors::light()});
    clickItem();
    const QImage picture = m_window.grab().toImage();
    EXPECT_EQ(picture.pixelColor(200, 150), ThemeColors::light().surface);
}

TEST_F(PanelWindowTest, hasCornersRoundByTenPointsAndAnEdgeOfOne) {
    clickItem();
    const ThemeColors::Resolved& colors = ThemeColors::dark();
    QImage expected(400, 300, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    {
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.surface);
        painter.drawRoundedRect(QRectF(0, 0, 400, 300), 10, 10);
        painter.setPen(QPen(colors.separator, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(0.5, 0.5, 399, 299), 9.5, 9.5);
    }
    EXPECT_LE(difference(m_window.grab().toImage(), expected), 2);
}

TEST_F(PanelWindowTest, fillsItsCornersWhereTheyAreCut) {
    clickItem();
    m_window.setMask(m_window.rect());
    const QImage picture = m_window.grab().toImage();
    EXPECT_EQ(picture.pixelColor(0, 0), ThemeColors::dark().surface);
    EXPECT_EQ(picture.pixelColor(399, 299), ThemeColors::dark().surface);
}

class PanelWindowInSwayTest : public ::testing::Test {
protected:
    PanelWindowInSwayTest() {
        m_sway.pid = QCoreApplication::applicationPid();
        m_sway.workspace = {0, 0, 1280, 770};
        m_sway.window = {700, 320, 400, 480};
    }

    void waitForRequests(std::size_t count) {
        EXPECT_TRUE(spinUntil([this, count] { return m_sway.requests.size() >= count; }));
        spinUntilIdle();
    }

    FakeSway m_sway;
    TemporaryEnvironment m_socket{"SWAYSOCK", m_sway.path().toStdString()};
    Content* m_content = new Content({400, 480});
    PanelWindow m_window{m_content, [] { return 0ms; }};
};

TEST_F(PanelWindowInSwayTest, isPlacedWhenItOpens) {
    m_window.open(QPoint(1, 2));
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests[2],
              "[con_id=8] floating enable, border none, sticky enable, move position cursor");
    EXPECT_EQ(m_sway.requests[4], "[con_id=8] move absolute position 700 px 286 px");
    m_window.dismiss();
    EXPECT_TRUE(spinUntil([this] { return !m_sway.isConnected(); }));
}

TEST_F(PanelWindowInSwayTest, isPlacedWithoutThePointerWhenNobodyClicked) {
    m_window.open(std::nullopt);
    waitForRequests(5);
    EXPECT_EQ(m_sway.requests[2], "[con_id=8] floating enable, border none, sticky enable");
}

TEST_F(PanelWindowInSwayTest, isMovedWhenItGrows) {
    m_window.open(QPoint(1, 2));
    waitForRequests(5);
    m_content->grow({400, 500});
    waitForRequests(6);
    EXPECT_EQ(m_sway.requests.back(), "[con_id=8] move absolute position 700 px 266 px");
}

TEST_F(PanelWindowInSwayTest, hasNoOtherSizeSoThatItIsNotTiled) {
    m_window.open(QPoint(1, 2));
    EXPECT_EQ(m_window.minimumSize(), QSize(400, 480));
    EXPECT_EQ(m_window.maximumSize(), QSize(400, 480));
    m_content->grow({400, 500});
    EXPECT_TRUE(spinUntil([this] { return m_window.height() == 500; }));
}

}  // namespace

}  // namespace quillbar
