// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/TestEnvironment.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace quillbar {

namespace {

namespace fs = std::filesystem;

/// Which process made the environment, and its folder.
constexpr const char* kProcess = "QUILLBAR_TEST_PROCESS";
constexpr const char* kFolder = "QUILLBAR_TEST_FOLDER";

constexpr mode_t kMask = 022;
constexpr rlim_t kOpenFiles = 1024;

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

std::string valueOf(const char* name, const char* otherwise) {
    const char* const value = std::getenv(name);
    return value == nullptr || *value == '\0' ? otherwise : value;
}

/// Whether a variable, as NAME=VALUE, comes from the registration of the run.
bool isOfTheRun(std::string_view variable) {
    const std::string_view name = variable.substr(0, variable.find('='));
    return name.starts_with("QUILLBAR_EXPECTED_") || name.ends_with("SAN_OPTIONS")
           || name.ends_with("SAN_SYMBOLIZER_PATH");
}

std::vector<std::string> variablesFor(const fs::path& folder) {
    std::vector<std::string> variables;
    for (char* const* each = ::environ; *each != nullptr; ++each) {
        if (isOfTheRun(*each)) {
            variables.emplace_back(*each);
        }
    }
    const auto set = [&](std::string name, const std::string& value) {
        variables.push_back(std::move(name) + "=" + value);
    };
    const fs::path home = folder / "home";
    set(kProcess, std::to_string(::getpid()));
    set(kFolder, folder);
    set("PATH", "/usr/bin:/bin:/usr/sbin:/sbin");
    set("LC_ALL", valueOf("QUILLBAR_TEST_LOCALE", "C.UTF-8"));
    set("LOCPATH", QUILLBAR_TEST_LOCALES);
    set("TZ", valueOf("QUILLBAR_TEST_ZONE", "UTC"));
    set("TMPDIR", folder / "tmp");
    set("HOME", home);
    set("XDG_CONFIG_HOME", home / ".config");
    set("XDG_DATA_HOME", home / ".local/share");
    set("XDG_STATE_HOME", home / ".local/state");
    set("XDG_CACHE_HOME", home / ".cache");
    set("XDG_RUNTIME_DIR", folder / "run");
    set("XDG_CONFIG_DIRS", folder / "etc");
    set("XDG_DATA_DIRS", folder / "share");
    // Nobody listens there.
    set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (folder / "no-session-bus").string());
    set("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + (folder / "no-system-bus").string());
    set("FONTCONFIG_FILE", valueOf("QUILLBAR_TEST_FONTS", QUILLBAR_TEST_FONTS_FILE));
    set("QT_QPA_PLATFORM", "offscreen");
    return variables;
}

fs::path madeFolder() {
    // Not in $TMPDIR, whose length decides whether sockets in it can have names.
    std::string folder = "/tmp/quillbar-tests-XXXXXX";
    if (::mkdtemp(folder.data()) == nullptr) {
        fail("mkdtemp");
    }
    for (const char* const each :
         {"home/.config", "home/.local/share", "home/.local/state", "home/.cache", "tmp"}) {
        fs::create_directories(fs::path(folder) / each);
    }
    if (::mkdir((folder + "/run").c_str(), S_IRWXU) != 0) {
        fail("mkdir");
    }
    return folder;
}

/// A shell ignores some signals for what it starts in the background, and a service manager blocks
/// some: both would be inherited.
void resetSignals() {
    for (int number = 1; number < NSIG; ++number) {
        // Refused for the two that nobody can catch, and for those that the C library keeps.
        static_cast<void>(std::signal(number, SIG_DFL));
    }
    sigset_t none;
    ::sigemptyset(&none);
    if (::sigprocmask(SIG_SETMASK, &none, nullptr) != 0) {
        fail("sigprocmask");
    }
}

void resetOpenFiles() {
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) {
        fail("getrlimit");
    }
    limit.rlim_cur = std::min(kOpenFiles, limit.rlim_max);
    if (::setrlimit(RLIMIT_NOFILE, &limit) != 0) {
        fail("setrlimit");
    }
}

[[noreturn]] void startAgain(char* const* argv) {
    ::umask(kMask);
    resetSignals();
    resetOpenFiles();
    std::vector<std::string> variables = variablesFor(madeFolder());
    std::vector<char*> pointers;
    pointers.reserve(variables.size() + 1);
    for (std::string& variable : variables) {
        pointers.push_back(variable.data());
    }
    pointers.push_back(nullptr);
    ::execve(fs::read_symlink("/proc/self/exe").c_str(), argv, pointers.data());
    fail("execve");
}

}  // namespace

TestEnvironment::TestEnvironment(char* const* argv)
    : m_startFolder(fs::current_path()) {
    const std::string process = valueOf(kProcess, "");
    const bool isOurs = process == std::to_string(::getpid());
    // GoogleTest starts the program once more for some death tests.
    const bool isOfATest = process == std::to_string(::getppid());
    if (!isOurs && !isOfATest) {
        startAgain(argv);
    }
    if (isOurs) {
        m_ownFolder = valueOf(kFolder, "");
    }
    fs::current_path(valueOf("HOME", ""));
}

TestEnvironment::~TestEnvironment() {
    if (!m_ownFolder.empty()) {
        std::error_code error;
        fs::remove_all(m_ownFolder, error);
    }
}

}  // namespace quillbar
