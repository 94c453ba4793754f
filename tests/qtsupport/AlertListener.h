// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/ApplicationNames.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <vector>

namespace quillbar {

/// Another program, which hears what fires.
class AlertListener final : public QObject {
    Q_OBJECT

public:
    explicit AlertListener(QDBusConnection bus) {
        EXPECT_TRUE(bus.connect(QString(),
                                QString::fromLatin1(ApplicationNames::kObjectPath),
                                QString::fromLatin1(ApplicationNames::kAlertsInterface),
                                QStringLiteral("AlertFired"),
                                this,
                                SLOT(alertFired(QVariantMap))));
    }

    std::vector<QVariantMap> heard;

private:
    Q_SLOT void alertFired(const QVariantMap& alert) { heard.push_back(alert); }
};

}  // namespace quillbar
