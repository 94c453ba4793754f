// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ActivationTokens.h"
#include "Quillbar/instance/AlertService.h"
#include "Quillbar/instance/ApplicationNames.h"
#include "Quillbar/instance/ApplicationService.h"
#include "Quillbar/instance/AppOptions.h"
#include "Quillbar/instance/LabelService.h"
#include "Quillbar/instance/PlatformChoice.h"
#include "Quillbar/instance/RunningApplication.h"
#include "Quillbar/instance/SessionBus.h"
#include "Quillbar/platform/CertificateAuthorities.h"
#include "Quillbar/platform/DisplayFailure.h"
#include "Quillbar/platform/Leaving.h"
#include "Quillbar/platform/ProxyFactory.h"
#include "Quillbar/platform/ResourceLimits.h"
#include "Quillbar/platform/SmallHeap.h"
#include "Quillbar/platform/StandardStreams.h"
#include "Quillbar/platform/TerminationSignals.h"
#include "Quillbar/platform/TextLanguage.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/QuillbarApp.h"
#include "Quillbar/services/ServiceEndpoints.h"
#include "QuillbarCore/state/AppDirectories.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QString>

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace quillbar {

namespace {

constexpr int kFailureStatus = 1;
constexpr int kUsageStatus = 2;

int fail(int status, const std::string& text) {
    StandardStreams::complain("quillbar", text);
    return status;
}

int fail(int status, const QString& text) {
    return fail(status, text.toStdString());
}

/// Everything of the one instance, in the order in which it is built.
class Instance final {
public:
    Instance(std::optional<QDBusConnection> bus, ServiceEndpoints endpoints)
        : m_bus(std::move(bus))
        , m_endpoints(std::move(endpoints))
        , m_service(m_bus.value_or(QDBusConnection(QString())),
                    [this](ApplicationAction action, const ActivationTokens& tokens) {
                        perform(action, tokens);
                    }) {}

    /// Becomes the running application and does what it was started for, or hands that to the one
    /// that runs.
    void begin(const AppOptions& options, const ActivationTokens& tokens) {
        m_service.claim([this, options, tokens](ApplicationService::Claim claim) {
            if (claim == ApplicationService::Claim::alreadyRunning) {
                handOver(options, tokens);
                return;
            }
            m_app.emplace(m_bus, m_endpoints, AppDirectories::applicationSupport());
            m_label.emplace(m_service.label(), m_app->labelSource());
            m_alerts.emplace(m_service.alerts(), m_app->firedAlerts());
            m_app->start(options.manner == StartManner::background
                             ? QuillbarApp::WithoutTray::waits
                             : QuillbarApp::WithoutTray::opensPanel);
            if (options.action) {
                show(*options.action, tokenOf(tokens));
            }
        });
    }

private:
    void perform(ApplicationAction action, const ActivationTokens& tokens) {
        if (!m_app) {
            return;
        }
        const QString token = tokenOf(tokens);
        switch (action) {
        case ApplicationAction::togglePanel:
            m_app->togglePanel(token);
            break;
        case ApplicationAction::showPanel:
            m_app->showPanel(token);
            break;
        case ApplicationAction::showPreferences:
            m_app->showPreferences(token);
            break;
        case ApplicationAction::toggleDiscreet:
            m_app->toggleDiscreet();
            break;
        case ApplicationAction::quit:
            QCoreApplication::quit();
            break;
        }
    }

    /// What the first start does for an action.
    void show(ApplicationAction action, const QString& token) {
        if (action == ApplicationAction::toggleDiscreet) {
            m_app->toggleDiscreet();
        } else if (action == ApplicationAction::showPreferences) {
            m_app->showPreferences(token);
        } else {
            m_app->showPanel(token);
        }
    }

    static QString tokenOf(const ActivationTokens& tokens) {
        return tokens.activation.isEmpty() ? tokens.startupId : tokens.activation;
    }

    void handOver(const AppOptions& options, const ActivationTokens& tokens) {
        // The bus is there: it has just told of the other one.
        const auto outcome = RunningApplication::request(*m_bus, options, tokens);
        QCoreApplication::exit(outcome == RunningApplication::Outcome::done ? 0 : kFailureStatus);
    }

    std::optional<QDBusConnection> m_bus;
    ServiceEndpoints m_endpoints;
    ApplicationService m_service;
    std::optional<QuillbarApp> m_app;
    // These observe the application, so they go first.
    std::optional<LabelService> m_label;
    std::optional<AlertService> m_alerts;
};

/// Asks the running application, if there is one. Absent when this process is to become it.
std::optional<int> askRunningApplication(int argc,
                                         char** argv,
                                         const AppOptions& options,
                                         const ActivationTokens& tokens,
                                         bool isBusThere) {
    const QCoreApplication application(argc, argv);
    auto outcome = RunningApplication::Outcome::notRunning;
    if (isBusThere) {
        // Not the process's shared connection: Qt lets that one deliver calls only once an event
        // loop runs, and never if the application object that existed then has been destroyed.
        const QString name = QStringLiteral("quillbar-start");
        const QDBusConnection bus =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
        outcome = RunningApplication::request(bus, options, tokens);
        QDBusConnection::disconnectFromBus(name);
    }
    switch (outcome) {
    case RunningApplication::Outcome::done:
        return 0;
    case RunningApplication::Outcome::failed:
        return fail(kFailureStatus, translated("app", "Quillbar 正在运行，但没有应答"));
    case RunningApplication::Outcome::notRunning:
        break;
    }
    if (options.action == ApplicationAction::quit) {
        return fail(kFailureStatus, translated("app", "Quillbar 没有在运行"));
    }
    return std::nullopt;
}

bool hasScreen(const ServiceEndpoints::Variables& variables) {
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (const auto value = variables(name); value && !value->empty()) {
            return true;
        }
    }
    return false;
}

int runApplication(int argc,
                   char** argv,
                   const ServiceEndpoints& endpoints,
                   const AppOptions& options,
                   const ActivationTokens& tokens) {
    const auto variables = processEnvironment();
    if (!hasScreen(variables)) {
        return fail(kFailureStatus,
                    translated("app", "没有图形会话；在终端里请使用 quillbar-label"));
    }
    if (const auto platform = choosePlatform(variables)) {
        qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString(*platform));
    }
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    std::optional<QApplication> application;
    {
        const DisplayFailure failure(
            "quillbar",
            translated("app", "无法连接显示服务器；在终端里请使用 quillbar-label").toStdString(),
            kFailureStatus);
        application.emplace(argc, argv);
    }
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName(QStringLiteral("quillbar"));
    QApplication::setApplicationDisplayName(QStringLiteral("Quillbar"));
    QApplication::setDesktopFileName(QStringLiteral("io.github.quillbar.Quillbar"));
    if (endpoints.certificateAuthorityFile) {
        if (const auto error = trustAuthorities(*endpoints.certificateAuthorityFile)) {
            return fail(kUsageStatus, *error);
        }
    }
    installProxyFactory();
    const TerminationSignals signals([] { QCoreApplication::exit(0); });
    const auto bus = SessionBus::connect(variables);
    if (!bus && options.manner == StartManner::background) {
        // No command could reach it, and without a tray of the older protocol no click either.
        return fail(kFailureStatus, translated("app", "没有会话总线，无法在后台运行"));
    }
    int status = 0;
    {
        Instance instance(bus, endpoints);
        instance.begin(options, tokens);
        status = QApplication::exec();
    }
    return leave(status);
}

int run(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto parsed = parseAppOptions(arguments);
    if (const auto* const error = std::get_if<AppUsageError>(&parsed)) {
        return fail(kUsageStatus, error->text);
    }
    if (const auto* const information = std::get_if<AppInformation>(&parsed)) {
        return StandardStreams::print(information->text) ? 0 : kFailureStatus;
    }
    const auto& options = std::get<AppOptions>(parsed);
    const auto tokens = ActivationTokens::fromEnvironment(processEnvironment());
    const bool isBusThere = SessionBus::answers(processEnvironment());
    if (const auto status = askRunningApplication(argc, argv, options, tokens, isBusThere)) {
        return *status;
    }
    try {
        const auto endpoints = ServiceEndpoints::fromEnvironment(processEnvironment());
        // While the session starts, a bus may be slow once. Giving it up costs the status item and
        // the single instance for as long as the process runs.
        if (!isBusThere && !SessionBus::answers(processEnvironment())) {
            SessionBus::putOutOfReach();
        }
        return runApplication(argc, argv, endpoints, options, tokens);
    } catch (const EndpointError& error) {
        return fail(kUsageStatus, std::string(error.what()));
    }
}

}  // namespace

}  // namespace quillbar

int main(int argc, char** argv) {
    quillbar::StandardStreams::hold();
    quillbar::TextLanguages::useStored();
    if (const auto lack = quillbar::ResourceLimits::prepare()) {
        return quillbar::fail(quillbar::kFailureStatus, *lack);
    }
    quillbar::SmallHeap::use();
    return quillbar::run(argc, argv);
}
