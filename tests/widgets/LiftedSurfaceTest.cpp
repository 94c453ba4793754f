// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/LiftedShadow.h"
#include "Quillbar/widgets/LiftedSurface.h"
#include "Quillbar/widgets/NativeShape.h"
#include "Quillbar/widgets/PanelMenu.h"
#include "Quillbar/widgets/Popover.h"
#include "Quillbar/widgets/TooltipStyle.h"
#include "tests/qtsupport/Widgets.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QImage>
#include <QPalette>
#include <QRegion>
#include <QString>
#include <QStyle>
#include <QStyleFactory>
#include <QToolTip>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quillbar {

namespace {

/// A panel with a button, and all that opens over it.
struct LiftedSurfaceTest : testing::TestWithParam<ColorScheme> {
    LiftedSurfaceTest() {
        panel.setGeometry(200, 100, 400, 300);
        button->setGeometry(340, 8, 24, 24);
        ThemeKey::set(panel, {.colors = ThemeColors::of(GetParam())});
        QApplication::setStyle(new TooltipStyle);
    }
    ~LiftedSurfaceTest() override {
        QToolTip::hideText();
        QApplication::setStyle(QStyleFactory::create(m_style));
    }
    LiftedSurfaceTest(const LiftedSurfaceTest&) = delete;
    LiftedSurfaceTest& operator=(const LiftedSurfaceTest&) = delete;
    LiftedSurfaceTest(LiftedSurfaceTest&&) = delete;
    LiftedSurfaceTest& operator=(LiftedSurfaceTest&&) = delete;

    Popover& openPopover() {
        auto* const popover = new Popover(*button);
        auto* const content = new QWidget;
        content->setFixedSize(280, 200);
        popover->open(content);
        return *popover;
    }
    PanelMenu& openMenu() {
        auto* const menu = new PanelMenu(button);
        menu->addAction(QStringLiteral("深色"));
        menu->addAction(QStringLiteral("浅色"));
        menu->openBelow(*button);
        return *menu;
    }
    QWidget* showTooltip(QPoint pointer = QPoint(20, 100)) {
        QToolTip::showText(panel.mapToGlobal(pointer), QStringLiteral("添加币种"), button);
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->inherits("QTipLabel") && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    /// Shows the panel where windows are blended, filled with its surface.
    void blendPanel() {
        panel.setAttribute(Qt::WA_TranslucentBackground);
        auto* const filling = new QWidget(&panel);
        filling->setObjectName(QStringLiteral("filling"));
        filling->setGeometry(panel.rect());
        filling->setPalette(ThemeKey::value(panel).colors.surface);
        filling->setAutoFillBackground(true);
        filling->lower();
        showActive(panel);
    }
    [[nodiscard]] QWidget* shadow() const {
        return panel.findChild<QWidget*>(QStringLiteral("shadow"));
    }
    [[nodiscard]] QImage drawnPanel() {
        return panel.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    /// The upper left corner of what a window shows.
    [[nodiscard]] static QImage cornerOf(QWidget& window) {
        return window.grab(QRect(0, 0, 12, 5))
            .toImage()
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }

    QWidget panel;
    QWidget* button = new QWidget(&panel);

private:
    QString m_style = QApplication::style()->name();
};

TEST_P(LiftedSurfaceTest, isTheSameForPopoversMenusAndTooltips) {
    showActive(panel);
    QWidget* const tooltip = showTooltip();
    ASSERT_NE(tooltip, nullptr);
    const QImage corner = cornerOf(*tooltip);
    EXPECT_EQ(corner.pixelColor(11, 3), LiftedSurface::color(ThemeKey::value(panel).colors));
    EXPECT_NE(corner.pixelColor(11, 0), corner.pixelColor(11, 3)) << "the hairline";
    const QRegion cut = tooltip->mask() & QRect(0, 0, 12, 12);
    EXPECT_FALSE(cut.isEmpty());
    EXPECT_FALSE(cut.contains(QPoint(0, 0)));
    Popover& popover = openPopover();
    EXPECT_EQ(cornerOf(popover), corner);
    EXPECT_EQ(popover.mask() & QRect(0, 0, 12, 12), cut);
    popover.close();
    PanelMenu& menu = openMenu();
    EXPECT_EQ(cornerOf(menu), corner);
    EXPECT_EQ(menu.mask() & QRect(0, 0, 12, 12), cut);
    menu.close();
}

TEST_P(LiftedSurfaceTest, isNotCutWhereWindowsAreBlended) {
    panel.setAttribute(Qt::WA_TranslucentBackground);
    showActive(panel);
    QWidget* const tooltip = showTooltip();
    ASSERT_NE(tooltip, nullptr);
    PanelMenu& menu = openMenu();
    for (QWidget* const window : {tooltip, static_cast<QWidget*>(&menu)}) {
        EXPECT_TRUE(window->mask().isEmpty());
        EXPECT_EQ(window->grab().toImage().pixelColor(0, 0).alpha(), 0);
    }
    menu.close();
}

TEST_P(LiftedSurfaceTest, castsAShadowOnABlendedPanelUntilItCloses) {
    blendPanel();
    const QImage bare = drawnPanel();
    const auto lightness = [](const QImage& image, QPoint point) {
        return image.pixelColor(point).lightnessF();
    };
    Popover& popover = openPopover();
    const QImage shaded = drawnPanel();
    const QRect lifted(panel.mapFromGlobal(popover.pos()), popover.size());
    const QPoint beside(lifted.left() - 1, lifted.center().y());
    const QPoint farther(lifted.left() - LiftedShadow::kReach / 2, lifted.center().y());
    const QPoint beyond(lifted.left() - LiftedShadow::kReach - 1, lifted.center().y());
    EXPECT_LT(lightness(shaded, beside), lightness(shaded, farther));
    EXPECT_LT(lightness(shaded, farther), lightness(bare, farther));
    EXPECT_EQ(shaded.pixelColor(beyond), bare.pixelColor(beyond));
    const QPoint above(lifted.center().x(), lifted.top() - 2);
    const QPoint below(lifted.center().x(), lifted.bottom() + 2);
    EXPECT_LT(lightness(shaded, below), lightness(shaded, above)) << "light falls from above";
    popover.close();
    EXPECT_EQ(drawnPanel(), bare);
}

TEST_P(LiftedSurfaceTest, menusAndTooltipsCastTheSameShadow) {
    blendPanel();
    const QImage bare = drawnPanel();
    const auto shadeBeside = [&](const QWidget& window) {
        const QRect lifted(panel.mapFromGlobal(window.pos()), window.size());
        const QPoint corner = lifted.topLeft() - QPoint(LiftedShadow::kReach, 0);
        return drawnPanel().copy(QRect(corner, QSize(LiftedShadow::kReach, 12)));
    };
    QWidget* const tooltip = showTooltip();
    ASSERT_NE(tooltip, nullptr);
    const QImage shade = shadeBeside(*tooltip);
    EXPECT_NE(shade, bare.copy(QRect(QPoint(100, 200), shade.size())));
    tooltip->hide();
    EXPECT_EQ(drawnPanel(), bare);
    PanelMenu& menu = openMenu();
    EXPECT_EQ(shadeBeside(menu), shade);
    menu.close();
    EXPECT_EQ(drawnPanel(), bare);
}

TEST_P(LiftedSurfaceTest, itsShadowFollowsIt) {
    blendPanel();
    const QImage bare = drawnPanel();
    PanelMenu& menu = openMenu();
    const QPoint beside =
        panel.mapFromGlobal(menu.geometry().center()) - QPoint(menu.width() / 2 + 2, 0);
    ASSERT_NE(drawnPanel().pixelColor(beside), bare.pixelColor(beside));
    menu.move(menu.pos() + QPoint(0, 90));
    const QPoint moved = beside + QPoint(0, 90);
    EXPECT_NE(drawnPanel().pixelColor(moved), bare.pixelColor(moved));
    const QImage shaded = drawnPanel();
    panel.move(panel.pos() + QPoint(0, 30));
    const QPoint shifted(0, 30);
    EXPECT_EQ(drawnPanel().pixelColor(moved - shifted), shaded.pixelColor(moved));
    menu.close();
}

TEST_P(LiftedSurfaceTest, itsShadowTakesNoClicksAndFillsNoCorner) {
    blendPanel();
    auto* const filling = panel.findChild<QWidget*>(QStringLiteral("filling"));
    filling->setGeometry(0, 0, 400, 100);
    Popover& popover = openPopover();
    const QRect lifted(panel.mapFromGlobal(popover.pos()), popover.size());
    EXPECT_EQ(panel.childAt(lifted.left() - 2, 60), filling);
    EXPECT_NE(drawnPanel().pixelColor(lifted.left() - 2, 60), filling->palette().window().color());
    EXPECT_EQ(drawnPanel().pixelColor(lifted.left() - 2, 150).alpha(), 0) << "nothing is there";
    popover.close();
}

TEST_P(LiftedSurfaceTest, hasNoShadowWhereWindowsAreNotBlended) {
    showActive(panel);
    Popover& popover = openPopover();
    EXPECT_EQ(shadow(), nullptr);
    popover.close();
}

TEST_P(LiftedSurfaceTest, itsShadowEndsWithIt) {
    blendPanel();
    auto* const menu = new PanelMenu(button);
    menu->addAction(QStringLiteral("深色"));
    menu->openBelow(*button);
    ASSERT_NE(shadow(), nullptr);
    delete menu;
    panel.resize(panel.size() + QSize(0, 10));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(shadow(), nullptr);
}

TEST_P(LiftedSurfaceTest, isCutAtEachSize) {
    showActive(panel);
    Popover& popover = openPopover();
    for (const QSize size : {QSize(120, 90), QSize(300, 240)}) {
        popover.setFixedSize(size);
        EXPECT_EQ(popover.mask().boundingRect(), QRect(QPoint(), size));
        EXPECT_FALSE(popover.mask().contains(popover.rect().bottomRight()));
    }
    popover.close();
}

TEST_P(LiftedSurfaceTest, aTooltipHidesWhatIsBelowIt) {
    showActive(panel);
    QWidget* const tooltip = showTooltip();
    ASSERT_NE(tooltip, nullptr);
    EXPECT_EQ(tooltip->style()->styleHint(QStyle::SH_ToolTipLabel_Opacity, nullptr, tooltip), 255);
}

TEST_P(LiftedSurfaceTest, hasItsRightEdgeOnThatOfThePanel) {
    showActive(panel);
    Popover& popover = openPopover();
    EXPECT_EQ(popover.geometry().right(), panel.geometry().right());
    popover.close();
    PanelMenu& menu = openMenu();
    EXPECT_EQ(menu.geometry().right(), panel.geometry().right());
    menu.close();
}

TEST_P(LiftedSurfaceTest, aTooltipEndsAtTheRightEdgeOfThePanelAtTheLatest) {
    showActive(panel);
    QWidget* tooltip = showTooltip({390, 100});
    ASSERT_NE(tooltip, nullptr);
    EXPECT_EQ(tooltip->geometry().right(), panel.geometry().right());
    const int width = tooltip->width();
    tooltip->hide();
    tooltip = showTooltip({100, 100});
    ASSERT_NE(tooltip, nullptr);
    EXPECT_LT(tooltip->geometry().right(), panel.geometry().left() + 100 + width + 10);
    tooltip->move(panel.geometry().left() - 30, tooltip->y());
    EXPECT_EQ(tooltip->geometry().left(), panel.geometry().left());
    tooltip->hide();
    panel.resize(width - 10, panel.height());
    tooltip = showTooltip({50, 100});
    ASSERT_NE(tooltip, nullptr);
    EXPECT_EQ(tooltip->geometry().left(), panel.geometry().left()) << "wider than the panel";
}

TEST_P(LiftedSurfaceTest, aTooltipIsWrittenInTheColourOfItsPanel) {
    showActive(panel);
    QWidget* const tooltip = showTooltip();
    ASSERT_NE(tooltip, nullptr);
    EXPECT_EQ(tooltip->palette().color(QPalette::ToolTipText),
              ThemeKey::value(panel).colors.primaryText);
}

TEST_P(LiftedSurfaceTest, isKnownToWhatStandsOnIt) {
    showActive(panel);
    const ThemeColors::Resolved& colors = ThemeKey::value(panel).colors;
    EXPECT_EQ(LiftedSurface::under(*button), colors.surface);
    Popover& popover = openPopover();
    EXPECT_EQ(LiftedSurface::under(*popover.findChild<QWidget*>()), LiftedSurface::color(colors));
    EXPECT_EQ(LiftedSurface::color(colors).alpha(), 255);
    EXPECT_NE(LiftedSurface::color(colors), colors.surface);
    popover.close();
}

INSTANTIATE_TEST_SUITE_P(BothPalettes,
                         LiftedSurfaceTest,
                         testing::Values(ColorScheme::dark, ColorScheme::light));

/// The scale of a screen.
struct NativeShapeTest : testing::TestWithParam<double> {};

TEST_P(NativeShapeTest, isRoundToThePixelOfTheScreen) {
    const double radius = 8 * GetParam();
    const QSize size(200, 100);
    QRegion shape;
    for (const QRect& part : NativeShape::outline(size, radius)) {
        EXPECT_TRUE((shape & part).isEmpty());
        shape += part;
    }
    EXPECT_EQ(shape.boundingRect(), QRect(QPoint(), size));
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            // From the middle of the nearest corner's circle; negative along the sides.
            const double toX = radius - (std::min(x, size.width() - 1 - x) + 0.5);
            const double toY = radius - (std::min(y, size.height() - 1 - y) + 0.5);
            const double distance = toX > 0 && toY > 0 ? std::hypot(toX, toY) : 0;
            if (std::abs(distance - radius) > 0.75) {
                EXPECT_EQ(shape.contains(QPoint(x, y)), distance < radius) << x << ", " << y;
            }
        }
    }
}

TEST_P(NativeShapeTest, leavesAWindowThatIsTooLowForItsCornersInOnePiece) {
    QRegion shape;
    for (const QRect& part : NativeShape::outline({50, 9}, 8 * GetParam())) {
        shape += part;
    }
    EXPECT_EQ(shape.boundingRect().bottom(), 8);
    EXPECT_TRUE(shape.contains(QPoint(25, 4)));
}

INSTANTIATE_TEST_SUITE_P(Scales, NativeShapeTest, testing::Values(1.0, 1.25, 1.5, 2.0, 3.0));

}  // namespace

}  // namespace quillbar
