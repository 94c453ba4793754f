// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/services/ServiceEndpoints.h"

#include "Quillbar/platform/Formatted.h"
#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/exchange/BinanceEndpoints.h"

#include <QHostAddress>
#include <QLatin1String>
#include <QString>
#include <QUrl>

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace quillbar {

namespace {

constexpr std::string_view kMarketCapEndpoint = "https://api.coingecko.com/api/v3";
constexpr std::string_view kIconEndpoint = "https://bin.bnbstatic.com/static/assets/logos";

struct Schemes {
    QLatin1String encrypted;
    QLatin1String plain;
};

constexpr Schemes kHTTP{QLatin1String("https"), QLatin1String("http")};
constexpr Schemes kWebSocket{QLatin1String("wss"), QLatin1String("ws")};

bool isLoopback(const QString& host) {
    if (host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0) {
        return true;
    }
    const QHostAddress address(host);
    return !address.isNull() && address.isLoopback();
}

// What the user typed, on one line whatever it holds.
std::string inQuotes(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return line;
}

std::string baseURL(std::string_view variable, std::string_view text, const Schemes& schemes) {
    const auto fail = [&](const QString& reason) {
        throw EndpointError(formatted(
            translated("services", "{}:「{}」{}"), variable, inQuotes(text), reason.toStdString()));
    };
    const QString typed = QString::fromUtf8(text).trimmed();
    const QUrl url(typed, QUrl::StrictMode);
    if (!url.isValid() || url.isRelative() || url.host().isEmpty()
        || typed.contains(QLatin1Char(','))) {
        fail(translated("services", "不是有效的网址"));
    }
    if (url.hasQuery() || url.hasFragment() || typed.contains(QLatin1Char('@'))) {
        fail(translated("services", "不能带有参数、片段或账号"));
    }
    const QString scheme = url.scheme();
    if (scheme != schemes.encrypted && scheme != schemes.plain) {
        fail(translated("services", "必须以 %1:// 开头").arg(schemes.encrypted));
    }
    if (scheme == schemes.plain && !isLoopback(url.host())) {
        fail(translated("services", "只有本机地址可以使用 %1://").arg(schemes.plain));
    }
    std::string base = url.toString(QUrl::FullyEncoded).toStdString();
    while (base.ends_with('/')) {
        base.pop_back();
    }
    return base;
}

std::vector<std::string> baseURLs(std::string_view variable,
                                  std::string_view list,
                                  const Schemes& schemes) {
    std::vector<std::string> bases;
    for (;;) {
        const std::size_t comma = list.find(',');
        bases.push_back(baseURL(variable, list.substr(0, comma), schemes));
        if (comma == std::string_view::npos) {
            return bases;
        }
        list.remove_prefix(comma + 1);
    }
}

}  // namespace

ServiceEndpoints ServiceEndpoints::production() {
    return {
        .rest = BinanceEndpoints::rest(),
        .stream = BinanceEndpoints::stream(),
        .marketCap = std::string(kMarketCapEndpoint),
        .icon = std::string(kIconEndpoint),
    };
}

ServiceEndpoints ServiceEndpoints::fromEnvironment(const Variables& variables) {
    ServiceEndpoints endpoints = production();
    const auto override = [&](const char* name, auto apply) {
        const std::optional<std::string> value = variables(name);
        if (value && !value->empty()) {
            apply(name, *value);
        }
    };
    override("QUILLBAR_REST_ENDPOINTS", [&](const char* name, const std::string& value) {
        endpoints.rest = baseURLs(name, value, kHTTP);
    });
    override("QUILLBAR_STREAM_ENDPOINTS", [&](const char* name, const std::string& value) {
        endpoints.stream = baseURLs(name, value, kWebSocket);
    });
    override("QUILLBAR_MARKETCAP_ENDPOINT", [&](const char* name, const std::string& value) {
        endpoints.marketCap = baseURL(name, value, kHTTP);
    });
    override("QUILLBAR_ICON_ENDPOINT", [&](const char* name, const std::string& value) {
        endpoints.icon = baseURL(name, value, kHTTP);
    });
    override("QUILLBAR_CA_FILE", [&](const char* /*name*/, const std::string& value) {
        endpoints.certificateAuthorityFile = value;
    });
    return endpoints;
}

ServiceEndpoints::Variables processEnvironment() {
    return [](const char* name) -> std::optional<std::string> {
        const char* const value = std::getenv(name);
        if (value == nullptr) {
            return std::nullopt;
        }
        return value;
    };
}

}  // namespace quillbar
