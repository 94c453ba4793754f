// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/DesktopFixture.h"

#include <QColor>
#include <QDir>
#include <QImage>

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

    /// The left ends of the rows under the first, where no number changes.
    static QImage laterRows(const QImage& image, int lowered) {
        const int top = rowCentre(0).y() + kRowHeight / 2 + lowered;
        return image.copy(2, top, 28, 3 * kRowHeight);
    }

    static constexpr int kStrong = 100;
};

TEST_P(PicturesTest, thePanelIsDrawnInItsPalette) {
    keepSettings({{QStringLiteral("schemaVersion"), 1},
                  {QStringLiteral("changeBasis"), QStringLiteral("rolling24h")},
                  {QStringLiteral("appearance"), QLatin1String(GetParam().name)}});
    startApplication();
    openPanel();
    screen().movePointer({300, 600});
    const QImage closed = picture();
    keep(closed, QStringLiteral("panel"));
    const int surface = closed.pixelColor(200, 8).lightness();
    EXPECT_GE(surface, GetParam().lightnessFrom);
    EXPECT_LE(surface, GetParam().lightnessTo);
    EXPECT_EQ(closed.pixelColor(0, 0), Screen::background()) << "the corners are round";

    clickOnPanel({kDisclosureX, rowCentre(0).y()});
    ASSERT_TRUE(
        eventually([&] { return panelGeometry().height() == closed.height() + kChartHeight; }));
    screen().movePointer({300, 600});
    const QRect plot(30, rowCentre(0).y() + kRowHeight / 2 + 40, 300, kChartHeight - 80);
    EXPECT_TRUE(eventually([&] {
        const QImage unfolded = picture();
        return laterRows(unfolded, kChartHeight) == laterRows(closed, 0)
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

INSTANTIATE_TEST_SUITE_P(Palettes,
                         PicturesTest,
                         testing::Values(Palette{"dark", 0, 60}, Palette{"light", 220, 255}),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace

}  // namespace quillbar
