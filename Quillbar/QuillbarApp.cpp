// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/QuillbarApp.h"

#include "Quillbar/labelstate/LabelSnapshot.h"
#include "Quillbar/panel/PanelView.h"
#include "Quillbar/platform/SmallHeap.h"
#include "Quillbar/platform/TextLanguage.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/ChineseFont.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/TooltipStyle.h"
#include "Quillbar/window/PanelWindow.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/QtExecutor.h"
#include "QuillbarCore/runtime/QtWorker.h"

#include <QApplication>
#include <QCoreApplication>
#include <QKeySequence>
#include <QObject>
#include <QShortcut>
#include <QToolTip>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

namespace quillbar {

namespace {

// The item reports its own entries and those of the settings through one function.
static_assert(SettingsMenu::kFirstId > StatusItem::kLastOwnId);

/// The menu's entries that only the item has.
constexpr int kHideNumbers = SettingsMenu::kLastId + 1;
constexpr int kAboveSettings = kHideNumbers + 1;

/// The tooltip tells the age of prices in minutes.
constexpr Seconds kFaceInterval{60};
/// Loading a board and closing the panel leave much free memory behind.
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
    , m_alerts({.executor = *m_executor,
                .appState = m_services.appState(),
                .store = AlertStore(folder),
                .sleeper = m_sleeper})
    , m_preferences(PreferencesStore(folder))
    , m_announcer(m_alerts, m_preferences.preferences(), bus.value_or(QDBusConnection(QString())))
    , m_unseenAlerts(m_announcer.unshown())
    , m_edits(*m_executor)
    , m_systemScheme(bus)
    , m_hasBus(bus && bus->isConnected())
    , m_firstStart(folder)
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
                    .notices = &m_notices,
                    .alerts = &m_alerts,
                    .unshownAlerts = &m_announcer.unshown()}
    , m_item(
          StatusItemEnvironment::ofDesktop(bus.value_or(QDBusConnection(QString())),
                                           *m_executor,
                                           m_sleeper),
          {.onActivate = [this](std::optional<QPoint> anchor,
                                ActivationSource source) { activate(anchor, source); },
           .onMenuShown = [this] { m_settings.refresh(); },
           .onMenu = [this](int id, std::optional<QPoint> anchor) { chooseFromMenu(id, anchor); },
           .onScroll = [this](int places) { m_itemCoins.turn(places); },
           .onActivationToken = [this](const QString& token) { panel().setActivationToken(token); },
           .onNoTray = [this] { goWithoutTray(); },
           .onTray = [this] { dropFromTray(); },
           .onOffered = [this] { startServices(); }})
    , m_itemCoins({.state = m_services.appState(),
                   .preferences = m_preferences.preferences(),
                   .executor = *m_executor,
                   .sleeper = m_sleeper})
    , m_faceSource(m_services.appState(),
                   m_services.isStarted(),
                   &m_preferences.preferences(),
                   &m_itemCoins)
    , m_labelSource(m_services.appState(), m_services.isStarted(), &m_preferences.preferences())
    , m_scope(*m_executor) {
    applyLanguage();
    // First, so that what follows is refreshed in the language that was chosen.
    m_observations.push_back(m_preferences.preferences().observe(
        [this](const Preferences& /*preferences*/) { applyLanguage(); }));
    m_faceSource.observe([this] { refreshFace(); });
    m_announcer.onChosen = [this](const std::string& symbol, const QString& token) {
        showPanel(token);
        m_panelView->showChart(symbol);
    };
    refreshMenu();
    const auto menuChanged = [this](const auto& /*value*/) { refreshMenu(); };
    m_observations.push_back(m_settings.entries().observe(menuChanged));
    m_observations.push_back(m_preferences.preferences().observe(menuChanged));
    m_observations.push_back(
        m_unseenAlerts.count().observe([this](int count) { m_item.setFiredAlerts(count); }));
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
    PanelWindow& window = panelAskedFor();
    window.setActivationToken(token);
    window.toggle(PanelWindow::AskedBy::command);
}

void QuillbarApp::showPanel(const QString& token) {
    PanelWindow& window = panelAskedFor();
    window.setActivationToken(token);
    window.open(PanelWindow::AskedBy::command);
}

void QuillbarApp::showPreferences(const QString& token) {
    PanelWindow& window = panelAskedFor();
    window.setActivationToken(token);
    m_panelView->showPreferences();
    window.open(PanelWindow::AskedBy::command);
}

void QuillbarApp::toggleDiscreet() {
    LabelPreferences label = m_preferences.preferences()->label;
    label.isDiscreet = !label.isDiscreet;
    m_preferences.setLabel(label);
}

void QuillbarApp::refreshFace() {
    const Preferences& preferences = *m_preferences.preferences();
    m_item.show(LabelFace::of(
        m_faceSource.snapshot(), systemClock()(), preferences.changeColors, preferences.label));
}

void QuillbarApp::refreshMenu() {
    std::vector<MenuEntry> entries{
        MenuEntry{.id = kHideNumbers,
                  .label = translated("app", "隐藏数字"),
                  .mark = MenuEntry::Mark::check,
                  .isOn = m_preferences.preferences()->label.isDiscreet},
        MenuEntry{.id = kAboveSettings, .kind = MenuEntry::Kind::separator}};
    entries.insert(entries.end(), m_settings.entries()->begin(), m_settings.entries()->end());
    m_item.setMenu(entries);
}

void QuillbarApp::applyLanguage() {
    const TextLanguage language = TextLanguages::chosen(m_preferences.preferences()->language);
    if (language == TextLanguages::inUse()) {
        return;
    }
    TextLanguages::use(language);
    m_settings.renewTexts();
    // Not at once: the row that was chosen is in the panel.
    m_scope.spawn(renewPanel());
}

Task<void> QuillbarApp::renewPanel() {
    if (m_panelView != nullptr) {
        m_panelView->renew();
    }
    co_return;
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

void QuillbarApp::activate(std::optional<QPoint> anchor, ActivationSource source) {
    if (source == ActivationSource::menu) {
        panelAskedFor().open(PanelWindow::AskedBy::pointer, anchor);
    } else {
        panelAskedFor().toggle(PanelWindow::AskedBy::pointer, anchor);
    }
}

void QuillbarApp::chooseFromMenu(int id, std::optional<QPoint> anchor) {
    if (id == StatusItem::kQuit) {
        QCoreApplication::quit();
    } else if (id == kHideNumbers) {
        toggleDiscreet();
    } else if (m_settings.choose(id) == SettingsMenu::Choice::wantsPreferences) {
        PanelWindow& window = panelAskedFor();
        m_panelView->showPreferences();
        window.open(PanelWindow::AskedBy::pointer, anchor);
    }
}

void QuillbarApp::goWithoutTray() {
    if (m_hasBus) {
        m_notices.add(Notice::noTray);
    }
    m_notices.remove(Notice::firstStart);
    setStandalone(true);
    if (m_withoutTray == WithoutTray::waits) {
        return;
    }
    if (!m_hasBus) {
        panel().setElsewhere(PanelWindow::Elsewhere::changesNothing);
        m_endsWithPanel = true;
    }
    showPanel(QString());
}

void QuillbarApp::dropFromTray() {
    m_notices.remove(Notice::noTray);
    setStandalone(false);
    m_endsWithPanel = false;
    if (m_panel) {
        m_panel->setElsewhere(PanelWindow::Elsewhere::closes);
    }
}

PanelWindow& QuillbarApp::panel() {
    if (!m_panel) {
        // Checked only here, because reading the list of fonts takes time.
        if (!ChineseFont::isInstalled()) {
            Logger("QuillbarApp")
                .error("no font for Simplified Chinese is installed: install fonts-noto-cjk");
            m_notices.add(Notice::noChineseFont);
        }
        QApplication::setStyle(new TooltipStyle);
        QToolTip::setFont(withChineseFamilies(QToolTip::font()));
        m_panelView = new PanelView(m_environment,
                                    m_systemScheme.scheme(),
                                    m_settings,
                                    m_preferences,
                                    &QCoreApplication::quit);
        m_panel = std::make_unique<PanelWindow>(m_panelView, elapsed());
        m_panelView->onClose = [this] { m_panel->dismiss(); };
        m_panelView->onPreferences = [this](bool areShown) {
            m_unseenAlerts.setPreferencesShown(areShown);
        };
        setStandalone(m_isStandalone);
        m_panel->onOpened = [this] { onPanelOpened(); };
        m_panel->onClosed = [this] { onPanelClosed(); };
        auto* const quit = new QShortcut(Qt::CTRL | Qt::Key_Q, m_panel.get());
        quit->setContext(Qt::ApplicationShortcut);
        QObject::connect(quit, &QShortcut::activated, qApp, &QCoreApplication::quit);
    }
    return *m_panel;
}

PanelWindow& QuillbarApp::panelAskedFor() {
    PanelWindow& window = panel();
    // Done before the panel opens, so that it opens in its final size. Notices of what is missing
    // go first, and alone.
    if (!window.isVisible() && m_firstStart.isDue() && m_item.isOffered()
        && m_notices.standing()->empty()) {
        m_notices.add(Notice::firstStart);
    }
    return window;
}

void QuillbarApp::onPanelOpened() {
    m_item.setPanelOpen(true);
    m_unseenAlerts.setPanelOpen(true);
    const std::vector<Notice>& told = *m_notices.standing();
    if (std::find(told.begin(), told.end(), Notice::firstStart) != told.end()) {
        m_firstStart.told();
    }
}

void QuillbarApp::setStandalone(bool isStandalone) {
    m_isStandalone = isStandalone;
    if (m_panel) {
        m_panel->setStandalone(isStandalone);
        m_panelView->setStandalone(isStandalone);
    }
}

void QuillbarApp::onPanelClosed() {
    m_item.setPanelOpen(false);
    m_unseenAlerts.setPanelOpen(false);
    // The panel opens with the prices that the user clicks the item for.
    m_panelView->closePreferences();
    if (m_endsWithPanel) {
        QCoreApplication::quit();
    }
}

}  // namespace quillbar
