// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/DBusMenu.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/tray/fakehost/FakeTrayHost.h"

#include <QDBusConnection>
#include <QMap>
#include <QUuid>

#include <gmock/gmock.h>

#include <limits>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kUnknown = 77;

std::vector<MenuEntry> entries() {
    return {
        MenuEntry{.id = 1, .label = QStringLiteral("a_b")},
        MenuEntry{.id = 2, .kind = MenuEntry::Kind::separator},
        MenuEntry{.id = 3,
                  .label = QStringLiteral("more"),
                  .kind = MenuEntry::Kind::submenu,
                  .children = {MenuEntry{.id = 4,
                                         .label = QStringLiteral("on"),
                                         .mark = MenuEntry::Mark::check,
                                         .isOn = true},
                               MenuEntry{.id = 5,
                                         .label = QStringLiteral("one of two"),
                                         .mark = MenuEntry::Mark::radio}}},
        MenuEntry{.id = 6, .label = QStringLiteral("grey"), .isEnabled = false},
    };
}

/// A menu as a host sees it over the bus.
class DBusMenuTest : public ::testing::Test {
public:
    DBusMenuTest()
        : m_name(QUuid::createUuid().toString())
        , m_bus(QDBusConnection::connectToBus(m_daemon.address(), m_name))
        , host(m_daemon.address())
        , menu({
              .shown = [this] { ++shown; },
              .clicked = [this](int id) { clicked.push_back(id); },
          }) {
        EXPECT_TRUE(m_bus.registerObject(DBusMenu::kPath,
                                         &menu,
                                         QDBusConnection::ExportAllProperties
                                             | QDBusConnection::ExportScriptableSlots
                                             | QDBusConnection::ExportScriptableSignals));
        host.RegisterStatusNotifierItem(m_bus.baseService());
        menu.setEntries(entries());
    }
    void TearDown() override { QDBusConnection::disconnectFromBus(m_name); }

    MenuLayout layout(int parent, int depth, const QStringList& names = {}) {
        const QDBusMessage reply =
            host.callMenu(QStringLiteral("GetLayout"), {parent, depth, names});
        EXPECT_EQ(reply.signature(), QStringLiteral("u(ia{sv}av)"));
        revision = reply.arguments().value(0).toUInt();
        return qdbus_cast<MenuLayout>(reply.arguments().value(1));
    }

    /// The properties of all entries as they are, by id.
    QMap<int, QVariantMap> properties() {
        const QDBusMessage reply =
            host.callMenu(QStringLiteral("GetGroupProperties"),
                          {QVariant::fromValue(QList<int>{}), QStringList()});
        QMap<int, QVariantMap> result;
        for (const auto& entry : qdbus_cast<QList<MenuProperties>>(reply.arguments().value(0))) {
            result.insert(entry.id, entry.properties);
        }
        return result;
    }

    /// The menu as the host shows it, but for its root.
    QMap<int, QVariantMap> shownMenu() {
        host.readMenu();
        QMap<int, QVariantMap> result = host.shownMenu;
        result.remove(DBusMenu::kRoot);
        return result;
    }

    static MenuLayout child(const MenuLayout& layout, qsizetype index) {
        return qdbus_cast<MenuLayout>(layout.children.at(index).variant());
    }

    QDBusMessage event(int id, const char* type) {
        return host.callMenu(
            QStringLiteral("Event"),
            {id, QString::fromLatin1(type), QVariant::fromValue(QDBusVariant(0)), 0U});
    }

private:
    PrivateBus m_daemon;
    QString m_name;
    QDBusConnection m_bus;

public:
    int shown = 0;
    std::vector<int> clicked;
    uint revision = 0;
    FakeTrayHost host;
    DBusMenu menu;
};

TEST_F(DBusMenuTest, hasItsProperties) {
    EXPECT_EQ(host.menuProperty(QStringLiteral("Version")).toUInt(), 3U);
    EXPECT_EQ(host.menuProperty(QStringLiteral("TextDirection")).toString(), QStringLiteral("ltr"));
    EXPECT_EQ(host.menuProperty(QStringLiteral("Status")).toString(), QStringLiteral("normal"));
    EXPECT_THAT(host.menuProperty(QStringLiteral("IconThemePath")).toStringList(), IsEmpty());
}

TEST_F(DBusMenuTest, laysOutItsEntriesAsDeepAsAskedFor) {
    const MenuLayout all = layout(DBusMenu::kRoot, -1);
    EXPECT_EQ(all.properties.value(QStringLiteral("children-display")), QStringLiteral("submenu"));
    ASSERT_EQ(all.children.size(), 4);
    EXPECT_EQ(child(all, 0).id, 1);
    EXPECT_EQ(child(child(all, 2), 1).id, 5);
    EXPECT_EQ(child(layout(DBusMenu::kRoot, 1), 2).children.size(), 0);
    EXPECT_EQ(layout(DBusMenu::kRoot, 0).children.size(), 0);
    EXPECT_EQ(layout(3, -1).children.size(), 2);
    // Whoever asks may ask for anything; below zero there is no end.
    constexpr int kLowest = std::numeric_limits<int>::min();
    EXPECT_EQ(child(layout(DBusMenu::kRoot, kLowest), 2).children.size(), 2);
}

TEST_F(DBusMenuTest, saysWhatEachEntryIs) {
    const MenuLayout all = layout(DBusMenu::kRoot, -1);
    const auto property = [&](const MenuLayout& entry, const char* name) {
        return entry.properties.value(QString::fromLatin1(name));
    };
    EXPECT_EQ(property(child(all, 0), "label"), QStringLiteral("a__b"));
    EXPECT_EQ(property(child(all, 0), "enabled"), true);
    EXPECT_EQ(property(child(all, 0), "visible"), true);
    EXPECT_FALSE(property(child(all, 0), "toggle-type").isValid());
    EXPECT_EQ(property(child(all, 1), "type"), QStringLiteral("separator"));
    EXPECT_EQ(property(child(all, 2), "children-display"), QStringLiteral("submenu"));
    EXPECT_EQ(property(child(child(all, 2), 0), "toggle-type"), QStringLiteral("checkmark"));
    EXPECT_EQ(property(child(child(all, 2), 0), "toggle-state"), 1);
    EXPECT_EQ(property(child(child(all, 2), 1), "toggle-type"), QStringLiteral("radio"));
    EXPECT_EQ(property(child(child(all, 2), 1), "toggle-state"), 0);
    EXPECT_EQ(property(child(all, 3), "enabled"), false);
}

TEST_F(DBusMenuTest, saysOnlyWhatItIsAskedFor) {
    const MenuLayout all = layout(DBusMenu::kRoot, -1, {QStringLiteral("enabled")});
    EXPECT_EQ(child(all, 0).properties.keys(), QStringList{QStringLiteral("enabled")});
}

TEST_F(DBusMenuTest, refusesQuestionsAboutEntriesItDoesNotHave) {
    for (const QDBusMessage& reply :
         {host.callMenu(QStringLiteral("GetLayout"), {kUnknown, -1, QStringList()}),
          host.callMenu(QStringLiteral("GetProperty"), {kUnknown, QStringLiteral("label")}),
          host.callMenu(QStringLiteral("AboutToShow"), {kUnknown}),
          event(kUnknown, "clicked")}) {
        EXPECT_EQ(reply.type(), QDBusMessage::ErrorMessage);
    }
    EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(DBusMenuTest, givesTheSamePropertiesOneByOneAndInGroups) {
    const QDBusMessage label =
        host.callMenu(QStringLiteral("GetProperty"), {3, QStringLiteral("label")});
    EXPECT_EQ(label.arguments().value(0).value<QDBusVariant>().variant(), QStringLiteral("more"));
    const QDBusMessage some =
        host.callMenu(QStringLiteral("GetGroupProperties"),
                      {QVariant::fromValue(QList<int>{6, kUnknown}), QStringList()});
    const auto group = qdbus_cast<QList<MenuProperties>>(some.arguments().value(0));
    ASSERT_EQ(group.size(), 1);
    EXPECT_EQ(group[0].id, 6);
    EXPECT_EQ(group[0].properties.value(QStringLiteral("label")), QStringLiteral("grey"));
    const QDBusMessage all = host.callMenu(QStringLiteral("GetGroupProperties"),
                                           {QVariant::fromValue(QList<int>{}), QStringList()});
    EXPECT_EQ(qdbus_cast<QList<MenuProperties>>(all.arguments().value(0)).size(), 6);
}

TEST_F(DBusMenuTest, reportsClicksOnEnabledActionsAlone) {
    event(1, "clicked");
    event(4, "clicked");
    event(1, "hovered");
    event(2, "clicked");
    event(3, "clicked");
    event(6, "clicked");
    EXPECT_THAT(clicked, ElementsAre(1, 4));
}

TEST_F(DBusMenuTest, takesEventsInGroups) {
    const QList<MenuEvent> events{
        MenuEvent{.id = 1, .type = QStringLiteral("clicked"), .data = QDBusVariant(0)},
        MenuEvent{.id = kUnknown, .type = QStringLiteral("clicked"), .data = QDBusVariant(0)},
    };
    const QDBusMessage reply =
        host.callMenu(QStringLiteral("EventGroup"), {QVariant::fromValue(events)});
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.arguments().value(0)), QList<int>{kUnknown});
    EXPECT_THAT(clicked, ElementsAre(1));
}

TEST_F(DBusMenuTest, tellsWhenItIsShown) {
    const QDBusMessage reply = host.callMenu(QStringLiteral("AboutToShow"), {0});
    EXPECT_EQ(reply.arguments().value(0), false);
    EXPECT_EQ(shown, 1);
    host.callMenu(QStringLiteral("AboutToShow"), {3});
    EXPECT_EQ(shown, 1);
    const QDBusMessage group = host.callMenu(QStringLiteral("AboutToShowGroup"),
                                             {QVariant::fromValue(QList<int>{0, kUnknown})});
    EXPECT_EQ(qdbus_cast<QList<int>>(group.arguments().value(0)), QList<int>{});
    EXPECT_EQ(qdbus_cast<QList<int>>(group.arguments().value(1)), QList<int>{kUnknown});
    EXPECT_EQ(shown, 2);
    event(DBusMenu::kRoot, "opened");
    EXPECT_EQ(shown, 3);
    event(DBusMenu::kRoot, "closed");
    EXPECT_EQ(shown, 3);
}

TEST_F(DBusMenuTest, whatAGroupRepeatsCountsOnce) {
    constexpr qsizetype kMany = 1000;
    const QDBusMessage properties =
        host.callMenu(QStringLiteral("GetGroupProperties"),
                      {QVariant::fromValue(QList<int>(kMany, 1)), QStringList()});
    EXPECT_EQ(qdbus_cast<QList<MenuProperties>>(properties.arguments().value(0)).size(), 1);

    const QVariant ids = QVariant::fromValue(QList<int>(kMany, 0) + QList<int>(kMany, kUnknown));
    const QDBusMessage shows = host.callMenu(QStringLiteral("AboutToShowGroup"), {ids});
    EXPECT_EQ(qdbus_cast<QList<int>>(shows.arguments().value(1)), QList<int>{kUnknown});
    EXPECT_EQ(shown, 1);

    const auto happens = [](int id, const char* type) {
        return QList<MenuEvent>(
            kMany,
            {.id = id, .type = QString::fromLatin1(type), .data = QDBusVariant(0), .timestamp = 0});
    };
    const QList<MenuEvent> events = happens(DBusMenu::kRoot, "opened") + happens(1, "clicked")
                                    + happens(4, "clicked") + happens(kUnknown, "clicked");
    const QDBusMessage reply =
        host.callMenu(QStringLiteral("EventGroup"), {QVariant::fromValue(events)});
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.arguments().value(0)), QList<int>{kUnknown});
    EXPECT_EQ(shown, 2);
    EXPECT_THAT(clicked, ElementsAre(1, 4));
}

TEST_F(DBusMenuTest, whatOnlySaysSomethingIsDisabled) {
    menu.setEntries(
        {MenuEntry{.id = 10, .label = QStringLiteral("title"), .kind = MenuEntry::Kind::header},
         MenuEntry{.id = 11, .label = QStringLiteral("word"), .kind = MenuEntry::Kind::notice}});
    const MenuLayout all = layout(DBusMenu::kRoot, -1);
    ASSERT_EQ(all.children.size(), 2);
    for (int index = 0; index < 2; ++index) {
        const QVariantMap properties = child(all, index).properties;
        EXPECT_EQ(properties.value(QStringLiteral("enabled")), false);
        EXPECT_FALSE(properties.contains(QStringLiteral("type")));
    }
    EXPECT_EQ(child(all, 0).properties.value(QStringLiteral("label")), QStringLiteral("title"));
    event(10, "clicked");
    event(11, "clicked");
    EXPECT_THAT(clicked, IsEmpty());
}

TEST_F(DBusMenuTest, announcesEachChangeOfItsLayoutWithTheNextRevision) {
    layout(DBusMenu::kRoot, 0);
    const uint before = revision;
    menu.setEntries(entries());
    std::vector<MenuEntry> changed = entries();
    changed[0].label = QStringLiteral("changed");
    menu.setEntries(changed);
    layout(DBusMenu::kRoot, 0);
    EXPECT_EQ(revision, before + 1);
    EXPECT_EQ(host.revisions, (QList<uint>{before, before + 1}));
}

TEST_F(DBusMenuTest, tellsWhatHasChangedOfTheEntriesThatHostsKnow) {
    ASSERT_EQ(shownMenu(), properties());
    std::vector<MenuEntry> changed = entries();
    changed[0].label = QStringLiteral("changed");
    changed[2].children[0].isOn = false;
    changed[2].children[1].isOn = true;
    changed[3].isEnabled = true;
    menu.setEntries(changed);
    EXPECT_EQ(shownMenu(), properties());
    EXPECT_EQ(host.propertyChanges,
              (QList<QMap<int, QStringList>>{{{1, {QStringLiteral("label")}},
                                              {4, {QStringLiteral("toggle-state")}},
                                              {5, {QStringLiteral("toggle-state")}},
                                              {6, {QStringLiteral("enabled")}}}}));
}

TEST_F(DBusMenuTest, tellsWhichPropertiesTheEntriesThatHostsKnowHaveNoMore) {
    ASSERT_EQ(shownMenu(), properties());
    std::vector<MenuEntry> changed = entries();
    changed[2].children[0].mark = MenuEntry::Mark::none;
    changed[2].children[1].mark = MenuEntry::Mark::check;
    menu.setEntries(changed);
    EXPECT_EQ(shownMenu(), properties());
    EXPECT_EQ(host.propertyChanges,
              (QList<QMap<int, QStringList>>{
                  {{4, {QStringLiteral("toggle-state"), QStringLiteral("toggle-type")}},
                   {5, {QStringLiteral("toggle-type")}}}}));
}

TEST_F(DBusMenuTest, leavesTheEntriesThatComeAndGoToTheLayout) {
    ASSERT_EQ(shownMenu(), properties());
    std::vector<MenuEntry> changed = entries();
    changed.erase(changed.begin());
    changed.push_back(MenuEntry{.id = 7, .label = QStringLiteral("new")});
    menu.setEntries(changed);
    EXPECT_EQ(shownMenu(), properties());
    EXPECT_THAT(host.propertyChanges, IsEmpty());
}

}  // namespace

}  // namespace quillbar
