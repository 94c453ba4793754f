// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/NumericCell.h"
#include "Quillbar/list/SortableHeader.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Heading.h"
#include "tests/panel/TextSizesFixture.h"
#include "tests/qtsupport/Ink.h"

#include <QAbstractButton>
#include <QImage>
#include <QLabel>
#include <QRect>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace quillbar {
namespace {

/// Less than any two fonts differ by.
constexpr double kSmallest = 0.05;

/// The panel at each text size.
struct PanelTextSizesTest : TextSizesFixture,
                            testing::WithParamInterface<TextSize> {
    [[nodiscard]] static double scale() { return scaleOf(GetParam()); }
    [[nodiscard]] static int enlarged(int points) {
        return static_cast<int>(std::lround(points * scale()));
    }
    /// The size of a font that has so many points at 100 %, as Qt counts it.
    [[nodiscard]] static double sizeOf(double points) {
        return systemFont(points * scale()).pointSizeF();
    }
    /// The panel as it is seen, without where the keyboard is.
    [[nodiscard]] QImage picture() const {
        if (QWidget* const focus = panel->focusWidget()) {
            focus->clearFocus();
        }
        return pictureOf(*panel);
    }
    /// Where a widget lies in the panel.
    [[nodiscard]] QRect place(const QWidget& widget) const {
        return {widget.mapTo(panel.get(), QPoint()), widget.size()};
    }
    /// The right edges of the shown widgets of this type in that part of the panel, from the left.
    template <class Widget>
    [[nodiscard]] std::vector<int> rightEdges(const QWidget& part) const {
        std::vector<int> edges;
        for (Widget* const each : widgetsOf<Widget>(part)) {
            if (each->isVisible()) {
                edges.push_back(place(*each).right());
            }
        }
        std::sort(edges.begin(), edges.end());
        return edges;
    }
};

TEST_P(PanelTextSizesTest, thePanelIsWiderInProportion) {
    open(GetParam(), pages().front());
    EXPECT_EQ(panel->width(), enlarged(400));
    EXPECT_EQ(panel->sizeHint().width(), enlarged(400));
}

TEST_P(PanelTextSizesTest, textsAndRowsAreLarger) {
    open(GetParam(), pages().front());
    EXPECT_NEAR(shown<QLabel>()->font().pointSizeF(), sizeOf(13), kSmallest);
    EXPECT_EQ(shown<QLabel>()->font().weight(), systemFont(13, QFont::DemiBold).weight());
    EXPECT_EQ(onlyRow().height(), enlarged(28));
    EXPECT_EQ(place(*named(*panel, QStringLiteral("设置"))).size(),
              QSize(enlarged(24), enlarged(24)));
    panel->showPreferences();
    fit();
    EXPECT_NEAR(shown<Heading>()->font().pointSizeF(), sizeOf(10.5), kSmallest);
    EXPECT_EQ(named(*panel, QStringLiteral("115%"))->height(), enlarged(28));
}

TEST_P(PanelTextSizesTest, columnsAreWiderAndStandUnderTheirTitles) {
    open(GetParam(), pages().front());
    const std::vector<int> cells = rightEdges<NumericCell>(onlyRow());
    EXPECT_EQ(rightEdges<SortableHeader>(*panel), cells);
    ASSERT_EQ(cells.size(), 3U);
    EXPECT_EQ(cells[1] - cells[0], enlarged(82) + enlarged(6));
    EXPECT_EQ(cells[2] - cells[1], enlarged(62) + enlarged(6));
}

TEST_P(PanelTextSizesTest, aNarrowScreenTakesFromTheColumnOfCoinsAlone) {
    open(GetParam(), pages().front());
    const std::vector<int> before = rightEdges<NumericCell>(onlyRow());
    panel->resize(PanelView::kWidth, panel->height());
    settle();
    ASSERT_EQ(panel->width(), 400);
    std::vector<int> moved = before;
    for (int& edge : moved) {
        edge -= enlarged(400) - 400;
    }
    EXPECT_EQ(rightEdges<NumericCell>(onlyRow()), moved);
    EXPECT_EQ(rightEdges<SortableHeader>(*panel), moved);
    EXPECT_GE(moved.front() - enlarged(64), 0);
}

TEST_P(PanelTextSizesTest, anotherSizeHoldsAtOnceAndWhollyOnEveryPage) {
    for (const Page& page : pages()) {
        SCOPED_TRACE(page.name);
        open(GetParam(), page);
        const QImage begun = picture();
        open(TextSize::normal, page);
        const QImage normal = picture();
        preferences.setTextSize(GetParam());
        fit();
        const QImage changed = picture();
        EXPECT_EQ(changed.size(), begun.size());
        EXPECT_EQ(difference(changed, begun), 0);
        preferences.setTextSize(TextSize::normal);
        fit();
        const QImage again = picture();
        EXPECT_EQ(again.size(), normal.size());
        EXPECT_EQ(difference(again, normal), 0);
    }
}

TEST_P(PanelTextSizesTest, isChosenInThePreferencesAndKept) {
    open(TextSize::normal, pages().back());
    const QString name = QString::number(percentOf(GetParam())) + u'%';
    click(name);
    EXPECT_TRUE(dynamic_cast<QAbstractButton&>(*named(*panel, name)).isChecked());
    EXPECT_EQ(panel->sizeHint().width(), enlarged(400));
    EXPECT_EQ(PreferencesStore(folder.path()).load().textSize, GetParam());
}

TEST_P(PanelTextSizesTest, aChoiceMadeElsewhereIsShown) {
    open(TextSize::normal, pages().back());
    const auto isChosen = [this](const QString& name) {
        return dynamic_cast<QAbstractButton&>(*named(*panel, name)).isChecked();
    };
    EXPECT_TRUE(isChosen(QStringLiteral("100%")));
    preferences.setTextSize(GetParam());
    EXPECT_TRUE(isChosen(QString::number(percentOf(GetParam())) + u'%'));
    EXPECT_FALSE(isChosen(QStringLiteral("100%")));
}

INSTANTIATE_TEST_SUITE_P(Sizes,
                         PanelTextSizesTest,
                         testing::Values(TextSize::large, TextSize::larger),
                         [](const auto& info) {
                             return "of" + std::to_string(percentOf(info.param)) + "Percent";
                         });

}  // namespace
}  // namespace quillbar
