// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/LabelPicture.h"
#include "tests/qtsupport/Ink.h"

#include <QRect>

#include <gtest/gtest.h>

namespace quillbar {

namespace {

LabelFace face(const QString& text, LabelDirection direction = LabelDirection::up) {
    LabelFace result;
    result.text = text;
    // Behind the coin and the price.
    result.change = text.section(u' ', 2);
    result.symbol = QStringLiteral("BTC");
    result.shortPrice = QStringLiteral("67.2k");
    result.shortChange = QStringLiteral("+1.2%");
    result.direction = direction;
    return result;
}

LabelPicture wide(const QString& text) {
    return LabelPicture::of(face(text), LabelForm::widePicture, PictureGround::darkBar);
}

LabelPicture square() {
    return LabelPicture::of(
        face(QStringLiteral("BTC 67,234.50 ▲ 1.23%")), LabelForm::square, PictureGround::darkBar);
}

TEST(LabelPicture, ofASquareHasThePriceOverTheChange) {
    EXPECT_EQ(square().upper, QStringLiteral("67.2k"));
    EXPECT_EQ(square().lower, QStringLiteral("+1.2%"));
    LabelFace withoutChange = face(QStringLiteral("BTC 67,234.50 —"));
    withoutChange.shortChange.clear();
    EXPECT_EQ(LabelPicture::of(withoutChange, LabelForm::square, PictureGround::darkBar).lower,
              QStringLiteral("—"));
}

TEST(LabelPicture, ofASquareWithoutAPriceNamesTheCoin) {
    LabelFace stale = face(QStringLiteral("BTC"), LabelDirection::stale);
    stale.shortPrice.clear();
    stale.shortChange.clear();
    const LabelPicture picture = LabelPicture::of(stale, LabelForm::square, PictureGround::darkBar);
    EXPECT_EQ(picture.upper, QStringLiteral("BTC"));
    EXPECT_EQ(picture.lower, QStringLiteral("…"));
}

TEST(LabelPicture, ofASquareNamesTheCoinInsteadOfThePriceWhenAsked) {
    const auto named = [](const LabelFace& face, LabelForm form) {
        return LabelPicture::of(face, form, PictureGround::darkBar, SquareTop::name);
    };
    const LabelFace live = face(QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
    EXPECT_EQ(named(live, LabelForm::square).upper, QStringLiteral("BTC"));
    EXPECT_EQ(named(live, LabelForm::square).lower, QStringLiteral("+1.2%"));
    EXPECT_EQ(named(live, LabelForm::widePicture), wide(live.text));
    EXPECT_EQ(named(LabelFace{}, LabelForm::square).upper, QString());
}

TEST(LabelPicture, ofTheWholeTextHasTheCoinsBesideIt) {
    LabelFace row = face(QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
    row.beside = {{QStringLiteral("SOL"), QString(), LabelDirection::stale}};
    const auto of = [&row](LabelForm form) {
        return LabelPicture::of(row, form, PictureGround::darkBar).beside;
    };
    EXPECT_EQ(of(LabelForm::widePicture), row.beside);
    EXPECT_TRUE(of(LabelForm::square).empty());
    EXPECT_TRUE(of(LabelForm::text).empty());
}

TEST(LabelPicture, ofNothingPinnedIsTheMark) {
    const LabelPicture picture =
        LabelPicture::of(LabelFace{}, LabelForm::square, PictureGround::darkBar);
    EXPECT_EQ(picture.upper, QString());
    EXPECT_EQ(picture.lower, QString());
}

TEST(LabelPicture, ofASquareLeavesOutWhatTheWordingDoes) {
    const auto lines = [](bool symbol, bool price, bool change, SquareTop top = SquareTop::price) {
        LabelFace worded = face(QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
        worded.showsSymbol = symbol;
        worded.showsPrice = price;
        worded.showsChange = change;
        const LabelPicture picture =
            LabelPicture::of(worded, LabelForm::square, PictureGround::darkBar, top);
        return picture.upper + u'/' + picture.lower;
    };
    EXPECT_EQ(lines(true, true, false), QStringLiteral("BTC/67.2k"));
    EXPECT_EQ(lines(false, true, false), QStringLiteral("67.2k/"));
    EXPECT_EQ(lines(false, false, true), QStringLiteral("/+1.2%"));
    EXPECT_EQ(lines(true, false, false), QStringLiteral("BTC/"));
    EXPECT_EQ(lines(true, false, true), QStringLiteral("BTC/+1.2%"));
    EXPECT_EQ(lines(false, true, true), QStringLiteral("67.2k/+1.2%"));
    EXPECT_EQ(lines(false, false, false), QStringLiteral("/"));
    EXPECT_EQ(lines(false, true, false, SquareTop::name), QStringLiteral("BTC/67.2k"));
    EXPECT_EQ(lines(false, false, true, SquareTop::name), QStringLiteral("BTC/+1.2%"));
}

TEST(LabelPicture, ofTheWholeTextIsInTheUsersWording) {
    LabelFace worded = face(QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
    worded.worded = QStringLiteral("67,234.50");
    worded.change.clear();
    const LabelPicture picture =
        LabelPicture::of(worded, LabelForm::widePicture, PictureGround::darkBar);
    EXPECT_EQ(picture.upper, worded.worded);
    EXPECT_EQ(picture.lower, QString());
}

TEST(LabelPicture, ofHiddenNumbersIsTheMarkInEveryForm) {
    LabelFace hidden;
    hidden.isDiscreet = true;
    for (const LabelForm form : {LabelForm::text, LabelForm::widePicture, LabelForm::square}) {
        const LabelPicture picture = LabelPicture::of(hidden, form, PictureGround::darkBar);
        EXPECT_EQ(picture.upper + picture.lower, QString());
        EXPECT_EQ(picture.drawn(22).size(), QSize(22, 22));
    }
}

TEST(LabelPicture, besideATextStaysTheSame) {
    const auto beside = [](const QString& text, LabelDirection direction) {
        return LabelPicture::of(face(text, direction), LabelForm::text, PictureGround::darkBar);
    };
    EXPECT_EQ(beside(QStringLiteral("BTC 1 ▲ 1.00%"), LabelDirection::up),
              beside(QStringLiteral("ETH 2 ▼ 2.00%"), LabelDirection::down));
}

TEST(LabelPicture, ofASquareChangesOnlyWithWhatItShows) {
    LabelFace first = face(QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
    LabelFace second = face(QStringLiteral("BTC 67,234.51 ▲ 1.23%"));
    second.details = QStringLiteral("1 分钟前更新");
    EXPECT_EQ(LabelPicture::of(first, LabelForm::square, PictureGround::darkBar),
              LabelPicture::of(second, LabelForm::square, PictureGround::darkBar));
    EXPECT_NE(LabelPicture::of(first, LabelForm::widePicture, PictureGround::darkBar),
              LabelPicture::of(second, LabelForm::widePicture, PictureGround::darkBar));
}

TEST(LabelPicture, goesWithItsFormItsGroundAndItsDirection) {
    const LabelFace falling = face(QStringLiteral("BTC 1 ▼ 1.00%"), LabelDirection::down);
    const LabelPicture picture =
        LabelPicture::of(falling, LabelForm::widePicture, PictureGround::own);
    EXPECT_EQ(picture.form, LabelForm::widePicture);
    EXPECT_EQ(picture.ground, PictureGround::own);
    EXPECT_EQ(picture.direction, LabelDirection::down);
    EXPECT_EQ(picture.upper, falling.text);
}

TEST(LabelPicture, goesWithTheColorsOfChanges) {
    LabelFace chosen = face(QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
    chosen.changeColors = ChangeColors::redUp;
    const LabelPicture picture =
        LabelPicture::of(chosen, LabelForm::square, PictureGround::darkBar);
    EXPECT_EQ(picture.changeColors, ChangeColors::redUp);
    EXPECT_NE(picture, square());
}

TEST(LabelPicture, ofTheWholeTextKnowsWhereTheChangeBegins) {
    EXPECT_EQ(wide(QStringLiteral("BTC 67,234.50 ▲ 1.23%")).lower, QStringLiteral("▲ 1.23%"));
    EXPECT_EQ(wide(QStringLiteral("BTC")).lower, QString());
}

TEST(LabelPicture, isAsHighAsAskedForAndASquareAsWide) {
    for (const int height : kSquareHeights) {
        EXPECT_EQ(square().drawn(height).size(), QSize(height, height));
    }
    for (const int height : kPictureHeights) {
        EXPECT_EQ(wide(QStringLiteral("BTC 67,234.50 ▲ 1.23%")).drawn(height).height(), height);
    }
}

TEST(LabelPicture, ofTheWholeTextStaysAsWideWhileDigitsAndDirectionChange) {
    const int width = wide(QStringLiteral("BTC 67,234.50 ▲ 1.23%")).drawn(22).width();
    for (const char* const text : {"BTC 11,111.11 ▲ 1.11%",
                                   "BTC 88,888.88 ▼ 8.88%",
                                   "BTC 40,404.04 · 0.00%",
                                   "BTC 11,111.11 ▲12.34%"}) {
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
            EXPECT_EQ(boundsOfInk(image.copy(edge)), QRect());
        }
    }
}

}  // namespace

}  // namespace quillbar
