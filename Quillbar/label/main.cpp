// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/LabelWatch.h"
#include "Quillbar/instance/SessionBus.h"
#include "Quillbar/label/BoardsPrinter.h"
#include "Quillbar/label/LabelOptions.h"
#include "Quillbar/label/LabelPrinter.h"
#include "Quillbar/label/OwnCoinLabels.h"
#include "Quillbar/label/OwnLabel.h"
#include "Quillbar/label/PrintedLabels.h"
#include "Quillbar/label/SwitchingLabelSource.h"
#include "Quillbar/platform/CertificateAuthorities.h"
#include "Quillbar/platform/Leaving.h"
#include "Quillbar/platform/LineOutput.h"
#include "Quillbar/platform/ProxyFactory.h"
#include "Quillbar/platform/ResourceLimits.h"
#include "Quillbar/platform/StandardStreams.h"
#include "Quillbar/platform/TerminationSignals.h"
#include "Quillbar/platform/TextLanguage.h"
#include "Quillbar/services/AppServices.h"
#include "Quillbar/services/ServiceEndpoints.h"
#include "QuillbarCore/runtime/QtExecutor.h"
#include "QuillbarCore/runtime/QtSleeper.h"
#include "QuillbarCore/runtime/QtWorker.h"
#include "QuillbarCore/state/AppDirectories.h"

#include <QCoreApplication>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace quillbar {

namespace {

constexpr int kUsageStatus = 2;

int failAtStart(const std::string& text) {
    StandardStreams::complain("quillbar-label", text);
    return kUsageStatus;
}

/// What each way of printing works with.
struct Session {
    const ServicePlatform& platform;
    const ServiceEndpoints& endpoints;
    const LabelOptions& options;
    LineOutput& output;
    std::filesystem::path folder = AppDirectories::applicationSupport();

    [[nodiscard]] std::function<void(int)> finish() const {
        return [&output = output](int status) {
            output.whenWritten([status] { QCoreApplication::exit(status); });
        };
    }
    [[nodiscard]] LabelPrinter::Output labelOutput() const {
        return {
            .print = [&output = output](std::string_view line) { return output.print(line); },
            .complain =
                [](const std::string& text) { StandardStreams::complain("quillbar-label", text); },
            .finish = finish()};
    }
};

int printBoards(const Session& session) {
    AppServices services(session.platform, session.endpoints, session.folder);
    BoardsPrinter printer(services.marketState(),
                          services.marketCapState(),
                          session.platform.executor,
                          session.platform.sleeper,
                          {.print =
                               [&output = session.output](std::string_view text) {
                                   text.remove_suffix(1);
                                   return output.print(text);
                               },
                           .finish = session.finish()});
    printer.start();
    return QCoreApplication::exec();
}

int printCoins(const Session& session) {
    OwnCoinLabels labels(session.platform,
                         session.endpoints,
                         session.folder,
                         session.options.mode,
                         session.options.coins);
    LabelPrinter printer(labels,
                         session.platform.executor,
                         session.platform.sleeper,
                         session.options,
                         session.labelOutput());
    printer.start();
    return QCoreApplication::exec();
}

int printPinnedCoin(const Session& session) {
    SwitchingLabelSource source([&] {
        return std::make_unique<OwnLabel>(
            session.platform, session.endpoints, session.folder, session.options.mode);
    });
    PinnedLabel labels(source);
    LabelPrinter printer(labels,
                         session.platform.executor,
                         session.platform.sleeper,
                         session.options,
                         session.labelOutput());
    const auto bus = SessionBus::connect(processEnvironment());
    std::optional<LabelWatch> application;
    bool isPrinting = false;
    const auto update = [&] {
        const auto report = application ? application->report() : std::nullopt;
        if (report) {
            TextLanguages::use(report->language);
        }
        source.applicationTells(report);
        if (!isPrinting) {
            isPrinting = true;
            printer.start();
        }
    };
    if (bus) {
        application.emplace(*bus, update);
    } else {
        update();
    }
    return QCoreApplication::exec();
}

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
    const ServicePlatform platform{.executor = *executor,
                                   .worker = *worker,
                                   .clock = systemClock(),
                                   .sleeper = makeQtSleeper(),
                                   .calendar = Calendar::autoupdatingCurrent()};
    const Session session{
        .platform = platform, .endpoints = endpoints, .options = options, .output = output};
    if (options.mode == LabelMode::boards) {
        return printBoards(session);
    }
    return options.coins.empty() ? printPinnedCoin(session) : printCoins(session);
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
    quillbar::TextLanguages::useStored();
    if (const auto lack = quillbar::ResourceLimits::prepare()) {
        return quillbar::failAtStart(*lack);
    }
    return quillbar::run(argc, argv);
}
