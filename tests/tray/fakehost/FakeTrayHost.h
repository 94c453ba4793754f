// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/MenuMessages.h"
#include "Quillbar/tray/StatusImage.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusError>
#include <QDBusMessage>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>

namespace quillbar {

/// A tray host that is its own StatusNotifierWatcher: it records what it is told, and asks what it
/// is told to ask. Each has a connection of its own, as another process has.
class FakeTrayHost final : public QObject,
                           protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")

public:
    explicit FakeTrayHost(const QString& address);
    FakeTrayHost(const FakeTrayHost&) = delete;
    FakeTrayHost& operator=(const FakeTrayHost&) = delete;
    FakeTrayHost(FakeTrayHost&&) = delete;
    FakeTrayHost& operator=(FakeTrayHost&&) = delete;
    ~FakeTrayHost() override;

    /// Takes the watcher's name, from another host if need be.
    void beWatcher();
    /// Gives the name up, as a host that dies does.
    void resign();

    /// Calls a method of the item or of its menu, whose name is that of the connection that
    /// registered last; runs the event loop until the answer comes.
    QDBusMessage callItem(const QString& method, const QVariantList& arguments = {});
    QDBusMessage callMenu(const QString& method, const QVariantList& arguments = {});
    /// A property of the item as a host reads it.
    QVariant property(const QString& name);
    QVariant menuProperty(const QString& name);
    StatusImages icon();
    StatusTooltip tooltip();

    /// Reads the menu as GNOME's host does, which asks for the properties of those entries alone
    /// that it has not seen there before: of the others it believes what the menu's signals say.
    void readMenu();
    /// The menu as this host shows it: the properties of each entry, by its id.
    QMap<int, QVariantMap> shownMenu;
    /// The id of the entry shown with this label; -1 without one.
    [[nodiscard]] int shownId(const QString& label) const;

    // NOLINTNEXTLINE(readability-identifier-naming): the protocol spells it so
    Q_SCRIPTABLE Q_SLOT void RegisterStatusNotifierItem(const QString& service);

    /// In the order in which they came.
    QStringList registered;
    /// The names of the signals of the item and of its menu.
    QStringList signalled;
    /// What each new label was.
    QStringList labels;
    /// The revision that each change of the menu's layout was announced with.
    QList<uint> revisions;
    /// For each signal that told of changed properties: the ids that they were of, and the names.
    QList<QMap<int, QStringList>> propertyChanges;
    /// Called once, by the next registration, before that is answered.
    std::function<void()> onRegistration;
    /// Answers registrations with an error.
    bool refuses = false;
    /// Which one.
    QDBusError::ErrorType refusal = QDBusError::AccessDenied;

private:
    Q_SLOT void newIcon() { signalled << QStringLiteral("NewIcon"); }
    Q_SLOT void newTooltip() { signalled << QStringLiteral("NewToolTip"); }
    Q_SLOT void newTitle() { signalled << QStringLiteral("NewTitle"); }
    Q_SLOT void newLabel(const QString& label, const QString& guide);
    Q_SLOT void layoutUpdated(uint revision, int parent);
    Q_SLOT void itemsPropertiesUpdated(const QDBusMessage& signal);

    QDBusMessage call(const QString& path,
                      const QString& interface,
                      const QString& method,
                      const QVariantList& arguments);

    QString m_name;
    QDBusConnection m_bus;
    QString m_item;
};

}  // namespace quillbar
