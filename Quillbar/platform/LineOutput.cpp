// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/LineOutput.h"

#include "QuillbarCore/runtime/UnblockedWrite.h"

#include <QCoreApplication>
#include <QObject>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quillbar {

LineOutput::LineOutput(int descriptor, std::function<void()> onClosed)
    : m_descriptor(descriptor)
    , m_onClosed(std::move(onClosed)) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) {
        return;
    }
    const bool hasReader = S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode);
    if (hasReader) {
        // The exceptional condition of a pipe's writing end is that its reader has gone.
        m_closed = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Exception);
        QObject::connect(
            m_closed.get(), &QSocketNotifier::activated, m_closed.get(), [this] { fail(); });
    }
    if (hasReader || ::isatty(descriptor) == 1) {
        m_writable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
        m_writable->setEnabled(false);
        QObject::connect(m_writable.get(), &QSocketNotifier::activated, m_writable.get(), [this] {
            flushLater();
        });
    }
}

LineOutput::~LineOutput() = default;

bool LineOutput::print(std::string_view line) {
    std::string bytes(line);
    bytes += '\n';
    if (!m_begun.empty()) {
        m_next = std::move(bytes);
        return !m_isBroken;
    }
    m_begun = std::move(bytes);
    return flush();
}

void LineOutput::whenWritten(std::function<void()> done) {
    if (m_begun.empty()) {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), std::move(done), Qt::QueuedConnection);
        return;
    }
    m_done = std::move(done);
}

bool LineOutput::flush() {
    while (!m_begun.empty() && !m_isBroken) {
        const ssize_t written = writeUnblocked(m_descriptor, m_begun);
        if (written >= 0) {
            m_begun.erase(0, static_cast<std::size_t>(written));
            if (m_begun.empty() && m_next) {
                m_begun = *std::exchange(m_next, std::nullopt);
            }
        } else if (errno == EAGAIN && m_writable) {
            m_writable->setEnabled(true);
            return true;
        } else if (errno != EINTR) {
            m_isBroken = true;
        }
    }
    m_begun.clear();
    return !m_isBroken;
}

void LineOutput::flushLater() {
    m_writable->setEnabled(false);
    if (!flush()) {
        fail();
    } else if (m_begun.empty() && m_done) {
        std::exchange(m_done, nullptr)();
    }
}

void LineOutput::fail() {
    m_isBroken = true;
    for (const auto& notifier : {m_closed.get(), m_writable.get()}) {
        if (notifier != nullptr) {
            notifier->setEnabled(false);
        }
    }
    if (m_onClosed) {
        std::exchange(m_onClosed, nullptr)();
    }
}

}  // namespace quillbar
