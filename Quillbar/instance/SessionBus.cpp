// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/SessionBus.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillbar::SessionBus {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Closes it at the end.
class Socket final {
public:
    Socket()
        : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    Socket(Socket&&) = delete;
    Socket& operator=(Socket&&) = delete;
    ~Socket() {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }

    [[nodiscard]] int descriptor() const noexcept { return m_descriptor; }

private:
    int m_descriptor;
};

std::optional<int> hexDigit(char character) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    const char lower =
        character >= 'A' && character <= 'F' ? static_cast<char>(character - 'A' + 'a') : character;
    const auto position = kDigits.find(lower);
    return position == std::string_view::npos ? std::nullopt
                                              : std::optional(static_cast<int>(position));
}

// Addresses write unusual bytes as %xx.
std::string unescaped(std::string_view escaped) {
    std::string text;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] == '%' && i + 2 < escaped.size()) {
            const auto high = hexDigit(escaped[i + 1]);
            const auto low = hexDigit(escaped[i + 2]);
            if (high && low) {
                text += static_cast<char>(*high * 16 + *low);
                i += 2;
                continue;
            }
        }
        text += escaped[i];
    }
    return text;
}

std::optional<std::string> valueOf(std::string_view key, std::string_view address) {
    address.remove_prefix(std::min(address.find(':') + 1, address.size()));
    while (!address.empty()) {
        const auto end = std::min(address.find(','), address.size());
        const std::string_view entry = address.substr(0, end);
        if (entry.starts_with(key) && entry.substr(key.size()).starts_with('=')) {
            return unescaped(entry.substr(key.size() + 1));
        }
        address.remove_prefix(std::min(end + 1, address.size()));
    }
    return std::nullopt;
}

/// The name of the local socket, as the system takes it; absent for an address of another kind.
std::optional<std::string> socketName(std::string_view address) {
    if (!address.starts_with("unix:")) {
        return std::nullopt;
    }
    if (auto path = valueOf("path", address)) {
        return path;
    }
    if (const auto name = valueOf("abstract", address)) {
        return std::string(1, '\0') + *name;
    }
    return std::nullopt;
}

bool waitFor(const Socket& socket, short events, steady_clock::time_point end) {
    while (true) {
        const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
        pollfd waited{socket.descriptor(), events, 0};
        const int ready =
            ::poll(&waited, 1, static_cast<int>(std::max(left, milliseconds(0)).count()));
        if (ready >= 0 || errno != EINTR) {
            return ready > 0;
        }
    }
}

bool connectTo(const Socket& socket, const std::string& name) {
    sockaddr_un address{};
    if (socket.descriptor() < 0 || name.empty() || name.size() >= sizeof address.sun_path) {
        return false;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.data(), name.size());
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    // A local socket is connected at once, or its queue is full: then nobody accepts.
    return ::connect(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address), length) == 0;
}

// Every bus answers a request to authenticate, even if it then refuses it.
bool greets(const std::string& name, steady_clock::time_point end) {
    constexpr std::string_view kQuestion{"\0AUTH\r\n", 7};
    const Socket socket;
    if (!connectTo(socket, name) || !waitFor(socket, POLLOUT, end)) {
        return false;
    }
    const auto sent = ::send(socket.descriptor(), kQuestion.data(), kQuestion.size(), MSG_NOSIGNAL);
    char answer = 0;
    return sent == static_cast<ssize_t>(kQuestion.size()) && waitFor(socket, POLLIN, end)
           && ::recv(socket.descriptor(), &answer, 1, 0) == 1;
}

}  // namespace

bool answers(const EnvironmentVariables& variables, milliseconds patience) {
    const auto end = steady_clock::now() + patience;
    std::string addresses = variables("DBUS_SESSION_BUS_ADDRESS").value_or("");
    if (addresses.empty()) {
        const std::string folder = variables("XDG_RUNTIME_DIR").value_or("");
        return !folder.empty() && greets(folder + "/bus", end);
    }
    std::string_view rest = addresses;
    while (!rest.empty()) {
        const auto length = std::min(rest.find(';'), rest.size());
        const auto name = socketName(rest.substr(0, length));
        if (!name || greets(*name, end)) {
            return true;
        }
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return false;
}

std::optional<QDBusConnection> connect(const EnvironmentVariables& variables,
                                       milliseconds patience) {
    if (!answers(variables, patience)) {
        return std::nullopt;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

void putOutOfReach() {
    // Without any address, the library would look for one, or start a bus.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/dev/null");
}

}  // namespace quillbar::SessionBus
