// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/Widgets.h"

#include <QImage>
#include <QPainter>
#include <QSize>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>

namespace quillbar {

/// What views are built of looks in a dark window like this, beside drawings by the test.
struct BlocksDrawnFixture : testing::Test {
    BlocksDrawnFixture() { window.resize(400, 300); }

    [[nodiscard]] QImage drawn(const QSize& size,
                               const std::function<void(QPainter&)>& draw) const {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        draw(painter);
        return image;
    }
    static void underPointer(QWidget& widget) { widget.setAttribute(Qt::WA_UnderMouse); }

    QWidget window;
    ThemeColors::Resolved colors = ThemeColors::dark();
};

}  // namespace quillbar
