// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/AgeText.h"

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
        return QStringLiteral("刚刚更新");
    }
    const auto ago = [age](Seconds unit) { return static_cast<qint64>(age / unit); };
    const QString time = localTime(update, QStringLiteral("HH:mm:ss"));
    if (age < kHour) {
        return QStringLiteral("%1 分钟前更新（%2）").arg(ago(kMinute)).arg(time);
    }
    if (age < kDay) {
        return QStringLiteral("%1 小时前更新（%2）").arg(ago(kHour)).arg(time);
    }
    const QString date = localTime(update, QStringLiteral("yyyy-MM-dd"));
    return QStringLiteral("%1 天前更新（%2 %3）").arg(ago(kDay)).arg(date, time);
}

}  // namespace quillbar::AgeText
