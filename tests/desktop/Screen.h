// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>
#include <xcb/xproto.h>

namespace quillbar {

/// A screen of an X server as a person has it: windows that can be seen, a pointer and a keyboard.
/// Everything is in pixels of the screen. One thread.
class Screen final {
public:
    /// What belongs to a person's view of a window.
    struct Window final {
        xcb_window_t id = XCB_WINDOW_NONE;
        QRect geometry;
        QString title;
        qint64 process = 0;
    };

    /// Throws std::runtime_error when the server does not take connections or lacks XTEST. The bare
    /// screen is painted in the `background`.
    explicit Screen(const QString& display);

    /// The windows of a process that are on the screen, with the outer ones first.
    [[nodiscard]] std::vector<Window> windowsOf(qint64 process) const;
    /// The window that has the keyboard's focus, as the window manager tells; 0 for none.
    [[nodiscard]] xcb_window_t activeWindow() const;
    /// Whether a state such as "_NET_WM_STATE_ABOVE" is on the window.
    [[nodiscard]] bool hasState(xcb_window_t window, std::string_view state) const;
    /// Whether the window says that it is of a kind such as "_NET_WM_WINDOW_TYPE_UTILITY".
    [[nodiscard]] bool isOfKind(xcb_window_t window, std::string_view kind) const;
    /// The window that this one says it belongs to; 0 for none.
    [[nodiscard]] xcb_window_t ownerOf(xcb_window_t window) const;
    /// What bars leave of the screen; empty before a window manager has told.
    [[nodiscard]] QRect workArea() const;
    /// As with a window manager that tells nothing of bars, until the bars change.
    void forgetWorkArea();
    [[nodiscard]] bool hasWindowManager() const;
    [[nodiscard]] static QColor background() { return {0x44, 0x66, 0x88}; }
    [[nodiscard]] QImage picture(const QRect& area) const;

    void movePointer(QPoint position);
    void press(int button = kLeft);
    void release(int button = kLeft);
    void click(QPoint position, int button = kLeft);
    /// Presses at one place, goes to the other in steps as a hand does, and releases there.
    void drag(QPoint from, QPoint to);
    /// Types small letters.
    void type(std::string_view letters);
    /// Presses and releases the key with this symbol of X11's.
    void key(xcb_keysym_t symbol);
    /// The same while another key is held down.
    void keyWith(xcb_keysym_t held, xcb_keysym_t symbol);

    /// Returns once the server has done what it was asked for, and has told the windows.
    void finish() const;

    static constexpr int kLeft = 1;
    static constexpr int kRight = 3;
    static constexpr xcb_keysym_t kEscape = 0xff1b;
    static constexpr xcb_keysym_t kReturn = 0xff0d;
    static constexpr xcb_keysym_t kTab = 0xff09;
    static constexpr xcb_keysym_t kDown = 0xff54;
    static constexpr xcb_keysym_t kMenu = 0xff67;
    static constexpr xcb_keysym_t kControl = 0xffe3;
    static constexpr xcb_keysym_t kAlt = 0xffe9;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const noexcept;
    };

    [[nodiscard]] xcb_atom_t atom(std::string_view name) const;
    [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window,
                                                     std::string_view property) const;
    [[nodiscard]] bool contains(xcb_window_t window,
                                std::string_view property,
                                std::string_view value) const;
    [[nodiscard]] QString text(xcb_window_t window, std::string_view property) const;
    void collect(xcb_window_t window, qint64 process, std::vector<Window>& found) const;
    [[nodiscard]] std::optional<QRect> visibleGeometry(xcb_window_t window) const;
    [[nodiscard]] std::uint8_t keyCode(xcb_keysym_t symbol) const;
    void paintBackground();
    void fake(std::uint8_t type, int detail, QPoint position);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

}  // namespace quillbar
