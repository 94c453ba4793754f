// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/ItemCoins.h"
#include "Quillbar/labelstate/StateLabelSource.h"
#include "Quillbar/login/AutostartEntry.h"
#include "Quillbar/login/LaunchAtLogin.h"
#include "Quillbar/notifications/AlertAnnouncer.h"
#include "Quillbar/notifications/UnseenAlerts.h"
#include "Quillbar/panel/FirstStart.h"
#include "Quillbar/panel/Notices.h"
#include "Quillbar/panel/SettingsMenu.h"
#include "Quillbar/services/AppServices.h"
#include "Quillbar/services/DeferredSystemEvents.h"
#include "Quillbar/services/ServiceEndpoints.h"
#include "Quillbar/tray/StatusItem.h"
#include "Quillbar/widgets/SystemColorScheme.h"
#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/alerts/AlertKeeper.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/QtSleeper.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/runtime/Worker.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <QDBusConnection>
#include <QPoint>
#include <QString>

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

namespace quillbar {

class PanelView;
class PanelWindow;

/// The application: the models, built once and alive as long as it is; the item in the status area;
/// the panel that drops down from it. Prices flow from `start` on, whether or not the panel is ever
/// opened.
///
/// Lives on the main thread, inside a running QApplication.
class QuillbarApp final {
public:
    /// The longest that the stream waits for the item, where the bus is slow.
    static constexpr Seconds kItemPatience{0.5};

    /// Builds everything, and connects to nothing. `bus` is the session bus, absent if there is
    /// none. All waiting uses the `sleeper`.
    QuillbarApp(const std::optional<QDBusConnection>& bus,
                const ServiceEndpoints& endpoints,
                const std::filesystem::path& folder,
                Sleeper sleeper = makeQtSleeper());
    QuillbarApp(const QuillbarApp&) = delete;
    QuillbarApp& operator=(const QuillbarApp&) = delete;
    QuillbarApp(QuillbarApp&&) = delete;
    QuillbarApp& operator=(QuillbarApp&&) = delete;
    ~QuillbarApp();

    /// What happens where no tray takes the item.
    enum class WithoutTray {
        /// The panel opens, as the only thing that can be seen of the application.
        opensPanel,
        /// Nothing. The panel says so when a command opens it, which needs a bus. For starts that
        /// the user has not asked for at that moment.
        waits,
    };

    /// Puts the item into the status area, and then starts the stream. Once.
    void start(WithoutTray withoutTray = WithoutTray::opensPanel);

    /// Shows or hides the panel; `token` lets it take the focus, and may be empty.
    void togglePanel(const QString& token);
    /// Shows the panel, whether or not it is shown.
    void showPanel(const QString& token);
    /// Shows the panel with its page of preferences.
    void showPreferences(const QString& token);
    /// Hides the numbers in the status area and from the programs that pass the label on, or shows
    /// them again.
    void toggleDiscreet();

    /// The label, for programs that pass it on. Lives as long as this object.
    [[nodiscard]] LabelSource& labelSource() noexcept { return m_labelSource; }
    /// The price alerts that fired and were not shown yet. Lives as long as this object.
    [[nodiscard]] const Observed<std::vector<FiredAlert>>& firedAlerts() const noexcept {
        return m_alerts.fired();
    }

private:
    void refreshFace();
    void refreshMenu();
    void applyLanguage();
    Task<void> renewPanel();
    Task<void> refreshFaceEachMinute();
    Task<void> startServicesInTime();
    void startServices();
    Task<void> keepHeapSmall();
    void activate(std::optional<QPoint> anchor, ActivationSource source);
    void chooseFromMenu(int id, std::optional<QPoint> anchor);
    void goWithoutTray();
    void dropFromTray();
    PanelWindow& panel();
    PanelWindow& panelAskedFor();
    void onPanelOpened();
    void onPanelClosed();
    void setStandalone(bool isStandalone);

    std::unique_ptr<Executor> m_executor;
    std::unique_ptr<Worker> m_worker;
    Sleeper m_sleeper;
    AppServices m_services;
    AlertKeeper m_alerts;
    PreferencesState m_preferences;
    AlertAnnouncer m_announcer;
    UnseenAlerts m_unseenAlerts;
    // Edits end before the state that they change.
    TaskScope m_edits;
    SystemColorScheme m_systemScheme;
    bool m_hasBus;
    WithoutTray m_withoutTray = WithoutTray::opensPanel;
    // Nothing could open the panel a second time.
    bool m_endsWithPanel = false;
    // There is no item that the panel drops down from.
    bool m_isStandalone = false;
    Notices m_notices;
    FirstStart m_firstStart;
    AutostartEntry m_loginItem;
    LaunchAtLogin m_launchAtLogin;
    SettingsMenu m_settings;
    ViewEnvironment m_environment;
    std::unique_ptr<PanelWindow> m_panel;
    // The panel's content, which it owns.
    PanelView* m_panelView = nullptr;
    StatusItem m_item;
    ItemCoins m_itemCoins;
    // Two sources, because each has one observer: one for the item, and one for readers over the
    // bus.
    StateLabelSource m_faceSource;
    StateLabelSource m_labelSource;
    std::optional<DeferredSystemEvents> m_systemEvents;
    std::vector<Observation> m_observations;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
