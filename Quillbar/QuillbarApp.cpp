// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/QuillbarApp.h"

#include "Quillbar/labelstate/LabelSnapshot.h"
#include "Quillbar/PanelView.h"
#include "Quillbar/platform/SmallHeap.h"
#include "Quillbar/text/ChineseFont.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/window/PanelWindow.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/QtExecutor.h"
#include "QuillbarCore/runtime/QtWorker.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QObject>
#include <QShortcut>
#include <QToolTip>

#include <chrono>
#include <utility>

namespace quillbar {

namespace {

/// The tooltip tells the age of prices in minutes.
constexpr Seconds kFaceInterval{60};
/// A board that loads leaves much free memory behind, as does a panel that closes.
constexpr Seconds kHeapInterval{30};

ToggleGuard::Elapsed elapsed() {
    return [] {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    };
}

}  // namespace

QuillbarApp::QuillbarApp(const std::optional<QDBusConnection>& bus,
                         const ServiceEndpoints& endpoints,
                         const std::filesystem::path& folder,
                         Sleeper sleeper)
    : m_executor(makeQtExecutor())
    , m_worker(makeQtWorker())
    , m_sleeper(std::move(sleeper))
    , m_services({.executor = *m_executor,
                  .worker = *m_worker,
                  .clock = systemClock(),
                  .sleeper = m_sleeper,
                  .calendar = Calendar::autoupdatingCurrent()},
                 endpoints,
                 folder)
    , m_edits(*m_executor)
    , m_systemScheme(bus)
    , m_hasBus(bus && bus->isConnected())
    , m_loginItem(LoginSession::ofProcess(processEnvironment()))
    , m_launchAtLogin(m_loginItem)
    , m_settings(m_services.appState(), m_launchAtLogin)
    , m_environment{.executor = *m_executor,
                    .now = systemClock(),
                    .calendar = Calendar::autoupdatingCurrent(),
                    .appState = m_services.appState(),
                    .edits = m_edits,
                    .iconStore = &m_services.iconStore(),
                    .marketModels =
                        [this] {
                            return MarketModels{.market = m_services.marketState(),
                                                .marketCaps = m_services.marketCapState()};
                        },
                    .sleeper = m_sleeper,
                    .notices = &m_notices}
    , m_item(
          StatusItemEnvironment::ofDesktop(bus.value_or(QDBusConnection(QString())),
                                           *m_executor,
                                           m_sleeper),
          {.onActivate = [this](QPoint anchor,
                                ActivationSource source) { activate(anchor, source); },
           .onMenuShown = [this] { m_settings.refresh(); },
           .onMenu = [this](int id) { chooseFromMenu(id); },
           .onActivationToken = [this](const QString& token) { panel().setActivationToken(token); },
           .onNoTray = [this] { goWithoutTray(); },
           .onTray = [this] { dropFromTray(); },
           .onOffered = [this] { startServices(); }})
    , m_labelSource(m_services.appState(), m_services.isStarted())
    , m_scope(*m_executor) {
    const auto refresh = [this](const auto& /*value*/) { refreshFace(); };
    AppState& state = m_services.appState();
    m_observations.push_back(state.menuBarText().observe(refresh));
    m_observations.push_back(state.connectionState().observe(refresh));
    m_observations.push_back(state.connectionFailure().observe(refresh));
    m_observations.push_back(state.lastError().observe(refresh));
    m_item.setMenu(*m_settings.entries());
    m_observations.push_back(m_settings.entries().observe(
        [this](const std::vector<MenuEntry>& entries) { m_item.setMenu(entries); }));
    if (!m_hasBus) {
        Logger("QuillbarApp").error("no session bus: no item in the status area");
        m_notices.add(Notice::noSessionBus);
    }
}

QuillbarApp::~QuillbarApp() = default;

void QuillbarApp::start(WithoutTray withoutTray) {
    m_withoutTray = withoutTray;
    refreshFace();
    m_scope.spawn(refreshFaceEachMinute());
    m_scope.spawn(startServicesInTime());
    m_scope.spawn(keepHeapSmall());
}

Task<void> QuillbarApp::startServicesInTime() {
    co_await m_sleeper(kItemPatience);
    startServices();
}

void QuillbarApp::startServices() {
    if (!m_systemEvents) {
        m_services.start();
        m_systemEvents.emplace(m_services, *m_executor, m_sleeper);
    }
}

void QuillbarApp::togglePanel(const QString& token) {
    PanelWindow& window = panel();
    window.setActivationToken(token);
    window.toggle(std::nullopt);
}

void QuillbarApp::showPanel(const QString& token) {
    PanelWindow& window = panel();
    window.setActivationToken(token);
    window.open(std::nullopt);
}

void QuillbarApp::refreshFace() {
    m_item.show(LabelFace::of(LabelSnapshot::of(m_services.appState()), systemClock()()));
}

Task<void> QuillbarApp::refreshFaceEachMinute() {
    while (true) {
        co_await m_sleeper(kFaceInterval);
        refreshFace();
    }
}

Task<void> QuillbarApp::keepHeapSmall() {
    while (true) {
        co_await m_sleeper(kHeapInterval);
        SmallHeap::giveBack();
    }
}

void QuillbarApp::activate(QPoint anchor, ActivationSource source) {
    if (source == ActivationSource::menu) {
        panel().open(anchor);
    } else {
        panel().toggle(anchor);
    }
}

void QuillbarApp::chooseFromMenu(int id) {
    if (id == StatusItem::kQuit) {
        QCoreApplication::quit();
    } else {
        m_settings.choose(id);
    }
}

void QuillbarApp::goWithoutTray() {
    if (m_hasBus) {
        m_notices.add(Notice::noTray);
    }
    if (m_withoutTray == WithoutTray::waits) {
        return;
    }
    if (!m_hasBus) {
        // Without an item and a bus, nothing could open it a second time.
        panel().setElsewhere(PanelWindow::Elsewhere::changesNothing);
        panel().onClosed = &QCoreApplication::quit;
    }
    showPanel(QString());
}

void QuillbarApp::dropFromTray() {
    m_notices.remove(Notice::noTray);
    if (m_panel) {
        m_panel->setElsewhere(PanelWindow::Elsewhere::closes);
        m_panel->onClosed = nullptr;
    }
}

PanelWindow& QuillbarApp::panel() {
    if (!m_panel) {
        // Only here, because looking through the fonts takes its time.
        if (!ChineseFont::isInstalled()) {
            Logger("QuillbarApp")
                .error("no font for Simplified Chinese is installed: install fonts-noto-cjk");
            m_notices.add(Notice::noChineseFont);
        }
        QToolTip::setFont(withChineseFamilies(QToolTip::font()));
        m_panel = std::make_unique<PanelWindow>(
            new PanelView(
                m_environment, m_systemScheme.scheme(), m_settings, &QCoreApplication::quit),
            elapsed());
        auto* const quit = new QShortcut(Qt::CTRL | Qt::Key_Q, m_panel.get());
        quit->setContext(Qt::ApplicationShortcut);
        QObject::connect(quit, &QShortcut::activated, qApp, &QCoreApplication::quit);
    }
    return *m_panel;
}

}  // namespace quillbar
