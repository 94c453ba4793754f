// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/AlertMark.h"
#include "Quillbar/tray/LabelPicture.h"

#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillbar {
namespace {

/// Whether the colour is that of the mark, as far as smooth edges let it.
bool isMark(const QColor& color) {
    return color.alpha() > 100 && std::abs(color.red() - AlertMark::kColor.red()) < 40
           && std::abs(color.green() - AlertMark::kColor.green()) < 40
           && std::abs(color.blue() - AlertMark::kColor.blue()) < 60;
}

int markedPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += isMark(image.pixelColor(x, y)) ? 1 : 0;
        }
    }
    return count;
}

LabelPicture marked(LabelPicture picture) {
    picture.isMarked = true;
    return picture;
}

LabelPicture square(PictureGround ground) {
    return {.form = LabelForm::square,
            .ground = ground,
            .upper = QStringLiteral("67.2k"),
            .lower = QStringLiteral("+1.2%"),
            .direction = LabelDirection::up};
}

LabelPicture wide(PictureGround ground) {
    return {.form = LabelForm::widePicture,
            .ground = ground,
            .upper = QStringLiteral("BTC 67,234.50 ▲ 1.23%"),
            .lower = QStringLiteral("▲ 1.23%"),
            .direction = LabelDirection::up};
}

TEST(AlertMarkTest, framesTextsWithoutCoveringThem) {
    for (const PictureGround ground : {PictureGround::darkBar, PictureGround::own}) {
        for (const LabelPicture& picture : {square(ground), wide(ground)}) {
            for (const int height : {22, 44}) {
                SCOPED_TRACE(height);
                const QImage before = picture.drawn(height);
                const QImage after = marked(picture).drawn(height);
                ASSERT_EQ(after.size(), before.size());
                EXPECT_EQ(markedPixels(before), 0);
                EXPECT_GT(markedPixels(after), 2 * height);
                const int edge = height / 22;
                const QRect inside = before.rect().adjusted(edge, edge, -edge, -edge);
                // Two rows are free above texts and below them.
                const QRect texts = inside.adjusted(0, edge, 0, -edge);
                EXPECT_EQ(after.copy(texts), before.copy(texts));
            }
        }
    }
}

TEST(AlertMarkTest, putsADotIntoTheFreeCornerOfTheMark) {
    for (const PictureGround ground : {PictureGround::darkBar, PictureGround::own}) {
        const LabelPicture picture{.form = LabelForm::text, .ground = ground};
        const QImage before = picture.drawn(22);
        const QImage after = marked(picture).drawn(22);
        EXPECT_GT(markedPixels(after), 20);
        EXPECT_TRUE(isMark(after.pixelColor(5, 5)));
        const QRect candles(9, 0, 13, 22);
        EXPECT_EQ(after.copy(candles), before.copy(candles));
        const QRect firstCandle(0, 10, 9, 12);
        EXPECT_EQ(after.copy(firstCandle), before.copy(firstCandle));
    }
}

TEST(AlertMarkTest, aMarkedPictureIsAnotherPicture) {
    EXPECT_NE(marked(square(PictureGround::own)), square(PictureGround::own));
}

}  // namespace
}  // namespace quillbar
