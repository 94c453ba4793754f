// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/BarShade.h"
#include "Quillbar/tray/DBusMenu.h"
#include "Quillbar/tray/DesktopShade.h"
#include "Quillbar/tray/LabelFace.h"
#include "Quillbar/tray/LabelPicture.h"
#include "Quillbar/tray/MenuEntry.h"
#include "Quillbar/tray/OlderTray.h"
#include "Quillbar/tray/StatusItemEnvironment.h"
#include "Quillbar/tray/StatusNotifierItem.h"
#include "Quillbar/tray/TrayHost.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <QDBusMessage>
#include <QMenu>
#include <QObject>
#include <QPoint>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quillbar {

/// How the user asked for the panel.
enum class ActivationSource {
    /// A click on the item, which may also close the panel.
    click,
    /// The menu's first entry, which opens it.
    menu,
};

/// The application's item in the desktop's status area, in the form that suits the host of the
/// moment: over D-Bus where there is a StatusNotifierWatcher, whenever one comes; where there has
/// been none for `kPatience`, in a tray of the older protocol, until one comes. One that refuses
/// the item counts as none, and is asked again every `kPatience`. A host is told of a face only
/// when what it shows of it has changed.
///
/// Lives on the main thread, which it never blocks, and needs a QApplication. One for a connection.
class StatusItem final : public QObject {
    Q_OBJECT

public:
    /// How long a tray host may take to start.
    static constexpr Seconds kPatience{10};
    /// The ids of the menu's own entries; others have higher ones than `kLastOwnId`.
    static constexpr int kOpenPanel = 1;
    static constexpr int kQuit = 2;
    static constexpr int kLastOwnId = 9;

    /// What the user does, and what becomes of the item. All but `onMenuShown` and `onOffered` are
    /// set. A handler does not destroy the item; it
    /// may post that to the executor.
    struct Handlers final {
        /// Wants the panel beside this position on the screen.
        std::function<void(QPoint anchor, ActivationSource source)> onActivate;
        /// Is about to see the menu, whose entries may be set now. Perhaps several times.
        std::function<void()> onMenuShown = nullptr;
        /// Chose an entry of the menu, `kQuit` or one of those given; never `kOpenPanel`.
        std::function<void(int id)> onMenu;
        /// Precedes an activation: with the token, the next window shown may take the focus.
        std::function<void(const QString& token)> onActivationToken;
        /// There is no tray of any kind, and there has not been one. Without a bus, by which
        /// commands reach the application, also when a tray is gone. Not again before a tray took
        /// the item.
        std::function<void()> onNoTray;
        /// After `onNoTray`, a tray came and took the item. At most once for each `onNoTray`.
        std::function<void()> onTray;
        /// A bar has been asked to take the item, or there is none that could be. Once, and perhaps
        /// from within `show`; not at all where the bus does not answer.
        std::function<void()> onOffered = nullptr;
    };

    StatusItem(StatusItemEnvironment environment, Handlers handlers);
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;
    StatusItem(StatusItem&&) = delete;
    StatusItem& operator=(StatusItem&&) = delete;
    ~StatusItem() override;

    /// Shows the face. The first one makes the item appear.
    void show(const LabelFace& face);

    /// Sets what stands in the menu between its first entry, which opens the panel, and its last,
    /// which quits.
    void setMenu(const std::vector<MenuEntry>& middle);

private:
    using Reply = std::function<void(const QDBusMessage&)>;

    void begin();
    void ask(const QDBusMessage& question, Reply reply);
    void watcherIs(const QString& owner);
    void introduceTo(const QString& owner);
    void registerWith(const QString& owner);
    void registrationFailed(const QString& owner, const QString& why);
    Task<void> registerLater(QString owner);
    void loseWatcher();

    void waitForWatcher();
    Task<void> lookForOlderTray();
    void reportOffered();
    void reportNoTray();
    void reportTray();
    Task<void> untilOlderTrayIsGone();
    void useOlderTray();
    void leaveOlderTray();

    void refresh();
    void refreshItem();
    [[nodiscard]] BarShade shade() const;

    void activate(std::optional<QPoint> reported);
    void popUpMenu(QPoint reported);
    void menuShown();
    void menuClicked(int id);
    [[nodiscard]] QPoint anchorOf(QPoint reported) const;

    StatusItemEnvironment m_environment;
    Handlers m_handlers;
    Logger m_logger{"StatusItem"};
    StatusNotifierItem m_item;
    DBusMenu m_menu;
    QMenu m_ownMenu;
    std::optional<DesktopShade> m_desktopShade;
    BarShade m_desktopBar = BarShade::unknown;
    std::unique_ptr<OlderTray> m_olderTray;
    std::optional<LabelFace> m_face;
    /// What the host of the moment was told to draw.
    std::optional<LabelPicture> m_picture;
    TrayHost m_host;
    /// The unique name of the watcher; empty without one.
    QString m_watcher;
    std::optional<QPoint> m_menuAnchor;
    bool m_isRefused = false;
    bool m_hadTray = false;
    bool m_toldNoTray = false;
    TaskScope::Handle m_waiting;
    TaskScope::Handle m_registering;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
