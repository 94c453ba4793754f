// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/ActivationTokens.h"
#include "Quillbar/instance/AlertAdaptor.h"
#include "Quillbar/instance/ApplicationAction.h"
#include "Quillbar/instance/ApplicationAdaptor.h"
#include "Quillbar/instance/LabelAdaptor.h"

#include <QDBusConnection>
#include <QObject>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace quillbar {

/// The running application on the session bus: org.freedesktop.Application and the interfaces of
/// the label and of the price alerts at its object path, and its name, which only one instance has.
///
/// Main thread; needs a QCoreApplication. Destroying it takes the object off the bus and gives up
/// the name; no callback is called after that.
class ApplicationService final {
public:
    /// How the claim of the name ended.
    enum class Claim {
        /// This is the one instance.
        claimed,
        /// Another one runs.
        alreadyRunning,
        /// There is no bus, or it did not answer: other instances cannot be known.
        noBus,
    };

    /// How long the bus may take to answer.
    static constexpr std::chrono::milliseconds kPatience{5000};

    /// Exports the object, so that a call directly after the claim is answered. `onAction` is
    /// called for each action that another program asks for. Actions that arrive before the outcome
    /// of the claim are passed on directly after it: a bus that starts the program to activate it
    /// sends both at once.
    ApplicationService(QDBusConnection bus, ApplicationAdaptor::OnAction onAction);
    ApplicationService(const ApplicationService&) = delete;
    ApplicationService& operator=(const ApplicationService&) = delete;
    ApplicationService(ApplicationService&&) = delete;
    ApplicationService& operator=(ApplicationService&&) = delete;
    ~ApplicationService();

    /// Asks for the name without waiting. `onOutcome` is called once, from the event loop, after
    /// `patience` at the latest; it does not destroy this object. Once.
    void claim(std::function<void(Claim)> onOutcome,
               std::chrono::milliseconds patience = kPatience);

    /// The adaptor that a `LabelService` uses. Lives as long as this object.
    [[nodiscard]] LabelAdaptor& label() noexcept { return *m_label; }
    /// The adaptor that an `AlertService` uses. Lives as long as this object.
    [[nodiscard]] AlertAdaptor& alerts() noexcept { return *m_alerts; }

private:
    void tell(const std::function<void(Claim)>& onOutcome, Claim claim);

    QDBusConnection m_bus;
    ApplicationAdaptor::OnAction m_onAction;
    // What was asked before the outcome; absent from then on.
    std::optional<std::vector<std::pair<ApplicationAction, ActivationTokens>>> m_early;
    // The adaptors are its children, and the callbacks of the claim end with it.
    QObject m_object;
    LabelAdaptor* m_label;
    AlertAdaptor* m_alerts;
    bool m_hasName = false;
};

}  // namespace quillbar
