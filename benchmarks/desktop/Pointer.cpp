// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/Pointer.h"

#include <xcb/xtest.h>

namespace quillbar::benchmarks {

namespace {

constexpr int kLeft = 1;
constexpr int kWheelUp = 4;
constexpr int kWheelDown = 5;

}  // namespace

Pointer::Pointer()
    : m_server(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(m_server.get()) == 0) {
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_server.get())).data->root;
    }
}

void Pointer::moveTo(int x, int y) {
    fake(XCB_MOTION_NOTIFY, 0, x, y);
    xcb_flush(m_server.get());
}

void Pointer::click() {
    press(kLeft);
}

void Pointer::turn(Turn turn) {
    press(turn == Turn::up ? kWheelUp : kWheelDown);
}

void Pointer::press(int button) {
    fake(XCB_BUTTON_PRESS, button, 0, 0);
    fake(XCB_BUTTON_RELEASE, button, 0, 0);
    xcb_flush(m_server.get());
}

void Pointer::fake(int type, int detail, int x, int y) {
    xcb_test_fake_input(m_server.get(),
                        static_cast<std::uint8_t>(type),
                        static_cast<std::uint8_t>(detail),
                        XCB_CURRENT_TIME,
                        m_root,
                        static_cast<std::int16_t>(x),
                        static_cast<std::int16_t>(y),
                        0);
}

}  // namespace quillbar::benchmarks
