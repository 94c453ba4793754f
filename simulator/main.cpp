// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/CommandLine.h"
#include "simulator/Simulator.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <fmt/format.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

constexpr int kWrongUse = 2;

// A line that cannot be written is of no use to anybody: the reader is gone, not the simulator.
void say(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

// Turns the signals that ask for an end into a descriptor the event loop reads. Before any thread
// starts, so that all of them inherit the mask.
int endSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

std::string addresses(const quillbar::simulator::Simulator& simulator) {
    const std::string caFile = simulator.caFile();
    return (caFile.empty() ? std::string{} : fmt::format("ca-file {}\n", caFile))
           + fmt::format("rest {}\nstream {}\nmarket-caps {}\nicons {}\ncontrol {}\nready\n",
                         simulator.restBase(),
                         simulator.streamBase(),
                         simulator.marketCapBase(),
                         simulator.iconBase(),
                         simulator.controlBase());
}

int run(const quillbar::simulator::SimulatorOptions& options) {
    const QSocketNotifier end(endSignals(), QSocketNotifier::Read);
    QObject::connect(&end, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    const quillbar::simulator::Simulator simulator(options);
    say(addresses(simulator));
    return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    using quillbar::simulator::CommandLine;
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    try {
        const CommandLine commandLine =
            quillbar::simulator::parseCommandLine({argv + 1, argv + argc});
        if (!commandLine.text.empty()) {
            say(commandLine.text);
            return 0;
        }
        return run(commandLine.options);
    } catch (const std::exception& error) {
        std::fputs(fmt::format("quillbar-simulator: {}\n", error.what()).c_str(), stderr);
        return kWrongUse;
    }
}
