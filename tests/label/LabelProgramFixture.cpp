// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/label/LabelProgramFixture.h"

#include "tests/qtsupport/SpinUntil.h"

#include <csignal>
#include <filesystem>
#include <fstream>

namespace quillbar {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

}  // namespace

LabelProgramFixture::LabelProgramFixture() {
    m_environment.insert(QStringLiteral("QUILLBAR_REST_ENDPOINTS"), text(m_binance.restBase()));
    m_environment.insert(QStringLiteral("QUILLBAR_STREAM_ENDPOINTS"), text(m_binance.streamBase()));
    m_environment.insert(QStringLiteral("QUILLBAR_MARKETCAP_ENDPOINT"),
                         text(m_binance.marketCapBase()));
    m_environment.insert(QStringLiteral("QUILLBAR_CA_FILE"), text(m_binance.caFile()));
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), text(m_folder.path().string()));
}

void LabelProgramFixture::TearDown() {
    m_label.kill();
    m_label.waitForFinished();
}

void LabelProgramFixture::run(const QStringList& arguments) {
    start(QStringLiteral(QUILLBAR_LABEL_PROGRAM), arguments);
}

void LabelProgramFixture::start(const QString& program, const QStringList& arguments) {
    m_label.setProcessEnvironment(m_environment);
    m_label.start(program, arguments);
    ASSERT_TRUE(m_label.waitForStarted());
}

void LabelProgramFixture::runInShell(const char* command) {
    start(
        QStringLiteral("bash"),
        {QStringLiteral("-c"), QString::fromUtf8(command), QStringLiteral(QUILLBAR_LABEL_PROGRAM)});
}

void LabelProgramFixture::send(int signal) const {
    ::kill(static_cast<pid_t>(m_label.processId()), signal);
}

void LabelProgramFixture::collect() {
    m_output += m_label.readAllStandardOutput().toStdString();
    m_errors += m_label.readAllStandardError().toStdString();
}

bool LabelProgramFixture::printsLine(const std::string& part) {
    return spinUntil([&] {
        collect();
        return m_output.find(part) != std::string::npos;
    });
}

bool LabelProgramFixture::complainsOf(const std::string& part) {
    return spinUntil([&] {
        collect();
        return m_errors.find(part) != std::string::npos;
    });
}

int LabelProgramFixture::exitStatus(std::chrono::milliseconds patience) {
    const bool hasEnded =
        spinUntil([&] { return m_label.state() == QProcess::NotRunning; }, patience);
    collect();
    return hasEnded && m_label.exitStatus() == QProcess::NormalExit ? m_label.exitCode() : -1;
}

void LabelProgramFixture::theWatchlistIs(const std::string& json) const {
    const auto folder = m_folder.path() / "Quillbar";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "watchlist.json") << json;
}

}  // namespace quillbar
