// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/Moments.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <fmt/core.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>
#include <unistd.h>
#include <utility>

namespace quillbar::benchmarks {

void sayMoment(std::string_view what, std::string_view rest) {
    const auto moment = std::chrono::steady_clock::now().time_since_epoch();
    const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(moment).count();
    fmt::print("{} {}{}{}\n", what, nanoseconds, rest.empty() ? "" : " ", rest);
    std::fflush(stdout);
}

std::chrono::nanoseconds processorTime() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void onLines(std::function<void(std::string_view line)> handler) {
    auto* const input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, qApp);
    const auto read = [handler = std::move(handler), waiting = std::string()]() mutable {
        std::array<char, 4096> bytes{};
        const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0) {
            QCoreApplication::quit();
            return;
        }
        waiting.append(bytes.data(), static_cast<std::size_t>(count));
        for (auto end = waiting.find('\n'); end != std::string::npos; end = waiting.find('\n')) {
            const std::string line = waiting.substr(0, end);
            waiting.erase(0, end + 1);
            handler(line);
        }
    };
    QObject::connect(input, &QSocketNotifier::activated, input, read);
}

}  // namespace quillbar::benchmarks
