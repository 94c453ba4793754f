// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/DBusMenu.h"

#include <QDBusError>
#include <QHash>

#include <utility>

namespace quillbar {

namespace {

const MenuEntry* find(const std::vector<MenuEntry>& entries, int id) {
    for (const MenuEntry& entry : entries) {
        if (entry.id == id) {
            return &entry;
        }
        if (const MenuEntry* const below = find(entry.children, id)) {
            return below;
        }
    }
    return nullptr;
}

void collectIds(const std::vector<MenuEntry>& entries, QList<int>& ids) {
    for (const MenuEntry& entry : entries) {
        ids.append(entry.id);
        collectIds(entry.children, ids);
    }
}

/// The values without repetitions, in the order of their first places. A call may name the same
/// entry a million times, and the answer must not be much longer than the call.
template <class Value>
QList<Value> withoutRepeats(const QList<Value>& values) {
    QSet<Value> seen;
    QList<Value> result;
    for (const Value& value : values) {
        if (!seen.contains(value)) {
            seen.insert(value);
            result.append(value);
        }
    }
    return result;
}

const QString kChildrenDisplay = QStringLiteral("children-display");
const QString kSubmenu = QStringLiteral("submenu");

QVariantMap propertiesOf(const MenuEntry& entry) {
    QVariantMap properties{{QStringLiteral("visible"), true}};
    if (entry.kind == MenuEntry::Kind::separator) {
        properties.insert(QStringLiteral("type"), QStringLiteral("separator"));
        return properties;
    }
    // A single underscore marks a mnemonic.
    QString label = entry.label;
    properties.insert(QStringLiteral("label"), label.replace(u'_', QStringLiteral("__")));
    properties.insert(QStringLiteral("enabled"), entry.isUsable());
    if (entry.kind == MenuEntry::Kind::submenu) {
        properties.insert(kChildrenDisplay, kSubmenu);
    }
    if (entry.mark != MenuEntry::Mark::none) {
        properties.insert(QStringLiteral("toggle-type"),
                          entry.mark == MenuEntry::Mark::check ? QStringLiteral("checkmark")
                                                               : QStringLiteral("radio"));
        properties.insert(QStringLiteral("toggle-state"), entry.isOn ? 1 : 0);
    }
    return properties;
}

struct PropertyChanges {
    QList<MenuProperties> updated;
    QList<MenuPropertyNames> removed;
};

void collectChanges(const MenuEntry& before, const MenuEntry& after, PropertyChanges& changes) {
    const QVariantMap old = propertiesOf(before);
    QVariantMap updated = propertiesOf(after);
    QStringList removed = old.keys();
    removed.removeIf([&updated](const QString& name) { return updated.contains(name); });
    updated.removeIf(
        [&old](const auto& property) { return old.value(property.key()) == property.value(); });
    if (!updated.isEmpty()) {
        changes.updated.append(MenuProperties{after.id, updated});
    }
    if (!removed.isEmpty()) {
        changes.removed.append(MenuPropertyNames{after.id, removed});
    }
}

/// The differences in those entries that were in the menu before.
void collectChanges(const std::vector<MenuEntry>& before,
                    const std::vector<MenuEntry>& entries,
                    PropertyChanges& changes) {
    for (const MenuEntry& entry : entries) {
        if (const MenuEntry* const old = find(before, entry.id)) {
            collectChanges(*old, entry, changes);
        }
        collectChanges(before, entry.children, changes);
    }
}

}  // namespace

DBusMenu::DBusMenu(Handlers handlers)
    : m_handlers(std::move(handlers)) {
    registerMenuMessages();
}

void DBusMenu::setEntries(const std::vector<MenuEntry>& entries) {
    if (entries == m_entries) {
        return;
    }
    PropertyChanges changes;
    collectChanges(m_entries, entries, changes);
    m_entries = entries;
    ++m_revision;
    if (!changes.updated.isEmpty() || !changes.removed.isEmpty()) {
        Q_EMIT ItemsPropertiesUpdated(changes.updated, changes.removed);
    }
    Q_EMIT LayoutUpdated(m_revision, kRoot);
}

uint DBusMenu::version() const {
    constexpr uint kProtocolVersion = 3;
    return kProtocolVersion;
}

bool DBusMenu::isKnown(int id) const {
    return id == kRoot || find(m_entries, id) != nullptr;
}

QVariantMap DBusMenu::propertiesOf(int id, const QSet<QString>& names) const {
    const MenuEntry* const entry = find(m_entries, id);
    QVariantMap properties = entry != nullptr ? quillbar::propertiesOf(*entry)
                                              : QVariantMap{{kChildrenDisplay, kSubmenu}};
    if (!names.isEmpty()) {
        properties.removeIf(
            [&names](const auto& property) { return !names.contains(property.key()); });
    }
    return properties;
}

MenuLayout DBusMenu::layoutOf(int id, int depth, const QSet<QString>& names) const {
    MenuLayout layout{id, propertiesOf(id, names)};
    if (depth == 0) {
        return layout;
    }
    const MenuEntry* const entry = find(m_entries, id);
    // A negative depth has no limit.
    const int rest = depth < 0 ? depth : depth - 1;
    for (const MenuEntry& child : entry != nullptr ? entry->children : m_entries) {
        layout.children.append(QDBusVariant(QVariant::fromValue(layoutOf(child.id, rest, names))));
    }
    return layout;
}

bool DBusMenu::changesWhenShown() {
    const uint before = m_revision;
    m_handlers.shown();
    return m_revision != before;
}

void DBusMenu::refuse(int id) {
    if (calledFromDBus()) {
        sendErrorReply(QDBusError::InvalidArgs,
                       QStringLiteral("no entry of the menu has the id %1").arg(id));
    }
}

void DBusMenu::handle(int id, const QString& type) {
    if (id == kRoot) {
        const bool isOpen = type == QStringLiteral("opened");
        if (isOpen) {
            m_handlers.shown();
        }
        if (m_handlers.openChanged && (isOpen || type == QStringLiteral("closed"))) {
            m_handlers.openChanged(isOpen);
        }
        return;
    }
    const MenuEntry* const entry = find(m_entries, id);
    if (type == QStringLiteral("clicked") && entry != nullptr && entry->isUsable()
        && entry->kind == MenuEntry::Kind::action) {
        m_handlers.clicked(id);
    }
}

uint DBusMenu::GetLayout(int parentId, int depth, const QStringList& names, MenuLayout& layout) {
    if (!isKnown(parentId)) {
        refuse(parentId);
        return m_revision;
    }
    layout = layoutOf(parentId, depth, QSet<QString>(names.begin(), names.end()));
    return m_revision;
}

QList<MenuProperties> DBusMenu::GetGroupProperties(const QList<int>& ids,
                                                   const QStringList& names) {
    QList<int> wanted = withoutRepeats(ids);
    if (wanted.isEmpty()) {
        collectIds(m_entries, wanted);
    }
    const QSet<QString> wantedNames(names.begin(), names.end());
    QList<MenuProperties> result;
    for (const int id : wanted) {
        if (isKnown(id)) {
            result.append(MenuProperties{id, propertiesOf(id, wantedNames)});
        }
    }
    return result;
}

QDBusVariant DBusMenu::GetProperty(int id, const QString& name) {
    const QVariantMap properties = isKnown(id) ? propertiesOf(id, {name}) : QVariantMap{};
    if (properties.isEmpty()) {
        refuse(id);
        return QDBusVariant(QString());
    }
    return QDBusVariant(properties.value(name));
}

void DBusMenu::Event(int id,
                     const QString& type,
                     const QDBusVariant& /*data*/,
                     uint /*timestamp*/) {
    if (!isKnown(id)) {
        refuse(id);
        return;
    }
    handle(id, type);
}

QList<int> DBusMenu::EventGroup(const QList<MenuEvent>& events) {
    QList<std::pair<int, QString>> what;
    for (const MenuEvent& event : events) {
        what.append({event.id, event.type});
    }
    QList<int> unknown;
    for (const auto& [id, type] : withoutRepeats(what)) {
        if (isKnown(id)) {
            handle(id, type);
        } else {
            unknown.append(id);
        }
    }
    return withoutRepeats(unknown);
}

bool DBusMenu::AboutToShow(int id) {
    if (!isKnown(id)) {
        refuse(id);
    }
    return id == kRoot && changesWhenShown();
}

QList<int> DBusMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) {
    QList<int> changed;
    for (const int id : withoutRepeats(ids)) {
        if (!isKnown(id)) {
            idErrors.append(id);
        } else if (id == kRoot && changesWhenShown()) {
            changed.append(id);
        }
    }
    return changed;
}

}  // namespace quillbar
