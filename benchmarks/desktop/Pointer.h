// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <xcb/xcb.h>

namespace quillbar::benchmarks {

/// The pointer of the screen that $DISPLAY names, in a user's hand: programs cannot tell what it
/// does from the real thing. Does nothing where there is no screen or it lacks XTEST. In pixels.
class Pointer final {
public:
    enum class Turn : std::uint8_t { up, down };

    Pointer();

    void moveTo(int x, int y);
    /// Presses and releases the left button where the pointer stands.
    void click();
    /// Turns the wheel by one notch.
    void turn(Turn turn);

private:
    struct Disconnect {
        void operator()(xcb_connection_t* server) const noexcept { xcb_disconnect(server); }
    };

    void press(int button);
    void fake(int type, int detail, int x, int y);

    std::unique_ptr<xcb_connection_t, Disconnect> m_server;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

}  // namespace quillbar::benchmarks
