// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/faults/ProcessTime.h"

#include "tests/qtsupport/SpinUntil.h"

#include <QAbstractEventDispatcher>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <memory>
#include <mutex>
#include <poll.h>
#include <sched.h>
#include <string>
#include <string_view>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>
#include <vector>

namespace quillbar {

namespace {

using Nanoseconds = std::chrono::nanoseconds;

constexpr std::int64_t kPerSecond = 1'000'000'000;
constexpr std::int64_t kMonotonicStart = 1'000'000 * kPerSecond;
constexpr std::int64_t kWallStart = 1'794'657'600 * kPerSecond;
constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

std::atomic<std::int64_t> monotonicTime{kMonotonicStart};
std::atomic<std::int64_t> wallTime{kWallStart};
std::atomic<std::int64_t> sleptTime{0};

timespec asTimespec(std::int64_t nanoseconds) {
    timespec result{};
    result.tv_sec = nanoseconds / kPerSecond;
    result.tv_nsec = nanoseconds % kPerSecond;
    return result;
}

int systemPoll(pollfd* files, nfds_t count, const timespec* limit, const sigset_t* mask) {
    constexpr std::size_t kMaskSize = 8;
    // The kernel changes the limit.
    timespec copy{};
    if (limit != nullptr) {
        copy = *limit;
    }
    return static_cast<int>(
        ::syscall(SYS_ppoll, files, count, limit == nullptr ? nullptr : &copy, mask, kMaskSize));
}

/// The threads that wait for files, and until when.
class Waits {
public:
    struct Wait {
        int wakeFile;
        std::int64_t deadline;
    };

    /// Whether the wait has been noted; not when its limit has already passed.
    bool begin(Wait& wait) {
        const std::lock_guard lock(m_lock);
        if (wait.deadline <= monotonicTime) {
            return false;
        }
        m_waits.push_back(&wait);
        return true;
    }
    void end(Wait& wait) {
        const std::lock_guard lock(m_lock);
        std::erase(m_waits, &wait);
    }
    void wakeWhoIsDue() {
        const std::lock_guard lock(m_lock);
        for (const Wait* const wait : m_waits) {
            if (wait->deadline <= monotonicTime) {
                const std::uint64_t one = 1;
                static_cast<void>(::write(wait->wakeFile, &one, sizeof one));
            }
        }
    }

private:
    std::mutex m_lock;
    std::vector<Wait*> m_waits;
};

Waits& waits() {
    // Never destroyed: threads may outlive the statics.
    static auto& only = *new Waits;
    return only;
}

/// A thread's file that ends its wait.
class WakeFile {
public:
    WakeFile()
        : m_file(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
    WakeFile(const WakeFile&) = delete;
    WakeFile& operator=(const WakeFile&) = delete;
    WakeFile(WakeFile&&) = delete;
    WakeFile& operator=(WakeFile&&) = delete;
    ~WakeFile() { ::close(m_file); }

    [[nodiscard]] int number() const { return m_file; }
    void drain() const {
        std::uint64_t count = 0;
        static_cast<void>(::read(m_file, &count, sizeof count));
    }

private:
    int m_file;
};

int waitFor(pollfd* files, nfds_t count, std::int64_t limit, const sigset_t* mask) {
    const timespec none{};
    const int ready = systemPoll(files, count, &none, mask);
    if (ready != 0 || limit == 0) {
        return ready;
    }
    thread_local const WakeFile wakeFile;
    Waits::Wait wait{wakeFile.number(), limit == kNever ? kNever : monotonicTime + limit};
    wakeFile.drain();
    if (!waits().begin(wait)) {
        return 0;
    }
    std::vector<pollfd> all(files, files + count);
    all.push_back({wakeFile.number(), POLLIN, 0});
    int result = systemPoll(all.data(), all.size(), nullptr, mask);
    const int error = errno;
    waits().end(wait);
    if (result > 0) {
        for (nfds_t each = 0; each < count; ++each) {
            files[each].revents = all[each].revents;
        }
        result -= all.back().revents == 0 ? 0 : 1;
    }
    errno = error;
    return result;
}

/// Whether a line of /proc/PID/stat tells of a thread that sleeps.
bool tellsOfSleep(std::string_view line) {
    const auto end = line.rfind(')');
    return end != std::string_view::npos && line.substr(end).starts_with(") S");
}

bool sleeps(const std::string& thread) {
    const int file = ::open(("/proc/self/task/" + thread + "/stat").c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        // It has ended.
        return true;
    }
    std::array<char, 512> line{};
    const auto size = ::read(file, line.data(), line.size());
    ::close(file);
    return size <= 0 || tellsOfSleep({line.data(), static_cast<std::size_t>(size)});
}

bool doAllOthersSleep() {
    const std::unique_ptr<DIR, int (*)(DIR*)> threads(::opendir("/proc/self/task"), &::closedir);
    const std::string own = std::to_string(::syscall(SYS_gettid));
    bool doSleep = true;
    while (const dirent* const entry = ::readdir(threads.get())) {
        const std::string name(static_cast<const char*>(entry->d_name));
        doSleep = doSleep && (name.starts_with('.') || name == own || sleeps(name));
    }
    return doSleep;
}

}  // namespace

void ProcessTime::pass(Span span) {
    const std::int64_t nanoseconds = Nanoseconds(span).count();
    monotonicTime += nanoseconds;
    wallTime += nanoseconds;
    waits().wakeWhoIsDue();
}

void ProcessTime::moveWallClock(Span span) {
    wallTime += Nanoseconds(span).count();
}

void ProcessTime::sleepMachine(Span span) {
    moveWallClock(span);
    sleptTime += Nanoseconds(span).count();
}

ProcessTime::Span ProcessTime::elapsed() {
    return std::chrono::floor<Span>(Nanoseconds(monotonicTime - kMonotonicStart));
}

void ProcessTime::settle() {
    bool isQuiet = false;
    while (!isQuiet) {
        spinUntilIdle();
        if (doAllOthersSleep()) {
            // They may have sent something before they fell asleep.
            isQuiet = !QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
        } else {
            ::sched_yield();
        }
    }
}

}  // namespace quillbar

// In the place of the C library's, for everybody in the process.

extern "C" {

int clock_gettime(clockid_t id, timespec* tp) noexcept {
    switch (id) {
    case CLOCK_REALTIME:
    case CLOCK_REALTIME_COARSE:
    case CLOCK_TAI:
        *tp = quillbar::asTimespec(quillbar::wallTime);
        return 0;
    case CLOCK_MONOTONIC:
    case CLOCK_MONOTONIC_COARSE:
    case CLOCK_MONOTONIC_RAW:
        *tp = quillbar::asTimespec(quillbar::monotonicTime);
        return 0;
    case CLOCK_BOOTTIME:
        *tp = quillbar::asTimespec(quillbar::monotonicTime + quillbar::sleptTime);
        return 0;
    default:
        return static_cast<int>(::syscall(SYS_clock_gettime, id, tp));
    }
}

int gettimeofday(timeval* tv, void* /*tz*/) noexcept {
    const timespec now = quillbar::asTimespec(quillbar::wallTime);
    tv->tv_sec = now.tv_sec;
    tv->tv_usec = now.tv_nsec / 1000;
    return 0;
}

time_t time(time_t* timer) noexcept {
    const time_t now = quillbar::wallTime / quillbar::kPerSecond;
    if (timer != nullptr) {
        *timer = now;
    }
    return now;
}

int ppoll(pollfd* fds, nfds_t nfds, const timespec* timeout, const sigset_t* ss) {
    const std::int64_t limit = timeout == nullptr
                                   ? quillbar::kNever
                                   : timeout->tv_sec * quillbar::kPerSecond + timeout->tv_nsec;
    return quillbar::waitFor(fds, nfds, limit, ss);
}

int poll(pollfd* fds, nfds_t nfds, int timeout) {
    constexpr std::int64_t kPerMillisecond = 1'000'000;
    const std::int64_t limit = timeout < 0 ? quillbar::kNever : timeout * kPerMillisecond;
    return quillbar::waitFor(fds, nfds, limit, nullptr);
}

}  // extern "C"
