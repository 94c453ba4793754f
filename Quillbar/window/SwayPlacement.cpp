// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/SwayPlacement.h"

#include "Quillbar/window/PanelPlacement.h"

#include <QCoreApplication>

#include <utility>

namespace quillbar {

namespace {

// The coordinate of the pointer, when [first, last] was centred on it and pushed into
// [outputFirst, outputLast]. At an edge the pointer may have been anywhere near; a bar is there.
int anchorAlong(int first, int last, int outputFirst, int outputLast, int roomLast) {
    const bool isAtFirst = first <= outputFirst;
    const bool isAtLast = last >= outputLast;
    if (isAtLast && (!isAtFirst || roomLast < outputLast)) {
        return outputLast;
    }
    return isAtFirst ? outputFirst : first + (last + 1 - first) / 2;
}

}  // namespace

std::unique_ptr<SwayPlacement> SwayPlacement::ofSession(const QString& title) {
    const QString path = qEnvironmentVariable("SWAYSOCK");
    if (path.isEmpty()) {
        return nullptr;
    }
    return std::make_unique<SwayPlacement>(
        path, SwayWindowKey{.pid = QCoreApplication::applicationPid(), .title = title});
}

SwayPlacement::SwayPlacement(QString socketPath, SwayWindowKey key)
    : m_path(std::move(socketPath))
    , m_key(std::move(key)) {
    QObject::connect(
        &m_socket, &QLocalSocket::connected, &m_socket, [this] { handleConnection(); });
    QObject::connect(&m_socket, &QLocalSocket::readyRead, &m_socket, [this] { handleBytes(); });
    QObject::connect(&m_socket, &QLocalSocket::errorOccurred, &m_socket, [this] {
        fail(m_socket.errorString().toStdString());
    });
}

SwayPlacement::~SwayPlacement() {
    end();
}

void SwayPlacement::shown(OpenedBy openedBy) {
    if (m_step == Step::closing) {
        m_openedBy = openedBy;
        m_isShownAgain = true;
        return;
    }
    if (m_step != Step::nothing) {
        return;
    }
    m_openedBy = openedBy;
    m_size.reset();
    m_received.clear();
    m_step = Step::connection;
    m_socket.connectToServer(m_path);
}

void SwayPlacement::setKeepsPlace(bool keepsPlace) {
    if (keepsPlace != m_keepsPlace) {
        m_keepsPlace = keepsPlace;
        m_kept.reset();
    }
}

void SwayPlacement::resized(QSize size) {
    if (m_step == Step::placed && m_keepsPlace) {
        m_size = size;
        m_step = Step::dragged;
        send(SwayMessage::Type::getTree);
    } else if (m_step == Step::placed) {
        place(size);
    } else {
        m_size = size;
    }
}

void SwayPlacement::hidden() {
    m_isShownAgain = false;
    const bool wasPlaced = m_step == Step::placed || m_step == Step::dragged;
    if (m_keepsPlace && wasPlaced) {
        m_size.reset();
        m_step = Step::closing;
    } else if (m_step != Step::closing) {
        end();
    }
}

QPoint SwayPlacement::anchorOf(const SwayWindow& atPointer) {
    const QRect& window = atPointer.rectangle;
    const QRect& output = atPointer.output;
    const QRect& room = atPointer.workspace;
    return {
        anchorAlong(window.left(), window.right(), output.left(), output.right(), room.right()),
        anchorAlong(window.top(), window.bottom(), output.top(), output.bottom(), room.bottom())};
}

void SwayPlacement::handleConnection() {
    // The window may appear before this, or later: an event tells of the one, the tree of the
    // other.
    m_step = Step::subscription;
    send(SwayMessage::Type::subscribe, "[\"window\"]");
}

void SwayPlacement::handleBytes() {
    m_received += m_socket.readAll();
    while (m_step != Step::nothing) {
        const auto message = SwayMessage::takeFrom(m_received);
        if (!message) {
            break;
        }
        handleMessage(*message);
    }
    if (m_step != Step::nothing && SwayMessage::isSpoilt(m_received)) {
        fail("its answer is not a message");
    }
}

void SwayPlacement::handleMessage(const SwayMessage& message) {
    switch (message.type) {
    case SwayMessage::Type::subscribe:
    case SwayMessage::Type::runCommand:
        if (const auto refusal = swayRefusal(message.payload)) {
            fail(refusal->toStdString());
        } else if (m_step == Step::subscription) {
            m_step = Step::window;
            send(SwayMessage::Type::getTree);
        } else if (m_step == Step::floating) {
            m_step = Step::measure;
            send(SwayMessage::Type::getTree);
        }
        break;
    case SwayMessage::Type::getTree:
        if (m_step == Step::measure || m_step == Step::dragged) {
            handleMeasure(message.payload);
        } else if (m_step == Step::window) {
            if (const auto window = SwayWindow::findIn(message.payload, m_key)) {
                handleWindow(window->id);
            }
        }
        break;
    case SwayMessage::Type::windowEvent:
        if (m_step == Step::closing) {
            handleClosing(message.payload);
        } else if (m_step == Step::window) {
            if (const auto id = SwayWindow::idIn(message.payload, m_key)) {
                handleWindow(*id);
            }
        }
        break;
    }
}

void SwayPlacement::handleWindow(qint64 id) {
    m_step = Step::floating;
    const auto criterion = QStringLiteral("[con_id=%1] ").arg(id);
    // Sway alone knows where the pointer is, and tells it by nothing but where this puts the
    // window.
    const QString move =
        m_openedBy == OpenedBy::pointer ? QStringLiteral(", move position cursor") : QString();
    run(criterion + QStringLiteral("floating enable, border none, sticky enable") + move);
}

void SwayPlacement::handleMeasure(const QByteArray& tree) {
    const auto window = SwayWindow::findIn(tree, m_key);
    if (!window) {
        fail("the window is not in its tree");
        return;
    }
    m_window = *window;
    if (m_step == Step::dragged) {
        m_kept = m_window.rectangle.topLeft();
    } else if (m_openedBy == OpenedBy::pointer) {
        m_anchor = anchorOf(m_window);
    }
    m_step = Step::placed;
    place(m_size.value_or(m_window.rectangle.size()));
}

void SwayPlacement::handleClosing(const QByteArray& event) {
    const auto closed = SwayWindow::closedIn(event, m_key);
    if (!closed) {
        return;
    }
    if (m_keepsPlace) {
        m_kept = closed->topLeft();
    }
    if (std::exchange(m_isShownAgain, false)) {
        m_step = Step::window;
        send(SwayMessage::Type::getTree);
    } else {
        end();
    }
}

void SwayPlacement::place(QSize size) {
    const QRect& output = m_window.output;
    const QRect& room = m_window.workspace;
    const bool hasAnchor = m_anchor && output.contains(*m_anchor);
    QRect wanted = hasAnchor ? PanelPlacement::rectangle(*m_anchor, size, output, room)
                             : PanelPlacement::rectangleWithoutAnchor(size, output, room);
    if (m_keepsPlace) {
        if (m_kept && output.contains(*m_kept)) {
            wanted = PanelPlacement::rectangleAt(*m_kept, size, room);
        }
        m_kept = wanted.topLeft();
    }
    const QPoint position = wanted.topLeft();
    if (position != m_window.rectangle.topLeft()) {
        m_window.rectangle.moveTo(position);
        run(QStringLiteral("[con_id=%1] move absolute position %2 px %3 px")
                .arg(m_window.id)
                .arg(position.x())
                .arg(position.y()));
    }
}

void SwayPlacement::send(SwayMessage::Type type, const QByteArray& payload) {
    m_socket.write(SwayMessage{.type = type, .payload = payload}.encoded());
}

void SwayPlacement::run(const QString& commands) {
    send(SwayMessage::Type::runCommand, commands.toUtf8());
}

void SwayPlacement::end() {
    m_step = Step::nothing;
    m_socket.abort();
}

void SwayPlacement::fail(std::string_view reason) {
    if (m_step == Step::nothing) {
        return;
    }
    m_step = Step::nothing;
    if (!std::exchange(m_hasLogged, true)) {
        m_logger.error("sway did not place the panel: {}", reason);
    }
    if (m_socket.state() == QLocalSocket::ConnectedState) {
        m_socket.abort();
    }
}

}  // namespace quillbar
