// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/Heartbeat.h"
#include "benchmarks/desktop/Moments.h"
#include "benchmarks/desktop/Roles.h"
#include "Quillbar/boards/BoardPlaceholder.h"
#include "Quillbar/boards/MarketRowView.h"
#include "Quillbar/panel/UnderlineTabs.h"
#include "Quillbar/platform/CertificateAuthorities.h"
#include "Quillbar/platform/SmallHeap.h"
#include "Quillbar/QuillbarApp.h"
#include "Quillbar/services/ServiceEndpoints.h"
#include "Quillbar/watchlist/CoinRowView.h"
#include "Quillbar/window/PanelWindow.h"
#include "Quillbar/window/X11Session.h"
#include "QuillbarCore/market/MarketState.h"
#include "QuillbarCore/runtime/QtSleeper.h"
#include "QuillbarCore/state/AppDirectories.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDBusConnection>
#include <QWindow>

#include <fmt/format.h>

#include <charconv>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <xcb/xcb.h>

namespace quillbar::benchmarks {

namespace {

PanelWindow* panelWindow() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const panel = dynamic_cast<PanelWindow*>(window)) {
            return panel;
        }
    }
    return nullptr;
}

/// Tells when frames of the panel are on the screen.
class FrameWatch final : public QObject {
protected:
    // Events reach a filter before they do anything, so a frame is handled from within it.
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Paint:
            m_rows += isContent(watched) ? 1 : 0;
            return false;
        case QEvent::Hide:
            if (dynamic_cast<PanelWindow*>(watched) != nullptr) {
                sayMoment("hidden");
            }
            return false;
        case QEvent::Expose:
        case QEvent::UpdateRequest:
            return isOfPanel(watched) && paint(*watched, *event);
        default:
            return false;
        }
    }

private:
    bool paint(QObject& watched, QEvent& event) {
        if (m_isPainting) {
            return false;
        }
        m_isPainting = true;
        QCoreApplication::sendEvent(&watched, &event);
        m_isPainting = false;
        waitForServer();
        const PanelWindow* const panel = panelWindow();
        sayMoment("frame",
                  fmt::format("{} {} {}",
                              m_rows,
                              panel == nullptr ? 0 : panel->height(),
                              processorTime().count()));
        return true;
    }

    // A row, or what a board has in the place of its rows.
    static bool isContent(QObject* watched) {
        return dynamic_cast<CoinRowView*>(watched) != nullptr
               || dynamic_cast<MarketRowView*>(watched) != nullptr
               || dynamic_cast<BoardPlaceholder*>(watched) != nullptr;
    }

    static bool isOfPanel(QObject* watched) {
        if (const auto* const window = qobject_cast<QWindow*>(watched)) {
            return window->isExposed() && window->title() == QStringLiteral("Quillbar");
        }
        return dynamic_cast<PanelWindow*>(watched) != nullptr;
    }

    // The answer to any question comes after everything that was sent before it is done.
    static void waitForServer() {
        xcb_connection_t* const server = X11Session::connection();
        if (server != nullptr) {
            // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): xcb returns what malloc made
            std::free(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
        }
    }

    int m_rows = 0;
    bool m_isPainting = false;
};

/// Tells where on the screen the tabs of the panel are.
void sayTabs() {
    const PanelWindow* const panel = panelWindow();
    if (panel == nullptr) {
        return;
    }
    for (const QAbstractButton* const button : panel->findChildren<QAbstractButton*>()) {
        if (dynamic_cast<UnderlineTabs*>(button->parentWidget()) != nullptr) {
            const QPoint middle = button->mapToGlobal(button->rect().center());
            sayMoment("tab", fmt::format("{} {}", middle.x(), middle.y()));
        }
    }
}

/// The sleeper of the event loop, with another time between two refreshes of the boards. Others
/// that sleep as long do so too.
Sleeper sleeperBetweenPolls(Seconds interval) {
    return [interval, sleeper = makeQtSleeper()](Seconds span) {
        if (span != MarketState::kPollInterval) {
            return sleeper(span);
        }
        sayMoment("slept");
        return sleeper(interval);
    };
}

}  // namespace

int runPanel(int argc, char** argv) {
    SmallHeap::use();
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    FrameWatch watch;
    application.installEventFilter(&watch);
    const auto endpoints = ServiceEndpoints::fromEnvironment(processEnvironment());
    if (endpoints.certificateAuthorityFile
        && trustAuthorities(*endpoints.certificateAuthorityFile)) {
        return 1;
    }
    const std::string_view interval = argc > 2 ? argv[2] : "";
    double seconds = MarketState::kPollInterval.count();
    std::from_chars(interval.data(), interval.data() + interval.size(), seconds);
    QuillbarApp app(QDBusConnection::sessionBus(),
                    endpoints,
                    AppDirectories::applicationSupport(),
                    sleeperBetweenPolls(Seconds(seconds)));
    Heartbeat heartbeat;
    onLines([&heartbeat](std::string_view line) {
        if (line == "tabs") {
            sayTabs();
        } else if (line == "beat") {
            heartbeat.begin();
        } else if (line == "rest") {
            const Heartbeat::Longest longest = heartbeat.end();
            sayMoment("gap", fmt::format("{} {}", longest.wall.count(), longest.processor.count()));
        } else if (line == "processor") {
            sayMoment("processor", std::to_string(processorTime().count()));
        }
    });
    app.start();
    return QApplication::exec();
}

}  // namespace quillbar::benchmarks
