// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/LabelPicture.h"

#include <QColor>

#include <gtest/gtest.h>

#include <algorithm>

namespace quillbar {

namespace {

LabelFace face(const QString& text, LabelDirection direction = LabelDirection::up) {
    LabelFace result;
    result.text = text;
    result.symbol = QStringLiteral("BTC");
    result.shortPrice = QStringLiteral("67.2k");
    result.shortChange = QStringLiteral("+1.2%");
    result.direction = direction;
    return result;
}

LabelPicture wide(const QString& text, BarShade shade = BarShade::dark) {
    return LabelPicture::of(face(text), LabelForm::widePicture, shade);
}

LabelPicture square(LabelDirection direction = LabelDirection::up,
                    BarShade shade = BarShade::dark) {
    return LabelPicture::of(
        face(QStringLiteral("BTC 67,234.50 ▲ 1.23%"), direction), LabelForm::square, shade);
}

struct Ink {
    int pixels = 0;
    /// The mean lightness of what is drawn, weighed by its opacity; 0 to 1.
    double lightness = 0;
    double redness = 0;
    double greenness = 0;
};

Ink inkOf(const QImage& image, const QRect& part) {
    Ink ink;
    double weight = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const double alpha = color.alphaF();
            ink.pixels += alpha > 0 ? 1 : 0;
            weight += alpha;
            ink.lightness += alpha * color.lightnessF();
            ink.redness += alpha * (color.redF() - color.greenF());
            ink.greenness += alpha * (color.greenF() - color.redF());
        }
    }
    ink.lightness /= weight;
    return ink;
}

Ink inkOf(const QImage& image) {
    return inkOf(image, image.rect());
}

QRect lowerHalf(const QImage& image) {
    return {0, image.height() / 2, image.width(), image.height() - image.height() / 2};
}

TEST(LabelPicture, ofASquareHasThePriceOverTheChange) {
    EXPECT_EQ(square().upper, QStringLiteral("67.2k"));
    EXPECT_EQ(square().lower, QStringLiteral("+1.2%"));
    LabelFace withoutChange = face(QStringLiteral("BTC 67,234.50 —"));
    withoutChange.shortChange.clear();
    EXPECT_EQ(LabelPicture::of(withoutChange, LabelForm::square, BarShade::dark).lower,
              QStringLiteral("—"));
}

TEST(LabelPicture, ofASquareWithoutAPriceNamesTheCoin) {
    LabelFace stale = face(QStringLiteral("BTC"), LabelDirection::stale);
    stale.shortPrice.clear();
    stale.shortChange.clear();
    const LabelPicture picture = LabelPicture::of(stale, LabelForm::square, BarShade::dark);
    EXPECT_EQ(picture.upper, QStringLiteral("BTC"));
    EXPECT_EQ(picture.lower, QStringLiteral("…"));
}

TEST(LabelPicture, ofNothingPinnedIsTheMark) {
    const LabelPicture picture = LabelPicture::of(LabelFace{}, LabelForm::square, BarShade::dark);
    EXPECT_EQ(picture.upper, QString());
    EXPECT_GT(inkOf(picture.drawn(22)).pixels, 60);
}

TEST(LabelPicture, besideATextStaysTheSame) {
    const auto beside = [](const QString& text, LabelDirection direction) {
        return LabelPicture::of(face(text, direction), LabelForm::text, BarShade::dark);
    };
    EXPECT_EQ(beside(QStringLiteral("BTC 1 ▲ 1.00%"), LabelDirection::up),
              beside(QStringLiteral("ETH 2 ▼ 2.00%"), LabelDirection::down));
}

TEST(LabelPicture, ofASquareChangesOnlyWithWhatItShows) {
    LabelFace first = face(QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
    LabelFace second = face(QStringLiteral("BTC 67,234.51 ▲ 1.23%"));
    second.details = QStringLiteral("1 分钟前更新");
    EXPECT_EQ(LabelPicture::of(first, LabelForm::square, BarShade::dark),
              LabelPicture::of(second, LabelForm::square, BarShade::dark));
    EXPECT_NE(LabelPicture::of(first, LabelForm::widePicture, BarShade::dark),
              LabelPicture::of(second, LabelForm::widePicture, BarShade::dark));
}

TEST(LabelPicture, isAsHighAsAskedForAndASquareAsWide) {
    for (const int height : kPictureHeights) {
        EXPECT_EQ(square().drawn(height).size(), QSize(height, height));
        EXPECT_EQ(wide(QStringLiteral("BTC 67,234.50 ▲ 1.23%")).drawn(height).height(), height);
    }
}

TEST(LabelPicture, ofTheWholeTextIsAsWideAsItNeeds) {
    const int shortText = wide(QStringLiteral("BTC 1.00 ▲ 1.23%")).drawn(22).width();
    const int longText = wide(QStringLiteral("BTC 67,234.50 ▲ 1.23%")).drawn(22).width();
    EXPECT_GT(shortText, 60);
    EXPECT_GT(longText, shortText + 20);
}

TEST(LabelPicture, ofTheWholeTextStaysAsWideWhileDigitsAndDirectionChange) {
    const int width = wide(QStringLiteral("BTC 67,234.50 ▲ 1.23%")).drawn(22).width();
    for (const char* const text :
         {"BTC 11,111.11 ▲ 1.11%", "BTC 88,888.88 ▼ 8.88%", "BTC 40,404.04 · 0.00%"}) {
        EXPECT_EQ(wide(QString::fromUtf8(text)).drawn(22).width(), width) << text;
    }
}

TEST(LabelPicture, ofTheWholeTextClipsNothing) {
    for (const int height : kPictureHeights) {
        const QImage image = wide(QStringLiteral("ÀBgTC 67,234.50 ▲ 1.23%")).drawn(height);
        for (const QRect& edge : {QRect(0, 0, 1, height),
                                  QRect(image.width() - 1, 0, 1, height),
                                  QRect(0, 0, image.width(), 1),
                                  QRect(0, height - 1, image.width(), 1)}) {
            EXPECT_EQ(inkOf(image, edge).pixels, 0);
        }
    }
}

TEST(LabelPicture, isLightOnADarkBarAndDarkOnALightOne) {
    for (const int height : kPictureHeights) {
        const QImage onDark = square(LabelDirection::flat, BarShade::dark).drawn(height);
        const QImage onLight = square(LabelDirection::flat, BarShade::light).drawn(height);
        EXPECT_GT(inkOf(onDark).lightness, 0.9);
        EXPECT_LT(inkOf(onLight).lightness, 0.2);
    }
}

TEST(LabelPicture, bringsItsOwnGroundToABarItDoesNotKnow) {
    const QImage image = square(LabelDirection::up, BarShade::unknown).drawn(22);
    EXPECT_GT(inkOf(image).pixels, 22 * 22 * 9 / 10);
    EXPECT_LT(image.pixelColor(1, 11).lightnessF(), 0.2);
    EXPECT_EQ(inkOf(square().drawn(22), QRect(0, 0, 22, 2)).pixels, 0);
}

TEST(LabelPicture, risesGreenAndFallsRed) {
    for (const BarShade shade : {BarShade::dark, BarShade::light}) {
        const QImage up = square(LabelDirection::up, shade).drawn(22);
        const QImage down = square(LabelDirection::down, shade).drawn(22);
        EXPECT_GT(inkOf(up, lowerHalf(up)).greenness, 5);
        EXPECT_GT(inkOf(down, lowerHalf(down)).redness, 5);
        EXPECT_EQ(inkOf(up, QRect(0, 0, 22, 10)).greenness, 0);
    }
}

TEST(LabelPicture, isPalerWhenNotLive) {
    const QImage live = square(LabelDirection::flat).drawn(22);
    const QImage stale = square(LabelDirection::stale).drawn(22);
    EXPECT_EQ(inkOf(live).pixels, inkOf(stale).pixels);
    const auto strongest = [](const QImage& image) {
        int alpha = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                alpha = std::max(alpha, image.pixelColor(x, y).alpha());
            }
        }
        return alpha;
    };
    EXPECT_EQ(strongest(live), 255);
    EXPECT_LT(strongest(stale), 200);
}

TEST(LabelPicture, squeezesWhatIsTooLongForASquare) {
    LabelFace stale = face(QStringLiteral("1000SATS"), LabelDirection::stale);
    stale.symbol = QStringLiteral("1000SATS");
    stale.shortPrice.clear();
    const LabelPicture picture = LabelPicture::of(stale, LabelForm::square, BarShade::dark);
    EXPECT_EQ(picture.drawn(22).width(), 22);
    EXPECT_GT(inkOf(picture.drawn(22), QRect(14, 0, 8, 12)).pixels, 10);
}

}  // namespace

}  // namespace quillbar
