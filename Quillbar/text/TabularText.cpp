// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/TabularText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace quillbar::TabularText {

namespace {

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

double widestDigit(const QFontMetricsF& metrics) {
    double widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    }
    return widest;
}

// Calls `visit(piece, advance)` for each digit by itself and for each run of other characters.
template <class Visitor>
void forEachPiece(const QString& text, const QFontMetricsF& metrics, Visitor visit) {
    const double slot = widestDigit(metrics);
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = start + 1;
        if (isDigit(text[start])) {
            visit(text.mid(start, 1), slot);
        } else {
            while (end < text.size() && !isDigit(text[end])) {
                ++end;
            }
            const QString run = text.mid(start, end - start);
            visit(run, metrics.horizontalAdvance(run));
        }
        start = end;
    }
}

}  // namespace

double width(const QString& text, const QFont& font) {
    double sum = 0;
    forEachPiece(text, QFontMetricsF(font), [&sum](const QString& /*piece*/, double advance) {
        sum += advance;
    });
    return sum;
}

void draw(QPainter& painter,
          const QRectF& rectangle,
          Qt::Alignment alignment,
          const QString& text,
          const QFont& font) {
    const QFontMetricsF metrics(font, painter.device());
    double x = rectangle.left();
    if (alignment.testFlag(Qt::AlignRight)) {
        x = rectangle.right() - width(text, font);
    } else if (alignment.testFlag(Qt::AlignHCenter)) {
        x = rectangle.center().x() - width(text, font) / 2;
    }
    double baseline = rectangle.top() + metrics.ascent();
    if (alignment.testFlag(Qt::AlignBottom)) {
        baseline = rectangle.bottom() - metrics.descent();
    } else if (alignment.testFlag(Qt::AlignVCenter)) {
        baseline = rectangle.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    }
    painter.setFont(font);
    forEachPiece(text, QFontMetricsF(font), [&](const QString& piece, double advance) {
        const double inset = (advance - metrics.horizontalAdvance(piece)) / 2;
        painter.drawText(QPointF(x + (piece.size() == 1 ? inset : 0), baseline), piece);
        x += advance;
    });
}

}  // namespace quillbar::TabularText
