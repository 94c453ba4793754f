// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QByteArray>

#include <cstdint>
#include <functional>

struct xcb_ge_generic_event_t;

namespace quillbar {

/// Hears every press and release of the three main buttons anywhere on the desktop, on bars and on
/// the bare background too, where no window of ours gets an event and no focus changes. It takes
/// nothing away from anybody. On X11 with the second version of its input extension; elsewhere it
/// hears nothing. For the main thread, while a QGuiApplication lives.
class OutsidePressWatch final : public QAbstractNativeEventFilter {
public:
    /// Where the pointer was at a press, as far as the server has told our windows; it may have
    /// moved since. It is also `elsewhere` if the server has not told: before the pointer first
    /// enters a window after listen(), and while another program holds the pointer.
    enum class Place { inOurWindow, elsewhere };

    /// Both are called from the event loop.
    struct Handlers {
        std::function<void(Place)> pressed;
        std::function<void()> released;
    };

    explicit OutsidePressWatch(Handlers handlers);
    OutsidePressWatch(const OutsidePressWatch&) = delete;
    OutsidePressWatch& operator=(const OutsidePressWatch&) = delete;
    OutsidePressWatch(OutsidePressWatch&&) = delete;
    OutsidePressWatch& operator=(OutsidePressWatch&&) = delete;
    ~OutsidePressWatch() override;

    /// Begins or ends listening. It costs nothing while it does not listen. Repeated calls change
    /// nothing.
    void listen();
    void stopListening();

private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void follow(const xcb_ge_generic_event_t& event);
    [[nodiscard]] Place place() const;
    bool select(std::uint32_t mask);

    Handlers m_handlers;
    std::uint8_t m_extension = 0;
    // Our window that the pointer has entered and not left; 0 for none.
    std::uint32_t m_entered = 0;
    bool m_isListening = false;
};

}  // namespace quillbar
