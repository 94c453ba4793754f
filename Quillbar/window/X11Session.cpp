// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/X11Session.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QtGui/qguiapplication_platform.h>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace quillbar::X11Session {

namespace {

struct Free {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): xcb returns what malloc made
    void operator()(void* reply) const noexcept { std::free(reply); }
};

xcb_window_t rootWindow(xcb_connection_t* connection) {
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t idOf(const QWindow& window) {
    return static_cast<xcb_window_t>(window.winId());
}

// Everybody who shows a busy cursor listens on the root window for these messages.
void broadcastStartupMessage(xcb_connection_t* connection, const QByteArray& text) {
    const xcb_window_t root = rootWindow(connection);
    const xcb_window_t sender = xcb_generate_id(connection);
    const std::uint32_t overrideRedirect = 1;
    xcb_create_window(connection,
                      XCB_COPY_FROM_PARENT,
                      sender,
                      root,
                      -100,
                      -100,
                      1,
                      1,
                      0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT,
                      &overrideRedirect);
    // The zero at its end is part of the text.
    const qsizetype length = text.size() + 1;
    constexpr qsizetype kPieceLength = 20;
    for (qsizetype start = 0; start < length; start += kPieceLength) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 8;
        event.window = sender;
        event.type = atom(connection, start == 0 ? "_NET_STARTUP_INFO_BEGIN" : "_NET_STARTUP_INFO");
        std::memcpy(event.data.data8,
                    text.constData() + start,
                    static_cast<std::size_t>(std::min(kPieceLength, length - start)));
        std::array<char, sizeof event> bytes{};
        std::memcpy(bytes.data(), &event, sizeof event);
        xcb_send_event(connection, 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE, bytes.data());
    }
    xcb_destroy_window(connection, sender);
}

}  // namespace

xcb_connection_t* connection() {
    // Without a screen, Qt's offscreen platform offers the interface too, with nothing behind it.
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr && QGuiApplication::platformName() == QLatin1String("xcb")
               ? x11->connection()
               : nullptr;
}

bool isX11() {
    return connection() != nullptr;
}

bool isComposited() {
    xcb_connection_t* const server = connection();
    if (server == nullptr) {
        return false;
    }
    const auto cookie = xcb_get_selection_owner(server, atom(server, "_NET_WM_CM_S0"));
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> reply(
        xcb_get_selection_owner_reply(server, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void skipTaskbar(const QWindow& window) {
    xcb_connection_t* const server = connection();
    if (server == nullptr) {
        return;
    }
    const std::array states{atom(server, "_NET_WM_STATE_SKIP_TASKBAR"),
                            atom(server, "_NET_WM_STATE_SKIP_PAGER")};
    xcb_change_property(server,
                        XCB_PROP_MODE_REPLACE,
                        idOf(window),
                        atom(server, "_NET_WM_STATE"),
                        XCB_ATOM_ATOM,
                        32,
                        static_cast<std::uint32_t>(states.size()),
                        states.data());
    xcb_flush(server);
}

void setStartupToken(const QWindow& window, const QString& token) {
    xcb_connection_t* const server = connection();
    // Who sends more than any desktop's token must not break the connection with it.
    constexpr qsizetype kLongestToken = 1024;
    if (server == nullptr || token.isEmpty() || token.size() > kLongestToken) {
        return;
    }
    const QByteArray id = token.toUtf8();
    xcb_change_property(server,
                        XCB_PROP_MODE_REPLACE,
                        idOf(window),
                        atom(server, "_NET_STARTUP_ID"),
                        atom(server, "UTF8_STRING"),
                        8,
                        static_cast<std::uint32_t>(id.size()),
                        id.constData());
    QByteArray quoted = id;
    quoted.replace('\\', "\\\\").replace('"', "\\\"");
    broadcastStartupMessage(server, "remove: ID=\"" + quoted + "\"");
    xcb_flush(server);
}

}  // namespace quillbar::X11Session
