// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"
#include "tests/tray/StatusItemFixture.h"

#include <QAction>
#include <QApplication>
#include <QDBusVariant>
#include <QMenu>

#include <gmock/gmock.h>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

using StatusItemMenuTest = StatusItemFixture;

TEST_F(StatusItemMenuTest, showsItsMenuItselfForAHostWithoutMenus) {
    startAt("swaybar");
    host->callItem(QStringLiteral("ContextMenu"), {1000, 10});
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    pointer = QPoint(980, 60);
    menu->actions().first()->trigger();
    EXPECT_TRUE(spinUntil([this] { return !activations.empty(); }));
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(1000, 10), ActivationSource::menu)));
    menu->close();
}

TEST_F(StatusItemMenuTest, opensThePanelWhereAMenuCannotBeShownWithoutAWindow) {
    canPopUpMenus = false;
    startAt("some-panel");
    host->callItem(QStringLiteral("ContextMenu"), {1000, 10});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(1000, 10), ActivationSource::click)));
}

TEST_F(StatusItemMenuTest, opensThePanelWhereNobodyKnowsThePlaceOfAMenu) {
    pointerPosition = PointerPosition::outdated;
    startAt("swaybar");
    host->callItem(QStringLiteral("ContextMenu"), {1000, 10});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(activations, ElementsAre(Pair(std::nullopt, ActivationSource::click)));
}

TEST_F(StatusItemMenuTest, opensThePanelWhereThePointerWasWhenTheMenuCame) {
    startAt("some-panel");
    host->callMenu(QStringLiteral("AboutToShow"), {0});
    pointer = QPoint(980, 60);
    const QVariant nothing = QVariant::fromValue(QDBusVariant(0));
    host->callMenu(QStringLiteral("Event"),
                   {StatusItem::kOpenPanel, QStringLiteral("clicked"), nothing, 0U});
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(1000, 10), ActivationSource::menu)));
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(StatusItemMenuTest, opensThePanelAtThePointerForAHostThatSaysNothingOfItsMenu) {
    startAt("some-panel");
    const QVariant nothing = QVariant::fromValue(QDBusVariant(0));
    host->callMenu(QStringLiteral("Event"),
                   {StatusItem::kOpenPanel, QStringLiteral("clicked"), nothing, 0U});
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(1000, 10), ActivationSource::menu)));
}

TEST_F(StatusItemMenuTest, reportsEveryOtherChoice) {
    startAt("some-panel");
    item->setMenu({MenuEntry{.id = 10, .label = QStringLiteral("设置")}});
    const QVariant nothing = QVariant::fromValue(QDBusVariant(0));
    for (const int id : {10, StatusItem::kQuit}) {
        host->callMenu(QStringLiteral("Event"), {id, QStringLiteral("clicked"), nothing, 0U});
    }
    EXPECT_THAT(chosen, ElementsAre(10, StatusItem::kQuit));
}

TEST_F(StatusItemMenuTest, hasAMenuThatBeginsWithThePanelAndEndsWithQuit) {
    startAt("some-panel");
    item->setMenu({MenuEntry{.id = 10, .label = QStringLiteral("设置")}});
    const QDBusMessage reply =
        host->callMenu(QStringLiteral("GetLayout"), {0, -1, QStringList{QStringLiteral("label")}});
    const auto layout = qdbus_cast<MenuLayout>(reply.arguments().at(1));
    QStringList labels;
    for (const QDBusVariant& child : layout.children) {
        labels << qdbus_cast<MenuLayout>(child.variant())
                      .properties.value(QStringLiteral("label"))
                      .toString();
    }
    EXPECT_EQ(labels,
              QStringList({QStringLiteral("打开面板"),
                           QString(),
                           QStringLiteral("设置"),
                           QString(),
                           QStringLiteral("退出 Quillbar")}));
}

TEST_F(StatusItemMenuTest, itsMenuMayBeSetWhenItIsAboutToBeShown) {
    onMenuShown = [this] { item->setMenu({MenuEntry{.id = 10, .label = QStringLiteral("设置")}}); };
    startAt("some-panel");
    const auto asked = [this] {
        return host->callMenu(QStringLiteral("AboutToShow"), {0}).arguments().value(0).toBool();
    };
    EXPECT_TRUE(asked());
    EXPECT_FALSE(asked());
    item->setMenu({});
    const QDBusMessage group = host->callMenu(QStringLiteral("AboutToShowGroup"),
                                              {QVariant::fromValue(QList<int>{DBusMenu::kRoot})});
    EXPECT_EQ(qdbus_cast<QList<int>>(group.arguments().value(0)), QList<int>{DBusMenu::kRoot});
}

TEST_F(StatusItemMenuTest, itsOwnMenuMayBeSetWhenItIsAboutToBeShown) {
    onMenuShown = [this] { item->setMenu({MenuEntry{.id = 10, .label = QStringLiteral("设置")}}); };
    startAt("swaybar");
    host->callItem(QStringLiteral("ContextMenu"), {10, 10});
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().at(2)->text(), QStringLiteral("设置"));
    EXPECT_TRUE(menu->rect().contains(menu->actionGeometry(menu->actions().last())));
    menu->close();
}

}  // namespace

}  // namespace quillbar
