// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/TabularText.h"
#include "Quillbar/tray/LabelPicture.h"
#include "tests/qtsupport/Ink.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quillbar {

namespace {

LabelPicture squareOf(const QString& upper,
                      const QString& lower,
                      LabelDirection direction = LabelDirection::flat,
                      PictureGround ground = PictureGround::darkBar) {
    return {.form = LabelForm::square,
            .ground = ground,
            .upper = upper,
            .lower = lower,
            .direction = direction};
}

LabelPicture wideOf(const QString& lead,
                    const QString& change,
                    LabelDirection direction,
                    PictureGround ground = PictureGround::darkBar) {
    return {.form = LabelForm::widePicture,
            .ground = ground,
            .upper = lead + change,
            .lower = change,
            .direction = direction};
}

/// The application's mark.
LabelPicture markOn(PictureGround ground) {
    return {.form = LabelForm::square, .ground = ground};
}

/// The desktop's font in the weight of the labels.
QFont fontOf(int pixels) {
    QFont font = QGuiApplication::font();
    font.setPixelSize(pixels);
    font.setWeight(QFont::Medium);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

/// The colours of the pixels that are wholly covered by ink.
std::vector<QColor> colorsIn(const QImage& image, const QRect& part) {
    std::vector<QColor> colors;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() == 255
                && std::find(colors.begin(), colors.end(), color) == colors.end()) {
                colors.push_back(color);
            }
        }
    }
    return colors;
}

constexpr QRect kUpperLine(0, 0, 22, 11);
constexpr QRect kLowerLine(0, 11, 22, 11);

TEST(LabelPictureDrawnTest, aLineAloneStandsInTheMiddleOfTheSquare) {
    for (const int height : kSquareHeights) {
        for (const LabelPicture& picture : {squareOf(QStringLiteral("67.2k"), QString()),
                                            squareOf(QString(), QStringLiteral("67.2k"))}) {
            const QRect ink = boundsOfInk(picture.drawn(height));
            EXPECT_NEAR(ink.top() + ink.bottom() + 1, height, height / 8.0) << height;
        }
    }
}

TEST(LabelPictureDrawnTest, aSquareIsTwoLinesOfPixels) {
    const LabelPicture picture = squareOf(QStringLiteral("67.2k"), QStringLiteral("+1.2%"));
    EXPECT_EQ(inkOf(picture.drawn(22)),
              drawing({
                  "......................", "......................", "..##..####....##..#...",
                  ".#..#....#...#..#.#...", ".#.......#......#.#.#.", ".###....#.......#.#.#.",
                  ".#..#...#......#..##..", ".#..#..#......#...##..", ".#..#..#.....#....#.#.",
                  "..##...#...#.####.#.#.", "......................", "......................",
                  ".......#.....##..##.#.", "......##....#..#.##.#.", ".......#.......#...#..",
                  "..#....#.......#...#..", ".###...#......#...#...", "..#....#.....#....#...",
                  ".......#....#....#.##.", "......###.#.####.#.##.", "......................",
                  "......................",
              }));
}

TEST(LabelPictureDrawnTest, aShortLineStandsInTheMiddle) {
    const QImage image = squareOf(QStringLiteral("0"), QStringLiteral("—")).drawn(22);
    EXPECT_EQ(boundsOfInk(image.copy(kUpperLine)), QRect(9, 2, 4, 8));
    EXPECT_EQ(boundsOfInk(image.copy(kLowerLine)), QRect(8, 5, 5, 1));
}

TEST(LabelPictureDrawnTest, aLineIsOfPixelsAsLongAsItFits) {
    // 20 pixels wide in narrow digits, and 21.
    const auto isSharp = [](const char* text) {
        const QImage image = squareOf(QString::fromUtf8(text), QString()).drawn(22);
        for (int x = 0; x < 22; ++x) {
            for (int y = 0; y < 11; ++y) {
                const int alpha = image.pixelColor(x, y).alpha();
                if (alpha != 0 && alpha != 255) {
                    return false;
                }
            }
        }
        return true;
    };
    EXPECT_TRUE(isSharp("%1111"));
    EXPECT_FALSE(isSharp("%%111"));
}

TEST(LabelPictureDrawnTest, aSquareIsOfThePixelsOfItsLinesUpToABarOf32) {
    const LabelPicture picture = squareOf(QStringLiteral("67.2k"), QStringLiteral("+1.2%"));
    EXPECT_EQ(boundsOfInk(picture.drawn(24)), QRect(2, 3, 20, 19));
    EXPECT_EQ(boundsOfInk(picture.drawn(31)), QRect(5, 6, 20, 22));
    EXPECT_GT(boundsOfInk(picture.drawn(32)).width(), 24);
}

TEST(LabelPictureDrawnTest, noLineOfASquareTouchesItsSides) {
    for (const char* const text :
         {"67.2k", "0.0₄18", ".1235", "1.02M", ">999T", "BTC", "1000SATS"}) {
        for (const int height : {16, 18, 20, 22, 24, 28, 32, 33, 37, 40, 44, 48}) {
            const QString line = QString::fromUtf8(text);
            const QImage image = squareOf(line, line).drawn(height);
            const int inset = height < 33 ? 1 : 2;
            EXPECT_GE(boundsOfInk(image).left(), inset) << text << height;
            EXPECT_LT(boundsOfInk(image).right(), height - inset) << text << height;
        }
    }
}

TEST(LabelPictureDrawnTest, aLineOfLettersStandsOnTheBaselineInTheMiddle) {
    for (const int scale : {1, 2}) {
        SCOPED_TRACE(scale);
        const QFont font = fontOf(11 * scale);
        QImage expected(22 * scale, 22 * scale, QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::transparent);
        {
            QPainter painter(&expected);
            painter.setPen(Qt::white);
            const QFontMetricsF metrics(font);
            const auto line = [&](const QString& text, int baseline) {
                const QRectF place(0, baseline - metrics.ascent(), 22.0 * scale, metrics.height());
                TabularText::draw(painter, place, Qt::AlignHCenter | Qt::AlignTop, text, font);
            };
            // Twice, because thin strokes would be pale.
            for (int i = 0; i < 2; ++i) {
                line(QStringLiteral("OP"), 10 * scale);
                line(QStringLiteral("SO"), 20 * scale);
            }
        }
        EXPECT_EQ(squareOf(QStringLiteral("OP"), QStringLiteral("SO")).drawn(22 * scale), expected);
    }
}

TEST(LabelPictureDrawnTest, aLineThatIsTooLongIsWrittenNarrower) {
    for (const int scale : {1, 2}) {
        const QImage image = squareOf(QStringLiteral("HHHHHHHH"), QString()).drawn(22 * scale);
        const QRect ink = boundsOfInk(image);
        // As wide as the square, and as high as ever.
        EXPECT_LE(ink.left(), 3 * scale);
        EXPECT_GE(ink.right(), 22 * scale - 1 - 3 * scale);
        const QRect one = boundsOfInk(squareOf(QStringLiteral("H"), QString()).drawn(22 * scale));
        EXPECT_EQ(ink.top(), one.top());
        EXPECT_EQ(ink.bottom(), one.bottom());
    }
}

TEST(LabelPictureDrawnTest, aSquareHasTheColoursOfItsDirection) {
    const auto colorsOf = [](LabelDirection direction, const QRect& line) {
        return colorsIn(
            squareOf(QStringLiteral("67.2k"), QStringLiteral("+1.2%"), direction).drawn(22), line);
    };
    using Colors = std::vector<QColor>;
    const QColor text(255, 255, 255);
    EXPECT_EQ(colorsOf(LabelDirection::up, kUpperLine), Colors{text});
    EXPECT_EQ(colorsOf(LabelDirection::up, kLowerLine), Colors{QColor(84, 230, 160)});
    EXPECT_EQ(colorsOf(LabelDirection::down, kUpperLine), Colors{text});
    EXPECT_EQ(colorsOf(LabelDirection::down, kLowerLine), Colors{QColor(255, 128, 128)});
    EXPECT_EQ(colorsOf(LabelDirection::flat, kLowerLine), Colors{text});
}

TEST(LabelPictureDrawnTest, changesAreInTheColoursThatTheUserHasChosen) {
    const auto changeColors = [](ChangeColors chosen, LabelDirection direction) {
        LabelPicture square = squareOf(QStringLiteral("67.2k"), QStringLiteral("+1.2%"), direction);
        square.changeColors = chosen;
        return colorsIn(square.drawn(22), kLowerLine);
    };
    using Colors = std::vector<QColor>;
    EXPECT_EQ(changeColors(ChangeColors::redUp, LabelDirection::up), Colors{QColor(255, 128, 128)});
    EXPECT_EQ(changeColors(ChangeColors::redUp, LabelDirection::down),
              Colors{QColor(84, 230, 160)});
    EXPECT_EQ(changeColors(ChangeColors::redUp, LabelDirection::flat),
              Colors{QColor(255, 255, 255)});
    EXPECT_EQ(changeColors(ChangeColors::blueUp, LabelDirection::up),
              Colors{QColor(124, 192, 255)});
    LabelPicture wide = wideOf(QStringLiteral("BTC 1 "), QStringLiteral("▲ 1.23%"), {});
    wide.direction = LabelDirection::up;
    const QImage before = wide.drawn(22);
    wide.changeColors = ChangeColors::redUp;
    EXPECT_NE(wide.drawn(22), before);
}

TEST(LabelPictureDrawnTest, whatIsNotLiveIsPalerAndOtherwiseTheSame) {
    const auto drawnIn = [](LabelDirection direction) {
        return squareOf(QStringLiteral("67.2k"), QStringLiteral("+1.2%"), direction).drawn(22);
    };
    const QImage stale = drawnIn(LabelDirection::stale);
    EXPECT_EQ(inkOf(stale), inkOf(drawnIn(LabelDirection::flat)));
    for (int y = 0; y < 22; ++y) {
        for (int x = 0; x < 22; ++x) {
            const QColor color = stale.pixelColor(x, y);
            if (color.alpha() != 0) {
                EXPECT_NEAR(color.alphaF(), 0.65, 0.005);
                EXPECT_GE(color.lightness(), 254);
            }
        }
    }
}

TEST(LabelPictureDrawnTest, theMarkIsThreeCandlesThatRise) {
    EXPECT_EQ(inkOf(markOn(PictureGround::darkBar).drawn(22)),
              drawing({
                  "......................", "......................", "......................",
                  "...............####...", "...............####...", "...............####...",
                  "...............####...", ".........####..####...", ".........####..####...",
                  ".........####..####...", ".........####..####...", "...####..####..####...",
                  "...####..####.........", "...####..####.........", "...####..####.........",
                  "...####..####.........", "...####..####.........", "...####...............",
                  "...####...............", "......................", "......................",
                  "......................",
              }));
    const QImage large = markOn(PictureGround::darkBar).drawn(44);
    EXPECT_EQ(boundsOfInk(large), QRect(6, 6, 32, 32));
    EXPECT_EQ(colorsIn(large, large.rect()), std::vector<QColor>{QColor(255, 255, 255)});
    // Its corners are round.
    EXPECT_LT(large.pixelColor(6, 22).alpha(), 200);
    EXPECT_EQ(large.pixelColor(7, 23).alpha(), 255);
    EXPECT_EQ(large.pixelColor(8, 22).alpha(), 255);
}

TEST(LabelPictureDrawnTest, onABarItDoesNotKnowItBringsADarkGroundWithRoundCorners) {
    for (const int scale : {1, 2}) {
        const QImage image = markOn(PictureGround::own).drawn(22 * scale);
        const QColor ground = image.pixelColor(0, 11 * scale);
        EXPECT_EQ(ground.alpha(), 225);
        EXPECT_NEAR(ground.red(), 24, 1);
        EXPECT_NEAR(ground.green(), 24, 1);
        EXPECT_NEAR(ground.blue(), 28, 1);
        EXPECT_EQ(boundsOfInk(image), image.rect());
        QImage corner(22 * scale, 22 * scale, QImage::Format_ARGB32_Premultiplied);
        corner.fill(Qt::transparent);
        {
            QPainter painter(&corner);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(24, 24, 28, 225));
            painter.drawRoundedRect(corner.rect(), 4 * scale, 4 * scale);
        }
        const QRect part(0, 0, 6 * scale, 6 * scale);
        EXPECT_EQ(image.copy(part), corner.copy(part));
    }
    EXPECT_EQ(markOn(PictureGround::darkBar).drawn(22).pixelColor(0, 11).alpha(), 0);
}

TEST(LabelPictureDrawnTest, theWholeTextIsOf13PixelsWithFourOnEitherSide) {
    const QString lead = QStringLiteral("BTC 67,234.50 ");
    const QString change = QStringLiteral("1.23%");
    for (const int scale : {1, 2}) {
        SCOPED_TRACE(scale);
        const QFont font = fontOf(13 * scale);
        const QFontMetricsF metrics(font);
        const double slot = std::max({metrics.horizontalAdvance(u'▲'),
                                      metrics.horizontalAdvance(u'▼'),
                                      metrics.horizontalAdvance(u'·')});
        const double leadWidth = TabularText::width(lead, font);
        // Room for one digit more.
        const double changeWidth = TabularText::width(QStringLiteral("00.00%"), font);
        const double margin = 4.0 * scale;
        QImage expected(static_cast<int>(std::ceil(leadWidth + slot + changeWidth + 2 * margin)),
                        22 * scale,
                        QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::transparent);
        {
            QPainter painter(&expected);
            const auto piece = [&](const QString& text, double left, double width, auto side) {
                TabularText::draw(painter,
                                  QRectF(left, 0, width, 22.0 * scale),
                                  side | Qt::AlignVCenter,
                                  text,
                                  font);
            };
            painter.setPen(QColor(255, 255, 255));
            piece(lead, margin, leadWidth, Qt::AlignLeft);
            painter.setPen(QColor(255, 128, 128));
            piece(QStringLiteral("▼"), margin + leadWidth, slot, Qt::AlignHCenter);
            piece(change, margin + leadWidth + slot, changeWidth, Qt::AlignRight);
        }
        const QString end = QStringLiteral("▼ ") + change;
        EXPECT_EQ(wideOf(lead, end, LabelDirection::down).drawn(22 * scale), expected);
    }
}

TEST(LabelPictureDrawnTest, aTextWithoutAChangeIsOnePiece) {
    // A coin may have the sign of no change in its name.
    const QString text = QStringLiteral("BT·C");
    const QFont font = fontOf(13);
    QImage expected(static_cast<int>(std::ceil(TabularText::width(text, font) + 8)),
                    22,
                    QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    {
        QPainter painter(&expected);
        painter.setOpacity(0.65);
        painter.setPen(Qt::white);
        TabularText::draw(
            painter, QRectF(4, 0, 100, 22), Qt::AlignLeft | Qt::AlignVCenter, text, font);
    }
    EXPECT_EQ(wideOf(text, QString(), LabelDirection::stale).drawn(22), expected);
}

TEST(LabelPictureDrawnTest, coinsBesideTheTextFollowAfterTenPixelsInTheirOwnOpacity) {
    const QFont font = fontOf(13);
    const double first = TabularText::width(QStringLiteral("BTC 1"), font);
    const double second = TabularText::width(QStringLiteral("ETH"), font);
    QImage expected(
        static_cast<int>(std::ceil(first + second + 18)), 22, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    {
        QPainter painter(&expected);
        painter.setPen(Qt::white);
        const auto piece = [&](const QString& text, double left) {
            TabularText::draw(
                painter, QRectF(left, 0, 100, 22), Qt::AlignLeft | Qt::AlignVCenter, text, font);
        };
        piece(QStringLiteral("BTC 1"), 4);
        painter.setOpacity(0.65);
        piece(QStringLiteral("ETH"), 14 + first);
    }
    LabelPicture picture = wideOf(QStringLiteral("BTC 1"), QString(), LabelDirection::flat);
    picture.beside = {{QStringLiteral("ETH"), QString(), LabelDirection::stale}};
    EXPECT_EQ(picture.drawn(22), expected);
}

TEST(LabelPictureDrawnTest, coinsBesideTheTextHaveTheColoursOfTheirOwnDirections) {
    const auto drawn = [](LabelDirection first, LabelDirection second) {
        LabelPicture picture = wideOf(QStringLiteral("BTC 1 "), QStringLiteral("▲ 1.23%"), first);
        picture.beside = {{QStringLiteral("ETH 1 ▲ 1.23%"), QStringLiteral("▲ 1.23%"), second}};
        return picture.drawn(22);
    };
    const QImage both = drawn(LabelDirection::up, LabelDirection::down);
    const int half = both.width() / 2;
    const auto side = [half](const QImage& image, bool isLeft) {
        return isLeft ? image.copy(0, 0, half, 22) : image.copy(half, 0, image.width() - half, 22);
    };
    const QImage rising = drawn(LabelDirection::up, LabelDirection::up);
    const QImage falling = drawn(LabelDirection::down, LabelDirection::down);
    ASSERT_NE(rising, falling);
    EXPECT_EQ(side(both, true), side(rising, true));
    EXPECT_EQ(side(both, false), side(falling, false));
}

}  // namespace

}  // namespace quillbar
