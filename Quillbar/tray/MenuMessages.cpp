// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/MenuMessages.h"

#include <QDBusMetaType>

namespace quillbar {

void registerMenuMessages() {
    qDBusRegisterMetaType<MenuLayout>();
    qDBusRegisterMetaType<MenuProperties>();
    qDBusRegisterMetaType<QList<MenuProperties>>();
    qDBusRegisterMetaType<MenuPropertyNames>();
    qDBusRegisterMetaType<QList<MenuPropertyNames>>();
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<QList<MenuEvent>>();
    qDBusRegisterMetaType<QList<QDBusVariant>>();
    qDBusRegisterMetaType<QList<int>>();
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayout& layout) {
    argument.beginStructure();
    argument << layout.id << layout.properties << layout.children;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayout& layout) {
    argument.beginStructure();
    argument >> layout.id >> layout.properties >> layout.children;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuProperties& properties) {
    argument.beginStructure();
    argument << properties.id << properties.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuProperties& properties) {
    argument.beginStructure();
    argument >> properties.id >> properties.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuPropertyNames& names) {
    argument.beginStructure();
    argument << names.id << names.names;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuPropertyNames& names) {
    argument.beginStructure();
    argument >> names.id >> names.names;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event) {
    argument.beginStructure();
    argument << event.id << event.type << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& event) {
    argument.beginStructure();
    argument >> event.id >> event.type >> event.data >> event.timestamp;
    argument.endStructure();
    return argument;
}

}  // namespace quillbar
