// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QString>

namespace quillbar {

/// A message bus of the tests' own, which ends with this object, or with the process at the latest.
/// No program of the machine is started by its name on it. Needs a QCoreApplication.
class PrivateBus final {
public:
    /// Listens where it likes, or at this address. The address is empty when no bus could be
    /// started.
    explicit PrivateBus(const QString& listenAt = {});
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    PrivateBus(PrivateBus&&) = delete;
    PrivateBus& operator=(PrivateBus&&) = delete;
    ~PrivateBus();

    /// Where programs connect to it.
    [[nodiscard]] const QString& address() const noexcept { return m_address; }

    /// From now on it answers nobody, although it is there.
    void freeze();
    /// It goes on, with all that it was sent meanwhile.
    void thaw();

private:
    QProcess m_daemon;
    QString m_address;
};

}  // namespace quillbar
