// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"
#include "tests/tray/StatusItemFixture.h"

#include <QAction>
#include <QCoreApplication>

#include <gmock/gmock.h>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

const QString kNewIcon = QStringLiteral("NewIcon");

/// Hosts that come and go.
class StatusItemHostsTest : public StatusItemFixture {
protected:
    /// Runs the loop until the item knows that the host is gone: it looks for another tray again.
    void noticeThatTheHostIsGone() {
        EXPECT_TRUE(spinUntil([this] {
            executor.run();
            return time.sleepingCount() > 0;
        }));
    }

    /// Runs the loop until the bus has answered what the item asked it at the start: that there is
    /// no host.
    void noticeThatThereIsNoHost() {
        FakeTrayHost other(daemon.address());
        other.RegisterStatusNotifierItem(bus->baseService());
        other.property(QStringLiteral("Status"));
        executor.run();
    }
};

TEST_F(StatusItemHostsTest, registersWithAHostThatComesLater) {
    start();
    noticeThatThereIsNoHost();
    host->beWatcher();
    EXPECT_TRUE(seesRegistrations(*host, 1));
    pass(60s);
    EXPECT_EQ(noTray, 0);
}

TEST_F(StatusItemHostsTest, registersAgainWithTheNextHost) {
    startAt("some-panel");
    host.reset();
    noticeThatTheHostIsGone();
    FakeTrayHost next(daemon.address());
    next.beWatcher();
    EXPECT_TRUE(seesRegistrations(next, 1));
    EXPECT_EQ(next.registered, QStringList{bus->baseService()});
}

TEST_F(StatusItemHostsTest, registersAgainWhenOneHostTakesThePlaceOfAnother) {
    startAt("some-panel");
    hostProcess = "waybar";
    FakeTrayHost next(daemon.address());
    next.beWatcher();
    ASSERT_TRUE(seesRegistrations(next, 1));
    EXPECT_GT(next.icon()[0].width, 100);
    EXPECT_THAT(next.property(QStringLiteral("Title")).toString().toStdString(),
                HasSubstr(face().text.toStdString()));
}

TEST_F(StatusItemHostsTest, registersAgainEachTimeTheSameHostComesBack) {
    startAt("some-panel");
    for (qsizetype count = 2; count < 5; ++count) {
        host->resign();
        noticeThatTheHostIsGone();
        host->beWatcher();
        ASSERT_TRUE(seesRegistrations(*host, count));
    }
}

TEST_F(StatusItemHostsTest, isReadyForTheHostBeforeItRegisters) {
    hostProcess = "waybar";
    host->beWatcher();
    start();
    ASSERT_TRUE(seesRegistrations(*host, 1));
    // What was sent before the registration is in what the host reads after it.
    settle();
    EXPECT_EQ(host->signalled.count(kNewIcon), 1);
}

TEST_F(StatusItemHostsTest, showsTheLatestFaceToAHostThatComesLater) {
    start();
    noticeThatThereIsNoHost();
    item->show(face(QStringLiteral("ETH 3,456.00 ▼ 0.50%")));
    item->show(face(QStringLiteral("ETH 3,457.00 ▼ 0.50%")));
    host->beWatcher();
    ASSERT_TRUE(seesRegistrations(*host, 1));
    EXPECT_EQ(host->property(QStringLiteral("XAyatanaLabel")).toString(),
              QStringLiteral("ETH 3,457.00 ▼ 0.50%"));
    settle();
    EXPECT_EQ(host->signalled.count(kNewIcon), 1);
}

TEST_F(StatusItemHostsTest, looksForAnotherTrayWhenTheHostRefusesIt) {
    host->refuses = true;
    host->beWatcher();
    start();
    ASSERT_TRUE(seesRegistrations(*host, 1));
    noticeThatTheHostIsGone();
    EXPECT_THAT(log.lines("StatusItem"),
                ElementsAre("StatusItem|error|the tray host refused the item: no room"));
    hasOlderTray = true;
    pass(10s);
    EXPECT_NE(olderIcon(), nullptr);
}

TEST_F(StatusItemHostsTest, registersAgainWithAHostThatRefusedIt) {
    host->refuses = true;
    hasOlderTray = true;
    host->beWatcher();
    start();
    ASSERT_TRUE(seesRegistrations(*host, 1));
    noticeThatTheHostIsGone();
    pass(10s);
    ASSERT_TRUE(seesRegistrations(*host, 2));
    noticeThatTheHostIsGone();
    EXPECT_NE(olderIcon(), nullptr);
    host->refuses = false;
    pass(10s);
    ASSERT_TRUE(seesRegistrations(*host, 3));
    EXPECT_TRUE(spinUntil([this] { return olderIcon() == nullptr; }));
    EXPECT_THAT(log.lines("StatusItem"),
                ElementsAre("StatusItem|error|the tray host refused the item: no room"));
    item->show(face(QStringLiteral("ETH 3,456.00 ▼ 0.50%")));
    settle();
    EXPECT_EQ(host->tooltip().title, QStringLiteral("ETH 3,456.00 ▼ 0.50%"));
}

TEST_F(StatusItemHostsTest, staysWithAHostThatIsTooBusyToAnswer) {
    for (const auto silence : {QDBusError::NoReply, QDBusError::Timeout, QDBusError::TimedOut}) {
        FakeTrayHost busy(daemon.address());
        busy.refuses = true;
        busy.refusal = silence;
        busy.beWatcher();
        start();
        ASSERT_TRUE(seesRegistrations(busy, 1));
        // The answer to the registration comes before this question.
        busy.property(QStringLiteral("Status"));
        item->show(face(QStringLiteral("ETH 3,456.00 ▼ 0.50%")));
        EXPECT_EQ(busy.tooltip().title, QStringLiteral("ETH 3,456.00 ▼ 0.50%"));
        EXPECT_EQ(time.sleepingCount(), 0U);
        EXPECT_THAT(log.lines("StatusItem"), IsEmpty());
        item.reset();
    }
}

TEST_F(StatusItemHostsTest, waitsTenSecondsForAHostBeforeItUsesTheOlderTray) {
    hasOlderTray = true;
    start();
    noticeThatThereIsNoHost();
    pass(9.9s);
    EXPECT_EQ(olderIcon(), nullptr);
    pass(0.1s);
    ASSERT_NE(olderIcon(), nullptr);
    EXPECT_TRUE(olderIcon()->isVisible());
    EXPECT_EQ(olderIcon()->toolTip(), face().text + QStringLiteral("\n刚刚更新\n已连接"));
    for (const int height : {22, 24, 32, 48}) {
        EXPECT_EQ(olderIcon()->icon().pixmap(QSize(height, height), 1).toImage(),
                  LabelPicture::of(face(), LabelForm::square, PictureGround::own).drawn(height))
            << height;
    }
    EXPECT_EQ(noTray, 0);
}

TEST_F(StatusItemHostsTest, theOlderTrayShowsThatPriceAlertsFiredToo) {
    hasOlderTray = true;
    start();
    noticeThatThereIsNoHost();
    pass(10s);
    ASSERT_NE(olderIcon(), nullptr);
    item->setFiredAlerts(3);
    EXPECT_EQ(olderIcon()->toolTip(),
              face().text + QStringLiteral("\n3 个价格提醒已触发\n刚刚更新\n已连接"));
    LabelPicture marked = LabelPicture::of(face(), LabelForm::square, PictureGround::own);
    marked.isMarked = true;
    EXPECT_EQ(olderIcon()->icon().pixmap(QSize(22, 22), 1).toImage(), marked.drawn(22));
}

TEST_F(StatusItemHostsTest, keepsTheOlderTraysPictureAndTooltipUpToDate) {
    hasOlderTray = true;
    start();
    noticeThatThereIsNoHost();
    pass(10s);
    ASSERT_NE(olderIcon(), nullptr);
    const qint64 before = olderIcon()->icon().cacheKey();
    LabelFace sameSquare = face(QStringLiteral("BTC 67,234.51 ▲ 1.23%"));
    item->show(sameSquare);
    EXPECT_EQ(olderIcon()->icon().cacheKey(), before);
    EXPECT_TRUE(olderIcon()->toolTip().startsWith(sameSquare.text));
    sameSquare.shortPrice = QStringLiteral("67.3k");
    item->show(sameSquare);
    EXPECT_NE(olderIcon()->icon().cacheKey(), before);
}

TEST_F(StatusItemHostsTest, isActivatedInTheOlderTrayWhereThePointerIs) {
    hasOlderTray = true;
    start();
    noticeThatThereIsNoHost();
    pass(10s);
    ASSERT_NE(olderIcon(), nullptr);
    Q_EMIT olderIcon()->activated(QSystemTrayIcon::Trigger);
    Q_EMIT olderIcon()->activated(QSystemTrayIcon::MiddleClick);
    Q_EMIT olderIcon()->activated(QSystemTrayIcon::DoubleClick);
    Q_EMIT olderIcon()->activated(QSystemTrayIcon::Context);
    EXPECT_THAT(activations,
                ElementsAre(Pair(QPoint(1000, 10), ActivationSource::click),
                            Pair(QPoint(1000, 10), ActivationSource::click)));
}

TEST_F(StatusItemHostsTest, hasTheSameMenuInTheOlderTray) {
    hasOlderTray = true;
    start();
    noticeThatThereIsNoHost();
    pass(10s);
    ASSERT_NE(olderIcon(), nullptr);
    QMenu* const menu = olderIcon()->contextMenu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 3);
    menu->actions().first()->trigger();
    menu->actions().last()->trigger();
    EXPECT_TRUE(spinUntil([this] { return !chosen.empty(); }));
    EXPECT_THAT(chosen, ElementsAre(StatusItem::kQuit));
    EXPECT_THAT(activations, ElementsAre(Pair(QPoint(1000, 10), ActivationSource::menu)));
}

TEST_F(StatusItemHostsTest, leavesTheOlderTrayForAHostThatComes) {
    hasOlderTray = true;
    start();
    noticeThatThereIsNoHost();
    pass(10s);
    ASSERT_NE(olderIcon(), nullptr);
    host->beWatcher();
    ASSERT_TRUE(seesRegistrations(*host, 1));
    EXPECT_EQ(olderIcon(), nullptr);
}

TEST_F(StatusItemHostsTest, goesToTheOlderTrayWhenTheHostStaysAway) {
    startAt("some-panel");
    host->resign();
    noticeThatTheHostIsGone();
    hasOlderTray = true;
    pass(10s);
    EXPECT_NE(olderIcon(), nullptr);
}

TEST_F(StatusItemHostsTest, saysOnceThatThereIsNoTrayAtAll) {
    start();
    noticeThatThereIsNoHost();
    pass(9.9s);
    EXPECT_EQ(noTray, 0);
    pass(100s);
    EXPECT_EQ(noTray, 1);
    EXPECT_THAT(log.lines("StatusItem"),
                ElementsAre("StatusItem|default|no tray host: the panel opens as a window"));
}

TEST_F(StatusItemHostsTest, usesAnOlderTrayThatComesLate) {
    start();
    noticeThatThereIsNoHost();
    pass(35s);
    hasOlderTray = true;
    pass(10s);
    EXPECT_NE(olderIcon(), nullptr);
    const int questions = olderTrayQuestions;
    pass(100s);
    EXPECT_EQ(olderTrayQuestions, questions);
}

TEST_F(StatusItemHostsTest, saysThatATrayHasComeAfterAll) {
    start();
    noticeThatThereIsNoHost();
    pass(10s);
    ASSERT_EQ(noTray, 1);
    EXPECT_EQ(tray, 0);
    host->beWatcher();
    EXPECT_TRUE(spinUntil([this] { return tray == 1; }));
}

TEST_F(StatusItemHostsTest, saysOnceThatATrayHasComeHoweverOftenItComesBack) {
    start();
    noticeThatThereIsNoHost();
    pass(10s);
    ASSERT_EQ(noTray, 1);
    for (qsizetype count = 1; count < 4; ++count) {
        host->beWatcher();
        ASSERT_TRUE(seesRegistrations(*host, count));
        settle();
        EXPECT_EQ(tray, 1);
        host->resign();
        noticeThatTheHostIsGone();
        pass(20s);
    }
    EXPECT_EQ(noTray, 1) << "commands still reach the application";
}

TEST_F(StatusItemHostsTest, saysThatAnOlderTrayHasComeAfterAll) {
    start();
    noticeThatThereIsNoHost();
    pass(10s);
    ASSERT_EQ(noTray, 1);
    hasOlderTray = true;
    pass(10s);
    EXPECT_EQ(tray, 1);
}

TEST_F(StatusItemHostsTest, saysNothingOfATrayThatWasThereInTime) {
    startAt("some-panel");
    settle();
    pass(100s);
    EXPECT_EQ(noTray, 0);
    EXPECT_EQ(tray, 0);
}

TEST_F(StatusItemHostsTest, saysThatThereIsNoTrayWhenTheOnlyHostRefusesTheItem) {
    host->refuses = true;
    host->beWatcher();
    start();
    ASSERT_TRUE(seesRegistrations(*host, 1));
    noticeThatTheHostIsGone();
    pass(10s);
    EXPECT_EQ(noTray, 1);
}

TEST_F(StatusItemHostsTest, saysNothingOfATrayThatWentAway) {
    startAt("some-panel");
    host->resign();
    noticeThatTheHostIsGone();
    pass(100s);
    EXPECT_EQ(noTray, 0);
    EXPECT_THAT(log.lines("StatusItem"), IsEmpty());
}

TEST_F(StatusItemHostsTest, saysThatItCannotBeExported) {
    QObject squatter;
    ASSERT_TRUE(bus->registerObject(StatusNotifierItem::kPath, &squatter));
    start();
    EXPECT_THAT(log.lines("StatusItem"),
                Contains("StatusItem|error|cannot export the status item over D-Bus"));
}

TEST_F(StatusItemHostsTest, isSilentOnceDestroyed) {
    host->beWatcher();
    start();
    item.reset();
    executor.run();
    spinUntilIdle();
    EXPECT_THAT(host->registered, IsEmpty());
    EXPECT_EQ(time.sleepingCount(), 0U);
}

}  // namespace

}  // namespace quillbar
