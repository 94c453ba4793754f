// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/AlertService.h"

#include <QString>

#include <algorithm>
#include <string_view>

namespace quillbar {

namespace {

QString textOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

QVariantMap alertMessage(const FiredAlert& fired) {
    const Alert& alert = fired.alert;
    return {{QStringLiteral("symbol"), textOf(alert.symbol)},
            {QStringLiteral("baseAsset"), textOf(alert.baseAsset)},
            {QStringLiteral("condition"), textOf(rawValue(alert.kind))},
            {QStringLiteral("threshold"), alert.threshold},
            {QStringLiteral("price"), fired.price},
            {QStringLiteral("changePercent"), fired.changePercent},
            {QStringLiteral("note"), textOf(alert.note)},
            {QStringLiteral("when"), static_cast<qlonglong>(fired.time)},
            {QStringLiteral("meanwhile"), fired.isMeanwhile}};
}

AlertService::AlertService(AlertAdaptor& adaptor, const Observed<std::vector<FiredAlert>>& fired)
    : m_adaptor(adaptor) {
    for (const FiredAlert& each : *fired) {
        m_last = std::max(m_last, each.serial);
    }
    m_observation = fired.observe([this](const std::vector<FiredAlert>& now) { tell(now); });
}

void AlertService::tell(const std::vector<FiredAlert>& fired) {
    for (const FiredAlert& each : fired) {
        if (each.serial > m_last) {
            m_last = each.serial;
            Q_EMIT m_adaptor.AlertFired(alertMessage(each));
        }
    }
}

}  // namespace quillbar
