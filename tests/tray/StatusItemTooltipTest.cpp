// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/tray/StatusItemFixture.h"

#include <QApplication>
#include <QDBusVariant>
#include <QSystemTrayIcon>

#include <gmock/gmock.h>

namespace quillbar {

namespace {

using ::testing::Contains;
using ::testing::Not;

struct StatusItemTooltipTest : StatusItemFixture {
    /// The host says that its menu was "opened" or "closed".
    void tellMenu(const char* what) {
        host->callMenu(
            QStringLiteral("Event"),
            {DBusMenu::kRoot, QString::fromLatin1(what), QVariant::fromValue(QDBusVariant(0)), 0U});
    }
    [[nodiscard]] QString itemTitle() { return host->property(QStringLiteral("Title")).toString(); }
    /// The title of the tooltip so much later.
    [[nodiscard]] QString titleAfter(Seconds span) {
        pass(span);
        settle();
        return host->tooltip().title;
    }
};

TEST_F(StatusItemTooltipTest, saysMoreInItsTooltip) {
    startAt("some-panel");
    EXPECT_EQ(host->tooltip().title, face().text);
    EXPECT_EQ(host->tooltip().text, QStringLiteral("刚刚更新\n已连接"));
}

TEST_F(StatusItemTooltipTest, saysItAllInTheTitleWhereOnlyThatIsShown) {
    startAt("lxqt-panel");
    EXPECT_EQ(host->tooltip().title, face().text + QStringLiteral("\n刚刚更新\n已连接"));
    EXPECT_EQ(host->tooltip().text, QString());
}

TEST_F(StatusItemTooltipTest, escapesItsTooltip) {
    startAt("some-panel");
    LabelFace odd = face(QStringLiteral("A&B<C>"));
    odd.details = QStringLiteral("<br>");
    item->show(odd);
    settle();
    EXPECT_EQ(host->tooltip().title, QStringLiteral("A&amp;B&lt;C&gt;"));
    EXPECT_EQ(host->tooltip().text, QStringLiteral("&lt;br&gt;"));
}

TEST_F(StatusItemTooltipTest, hasNoTooltipWhileThePanelIsOpenAndForAMomentAfterThat) {
    startAt("some-panel");
    item->setPanelOpen(true);
    settle();
    EXPECT_EQ(host->tooltip().title, QString());
    EXPECT_EQ(host->tooltip().text, QString());
    pass(Seconds{600});
    settle();
    EXPECT_EQ(host->tooltip().title, QString());
    item->setPanelOpen(false);
    pass(Seconds{2.9});
    settle();
    EXPECT_EQ(host->tooltip().title, QString());
    pass(Seconds{0.1});
    settle();
    EXPECT_EQ(host->tooltip().title, face().text);
    EXPECT_EQ(host->tooltip().text, face().details);
}

TEST_F(StatusItemTooltipTest, tellsNoHostOfATooltipWhileThePanelIsOpen) {
    startAt("some-panel");
    item->setPanelOpen(true);
    settle();
    host->signalled.clear();
    item->show(face(QStringLiteral("BTC 67,235.00 ▲ 1.24%")));
    settle();
    EXPECT_THAT(host->signalled, Not(Contains(QStringLiteral("NewToolTip"))));
}

TEST_F(StatusItemTooltipTest, hasNoTooltipForAMomentAfterAClick) {
    startAt("some-panel");
    host->callItem(QStringLiteral("Activate"), {10, 10});
    EXPECT_EQ(host->tooltip().title, QString());
    pass(TooltipPause::kAfterClick);
    settle();
    EXPECT_EQ(host->tooltip().title, face().text);
}

TEST_F(StatusItemTooltipTest, isTheItemsTitleWhereAnEmptyTooltipLeavesTheLastOneOnTheScreen) {
    startAt("waybar");
    const QString title =
        QStringLiteral("<b>") + face().text + QStringLiteral("</b>\n刚刚更新\n已连接");
    EXPECT_EQ(itemTitle(), title);
    EXPECT_EQ(host->tooltip(), StatusTooltip{});
    item->setPanelOpen(true);
    settle();
    EXPECT_EQ(itemTitle(), QString());
    EXPECT_EQ(host->signalled.last(), QStringLiteral("NewTitle"));
    item->setPanelOpen(false);
    pass(TooltipPause::kAfterClick);
    settle();
    EXPECT_EQ(itemTitle(), title);
    EXPECT_EQ(host->signalled.count(QStringLiteral("NewToolTip")), 0);
}

TEST_F(StatusItemTooltipTest, leavesNoNamesToAHostThatMakesATooltipOfThem) {
    startAt("panel-7-systray");
    const auto description = [this] {
        return host->property(QStringLiteral("IconAccessibleDesc")).toString();
    };
    EXPECT_EQ(itemTitle(), QStringLiteral("Quillbar"));
    EXPECT_EQ(description(), face().text);
    item->setPanelOpen(true);
    EXPECT_EQ(itemTitle(), QString());
    EXPECT_EQ(description(), QString());
    EXPECT_EQ(host->tooltip(), StatusTooltip{});
    item->show(face(QStringLiteral("BTC 67,235.00 ▲ 1.24%")));
    EXPECT_EQ(description(), QString());
    item->setPanelOpen(false);
    pass(TooltipPause::kAfterClick);
    EXPECT_EQ(itemTitle(), QStringLiteral("Quillbar"));
    EXPECT_EQ(description(), QStringLiteral("BTC 67,235.00 ▲ 1.24%"));
}

TEST_F(StatusItemTooltipTest, keepsItsNamesAtOtherHosts) {
    startAt("some-panel");
    item->setPanelOpen(true);
    EXPECT_EQ(itemTitle(), QStringLiteral("Quillbar"));
    EXPECT_EQ(host->property(QStringLiteral("IconAccessibleDesc")).toString(), face().text);
}

TEST_F(StatusItemTooltipTest, hasNoTooltipWhileTheHostsMenuIsOpen) {
    startAt("some-panel");
    tellMenu("opened");
    EXPECT_EQ(titleAfter(Seconds{20}), QString());
    tellMenu("closed");
    EXPECT_EQ(titleAfter(TooltipPause::kAfterClick), face().text);
    tellMenu("opened");
    EXPECT_EQ(titleAfter(TooltipPause::kLongestMenu), face().text)
        << "not every host says that it has closed";
}

TEST_F(StatusItemTooltipTest, hasNoneWhileAnOpenMenuIsAskedForAgain) {
    startAt("some-panel");
    tellMenu("opened");
    host->callMenu(QStringLiteral("AboutToShow"), {DBusMenu::kRoot});
    EXPECT_EQ(titleAfter(Seconds{20}), QString());
    EXPECT_EQ(titleAfter(TooltipPause::kLongestMenu - Seconds{20}), face().text);
}

TEST_F(StatusItemTooltipTest, hasNoneOverTheMenuThatThePanelHasClosedFor) {
    startAt("some-panel");
    item->setPanelOpen(true);
    tellMenu("opened");
    item->setPanelOpen(false);
    EXPECT_EQ(titleAfter(Seconds{20}), QString());
    tellMenu("closed");
    EXPECT_EQ(titleAfter(TooltipPause::kAfterClick), face().text);
}

TEST_F(StatusItemTooltipTest, theLaterEndOfTwoPausesCounts) {
    startAt("some-panel");
    tellMenu("opened");
    EXPECT_EQ(titleAfter(TooltipPause::kLongestMenu - Seconds{1}), QString());
    host->callItem(QStringLiteral("Activate"), {10, 10});
    EXPECT_EQ(titleAfter(Seconds{2}), QString());
    EXPECT_EQ(titleAfter(Seconds{1}), face().text);
}

TEST_F(StatusItemTooltipTest, hasNoneWhileItsOwnMenuIsOpenHoweverLong) {
    startAt("swaybar");
    host->callItem(QStringLiteral("ContextMenu"), {10, 10});
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(titleAfter(TooltipPause::kLongestMenu * 2), QString());
    menu->close();
    EXPECT_EQ(titleAfter(TooltipPause::kAfterClick), face().text);
}

TEST_F(StatusItemTooltipTest, hasNoTooltipInAnOlderTrayWhileThePanelIsOpen) {
    hasOlderTray = true;
    start();
    pass(StatusItem::kPatience);
    ASSERT_NE(olderIcon(), nullptr);
    item->setPanelOpen(true);
    EXPECT_EQ(olderIcon()->toolTip(), QString());
    item->setPanelOpen(false);
    pass(TooltipPause::kAfterClick);
    EXPECT_EQ(olderIcon()->toolTip(), face().text + u'\n' + face().details);
}

}  // namespace

}  // namespace quillbar
