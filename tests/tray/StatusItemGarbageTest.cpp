// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/BusGarbage.h"
#include "tests/tray/StatusItemFixture.h"

#include <QUuid>

#include <gmock/gmock.h>

#include <limits>
#include <string>

namespace quillbar {

namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// The item and its menu, called by a program that is no tray host.
struct StatusItemGarbageTest : StatusItemFixture {
    StatusItemGarbageTest() {
        startAt("lxqt-panel");
        std::vector<MenuEntry> many;
        for (int id = 10; id < 30; ++id) {
            many.push_back(MenuEntry{.id = id, .label = QStringLiteral("entry")});
        }
        item->setMenu(many);
    }
    ~StatusItemGarbageTest() override { QDBusConnection::disconnectFromBus(stranger); }
    StatusItemGarbageTest(const StatusItemGarbageTest&) = delete;
    StatusItemGarbageTest& operator=(const StatusItemGarbageTest&) = delete;
    StatusItemGarbageTest(StatusItemGarbageTest&&) = delete;
    StatusItemGarbageTest& operator=(StatusItemGarbageTest&&) = delete;

    [[nodiscard]] BusGarbage garbageFor(const QString& path) {
        constexpr int kLowest = std::numeric_limits<int>::min();
        const QDBusVariant data{QVariant::fromValue(QDBusVariant(kLowest))};
        QList<MenuEvent> events;
        for (const int id : {kLowest, -1, 0, StatusItem::kQuit, 10, 77}) {
            for (const char* const type : {"", "opened", "clicked", "closed"}) {
                events << MenuEvent{id, QString::fromLatin1(type), data, 0};
            }
        }
        const QVariantList groups{QVariant::fromValue(QList<MenuEvent>()),
                                  QVariant::fromValue(events),
                                  QVariant::fromValue(QList<MenuEvent>(10'000, events.front()))};
        return {QDBusConnection::connectToBus(daemon.address(), stranger),
                bus->baseService(),
                path,
                {{QStringLiteral("a(isvu)"), groups}}};
    }
    static std::vector<std::string> namesOf(const std::vector<BusGarbage::Method>& methods) {
        std::vector<std::string> names;
        names.reserve(methods.size());
        for (const BusGarbage::Method& method : methods) {
            names.push_back(method.name.toStdString());
        }
        return names;
    }
    void expectThatAllIsWell() {
        EXPECT_EQ(host->property(QStringLiteral("Status")).toString(), QStringLiteral("Active"));
        host->shownMenu.clear();
        host->readMenu();
        EXPECT_EQ(host->shownId(QStringLiteral("打开面板")), StatusItem::kOpenPanel);
    }

    QString stranger = QUuid::createUuid().toString();
};

TEST_F(StatusItemGarbageTest, findsEveryMethodOfTheItemAndItsMenu) {
    EXPECT_THAT(namesOf(garbageFor(StatusNotifierItem::kPath).methods()),
                UnorderedElementsAre("Activate",
                                     "ContextMenu",
                                     "SecondaryActivate",
                                     "Scroll",
                                     "ProvideXdgActivationToken",
                                     "XAyatanaSecondaryActivate"));
    EXPECT_THAT(namesOf(garbageFor(DBusMenu::kPath).methods()),
                UnorderedElementsAre("GetLayout",
                                     "GetGroupProperties",
                                     "GetProperty",
                                     "Event",
                                     "EventGroup",
                                     "AboutToShow",
                                     "AboutToShowGroup"));
}

TEST_F(StatusItemGarbageTest, refusesArgumentsOfTheWrongTypes) {
    for (const QString& path : {StatusNotifierItem::kPath, DBusMenu::kPath}) {
        garbageFor(path).callWithWrongTypes();
    }
    EXPECT_THAT(activations, IsEmpty());
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_THAT(tokens, IsEmpty());
    expectThatAllIsWell();
}

TEST_F(StatusItemGarbageTest, answersWhateverArgumentsOfTheRightTypesHold) {
    for (const QString& path : {StatusNotifierItem::kPath, DBusMenu::kPath}) {
        garbageFor(path).callWithRightTypes();
    }
    EXPECT_THAT(chosen, Contains(StatusItem::kQuit)) << "a click is a click";
    expectThatAllIsWell();
}

TEST_F(StatusItemGarbageTest, noPropertyCanBeWrittenAndAnUnknownOneNotRead) {
    const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");
    const QString interface = QStringLiteral("org.kde.StatusNotifierItem");
    BusGarbage garbage = garbageFor(StatusNotifierItem::kPath);
    const auto isRefused = [&](const char* method, const QVariantList& arguments) {
        const QDBusMessage reply =
            garbage.call({properties, QString::fromLatin1(method)}, arguments);
        return reply.type() == QDBusMessage::ErrorMessage;
    };
    const QVariant text = QVariant::fromValue(QDBusVariant(QStringLiteral("x")));
    for (const QString& name : {QStringLiteral("Title"), QStringLiteral("Nothing"), QString()}) {
        EXPECT_TRUE(isRefused("Set", {interface, name, text}));
    }
    EXPECT_TRUE(isRefused("Get", {interface, QStringLiteral("Nothing")}));
    EXPECT_TRUE(isRefused("Get", {QString(10'000, u'x'), QStringLiteral("Title")}));
    EXPECT_FALSE(isRefused("Get", {interface, QStringLiteral("Title")}));
    expectThatAllIsWell();
}

}  // namespace

}  // namespace quillbar
