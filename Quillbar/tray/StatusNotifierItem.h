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
/// Exported by whoever makes it, at `kPath`, with all properties and the scriptable slots and
/// signals. The setters of texts tell the hosts when, and only when, what they set differs.
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
    Q_PROPERTY(QString IconAccessibleDesc READ label)
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
    /// What the hosts ask for. All are set.
    struct Handlers final {
        /// A click at this position, which not every host gives in the screen's coordinates.
        std::function<void(QPoint reported)> activate;
        /// A click with the middle button; some hosts do not say where.
        std::function<void(std::optional<QPoint> reported)> secondaryActivate;
        /// A host without menus of its own wants the item to show one.
        std::function<void(QPoint reported)> contextMenu;
        /// The compositor's permission to take the focus, before an activation.
        std::function<void(const QString& token)> activationToken;
    };

    /// Whether a change of the label is worth a signal.
    enum class Announcement { sent, omitted };

    static inline const QString kPath = QStringLiteral("/StatusNotifierItem");

    /// `menu` is the path of the item's menu on the same connection.
    StatusNotifierItem(QString menu, Handlers handlers);

    /// Makes the pictures of an icon.
    using Draw = std::function<StatusImages()>;

    /// An icon of the desktop's theme. Tells the hosts unless it is the one already.
    void setThemeIcon(const QString& name);
    /// Pictures, and tells the hosts. They are drawn when the first host reads them, for hosts that
    /// show the label alone never do.
    void setPictures(Draw draw);
    /// Both texts are markup.
    void setTooltip(const QString& title, const QString& text);
    /// Neither text may be empty: MATE's panel then shows an item of no width. The guide is as long as
    /// the label gets.
    void setLabel(const QString& label, const QString& guide, Announcement announcement);

    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] QString id() const { return QStringLiteral("io.github.quillbar.Quillbar"); }
    /// Never changes: Plasma sorts the items by it.
    [[nodiscard]] QString title() const { return QStringLiteral("Quillbar"); }
    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] QString iconName() const { return m_iconName; }
    [[nodiscard]] StatusImages iconPixmap();
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
    /// Units and sign differ from host to host, so it is ignored.
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
    // Until the pictures are drawn.
    Draw m_draw;
    StatusTooltip m_tooltip;
    QString m_label = QStringLiteral("Quillbar");
    QString m_labelGuide = QStringLiteral("Quillbar");
};

}  // namespace quillbar
