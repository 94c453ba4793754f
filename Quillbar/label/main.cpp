// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/AppServices.h"
#include "Quillbar/label/BoardsPrinter.h"
#include "Quillbar/label/LabelOptions.h"
#include "Quillbar/label/LabelPrinter.h"
#include "Quillbar/platform/CertificateAuthorities.h"
#include "Quillbar/platform/Leaving.h"
#include "Quillbar/platform/LineOutput.h"
#include "Quillbar/platform/ProxyFactory.h"
#include "Quillbar/platform/StandardStreams.h"
#include "Quillbar/platform/SystemEvents.h"
#include "Quillbar/platform/TerminationSignals.h"
#include "Quillbar/ServiceEndpoints.h"
#include "QuillbarCore/runtime/QtExecutor.h"
#include "QuillbarCore/runtime/QtSleeper.h"
#include "QuillbarCore/runtime/QtWorker.h"
#include "QuillbarCore/state/AppDirectories.h"

#include <QCoreApplication>

#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

namespace quillbar {

namespace {

constexpr int kUsageStatus = 2;
/// A machine that starts without a network must still learn that one has come.
constexpr Seconds kSystemEventsDelay{30};

int failAtStart(const std::string& text) {
    StandardStreams::complain("quillbar-label", text);
    return kUsageStatus;
}

/// Connects to the system's events once the first price is printed, because that may block.
class DeferredSystemEvents {
public:
    DeferredSystemEvents(AppServices& services, Executor& executor, const Sleeper& sleeper)
        : m_services(services)
        , m_priced(services.appState().lastUpdate().observe(
              [this](const std::optional<TimePoint>& /*time*/) { m_scope.spawn(begin()); }))
        , m_scope(executor) {
        m_scope.spawn(beginAfter(sleeper(kSystemEventsDelay)));
    }

private:
    Task<void> beginAfter(Task<void> delay) {
        co_await std::move(delay);
        co_await begin();
    }

    Task<void> begin() {
        m_priced.disconnect();
        if (!m_events) {
            m_events.emplace([this] { m_services.resume(); });
        }
        co_return;
    }

    AppServices& m_services;
    std::optional<SystemEvents> m_events;
    Observation m_priced;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

int runLabel(const LabelOptions& options, const ServiceEndpoints& endpoints) {
    if (endpoints.certificateAuthorityFile) {
        if (const auto error = trustAuthorities(*endpoints.certificateAuthorityFile)) {
            return failAtStart(*error);
        }
    }

    installProxyFactory();

    const TerminationSignals signals([] { QCoreApplication::exit(0); });
    const bool isFollowing = options.mode == LabelMode::follow;
    LineOutput output(STDOUT_FILENO, [isFollowing] {
        QCoreApplication::exit(isFollowing ? LabelPrinter::kSuccess : LabelPrinter::kNotWritten);
    });
    const auto executor = makeQtExecutor();
    const auto worker = makeQtWorker();
    const Sleeper sleeper = makeQtSleeper();
    AppServices services({.executor = *executor,
                          .worker = *worker,
                          .clock = systemClock(),
                          .sleeper = sleeper,
                          .calendar = Calendar::autoupdatingCurrent()},
                         endpoints,
                         AppDirectories::applicationSupport());
    const auto finish = [&output](int status) {
        output.whenWritten([status] { QCoreApplication::exit(status); });
    };
    if (options.mode == LabelMode::boards) {
        BoardsPrinter printer(services.marketState(),
                              services.marketCapState(),
                              *executor,
                              sleeper,
                              {.print =
                                   [&output](std::string_view text) {
                                       text.remove_suffix(1);
                                       return output.print(text);
                                   },
                               .finish = finish});
        printer.start();
        return QCoreApplication::exec();
    }
    LabelPrinter printer(services.appState(),
                         services.isStarted(),
                         *executor,
                         sleeper,
                         options,
                         {.print = [&output](std::string_view line) { return output.print(line); },
                          .finish = finish});
    services.start();
    printer.start();
    std::optional<DeferredSystemEvents> systemEvents;
    if (isFollowing) {
        systemEvents.emplace(services, *executor, sleeper);
    }
    return QCoreApplication::exec();
}

int run(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto parsed = parseLabelOptions(arguments);
    if (const auto* const error = std::get_if<LabelUsageError>(&parsed)) {
        return failAtStart(error->text);
    }
    if (const auto* const information = std::get_if<LabelInformation>(&parsed)) {
        return StandardStreams::print(information->text) ? LabelPrinter::kSuccess
                                                         : LabelPrinter::kNotWritten;
    }
    try {
        const auto endpoints = ServiceEndpoints::fromEnvironment(processEnvironment());
        const QCoreApplication application(argc, argv);
        return leave(runLabel(std::get<LabelOptions>(parsed), endpoints));
    } catch (const EndpointError& error) {
        return failAtStart(error.what());
    }
}

}  // namespace

}  // namespace quillbar

int main(int argc, char* argv[]) {
    quillbar::StandardStreams::hold();
    return quillbar::run(argc, argv);
}
