// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowAccessibility.h"

#include "Quillbar/list/ListRow.h"
#include "Quillbar/list/RowList.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QAccessibleWidget>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace quillbar {

namespace {

/// A row of a list, which takes the focus from the list's keys even where it takes none by a click.
class RowInterface final : public QAccessibleWidget {
public:
    explicit RowInterface(ListRow* row)
        : QAccessibleWidget(row, QAccessible::ListItem)
        , m_row(row) {}

    [[nodiscard]] QString text(QAccessible::Text type) const override {
        if (type == QAccessible::Name && !m_row->spokenText().isEmpty()) {
            return m_row->spokenText();
        }
        return QAccessibleWidget::text(type);
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focusable = true;
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (!names.contains(setFocusAction())) {
            names << setFocusAction();
        }
        return names;
    }

private:
    // Qt drops the interface when the row goes.
    ListRow* m_row;
};

// The caller owns what is made; null leaves the object to Qt.
QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
    if (auto* const row = dynamic_cast<ListRow*>(object)) {
        return new RowInterface(row);
    }
    if (auto* const list = dynamic_cast<RowList*>(object)) {
        return new QAccessibleWidget(list, QAccessible::List);
    }
    return nullptr;
}

}  // namespace

void RowAccessibility::install() {
    // Qt drops a factory that it has already.
    QAccessible::installFactory(make);
}

void RowAccessibility::setName(QWidget& widget, const QString& name) {
    if (widget.accessibleName() != name) {
        widget.setAccessibleName(name);
    }
}

void RowAccessibility::setDescription(QWidget& widget, const QString& description) {
    if (widget.accessibleDescription() != description) {
        widget.setAccessibleDescription(description);
    }
}

}  // namespace quillbar
