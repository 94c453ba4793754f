// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/DesktopFixture.h"

#include <QColor>
#include <QDir>
#include <QImage>

#include <array>
#include <cstddef>

namespace quillbar {

namespace {

/// A palette by its name in the settings, and how light its surface is, from 0 to 255.
struct Palette {
    const char* name;
    int lightnessFrom;
    int lightnessTo;
};

/// Keeps pictures of what people see, and looks at the little of them that a program can judge.
class PicturesTest : public DesktopFixture,
                     public testing::WithParamInterface<Palette> {
protected:
    [[nodiscard]] QImage picture() const { return screen().picture(panelGeometry()); }

    void keep(const QImage& image, const QString& name) const {
        const QDir folder(QStringLiteral(QUILLBAR_PICTURES));
        ASSERT_TRUE(folder.mkpath(QStringLiteral(".")));
        const QString file = QStringLiteral("%1-%2.png").arg(name, QLatin1String(GetParam().name));
        ASSERT_TRUE(image.save(folder.filePath(file)));
    }

    /// How many columns of the area hold a pixel of a strong colour, as the line of a chart is.
    static int colorfulColumns(const QImage& image, const QRect& area) {
        int count = 0;
        for (int x = area.left(); x <= area.right(); ++x) {
            for (int y = area.top(); y <= area.bottom(); ++y) {
                if (image.pixelColor(x, y).hsvSaturation() > kStrong) {
                    ++count;
                    break;
                }
            }
        }
        return count;
    }

    /// The left ends of the rows under this one, where no number changes.
    static QImage rowsUnder(int row, const QImage& image, int lowered) {
        const int top = rowCentre(row).y() + kRowHeight / 2 + lowered;
        return image.copy(2, top, 28, 3 * kRowHeight);
    }

    /// The colours of the window of a menu or of the search, which is drawn as the panel is.
    void judgeSurface(const QImage& image, QPoint bare) const {
        const int lightness = image.pixelColor(bare).lightness();
        EXPECT_GE(lightness, GetParam().lightnessFrom);
        EXPECT_LE(lightness, GetParam().lightnessTo);
    }

    void startInPalette() {
        keepSettings({{QStringLiteral("schemaVersion"), 1},
                      {QStringLiteral("changeBasis"), QStringLiteral("rolling24h")},
                      {QStringLiteral("appearance"), QLatin1String(GetParam().name)}});
        startApplication();
        openPanel();
    }

    static constexpr int kStrong = 100;
    static constexpr QPoint kAside{300, 600};
};

TEST_P(PicturesTest, thePanelIsDrawnInItsPalette) {
    startInPalette();
    screen().movePointer(kAside);
    const QImage closed = picture();
    keep(closed, QStringLiteral("panel"));
    judgeSurface(closed, {200, 8});
    EXPECT_EQ(closed.pixelColor(0, 0), Screen::background()) << "the corners are round";

    clickOnPanel({kDisclosureX, rowCentre(0).y()});
    ASSERT_TRUE(
        eventually([&] { return panelGeometry().height() == closed.height() + kChartHeight; }));
    screen().movePointer(kAside);
    const QRect plot(30, rowCentre(0).y() + kRowHeight / 2 + 40, 300, kChartHeight - 80);
    EXPECT_TRUE(eventually([&] {
        const QImage unfolded = picture();
        return rowsUnder(0, unfolded, kChartHeight) == rowsUnder(0, closed, 0)
               && colorfulColumns(unfolded, plot) > plot.width() * 9 / 10;
    }));
    keep(picture(), QStringLiteral("chart"));

    clickOnPanel(kPriceTitle);
    clickOnPanel(rowCentre(0), Screen::kRight);
    EXPECT_TRUE(eventually([this] { return hasMenu(); }));
    settle();
    keep(picture(), QStringLiteral("menu"));
    const QRect item = desktop().statusArea().value_or(QRect());
    keep(screen().picture(item.adjusted(-40, 0, 0, 0)), QStringLiteral("item"));
}

TEST_P(PicturesTest, everyBoardIsDrawnInItsPalette) {
    startInPalette();
    const std::array<const char*, kTabCount> names{
        "watchlist", "gainers", "losers", "volume", "market-cap"};
    for (int tab = 1; tab < kTabCount; ++tab) {
        openTab(tab);
        screen().movePointer(kAside);
        ASSERT_TRUE(eventually([this] { return hasRowsUpTo(12); }));
        settle();
        const QImage board = picture();
        judgeSurface(board, {200, 8});
        keep(board, QLatin1String(names.at(static_cast<std::size_t>(tab))));
    }
    const QImage folded = picture();
    clickOnPanel(rowCentre(1));
    const QRect plot(30, rowCentre(1).y() + kRowHeight / 2 + 40, 300, kChartHeight - 80);
    ASSERT_TRUE(
        eventually([&] { return colorfulColumns(picture(), plot) > plot.width() * 9 / 10; }));
    screen().movePointer(kAside);
    EXPECT_TRUE(eventually([&] {
        const QImage unfolded = picture();
        return rowsUnder(1, unfolded, kChartHeight) == rowsUnder(1, folded, 0)
               && colorfulColumns(unfolded, plot) > plot.width() * 9 / 10;
    }));
    keep(picture(), QStringLiteral("board-chart"));
}

TEST_P(PicturesTest, theSearchAndTheMenuOfTheGearAreDrawnInItsPalette) {
    startInPalette();
    openSearch();
    const QRect matches(searchGeometry().topLeft() + QPoint(12, 50), QSize(20, 14));
    const auto panelWithSearch = [this] {
        return screen().picture(panelGeometry().united(searchGeometry()));
    };
    keep(panelWithSearch(), QStringLiteral("search-hint"));
    const QImage empty = screen().picture(matches);
    screen().type("s");
    ASSERT_TRUE(eventually([&] { return screen().picture(matches) != empty; }));
    settle();
    judgeSurface(screen().picture(searchGeometry()), {140, 3});
    keep(panelWithSearch(), QStringLiteral("search"));
    screen().key(Screen::kEscape);
    ASSERT_TRUE(eventually([this] { return !isSearchOpen(); }));

    clickOnPanel(kGear);
    ASSERT_TRUE(eventually([this] { return hasMenu(); }));
    settle();
    const QRect gear = menuGeometry();
    EXPECT_TRUE(screen().workArea().contains(gear));
    judgeSurface(screen().picture(gear), {gear.width() / 2, 3});
    keep(screen().picture(panelGeometry().united(gear)), QStringLiteral("gear"));
}

TEST_P(PicturesTest, thePreferencesAreDrawnInItsPalette) {
    // Between the names of the colours and the right end: the samples, and no change of a row.
    const QRect samples(260, 68, 60, 84);
    startInPalette();
    EXPECT_EQ(colorfulColumns(picture(), samples), 0);
    const QRect place = panelGeometry();
    EXPECT_EQ(startAgain({QStringLiteral("--preferences")}), 0);
    screen().movePointer(kAside);
    ASSERT_TRUE(eventually([&] { return colorfulColumns(picture(), samples) > 10; }));
    settle();
    judgeSurface(picture(), {200, 8});
    // The page is longer than this list, so the panel grows downwards, as far as the page needs.
    EXPECT_EQ(panelGeometry().topLeft(), place.topLeft());
    EXPECT_EQ(panelGeometry().width(), place.width());
    EXPECT_GE(panelGeometry().height(), place.height());
    EXPECT_TRUE(screen().workArea().contains(panelGeometry()));
    keep(picture(), QStringLiteral("preferences"));
}

INSTANTIATE_TEST_SUITE_P(Palettes,
                         PicturesTest,
                         testing::Values(Palette{"dark", 0, 60}, Palette{"light", 220, 255}),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace

}  // namespace quillbar
