// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/EntryMenu.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/LiftedSurface.h"
#include "Quillbar/widgets/PanelMenu.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/Widgets.h"

#include <QAction>
#include <QFontMetrics>
#include <QKeySequence>
#include <QPixmap>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace quillbar {
namespace {

const QString kLabel = QStringLiteral("跟随系统");

/// A dark menu, whose entries are compared with drawings of what they should be.
struct PanelMenuSizesTest : ::testing::Test {
    PanelMenuSizesTest() { ThemeKey::set(window, {.colors = colors}); }

    void fill(const std::vector<MenuEntry>& entries) {
        fillMenu(menu, entries, [](int /*id*/) {});
        open();
    }
    void open() { menu.popup(QPoint(50, 50)); }

    [[nodiscard]] QRect place(int index) const {
        return menu.actionGeometry(menu.actions().at(index));
    }
    /// What is shown of an entry; but for the round corners, which reach into the first and the
    /// last.
    [[nodiscard]] QImage picture(int index) {
        QImage image = menu.grab(place(index)).toImage();
        QPainter painter(&image);
        for (const int x : {0, image.width() - 2}) {
            for (const int y : {0, image.height() - 3}) {
                painter.fillRect(x, y, 2, 3, LiftedSurface::color(colors));
            }
        }
        return image;
    }

    /// An entry as wide and high as one of the menu, drawn by the test on the menu's ground.
    QImage drawnLike(int index, const std::function<void(QPainter& painter, QSize size)>& draw) {
        QImage image(place(index).size(), QImage::Format_RGB32);
        image.fill(LiftedSurface::color(colors));
        QPainter painter(&image);
        painter.setFont(systemFont(13));
        painter.setPen(colors.primaryText);
        draw(painter, image.size());
        return image;
    }
    /// A label between the column of the marks and that of the arrows.
    static void drawLabel(QPainter& painter, QSize size, const QString& label = kLabel) {
        painter.drawText(QRect(28, 0, size.width() - 48, size.height()),
                         Qt::AlignLeft | Qt::AlignVCenter,
                         label);
    }

    ThemeColors::Resolved colors = ThemeColors::dark();
    QWidget window;
    PanelMenu menu{&window};
};

TEST_F(PanelMenuSizesTest, anEntryIsItsTextWithColumnsAtItsSidesAndFivePointsAboveAndBelow) {
    fill({MenuEntry{.id = 1, .label = kLabel}});
    const QFontMetrics metrics(systemFont(13));
    const QRect text = metrics.boundingRect(
        QRect(0, 0, 190, 0), Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextWrapAnywhere, kLabel);
    // Inside a frame of one point, and five points from the menu's top.
    EXPECT_EQ(place(0), QRect(1, 6, 28 + text.width() + 20, std::max(16, text.height()) + 10));
    EXPECT_EQ(menu.height(), place(0).height() + 2 * 6);
    EXPECT_LE(difference(picture(0),
                         drawnLike(0, [](auto& painter, QSize size) { drawLabel(painter, size); })),
              1);
}

TEST_F(PanelMenuSizesTest, aDividerIsOnePointInTheMiddleOfNine) {
    fill({MenuEntry{.id = 1, .label = kLabel},
          MenuEntry{.id = 2, .kind = MenuEntry::Kind::separator},
          MenuEntry{.id = 3, .label = kLabel}});
    EXPECT_EQ(place(1).height(), 9);
    EXPECT_EQ(place(1).width(), place(0).width());
    EXPECT_LE(difference(picture(1),
                         drawnLike(1,
                                   [this](auto& painter, QSize size) {
                                       painter.fillRect(0, 4, size.width(), 1, colors.separator);
                                   })),
              1);
}

TEST_F(PanelMenuSizesTest, aCheckMarkOfTenPointsStandsInTheMiddleOfItsColumn) {
    fill({MenuEntry{.id = 1, .label = kLabel, .mark = MenuEntry::Mark::check, .isOn = true}});
    EXPECT_LE(difference(picture(0),
                         drawnLike(0,
                                   [this](auto& painter, QSize size) {
                                       drawLabel(painter, size);
                                       drawGlyph(painter,
                                                 Glyph::checkmark,
                                                 QRectF(9, size.height() / 2.0 - 5, 10, 10),
                                                 colors.accent);
                                   })),
              1);
}

TEST_F(PanelMenuSizesTest, anArrowOfEightPointsStandsInTheMiddleOfItsColumn) {
    fill({MenuEntry{.id = 1, .label = kLabel, .kind = MenuEntry::Kind::submenu}});
    EXPECT_LE(difference(picture(0),
                         drawnLike(0,
                                   [this](auto& painter, QSize size) {
                                       drawLabel(painter, size);
                                       drawGlyph(
                                           painter,
                                           Glyph::chevronRight,
                                           QRectF(size.width() - 14, size.height() / 2.0 - 4, 8, 8),
                                           colors.primaryText);
                                   })),
              1);
}

TEST_F(PanelMenuSizesTest, anIconOfSixteenPointsStandsInTheMiddleOfTheMarks) {
    // Larger than it is shown.
    QPixmap red(64, 64);
    red.fill(Qt::red);
    menu.addAction(QIcon(red), kLabel);
    open();
    const QImage image = picture(0);
    std::vector<int> columns;
    for (int x = 0; x < 28; ++x) {
        if (image.pixelColor(x, image.height() / 2) == QColor(Qt::red)) {
            columns.push_back(x);
        }
    }
    ASSERT_EQ(columns.size(), 16U);
    EXPECT_NEAR((columns.front() + columns.back()) / 2.0, 14, 1);
}

TEST_F(PanelMenuSizesTest, theEntryUnderThePointerIsTintedRoundAndFourPointsFromTheEdges) {
    fill({MenuEntry{.id = 1, .label = kLabel}});
    menu.setActiveAction(menu.actions().front());
    EXPECT_LE(difference(picture(0),
                         drawnLike(0,
                                   [this](auto& painter, QSize size) {
                                       QColor tint = colors.accent;
                                       tint.setAlphaF(0.24F);
                                       painter.save();
                                       painter.setRenderHint(QPainter::Antialiasing);
                                       painter.setPen(Qt::NoPen);
                                       painter.setBrush(tint);
                                       painter.drawRoundedRect(
                                           QRectF(4, 0, size.width() - 8, size.height()), 4, 4);
                                       painter.restore();
                                       drawLabel(painter, size);
                                   })),
              1);
}

TEST_F(PanelMenuSizesTest, aKeyStandsAtTheRightSixteenPointsFromTheText) {
    QAction* const action = menu.addAction(kLabel);
    action->setShortcut(QKeySequence(Qt::Key_H));
    action->setShortcutVisibleInContextMenu(true);
    open();
    const QFontMetrics metrics(systemFont(13));
    const int needed =
        metrics.boundingRect(QRect(0, 0, 190, 0), Qt::TextWrapAnywhere, kLabel).width() + 16
        + metrics.horizontalAdvance(u'H');
    EXPECT_NEAR(place(0).width(), 28 + needed + 20, 1);
    EXPECT_LE(difference(picture(0),
                         drawnLike(0,
                                   [this](auto& painter, QSize size) {
                                       drawLabel(painter, size);
                                       painter.setPen(colors.tertiaryText);
                                       painter.drawText(
                                           QRect(28, 0, size.width() - 48, size.height()),
                                           Qt::AlignRight | Qt::AlignVCenter,
                                           QStringLiteral("H"));
                                   })),
              1);
}

TEST_F(PanelMenuSizesTest, aLongTextIsBrokenAt190Points) {
    const QString text = QStringLiteral("开机自启注册失败,请检查系统设置中的登录项");
    fill({MenuEntry{.id = 1, .label = text, .kind = MenuEntry::Kind::notice}});
    const QFontMetrics metrics(systemFont(10.5));
    const QRect broken =
        metrics.boundingRect(QRect(0, 0, 190, 0), Qt::TextWordWrap | Qt::TextWrapAnywhere, text);
    EXPECT_GT(broken.height(), metrics.height());
    EXPECT_EQ(place(0).size(), QSize(28 + broken.width() + 20, broken.height() + 10));
    EXPECT_LE(broken.width(), 190);
    EXPECT_GT(broken.width(), 190 - metrics.horizontalAdvance(u'开') - 1);
}

TEST_F(PanelMenuSizesTest, theMenuHasAFrameOfOnePoint) {
    fill({MenuEntry{.id = 1, .label = kLabel}});
    const QImage image = menu.grab().toImage();
    const QColor ground = image.pixelColor(3, 3);
    const QColor edge = image.pixelColor(0, 20);
    EXPECT_NE(edge, ground);
    EXPECT_EQ(image.pixelColor(image.width() - 1, 20), edge);
    EXPECT_EQ(image.pixelColor(20, 0), edge);
    EXPECT_EQ(image.pixelColor(20, image.height() - 1), edge);
    EXPECT_EQ(image.pixelColor(1, 20), ground);
    EXPECT_EQ(image.pixelColor(image.width() - 2, 20), ground);
    EXPECT_EQ(image.pixelColor(20, 1), ground);
}

}  // namespace
}  // namespace quillbar
