// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/ProxyFactory.h"

#include "QuillbarCore/runtime/Logger.h"

#include <QHostAddress>
#include <QNetworkProxyQuery>
#include <QRegularExpression>
#include <QUrl>

#include <initializer_list>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

struct Variable {
    QString name;
    QString value;
};

// Those of the names that have a value, each in lower and then in upper case.
std::vector<Variable> findVariables(const QProcessEnvironment& environment,
                                    std::initializer_list<QString> names) {
    std::vector<Variable> variables;
    for (const QString& lower : names) {
        for (const QString& name : {lower, lower.toUpper()}) {
            const QString value = environment.value(name).trimmed();
            if (!value.isEmpty()) {
                variables.push_back({name, value});
            }
        }
    }
    return variables;
}

std::optional<QNetworkProxy> parseProxy(const QString& value) {
    const bool hasScheme = value.contains(QLatin1String("://"));
    const QUrl url(hasScheme ? value : QLatin1String("http://") + value);
    const QString scheme = url.scheme();
    const bool isHttp = scheme == QLatin1String("http");
    const bool isSocks = scheme == QLatin1String("socks5") || scheme == QLatin1String("socks5h")
                         || scheme == QLatin1String("socks");
    if (!url.isValid() || url.host().isEmpty() || (!isHttp && !isSocks)) {
        return std::nullopt;
    }
    return QNetworkProxy(isHttp ? QNetworkProxy::HttpProxy : QNetworkProxy::Socks5Proxy,
                         url.host(),
                         static_cast<quint16>(url.port(isHttp ? 80 : 1080)),
                         url.userName(QUrl::FullyDecoded),
                         url.password(QUrl::FullyDecoded));
}

std::optional<QNetworkProxy> readProxy(const QProcessEnvironment& environment,
                                       const QString& ofScheme) {
    for (const Variable& variable :
         findVariables(environment, {ofScheme, QStringLiteral("all_proxy")})) {
        if (auto proxy = parseProxy(variable.value)) {
            return proxy;
        }
        Logger("Proxy").error("ignoring {}: not the URL of an http or socks5 proxy",
                              variable.name.toStdString());
    }
    return std::nullopt;
}

QStringList readExceptions(const QProcessEnvironment& environment) {
    static const QRegularExpression separators(QStringLiteral("[,\\s]+"));
    const auto variables = findVariables(environment, {QStringLiteral("no_proxy")});
    return variables.empty() ? QStringList{}
                             : variables.front().value.split(separators, Qt::SkipEmptyParts);
}

bool isLoopback(const QString& host) {
    return host == QLatin1String("localhost") || host.endsWith(QLatin1String(".localhost"))
           || QHostAddress(host).isLoopback();
}

bool isNetworkOf(const QString& exception, const QString& host) {
    const auto network = QHostAddress::parseSubnet(exception);
    return network.second >= 0 && QHostAddress(host).isInSubnet(network);
}

// The host of an exception without its port and its leading dot; empty when the port is another.
QString exceptedHost(QString exception, int port) {
    static const QRegularExpression portPattern(
        QStringLiteral("^(?:\\[([^]]*)\\]|([^:]*)):([0-9]+)$"));
    const auto match = portPattern.match(exception);
    if (match.hasMatch()) {
        if (match.captured(3).toInt() != port) {
            return {};
        }
        exception = match.captured(1) + match.captured(2);
    }
    if (exception.startsWith(QLatin1String("*."))) {
        exception.remove(0, 1);
    }
    return exception.startsWith(QLatin1Char('.')) ? exception.mid(1) : exception;
}

}  // namespace

ProxyFactory::ProxyFactory(const QProcessEnvironment& environment)
    : m_forPlain(readProxy(environment, QStringLiteral("http_proxy")))
    , m_forTLS(readProxy(environment, QStringLiteral("https_proxy")))
    , m_exceptions(readExceptions(environment)) {}

QList<QNetworkProxy> ProxyFactory::queryProxy(const QNetworkProxyQuery& query) {
    const QString host = query.peerHostName().toLower();
    if (isLoopback(host)) {
        return {QNetworkProxy::NoProxy};
    }
    const bool isPlain = query.protocolTag() == QLatin1String("http");
    const auto& proxy = isPlain ? m_forPlain : m_forTLS;
    if (proxy) {
        const int port = query.peerPort() > 0 ? query.peerPort() : (isPlain ? 80 : 443);
        return {isExcepted(host, port) ? QNetworkProxy::NoProxy : *proxy};
    }
    QUrl url = query.url();
    url.setScheme(isPlain ? QStringLiteral("http") : QStringLiteral("https"));
    url.setHost(host);
    url.setPort(query.peerPort());
    return systemProxyForQuery(QNetworkProxyQuery(url));
}

bool ProxyFactory::isExcepted(const QString& host, int port) const {
    for (const QString& exception : m_exceptions) {
        if (exception == QLatin1String("*") || isNetworkOf(exception, host)) {
            return true;
        }
        const QString name = exceptedHost(exception.toLower(), port);
        if (!name.isEmpty() && (host == name || host.endsWith(QLatin1Char('.') + name))) {
            return true;
        }
    }
    return false;
}

void installProxyFactory() {
    QNetworkProxyFactory::setApplicationProxyFactory(new ProxyFactory);
}

}  // namespace quillbar
