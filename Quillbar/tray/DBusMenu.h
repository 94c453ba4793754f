// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/MenuMessages.h"
#include "Quillbar/widgets/MenuEntry.h"

#include <QDBusContext>
#include <QDBusVariant>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <vector>

namespace quillbar {

/// A menu that tray hosts read and show, com.canonical.dbusmenu. Its owner exports it at `kPath`,
/// with all properties and the scriptable slots and signals.
///
/// The names of the properties, methods and signals are the protocol's. A call about an entry that
/// is not in the menu is answered with an error, except in calls about several entries. In those,
/// an entry that is named several times counts once.
class DBusMenu final : public QObject,
                       protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    /// Called for what the user does. `shown` and `clicked` are set.
    struct Handlers final {
        /// The menu is about to be shown, or was shown just now. May be called several times. It
        /// may set the entries.
        std::function<void()> shown;
        /// An enabled action was clicked.
        std::function<void(int id)> clicked;
        /// The host has opened or closed its menu. Not every host reports it.
        std::function<void(bool isOpen)> openChanged = nullptr;
    };

    static inline const QString kPath = QStringLiteral("/MenuBar");
    /// The menu itself.
    static constexpr int kRoot = 0;

    explicit DBusMenu(Handlers handlers);

    /// If the menu has changed, signals to the hosts the changed properties of the entries that
    /// stay, and the layout. Both are needed: some hosts ignore the first signal, and some do not
    /// read the properties of a known entry again after the second.
    void setEntries(const std::vector<MenuEntry>& entries);

    [[nodiscard]] uint version() const;
    [[nodiscard]] QString textDirection() const { return QStringLiteral("ltr"); }
    [[nodiscard]] QString status() const { return QStringLiteral("normal"); }
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

    // NOLINTBEGIN(readability-identifier-naming): the protocol spells them so
    /// `depth` is how far below the parent the layout goes; negative for all of it. Returns the
    /// menu's revision.
    Q_SCRIPTABLE Q_SLOT uint GetLayout(int parentId,
                                       int depth,
                                       const QStringList& names,
                                       quillbar::MenuLayout& layout);
    /// Returns all entries when none is named.
    Q_SCRIPTABLE Q_SLOT QList<quillbar::MenuProperties> GetGroupProperties(
        const QList<int>& ids,
        const QStringList& names);
    Q_SCRIPTABLE Q_SLOT QDBusVariant GetProperty(int id, const QString& name);
    Q_SCRIPTABLE Q_SLOT void Event(int id,
                                   const QString& type,
                                   const QDBusVariant& data,
                                   uint timestamp);
    /// Returns the ids that are not in the menu.
    Q_SCRIPTABLE Q_SLOT QList<int> EventGroup(const QList<quillbar::MenuEvent>& events);
    /// Returns whether the layout must be read again first, because `shown` has set other entries.
    Q_SCRIPTABLE Q_SLOT bool AboutToShow(int id);
    /// Returns the ids whose layout must be read again, and sets those that are not in the menu.
    Q_SCRIPTABLE Q_SLOT QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

    Q_SCRIPTABLE Q_SIGNAL void LayoutUpdated(uint revision, int parent);
    /// For each entry only the properties that have another value, and those that it has no longer.
    Q_SCRIPTABLE Q_SIGNAL void ItemsPropertiesUpdated(
        const QList<quillbar::MenuProperties>& updated,
        const QList<quillbar::MenuPropertyNames>& removed);
    // NOLINTEND(readability-identifier-naming)

private:
    [[nodiscard]] bool isKnown(int id) const;
    /// Whether showing the menu changes it.
    bool changesWhenShown();
    // Returns all properties when none is named.
    [[nodiscard]] QVariantMap propertiesOf(int id, const QSet<QString>& names) const;
    [[nodiscard]] MenuLayout layoutOf(int id, int depth, const QSet<QString>& names) const;
    void refuse(int id);
    void handle(int id, const QString& type);

    Handlers m_handlers;
    std::vector<MenuEntry> m_entries;
    uint m_revision = 1;
};

}  // namespace quillbar
