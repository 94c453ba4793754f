// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/StatusImage.h"

#include <QtEndian>

namespace quillbar {

StatusImage StatusImage::of(const QImage& image) {
    const QImage straight = image.convertToFormat(QImage::Format_ARGB32);
    StatusImage result{straight.width(), straight.height()};
    for (int y = 0; y < straight.height(); ++y) {
        for (int x = 0; x < straight.width(); ++x) {
            const auto pixel = qToBigEndian<quint32>(straight.pixel(x, y));
            result.data.append(reinterpret_cast<const char*>(&pixel), sizeof pixel);
        }
    }
    return result;
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusImage& image) {
    argument.beginStructure();
    argument << image.width << image.height << image.data;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusImage& image) {
    argument.beginStructure();
    argument >> image.width >> image.height >> image.data;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusTooltip& tooltip) {
    argument.beginStructure();
    argument << tooltip.iconName << tooltip.iconPixmap << tooltip.title << tooltip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusTooltip& tooltip) {
    argument.beginStructure();
    argument >> tooltip.iconName >> tooltip.iconPixmap >> tooltip.title >> tooltip.text;
    argument.endStructure();
    return argument;
}

}  // namespace quillbar
