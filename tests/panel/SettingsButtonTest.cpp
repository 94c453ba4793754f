// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/SettingsButton.h"
#include "QuillbarCore/catalog/CoinNames.h"
#include "tests/panel/SettingsFixture.h"
#include "tests/qtsupport/Widgets.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMenu>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

/// All items while nothing was changed, as `items` tells them.
const std::vector<std::string> kItems{"(涨跌幅基准)",
                                      "24 小时*",
                                      "今日",
                                      "(外观)",
                                      "深色*",
                                      "浅色",
                                      "跟随系统",
                                      "-",
                                      "开机自启",
                                      "偏好设置…",
                                      "-",
                                      "复制自选",
                                      "-",
                                      "退出 Quillbar"};

/// The button at the right end of a window of the panel's width.
struct SettingsButtonTest : SettingsFixture {
    void TearDown() override {
        if (menu() != nullptr) {
            menu()->close();
        }
    }

    void show() {
        makeSettings();
        window = std::make_unique<QWidget>();
        window->setGeometry(100, 100, 400, 40);
        ThemeKey::set(*window, {.colors = ThemeColors::dark()});
        button = new SettingsButton(
            *settings, state->watchlist(), [this] { ++quits; }, window.get());
        button->move(364, 8);
        showActive(*window);
    }
    void open() {
        QTest::mouseClick(button, Qt::LeftButton);
        ASSERT_NE(menu(), nullptr);
    }
    [[nodiscard]] static QMenu* menu() {
        return dynamic_cast<QMenu*>(QApplication::activePopupWidget());
    }
    [[nodiscard]] static QAction* action(const std::string& title) {
        for (QAction* const each : menu()->actions()) {
            if (each->text().toStdString() == title) {
                return each;
            }
        }
        ADD_FAILURE() << "no item " << title;
        return nullptr;
    }
    /// Clicks an item of the menu that is open, which closes it.
    static void click(const std::string& title) {
        const QRect place = menu()->actionGeometry(action(title));
        QTest::mouseClick(menu(), Qt::LeftButton, {}, place.center());
    }
    static void press(Qt::Key key) { QTest::keyClick(menu(), key); }
    /// The item that the keyboard is at.
    [[nodiscard]] static std::string current() {
        const QAction* const active = menu()->activeAction();
        return active == nullptr ? "" : active->text().toStdString();
    }
    /// The items from above: "-" for a divider, "(title)" for one that cannot be chosen, a "*"
    /// behind what is on.
    [[nodiscard]] static std::vector<std::string> items() {
        std::vector<std::string> titles;
        for (const QAction* const each : menu()->actions()) {
            const std::string title = each->text().toStdString() + (each->isChecked() ? "*" : "");
            titles.push_back(each->isSeparator() ? "-"
                             : each->isEnabled() ? title
                                                 : "(" + title + ")");
        }
        return titles;
    }

    std::unique_ptr<QWidget> window;
    SettingsButton* button = nullptr;
    int quits = 0;
};

TEST_F(SettingsButtonTest, saysWhatItIs) {
    show();
    EXPECT_EQ(button->accessibleName(), QStringLiteral("设置"));
    EXPECT_EQ(button->toolTip(), QStringLiteral("设置"));
    EXPECT_EQ(button->glyph(), Glyph::gear);
}

TEST_F(SettingsButtonTest, tellsAScreenReaderThatItOpensAMenu) {
    show();
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(button);
    EXPECT_EQ(told->role(), QAccessible::ButtonMenu);
    EXPECT_TRUE(told->state().hasPopup);
    EXPECT_TRUE(told->state().focusable);
    EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("设置"));
}

TEST_F(SettingsButtonTest, isOpenedByAScreenReader) {
    show();
    for (const QString& action : {QAccessibleActionInterface::showMenuAction(),
                                  QAccessibleActionInterface::pressAction()}) {
        QAccessibleActionInterface* const actions =
            QAccessible::queryAccessibleInterface(button)->actionInterface();
        EXPECT_TRUE(actions->actionNames().contains(action));
        actions->doAction(action);
        ASSERT_NE(menu(), nullptr) << action.toStdString();
        press(Qt::Key_Escape);
    }
}

TEST_F(SettingsButtonTest, takesTheFocusFromAScreenReader) {
    show();
    QAccessibleActionInterface* const actions =
        QAccessible::queryAccessibleInterface(button)->actionInterface();
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(button->hasFocus());
    EXPECT_EQ(menu(), nullptr);
}

TEST_F(SettingsButtonTest, opensTheMenuBelowItself) {
    show();
    open();
    const QRect anchor(button->mapToGlobal(QPoint()), button->size());
    EXPECT_EQ(menu()->geometry().top(), anchor.bottom() + 3);
    EXPECT_EQ(menu()->geometry().right(), window->geometry().right());
    EXPECT_EQ(items(), kItems);
}

TEST_F(SettingsButtonTest, isBrightWhileItsMenuIsOpen) {
    show();
    button->setAttribute(Qt::WA_UnderMouse, false);
    const QImage resting = pictureOf(*button);
    button->setAttribute(Qt::WA_UnderMouse);
    const QImage bright = pictureOf(*button);
    button->setAttribute(Qt::WA_UnderMouse, false);
    ASSERT_NE(resting, bright);
    open();
    button->setAttribute(Qt::WA_UnderMouse, false);
    EXPECT_EQ(pictureOf(*button), bright);
    menu()->close();
    spinUntilIdle();
    button->setAttribute(Qt::WA_UnderMouse, false);
    EXPECT_EQ(pictureOf(*button), resting);
}

TEST_F(SettingsButtonTest, opensTheMenuAboveItselfAtTheBottomOfTheScreen) {
    show();
    window->move(100, window->screen()->availableGeometry().bottom() - 50);
    open();
    EXPECT_EQ(menu()->geometry().bottom(), button->mapToGlobal(QPoint()).y() - 3);
}

TEST_F(SettingsButtonTest, isOpenedByKeys) {
    show();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Down}) {
        button->setFocus(Qt::TabFocusReason);
        QTest::keyClick(button, key);
        ASSERT_NE(menu(), nullptr) << key;
        press(Qt::Key_Escape);
        EXPECT_EQ(menu(), nullptr) << key;
    }
    EXPECT_TRUE(window->isVisible());
}

TEST_F(SettingsButtonTest, choosesWithThePointer) {
    show();
    open();
    click("今日");
    EXPECT_EQ(menu(), nullptr);
    EXPECT_EQ(state->settings()->changeBasis, ChangeBasis::today);
    open();
    click("浅色");
    EXPECT_EQ(state->settings()->appearance, AppearanceMode::light);
    open();
    EXPECT_TRUE(action("今日")->isChecked());
    EXPECT_FALSE(action("24 小时")->isChecked());
    EXPECT_TRUE(action("浅色")->isChecked());
}

TEST_F(SettingsButtonTest, choosesWithTheKeyboard) {
    show();
    open();
    std::vector<std::string> passed;
    for (int index = 0; index < 10; ++index) {
        press(Qt::Key_Down);
        passed.push_back(current());
    }
    EXPECT_THAT(passed,
                ElementsAre("24 小时",
                            "今日",
                            "深色",
                            "浅色",
                            "跟随系统",
                            "开机自启",
                            "偏好设置…",
                            "复制自选",
                            "退出 Quillbar",
                            "24 小时"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(menu(), nullptr);
    EXPECT_EQ(state->settings()->changeBasis, ChangeBasis::today);
}

TEST_F(SettingsButtonTest, aHeaderTakesNoClick) {
    show();
    open();
    click("外观");
    EXPECT_NE(menu(), nullptr);
    EXPECT_EQ(*state->settings(), AppSettings::defaultSettings());
}

TEST_F(SettingsButtonTest, showsUnderTheSwitchWhatWentWrong) {
    show();
    item.afterRegister = LoginItemStatus::notRegistered;
    open();
    const int width = menu()->width();
    click("开机自启");
    ASSERT_TRUE(spinUntil([] { return menu() != nullptr; })) << "it opens again by itself";
    std::vector<std::string> withError = kItems;
    withError.insert(std::find(withError.begin(), withError.end(), "开机自启") + 1,
                     "(开机自启注册失败,请检查系统设置中的登录项)");
    EXPECT_EQ(items(), withError);
    EXPECT_LT(menu()->width(), 250);
    EXPECT_GT(menu()->width(), width);
    const int line = menu()->actionGeometry(action("开机自启")).height();
    EXPECT_GT(menu()->actionGeometry(menu()->actions().at(9)).height(), line);
}

TEST_F(SettingsButtonTest, opensAgainEachTimeThatTheSwitchFails) {
    show();
    item.afterRegister = LoginItemStatus::notRegistered;
    open();
    for (int time = 1; time <= 2; ++time) {
        click("开机自启");
        EXPECT_EQ(menu(), nullptr) << time;
        ASSERT_TRUE(spinUntil([] { return menu() != nullptr; })) << time;
    }
    item.afterRegister = LoginItemStatus::enabled;
    click("开机自启");
    spinUntilIdle();
    EXPECT_EQ(menu(), nullptr) << "it is on";
}

TEST_F(SettingsButtonTest, whatWentWrongBeforeOpensNothingAgain) {
    show();
    item.afterRegister = LoginItemStatus::notRegistered;
    open();
    click("开机自启");
    ASSERT_TRUE(spinUntil([] { return menu() != nullptr; }));
    click("今日");
    spinUntilIdle();
    EXPECT_EQ(menu(), nullptr);
    EXPECT_NE(*settings->launchAtLoginError(), std::nullopt);
}

TEST_F(SettingsButtonTest, opensNothingOverAPanelThatHasBeenClosed) {
    show();
    item.afterRegister = LoginItemStatus::notRegistered;
    open();
    click("开机自启");
    window->hide();
    spinUntilIdle();
    EXPECT_EQ(menu(), nullptr);
}

TEST_F(SettingsButtonTest, showsTheSwitchAsTheDesktopHasIt) {
    show();
    item.current = LoginItemStatus::enabled;
    open();
    EXPECT_TRUE(action("开机自启")->isChecked());
    click("开机自启");
    EXPECT_THAT(item.calls, ElementsAre("unregister"));
    open();
    EXPECT_FALSE(action("开机自启")->isChecked());
}

TEST_F(SettingsButtonTest, asksForThePreferencesAndSaysByWhatItHadTheFocus) {
    show();
    std::vector<Qt::FocusReason> asked;
    button->onPreferences = [&asked](Qt::FocusReason reason) { asked.push_back(reason); };
    open();
    click("偏好设置…");
    EXPECT_EQ(menu(), nullptr);
    showActive(*window);
    // It may have the focus as the only one that can.
    button->clearFocus();
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Down);
    ASSERT_NE(menu(), nullptr);
    click("偏好设置…");
    EXPECT_THAT(asked, ElementsAre(Qt::OtherFocusReason, Qt::TabFocusReason));
    EXPECT_EQ(quits, 0);
}

TEST_F(SettingsButtonTest, copiesTheWatchlistAsTheSearchReadsIt) {
    theUserHas(listOf({"ETH", "BTC", "1000SATS"}));
    show();
    QGuiApplication::clipboard()->setText(QStringLiteral("other"));
    open();
    click("复制自选");
    EXPECT_EQ(menu(), nullptr);
    const std::string copied = QGuiApplication::clipboard()->text().toStdString();
    EXPECT_EQ(copied, "ETH, BTC, 1000SATS");
    const std::vector<Coin>& watched = state->watchlist()->coins;
    EXPECT_EQ(CoinNames::find(CoinNames::parse(copied).names, watched).coins, watched);
}

TEST_F(SettingsButtonTest, copiesTheWatchlistAsItIsByThenAndByTheKeyboard) {
    theUserHas(listOf({"ETH"}));
    show();
    run(state->add(coinOf("SOL")));
    open();
    // The last but one, so the second from below.
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    ASSERT_EQ(current(), "复制自选");
    press(Qt::Key_Return);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("ETH, SOL"));
}

TEST_F(SettingsButtonTest, anEmptyWatchlistCannotBeCopied) {
    theUserHas(listOf({}));
    show();
    QGuiApplication::clipboard()->setText(QStringLiteral("other"));
    open();
    EXPECT_FALSE(action("复制自选")->isEnabled());
    click("复制自选");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("other"));
}

TEST_F(SettingsButtonTest, quits) {
    show();
    open();
    click("退出 Quillbar");
    EXPECT_EQ(quits, 1);
    EXPECT_EQ(menu(), nullptr);
}

TEST_F(SettingsButtonTest, aClickOnItWhileTheMenuIsOpenClosesTheMenu) {
    show();
    open();
    QMenu* const opened = menu();
    const QPoint onButton = button->mapTo(window.get(), button->rect().center());
    // As the window system tells it: the menu hears of it first, and may hand it on.
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, onButton);
    spinUntilIdle();
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, onButton);
    EXPECT_EQ(menu(), nullptr);
    EXPECT_FALSE(opened->isVisible());
    open();
}

}  // namespace
}  // namespace quillbar
