// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/SessionBus.h"
#include "tests/instance/FakeEnvironment.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillbar {

namespace {

using std::chrono::milliseconds;

/// A local socket that accepts connections and never says a word.
class SilentSocket final {
public:
    explicit SilentSocket(const std::filesystem::path& path)
        : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(m_descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_descriptor, 5), 0);
    }
    SilentSocket(const SilentSocket&) = delete;
    SilentSocket& operator=(const SilentSocket&) = delete;
    SilentSocket(SilentSocket&&) = delete;
    SilentSocket& operator=(SilentSocket&&) = delete;
    ~SilentSocket() { ::close(m_descriptor); }

private:
    int m_descriptor;
};

class SessionBusTest : public ::testing::Test {
protected:
    [[nodiscard]] static bool answersAt(const std::string& address) {
        return SessionBus::answers(environmentOf({{"DBUS_SESSION_BUS_ADDRESS", address}}),
                                   kPatience);
    }
    [[nodiscard]] std::string pathOf(const std::string& name) const {
        return (m_folder.path() / name).string();
    }

    // Only what is silent waits so long.
    static constexpr milliseconds kPatience{300};
    TemporaryFolder m_folder;
};

TEST_F(SessionBusTest, aBusAnswers) {
    const PrivateBus bus;
    ASSERT_FALSE(bus.address().isEmpty());
    EXPECT_TRUE(answersAt(bus.address().toStdString()));
}

TEST_F(SessionBusTest, whatIsNotThereDoesNot) {
    EXPECT_FALSE(answersAt("unix:path=" + pathOf("none")));
    EXPECT_FALSE(answersAt("unix:abstract=" + pathOf("none")));
    EXPECT_FALSE(answersAt("unix:path="));
    EXPECT_FALSE(answersAt("unix:path=/" + std::string(200, 'a')));
    EXPECT_FALSE(SessionBus::answers(environmentOf({}), kPatience));
}

TEST_F(SessionBusTest, aSilentBusDoesNot) {
    const SilentSocket silent(pathOf("silent"));
    EXPECT_FALSE(answersAt("unix:path=" + pathOf("silent")));
}

TEST_F(SessionBusTest, aBusThatIsGoneDoesNot) {
    std::string address;
    {
        const PrivateBus bus;
        address = bus.address().toStdString();
    }
    EXPECT_FALSE(answersAt(address));
}

TEST_F(SessionBusTest, anyOfSeveralAddressesWillDo) {
    const PrivateBus bus;
    EXPECT_TRUE(answersAt("unix:path=" + pathOf("none") + ";" + bus.address().toStdString() + ";"));
}

TEST_F(SessionBusTest, addressesMayBeEscaped) {
    const PrivateBus bus;
    std::string address = bus.address().toStdString();
    const auto letter = address.find("dbus-");
    ASSERT_NE(letter, std::string::npos);
    EXPECT_TRUE(answersAt(address.replace(letter, 1, "%64")));
}

TEST_F(SessionBusTest, theRuntimeFolderHasABusOfItsOwn) {
    // A silent one, found where it should be, takes its time; one that is not there takes none.
    const EnvironmentVariables variables =
        environmentOf({{"XDG_RUNTIME_DIR", m_folder.path().string()}});
    EXPECT_FALSE(SessionBus::answers(variables, kPatience));
    const SilentSocket silent(pathOf("bus"));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(SessionBus::answers(variables, kPatience));
    EXPECT_GE(std::chrono::steady_clock::now() - start, kPatience);
}

TEST_F(SessionBusTest, anAddressOfAnotherKindIsBelieved) {
    EXPECT_TRUE(answersAt("tcp:host=127.0.0.1,port=1"));
}

TEST_F(SessionBusTest, withoutOneNothingIsConnectedTo) {
    EXPECT_FALSE(SessionBus::connect(environmentOf({}), kPatience).has_value());
}

}  // namespace

}  // namespace quillbar
