// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/ConnectionBanner.h"
#include "Quillbar/panel/ErrorLine.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/watchlist/CoinListView.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/Spinner.h"
#include "tests/panel/PanelFixture.h"
#include "tests/qtsupport/Ink.h"

#include <QAbstractButton>
#include <QFontMetricsF>
#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

struct PanelSizesTest : PanelFixture {
    /// Where a widget lies in the panel.
    [[nodiscard]] QRect place(const QWidget& widget) const {
        return {widget.mapTo(panel.get(), QPoint()), widget.size()};
    }
    template <class Widget>
    [[nodiscard]] Widget& only() const {
        return *widgetsOf<Widget>(*panel).at(0);
    }
    /// The label of the product's name.
    [[nodiscard]] QLabel& title() const {
        for (QLabel* const label : widgetsOf<QLabel>(*panel)) {
            if (label->text() == QStringLiteral("Quillbar")) {
                return *label;
            }
        }
        throw std::runtime_error("no title");
    }
    [[nodiscard]] QAbstractButton& tab(const QString& title) const {
        return dynamic_cast<QAbstractButton&>(*named(only<UnderlineTabs>(), title));
    }
};

TEST_F(PanelSizesTest, theHeaderKeepsTwelvePointsAtItsSidesAndEightAboveAndBelow) {
    start();
    show();
    const QRect plus = place(*named(*panel, QStringLiteral("添加币种")));
    const QRect gear = place(*named(*panel, QStringLiteral("设置")));
    EXPECT_EQ(place(title()).left(), 12);
    EXPECT_EQ(place(title()).top(), 8);
    EXPECT_EQ(gear.right() + 1, 400 - 12);
    EXPECT_EQ(gear.left() - (plus.right() + 1), 4);
    EXPECT_EQ(plus.size(), QSize(24, 24));
    EXPECT_EQ(gear.size(), QSize(24, 24));
    const int rowHeight = std::max(24, title().sizeHint().height());
    // Eight of the header, and eight between it and the tabs.
    EXPECT_EQ(place(only<UnderlineTabs>()).top(), 8 + rowHeight + 8 + 8);
}

TEST_F(PanelSizesTest, theButtonsOfTheHeaderShowTheirGlyphsInTheMiddle) {
    start();
    show();
    const auto drawn = [this](Glyph glyph, double size, const QColor& color) {
        QImage image(24, 24, QImage::Format_ARGB32_Premultiplied);
        image.fill(colors().surface);
        QPainter painter(&image);
        drawGlyph(painter, glyph, QRectF(12 - size / 2, 12 - size / 2, size, size), color);
        return image;
    };
    QWidget& plus = *named(*panel, QStringLiteral("添加币种"));
    QWidget& gear = *named(*panel, QStringLiteral("设置"));
    panel->setStandalone(true);
    QWidget& close = *named(*panel, QStringLiteral("关闭面板"));
    EXPECT_EQ(pictureOf(close), drawn(Glyph::xmark, 11, colors().secondaryText));
    EXPECT_EQ(pictureOf(plus), drawn(Glyph::plus, 13, colors().secondaryText));
    EXPECT_EQ(pictureOf(gear), drawn(Glyph::gear, 15, colors().secondaryText));
    for (QWidget* const button : {&plus, &gear}) {
        button->setAttribute(Qt::WA_UnderMouse);
    }
    EXPECT_EQ(pictureOf(plus), drawn(Glyph::plus, 13, colors().primaryText));
    EXPECT_EQ(pictureOf(gear), drawn(Glyph::gear, 15, colors().primaryText));
}

TEST_F(PanelSizesTest, theTitleIsOf13PointsSemibold) {
    start();
    show();
    EXPECT_EQ(title().font(), systemFont(13, QFont::DemiBold));
    EXPECT_EQ(title().palette().color(QPalette::WindowText), colors().primaryText);
}

TEST_F(PanelSizesTest, whatIsStackedIsEightPointsApart) {
    theUserHas(listOf({"BTC"}));
    start();
    files.breakAll();
    state->pin("BTCUSDT");
    show();
    const QRect tabs = place(only<UnderlineTabs>());
    const QRect error = place(only<ErrorLine>());
    const QRect banner = place(only<ConnectionBanner>());
    EXPECT_EQ(error.top(), tabs.bottom() + 1 + 8);
    EXPECT_EQ(banner.top(), error.bottom() + 1 + 8);
    EXPECT_EQ(place(only<CoinListView>()).top(), banner.bottom() + 1 + 8);
    EXPECT_EQ(error.width(), 400);
    EXPECT_EQ(tabs.width(), 400);
}

TEST_F(PanelSizesTest, aTabIsItsTitleWithSixPointsAtItsSidesFourAboveAndSixBelow) {
    start();
    show();
    const QFontMetricsF bold(systemFont(12, QFont::DemiBold));
    EXPECT_EQ(tab(QStringLiteral("自选")).geometry().left(), 8);
    for (const QString& title : {QStringLiteral("自选"), QStringLiteral("成交额")}) {
        const QSize size = tab(title).size();
        EXPECT_EQ(size.width(), std::ceil(bold.horizontalAdvance(title)) + 12);
        EXPECT_EQ(size.height(), std::ceil(bold.height()) + 10);
    }
    EXPECT_EQ(tab(QStringLiteral("涨幅")).geometry().left(),
              tab(QStringLiteral("自选")).geometry().right() + 1 + 8);
}

TEST_F(PanelSizesTest, theTitleOfATabStandsAboveTheBarSemiboldWhenSelected) {
    start();
    show();
    struct Row {
        QString title;
        QFont font;
        QColor color;
    };
    for (const Row& row :
         {Row{QStringLiteral("自选"), systemFont(12, QFont::DemiBold), colors().primaryText},
          Row{QStringLiteral("涨幅"), systemFont(12, QFont::Normal), colors().secondaryText}}) {
        QAbstractButton& button = tab(row.title);
        QImage expected(button.size(), QImage::Format_ARGB32_Premultiplied);
        expected.fill(colors().surface);
        {
            QPainter painter(&expected);
            painter.setFont(row.font);
            painter.setPen(row.color);
            painter.drawText(
                QRect(6, 4, button.width() - 12, button.height() - 10), Qt::AlignCenter, row.title);
        }
        const QRect aboveTheBar(0, 0, button.width(), button.height() - 2);
        EXPECT_EQ(pictureOf(button).copy(aboveTheBar), expected.copy(aboveTheBar))
            << row.title.toStdString();
    }
}

TEST_F(PanelSizesTest, theErrorIsOf10Point5InTheColourOfFalling) {
    theUserHas(listOf({"BTC"}));
    start();
    files.breakAll();
    state->pin("BTCUSDT");
    show();
    auto& error = only<ErrorLine>();
    EXPECT_EQ(error.font(), systemFont(10.5));
    EXPECT_EQ(error.palette().color(QPalette::WindowText), colors().danger);
    // Twelve points at its sides, four above and below.
    EXPECT_EQ(error.contentsRect(), error.rect().adjusted(12, 4, -12, -4));
    QImage expected(error.size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(colors().surface);
    {
        QPainter painter(&expected);
        painter.setFont(systemFont(10.5));
        painter.setPen(colors().danger);
        painter.drawText(
            QRect(12, 4, 376, error.height() - 8), Qt::AlignLeft | Qt::AlignVCenter, error.text());
    }
    EXPECT_EQ(boundsOfInk(pictureOf(error), colors().surface),
              boundsOfInk(expected, colors().surface));
}

TEST_F(PanelSizesTest, anErrorIsAsHighAsItsLinesAndEightPointsMore) {
    start();
    show();
    auto& error = only<ErrorLine>();
    for (const int words : {1, 40}) {
        const QString text = QStringLiteral("error ").repeated(words).trimmed();
        error.setText(text);
        const QRect lines =
            QFontMetrics(error.font()).boundingRect(QRect(0, 0, 376, 1000), Qt::TextWordWrap, text);
        EXPECT_EQ(error.heightForWidth(400), lines.height() + 8) << words;
    }
}

TEST_F(PanelSizesTest, theBannerIsASpinnerAndATextOf9Point5OverAFaintWarning) {
    start();
    show();
    auto& banner = only<ConnectionBanner>();
    auto& spinner = *widgetsOf<Spinner>(banner).at(0);
    EXPECT_EQ(banner.size(), QSize(400, 20));
    // A small spinner of 16 points at 0.7 of its size.
    EXPECT_EQ(spinner.geometry(), QRect(12, 4, 11, 11));
    spinner.hide();
    QImage expected(banner.size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(colors().surface);
    {
        QColor ground = colors().warning;
        ground.setAlphaF(0.1F);
        QPainter painter(&expected);
        painter.fillRect(expected.rect(), ground);
        painter.setPen(colors().warning);
        TabularText::draw(painter,
                          QRectF(12 + 11 + 6, 0, 300, 20),
                          Qt::AlignLeft | Qt::AlignVCenter,
                          banner.accessibleName(),
                          systemFont(9.5));
    }
    EXPECT_EQ(pictureOf(banner), expected);
}

}  // namespace
}  // namespace quillbar
