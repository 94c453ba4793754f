// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/AddCoinView.h"
#include "tests/qtsupport/DrawnAtSizes.h"
#include "tests/watchlist/AddCoinFixture.h"

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPen>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

struct AddCoinSizesTest : AddCoinFixture {
    void show() {
        startConnected(listOf({"SOL"}));
        theExchangeTrades({"SOL"});
        view = std::make_unique<AddCoinView>(environment(), [](const std::string& /*symbol*/) {});
        showActive(*view);
        view->setFocus(Qt::PopupFocusReason);
    }
    [[nodiscard]] QWidget& root() const override { return *view; }

    std::unique_ptr<AddCoinView> view;
};

TEST_F(AddCoinSizesTest, aMatchIsWrittenAtItsSizes) {
    show();
    searchFor(QStringLiteral("SOL"));
    const QFont name = systemFont(13, QFont::Medium);
    const QFont beside = systemFont(9.5);
    const QRgb surface = ThemeKey::value(*view).colors.surface.rgba();
    QImage expected(row("SOL")->size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(surface);
    {
        constexpr int kLeft = 12 + 16 + 6;
        constexpr int kBaseline = 18;
        const QString watched = QStringLiteral("已添加");
        const double pair =
            kLeft + QFontMetricsF(name).horizontalAdvance(QStringLiteral("SOL")) + 6;
        const double end =
            row("SOL")->width() - 12 - QFontMetricsF(beside).horizontalAdvance(watched);
        QPainter painter(&expected);
        painter.setPen(ThemeKey::value(*view).colors.secondaryText);
        painter.setFont(name);
        painter.drawText(QPointF(kLeft, kBaseline), QStringLiteral("SOL"));
        painter.setFont(beside);
        painter.drawText(QPointF(pair, kBaseline), QStringLiteral("SOL/USDT"));
        painter.drawText(QPointF(end, kBaseline), watched);
    }
    constexpr int kAfterTheIcon = 12 + 16 + 1;
    EXPECT_EQ(columnsWithInk(pictureOf(*row("SOL")), kAfterTheIcon, surface),
              columnsWithInk(expected, kAfterTheIcon, surface));
}

TEST_F(AddCoinSizesTest, whatIsSaidInThePlaceOfMatchesIsOf10Point5) {
    show();
    expectSmallLine(*view, QStringLiteral("输入币种代号开始搜索"), &Roles::secondaryText);
    searchFor(QStringLiteral("XYZ"));
    expectSmallLine(*view, QStringLiteral("无匹配结果"), &Roles::secondaryText);
}

TEST_F(AddCoinSizesTest, aFailureIsOf10Point5) {
    show();
    api.exchangeInfoAnswers.otherwiseError(BinanceError(503));
    searchFor(QStringLiteral("XYZ"));
    expectSmallLine(*view, QStringLiteral("搜索失败,请检查网络后重试"), &Roles::secondaryText);
}

TEST_F(AddCoinSizesTest, theFieldIsWrittenAt12PointsWithRoomAroundTheText) {
    show();
    EXPECT_EQ(field().font(), systemFont(12));
    EXPECT_EQ(field().height(), QFontMetrics(systemFont(12)).height() + 2 * 6);
    type(QStringLiteral("HH"));
    // The cursor stands at a whole pixel, in the middle of its rectangle.
    const QRectF cursor = field().inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const double text = QFontMetricsF(field().font()).horizontalAdvance(QStringLiteral("HH"));
    EXPECT_EQ(cursor.center().x(), 8 + qRound(text));
}

TEST_F(AddCoinSizesTest, theFieldIsWrittenInTheColoursOfItsTheme) {
    show();
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        const Roles& colors = ThemeColors::of(scheme);
        ThemeKey::set(*view, {.colors = colors});
        const QPalette palette = field().palette();
        EXPECT_EQ(palette.color(QPalette::Base).alpha(), 0);
        EXPECT_EQ(palette.color(QPalette::Text), colors.primaryText);
        EXPECT_EQ(palette.color(QPalette::PlaceholderText), colors.secondaryText);
        EXPECT_EQ(palette.color(QPalette::Highlight), colors.accent);
        EXPECT_EQ(palette.color(QPalette::HighlightedText), QColor(Qt::white));
    }
}

TEST_F(AddCoinSizesTest, aFieldWithoutTheFocusIsAFaintBoxWithAFaintEdge) {
    show();
    view->hide();
    const auto drawn = [this](const QColor& edge) {
        const Roles& colors = ThemeKey::value(field()).colors;
        QImage image(field().size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(edge, 1));
        painter.setBrush(colors.rowHover);
        painter.drawRoundedRect(QRectF(field().rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
        return image;
    };
    const QImage picture = pictureOf(field());
    // The end of the field, where nothing is written.
    const QRect end(field().width() - 40, 0, 40, field().height());
    EXPECT_EQ(picture.copy(end), drawn(ThemeKey::value(field()).colors.separator).copy(end));
}

TEST_F(AddCoinSizesTest, theCornersOfTheFieldAreOfSixPoints) {
    show();
    const Roles& colors = ThemeKey::value(field()).colors;
    QImage expected(field().size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(colors.surface);
    {
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(colors.accent, 1));
        painter.setBrush(colors.rowHover);
        painter.drawRoundedRect(QRectF(field().rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    }
    const QRect corner(0, 0, 7, 7);
    EXPECT_EQ(pictureOf(field()).copy(corner), expected.copy(corner));
}

}  // namespace
}  // namespace quillbar
