// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/X11Session.h"

#include "Quillbar/widgets/NativeShape.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <span>
#include <string_view>
#include <vector>
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

bool isDock(xcb_connection_t* connection, xcb_window_t window) {
    constexpr std::uint32_t kMostTypes = 8;
    const auto cookie = xcb_get_property(connection,
                                         0,
                                         window,
                                         atom(connection, "_NET_WM_WINDOW_TYPE"),
                                         XCB_ATOM_ATOM,
                                         0,
                                         kMostTypes);
    const std::unique_ptr<xcb_get_property_reply_t, Free> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->type != XCB_ATOM_ATOM) {
        return false;
    }
    const std::span types(
        static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / sizeof(xcb_atom_t));
    return std::ranges::find(types, atom(connection, "_NET_WM_WINDOW_TYPE_DOCK")) != types.end();
}

std::unique_ptr<xcb_translate_coordinates_reply_t, Free> translated(xcb_connection_t* connection,
                                                                    xcb_window_t from,
                                                                    xcb_window_t to,
                                                                    QPoint position) {
    const auto cookie = xcb_translate_coordinates(connection,
                                                  from,
                                                  to,
                                                  static_cast<std::int16_t>(position.x()),
                                                  static_cast<std::int16_t>(position.y()));
    return std::unique_ptr<xcb_translate_coordinates_reply_t, Free>(
        xcb_translate_coordinates_reply(connection, cookie, nullptr));
}

std::optional<QRect> rectangleOf(xcb_connection_t* connection, xcb_window_t window) {
    const auto cookie = xcb_get_geometry(connection, window);
    const std::unique_ptr<xcb_get_geometry_reply_t, Free> geometry(
        xcb_get_geometry_reply(connection, cookie, nullptr));
    const auto corner = translated(connection, window, rootWindow(connection), {});
    if (!geometry || !corner) {
        return std::nullopt;
    }
    return QRect(corner->dst_x, corner->dst_y, geometry->width, geometry->height);
}

xcb_window_t idOf(const QWindow& window) {
    return static_cast<xcb_window_t>(window.winId());
}

// Programs that show a busy cursor listen on the root window for these messages.
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
    // The zero at the end is a part of the text.
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

void setAtoms(const QWindow& window,
              std::string_view property,
              std::initializer_list<std::string_view> names) {
    xcb_connection_t* const server = connection();
    if (server == nullptr) {
        return;
    }
    std::vector<xcb_atom_t> atoms;
    atoms.reserve(names.size());
    for (const std::string_view name : names) {
        atoms.push_back(atom(server, name));
    }
    xcb_change_property(server,
                        XCB_PROP_MODE_REPLACE,
                        idOf(window),
                        atom(server, property),
                        XCB_ATOM_ATOM,
                        32,
                        static_cast<std::uint32_t>(atoms.size()),
                        atoms.data());
    xcb_flush(server);
}

}  // namespace

xcb_connection_t* connection() {
    return NativeShape::connection();
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

bool isButtonHeld() {
    xcb_connection_t* const server = connection();
    if (server == nullptr) {
        return false;
    }
    constexpr std::uint16_t kButtons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    const auto cookie = xcb_query_pointer(server, rootWindow(server));
    const std::unique_ptr<xcb_query_pointer_reply_t, Free> reply(
        xcb_query_pointer_reply(server, cookie, nullptr));
    return reply && (reply->mask & kButtons) != 0;
}

std::optional<QRect> dockAt(QPoint position) {
    xcb_connection_t* const server = connection();
    if (server == nullptr) {
        return std::nullopt;
    }
    // Window managers put their clients into windows of their own.
    constexpr int kDeepest = 4;
    const xcb_window_t root = rootWindow(server);
    xcb_window_t window = root;
    for (int depth = 0; depth < kDeepest; ++depth) {
        const auto below = translated(server, root, window, position);
        if (!below || below->child == XCB_WINDOW_NONE) {
            return std::nullopt;
        }
        window = below->child;
        if (isDock(server, window)) {
            return rectangleOf(server, window);
        }
    }
    return std::nullopt;
}

void beUtility(const QWindow& window) {
    setAtoms(window,
             "_NET_WM_WINDOW_TYPE",
             {"_NET_WM_WINDOW_TYPE_UTILITY",
              "_KDE_NET_WM_WINDOW_TYPE_OVERRIDE",
              "_NET_WM_WINDOW_TYPE_NORMAL"});
}

void skipTaskbar(const QWindow& window) {
    setAtoms(window, "_NET_WM_STATE", {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
}

void setStartupToken(const QWindow& window, const QString& token) {
    xcb_connection_t* const server = connection();
    if (server == nullptr || token.isEmpty()) {
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
