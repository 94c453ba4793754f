// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/TerminationSignals.h"

#include <QObject>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillbar {

namespace {

// The one thing a signal handler may touch.
volatile std::sig_atomic_t writeEnd = -1;

void handle(int /*signal*/) {
    const int savedError = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
    errno = savedError;
}

void install(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    ::sigaction(signal, &action, nullptr);
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> onTerminate)
    : m_onTerminate(std::move(onTerminate)) {
    if (::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        m_notifier->setEnabled(false);
        m_onTerminate();
    });
    writeEnd = m_pipe[1];
    install(SIGINT, handle);
    install(SIGTERM, handle);
    install(SIGPIPE, SIG_IGN);
}

TerminationSignals::~TerminationSignals() {
    install(SIGINT, SIG_DFL);
    install(SIGTERM, SIG_DFL);
    install(SIGPIPE, SIG_DFL);
    writeEnd = -1;
    m_notifier.reset();
    ::close(m_pipe[0]);
    ::close(m_pipe[1]);
}

}  // namespace quillbar
