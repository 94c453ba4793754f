// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/TerminationSignals.h"

#include <QObject>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillbar {

namespace {

// What the signal handler touches; nothing else may be touched there. Any thread may run it.
std::atomic<int> writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);
std::atomic<std::int64_t> firstMilliseconds;
std::atomic<std::int64_t> doubledMilliseconds;
static_assert(std::atomic<std::int64_t>::is_always_lock_free);

std::int64_t monotonicMilliseconds() {
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1'000'000;
}

void handle(int signal) {
    const int savedError = errno;
    const std::int64_t time = monotonicMilliseconds();
    std::int64_t first = 0;
    if (firstMilliseconds.compare_exchange_strong(first, time)) {
        const char byte = 0;
        [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
    } else if (time - first >= doubledMilliseconds) {
        // It is delivered when this handler returns.
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
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

TerminationSignals::TerminationSignals(std::function<void()> onTerminate,
                                       std::chrono::milliseconds doubled)
    : m_onTerminate(std::move(onTerminate)) {
    if (::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] {
        m_notifier->setEnabled(false);
        // What the handler does in another thread ends before the pipe is closed.
        char byte = 0;
        [[maybe_unused]] const auto count = ::read(m_pipe[0], &byte, 1);
        m_onTerminate();
    });
    writeEnd = m_pipe[1];
    firstMilliseconds = 0;
    doubledMilliseconds = doubled.count();
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
