// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelWindow.h"

#include "Quillbar/widgets/RoundedWindow.h"
#include "Quillbar/widgets/Theme.h"
#include "Quillbar/window/OwnWindows.h"
#include "Quillbar/window/PanelEdge.h"
#include "Quillbar/window/PanelPlacement.h"
#include "Quillbar/window/WorkArea.h"
#include "Quillbar/window/X11Session.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <chrono>
#include <utility>

namespace quillbar {

namespace {

constexpr double kCornerRadius = 10;
/// When the focus moves between two of our windows, for a moment no window has it.
constexpr std::chrono::milliseconds kFocusSettles{60};
/// The focus may follow a pointer that comes from the item to the panel.
constexpr std::chrono::milliseconds kPointerArrives{500};

/// Under X11 we tell window managers ourselves that it is a tool window.
Qt::WindowType typeForManagers() {
    return X11Session::isX11() ? Qt::Window : Qt::Tool;
}

/// The screen that shows the position; null when none does. During screenRemoved(),
/// QGuiApplication::screenAt() of Qt 6.8 still finds the removed screen.
const QScreen* screenWith(QPoint position) {
    for (const QScreen* const screen : QGuiApplication::screens()) {
        if (screen->geometry().contains(position)) {
            return screen;
        }
    }
    return nullptr;
}

}  // namespace

PanelWindow::PanelWindow(QWidget* content,
                         ToggleGuard::Elapsed elapsed,
                         ScaleWatch::LookUp ratiosOf)
    : QWidget(nullptr,
              typeForManagers() | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
                  | Qt::NoDropShadowWindowHint)
    , m_content(content)
    , m_edge(new PanelEdge(this, *content, kCornerRadius))
    , m_guard(std::move(elapsed))
    , m_presses({.pressed = [this](OutsidePressWatch::Place place) { handlePress(place); },
                 .released = [this] { handleRelease(); }})
    , m_scaleWatch(*this, std::move(ratiosOf), [this] { renew(); }) {
    setWindowTitle(QStringLiteral("Quillbar"));
    m_sway = SwayPlacement::ofSession(windowTitle());
    setAccessibleName(QStringLiteral("Quillbar"));
    m_isTranslucent = X11Session::isComposited() || !X11Session::isX11();
    setAttribute(Qt::WA_TranslucentBackground, m_isTranslucent);
    m_content->setParent(this);
    m_content->installEventFilter(this);
    m_content->show();
    m_edge->raise();
    m_focusCheck.setObjectName(QStringLiteral("focus"));
    m_focusCheck.setSingleShot(true);
    connect(&m_focusCheck, &QTimer::timeout, this, [this] { handleFocusLoss(); });
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (window == nullptr && isVisible()) {
            waitForFocus();
        }
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &PanelWindow::handleScreenChange);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](const QScreen* screen) {
        follow(screen);
    });
    for (const QScreen* const screen : QGuiApplication::screens()) {
        follow(screen);
    }
}

PanelWindow::~PanelWindow() {
    // The focus changes while the native window goes, when half of this object has gone already.
    disconnect(qGuiApp, nullptr, this, nullptr);
}

void PanelWindow::toggle(AskedBy askedBy, std::optional<QPoint> anchor) {
    if (isMinimized()) {
        open(askedBy, anchor);
        return;
    }
    const bool isClick = askedBy == AskedBy::pointer;
    switch (isClick ? m_guard.clicked() : m_guard.commanded()) {
    case ToggleGuard::Action::open:
        open(askedBy, anchor);
        break;
    case ToggleGuard::Action::close:
        closeBy(isClick ? ToggleGuard::HiddenBy::pointer : ToggleGuard::HiddenBy::other);
        break;
    case ToggleGuard::Action::nothing:
        break;
    }
}

void PanelWindow::open(AskedBy askedBy, std::optional<QPoint> anchor) {
    if (anchor) {
        m_anchor = anchor;
    }
    // Window managers read properties of the native window before it is mapped.
    winId();
    findBar();
    m_isMasked = !m_isTranslucent || (X11Session::isX11() && !X11Session::isComposited());
    place();
    applyShape();
    // It may be minimised, or have been when it closed.
    setWindowState(windowState() & ~Qt::WindowMinimized);
    if (!isVisible()) {
        // Only the window manager may change the states of a window that is on the screen.
        X11Session::beUtility(*windowHandle());
        X11Session::skipTaskbar(*windowHandle());
    }
    X11Session::setStartupToken(*windowHandle(), std::exchange(m_token, QString()));
    show();
    if (m_sway) {
        m_sway->shown(askedBy == AskedBy::pointer ? SwayPlacement::OpenedBy::pointer
                                                  : SwayPlacement::OpenedBy::other);
    }
    raise();
    activateWindow();
    if (focusWidget() == nullptr) {
        m_content->setFocus(Qt::PopupFocusReason);
    }
}

void PanelWindow::dismiss() {
    closeBy(ToggleGuard::HiddenBy::other);
}

void PanelWindow::renew() {
    const bool wasOpen = isVisible();
    m_isRenewing = true;
    hide();
    destroy();
    if (wasOpen) {
        open(AskedBy::command);
    }
    m_isRenewing = false;
}

void PanelWindow::setActivationToken(const QString& token) {
    m_token = token.size() <= kLongestToken ? token : QString();
    if (!X11Session::isX11()) {
        // Qt reads the token there when it asks a Wayland compositor for the focus.
        qputenv("XDG_ACTIVATION_TOKEN", m_token.toUtf8());
    }
}

bool PanelWindow::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::LayoutRequest:
        replace();
        break;
    case QEvent::WindowDeactivate:
        waitForFocus();
        break;
    case QEvent::Enter:
        m_hadPointer = true;
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool PanelWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_content && event->type() == ThemeKey::changeEvent()) {
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        dismiss();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void PanelWindow::moveEvent(QMoveEvent* /*event*/) {
    // i3 4.22 shows a new window moved by the width of a frame, though it gets none. Setting the
    // place a second time helps. If the window manager then still has another place, accept it.
    if (!m_guard.hasJustOpened()) {
        if (m_isStandalone && isVisible()) {
            m_place.moveTopLeft(pos());
        }
    } else if (!m_sway && !m_hasInsisted && pos() != m_place.topLeft()) {
        m_hasInsisted = true;
        QMetaObject::invokeMethod(
            this, [this] { replace(); }, Qt::QueuedConnection);
    }
}

void PanelWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    RoundedWindow::fill(painter, *this, kCornerRadius, ThemeKey::value(*m_content).colors.surface);
}

void PanelWindow::resizeEvent(QResizeEvent* /*event*/) {
    m_content->setGeometry(rect());
    m_edge->setGeometry(rect());
    applyShape();
    if (m_sway) {
        m_sway->resized(size());
    }
}

void PanelWindow::showEvent(QShowEvent* event) {
    if (event->spontaneous() || m_isRenewing) {
        return;
    }
    m_hadPointer = false;
    m_hasInsisted = false;
    m_guard.shown();
    m_presses.listen();
    if (onOpened) {
        onOpened();
    }
}

void PanelWindow::hideEvent(QHideEvent* event) {
    OwnWindows::closePopupsOf(*this);
    if (event->spontaneous()) {
        // Minimised, which does not count as closed.
        return;
    }
    m_focusCheck.stop();
    if (m_sway) {
        m_sway->hidden();
    }
    if (m_isRenewing) {
        return;
    }
    m_guard.hidden(std::exchange(m_cause, ToggleGuard::HiddenBy::other));
    if (!m_guard.isPressHeld()) {
        m_presses.stopListening();
    }
    if (onClosed) {
        onClosed();
    }
}

void PanelWindow::follow(const QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, &PanelWindow::handleScreenChange);
    connect(screen, &QScreen::availableGeometryChanged, this, &PanelWindow::handleScreenChange);
}

void PanelWindow::handleScreenChange() {
    if (isVisible()) {
        findBar();
        place();
    }
}

void PanelWindow::findBar() {
    const QScreen* const anchored = m_anchor ? screenWith(*m_anchor) : nullptr;
    m_bar = anchored != nullptr ? barInWorkArea(*m_anchor, *anchored) : std::nullopt;
}

void PanelWindow::replace() {
    if (isVisible()) {
        place();
    }
}

void PanelWindow::closeBy(ToggleGuard::HiddenBy cause) {
    if (isVisible()) {
        m_cause = cause;
        hide();
    }
}

void PanelWindow::setStandalone(bool isStandalone) {
    m_wasPlaced = m_wasPlaced && isStandalone == m_isStandalone;
    m_isStandalone = isStandalone;
    if (m_sway) {
        m_sway->setKeepsPlace(isStandalone);
    }
}

void PanelWindow::place() {
    if (m_isStandalone && m_wasPlaced) {
        keepPlace();
        return;
    }
    // The screen that the item was on may have been unplugged since.
    const QScreen* const anchored = m_anchor ? screenWith(*m_anchor) : nullptr;
    const QScreen* const screen = anchored != nullptr ? anchored : QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return;
    }
    const QRect workArea = workAreaWithout(m_bar, *screen);
    const QSize wanted = m_content->sizeHint();
    const QRect area = screen->geometry();
    const QRect rectangle = anchored != nullptr
                                ? PanelPlacement::rectangle(*m_anchor, wanted, area, workArea)
                                : PanelPlacement::rectangleWithoutAnchor(wanted, area, workArea);
    if (m_sway) {
        // Sway tiles a window whose size is not fixed, and moves all others for it.
        setFixedSize(rectangle.size());
    }
    m_place = rectangle;
    setGeometry(m_place);
    m_wasPlaced = true;
}

void PanelWindow::keepPlace() {
    // While the panel opens, the window manager may have moved it.
    const bool isSettled = isVisible() && !m_guard.hasJustOpened();
    const QRect kept = isSettled ? geometry() : m_place;
    const QScreen* const shownOn = screenWith(kept.center());
    const QScreen* const screen = shownOn != nullptr ? shownOn : QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return;
    }
    const QRect rectangle = PanelPlacement::rectangleAt(
        kept.topLeft(), m_content->sizeHint(), screen->availableGeometry());
    if (rectangle.topLeft() != kept.topLeft()) {
        m_place = rectangle;
    }
    if (m_sway) {
        setFixedSize(rectangle.size());
    }
    // Some window managers add the width of a frame each time a place is set, so the window would
    // wander.
    if (rectangle.topLeft() == geometry().topLeft()) {
        resize(rectangle.size());
    } else {
        setGeometry(rectangle);
    }
}

void PanelWindow::handlePress(OutsidePressWatch::Place place) {
    // The first press outside an open menu closes the menu alone.
    if (m_elsewhere != Elsewhere::closes || !m_guard.closesAtPress() || OwnWindows::haveOpenPopup()
        || place == OutsidePressWatch::Place::inOurWindow) {
        return;
    }
    // The server may not have told yet that the pointer is over one of our windows.
    if (OwnWindows::cover(QCursor::pos())) {
        return;
    }
    m_guard.pressedOutside();
    // Called later, not inside the filter of native events.
    QMetaObject::invokeMethod(
        this, [this] { closeBy(ToggleGuard::HiddenBy::pointer); }, Qt::QueuedConnection);
}

void PanelWindow::handleRelease() {
    m_guard.released();
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!isVisible() && !m_guard.isPressHeld()) {
                m_presses.stopListening();
            }
        },
        Qt::QueuedConnection);
}

void PanelWindow::waitForFocus() {
    m_focusCheck.start(m_hadPointer ? kFocusSettles : kPointerArrives);
}

void PanelWindow::handleFocusLoss() {
    if (m_isStandalone && OwnWindows::cover(QCursor::pos()) && X11Session::isButtonHeld()) {
        // Some window managers have the keyboard while they move a window.
        waitForFocus();
    } else if (m_elsewhere == Elsewhere::closes && isVisible() && !OwnWindows::haveFocus()) {
        closeBy(ToggleGuard::HiddenBy::pointer);
    }
}

void PanelWindow::applyShape() {
    if (m_isMasked) {
        RoundedWindow::cutCorners(*this, kCornerRadius);
    } else {
        clearMask();
    }
}

}  // namespace quillbar
