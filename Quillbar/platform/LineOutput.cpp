// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/LineOutput.h"

#include <QObject>

#include <cerrno>
#include <poll.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quillbar {

LineOutput::LineOutput(int descriptor, std::function<void()> onClosed)
    : m_descriptor(descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0
        || !(S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode))) {
        return;
    }
    // The exceptional condition of a pipe's writing end is that its reader has gone.
    m_notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Exception);
    QObject::connect(m_notifier.get(),
                     &QSocketNotifier::activated,
                     m_notifier.get(),
                     [this, closed = std::move(onClosed)] {
                         m_notifier->setEnabled(false);
                         closed();
                     });
}

LineOutput::~LineOutput() = default;

bool LineOutput::print(std::string_view line) const {
    std::string bytes(line);
    bytes += '\n';
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const ssize_t written = ::write(m_descriptor, rest.data(), rest.size());
        if (written >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN) {
            pollfd waiting{.fd = m_descriptor, .events = POLLOUT, .revents = 0};
            ::poll(&waiting, 1, -1);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace quillbar
