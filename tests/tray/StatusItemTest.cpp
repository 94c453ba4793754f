// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"
#include "tests/tray/StatusItemFixture.h"

#include <QAction>
#include <QApplication>
#include <QDBusObjectPath>

#include <gmock/gmock.h>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

const QString kLabel = QStringLiteral("XAyatanaLabel");

class StatusItemTest : public StatusItemFixture {};

// A host that is there.

TEST_F(StatusItemTest, registersByTheNameOfItsConnection) {
    startAt("some-panel");
    EXPECT_EQ(host->registered, QStringList{bus->baseService()});
}

TEST_F(StatusItemTest, saysOnceThatABarWasOfferedTheItem) {
    host->beWatcher();
    start();
    EXPECT_EQ(offered, 0);
    ASSERT_TRUE(seesRegistrations(*host, 1));
    EXPECT_EQ(offered, 1);
    FakeTrayHost another(daemon.address());
    host.reset();
    another.beWatcher();
    ASSERT_TRUE(seesRegistrations(another, 1));
    EXPECT_EQ(offered, 1);
}

TEST_F(StatusItemTest, saysThatThereIsNoBarToOfferTheItemTo) {
    start();
    EXPECT_TRUE(spinUntil([this] { return offered == 1; }));
    EXPECT_EQ(noTray, 0) << "one may still come";
}

TEST_F(StatusItemTest, asksWhichProcessTheHostIs) {
    startAt("some-panel");
    EXPECT_THAT(askedProcesses, ElementsAre(static_cast<uint>(QCoreApplication::applicationPid())));
}

TEST_F(StatusItemTest, keepsItsTitleWhateverItShows) {
    startAt("some-panel");
    EXPECT_EQ(host->property(QStringLiteral("Title")).toString(), QStringLiteral("Quillbar"));
    item->show(face(QStringLiteral("ETH 3,456.00 ▼ 0.50%")));
    settle();
    EXPECT_EQ(host->property(QStringLiteral("Title")).toString(), QStringLiteral("Quillbar"));
    EXPECT_EQ(host->signalled.count(QStringLiteral("NewTitle")), 0);
}

TEST_F(StatusItemTest, hasEveryPropertyThatHostsRead) {
    startAt("some-panel");
    const auto text = [this](const char* name) {
        return host->property(QString::fromLatin1(name)).toString();
    };
    EXPECT_EQ(text("Category"), QStringLiteral("ApplicationStatus"));
    EXPECT_EQ(text("Id"), QStringLiteral("io.github.quillbar.Quillbar"));
    EXPECT_EQ(text("Status"), QStringLiteral("Active"));
    EXPECT_EQ(text("IconAccessibleDesc"), face().text);
    for (const char* const name : {"IconName",
                                   "IconThemePath",
                                   "OverlayIconName",
                                   "AttentionIconName",
                                   "AttentionMovieName",
                                   "AttentionAccessibleDesc"}) {
        EXPECT_EQ(text(name), QString()) << name;
    }
    EXPECT_EQ(host->property(QStringLiteral("WindowId")).toInt(), 0);
    EXPECT_EQ(host->property(QStringLiteral("XAyatanaOrderingIndex")).toUInt(), 0U);
    EXPECT_FALSE(host->property(QStringLiteral("ItemIsMenu")).toBool());
    const QVariant menu = host->property(QStringLiteral("Menu"));
    EXPECT_EQ(menu.value<QDBusObjectPath>().path(), QStringLiteral("/MenuBar"));
    EXPECT_THAT(qdbus_cast<StatusImages>(host->property(QStringLiteral("OverlayIconPixmap"))),
                IsEmpty());
    EXPECT_THAT(qdbus_cast<StatusImages>(host->property(QStringLiteral("AttentionIconPixmap"))),
                IsEmpty());
}

TEST_F(StatusItemTest, isGivenToAnUnknownHostAsASquareAndALabel) {
    startAt("some-panel");
    const StatusImages icon = host->icon();
    ASSERT_EQ(icon.size(), 2);
    EXPECT_EQ(QSize(icon[0].width, icon[0].height), QSize(22, 22));
    EXPECT_EQ(QSize(icon[1].width, icon[1].height), QSize(44, 44));
    EXPECT_EQ(icon[1].data.size(), 44 * 44 * 4);
    EXPECT_EQ(
        icon[0],
        StatusImage::of(LabelPicture::of(face(), LabelForm::square, BarShade::unknown).drawn(22)));
    EXPECT_EQ(host->property(kLabel).toString(), face().text);
    EXPECT_EQ(host->property(QStringLiteral("XAyatanaLabelGuide")).toString(),
              QStringLiteral("BTC 88,888.88 ▲ 8.88%"));
}

TEST_F(StatusItemTest, isGivenToWaybarAsTheWholeTextInOnePicture) {
    startAt("waybar");
    const StatusImages icon = host->icon();
    ASSERT_EQ(icon.size(), 2);
    EXPECT_EQ(icon[0].height, 22);
    EXPECT_GT(icon[0].width, 100);
    EXPECT_EQ(icon[1].height, 44);
}

TEST_F(StatusItemTest, isGivenToXfceInPixelsThatStaySharpWhenHalved) {
    startAt("panel-7-systray");
    const StatusImages icon = host->icon();
    ASSERT_EQ(icon.size(), 2);
    const QImage small = LabelPicture::of(face(), LabelForm::square, BarShade::unknown).drawn(22);
    EXPECT_EQ(icon[0], StatusImage::of(small));
    EXPECT_EQ(icon[1], StatusImage::of(small.scaled(44, 44)));
}

TEST_F(StatusItemTest, isGivenToGnomeAsALabelBesideTheMark) {
    startAt("gnome-shell");
    EXPECT_EQ(host->property(kLabel).toString(), face().text);
    EXPECT_EQ(host->icon()[0],
              StatusImage::of(LabelPicture::of(face(), LabelForm::text, BarShade::dark).drawn(22)));
}

TEST_F(StatusItemTest, isGivenToAyatanaAsALabelBesideAnIconOfTheTheme) {
    startAt("ayatana-indicat");
    EXPECT_EQ(host->property(kLabel).toString(), face().text);
    EXPECT_EQ(host->property(QStringLiteral("IconName")).toString(),
              QStringLiteral("io.github.quillbar.Quillbar"));
    EXPECT_THAT(host->icon(), IsEmpty());
}

TEST_F(StatusItemTest, neverHasAnEmptyLabel) {
    startAt("notification-ar");
    item->show(LabelFace{});
    settle();
    EXPECT_EQ(host->property(kLabel).toString(), QStringLiteral("Quillbar"));
    EXPECT_FALSE(host->property(QStringLiteral("XAyatanaLabelGuide")).toString().isEmpty());
    EXPECT_EQ(host->labels.count(QString()), 0);
}

TEST_F(StatusItemTest, saysMoreInItsTooltip) {
    startAt("some-panel");
    EXPECT_EQ(host->tooltip().title, face().text);
    EXPECT_EQ(host->tooltip().text, QStringLiteral("刚刚更新\n已连接"));
}

TEST_F(StatusItemTest, saysItAllInTheTitleWhereOnlyThatIsShown) {
    startAt("lxqt-panel");
    EXPECT_EQ(host->tooltip().title, face().text + QStringLiteral("\n刚刚更新\n已连接"));
    EXPECT_EQ(host->tooltip().text, QString());
}

TEST_F(StatusItemTest, escapesItsTooltip) {
    startAt("some-panel");
    LabelFace odd = face(QStringLiteral("A&B<C>"));
    odd.details = QStringLiteral("<br>");
    item->show(odd);
    settle();
    EXPECT_EQ(host->tooltip().title, QStringLiteral("A&amp;B&lt;C&gt;"));
    EXPECT_EQ(host->tooltip().text, QStringLiteral("&lt;br&gt;"));
}

// What is sent.

TEST_F(StatusItemTest, sendsNothingForTheSameFace) {
    startAt("some-panel");
    item->show(face());
    settle();
    host->signalled.clear();
    for (int i = 0; i < 5; ++i) {
        item->show(face());
    }
    settle();
    EXPECT_THAT(host->signalled, IsEmpty());
}

TEST_F(StatusItemTest, sendsNoPictureForAChangeThatASquareDoesNotShow) {
    startAt("lxqt-panel");
    settle();
    host->signalled.clear();
    item->show(face(QStringLiteral("BTC 67,234.51 ▲ 1.23%")));
    settle();
    EXPECT_EQ(host->signalled, QStringList{QStringLiteral("NewToolTip")});
    EXPECT_EQ(host->property(kLabel).toString(), QStringLiteral("BTC 67,234.51 ▲ 1.23%"));
}

TEST_F(StatusItemTest, sendsAPictureForEachChangeThatItShows) {
    startAt("waybar");
    settle();
    host->signalled.clear();
    item->show(face(QStringLiteral("BTC 67,234.51 ▲ 1.23%")));
    item->show(face(QStringLiteral("BTC 67,234.52 ▲ 1.23%")));
    settle();
    EXPECT_EQ(host->signalled.count(QStringLiteral("NewIcon")), 2);
    EXPECT_EQ(host->signalled.count(QStringLiteral("XAyatanaNewLabel")), 0);
}

TEST_F(StatusItemTest, sendsNoPictureWhereTheLabelIsText) {
    startAt("gnome-shell");
    settle();
    host->signalled.clear();
    LabelFace other = face(QStringLiteral("ETH 3,456.00 ▼ 0.50%"));
    other.shortPrice = QStringLiteral("3456");
    other.direction = LabelDirection::down;
    item->show(other);
    settle();
    EXPECT_EQ(host->labels.last(), other.text);
    EXPECT_EQ(host->signalled.count(QStringLiteral("NewIcon")), 0);
}

TEST_F(StatusItemTest, sendsTheTooltipAloneWhenThatAloneChanges) {
    startAt("waybar");
    settle();
    host->signalled.clear();
    LabelFace older = face();
    older.details = QStringLiteral("1 分钟前更新");
    item->show(older);
    settle();
    EXPECT_EQ(host->signalled, QStringList{QStringLiteral("NewToolTip")});
}

// Clicks.

TEST_F(StatusItemTest, isActivatedByAClickWhereThePointerIs) {
    startAt("some-panel");
    host->callItem(QStringLiteral("Activate"), {990, 14});
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(1000, 10), ActivationSource::click)));
}

TEST_F(StatusItemTest, isActivatedWhereThePointerIsByAHostThatCannotTell) {
    startAt("notification-ar");
    host->callItem(QStringLiteral("Activate"), {0, 28});
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(1000, 10), ActivationSource::click)));
}

TEST_F(StatusItemTest, showsItsMenuItselfForAHostWithoutMenus) {
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

TEST_F(StatusItemTest, isActivatedByTheKeyboardWhereTheHostSays) {
    startAt("some-panel");
    pointer = QPoint(300, 700);
    host->callItem(QStringLiteral("Activate"), {900, 12});
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(900, 12), ActivationSource::click)));
}

TEST_F(StatusItemTest, takesWhatTheHostSaysInPixelsOfAScaledScreen) {
    startAt("some-panel");
    pixelRatio = 1.25;
    pointer = QPoint(1200, 11);
    host->callItem(QStringLiteral("Activate"), {1500, 14});
    pointer = QPoint(300, 700);
    host->callItem(QStringLiteral("Activate"), {1500, 15});
    EXPECT_THAT(activations,
                ElementsAre(Pair(QPoint(1200, 11), ActivationSource::click),
                            Pair(QPoint(1200, 12), ActivationSource::click)));
}

TEST_F(StatusItemTest, isActivatedByTheMiddleButtonToo) {
    startAt("some-panel");
    host->callItem(QStringLiteral("SecondaryActivate"), {1001, 11});
    host->callItem(QStringLiteral("XAyatanaSecondaryActivate"), {7U});
    EXPECT_THAT(activations,
                ElementsAre(Pair(QPoint(1000, 10), ActivationSource::click),
                            Pair(QPoint(1000, 10), ActivationSource::click)));
}

TEST_F(StatusItemTest, passesOnTheActivationToken) {
    startAt("some-panel");
    host->callItem(QStringLiteral("ProvideXdgActivationToken"), {QStringLiteral("kwin-7")});
    EXPECT_THAT(tokens, ElementsAre(QStringLiteral("kwin-7")));
}

TEST_F(StatusItemTest, ignoresTheWheel) {
    startAt("some-panel");
    const QDBusMessage reply =
        host->callItem(QStringLiteral("Scroll"), {120, QStringLiteral("vertical")});
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
    EXPECT_THAT(activations, IsEmpty());
}

// The menu.

TEST_F(StatusItemTest, opensThePanelWhereThePointerWasWhenTheMenuCame) {
    startAt("some-panel");
    host->callMenu(QStringLiteral("AboutToShow"), {0});
    pointer = QPoint(980, 60);
    const QVariant nothing = QVariant::fromValue(QDBusVariant(0));
    host->callMenu(QStringLiteral("Event"),
                   {StatusItem::kOpenPanel, QStringLiteral("clicked"), nothing, 0U});
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(1000, 10), ActivationSource::menu)));
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(StatusItemTest, opensThePanelAtThePointerForAHostThatSaysNothingOfItsMenu) {
    startAt("some-panel");
    const QVariant nothing = QVariant::fromValue(QDBusVariant(0));
    host->callMenu(QStringLiteral("Event"),
                   {StatusItem::kOpenPanel, QStringLiteral("clicked"), nothing, 0U});
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(1000, 10), ActivationSource::menu)));
}

TEST_F(StatusItemTest, reportsEveryOtherChoice) {
    startAt("some-panel");
    item->setMenu({MenuEntry{.id = 10, .label = QStringLiteral("设置")}});
    const QVariant nothing = QVariant::fromValue(QDBusVariant(0));
    for (const int id : {10, StatusItem::kQuit}) {
        host->callMenu(QStringLiteral("Event"), {id, QStringLiteral("clicked"), nothing, 0U});
    }
    EXPECT_THAT(chosen, ElementsAre(10, StatusItem::kQuit));
}

TEST_F(StatusItemTest, hasAMenuThatBeginsWithThePanelAndEndsWithQuit) {
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

TEST_F(StatusItemTest, itsMenuMayBeSetWhenItIsAboutToBeShown) {
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

TEST_F(StatusItemTest, itsOwnMenuMayBeSetWhenItIsAboutToBeShown) {
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
