// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/AgeText.h"

#include "Quillbar/platform/Translated.h"

#include <QDateTime>

#include <chrono>

namespace quillbar::AgeText {

namespace {

constexpr Seconds kMinute{60};
constexpr Seconds kHour{3600};
constexpr Seconds kDay{86400};

QString localTime(TimePoint instant, const QString& format) {
    const auto sinceEpoch =
        std::chrono::floor<std::chrono::milliseconds>(instant.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.count()).toString(format);
}

}  // namespace

QString of(TimePoint update, TimePoint now) {
    const Seconds age = now - update;
    if (age < kLive) {
        return translated("text", "刚刚更新");
    }
    const auto ago = [age](Seconds unit) { return static_cast<int>(age / unit); };
    const QString time = localTime(update, QStringLiteral("HH:mm:ss"));
    if (age < kHour) {
        return translated("text", "%n 分钟前更新（%1）", nullptr, ago(kMinute)).arg(time);
    }
    if (age < kDay) {
        return translated("text", "%n 小时前更新（%1）", nullptr, ago(kHour)).arg(time);
    }
    const QString date = localTime(update, QStringLiteral("yyyy-MM-dd"));
    return translated("text", "%n 天前更新（%1 %2）", nullptr, ago(kDay)).arg(date, time);
}

}  // namespace quillbar::AgeText
