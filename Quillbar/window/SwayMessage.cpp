// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/SwayMessage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace quillbar {

namespace {

constexpr std::string_view kMark = "i3-ipc";
constexpr qsizetype kHeaderLength = 14;
/// No screen is larger; sums of such numbers do not overflow.
constexpr int kLargestCoordinate = 1'000'000;

quint32 numberAt(const QByteArray& bytes, qsizetype position) {
    quint32 number = 0;
    std::memcpy(&number, bytes.constData() + position, sizeof number);
    return number;
}

void append(QByteArray& bytes, quint32 number) {
    std::array<char, sizeof number> raw{};
    std::memcpy(raw.data(), &number, sizeof number);
    bytes.append(raw.data(), raw.size());
}

quint32 payloadLength(const QByteArray& received) {
    return numberAt(received, static_cast<qsizetype>(kMark.size()));
}

/// Empty when it is not a rectangle on a screen.
QRect rectangleOf(const QJsonObject& node) {
    const QJsonObject object = node[QLatin1String("rect")].toObject();
    const int x = object[QLatin1String("x")].toInt(kLargestCoordinate + 1);
    const int y = object[QLatin1String("y")].toInt(kLargestCoordinate + 1);
    const int width = object[QLatin1String("width")].toInt();
    const int height = object[QLatin1String("height")].toInt();
    const auto isOnScreen = [](int number) {
        return number >= -kLargestCoordinate && number <= kLargestCoordinate;
    };
    // First of all: the corners of larger rectangles do not fit their type.
    if (!isOnScreen(x) || !isOnScreen(y) || !isOnScreen(width) || !isOnScreen(height)) {
        return {};
    }
    const QRect found(x, y, width, height);
    return found.isValid() ? found : QRect();
}

bool isMeant(const QJsonObject& node, const SwayWindowKey& key) {
    return node[QLatin1String("pid")].toInteger() == key.pid
           && node[QLatin1String("name")].toString() == key.title;
}

/// Zero for none.
qint64 idOf(const QJsonObject& node) {
    return node[QLatin1String("id")].toInteger();
}

/// `place` gives the output and the workspace that the node lies in.
std::optional<SwayWindow> findBelow(const QJsonObject& node,
                                    SwayWindow place,
                                    const SwayWindowKey& key) {
    if (isMeant(node, key)) {
        place.id = idOf(node);
        place.rectangle = rectangleOf(node);
        const bool isComplete = place.id > 0 && place.rectangle.isValid() && place.output.isValid()
                                && place.workspace.isValid();
        return isComplete ? std::optional(place) : std::nullopt;
    }
    const QString type = node[QLatin1String("type")].toString();
    if (type == QLatin1String("output")) {
        place.output = rectangleOf(node);
    } else if (type == QLatin1String("workspace")) {
        place.workspace = rectangleOf(node);
    }
    for (const auto* const list : {"floating_nodes", "nodes"}) {
        const QJsonArray children = node[QLatin1String(list)].toArray();
        for (const auto& child : children) {
            if (auto found = findBelow(child.toObject(), place, key)) {
                return found;
            }
        }
    }
    return std::nullopt;
}

}  // namespace

QByteArray SwayMessage::encoded() const {
    QByteArray bytes(kMark.data(), static_cast<qsizetype>(kMark.size()));
    append(bytes, static_cast<quint32>(payload.size()));
    append(bytes, static_cast<quint32>(type));
    return bytes + payload;
}

std::optional<SwayMessage> SwayMessage::takeFrom(QByteArray& received) {
    if (received.size() < kHeaderLength || isSpoilt(received)) {
        return std::nullopt;
    }
    const auto length = static_cast<qsizetype>(payloadLength(received));
    if (received.size() - kHeaderLength < length) {
        return std::nullopt;
    }
    const quint32 type =
        numberAt(received, static_cast<qsizetype>(kMark.size()) + qsizetype{sizeof(quint32)});
    SwayMessage taken{.type = static_cast<Type>(type),
                      .payload = received.mid(kHeaderLength, length)};
    received.remove(0, kHeaderLength + length);
    return taken;
}

bool SwayMessage::isSpoilt(const QByteArray& received) {
    const std::string_view bytes(received.constData(), static_cast<std::size_t>(received.size()));
    if (bytes.substr(0, kMark.size()) != kMark.substr(0, bytes.size())) {
        return true;
    }
    return received.size() >= kHeaderLength && payloadLength(received) > kLongestPayload;
}

std::optional<SwayWindow> SwayWindow::findIn(const QByteArray& tree, const SwayWindowKey& key) {
    return findBelow(QJsonDocument::fromJson(tree).object(), {}, key);
}

std::optional<qint64> SwayWindow::idIn(const QByteArray& event, const SwayWindowKey& key) {
    const QJsonObject object = QJsonDocument::fromJson(event).object();
    const QJsonObject container = object[QLatin1String("container")].toObject();
    const bool isShown = object[QLatin1String("change")].toString() != QLatin1String("close");
    return isShown && isMeant(container, key) && idOf(container) > 0
               ? std::optional(idOf(container))
               : std::nullopt;
}

std::optional<QRect> SwayWindow::closedIn(const QByteArray& event, const SwayWindowKey& key) {
    const QJsonObject object = QJsonDocument::fromJson(event).object();
    const QJsonObject container = object[QLatin1String("container")].toObject();
    const bool isClosed = object[QLatin1String("change")].toString() == QLatin1String("close");
    return isClosed && isMeant(container, key) && rectangleOf(container).isValid()
               ? std::optional(rectangleOf(container))
               : std::nullopt;
}

std::optional<QString> swayRefusal(const QByteArray& answer) {
    const QJsonDocument document = QJsonDocument::fromJson(answer);
    // A list with an entry for each command, or one entry alone.
    const QJsonArray results =
        document.isArray() ? document.array() : QJsonArray{document.object()};
    for (const auto& result : results) {
        const QJsonObject entry = result.toObject();
        if (!entry[QLatin1String("success")].toBool()) {
            return entry[QLatin1String("error")].toString(QStringLiteral("no reason given"));
        }
    }
    return std::nullopt;
}

}  // namespace quillbar
