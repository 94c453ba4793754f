// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/LabelPicture.h"

#include "Quillbar/text/TabularText.h"
#include "Quillbar/tray/AlertMark.h"
#include "Quillbar/tray/PixelText.h"
#include "Quillbar/widgets/ChangePalette.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

namespace quillbar {

namespace {

constexpr QChar kUpMark(u'▲');
constexpr QChar kDownMark(u'▼');
constexpr QChar kFlatMark(u'·');

/// The height in pixels that the measures of this file are for.
constexpr double kDesignHeight = 22;

constexpr QColor kTextColor(255, 255, 255);

QColor changeColor(ChangeColors colors, LabelDirection direction) {
    const ChangePalette palette = ChangePalette::of(colors, ChangePalette::Ground::statusArea);
    switch (direction) {
    case LabelDirection::up:
        return palette.up;
    case LabelDirection::down:
        return palette.down;
    case LabelDirection::flat:
    case LabelDirection::stale:
        break;
    }
    return kTextColor;
}

// Data that are not live are drawn paler.
double opacityOf(LabelDirection direction) {
    constexpr double kStaleOpacity = 0.65;
    return direction == LabelDirection::stale ? kStaleOpacity : 1;
}

QFont fontOfPixels(double pixels) {
    QFont font = QGuiApplication::font();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    font.setWeight(QFont::Medium);
    // The colours of subpixels would be wrong on a background that is not known.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

bool isMark(QChar character) {
    return character == kUpMark || character == kDownMark || character == kFlatMark;
}

// The text of a coin in three pieces. The arrow takes the same width in every direction, and so
// does the number behind it with one digit before its point or with two.
struct WideText {
    QString lead;
    QString mark;
    QString change;
    LabelDirection direction;

    WideText(const QString& text, const QString& changeAtEnd, LabelDirection itsDirection)
        : lead(text.chopped(changeAtEnd.size()))
        , mark(!changeAtEnd.isEmpty() && isMark(changeAtEnd.front()) ? changeAtEnd.left(1)
                                                                     : QString())
        , change(changeAtEnd.mid(mark.size()).trimmed())
        , direction(itsDirection) {}

    [[nodiscard]] double markSlot(const QFont& font) const {
        if (mark.isEmpty()) {
            return 0;
        }
        const QFontMetricsF metrics(font);
        return std::max({metrics.horizontalAdvance(kUpMark),
                         metrics.horizontalAdvance(kDownMark),
                         metrics.horizontalAdvance(kFlatMark)});
    }

    [[nodiscard]] double changeSlot(const QFont& font) const {
        if (change.isEmpty()) {
            return 0;
        }
        return std::max(TabularText::width(change, font),
                        TabularText::width(QStringLiteral("00.00%"), font));
    }

    [[nodiscard]] double width(const QFont& font) const {
        return TabularText::width(lead, font) + markSlot(font) + changeSlot(font);
    }
};

QImage blank(int width, int height, PictureGround ground) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (ground == PictureGround::own) {
        constexpr double kCornerRadius = 4;
        const QColor color(24, 24, 28, 225);
        const double radius = kCornerRadius * height / kDesignHeight;
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRoundedRect(QRectF(image.rect()), radius, radius);
    }
    return image;
}

QImage drawnWide(const LabelPicture& picture, int height) {
    constexpr double kPixels = 13;
    constexpr double kMargin = 4;
    constexpr double kGap = 10;
    const double scale = height / kDesignHeight;
    const QFont font = fontOfPixels(kPixels * scale);
    std::vector<WideText> texts{{picture.upper, picture.lower, picture.direction}};
    for (const LabelFace::Beside& each : picture.beside) {
        texts.emplace_back(each.label, each.change, each.direction);
    }
    const double margin = kMargin * scale;
    const double gap = kGap * scale;
    double length = 2 * margin - gap;
    for (const WideText& text : texts) {
        length += text.width(font) + gap;
    }
    QImage image = blank(static_cast<int>(std::ceil(length)), height, picture.ground);
    QPainter painter(&image);
    QRectF rest = QRectF(image.rect()).adjusted(margin, 0, 0, 0);
    const auto draw = [&](const QString& piece, Qt::Alignment side, double slot) {
        QRectF place = rest;
        place.setWidth(slot);
        TabularText::draw(painter, place, side | Qt::AlignVCenter, piece, font);
        rest.setLeft(place.right());
    };
    for (const WideText& text : texts) {
        painter.setOpacity(opacityOf(text.direction));
        painter.setPen(kTextColor);
        draw(text.lead, Qt::AlignLeft, TabularText::width(text.lead, font));
        painter.setPen(changeColor(picture.changeColors, text.direction));
        draw(text.mark, Qt::AlignHCenter, text.markSlot(font));
        draw(text.change, Qt::AlignRight, text.changeSlot(font));
        rest.setLeft(rest.left() + gap);
    }
    return image;
}

// The columns that stay free at both sides of a square, because hosts cut corners and scale.
int insetOf(int height) {
    return std::max(1, static_cast<int>(std::lround(height / kDesignHeight)));
}

// As large as the square allows, and narrower where that is too wide.
QFont fittedFont(const QString& text, double pixels, double width) {
    constexpr double kNormalStretch = 100;
    QFont font = fontOfPixels(pixels);
    const double natural = TabularText::width(text, font);
    if (natural <= width) {
        return font;
    }
    // A font rounds its widths.
    for (int stretch = static_cast<int>(kNormalStretch * width / natural); stretch > 0; --stretch) {
        font.setStretch(stretch);
        if (TabularText::width(text, font) <= width) {
            break;
        }
    }
    return font;
}

// Digits of whole pixels are sharper than an outline font. They are used if two lines of them have
// room and are large enough.
bool isDrawnInPixels(int height) {
    constexpr int kSmallest = 20;
    constexpr int kTooLarge = 32;
    return height >= kSmallest && height < kTooLarge;
}

// Draws the text twice, because strokes thinner than a pixel are too pale to read.
void drawStrongly(QPainter& painter,
                  const QSize& size,
                  const QRectF& place,
                  const QString& line,
                  const QFont& font) {
    QImage layer(size, QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    {
        QPainter onLayer(&layer);
        onLayer.setPen(painter.pen());
        for (int i = 0; i < 2; ++i) {
            TabularText::draw(onLayer, place, Qt::AlignHCenter | Qt::AlignTop, line, font);
        }
    }
    painter.drawImage(0, 0, layer);
}

// Draws one line of a square so that it stands on the baseline, given in design pixels.
void drawLine(QPainter& painter, const QString& line, int designBaseline, int height) {
    if (line.isEmpty()) {
        return;
    }
    constexpr double kPixels = 11;
    const double scale = height / kDesignHeight;
    const int baseline = static_cast<int>(std::lround(designBaseline * scale));
    const int inset = insetOf(height);
    const int space = height - 2 * inset;
    if (isDrawnInPixels(height)) {
        if (const auto digits = PixelText::fitting(line, space)) {
            const int left = (height - PixelText::width(line, *digits).value_or(0)) / 2;
            PixelText::draw(painter, QPoint(left, baseline - PixelText::kHeight), line, *digits);
            return;
        }
    }
    const QFont font = fittedFont(line, kPixels * scale, space);
    const double top = baseline - QFontMetricsF(font, painter.device()).ascent();
    drawStrongly(painter, QSize(height, height), QRectF(inset, top, space, height), line, font);
}

QImage drawnSquare(const LabelPicture& picture, int height) {
    constexpr int kUpperBaseline = 10;
    constexpr int kLowerBaseline = 20;
    constexpr int kSingleBaseline = 15;
    const bool isSingle = picture.upper.isEmpty() || picture.lower.isEmpty();
    QImage image = blank(height, height, picture.ground);
    QPainter painter(&image);
    painter.setOpacity(opacityOf(picture.direction));
    painter.setPen(kTextColor);
    drawLine(painter, picture.upper, isSingle ? kSingleBaseline : kUpperBaseline, height);
    painter.setPen(changeColor(picture.changeColors, picture.direction));
    drawLine(painter, picture.lower, isSingle ? kSingleBaseline : kLowerBaseline, height);
    return image;
}

// Three candles that rise.
QImage drawnMark(int height, PictureGround ground) {
    constexpr double kUnits = 22;
    constexpr std::array kCandles{
        QRectF(3, 11, 4, 8),
        QRectF(9, 7, 4, 10),
        QRectF(15, 3, 4, 9),
    };
    constexpr double kCornerRadius = 1;
    QImage image = blank(height, height, ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(height / kUnits, height / kUnits);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kTextColor);
    for (const QRectF& candle : kCandles) {
        painter.drawRoundedRect(candle, kCornerRadius, kCornerRadius);
    }
    return image;
}

// The two lines of a square, of which the lower one alone has a colour.
void fillSquare(LabelPicture& picture, const LabelFace& face, SquareTop top) {
    if (face.shortPrice.isEmpty()) {
        picture.upper = face.symbol;
        picture.lower = face.symbol.isEmpty() ? QString() : QStringLiteral("…");
        return;
    }
    const bool wantsName = face.showsSymbol || top == SquareTop::name;
    if (face.showsChange) {
        picture.lower = face.shortChange.isEmpty() ? QStringLiteral("—") : face.shortChange;
        if (face.showsPrice && top == SquareTop::price) {
            picture.upper = face.shortPrice;
        } else if (wantsName) {
            picture.upper = face.symbol;
        }
    } else if (face.showsPrice && wantsName) {
        picture.upper = face.symbol;
        picture.lower = face.shortPrice;
    } else if (face.showsPrice) {
        picture.upper = face.shortPrice;
    } else if (face.showsSymbol) {
        picture.upper = face.symbol;
    }
}

}  // namespace

LabelPicture LabelPicture::of(const LabelFace& face,
                              LabelForm form,
                              PictureGround ground,
                              SquareTop top) {
    LabelPicture picture;
    picture.form = form;
    picture.ground = ground;
    if (face.isDiscreet) {
        return picture;
    }
    switch (form) {
    case LabelForm::text:
        return picture;
    case LabelForm::widePicture:
        picture.upper = face.label();
        picture.lower = face.change;
        picture.beside = face.beside;
        break;
    case LabelForm::square:
        fillSquare(picture, face, top);
        break;
    }
    picture.direction = face.direction;
    picture.changeColors = face.changeColors;
    return picture;
}

QImage LabelPicture::drawn(int height) const {
    if (upper.isEmpty() && lower.isEmpty()) {
        QImage image = drawnMark(height, ground);
        if (isMarked) {
            AlertMark::drawDot(image);
        }
        return image;
    }
    QImage image =
        form == LabelForm::widePicture ? drawnWide(*this, height) : drawnSquare(*this, height);
    if (isMarked) {
        AlertMark::drawFrame(image);
    }
    return image;
}

}  // namespace quillbar
