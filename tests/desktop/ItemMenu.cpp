// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/ItemMenu.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QStringList>
#include <QVariant>

#include <gtest/gtest.h>

namespace quillbar {

namespace {

const QString kPath = QStringLiteral("/MenuBar");
const QString kInterface = QStringLiteral("com.canonical.dbusmenu");

bool hasText(const QVariantMap& entry, const QString& text) {
    return entry.value(QStringLiteral("label")).toString() == text;
}

}  // namespace

bool ItemMenu::isOn(const QString& text) const {
    for (const QVariantMap& entry : entries()) {
        if (hasText(entry, text)) {
            return entry.value(QStringLiteral("toggle-state")).toInt() == 1;
        }
    }
    return false;
}

void ItemMenu::choose(const QString& text) const {
    const QMap<int, QVariantMap> all = entries();
    for (auto entry = all.begin(); entry != all.end(); ++entry) {
        if (hasText(*entry, text)) {
            static_cast<void>(m_desktop.call(service(),
                                             kPath,
                                             kInterface,
                                             QStringLiteral("Event"),
                                             {entry.key(),
                                              QStringLiteral("clicked"),
                                              QVariant::fromValue(QDBusVariant(QString())),
                                              0U}));
            return;
        }
    }
    ADD_FAILURE() << "the item's menu has no entry " << text.toStdString();
}

QString ItemMenu::service() const {
    return m_desktop.items().value(0);
}

QMap<int, QVariantMap> ItemMenu::entries() const {
    const QVariant answer = m_desktop.call(service(),
                                           kPath,
                                           kInterface,
                                           QStringLiteral("GetGroupProperties"),
                                           {QVariant::fromValue(QList<int>()), QStringList()});
    QMap<int, QVariantMap> all;
    if (!answer.isValid()) {
        return all;
    }
    const auto entries = answer.value<QDBusArgument>();
    entries.beginArray();
    while (!entries.atEnd()) {
        int number = 0;
        QVariantMap properties;
        entries.beginStructure();
        entries >> number >> properties;
        entries.endStructure();
        all.insert(number, properties);
    }
    entries.endArray();
    return all;
}

}  // namespace quillbar
