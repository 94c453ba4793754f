// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/ActivationTokens.h"
#include "Quillbar/instance/ApplicationAction.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantList>

#include <functional>

namespace quillbar {

/// org.freedesktop.Application on the object that it is a child of. Main thread.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    using OnAction = std::function<void(ApplicationAction action, const ActivationTokens& tokens)>;

    /// `object` owns it.
    ApplicationAdaptor(QObject* object, OnAction onAction);

    /// The application was started again, or its desktop file was: toggles the panel.
    Q_SLOT void Activate(const QVariantMap& platformData);  // NOLINT(*-identifier-naming)
    /// Opens no files: shows the panel.
    Q_SLOT void Open(const QStringList& uris,  // NOLINT(*-identifier-naming)
                     const QVariantMap& platformData);
    /// The name of an unknown action is logged, and nothing else happens.
    Q_SLOT void ActivateAction(const QString& name,  // NOLINT(*-identifier-naming)
                               const QVariantList& parameters,
                               const QVariantMap& platformData);

private:
    OnAction m_onAction;
};

}  // namespace quillbar
