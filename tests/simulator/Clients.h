// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Simulator.h"

#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QWebSocket>

#include <memory>
#include <string>
#include <vector>

namespace quillbar::simulator {

/// TLS settings that trust the simulator's authority and nothing else.
[[nodiscard]] QSslConfiguration trusting(const Simulator& simulator);

/// What a request came to.
struct Answer {
    QNetworkReply::NetworkError error = QNetworkReply::NoError;
    int status = 0;
    std::string body;
    std::string contentType;
    std::string retryAfter;
    std::string location;

    [[nodiscard]] QJsonDocument json() const {
        return QJsonDocument::fromJson(QByteArray::fromStdString(body));
    }
};

/// Qt's HTTP client, with keep-alive, towards one simulator.
class HttpClient final {
public:
    explicit HttpClient(const Simulator& simulator);

    /// Sends a GET; the reply lives as long as the client.
    QNetworkReply* start(const std::string& url);
    /// Sends a GET and waits for its end.
    Answer get(const std::string& url);
    /// Waits for the end of a started request.
    static Answer finished(QNetworkReply* reply);

private:
    QNetworkAccessManager m_manager;
    QSslConfiguration m_tls;
};

/// Qt's WebSocket client, recording what arrives.
class StreamClient final {
public:
    /// Connects to the combined stream of those names ("btcusdt@miniTicker/…"), without waiting.
    StreamClient(const Simulator& simulator, const std::string& names);
    ~StreamClient() = default;
    StreamClient(const StreamClient&) = delete;
    StreamClient& operator=(const StreamClient&) = delete;
    StreamClient(StreamClient&&) = delete;
    StreamClient& operator=(StreamClient&&) = delete;

    /// Waits until the handshake is done; false when it is refused or the connection ends.
    bool opened();
    /// Waits until that many text messages have arrived in all; false when too few came before the
    /// connection ended.
    bool received(std::size_t count);
    /// Waits for the end of the connection.
    bool ended();

    std::vector<std::string> texts;
    std::vector<std::string> binaries;
    std::vector<std::string> pongs;
    QWebSocket socket;
    bool isOpen = false;
    bool hasEnded = false;

private:
    QObject m_context;
};

}  // namespace quillbar::simulator
