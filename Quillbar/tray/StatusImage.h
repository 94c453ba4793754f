// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QImage>
#include <QList>
#include <QMetaType>

namespace quillbar {

/// A picture in the form for D-Bus, (iiay).
struct StatusImage final {
    /// In pixels.
    int width = 0;
    int height = 0;
    /// ARGB, 32 bits a pixel, the most significant byte first, colours not multiplied by alpha.
    QByteArray data = {};

    [[nodiscard]] bool operator==(const StatusImage&) const = default;

    [[nodiscard]] static StatusImage of(const QImage& image);
};

using StatusImages = QList<StatusImage>;

/// A tooltip in the form for D-Bus, (sa(iiay)ss).
struct StatusTooltip final {
    QString iconName = {};
    StatusImages iconPixmap = {};
    QString title = {};
    QString text = {};

    [[nodiscard]] bool operator==(const StatusTooltip&) const = default;
};

QDBusArgument& operator<<(QDBusArgument& argument, const StatusImage& image);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusImage& image);
QDBusArgument& operator<<(QDBusArgument& argument, const StatusTooltip& tooltip);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusTooltip& tooltip);

}  // namespace quillbar

Q_DECLARE_METATYPE(quillbar::StatusImage)
Q_DECLARE_METATYPE(quillbar::StatusTooltip)
