// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelWindow.h"

#include "Quillbar/RoundedWindow.h"
#include "Quillbar/Theme.h"
#include "Quillbar/window/PanelPlacement.h"
#include "Quillbar/window/X11Session.h"

#include <QApplication>
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
/// The focus is with nobody for a moment when it moves between two windows of ours.
constexpr std::chrono::milliseconds kFocusSettles{60};

/// The screen that shows the position; null when none does. QGuiApplication::screenAt() of Qt 6.8
/// still finds a screen while its removal is being told.
const QScreen* screenWith(QPoint position) {
    for (const QScreen* const screen : QGuiApplication::screens()) {
        if (screen->geometry().contains(position)) {
            return screen;
        }
    }
    return nullptr;
}

}  // namespace

/// The hairline around the panel, above the content, which reaches to the window's edges.
class PanelWindow::Edge final : public QWidget {
public:
    Edge(QWidget* parent, const QWidget& content)
        : QWidget(parent)
        , m_content(content) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        RoundedWindow::drawEdge(
            painter, *this, kCornerRadius, ThemeKey::value(m_content).colors.separator);
    }

private:
    // Has the theme.
    const QWidget& m_content;
};

PanelWindow::PanelWindow(QWidget* content, ToggleGuard::Elapsed elapsed)
    : QWidget(
        nullptr,
        Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint)
    , m_content(content)
    , m_edge(new Edge(this, *content))
    , m_guard(std::move(elapsed))
    , m_presses({.pressed = [this](OutsidePressWatch::Place place) { handlePress(place); },
                 .released = [this] { handleRelease(); }}) {
    setWindowTitle(QStringLiteral("Quillbar"));
    m_sway = SwayPlacement::ofSession(windowTitle());
    setAccessibleName(QStringLiteral("Quillbar"));
    m_isTranslucent = X11Session::isComposited() || !X11Session::isX11();
    setAttribute(Qt::WA_TranslucentBackground, m_isTranslucent);
    m_content->setParent(this);
    m_content->installEventFilter(this);
    m_content->show();
    m_edge->raise();
    m_focusCheck.setSingleShot(true);
    m_focusCheck.setInterval(kFocusSettles);
    connect(&m_focusCheck, &QTimer::timeout, this, [this] { handleFocusLoss(); });
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* window) {
        if (window == nullptr && isVisible()) {
            m_focusCheck.start();
        }
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this] { replace(); });
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](const QScreen* screen) {
        follow(screen);
    });
    for (const QScreen* const screen : QGuiApplication::screens()) {
        follow(screen);
    }
}

PanelWindow::~PanelWindow() {
    // The focus leaves while the native window goes, when half of this is gone already.
    disconnect(qGuiApp, nullptr, this, nullptr);
}

void PanelWindow::toggle(std::optional<QPoint> anchor) {
    if (isMinimized()) {
        open(anchor);
        return;
    }
    switch (anchor ? m_guard.clicked() : m_guard.commanded()) {
    case ToggleGuard::Action::open:
        open(anchor);
        break;
    case ToggleGuard::Action::close:
        closeBy(anchor ? ToggleGuard::HiddenBy::pointer : ToggleGuard::HiddenBy::other);
        break;
    case ToggleGuard::Action::nothing:
        break;
    }
}

void PanelWindow::open(std::optional<QPoint> anchor) {
    if (anchor) {
        m_anchor = anchor;
    }
    // The native window carries what window managers read before it is mapped.
    winId();
    m_isMasked = !m_isTranslucent || (X11Session::isX11() && !X11Session::isComposited());
    place();
    applyShape();
    // It may have been minimised when it closed, or be so.
    setWindowState(windowState() & ~Qt::WindowMinimized);
    X11Session::skipTaskbar(*windowHandle());
    X11Session::setStartupToken(*windowHandle(), std::exchange(m_token, QString()));
    show();
    if (m_sway) {
        m_sway->shown(anchor ? SwayPlacement::OpenedBy::pointer : SwayPlacement::OpenedBy::other);
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

void PanelWindow::setActivationToken(const QString& token) {
    m_token = token;
    if (!X11Session::isX11()) {
        // From where Qt takes the token when it asks a Wayland compositor for the focus.
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    }
}

bool PanelWindow::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::LayoutRequest:
        replace();
        break;
    case QEvent::WindowDeactivate:
        m_focusCheck.start();
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
    if (event->spontaneous()) {
        return;
    }
    m_guard.shown();
    m_presses.listen();
}

void PanelWindow::hideEvent(QHideEvent* event) {
    closePopups();
    if (event->spontaneous()) {
        // Minimised, which is not closed.
        return;
    }
    m_focusCheck.stop();
    if (m_sway) {
        m_sway->hidden();
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
    connect(screen, &QScreen::geometryChanged, this, [this] { replace(); });
    connect(screen, &QScreen::availableGeometryChanged, this, [this] { replace(); });
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

void PanelWindow::place() {
    // The screen that the item was on may have been unplugged since.
    const QScreen* const anchored = m_anchor ? screenWith(*m_anchor) : nullptr;
    const QScreen* const screen = anchored != nullptr ? anchored : QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return;
    }
    const QRect workArea = screen->availableGeometry();
    const QSize wanted = m_content->sizeHint();
    const QRect area = screen->geometry();
    const QRect rectangle = anchored != nullptr
                                ? PanelPlacement::rectangle(*m_anchor, wanted, area, workArea)
                                : PanelPlacement::rectangleWithoutAnchor(wanted, area, workArea);
    if (m_sway) {
        // Sway tiles a window that could have another size, and moves all others for it.
        setFixedSize(rectangle.size());
    }
    setGeometry(rectangle);
}

void PanelWindow::closePopups() {
    const QWidget* closed = nullptr;
    QWidget* popup = QApplication::activePopupWidget();
    // One that refuses is not asked again.
    while (popup != closed && isInside(popup)) {
        closed = popup;
        popup->close();
        popup = QApplication::activePopupWidget();
    }
}

bool PanelWindow::isInside(const QWidget* widget) const {
    // Other windows count, unlike with isAncestorOf().
    while (widget != nullptr && widget != this) {
        widget = widget->parentWidget();
    }
    return widget == this;
}

void PanelWindow::handlePress(OutsidePressWatch::Place place) {
    // The first press outside an open menu closes the menu alone.
    if (m_elsewhere != Elsewhere::closes || !m_guard.closesAtPress()
        || QApplication::activePopupWidget() != nullptr
        || QApplication::activeModalWidget() != nullptr
        || place == OutsidePressWatch::Place::inOurWindow) {
        return;
    }
    // The server may not have told yet that the pointer has come.
    if (isOverOurs(QCursor::pos())) {
        return;
    }
    m_guard.pressedOutside();
    // Not from inside the filter of native events.
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

void PanelWindow::handleFocusLoss() {
    if (m_elsewhere == Elsewhere::closes && isVisible() && !hasFocusOfOurs()) {
        closeBy(ToggleGuard::HiddenBy::pointer);
    }
}

bool PanelWindow::hasFocusOfOurs() {
    return QApplication::activePopupWidget() != nullptr
           || QApplication::activeModalWidget() != nullptr
           || QGuiApplication::focusWindow() != nullptr;
}

bool PanelWindow::isOverOurs(QPoint point) {
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->frameGeometry().contains(point)) {
            return true;
        }
    }
    return false;
}

void PanelWindow::applyShape() {
    if (m_isMasked) {
        RoundedWindow::cutCorners(*this, kCornerRadius);
    } else {
        clearMask();
    }
}

}  // namespace quillbar
