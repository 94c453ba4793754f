// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace quillbar {

/// An entry with the entries below it, in the form for D-Bus, (ia{sv}av).
struct MenuLayout final {
    int id = 0;
    QVariantMap properties = {};
    /// Each holds a MenuLayout.
    QList<QDBusVariant> children = {};
};

/// The properties of one entry, (ia{sv}).
struct MenuProperties final {
    int id = 0;
    QVariantMap properties = {};
};

/// Names of properties of one entry, (ias).
struct MenuPropertyNames final {
    int id = 0;
    QStringList names = {};
};

/// What happened to one entry, (isvu).
struct MenuEvent final {
    int id = 0;
    QString type = {};
    QDBusVariant data = {};
    uint timestamp = 0;
};

/// Makes these types known to D-Bus. It may be called several times.
void registerMenuMessages();

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayout& layout);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuProperties& properties);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuProperties& properties);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuPropertyNames& names);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuPropertyNames& names);
QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event);

}  // namespace quillbar

Q_DECLARE_METATYPE(quillbar::MenuLayout)
Q_DECLARE_METATYPE(quillbar::MenuProperties)
Q_DECLARE_METATYPE(quillbar::MenuPropertyNames)
Q_DECLARE_METATYPE(quillbar::MenuEvent)
