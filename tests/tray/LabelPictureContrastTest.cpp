// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/LabelPicture.h"
#include "tests/qtsupport/Contrast.h"

#include <QColor>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace quillbar {

namespace {

constexpr double kReadable = 3;

/// The heights of bars, at scale 1 and 2.
constexpr std::array kHeights{16, 18, 20, 22, 24, 28, 32, 36, 40, 44, 48};

/// The picture as it is seen on a bar of this colour.
QImage seenOn(const QColor& bar, const QImage& picture) {
    QImage seen(picture.size(), QImage::Format_RGB32);
    seen.fill(bar);
    QPainter painter(&seen);
    painter.drawImage(0, 0, picture);
    return seen;
}

/// The contrast of each character, from left to right: of its strongest pixel to the ground at the
/// same place. Characters that touch count as one.
std::vector<double> contrastsOf(const QImage& seen, const QImage& ground, const QRect& line) {
    constexpr double kInk = 1.1;
    std::vector<double> characters;
    bool isInside = false;
    for (int x = line.left(); x <= line.right(); ++x) {
        double column = 1;
        for (int y = line.top(); y <= line.bottom(); ++y) {
            column = std::max(column, contrastOf(seen.pixel(x, y), ground.pixel(x, y)));
        }
        const bool isInk = column > kInk;
        if (isInk && !isInside) {
            characters.push_back(column);
        } else if (isInk) {
            characters.back() = std::max(characters.back(), column);
        }
        isInside = isInk;
    }
    return characters;
}

struct Sample {
    const char* upper;
    const char* lower;
    LabelDirection direction;
};

/// Rising, falling, unchanged, stale and disconnected, and a coin without a price.
constexpr std::array kSamples{Sample{"67.2k", "+1.2%", LabelDirection::up},
                              Sample{"0.0₄18", "-9.8%", LabelDirection::down},
                              Sample{"9.876", "0.0%", LabelDirection::flat},
                              Sample{".1235", "+99k%", LabelDirection::stale},
                              Sample{"BTC", "…", LabelDirection::stale},
                              Sample{"1000SATS", "—", LabelDirection::stale}};

/// Grounds of our own are seen on any bar; the ground that is known to be dark, on dark ones.
std::vector<QColor> barsFor(PictureGround ground) {
    if (ground == PictureGround::darkBar) {
        return {QColor(0, 0, 0), QColor(29, 29, 32), QColor(48, 48, 52)};
    }
    return {QColor(255, 255, 255), QColor(239, 240, 241), QColor(128, 128, 128), QColor(0, 0, 0)};
}

QImage drawnOn(PictureGround ground, const Sample& sample, LabelForm form, int height) {
    const LabelPicture picture{.form = form,
                               .ground = ground,
                               .upper = QString::fromUtf8(sample.upper),
                               .lower = QString::fromUtf8(sample.lower),
                               .direction = sample.direction};
    return picture.drawn(height);
}

double weakest(const std::vector<double>& contrasts) {
    return contrasts.empty() ? 0 : *std::min_element(contrasts.begin(), contrasts.end());
}

/// Calls `check(bar, ground, height)` for every ground on all bars that it may stand on.
template <class Check>
void onEveryBar(Check check) {
    for (const auto ground : {PictureGround::own, PictureGround::darkBar}) {
        for (const QColor& bar : barsFor(ground)) {
            for (const int height : kHeights) {
                SCOPED_TRACE(std::to_string(height) + " on " + bar.name().toStdString());
                check(bar, ground, height);
            }
        }
    }
}

TEST(LabelPictureContrastTest, everyCharacterOfASquareStandsOutThreeToOne) {
    onEveryBar([](const QColor& bar, PictureGround ground, int height) {
        const Sample blank{" ", "", LabelDirection::flat};
        const QImage empty = seenOn(bar, drawnOn(ground, blank, LabelForm::square, height));
        const int middle = height / 2;
        for (const Sample& sample : kSamples) {
            const QImage seen = seenOn(bar, drawnOn(ground, sample, LabelForm::square, height));
            const QRect upper(0, 0, height, middle);
            const QRect lower(0, middle, height, height - middle);
            EXPECT_GE(weakest(contrastsOf(seen, empty, upper)), kReadable) << sample.upper;
            EXPECT_GE(weakest(contrastsOf(seen, empty, lower)), kReadable) << sample.lower;
        }
    });
}

TEST(LabelPictureContrastTest, theMarkStandsOutThreeToOne) {
    onEveryBar([](const QColor& bar, PictureGround ground, int height) {
        const Sample blank{" ", "", LabelDirection::flat};
        const Sample mark{"", "", LabelDirection::stale};
        const QImage empty = seenOn(bar, drawnOn(ground, blank, LabelForm::square, height));
        const QImage seen = seenOn(bar, drawnOn(ground, mark, LabelForm::square, height));
        EXPECT_GE(weakest(contrastsOf(seen, empty, seen.rect())), kReadable);
    });
}

TEST(LabelPictureContrastTest, everyCharacterOfTheWholeTextStandsOutThreeToOne) {
    const std::array samples{Sample{"BTC 67,234.50 ▲ 1.23%", "▲ 1.23%", LabelDirection::up},
                             Sample{"BTC 67,234.50 ▼12.50%", "▼12.50%", LabelDirection::down},
                             Sample{"BTC 67,234.50 · 0.00%", "· 0.00%", LabelDirection::flat},
                             Sample{"BTC", "", LabelDirection::stale}};
    onEveryBar([&samples](const QColor& bar, PictureGround ground, int height) {
        for (const Sample& sample : samples) {
            const QImage drawn = drawnOn(ground, sample, LabelForm::widePicture, height);
            // A column without text, at every place.
            const QImage empty = drawn.copy(drawn.width() / 2, 0, 1, 1).scaled(drawn.size());
            const QImage seen = seenOn(bar, drawn);
            const QRect inside = seen.rect().adjusted(height / 5, 2, -height / 5, -2);
            EXPECT_GE(weakest(contrastsOf(seen, seenOn(bar, empty), inside)), kReadable)
                << sample.upper;
        }
    });
}

}  // namespace

}  // namespace quillbar
