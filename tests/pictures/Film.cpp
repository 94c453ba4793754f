// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/pictures/Film.h"

#include "tests/desktop/Waiting.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <QTextStream>

#include <utility>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

constexpr auto kPulse = 250ms;
constexpr auto kStep = 30ms;
constexpr auto kPress = 240ms;
constexpr int kSteps = 14;

constexpr int kMargin = 28;
constexpr int kTop = 64;
constexpr int kColumn = 350;
constexpr int kTitleHeight = 38;
constexpr int kTitleSize = 19;
constexpr int kTextSize = 17;
constexpr int kTextGap = 22;

constexpr int kMagnification = 4;

const QColor kBright(255, 255, 255);
const QColor kDim(255, 255, 255, 115);
const QColor kMark(255, 200, 60);

QFont fontOf(int size, QFont::Weight weight) {
    // The one that draws both languages, whatever the system prefers.
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

const Chapter::Words& wordsOf(const Chapter& chapter, Language language) {
    return language == Language::english ? chapter.english : chapter.chinese;
}

void drawChapters(QPainter& painter,
                  const std::vector<Chapter>& chapters,
                  std::size_t current,
                  Language language) {
    QRect line(kMargin, kTop, kColumn, kTitleHeight);
    for (std::size_t index = 0; index < chapters.size(); ++index) {
        const bool isCurrent = index == current;
        painter.setFont(fontOf(kTitleSize, isCurrent ? QFont::Bold : QFont::Normal));
        painter.setPen(isCurrent ? kBright : kDim);
        painter.drawText(
            line,
            Qt::AlignLeft | Qt::AlignVCenter,
            QStringLiteral("%1  %2").arg(index + 1).arg(wordsOf(chapters[index], language).title));
        line.translate(0, kTitleHeight);
    }
    painter.setFont(fontOf(kTextSize, QFont::Normal));
    painter.setPen(kBright);
    const QRect rest(kMargin, line.top() + kTextGap, kColumn, painter.viewport().height());
    painter.drawText(rest,
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                     wordsOf(chapters[current], language).text);
}

void drawPointer(QPainter& painter, QPoint tip, bool isPressed) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(tip);
    if (isPressed) {
        constexpr double kRing = 14;
        painter.setPen(QPen(kMark, 3));
        painter.drawEllipse(QPointF(0, 0), kRing, kRing);
    }
    const QPolygonF arrow{
        {0, 0}, {0, 17}, {4, 13.5}, {6.6, 19.5}, {9.4, 18.3}, {6.8, 12.4}, {12, 12}};
    painter.setPen(QPen(Qt::black, 1.2));
    painter.setBrush(Qt::white);
    painter.drawPolygon(arrow);
    painter.restore();
}

/// Enlarges a part below the words, and marks it where it is.
void drawMagnified(QPainter& painter, const QImage& picture, QRect part) {
    QRect enlarged(QPoint(0, 0), part.size() * kMagnification);
    enlarged.moveBottomLeft({kMargin, picture.height() - kMargin});
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(enlarged, picture, part);
    painter.setPen(kMark);
    for (const QRect& each : {part, enlarged}) {
        painter.drawRect(each.adjusted(-1, -1, 0, 0));
    }
    painter.restore();
}

}  // namespace

bool Film::Frame::looksLike(const Frame& other) const {
    return picture == other.picture && pointer == other.pointer && chapter == other.chapter
           && isPressed == other.isPressed && magnified == other.magnified;
}

Film::Film(Screen& screen, QRect area, std::vector<Chapter> chapters)
    : m_screen(screen)
    , m_area(area)
    , m_chapters(std::move(chapters))
    , m_pointer(area.center()) {
    m_screen.movePointer(m_pointer);
}

void Film::nextChapter() {
    ++m_chapter;
}

void Film::watch(std::chrono::milliseconds duration) {
    for (auto rest = duration; rest > 0ms; rest -= kPulse) {
        take(kPulse);
        pause(kPulse);
    }
}

void Film::magnify(QRect part, std::chrono::milliseconds duration) {
    m_magnified = part.translated(-m_area.topLeft());
    watch(duration);
    m_magnified.reset();
}

void Film::movePointer(QPoint to) {
    const QPoint from = m_pointer;
    for (int step = 1; step <= kSteps; ++step) {
        // Slow at both ends, as a hand is.
        const double part = static_cast<double>(step) / kSteps;
        m_pointer = from + (QPointF(to - from) * part * part * (3 - 2 * part)).toPoint();
        m_screen.movePointer(m_pointer);
        m_screen.finish();
        pause(kStep);
        take(kStep);
    }
}

void Film::showPress() {
    take(kPress, true);
}

void Film::take(std::chrono::milliseconds duration, bool isPressed) {
    Frame frame{.picture = m_screen.picture(m_area),
                .pointer = m_pointer - m_area.topLeft(),
                .chapter = m_chapter,
                .duration = duration,
                .isPressed = isPressed,
                .magnified = m_magnified};
    if (!m_frames.empty() && frame.looksLike(m_frames.back())) {
        m_frames.back().duration += duration;
        return;
    }
    m_frames.push_back(std::move(frame));
}

QImage Film::drawn(const Frame& frame, Language language) const {
    QImage canvas = frame.picture;
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::TextAntialiasing);
    drawChapters(painter, m_chapters, frame.chapter, language);
    if (frame.magnified) {
        drawMagnified(painter, frame.picture, *frame.magnified);
    }
    drawPointer(painter, frame.pointer, frame.isPressed);
    return canvas;
}

bool Film::save(const QString& folder, Language language) const {
    const QDir target(folder);
    // Frames of a longer film that was made before would not be part of this one, but stay.
    if (!QDir(folder).removeRecursively() || !target.mkpath(QStringLiteral("."))) {
        return false;
    }
    QFile list(target.filePath(QStringLiteral("frames")));
    if (!list.open(QIODevice::WriteOnly)) {
        return false;
    }
    QTextStream arguments(&list);
    arguments << "-o moving.webp -loop 0 -min_size\n";
    for (std::size_t index = 0; index < m_frames.size(); ++index) {
        const QString name = QStringLiteral("%1.png").arg(index, 4, 10, QLatin1Char('0'));
        if (!drawn(m_frames[index], language).save(target.filePath(name))) {
            return false;
        }
        arguments << "-lossless -m 6 -d " << m_frames[index].duration.count() << ' ' << name
                  << '\n';
    }
    arguments.flush();
    return arguments.status() == QTextStream::Ok;
}

}  // namespace quillbar
