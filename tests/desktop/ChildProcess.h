// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace quillbar {

/// A program that ends with this object, or with the test at the latest. Needs a QCoreApplication.
class ChildProcess final {
public:
    /// Whether what the program complains of is part of the test's output.
    enum class Complaints { shown, dropped };

    ChildProcess(const QString& program,
                 const QStringList& arguments,
                 const QProcessEnvironment& environment,
                 Complaints complaints = Complaints::dropped);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ChildProcess(ChildProcess&&) = delete;
    ChildProcess& operator=(ChildProcess&&) = delete;
    ~ChildProcess();

    [[nodiscard]] qint64 id() const { return m_process.processId(); }
    [[nodiscard]] bool isRunning() const { return m_process.state() != QProcess::NotRunning; }
    /// The next line on its standard output, waited for; empty when none comes.
    [[nodiscard]] QString readLine();
    /// Its exit status, once it has ended by itself; -1 when it does not, or crashed.
    [[nodiscard]] int waitForEnd();
    /// Keeps it from running, as a busy machine does, until it is to resume.
    void halt();
    void resume();
    /// Asks it to end, as a session does that is over.
    void terminate();
    /// Gives it no chance to say goodbye.
    void kill();

private:
    void signal(int number);

    QProcess m_process;
};

}  // namespace quillbar
