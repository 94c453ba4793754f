// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"
#include "tests/tray/StatusItemFixture.h"

#include <QCoreApplication>
#include <QDBusObjectPath>

#include <gmock/gmock.h>

#include <array>
#include <cstddef>

namespace quillbar {

namespace {

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

TEST_F(StatusItemTest, isOfferedWhileABarMayShowIt) {
    start();
    EXPECT_FALSE(item->isOffered());
    host->beWatcher();
    ASSERT_TRUE(seesRegistrations(*host, 1));
    EXPECT_TRUE(item->isOffered());
    host->resign();
    EXPECT_TRUE(spinUntil([this] { return !item->isOffered(); }));
}

TEST_F(StatusItemTest, isNotOfferedToABarThatRefusesIt) {
    host->refuses = true;
    startAt("some-panel");
    EXPECT_TRUE(spinUntil([this] { return !item->isOffered(); }));
}

TEST_F(StatusItemTest, isOfferedInAnOlderTray) {
    hasOlderTray = true;
    start();
    EXPECT_FALSE(item->isOffered());
    pass(StatusItem::kPatience);
    EXPECT_TRUE(item->isOffered());
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
    ASSERT_EQ(icon.size(), 5);
    const LabelPicture square = LabelPicture::of(face(), LabelForm::square, PictureGround::own);
    for (qsizetype i = 0; i < icon.size(); ++i) {
        const int height = std::array{22, 24, 32, 44, 48}.at(static_cast<std::size_t>(i));
        EXPECT_EQ(QSize(icon[i].width, icon[i].height), QSize(height, height));
        EXPECT_EQ(icon[i].data.size(), height * height * 4);
        EXPECT_EQ(icon[i], StatusImage::of(square.drawn(height)));
    }
    EXPECT_EQ(host->property(kLabel).toString(), face().text);
    EXPECT_EQ(host->property(QStringLiteral("XAyatanaLabelGuide")).toString(),
              QStringLiteral("BTC 88,888.88 ▲88.88%"));
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
    const QImage small = LabelPicture::of(face(), LabelForm::square, PictureGround::own).drawn(22);
    EXPECT_EQ(icon[0], StatusImage::of(small));
    EXPECT_EQ(icon[1], StatusImage::of(small.scaled(44, 44)));
}

TEST_F(StatusItemTest, isGivenToGnomeAsALabelBesideTheMark) {
    startAt("gnome-shell");
    EXPECT_EQ(host->property(kLabel).toString(), face().text);
    EXPECT_EQ(host->icon()[0],
              StatusImage::of(
                  LabelPicture::of(face(), LabelForm::text, PictureGround::darkBar).drawn(22)));
}

TEST_F(StatusItemTest, isGivenToAyatanaAsALabelBesideAnIconOfTheTheme) {
    startAt("ayatana-indicat");
    EXPECT_EQ(host->property(kLabel).toString(), face().text);
    EXPECT_EQ(host->property(QStringLiteral("IconName")).toString(),
              QStringLiteral("io.github.quillbar.Quillbar"));
    EXPECT_THAT(host->icon(), IsEmpty());
}

TEST_F(StatusItemTest, hasAnIconOfEveryThemeBesideItsLabelWhileItsOwnIsNotInstalled) {
    hasThemeIcon = false;
    startAt("ayatana-indicat");
    const auto iconName = [this] { return host->property(QStringLiteral("IconName")).toString(); };
    EXPECT_EQ(iconName(), QStringLiteral("x-office-spreadsheet"));
    hasThemeIcon = true;
    host->resign();
    EXPECT_TRUE(spinUntil([this] {
        executor.run();
        return time.sleepingCount() > 0;
    }));
    host->beWatcher();
    ASSERT_TRUE(seesRegistrations(*host, 2));
    EXPECT_EQ(iconName(), QStringLiteral("io.github.quillbar.Quillbar"));
}

TEST_F(StatusItemTest, neverHasAnEmptyLabel) {
    startAt("notification-ar");
    item->show(LabelFace{});
    settle();
    EXPECT_EQ(host->property(kLabel).toString(), QStringLiteral("Quillbar"));
    EXPECT_FALSE(host->property(QStringLiteral("XAyatanaLabelGuide")).toString().isEmpty());
    EXPECT_EQ(host->labels.count(QString()), 0);
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

TEST_F(StatusItemTest, doesNothingForTheSameFace) {
    hasOlderTray = true;
    start();
    pass(StatusItem::kPatience);
    ASSERT_NE(olderIcon(), nullptr);
    // Work for a face would put the tooltip right.
    const QString mark = QStringLiteral("untouched");
    olderIcon()->setToolTip(mark);
    item->show(face());
    EXPECT_EQ(olderIcon()->toolTip(), mark);
    const LabelFace other = face(QStringLiteral("BTC 67,234.51 ▲ 1.23%"));
    item->show(other);
    EXPECT_EQ(olderIcon()->toolTip(), other.text + u'\n' + other.details);
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
    startAt("some-panel");
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

TEST_F(StatusItemTest, opensNothingByTheWheel) {
    startAt("some-panel");
    const QDBusMessage reply =
        host->callItem(QStringLiteral("Scroll"), {120, QStringLiteral("vertical")});
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
    EXPECT_THAT(activations, IsEmpty());
}

}  // namespace

}  // namespace quillbar
