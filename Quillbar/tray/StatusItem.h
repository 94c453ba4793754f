// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/DBusMenu.h"
#include "Quillbar/tray/ItemPlace.h"
#include "Quillbar/tray/LabelFace.h"
#include "Quillbar/tray/LabelPicture.h"
#include "Quillbar/tray/OlderTray.h"
#include "Quillbar/tray/PinAnnouncement.h"
#include "Quillbar/tray/StatusItemEnvironment.h"
#include "Quillbar/tray/StatusNotifierItem.h"
#include "Quillbar/tray/TooltipPause.h"
#include "Quillbar/tray/TrayHost.h"
#include "Quillbar/tray/TraySearch.h"
#include "Quillbar/widgets/MenuEntry.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Time.h"

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

/// The application's item in the desktop's status area: in the tray that `TraySearch` finds, and in
/// the form that suits the present host. A host gets a signal only when something that it shows has
/// changed.
///
/// Lives on the main thread, which it never blocks, and needs a QApplication. There may be one for
/// each connection to a bus.
class StatusItem final : public QObject {
    Q_OBJECT

public:
    /// How long a tray host may take to start.
    static constexpr Seconds kPatience = TraySearch::kPatience;
    /// The ids of the menu's own entries; others have higher ones than `kLastOwnId`.
    static constexpr int kOpenPanel = 1;
    static constexpr int kQuit = 2;
    static constexpr int kLastOwnId = 9;

    /// Called for what the user does, and for what happens to the item. All but `onMenuShown`,
    /// `onScroll` and `onOffered` are set. A handler must not destroy the item; it may post that to
    /// the executor.
    struct Handlers final {
        /// The user wants the panel, beside this position on the screen; absent when the place of
        /// the item is unknown.
        std::function<void(std::optional<QPoint> anchor, ActivationSource source)> onActivate;
        /// The menu is about to be shown, and its entries may be set now. May be called several
        /// times.
        std::function<void()> onMenuShown = nullptr;
        /// The user chose an entry of the menu: `kQuit` or one of those given, never `kOpenPanel`.
        /// The anchor is that of `onActivate`.
        std::function<void(int id, std::optional<QPoint> anchor)> onMenu;
        /// The wheel was turned over the item: 1 for towards the user, otherwise -1. Called once or
        /// many times for one turn.
        std::function<void(int places)> onScroll = nullptr;
        /// Called before an activation. With this token the next window that is shown may take the
        /// focus.
        std::function<void(const QString& token)> onActivationToken;
        /// There is no tray, and there was none. Without a bus, no commands reach the application;
        /// it is then called also when a tray is gone. It is called again only after a tray took
        /// the item.
        std::function<void()> onNoTray;
        /// After `onNoTray`, a tray came and took the item. At most once for each `onNoTray`.
        std::function<void()> onTray;
        /// A host was asked to take the item, or there is none. Called once, perhaps inside `show`,
        /// or never if the bus does not answer.
        std::function<void()> onOffered = nullptr;
    };

    StatusItem(StatusItemEnvironment environment, Handlers handlers);
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;
    StatusItem(StatusItem&&) = delete;
    StatusItem& operator=(StatusItem&&) = delete;
    ~StatusItem() override;

    /// Shows the face. The first call makes the item appear. The face that is shown already costs
    /// nothing.
    void show(const LabelFace& face);

    /// Sets the entries of the menu between the first, which opens the panel, and the last, which
    /// quits.
    void setMenu(const std::vector<MenuEntry>& middle);

    /// How many price alerts fired that only the panel can show: while there are any, the picture
    /// has a mark, and the tooltip and the picture's description say their number.
    void setFiredAlerts(int count);

    /// Call it when the panel is shown or hidden. While it is shown there is no tooltip, which
    /// hosts would draw over it, nor while `TooltipPause` holds.
    void setPanelOpen(bool isOpen) { m_tooltipPause.setPanelOpen(isOpen); }

    /// Whether a tray has the item, or was found and has not refused it.
    [[nodiscard]] bool isOffered() const { return m_olderTray || m_search.isOffered(); }

private:
    void begin();
    void adaptTo(const TrayHost& host);
    void setOlderTrayUsed(bool isUsed);

    void refresh();
    [[nodiscard]] LabelPicture pictureIn(LabelForm form, PictureGround ground) const;
    void refreshItem();
    void refreshTooltip();
    [[nodiscard]] QString details() const;

    void activate(std::optional<QPoint> anchor);
    void scroll(int places);
    void popUpMenu(QPoint reported);
    void menuShown();
    void menuClicked(int id);
    [[nodiscard]] std::optional<QPoint> unreportedAnchor() const;

    StatusItemEnvironment m_environment;
    Handlers m_handlers;
    ItemPlace m_place;
    Logger m_logger{"StatusItem"};
    StatusNotifierItem m_item;
    DBusMenu m_menu;
    TooltipPause m_tooltipPause;
    PinAnnouncement m_pinAnnouncement;
    QMenu m_ownMenu;
    std::unique_ptr<OlderTray> m_olderTray;
    std::optional<LabelFace> m_face;
    int m_firedAlerts = 0;
    /// What the present host was told to draw.
    std::optional<LabelPicture> m_picture;
    TrayHost m_host;
    /// The icon for a host that wants a name.
    QString m_themeIcon;
    std::optional<QPoint> m_menuAnchor;
    // Last: its callbacks use all of the above.
    TraySearch m_search;
};

}  // namespace quillbar
