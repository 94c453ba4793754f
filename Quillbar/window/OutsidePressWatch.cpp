// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/OutsidePressWatch.h"

#include "Quillbar/window/X11Session.h"

#include <QCoreApplication>
#include <QWidget>

#include <utility>
#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace quillbar {

namespace {

/// The left, middle and right button. The wheel counts as four more buttons.
constexpr std::uint32_t kLastButton = 3;

}  // namespace

OutsidePressWatch::OutsidePressWatch(Handlers handlers)
    : m_handlers(std::move(handlers)) {}

OutsidePressWatch::~OutsidePressWatch() {
    stopListening();
}

void OutsidePressWatch::listen() {
    if (!m_isListening
        && select(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS
                  | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE)) {
        QCoreApplication::instance()->installNativeEventFilter(this);
        m_entered = XCB_WINDOW_NONE;
        m_isListening = true;
    }
}

void OutsidePressWatch::stopListening() {
    if (m_isListening && QCoreApplication::instance() != nullptr) {
        select(0);
        QCoreApplication::instance()->removeNativeEventFilter(this);
    }
    m_isListening = false;
}

bool OutsidePressWatch::select(std::uint32_t mask) {
    xcb_connection_t* const server = X11Session::connection();
    if (server == nullptr) {
        return false;
    }
    const auto* const extension = xcb_get_extension_data(server, &xcb_input_id);
    if (extension == nullptr || extension->present == 0) {
        return false;
    }
    m_extension = extension->major_opcode;
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, mask};
    xcb_input_xi_select_events(
        server, xcb_setup_roots_iterator(xcb_get_setup(server)).data->root, 1, &selection.head);
    xcb_flush(server);
    return true;
}

bool OutsidePressWatch::nativeEventFilter(const QByteArray& type,
                                          void* message,
                                          qintptr* /*result*/) {
    if (type != "xcb_generic_event_t") {
        return false;
    }
    const auto* const event = static_cast<const xcb_ge_generic_event_t*>(message);
    constexpr std::uint8_t kSentByAProgram = 0x80;
    if ((event->response_type & ~kSentByAProgram) != XCB_GE_GENERIC
        || event->extension != m_extension) {
        return false;
    }
    follow(*event);
    return false;
}

void OutsidePressWatch::follow(const xcb_ge_generic_event_t& event) {
    switch (event.event_type) {
    case XCB_INPUT_ENTER:
        m_entered = reinterpret_cast<const xcb_input_enter_event_t&>(event).event;
        break;
    case XCB_INPUT_LEAVE:
        if (reinterpret_cast<const xcb_input_leave_event_t&>(event).event == m_entered) {
            m_entered = XCB_WINDOW_NONE;
        }
        break;
    case XCB_INPUT_RAW_BUTTON_PRESS:
        if (reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event).detail
            <= kLastButton) {
            m_handlers.pressed(place());
        }
        break;
    case XCB_INPUT_RAW_BUTTON_RELEASE:
        if (reinterpret_cast<const xcb_input_raw_button_release_event_t&>(event).detail
            <= kLastButton) {
            m_handlers.released();
        }
        break;
    default:
        break;
    }
}

OutsidePressWatch::Place OutsidePressWatch::place() const {
    // There may be no leave event for a window that is hidden under the pointer.
    const QWidget* const window = m_entered == XCB_WINDOW_NONE ? nullptr : QWidget::find(m_entered);
    return window != nullptr && window->isVisible() ? Place::inOurWindow : Place::elsewhere;
}

}  // namespace quillbar
