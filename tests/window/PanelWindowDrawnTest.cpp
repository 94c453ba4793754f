// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Theme.h"
#include "Quillbar/window/PanelWindow.h"
#include "tests/qtsupport/Ink.h"
#include "tests/window/PanelWindowFixture.h"

#include <QPainter>
#include <QPen>

#include <gtest/gtest.h>

#include <chrono>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using AskedBy = PanelWindow::AskedBy;

using PanelWindowDrawnTest = PanelWindowFixture;

TEST_F(PanelWindowDrawnTest, isDrawnInTheContentsTheme) {
    ThemeKey::set(*m_content, {.colors = ThemeColors::light()});
    clickItem();
    const QImage picture = m_window.grab().toImage();
    EXPECT_EQ(picture.pixelColor(200, 150), ThemeColors::light().surface);
}

TEST_F(PanelWindowDrawnTest, hasCornersRoundByTenPointsAndAnEdgeOfOne) {
    clickItem();
    const ThemeColors::Resolved& colors = ThemeColors::dark();
    QImage expected(400, 300, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    {
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.surface);
        painter.drawRoundedRect(QRectF(0, 0, 400, 300), 10, 10);
        painter.setPen(QPen(colors.separator, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(0.5, 0.5, 399, 299), 9.5, 9.5);
    }
    EXPECT_LE(difference(m_window.grab().toImage(), expected), 2);
}

TEST_F(PanelWindowDrawnTest, fillsItsCornersWhereTheyAreCut) {
    clickItem();
    m_window.setMask(m_window.rect());
    const QImage picture = m_window.grab().toImage();
    EXPECT_EQ(picture.pixelColor(0, 0), ThemeColors::dark().surface);
    EXPECT_EQ(picture.pixelColor(399, 299), ThemeColors::dark().surface);
}

}  // namespace

}  // namespace quillbar
