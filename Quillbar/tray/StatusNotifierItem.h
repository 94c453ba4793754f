// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/StatusImage.h"

#include <QDBusObjectPath>
#include <QObject>
#include <QPoint>
#include <QString>

#include <functional>
#include <optional>

namespace quillbar {

/// The object that tray hosts read, org.kde.StatusNotifierItem with the label of the Ayatana hosts.
/// Its owner exports it at `kPath`, with all properties and the scriptable slots and signals. The
/// setters of texts signal to the hosts only if the text has changed.
///
/// The names of the properties, methods and signals are the protocol's.
class StatusNotifierItem final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QString IconThemePath READ empty)
    Q_PROPERTY(quillbar::StatusImages IconPixmap READ iconPixmap)
    Q_PROPERTY(QString IconAccessibleDesc READ description)
    Q_PROPERTY(QString OverlayIconName READ empty)
    Q_PROPERTY(quillbar::StatusImages OverlayIconPixmap READ noPixmap)
    Q_PROPERTY(QString AttentionIconName READ empty)
    Q_PROPERTY(quillbar::StatusImages AttentionIconPixmap READ noPixmap)
    Q_PROPERTY(QString AttentionAccessibleDesc READ empty)
    Q_PROPERTY(QString AttentionMovieName READ empty)
    Q_PROPERTY(quillbar::StatusTooltip ToolTip READ tooltip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
    Q_PROPERTY(QString XAyatanaLabel READ label)
    Q_PROPERTY(QString XAyatanaLabelGuide READ labelGuide)
    Q_PROPERTY(uint XAyatanaOrderingIndex READ orderingIndex)

public:
    /// The greatest coordinate that is passed on, in both directions. No screen is as large.
    static constexpr int kFarthest = 1'000'000;

    /// Called for what the hosts ask for. All are set.
    struct Handlers final {
        /// A click at this position, which not every host gives in the screen's coordinates.
        std::function<void(QPoint reported)> activate;
        /// A click with the middle button; some hosts do not say where.
        std::function<void(std::optional<QPoint> reported)> secondaryActivate;
        /// A host that draws no menus wants the item to show its menu.
        std::function<void(QPoint reported)> contextMenu;
        /// The wheel over the item: 1 for towards the user, otherwise -1. Hosts differ in the
        /// units, so one turn of a wheel may call it once or many times; some have the other sign.
        std::function<void(int places)> scroll;
        /// The compositor's permission to take the focus, before an activation.
        std::function<void(const QString& token)> activationToken;
    };

    /// Whether a change of the label is worth a signal.
    enum class Announcement { sent, omitted };

    static inline const QString kPath = QStringLiteral("/StatusNotifierItem");
    static inline const QString kTitle = QStringLiteral("Quillbar");

    /// `menu` is the path of the item's menu on the same connection.
    StatusNotifierItem(QString menu, Handlers handlers);

    /// Makes the pictures of an icon.
    using Draw = std::function<StatusImages()>;

    /// Sets an icon of the desktop's theme. Signals to the hosts unless it is set already.
    void setThemeIcon(const QString& name);
    /// Sets pictures, and signals to the hosts. They are drawn when the first host reads them:
    /// hosts that show only the label never do.
    void setPictures(Draw draw);
    /// The item's name, `kTitle` at first. It is markup where the host shows it as the tooltip.
    void setTitle(const QString& title);
    /// What stands for the pictures where they cannot be seen. The protocol has no signal for it,
    /// so set it before what changes together with it.
    void setDescription(const QString& description) { m_description = description; }
    /// Both texts are markup.
    void setTooltip(const QString& title, const QString& text);
    /// Neither text may be empty, as MATE's panel then shows an item without a width. The guide is
    /// a text as long as the label can get.
    void setLabel(const QString& label, const QString& guide, Announcement announcement);

    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] QString id() const { return QStringLiteral("io.github.quillbar.Quillbar"); }
    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] QString iconName() const { return m_iconName; }
    [[nodiscard]] StatusImages iconPixmap();
    [[nodiscard]] QString description() const { return m_description; }
    [[nodiscard]] StatusTooltip tooltip() const { return m_tooltip; }
    [[nodiscard]] bool itemIsMenu() const { return false; }
    [[nodiscard]] QDBusObjectPath menu() const { return QDBusObjectPath(m_menu); }
    [[nodiscard]] QString label() const { return m_label; }
    [[nodiscard]] QString labelGuide() const { return m_labelGuide; }
    [[nodiscard]] uint orderingIndex() const { return 0; }
    [[nodiscard]] QString empty() const { return {}; }
    [[nodiscard]] StatusImages noPixmap() const { return {}; }

    // NOLINTBEGIN(readability-identifier-naming): the protocol spells them so
    Q_SCRIPTABLE Q_SLOT void Activate(int x, int y);
    Q_SCRIPTABLE Q_SLOT void ContextMenu(int x, int y);
    Q_SCRIPTABLE Q_SLOT void SecondaryActivate(int x, int y);
    /// Only the wheel's own direction counts, not the sideways one.
    Q_SCRIPTABLE Q_SLOT void Scroll(int delta, const QString& orientation);
    Q_SCRIPTABLE Q_SLOT void ProvideXdgActivationToken(const QString& token);
    Q_SCRIPTABLE Q_SLOT void XAyatanaSecondaryActivate(uint timestamp);

    Q_SCRIPTABLE Q_SIGNAL void NewTitle();
    Q_SCRIPTABLE Q_SIGNAL void NewIcon();
    Q_SCRIPTABLE Q_SIGNAL void NewAttentionIcon();
    Q_SCRIPTABLE Q_SIGNAL void NewOverlayIcon();
    Q_SCRIPTABLE Q_SIGNAL void NewToolTip();
    Q_SCRIPTABLE Q_SIGNAL void NewStatus(const QString& status);
    Q_SCRIPTABLE Q_SIGNAL void XAyatanaNewLabel(const QString& label, const QString& guide);
    // NOLINTEND(readability-identifier-naming)

private:
    QString m_menu;
    Handlers m_handlers;
    QString m_iconName;
    StatusImages m_iconPixmap;
    // Set until the pictures are drawn.
    Draw m_draw;
    QString m_title = kTitle;
    QString m_description = kTitle;
    StatusTooltip m_tooltip;
    QString m_label = kTitle;
    QString m_labelGuide = kTitle;
};

}  // namespace quillbar
