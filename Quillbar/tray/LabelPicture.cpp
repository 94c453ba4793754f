// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/LabelPicture.h"

#include "Quillbar/text/TabularText.h"
#include "Quillbar/tray/PixelText.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace quillbar {

namespace {

constexpr QChar kUpMark(u'▲');
constexpr QChar kDownMark(u'▼');
constexpr QChar kFlatMark(u'·');

/// The height in pixels that the measures of this file are for.
constexpr double kDesignHeight = 22;

struct BarColors {
    QColor text;
    QColor up;
    QColor down;
};

// Stronger than the panel's: a line of a few pixels is mostly edges.
BarColors colorsOn(BarShade shade) {
    if (shade == BarShade::light) {
        return {QColor(20, 20, 22), QColor(0, 112, 60), QColor(190, 20, 20)};
    }
    return {QColor(255, 255, 255), QColor(84, 230, 160), QColor(255, 128, 128)};
}

QColor changeColor(LabelDirection direction, const BarColors& colors) {
    switch (direction) {
    case LabelDirection::up:
        return colors.up;
    case LabelDirection::down:
        return colors.down;
    case LabelDirection::flat:
    case LabelDirection::stale:
        break;
    }
    return colors.text;
}

// Data that is not live is paler as a whole.
double opacityOf(LabelDirection direction) {
    constexpr double kStaleOpacity = 0.65;
    return direction == LabelDirection::stale ? kStaleOpacity : 1;
}

QFont fontOfPixels(double pixels) {
    QFont font = QGuiApplication::font();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    font.setWeight(QFont::Medium);
    // Subpixel colours would be wrong on whatever lies behind the picture.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

// The whole text in three pieces, of which the mark takes the same width in every direction.
struct WideText {
    QString lead;
    QString mark;
    QString change;

    explicit WideText(const QString& text) {
        const qsizetype at = std::max(
            {text.lastIndexOf(kUpMark), text.lastIndexOf(kDownMark), text.lastIndexOf(kFlatMark)});
        lead = at < 0 ? text : text.left(at);
        mark = at < 0 ? QString() : text.mid(at, 1);
        change = at < 0 ? QString() : text.mid(at + 1);
    }

    [[nodiscard]] double markSlot(const QFont& font) const {
        if (mark.isEmpty()) {
            return 0;
        }
        const QFontMetricsF metrics(font);
        return std::max({metrics.horizontalAdvance(kUpMark),
                         metrics.horizontalAdvance(kDownMark),
                         metrics.horizontalAdvance(kFlatMark)});
    }

    [[nodiscard]] double width(const QFont& font) const {
        return TabularText::width(lead, font) + markSlot(font) + TabularText::width(change, font);
    }
};

QImage blank(int width, int height, BarShade shade) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (shade == BarShade::unknown) {
        constexpr double kCornerRadius = 4;
        const QColor ground(24, 24, 28, 225);
        const double radius = kCornerRadius * height / kDesignHeight;
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(QRectF(image.rect()), radius, radius);
    }
    return image;
}

QImage drawnWide(const LabelPicture& picture, int height) {
    constexpr double kPixels = 13;
    constexpr double kMargin = 4;
    const double scale = height / kDesignHeight;
    const QFont font = fontOfPixels(kPixels * scale);
    const WideText text(picture.upper);
    const double margin = kMargin * scale;
    const int width = static_cast<int>(std::ceil(text.width(font) + 2 * margin));
    QImage image = blank(width, height, picture.shade);
    QPainter painter(&image);
    painter.setOpacity(opacityOf(picture.direction));
    const BarColors colors = colorsOn(picture.shade);
    QRectF rest = QRectF(image.rect()).adjusted(margin, 0, 0, 0);
    const auto draw = [&](const QString& piece, Qt::Alignment side, double slot) {
        QRectF place = rest;
        place.setWidth(slot);
        TabularText::draw(painter, place, side | Qt::AlignVCenter, piece, font);
        rest.setLeft(place.right());
    };
    painter.setPen(colors.text);
    draw(text.lead, Qt::AlignLeft, TabularText::width(text.lead, font));
    painter.setPen(changeColor(picture.direction, colors));
    draw(text.mark, Qt::AlignHCenter, text.markSlot(font));
    draw(text.change, Qt::AlignLeft, TabularText::width(text.change, font));
    return image;
}

// As large as the square allows, and narrower where that is too wide.
QFont fittedFont(const QString& text, double pixels, double width) {
    constexpr double kNormalStretch = 100;
    QFont font = fontOfPixels(pixels);
    const double natural = TabularText::width(text, font);
    if (natural > width) {
        font.setStretch(std::max(1, static_cast<int>(kNormalStretch * width / natural)));
    }
    return font;
}

// Draws one line of a square so that it stands on the baseline, given in design pixels.
void drawLine(QPainter& painter, const QString& line, int baseline, int height) {
    constexpr double kPixels = 11;
    if (height == kDesignHeight) {
        const std::optional<int> width = PixelText::width(line);
        if (width && *width <= height) {
            const QPoint corner((height - *width) / 2, baseline - PixelText::kHeight);
            PixelText::draw(painter, corner, line);
            return;
        }
    }
    const double scale = height / kDesignHeight;
    const QFont font = fittedFont(line, kPixels * scale, height);
    const double top =
        std::round(baseline * scale) - QFontMetricsF(font, painter.device()).ascent();
    const QRectF place(0, top, height, height);
    TabularText::draw(painter, place, Qt::AlignHCenter | Qt::AlignTop, line, font);
}

QImage drawnSquare(const LabelPicture& picture, int height) {
    constexpr int kUpperBaseline = 10;
    constexpr int kLowerBaseline = 20;
    QImage image = blank(height, height, picture.shade);
    QPainter painter(&image);
    painter.setOpacity(opacityOf(picture.direction));
    const BarColors colors = colorsOn(picture.shade);
    painter.setPen(colors.text);
    drawLine(painter, picture.upper, kUpperBaseline, height);
    painter.setPen(changeColor(picture.direction, colors));
    drawLine(painter, picture.lower, kLowerBaseline, height);
    return image;
}

// Three candles that rise.
QImage drawnMark(int height, BarShade shade) {
    constexpr double kUnits = 22;
    constexpr std::array kCandles{
        QRectF(3, 11, 4, 8),
        QRectF(9, 7, 4, 10),
        QRectF(15, 3, 4, 9),
    };
    constexpr double kCornerRadius = 1;
    QImage image = blank(height, height, shade);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(height / kUnits, height / kUnits);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colorsOn(shade).text);
    for (const QRectF& candle : kCandles) {
        painter.drawRoundedRect(candle, kCornerRadius, kCornerRadius);
    }
    return image;
}

}  // namespace

LabelPicture LabelPicture::of(const LabelFace& face, LabelForm form, BarShade shade) {
    LabelPicture picture;
    picture.form = form;
    picture.shade = shade;
    switch (form) {
    case LabelForm::text:
        return picture;
    case LabelForm::widePicture:
        picture.upper = face.text;
        break;
    case LabelForm::square:
        if (face.shortPrice.isEmpty()) {
            picture.upper = face.symbol;
            picture.lower = face.symbol.isEmpty() ? QString() : QStringLiteral("…");
        } else {
            picture.upper = face.shortPrice;
            picture.lower = face.shortChange.isEmpty() ? QStringLiteral("—") : face.shortChange;
        }
        break;
    }
    picture.direction = face.direction;
    return picture;
}

QImage LabelPicture::drawn(int height) const {
    if (upper.isEmpty()) {
        return drawnMark(height, shade);
    }
    return form == LabelForm::widePicture ? drawnWide(*this, height) : drawnSquare(*this, height);
}

}  // namespace quillbar
