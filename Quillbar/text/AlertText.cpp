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

QString wayBack(AlertKind kind) {
    return isRising(kind) ? QStringLiteral("回落") : QStringLiteral("回升");
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
    return condition(alert.kind, alert.threshold) + QStringLiteral(" · ") + manner(alert);
}

QString manner(const Alert& alert) {
    QString text =
        alert.margin
            ? QStringLiteral("重复（%1 %2 后）").arg(wayBack(alert.kind), marginText(alert))
            : QStringLiteral("仅一次");
    if (!alert.note.empty()) {
        text += QStringLiteral(" · ") + OneLineText::of(alert.note);
    }
    return text;
}

QString state(const Alert& alert) {
    if (!alert.isOn) {
        return QStringLiteral("已关闭");
    }
    if (alert.isArmed) {
        return QStringLiteral("等待触发");
    }
    if (alert.margin) {
        return wayBack(alert.kind) + QStringLiteral("到 ") + amount(alert.kind, alert.rearmLevel())
               + QStringLiteral(" 后生效");
    }
    return (isRising(alert.kind) ? QStringLiteral("低于 ") : QStringLiteral("高于 "))
           + amount(alert.kind, alert.threshold) + QStringLiteral(" 后生效");
}

QString title(const FiredAlert& fired) {
    const QString meanwhile =
        watchesPrice(fired.alert.kind) ? QStringLiteral(" 期间") : QStringLiteral(" 期间 ");
    return OneLineText::of(fired.alert.baseAsset)
           + (fired.isMeanwhile ? meanwhile : QStringLiteral(" "))
           + condition(fired.alert.kind, fired.alert.threshold);
}

QString details(const FiredAlert& fired) {
    QString text = QStringLiteral("当时 %1，24 小时 %2")
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
