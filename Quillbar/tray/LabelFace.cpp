// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/LabelFace.h"

#include "Quillbar/labelstate/ConnectionName.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/tray/ShortNumbers.h"

#include <QDateTime>
#include <QStringList>

#include <chrono>

namespace quillbar {

namespace {

constexpr Seconds kMinute{60};
constexpr Seconds kHour{3600};
constexpr Seconds kDay{86400};

constexpr qsizetype kLongestText = 64;

// A long base asset is cut in the middle of the label: the price behind it stays. Never between the
// halves of a character.
QString shortened(const QString& text) {
    if (text.size() <= kLongestText) {
        return text;
    }
    QString head = text.left(kLongestText / 2);
    if (head.back().isHighSurrogate()) {
        head.chop(1);
    }
    QString tail = text.right(kLongestText / 2 - 1);
    if (tail.front().isLowSurrogate()) {
        tail.remove(0, 1);
    }
    return head + u'…' + tail;
}

QString localTime(TimePoint instant, const QString& format) {
    const auto sinceEpoch =
        std::chrono::floor<std::chrono::milliseconds>(instant.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.count()).toString(format);
}

QString ageText(Seconds age, TimePoint update) {
    if (age < kMinute) {
        return QStringLiteral("刚刚更新");
    }
    const auto ago = [age](Seconds unit) { return static_cast<qint64>(age / unit); };
    const QString time = localTime(update, QStringLiteral("HH:mm:ss"));
    if (age < kHour) {
        return QStringLiteral("%1 分钟前更新 (%2)").arg(ago(kMinute)).arg(time);
    }
    if (age < kDay) {
        return QStringLiteral("%1 小时前更新 (%2)").arg(ago(kHour)).arg(time);
    }
    const QString date = localTime(update, QStringLiteral("yyyy-MM-dd"));
    return QStringLiteral("%1 天前更新 (%2 %3)").arg(ago(kDay)).arg(date, time);
}

QString detailsOf(const LabelSnapshot& snapshot, TimePoint now) {
    QStringList lines;
    lines << (snapshot.lastUpdate ? ageText(now - *snapshot.lastUpdate, *snapshot.lastUpdate)
                                  : QStringLiteral("尚无数据"));
    const std::string_view connection = displayName(snapshot.visibleConnection());
    lines << QString::fromUtf8(connection.data(), static_cast<qsizetype>(connection.size()));
    if (snapshot.failure) {
        lines << OneLineText::of(*snapshot.failure);
    }
    if (snapshot.lastError) {
        lines << OneLineText::of(*snapshot.lastError);
    }
    return lines.join(u'\n');
}

LabelDirection directionOf(const LabelSnapshot& snapshot) {
    if (snapshot.isStale) {
        return LabelDirection::stale;
    }
    const double change = snapshot.changePercent.value_or(0);
    if (change > 0) {
        return LabelDirection::up;
    }
    return change < 0 ? LabelDirection::down : LabelDirection::flat;
}

}  // namespace

LabelFace LabelFace::of(const LabelSnapshot& snapshot, TimePoint now) {
    LabelFace face;
    // Some hosts hide an item whose label is empty.
    if (const QString text = shortened(OneLineText::of(snapshot.text)); !text.trimmed().isEmpty()) {
        face.text = text;
    }
    if (snapshot.coin) {
        face.symbol = shortened(OneLineText::of(snapshot.coin->baseAsset));
    }
    if (snapshot.showsPrice()) {
        face.shortPrice = QString::fromStdString(ShortNumbers::price(snapshot.ticker->lastPrice));
        if (snapshot.changePercent) {
            face.shortChange =
                QString::fromStdString(ShortNumbers::change(*snapshot.changePercent));
        }
    }
    face.direction = directionOf(snapshot);
    face.details = detailsOf(snapshot, now);
    return face;
}

}  // namespace quillbar
