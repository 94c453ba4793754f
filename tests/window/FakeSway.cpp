// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/window/FakeSway.h"

#include <QLocalSocket>

#include <nlohmann/json.hpp>

namespace quillbar {

namespace {

using JSON = nlohmann::json;

JSON rectangle(QRect value) {
    return {
        {"x", value.x()}, {"y", value.y()}, {"width", value.width()}, {"height", value.height()}};
}

JSON windowNodeOf(int id, qint64 pid, const std::string& title, QRect place) {
    return {{"id", id}, {"type", "con"}, {"pid", pid}, {"name", title}, {"rect", rectangle(place)}};
}

}  // namespace

FakeSway::FakeSway() {
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] { accept(); });
    m_server.listen(path());
}

FakeSway::~FakeSway() {
    if (m_client != nullptr) {
        m_client->disconnect();
    }
}

QString FakeSway::path() const {
    return QString::fromStdString((m_folder.path() / "sway.sock").string());
}

void FakeSway::mapWindow(const std::string& change) {
    isMapped = true;
    tell(change);
}

void FakeSway::closeWindow() {
    isMapped = false;
    tell("close");
}

void FakeSway::tell(const std::string& change) {
    send({.type = SwayMessage::Type::windowEvent,
          .payload = QByteArray::fromStdString(R"({"change":")" + change + R"(","container":)"
                                               + windowNode().toStdString() + "}")});
}

void FakeSway::sendRaw(const QByteArray& bytes) {
    m_client->write(bytes);
    m_client->flush();
}

void FakeSway::hangUp() {
    m_client->abort();
}

void FakeSway::disappear() {
    m_server.close();
}

QByteArray FakeSway::tree() const {
    JSON floating = JSON::array();
    if (isMapped) {
        floating.push_back(JSON::parse(windowNode().toStdString()));
    }
    const JSON tiled =
        JSON::array({windowNodeOf(6, 99, title, output), windowNodeOf(7, pid, "Notes", output)});
    const JSON space = {{"id", 5},
                        {"type", "workspace"},
                        {"rect", rectangle(workspace)},
                        {"nodes", tiled},
                        {"floating_nodes", floating}};
    const JSON screen = {{"id", 3},
                         {"type", "output"},
                         {"rect", rectangle(output)},
                         {"nodes", JSON::array({space})}};
    const JSON root = {{"id", 1}, {"type", "root"}, {"nodes", JSON::array({screen})}};
    return QByteArray::fromStdString(root.dump());
}

QByteArray FakeSway::windowNode() const {
    return QByteArray::fromStdString(windowNodeOf(8, pid, title, window).dump());
}

void FakeSway::accept() {
    m_client = m_server.nextPendingConnection();
    m_received.clear();
    QLocalSocket* const client = m_client;
    QObject::connect(client, &QLocalSocket::readyRead, &m_server, [this, client] {
        m_received += client->readAll();
        while (const auto request = SwayMessage::takeFrom(m_received)) {
            answer(*request);
        }
    });
    QObject::connect(client, &QLocalSocket::disconnected, &m_server, [this, client] {
        m_client = m_client == client ? nullptr : m_client;
        client->deleteLater();
    });
}

void FakeSway::answer(const SwayMessage& request) {
    const auto either = [](const QByteArray& set, const QByteArray& usual) {
        return set.isEmpty() ? usual : set;
    };
    SwayMessage answer{.type = request.type, .payload = {}};
    switch (request.type) {
    case SwayMessage::Type::subscribe:
        requests.push_back("subscribe " + request.payload.toStdString());
        answer.payload = either(subscribeAnswer, R"({"success": true})");
        break;
    case SwayMessage::Type::getTree:
        requests.emplace_back("getTree");
        answer.payload = either(treeAnswer, tree());
        break;
    default:
        requests.push_back(request.payload.toStdString());
        answer.payload = either(commandAnswer, R"([{"success": true}, {"success": true}])");
        break;
    }
    if (!isSilent) {
        send(answer);
    }
}

void FakeSway::send(const SwayMessage& message) {
    const QByteArray bytes = message.encoded();
    if (!isSlow) {
        sendRaw(bytes);
        return;
    }
    for (const char byte : bytes) {
        sendRaw(QByteArray(1, byte));
    }
}

}  // namespace quillbar
