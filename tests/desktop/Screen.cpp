// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/Screen.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <span>
#include <stdexcept>
#include <xcb/xtest.h>

namespace quillbar {

namespace {

constexpr std::uint32_t kLongestProperty = 1024;

struct Free {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): xcb returns what malloc made
    void operator()(void* reply) const noexcept { std::free(reply); }
};

template <class Reply>
using Held = std::unique_ptr<Reply, Free>;

Held<xcb_get_property_reply_t> propertyOf(xcb_connection_t* server,
                                          xcb_window_t window,
                                          xcb_atom_t property) {
    const auto cookie = xcb_get_property(
        server, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestProperty);
    return Held<xcb_get_property_reply_t>(xcb_get_property_reply(server, cookie, nullptr));
}

}  // namespace

void Screen::Disconnect::operator()(xcb_connection_t* connection) const noexcept {
    xcb_disconnect(connection);
}

Screen::Screen(const QString& display)
    : m_connection(xcb_connect(display.toUtf8().constData(), nullptr)) {
    if (xcb_connection_has_error(m_connection.get()) != 0) {
        throw std::runtime_error(fmt::format("no X server at {}", display.toStdString()));
    }
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    const auto cookie =
        xcb_test_get_version(m_connection.get(), XCB_TEST_MAJOR_VERSION, XCB_TEST_MINOR_VERSION);
    if (!Held<xcb_test_get_version_reply_t>(
            xcb_test_get_version_reply(m_connection.get(), cookie, nullptr))) {
        throw std::runtime_error("the X server lacks XTEST");
    }
    paintBackground();
}

std::vector<Screen::Window> Screen::windowsOf(qint64 process) const {
    std::vector<Window> found;
    collect(m_root, process, found);
    return found;
}

xcb_window_t Screen::activeWindow() const {
    const auto windows = numbers(m_root, "_NET_ACTIVE_WINDOW");
    return windows.empty() ? static_cast<xcb_window_t>(XCB_WINDOW_NONE) : windows.front();
}

bool Screen::hasState(xcb_window_t window, std::string_view state) const {
    return contains(window, "_NET_WM_STATE", state);
}

bool Screen::isOfKind(xcb_window_t window, std::string_view kind) const {
    return contains(window, "_NET_WM_WINDOW_TYPE", kind);
}

bool Screen::contains(xcb_window_t window,
                      std::string_view property,
                      std::string_view value) const {
    const auto values = numbers(window, property);
    return std::find(values.begin(), values.end(), atom(value)) != values.end();
}

xcb_window_t Screen::ownerOf(xcb_window_t window) const {
    const auto owners = numbers(window, "WM_TRANSIENT_FOR");
    return owners.empty() ? static_cast<xcb_window_t>(XCB_WINDOW_NONE) : owners.front();
}

QRect Screen::workArea() const {
    const auto edges = numbers(m_root, "_NET_WORKAREA");
    if (edges.size() < 4) {
        return {};
    }
    const auto edge = [&edges](std::size_t index) { return static_cast<int>(edges[index]); };
    return {edge(0), edge(1), edge(2), edge(3)};
}

void Screen::forgetWorkArea() {
    xcb_delete_property(m_connection.get(), m_root, atom("_NET_WORKAREA"));
    finish();
}

bool Screen::hasWindowManager() const {
    return !numbers(m_root, "_NET_SUPPORTING_WM_CHECK").empty();
}

QImage Screen::picture(const QRect& area) const {
    const auto cookie = xcb_get_image(m_connection.get(),
                                      XCB_IMAGE_FORMAT_Z_PIXMAP,
                                      m_root,
                                      static_cast<std::int16_t>(area.x()),
                                      static_cast<std::int16_t>(area.y()),
                                      static_cast<std::uint16_t>(area.width()),
                                      static_cast<std::uint16_t>(area.height()),
                                      ~std::uint32_t{0});
    const Held<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(m_connection.get(), cookie, nullptr));
    if (!reply) {
        return {};
    }
    // The screen has a depth of 24 and the byte order of this machine.
    return QImage(xcb_get_image_data(reply.get()),
                  area.width(),
                  area.height(),
                  qsizetype{area.width()} * 4,
                  QImage::Format_RGB32)
        .copy();
}

void Screen::movePointer(QPoint position) {
    fake(XCB_MOTION_NOTIFY, 0, position);
}

void Screen::press(int button) {
    fake(XCB_BUTTON_PRESS, button, {});
}

void Screen::release(int button) {
    fake(XCB_BUTTON_RELEASE, button, {});
}

void Screen::click(QPoint position, int button) {
    movePointer(position);
    press(button);
    release(button);
}

void Screen::drag(QPoint from, QPoint to) {
    constexpr int kSteps = 10;
    movePointer(from);
    press();
    for (int step = 1; step <= kSteps; ++step) {
        movePointer(from + (to - from) * step / kSteps);
    }
    release();
}

void Screen::type(std::string_view letters) {
    for (const char letter : letters) {
        key(static_cast<xcb_keysym_t>(letter));
    }
}

void Screen::key(xcb_keysym_t symbol) {
    const std::uint8_t code = keyCode(symbol);
    fake(XCB_KEY_PRESS, code, {});
    fake(XCB_KEY_RELEASE, code, {});
}

void Screen::keyWith(xcb_keysym_t held, xcb_keysym_t symbol) {
    const std::uint8_t code = keyCode(held);
    fake(XCB_KEY_PRESS, code, {});
    key(symbol);
    fake(XCB_KEY_RELEASE, code, {});
}

void Screen::finish() const {
    // An answer comes after all that was asked for before.
    const Held<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
}

xcb_atom_t Screen::atom(std::string_view name) const {
    const auto cookie = xcb_intern_atom(
        m_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Held<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> Screen::numbers(xcb_window_t window, std::string_view property) const {
    const auto reply = propertyOf(m_connection.get(), window, atom(property));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* const first =
        static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    const std::span values(first, reply->value_len);
    return {values.begin(), values.end()};
}

QString Screen::text(xcb_window_t window, std::string_view property) const {
    const auto reply = propertyOf(m_connection.get(), window, atom(property));
    if (!reply || reply->format != 8) {
        return {};
    }
    return QString::fromUtf8(static_cast<const char*>(xcb_get_property_value(reply.get())),
                             static_cast<qsizetype>(reply->value_len));
}

void Screen::collect(xcb_window_t window, qint64 process, std::vector<Window>& found) const {
    const auto owner = numbers(window, "_NET_WM_PID");
    if (!owner.empty() && owner.front() == process) {
        if (const auto geometry = visibleGeometry(window)) {
            found.push_back({.id = window,
                             .geometry = *geometry,
                             .title = text(window, "_NET_WM_NAME"),
                             .process = process});
        }
    }
    const auto cookie = xcb_query_tree(m_connection.get(), window);
    const Held<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(m_connection.get(), cookie, nullptr));
    if (!reply) {
        return;
    }
    for (const xcb_window_t child :
         std::span(xcb_query_tree_children(reply.get()), reply->children_len)) {
        collect(child, process, found);
    }
}

std::optional<QRect> Screen::visibleGeometry(xcb_window_t window) const {
    xcb_connection_t* const server = m_connection.get();
    const Held<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        server, xcb_get_window_attributes(server, window), nullptr));
    const Held<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(server, xcb_get_geometry(server, window), nullptr));
    const Held<xcb_translate_coordinates_reply_t> corner(xcb_translate_coordinates_reply(
        server, xcb_translate_coordinates(server, window, m_root, 0, 0), nullptr));
    if (!attributes || !size || !corner || attributes->map_state != XCB_MAP_STATE_VIEWABLE) {
        return std::nullopt;
    }
    return QRect(corner->dst_x, corner->dst_y, size->width, size->height);
}

std::uint8_t Screen::keyCode(xcb_keysym_t symbol) const {
    const xcb_setup_t* const setup = xcb_get_setup(m_connection.get());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(m_connection.get(), setup->min_keycode, count);
    const Held<xcb_get_keyboard_mapping_reply_t> reply(
        xcb_get_keyboard_mapping_reply(m_connection.get(), cookie, nullptr));
    if (reply) {
        const std::span symbols(xcb_get_keyboard_mapping_keysyms(reply.get()),
                                std::size_t{count} * reply->keysyms_per_keycode);
        const auto place = std::find(symbols.begin(), symbols.end(), symbol);
        if (place != symbols.end()) {
            return static_cast<std::uint8_t>(
                setup->min_keycode + (place - symbols.begin()) / reply->keysyms_per_keycode);
        }
    }
    throw std::runtime_error(fmt::format("the keyboard has no key {:#x}", symbol));
}

void Screen::paintBackground() {
    const std::uint32_t pixel = background().rgb();
    xcb_change_window_attributes(m_connection.get(), m_root, XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(m_connection.get(), 0, m_root, 0, 0, 0, 0);
    xcb_flush(m_connection.get());
}

void Screen::fake(std::uint8_t type, int detail, QPoint position) {
    xcb_test_fake_input(m_connection.get(),
                        type,
                        static_cast<std::uint8_t>(detail),
                        XCB_CURRENT_TIME,
                        m_root,
                        static_cast<std::int16_t>(position.x()),
                        static_cast<std::int16_t>(position.y()),
                        0);
    xcb_flush(m_connection.get());
}

}  // namespace quillbar
