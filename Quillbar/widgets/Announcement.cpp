// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Announcement.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QAccessibleWidget>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QWidget>

namespace quillbar::Announcement {

namespace {

constexpr const char* kMark = "isAnnouncement";

// Qt's announcement event reaches Linux readers only from 6.8 on; readers do speak a widget of this
// role when it is shown.
QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr || !widget->property(kMark).toBool()) {
        return nullptr;
    }
    // The caller owns it.
    return new QAccessibleWidget(widget, QAccessible::Notification);
}

}  // namespace

void mark(QWidget& widget) {
    // Qt drops a factory that it has already.
    QAccessible::installFactory(make);
    widget.setProperty(kMark, true);
}

}  // namespace quillbar::Announcement
