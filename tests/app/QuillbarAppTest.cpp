// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/CertificateAuthorities.h"
#include "Quillbar/QuillbarApp.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/window/PanelWindow.h"
#include "simulator/Simulator.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/services/HeldSleeper.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tray/fakehost/FakeTrayHost.h"
#include "tests/views/Widgets.h"

#include <QDBusVariant>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QUuid>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::Contains;
using ::testing::IsEmpty;

constexpr int kQuit = 0;
constexpr int kDidNotQuit = 77;

std::string authorityFile() {
    static const TemporaryFolder folder;
    return (folder.path() / "authority.pem").string();
}

/// The application on a bus of its own, with an exchange of its own and a sleep that the test ends.
struct QuillbarAppTest : ::testing::Test {
    QuillbarAppTest()
        : bus(QDBusConnection::connectToBus(daemon.address(), connectionName))
        , host(daemon.address()) {
        EXPECT_TRUE(bus.isConnected());
    }

    ~QuillbarAppTest() override {
        app.reset();
        QDBusConnection::disconnectFromBus(connectionName);
        spinUntilIdle();
    }

    QuillbarAppTest(const QuillbarAppTest&) = delete;
    QuillbarAppTest& operator=(const QuillbarAppTest&) = delete;
    QuillbarAppTest(QuillbarAppTest&&) = delete;
    QuillbarAppTest& operator=(QuillbarAppTest&&) = delete;

    static void SetUpTestSuite() {
        const simulator::Simulator maker({.caFile = authorityFile(), .symbolCount = 1});
        ASSERT_EQ(trustAuthorities(authorityFile()), std::nullopt);
    }

    void start(const std::optional<QDBusConnection>& connection,
               QuillbarApp::WithoutTray withoutTray = QuillbarApp::WithoutTray::opensPanel) {
        app.emplace(connection,
                    ServiceEndpoints{.rest = {exchange.restBase()},
                                     .stream = {exchange.streamBase()},
                                     .marketCap = exchange.marketCapBase(),
                                     .icon = exchange.iconBase()},
                    folder.path(),
                    sleeper.sleeper());
        app->start(withoutTray);
    }

    /// With a tray that takes the item.
    void startInTray() {
        host.beWatcher();
        start(bus);
        ASSERT_TRUE(spinUntil([this] { return !host.registered.isEmpty(); }));
    }

    /// Until the item has given up waiting for a tray.
    void startWithoutTray(const std::optional<QDBusConnection>& connection) {
        start(connection);
        ASSERT_TRUE(spinUntil([this] {
            endPatience();
            return panel() != nullptr;
        }));
    }

    /// Ends the wait for a tray; returns whether there was one.
    bool endPatience() {
        return sleeper.wake([](double span) { return span == StatusItem::kPatience.count(); }) > 0;
    }

    void choose(int id) {
        host.callMenu(QStringLiteral("Event"),
                      {id, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), 0U});
    }

    /// Clicks the entry of the menu that has this label; the host's menu then shows what it was told.
    void choose(const char* label) {
        host.readMenu();
        const int id = host.shownId(QString::fromUtf8(label));
        ASSERT_GT(id, 0) << label;
        choose(id);
        host.readMenu();
    }

    /// Opens the menu.
    void openMenu() {
        host.callMenu(QStringLiteral("AboutToShow"), {DBusMenu::kRoot});
        host.readMenu();
    }

    [[nodiscard]] bool shows(const char* label) const {
        return host.shownId(QString::fromUtf8(label)) > 0;
    }

    /// Whether the menu's entry with this label is marked.
    [[nodiscard]] bool isOn(const char* label) const {
        EXPECT_TRUE(shows(label)) << label;
        return host.shownMenu.value(host.shownId(QString::fromUtf8(label)))
                   .value(QStringLiteral("toggle-state"))
               == 1;
    }

    /// Where the desktop looks for what it starts at login.
    [[nodiscard]] std::filesystem::path autostartEntry() const {
        return folder.path() / "configuration" / "autostart" / AutostartEntry::kFileName;
    }

    /// The panel while it is shown.
    [[nodiscard]] static PanelWindow* panel() {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (auto* const found = dynamic_cast<PanelWindow*>(window);
                found && found->isVisible()) {
                return found;
            }
        }
        return nullptr;
    }

    [[nodiscard]] static bool tells(Notice notice) {
        return named(*panel(), Notices::text(notice)) != nullptr;
    }

    /// Runs the application as its program does, from `act` on: 0 when it quits by itself.
    static int statusAfter(const std::function<void()>& act) {
        QTimer::singleShot(0, qApp, act);
        QTimer end;
        end.setSingleShot(true);
        QObject::connect(&end, &QTimer::timeout, [] { QCoreApplication::exit(kDidNotQuit); });
        end.start(20s);
        return QCoreApplication::exec();
    }

    // Its absence: these tests may themselves run in a session of sway.
    TemporaryEnvironment swaySocket{"SWAYSOCK", std::nullopt};
    CapturedLog log;
    TemporaryFolder folder;
    TemporaryEnvironment configuration{"XDG_CONFIG_HOME",
                                       (folder.path() / "configuration").string()};
    TemporaryEnvironment systemConfiguration{"XDG_CONFIG_DIRS",
                                             (folder.path() / "system").string()};
    HeldSleeper sleeper;
    PrivateBus daemon;
    QString connectionName = QUuid::createUuid().toString();
    QDBusConnection bus;
    FakeTrayHost host;
    simulator::Simulator exchange{{.caFile = authorityFile(), .symbolCount = 100}};
    std::optional<QuillbarApp> app;
};

TEST_F(QuillbarAppTest, putsItsItemIntoTheTrayAndOpensNothing) {
    startInTray();
    EXPECT_THAT(host.registered, Contains(bus.baseService()));
    EXPECT_EQ(panel(), nullptr);
}

TEST_F(QuillbarAppTest, theItemFollowsThePrices) {
    startInTray();
    ASSERT_TRUE(spinUntil([this] { return exchange.openStreams() > 0; }));
    ASSERT_TRUE(spinUntil([this] { return !host.labels.isEmpty(); }));
    const QString before = host.labels.constLast();
    EXPECT_TRUE(spinUntil([&] {
        exchange.tick();
        endPatience();
        return host.labels.constLast() != before;
    })) << before.toStdString();
}

TEST_F(QuillbarAppTest, pricesWaitForTheItemButNotForABusThatDoesNotAnswer) {
    daemon.freeze();
    start(bus);
    spinUntilIdle();
    EXPECT_EQ(exchange.openStreams(), 0);
    EXPECT_EQ(sleeper.wake([](double span) { return span == QuillbarApp::kItemPatience.count(); }),
              1);
    EXPECT_TRUE(spinUntil([this] { return exchange.openStreams() > 0; }));
    daemon.thaw();
}

TEST_F(QuillbarAppTest, aClickOnTheItemOpensThePanel) {
    startInTray();
    host.callItem(QStringLiteral("Activate"), {300, 5});
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(panel()->width(), 400);
    EXPECT_FALSE(tells(Notice::noTray));
    EXPECT_FALSE(tells(Notice::noSessionBus));
    EXPECT_FALSE(tells(Notice::noChineseFont));
}

TEST_F(QuillbarAppTest, hintsAreInTheFontsOfThePanel) {
    startInTray();
    app->showPanel(QString());
    EXPECT_EQ(QToolTip::font().families(), systemFont(10).families());
}

TEST_F(QuillbarAppTest, theMenuOpensThePanel) {
    startInTray();
    choose(StatusItem::kOpenPanel);
    EXPECT_NE(panel(), nullptr);
}

TEST_F(QuillbarAppTest, theMenuHasTheSettings) {
    startInTray();
    host.readMenu();
    for (const char* const label : {"涨跌幅基准", "外观", "跟随系统"}) {
        EXPECT_TRUE(shows(label)) << label;
    }
    EXPECT_TRUE(isOn("24 小时"));
    EXPECT_FALSE(isOn("今日"));
    EXPECT_TRUE(isOn("深色"));
    EXPECT_FALSE(isOn("浅色"));
    EXPECT_FALSE(isOn("开机自启"));
}

TEST_F(QuillbarAppTest, theMenuChangesTheSettings) {
    startInTray();
    choose("今日");
    EXPECT_TRUE(isOn("今日"));
    EXPECT_FALSE(isOn("24 小时"));
    choose("浅色");
    EXPECT_TRUE(isOn("浅色"));
    EXPECT_FALSE(isOn("深色"));
    EXPECT_TRUE(spinUntil([this] {
        const std::string settings = contentsOf(folder.path() / "settings.json");
        return settings.find(R"("changeBasis":"today")") != std::string::npos
               && settings.find(R"("appearance":"light")") != std::string::npos;
    })) << contentsOf(folder.path() / "settings.json");
}

TEST_F(QuillbarAppTest, theMenuSwitchesStartingAtLoginAndFollowsTheDesktop) {
    startInTray();
    choose("开机自启");
    EXPECT_TRUE(isOn("开机自启"));
    const std::string entry = contentsOf(autostartEntry());
    EXPECT_NE(entry, "");

    std::filesystem::remove(autostartEntry());
    openMenu();
    EXPECT_FALSE(isOn("开机自启"));
    writeContents(autostartEntry(), entry);
    openMenu();
    EXPECT_TRUE(isOn("开机自启"));

    choose("开机自启");
    EXPECT_FALSE(isOn("开机自启"));
    EXPECT_FALSE(std::filesystem::exists(autostartEntry()));
}

TEST_F(QuillbarAppTest, theMenuSaysWhyStartingAtLoginCouldNotBeSwitched) {
    constexpr const char* kNotOn = "开机自启注册失败,请检查系统设置中的登录项";
    constexpr const char* kNotOff = "取消开机自启失败,请稍后重试";
    // Not written by this program, which leaves it alone.
    const auto somebodyElsesEntry = [this](const std::string& program) {
        writeContents(autostartEntry(), "[Desktop Entry]\nType=Application\nExec=" + program);
    };
    somebodyElsesEntry("/nowhere/quillbar");
    startInTray();
    choose("开机自启");
    EXPECT_FALSE(isOn("开机自启"));
    EXPECT_TRUE(shows(kNotOn));

    somebodyElsesEntry("/bin/sh");
    openMenu();
    EXPECT_TRUE(isOn("开机自启"));
    choose("开机自启");
    EXPECT_TRUE(isOn("开机自启"));
    EXPECT_TRUE(shows(kNotOff));
    EXPECT_FALSE(shows(kNotOn));
}

TEST_F(QuillbarAppTest, theMenuQuits) {
    startInTray();
    EXPECT_EQ(statusAfter([this] { choose(StatusItem::kQuit); }), kQuit);
}

TEST_F(QuillbarAppTest, theKeyForQuittingQuitsFromThePanel) {
    startInTray();
    app->showPanel(QString());
    ASSERT_TRUE(spinUntil([] { return panel()->isActiveWindow(); }));
    EXPECT_EQ(statusAfter([] { QTest::keyClick(panel(), Qt::Key_Q, Qt::ControlModifier); }), kQuit);
}

TEST_F(QuillbarAppTest, commandsToggleThePanel) {
    startInTray();
    app->togglePanel(QString());
    EXPECT_NE(panel(), nullptr);
    app->togglePanel(QString());
    EXPECT_EQ(panel(), nullptr);
}

TEST_F(QuillbarAppTest, withoutATrayThePanelOpensAndSaysWhy) {
    startWithoutTray(bus);
    EXPECT_TRUE(tells(Notice::noTray));
    EXPECT_FALSE(tells(Notice::noSessionBus));
    EXPECT_THAT(log.lines("QuillbarApp"), IsEmpty());
    QTest::keyClick(panel(), Qt::Key_Escape);
    spinUntilIdle();
    app->togglePanel(QString());
    ASSERT_NE(panel(), nullptr) << "closing does not quit where a command opens it again";
    host.beWatcher();
    EXPECT_TRUE(spinUntil([] { return !tells(Notice::noTray); }));
}

TEST_F(QuillbarAppTest, inTheBackgroundNothingOpensWithoutATrayUntilACommandDoes) {
    start(bus, QuillbarApp::WithoutTray::waits);
    ASSERT_TRUE(spinUntil([this] { return endPatience(); }));
    spinUntilIdle();
    EXPECT_EQ(panel(), nullptr);
    app->togglePanel(QString());
    ASSERT_NE(panel(), nullptr);
    EXPECT_TRUE(tells(Notice::noTray));
    QTest::keyClick(panel(), Qt::Key_Escape);
    spinUntilIdle();
    EXPECT_EQ(panel(), nullptr);
    app->showPanel(QString());
    EXPECT_NE(panel(), nullptr) << "closing it did not quit";
}

TEST_F(QuillbarAppTest, inTheBackgroundATrayThatComesLateTakesTheItem) {
    start(bus, QuillbarApp::WithoutTray::waits);
    ASSERT_TRUE(spinUntil([this] { return endPatience(); }));
    host.beWatcher();
    ASSERT_TRUE(spinUntil([this] { return !host.registered.isEmpty(); }));
    spinUntilIdle();
    EXPECT_EQ(panel(), nullptr);
    host.callItem(QStringLiteral("Activate"), {300, 5});
    ASSERT_NE(panel(), nullptr);
    EXPECT_FALSE(tells(Notice::noTray));
}

TEST_F(QuillbarAppTest, withoutASessionBusThePanelOpensAndSaysWhy) {
    startWithoutTray(std::nullopt);
    EXPECT_TRUE(tells(Notice::noSessionBus));
    EXPECT_FALSE(tells(Notice::noTray)) << "the bus is the reason";
    EXPECT_THAT(log.lines("QuillbarApp"),
                Contains("QuillbarApp|error|no session bus: no item in the status area"));
}

TEST_F(QuillbarAppTest, withoutASessionBusAClosedPanelIsTheEnd) {
    startWithoutTray(std::nullopt);
    EXPECT_EQ(statusAfter([] { QTest::keyClick(panel(), Qt::Key_Escape); }), kQuit)
        << "nothing could ever open it again";
}

}  // namespace

}  // namespace quillbar
