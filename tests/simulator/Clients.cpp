// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/simulator/Clients.h"

#include "tests/qtsupport/SpinUntil.h"

#include <QNetworkProxy>
#include <QSslCertificate>

namespace quillbar::simulator {

namespace {

QUrl urlOf(const std::string& text) {
    return QUrl::fromEncoded(QByteArray::fromStdString(text), QUrl::StrictMode);
}

std::string headerOf(const QNetworkReply& reply, const char* name) {
    return reply.rawHeader(name).toStdString();
}

}  // namespace

QSslConfiguration trusting(const Simulator& simulator) {
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(
        QSslCertificate::fromData(QByteArray::fromStdString(simulator.caCertificatePem())));
    return configuration;
}

HttpClient::HttpClient(const Simulator& simulator)
    : m_tls(trusting(simulator)) {
    m_manager.setProxy(QNetworkProxy::NoProxy);
}

QNetworkReply* HttpClient::start(const std::string& url) {
    QNetworkRequest request(urlOf(url));
    request.setSslConfiguration(m_tls);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    return m_manager.get(request);
}

Answer HttpClient::finished(QNetworkReply* reply) {
    Answer answer;
    if (!spinUntil([reply] { return reply->isFinished(); })) {
        answer.error = QNetworkReply::TimeoutError;
        return answer;
    }
    answer.error = reply->error();
    answer.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    answer.body = reply->readAll().toStdString();
    answer.contentType = headerOf(*reply, "Content-Type");
    answer.retryAfter = headerOf(*reply, "Retry-After");
    answer.location = headerOf(*reply, "Location");
    return answer;
}

Answer HttpClient::get(const std::string& url) {
    return finished(start(url));
}

StreamClient::StreamClient(const Simulator& simulator, const std::string& names) {
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.setSslConfiguration(trusting(simulator));
    QObject::connect(&socket, &QWebSocket::connected, &m_context, [this] { isOpen = true; });
    QObject::connect(
        &socket, &QWebSocket::stateChanged, &m_context, [this](QAbstractSocket::SocketState state) {
            hasEnded = hasEnded || state == QAbstractSocket::UnconnectedState;
        });
    QObject::connect(
        &socket, &QWebSocket::textMessageReceived, &m_context, [this](const QString& t) {
            texts.push_back(t.toStdString());
        });
    QObject::connect(
        &socket, &QWebSocket::binaryMessageReceived, &m_context, [this](const QByteArray& bytes) {
            binaries.push_back(bytes.toStdString());
        });
    QObject::connect(
        &socket, &QWebSocket::pong, &m_context, [this](quint64, const QByteArray& bytes) {
            pongs.push_back(bytes.toStdString());
        });
    socket.open(urlOf(simulator.streamBase() + "/stream?streams=" + names));
}

bool StreamClient::opened() {
    // Qt 6.4 tells of a refused upgrade by its text alone, without an end of the connection.
    const auto decided = [this, before = socket.errorString()] {
        return isOpen || hasEnded || socket.errorString() != before;
    };
    return spinUntil(decided) && isOpen;
}

bool StreamClient::received(std::size_t count) {
    return spinUntil([this, count] { return texts.size() >= count || hasEnded; })
           && texts.size() >= count;
}

bool StreamClient::ended() {
    return spinUntil([this] { return hasEnded; });
}

}  // namespace quillbar::simulator
