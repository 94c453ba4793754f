// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/Moments.h"
#include "benchmarks/desktop/Roles.h"
#include "Quillbar/CoinRowView.h"
#include "Quillbar/platform/CertificateAuthorities.h"
#include "Quillbar/QuillbarApp.h"
#include "Quillbar/ServiceEndpoints.h"
#include "Quillbar/window/PanelWindow.h"
#include "Quillbar/window/X11Session.h"
#include "QuillbarCore/state/AppDirectories.h"

#include <QApplication>
#include <QDBusConnection>
#include <QWindow>

#include <cstdlib>
#include <memory>
#include <string>
#include <xcb/xcb.h>

namespace quillbar::benchmarks {

namespace {

/// Tells when frames of the panel are on the screen.
class FrameWatch final : public QObject {
protected:
    // Events reach a filter before they do anything, so a frame is handled from within it.
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Paint:
            m_rows += dynamic_cast<CoinRowView*>(watched) != nullptr ? 1 : 0;
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
        sayMoment("frame", std::to_string(m_rows));
        return true;
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

}  // namespace

int runPanel(int argc, char** argv) {
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
    QuillbarApp app(QDBusConnection::sessionBus(), endpoints, AppDirectories::applicationSupport());
    onLines([](std::string_view /*line*/) {});
    app.start();
    return QApplication::exec();
}

}  // namespace quillbar::benchmarks
