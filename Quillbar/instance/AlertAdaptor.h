// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QVariantMap>

namespace quillbar {

/// The price alerts' interface on the object that it is a child of. Main thread.
class AlertAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "io.github.quillbar.Quillbar.Alerts")

public:
    /// `object` owns it.
    explicit AlertAdaptor(QObject* object)
        : QDBusAbstractAdaptor(object) {}

    /// An alert has fired. The argument is an `alertMessage`.
    Q_SIGNAL void AlertFired(const QVariantMap& alert);  // NOLINT(*-identifier-naming)
};

}  // namespace quillbar
