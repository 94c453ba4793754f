// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/AlertText.h"

#include "Quillbar/platform/Translated.h"
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

QString repetition(const Alert& alert) {
    return (isRising(alert.kind) ? translated("text", "重复（回落 %1 后）")
                                 : translated("text", "重复（回升 %1 后）"))
        .arg(marginText(alert));
}

// What must come before it waits for its line again.
QString rearming(const Alert& alert) {
    if (alert.margin) {
        return (isRising(alert.kind) ? translated("text", "回落到 %1 后生效")
                                     : translated("text", "回升到 %1 后生效"))
            .arg(amount(alert.kind, alert.rearmLevel()));
    }
    return (isRising(alert.kind) ? translated("text", "低于 %1 后生效")
                                 : translated("text", "高于 %1 后生效"))
        .arg(amount(alert.kind, alert.threshold));
}

}  // namespace

QString condition(AlertKind kind, double threshold) {
    const QString value = amount(kind, threshold);
    if (watchesPrice(kind)) {
        return (isRising(kind) ? translated("text", "价格 ≥ %1") : translated("text", "价格 ≤ %1"))
            .arg(value);
    }
    return (isRising(kind) ? translated("text", "24 小时涨跌 ≥ %1")
                           : translated("text", "24 小时涨跌 ≤ %1"))
        .arg(value);
}

QString description(const Alert& alert) {
    return condition(alert.kind, alert.threshold) + QStringLiteral(" · ") + manner(alert);
}

QString manner(const Alert& alert) {
    QString text = alert.margin ? repetition(alert) : translated("text", "仅一次");
    if (!alert.note.empty()) {
        text += QStringLiteral(" · ") + OneLineText::of(alert.note);
    }
    return text;
}

QString state(const Alert& alert) {
    if (!alert.isOn) {
        return translated("text", "已关闭");
    }
    if (alert.isArmed) {
        return translated("text", "等待触发");
    }
    return rearming(alert);
}

QString title(const FiredAlert& fired) {
    const QString coin = OneLineText::of(fired.alert.baseAsset);
    const QString line = condition(fired.alert.kind, fired.alert.threshold);
    if (!fired.isMeanwhile) {
        return coin + u' ' + line;
    }
    return watchesPrice(fired.alert.kind) ? translated("text", "%1 期间%2").arg(coin, line)
                                          : translated("text", "%1 期间 %2").arg(coin, line);
}

QString details(const FiredAlert& fired) {
    QString text = translated("text", "当时 %1，24 小时 %2")
                       .arg(QString::fromStdString(PriceFormatter::price(fired.price)),
                            QString::fromStdString(PriceFormatter::percent(fired.changePercent)));
    if (fired.isMeanwhile) {
        text = translated("text", "在休眠、断线或未运行期间越过。%1").arg(text);
    }
    if (!fired.alert.note.empty()) {
        text += u'\n' + OneLineText::of(fired.alert.note);
    }
    return text;
}

}  // namespace quillbar::AlertText
