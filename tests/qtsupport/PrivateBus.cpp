// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/PrivateBus.h"

#include <QStringList>

#include <csignal>
#include <sys/prctl.h>

namespace quillbar {

PrivateBus::PrivateBus(const QString& listenAt) {
    QStringList arguments{QStringLiteral("--config-file=" QUILLBAR_TEST_BUS_FILE),
                          QStringLiteral("--nofork"),
                          QStringLiteral("--print-address")};
    if (!listenAt.isEmpty()) {
        arguments << QStringLiteral("--address=") + listenAt;
    }
    m_daemon.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_daemon.start(QStringLiteral("dbus-daemon"), arguments);
    if (m_daemon.waitForReadyRead()) {
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
}

PrivateBus::~PrivateBus() {
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void PrivateBus::freeze() {
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP);
}

void PrivateBus::thaw() {
    ::kill(static_cast<pid_t>(m_daemon.processId()), SIGCONT);
}

}  // namespace quillbar
