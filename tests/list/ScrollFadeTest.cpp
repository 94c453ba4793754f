// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowList.h"
#include "Quillbar/widgets/ScrollFade.h"
#include "tests/list/NamedRow.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPaintEvent>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace quillbar {

namespace {

constexpr QColor kRowColor(128, 0, 255);

/// A row and a detail of one colour.
class PlainRow final : public ListRow {
public:
    using ListRow::ListRow;

    void present(const std::string& /*id*/, std::size_t /*index*/) override {}

protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), kRowColor); }
};

class PlainDetail final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), kRowColor); }
};

/// How much of the surface is seen in a row's colour, from 0 to 1.
double shareOf(const QColor& surface, const QColor& seen) {
    return static_cast<double>(kRowColor.blue() - seen.blue() + seen.green() - kRowColor.green())
           / (kRowColor.blue() - surface.blue() + surface.green() - kRowColor.green());
}

/// A list of ten rows' height, of rows of one colour.
struct ScrollFadeTest : testing::TestWithParam<ColorScheme> {
    static constexpr int kHeight = 10 * TableRow::kHeight;

    ScrollFadeTest() {
        list->resize(400, kHeight);
        window.resize(400, kHeight);
        ThemeKey::set(window, {.colors = ThemeColors::of(GetParam())});
    }

    void show(std::size_t count) {
        list->setIds(numbered(count));
        showActive(window);
    }
    /// How much of the surface each line of the list shows, from above.
    [[nodiscard]] std::vector<double> shares() {
        const QImage picture = pictureOf(window);
        const QColor surface = ThemeKey::value(window).colors.surface;
        std::vector<double> lines;
        for (int y = 0; y < kHeight; ++y) {
            lines.push_back(shareOf(surface, picture.pixelColor(200, y)));
        }
        return lines;
    }
    /// Expects both edges to look as they are to, and nothing between them to be touched.
    void expectFades(bool above, bool below) {
        const std::vector<double> lines = shares();
        for (int y = 0; y < kHeight; ++y) {
            const int fromBelow = kHeight - 1 - y;
            double expected = 0;
            if (above && y < ScrollFade::kHeight) {
                expected = 1 - (y + 0.5) / ScrollFade::kHeight;
            }
            if (below && fromBelow < ScrollFade::kHeight) {
                expected = 1 - (fromBelow + 0.5) / ScrollFade::kHeight;
            }
            EXPECT_NEAR(lines[static_cast<std::size_t>(y)], expected, 0.03) << "line " << y;
        }
    }

    QWidget window;
    RowList* list =
        new RowList({.makeRow = [](QWidget* parent) { return new PlainRow(parent); },
                     .makeDetail = [](const std::string& /*id*/,
                                      QWidget* parent) { return new PlainDetail(parent); },
                     .activate = [](const std::string& /*id*/) {}},
                    210,
                    &window);
};

TEST_P(ScrollFadeTest, showsAtWhichEdgesTheListGoesOn) {
    show(30);
    expectFades(false, true);
    list->scrollTo(50);
    expectFades(true, true);
    list->scrollTo(100000);
    expectFades(true, false);
}

TEST_P(ScrollFadeTest, isNotThereWhenEverythingIsSeen) {
    show(10);
    expectFades(false, false);
    list->setIds(numbered(11));
    expectFades(false, true);
    list->setIds(numbered(4));
    const std::vector<double> lines = shares();
    EXPECT_NEAR(lines[0], 0, 0.03);
    EXPECT_NEAR(lines[4 * TableRow::kHeight - 1], 0, 0.03);
}

TEST_P(ScrollFadeTest, staysInFrontOfRowsAndDetailsThatComeLater) {
    show(100);
    list->scrollTo(20);
    list->scrollTo(1500);
    expectFades(true, true);
    list->setExpanded("90");
    ASSERT_TRUE(spinUntil([this] { return !list->isMoving(); }));
    list->scrollTo(91 * TableRow::kHeight - kHeight / 2);
    expectFades(true, true);
    list->scrollTo(100000);
    expectFades(true, false);
}

TEST_P(ScrollFadeTest, isNotPaintedWhileNothingScrolls) {
    show(30);
    list->scrollTo(50);
    spinUntilIdle();
    auto* const upper = list->findChild<QWidget*>(QStringLiteral("upperFade"));
    auto* const lower = list->findChild<QWidget*>(QStringLiteral("lowerFade"));
    PaintCount above(*upper);
    PaintCount below(*lower);
    list->row("5")->update();
    list->refreshAll();
    list->scrollTo(50);
    list->setExpanded(std::nullopt);
    spinUntilIdle();
    EXPECT_EQ(above.count + below.count, 0);
    list->scrollTo(60);
    spinUntilIdle();
    EXPECT_GT(above.count, 0);
    EXPECT_GT(below.count, 0);
}

TEST_P(ScrollFadeTest, leavesThePointerToTheRows) {
    show(30);
    list->scrollTo(50);
    EXPECT_EQ(window.childAt(200, 1), list->row("1"));
    EXPECT_EQ(window.childAt(200, kHeight - 1), list->row("11"));
}

TEST_P(ScrollFadeTest, coversNoRowThatTheKeyboardIsOn) {
    show(30);
    list->row("0")->setFocus(Qt::TabFocusReason);
    for (int step = 0; step < 29; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        const QWidget* const row = QApplication::focusWidget();
        const bool isLast = row == list->row("29");
        EXPECT_LE(row->geometry().bottom() + 1, kHeight - (isLast ? 0 : ScrollFade::kHeight));
    }
    EXPECT_EQ(QApplication::focusWidget()->geometry().bottom() + 1, kHeight);
    for (int step = 0; step < 29; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
        const QWidget* const row = QApplication::focusWidget();
        EXPECT_GE(row->y(), row == list->row("0") ? 0 : ScrollFade::kHeight);
    }
}

INSTANTIATE_TEST_SUITE_P(BothPalettes,
                         ScrollFadeTest,
                         testing::Values(ColorScheme::dark, ColorScheme::light));

}  // namespace

}  // namespace quillbar
