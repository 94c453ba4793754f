// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/ApplicationNames.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStringList>

#include <gtest/gtest.h>

#include <csignal>

namespace quillbar {

/// A session bus of the test's own, and as many programs on it as are asked for.
class BusFixture : public testing::Test {
protected:
    void TearDown() override {
        for (const QString& name : m_names) {
            QDBusConnection::disconnectFromBus(name);
        }
    }

    /// One more program's connection.
    [[nodiscard]] QDBusConnection connect() {
        static int count = 0;
        m_names.append(QStringLiteral("program%1").arg(++count));
        QDBusConnection bus = QDBusConnection::connectToBus(m_bus.address(), m_names.last());
        EXPECT_TRUE(bus.isConnected());
        return bus;
    }

    [[nodiscard]] static QString applicationName() {
        return QString::fromLatin1(ApplicationNames::kBusName);
    }
    [[nodiscard]] static QString applicationPath() {
        return QString::fromLatin1(ApplicationNames::kObjectPath);
    }

    /// The bus hears nothing and says nothing from here on.
    static void hang(const QDBusConnection& bus) {
        const auto process = bus.interface()->servicePid(QStringLiteral("org.freedesktop.DBus"));
        ASSERT_TRUE(process.isValid());
        ASSERT_EQ(::kill(static_cast<pid_t>(process.value()), SIGSTOP), 0);
    }

    PrivateBus m_bus;

private:
    QStringList m_names;
};

}  // namespace quillbar
