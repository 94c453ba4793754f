// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/MenuEntry.h"
#include "Quillbar/tray/MenuMessages.h"

#include <QDBusContext>
#include <QDBusVariant>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <vector>

namespace quillbar {

/// A menu that tray hosts read and show, com.canonical.dbusmenu. Exported by whoever makes it, at
/// `kPath`, with all properties and the scriptable slots and signals.
///
/// The names of the properties, methods and signals are the protocol's. A question about an entry
/// that is not in the menu is answered with an error, but where many are asked about at once.
class DBusMenu final : public QObject,
                       protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    /// What the user does. Both are set.
    struct Handlers final {
        /// The menu is about to be shown, or just was. Perhaps several times. May set the entries.
        std::function<void()> shown;
        /// An enabled action was clicked.
        std::function<void(int id)> clicked;
    };

    static inline const QString kPath = QStringLiteral("/MenuBar");
    /// The menu itself.
    static constexpr int kRoot = 0;

    explicit DBusMenu(Handlers handlers);

    /// Tells the hosts, unless the menu stays as it is: of the properties that have changed, of the
    /// entries that stay, and of the layout, because not every host listens to the former, nor does
    /// every host ask again for the properties of an entry that it knows.
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
    /// Of every entry when none is named.
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
    /// Of each entry only what has another value, and what it has no longer.
    Q_SCRIPTABLE Q_SIGNAL void ItemsPropertiesUpdated(
        const QList<quillbar::MenuProperties>& updated,
        const QList<quillbar::MenuPropertyNames>& removed);
    // NOLINTEND(readability-identifier-naming)

private:
    [[nodiscard]] bool isKnown(int id) const;
    /// Whether showing the menu changes it.
    bool changesWhenShown();
    [[nodiscard]] QVariantMap propertiesOf(int id, const QStringList& names) const;
    [[nodiscard]] MenuLayout layoutOf(int id, int depth, const QStringList& names) const;
    void refuse(int id);
    void handle(int id, const QString& type);

    Handlers m_handlers;
    std::vector<MenuEntry> m_entries;
    uint m_revision = 1;
};

}  // namespace quillbar
