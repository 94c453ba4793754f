// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PreferencesSection.h"
#include "Quillbar/panel/PreferencesView.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/CheckRow.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/Heading.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "tests/panel/PanelFixture.h"

#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace quillbar {
namespace {

constexpr int kWidth = 400;

/// The page of preferences, with everything on it that can be said.
struct PreferencesSizesTest : PanelFixture {
    void openPage() {
        startConnected(listOf({"BTC", "ETH"}));
        price("BTC", 100);
        alerts();
        preferences.setLabel({.wording = LabelWording::custom, .ownTemplate = "{pric"});
        showActive(show());
        panel->showPreferences();
        settle();
    }
    void addAlert(const std::string& baseAsset) {
        alerts().add({.symbol = symbolOf(baseAsset), .baseAsset = baseAsset, .threshold = 110});
        settle();
    }
    /// A deletion that can be taken back and is not saved, and a preference that is not.
    void letThingsGoWrong() {
        addAlert("BTC");
        files.breakAll();
        click(QStringLiteral("删除提醒，BTC 价格 ≥ 110.00 · 仅一次"));
        preferences.setAlertSound(true);
        settle();
    }
    void settle() {
        executor.run();
        spinUntilIdle();
        panel->resize(panel->sizeHint());
        spinUntilIdle();
    }

    [[nodiscard]] PreferencesView& page() const {
        return *widgetsOf<PreferencesView>(*panel).at(0);
    }
    /// Where a widget lies in the panel.
    [[nodiscard]] QRect place(const QWidget& widget) const {
        return {widget.mapTo(panel.get(), QPoint()), widget.size()};
    }
    /// What is said on the page, without its headings, by the beginning of each text.
    [[nodiscard]] std::map<std::string, ThemedLabel*> texts() const {
        std::map<std::string, ThemedLabel*> found;
        for (ThemedLabel* const each : widgetsOf<ThemedLabel>(page())) {
            if (each->isVisible() && dynamic_cast<Heading*>(each) == nullptr) {
                found[each->text().left(4).toStdString()] = each;
            }
        }
        return found;
    }
};

TEST_F(PreferencesSizesTest, everyTextIsOf10Point5WrapsAndStandsTwelvePointsFromTheEdges) {
    openPage();
    letThingsGoWrong();
    const QColor quiet = colors().secondaryText;
    const QColor loud = colors().danger;
    const std::map<std::string, QColor> expected{{"预览：B", quiet},
                                                 {"第 1 ", loud},
                                                 {"可用 {", quiet},
                                                 {"还没有价", quiet},
                                                 {"已删除 ", quiet},
                                                 {"提醒未能", loud},
                                                 {"偏好设置", loud}};
    const auto shown = texts();
    ASSERT_EQ(shown.size(), expected.size());
    for (const auto& [beginning, color] : expected) {
        SCOPED_TRACE(beginning);
        ASSERT_TRUE(shown.contains(beginning));
        const ThemedLabel& label = *shown.at(beginning);
        EXPECT_EQ(label.font(), systemFont(10.5));
        EXPECT_EQ(label.palette().color(QPalette::WindowText), color);
        EXPECT_TRUE(label.wordWrap());
        EXPECT_EQ(place(label).left() + label.contentsMargins().left(), 12);
        EXPECT_LE(place(label).right() + 1 - label.contentsMargins().right(), kWidth - 12);
    }
}

TEST_F(PreferencesSizesTest, sectionsAreTwelvePointsApartAndBeginFourBelowTheirHeadings) {
    openPage();
    const std::vector<PreferencesSection*> sections = widgetsOf<PreferencesSection>(page());
    ASSERT_EQ(sections.size(), 6U);
    for (std::size_t each = 0; each < sections.size(); ++each) {
        SCOPED_TRACE(each);
        EXPECT_EQ(place(*sections[each]).left(), 4);
        EXPECT_EQ(place(*sections[each]).width(), kWidth - 2 * 4);
        if (each > 0) {
            EXPECT_EQ(sections[each]->geometry().top(),
                      sections[each - 1]->geometry().bottom() + 1 + 12);
        }
        const Heading& heading = *widgetsOf<Heading>(*sections[each]).at(0);
        EXPECT_EQ(place(heading).left() + heading.contentsMargins().left(), 12);
        int below = sections[each]->height();
        for (const QWidget* const part :
             sections[each]->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (part != &heading && part->isVisible()) {
                below = std::min(below, part->geometry().top());
            }
        }
        EXPECT_EQ(below, heading.geometry().bottom() + 1 + 4);
    }
}

TEST_F(PreferencesSizesTest, anAlertIsASwitchWithACrossAtTheEndOfItsLine) {
    openPage();
    addAlert("BTC");
    addAlert("ETH");
    std::vector<QRect> switches;
    for (const char* const baseAsset : {"BTC", "ETH"}) {
        const QString condition = QString::fromUtf8(baseAsset) + QStringLiteral(" 价格 ≥ 110.00");
        auto& button = dynamic_cast<GlyphButton&>(
            *named(*panel, QStringLiteral("删除提醒，") + condition + QStringLiteral(" · 仅一次")));
        switches.push_back(place(*widgetsOf<CheckRow>(*button.parentWidget()).at(0)));
        EXPECT_EQ(button.size(), QSize(20, 20));
        EXPECT_EQ(place(button).right() + 1, kWidth - 4 - 2);
        EXPECT_EQ(place(button).left(), switches.back().right() + 1);
        EXPECT_EQ(switches.back().left(), 4);
        EXPECT_EQ(button.toolTip(), QStringLiteral("删除提醒"));
        QImage expected(20, 20, QImage::Format_ARGB32_Premultiplied);
        expected.fill(colors().surface);
        {
            QPainter painter(&expected);
            drawGlyph(painter, Glyph::xmark, QRectF(6, 6, 8, 8), colors().secondaryText);
        }
        EXPECT_EQ(pictureOf(button), expected);
    }
    EXPECT_EQ(switches[1].top(), switches[0].bottom() + 1);
}

}  // namespace
}  // namespace quillbar
