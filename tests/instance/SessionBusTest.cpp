// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/SessionBus.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SilentSocket.h"
#include "tests/support/FakeEnvironment.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace quillbar {

namespace {

using std::chrono::milliseconds;

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

TEST_F(SessionBusTest, aBusOutOfReachIsNone) {
    const PrivateBus bus;
    const TemporaryEnvironment address("DBUS_SESSION_BUS_ADDRESS", bus.address().toStdString());
    EXPECT_TRUE(answersAt(address.value().value_or("")));
    SessionBus::putOutOfReach();
    ASSERT_NE(address.value().value_or(""), "") << "one would be looked for";
    EXPECT_FALSE(answersAt(*address.value()));
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
