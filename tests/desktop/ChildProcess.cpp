// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/ChildProcess.h"

#include "tests/qtsupport/SpinUntil.h"

#include <chrono>
#include <csignal>
#include <sys/prctl.h>

namespace quillbar {

namespace {

constexpr std::chrono::seconds kPatience{60};

}  // namespace

ChildProcess::ChildProcess(const QString& program,
                           const QStringList& arguments,
                           const QProcessEnvironment& environment,
                           Complaints complaints) {
    m_process.setProcessEnvironment(environment);
    m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    if (complaints == Complaints::shown) {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    } else {
        m_process.setStandardErrorFile(QProcess::nullDevice());
    }
    m_process.start(program, arguments);
}

ChildProcess::~ChildProcess() {
    kill();
}

QString ChildProcess::readLine() {
    if (!spinUntil([this] { return m_process.canReadLine() || !isRunning(); }, kPatience)) {
        return {};
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

int ChildProcess::waitForEnd() {
    const bool isOver = spinUntil([this] { return !isRunning(); }, kPatience);
    return isOver && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

void ChildProcess::halt() {
    signal(SIGSTOP);
}

void ChildProcess::resume() {
    signal(SIGCONT);
}

void ChildProcess::terminate() {
    signal(SIGTERM);
}

void ChildProcess::signal(int number) {
    // The group of this process, otherwise.
    if (id() > 0) {
        ::kill(static_cast<pid_t>(id()), number);
    }
}

void ChildProcess::kill() {
    m_process.kill();
    m_process.waitForFinished();
}

}  // namespace quillbar
