// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/AlertText.h"

#include "Quillbar/text/OneLineText.h"
#include "QuillbarCore/model/PriceFormatter.h"

namespace quillbar::AlertText {

namespace {

QString amount(AlertKind kind, double value) {
    return QString::fromStdString(watchesPrice(kind) ? PriceFormatter::price(value)
                                                     : PriceFormatter::percent(value));
}

// A margin has no sign.
QString marginText(const Alert& alert) {
    const QString text = amount(alert.kind, *alert.margin);
    return text.startsWith(u'+') ? text.mid(1) : text;
}

}  // namespace

QString condition(AlertKind kind, double threshold) {
    return (watchesPrice(kind) ? QStringLiteral("价格 ") : QStringLiteral("24 小时涨跌 "))
           + (isRising(kind) ? QStringLiteral("≥ ") : QStringLiteral("≤ "))
           + amount(kind, threshold);
}

QString description(const Alert& alert) {
    QString text = condition(alert.kind, alert.threshold);
    if (alert.margin) {
        text += QStringLiteral(" · 重复(%1 %2 后)")
                    .arg(isRising(alert.kind) ? QStringLiteral("回落") : QStringLiteral("回升"),
                         marginText(alert));
    } else {
        text += QStringLiteral(" · 仅一次");
    }
    if (!alert.note.empty()) {
        text += QStringLiteral(" · ") + OneLineText::of(alert.note);
    }
    return text;
}

QString title(const FiredAlert& fired) {
    return OneLineText::of(fired.alert.baseAsset)
           + (fired.isMeanwhile ? QStringLiteral(" 期间") : QStringLiteral(" "))
           + condition(fired.alert.kind, fired.alert.threshold);
}

QString details(const FiredAlert& fired) {
    QString text = QStringLiteral("当时 %1,24 小时 %2")
                       .arg(QString::fromStdString(PriceFormatter::price(fired.price)),
                            QString::fromStdString(PriceFormatter::percent(fired.changePercent)));
    if (fired.isMeanwhile) {
        text = QStringLiteral("在休眠、断线或未运行期间越过。") + text;
    }
    if (!fired.alert.note.empty()) {
        text += u'\n' + OneLineText::of(fired.alert.note);
    }
    return text;
}

}  // namespace quillbar::AlertText
