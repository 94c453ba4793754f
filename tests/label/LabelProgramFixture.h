// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Simulator.h"
#include "tests/support/TemporaryFolder.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace quillbar {

/// The program as a user starts it, against a simulated exchange in the test's own event loop.
class LabelProgramFixture : public ::testing::Test {
protected:
    /// What a user takes for "at once", of a program that a sanitizer may slow down.
    static constexpr std::chrono::milliseconds kAtOnce{2'000 * QUILLBAR_TEST_PATIENCE};

    LabelProgramFixture();
    void TearDown() override;

    void run(const QStringList& arguments);
    void start(const QString& program, const QStringList& arguments);
    /// Runs a line of bash, in which "$0" is the program.
    void runInShell(const char* command);
    void send(int signal) const;

    void collect();
    [[nodiscard]] bool printsLine(const std::string& part);
    [[nodiscard]] bool complainsOf(const std::string& part);

    /// The exit status; -1 when the program does not end in time or was ended by a signal.
    [[nodiscard]] int exitStatus(std::chrono::milliseconds patience = std::chrono::seconds{20});

    void theWatchlistIs(const std::string& json) const;

    simulator::Simulator m_binance{{.symbolCount = 100}};
    TemporaryFolder m_folder;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QProcess m_label;
    std::string m_output;
    std::string m_errors;
};

}  // namespace quillbar
