// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/LabelFace.h"

#include "Quillbar/labelstate/ConnectionName.h"
#include "Quillbar/labelstate/LabelWords.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/AgeText.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/text/PinHint.h"
#include "Quillbar/tray/ShortNumbers.h"
#include "QuillbarCore/model/PriceFormatter.h"

#include <QStringList>

#include <algorithm>
#include <string>

namespace quillbar {

namespace {

constexpr qsizetype kLongestText = 64;

// If a base asset is long, the label is cut in its middle, so that the price at the end stays. It
// is never cut between the halves of a character.
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

// The age of the stream's last price, and before it the age of the pinned coin's own price. That
// may be older, because some coins get no prices while others do.
QStringList agesOf(const LabelSnapshot& snapshot, TimePoint now) {
    if (!snapshot.lastUpdate) {
        return {translated("tray", "尚无数据")};
    }
    const QString age = AgeText::of(*snapshot.lastUpdate, now);
    const auto& own = snapshot.coinUpdate;
    const bool isBehind =
        own && now - *own >= AgeText::kLive && *snapshot.lastUpdate - *own >= AgeText::kLive;
    if (!snapshot.quote.coin || (snapshot.quote.ticker && !isBehind)) {
        return {age};
    }
    const QString coin = shortened(OneLineText::of(snapshot.quote.coin->baseAsset));
    const QString ownAge =
        snapshot.quote.ticker ? AgeText::of(*own, now) : translated("tray", "尚无数据");
    return {translated("tray", "%1 的价格 %2").arg(coin, ownAge),
            translated("tray", "其他行情 %1").arg(age)};
}

// Nobody would call a connection sound over which no prices come.
std::string connectionOf(const LabelSnapshot& snapshot, TimePoint now) {
    const ConnectionState connection = snapshot.visibleConnection();
    const bool isSilent = connection == ConnectionState::connected && snapshot.lastUpdate
                          && now - *snapshot.lastUpdate >= AgeText::kLive;
    return isSilent ? silentConnectionName() : displayName(connection);
}

// Replaces each digit by the widest one.
QString withWideDigits(QString text) {
    std::replace_if(
        text.begin(),
        text.end(),
        [](QChar character) { return character >= u'0' && character <= u'9'; },
        QChar(u'8'));
    return text;
}

// Without the reason of a failure, which may name a number.
QString discreetDetailsOf(const LabelSnapshot& snapshot, TimePoint now) {
    QStringList lines{translated("tray", "数字已隐藏"),
                      QString::fromStdString(connectionOf(snapshot, now))};
    if (snapshot.lastError) {
        lines << OneLineText::of(*snapshot.lastError);
    }
    return lines.join(u'\n');
}

QString detailsOf(const LabelSnapshot& snapshot, TimePoint now) {
    QStringList lines;
    if (!snapshot.quote.coin) {
        lines << pinHint();
    }
    lines << agesOf(snapshot, now);
    lines << QString::fromStdString(connectionOf(snapshot, now));
    if (snapshot.failure) {
        lines << OneLineText::of(*snapshot.failure);
    }
    if (snapshot.lastError) {
        lines << OneLineText::of(*snapshot.lastError);
    }
    return lines.join(u'\n');
}

void setWording(LabelFace& face, const LabelWords& words) {
    face.worded = shortened(OneLineText::of(words.text));
    if (face.worded.trimmed().isEmpty() || face.worded == face.text) {
        face.worded.clear();
    }
    face.change = OneLineText::of(words.change);
    face.showsSymbol = words.showsSymbol;
    face.showsPrice = words.showsPrice;
    face.showsChange = words.showsChange;
    const bool isLive = face.direction != LabelDirection::stale;
    if (!face.showsChange && isLive) {
        face.direction = LabelDirection::flat;
    }
}

}  // namespace

LabelFace LabelFace::of(const LabelSnapshot& snapshot,
                        TimePoint now,
                        ChangeColors changeColors,
                        const LabelPreferences& label) {
    LabelFace face;
    face.changeColors = changeColors;
    if (snapshot.isDiscreet) {
        face.isDiscreet = true;
        face.details = discreetDetailsOf(snapshot, now);
        return face;
    }
    // Some hosts hide an item whose label is empty.
    if (const QString text = shortened(OneLineText::of(snapshot.text)); !text.trimmed().isEmpty()) {
        face.text = text;
    }
    const PinnedQuote& quote = snapshot.quote;
    if (quote.coin) {
        face.symbol = shortened(OneLineText::of(quote.coin->baseAsset));
    }
    if (quote.showsPrice()) {
        face.shortPrice = QString::fromStdString(ShortNumbers::price(quote.ticker->lastPrice));
        if (const auto& percent = quote.changePercent) {
            face.shortChange = QString::fromStdString(ShortNumbers::change(*percent));
            face.change = QString::fromStdString(PriceFormatter::menuBarChange(percent));
        }
    }
    face.direction = quote.direction();
    if (label.wording != LabelWording::symbolPriceChange) {
        setWording(face, LabelWords::of(quote, label));
    }
    // If the text was cut within the change, there is no arrow.
    if (!face.label().endsWith(face.change)) {
        face.change.clear();
    }
    face.details = detailsOf(snapshot, now);
    if (!snapshot.beside.empty()) {
        setRow(face, snapshot, label);
    }
    return face;
}

void LabelFace::setRow(LabelFace& face,
                       const LabelSnapshot& snapshot,
                       const LabelPreferences& label) {
    const QString gap = QStringLiteral("  ");
    face.row = face.label();
    face.rowGuide = face.guide();
    for (const PinnedQuote& quote : snapshot.beside) {
        const LabelFace other =
            of({.text = quote.text(), .quote = quote}, kDistantPast, face.changeColors, label);
        face.row += gap + other.label();
        face.rowGuide += gap + other.guide();
        face.beside.push_back({other.label(), other.change, other.direction});
    }
}

QString LabelFace::guide() const {
    if (change.isEmpty()) {
        return withWideDigits(label());
    }
    // An arrow is wider than the point for no change, and a digit is wider than a space.
    QString number = change;
    for (const QChar mark : {u'▼', u'·'}) {
        number.replace(mark, u'▲');
    }
    number.replace(u' ', u'8').replace(u'-', u'+');
    return withWideDigits(label().chopped(change.size())) + withWideDigits(number);
}

}  // namespace quillbar
