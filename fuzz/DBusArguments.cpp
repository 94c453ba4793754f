// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/DBusArguments.h"

#include "Quillbar/tray/MenuMessages.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace quillbar {

namespace {

constexpr std::string_view kTypes = "iusbdvSIVMEy";
constexpr std::array kTelling{std::numeric_limits<int>::min(),
                              std::numeric_limits<int>::min() + 1,
                              -1,
                              0,
                              1,
                              3,
                              4,
                              5,
                              std::numeric_limits<int>::max()};
constexpr std::size_t kLongestList = 7;
constexpr int kDeepest = 4;

}  // namespace

std::uint8_t DBusArguments::number() {
    if (m_rest.empty()) {
        return 0;
    }
    const auto first = static_cast<std::uint8_t>(m_rest.front());
    m_rest.remove_prefix(1);
    return first;
}

QVariantList DBusArguments::of(std::string_view types) {
    QVariantList values;
    for (const char type : types) {
        values.push_back(value(type, 0));
    }
    return values;
}

QVariantList DBusArguments::any() {
    QVariantList values;
    for (std::size_t left = count(0); left > 0; --left) {
        values.push_back(anyValue(0));
    }
    return values;
}

std::size_t DBusArguments::count(int depth) {
    return depth < kDeepest ? number() % (kLongestList + 1) : 0;
}

int DBusArguments::integer() {
    const std::uint8_t choice = number();
    if (choice < kTelling.size()) {
        return kTelling.at(choice);
    }
    std::array<char, sizeof(int)> bytes{};
    for (char& each : bytes) {
        each = static_cast<char>(number());
    }
    int result = 0;
    std::memcpy(&result, bytes.data(), sizeof result);
    return result;
}

QString DBusArguments::text() {
    const std::size_t size = std::min<std::size_t>(number(), m_rest.size());
    QString result = QString::fromUtf8(m_rest.data(), static_cast<qsizetype>(size));
    m_rest.remove_prefix(size);
    return result;
}

QVariant DBusArguments::anyValue(int depth) {
    return value(kTypes[number() % kTypes.size()], depth);
}

// NOLINTNEXTLINE(misc-no-recursion): bounded by kDeepest
QVariant DBusArguments::value(char type, int depth) {
    switch (type) {
    case 'i':
        return integer();
    case 'u':
        return static_cast<uint>(integer());
    case 'b':
        return number() % 2 == 1;
    case 'd':
        return static_cast<double>(integer()) / 1000;
    case 'v':
        return QVariant::fromValue(
            QDBusVariant(depth < kDeepest ? anyValue(depth + 1) : QVariant(0)));
    case 'S': {
        QStringList texts;
        for (std::size_t left = count(depth); left > 0; --left) {
            texts.push_back(text());
        }
        return texts;
    }
    case 'I': {
        QList<int> numbers;
        for (std::size_t left = count(depth); left > 0; --left) {
            numbers.push_back(integer());
        }
        return QVariant::fromValue(numbers);
    }
    case 'V': {
        QVariantList values;
        for (std::size_t left = count(depth); left > 0; --left) {
            values.push_back(anyValue(depth + 1));
        }
        return values;
    }
    case 'M': {
        QVariantMap values;
        for (std::size_t left = count(depth); left > 0; --left) {
            const QString key = number() % 2 == 0 ? QStringLiteral("activation-token") : text();
            values.insert(key, anyValue(depth + 1));
        }
        return values;
    }
    case 'E': {
        QList<MenuEvent> events;
        for (std::size_t left = count(depth); left > 0; --left) {
            const int id = integer();
            const QString name = number() % 2 == 0 ? QStringLiteral("clicked") : text();
            events.push_back({.id = id, .type = name, .data = QDBusVariant(anyValue(depth + 1))});
        }
        return QVariant::fromValue(events);
    }
    case 'y':
        return text().toUtf8();
    default:
        return text();
    }
}

}  // namespace quillbar
