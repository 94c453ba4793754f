// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/RangeSelector.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/PlainButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QHBoxLayout>
#include <QPainter>

namespace quillbar {

namespace {

constexpr int kSegmentWidth = 36;
constexpr int kSpacing = 2;
constexpr double kFontSize = 10.5;
constexpr double kRadius = 4;
constexpr float kChosenOpacity = 0.16F;

}  // namespace

class RangeSelector::Segment final : public PlainButton {
public:
    Segment(ChartRange range, QWidget* parent)
        : PlainButton(parent) {
        setText(QString::fromUtf8(displayName(range)));
        setAccessibleName(translated("chart", "走势范围：%1").arg(nameOf(range)));
        setCheckable(true);
        setAutoExclusive(true);
        TextScale::follow(*this, [this] {
            setFixedSize(TextScale::size(*this, {kSegmentWidth, kHeight}));
        });
    }

protected:
    void drawContent(QPainter& painter) override {
        const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
        const QRectF area = TextScale::enlarge(painter, *this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        if (isChecked()) {
            QColor background = colors.accent;
            background.setAlphaF(kChosenOpacity);
            painter.setBrush(background);
            painter.drawRoundedRect(area, kRadius, kRadius);
        } else if (isHovered()) {
            painter.setBrush(colors.rowHover);
            painter.drawRoundedRect(area, kRadius, kRadius);
        }
        painter.setFont(systemFont(kFontSize, isChecked() ? QFont::DemiBold : QFont::Normal));
        painter.setPen(isChecked() ? colors.accent : colors.secondaryText);
        painter.drawText(area, Qt::AlignCenter, text());
    }
};

QString RangeSelector::nameOf(ChartRange range) {
    switch (range) {
    case ChartRange::day:
        return translated("chart", "一天");
    case ChartRange::week:
        return translated("chart", "一周");
    case ChartRange::month:
        break;
    }
    return translated("chart", "一个月");
}

RangeSelector::RangeSelector(QWidget* parent)
    : QWidget(parent) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    for (const ChartRange range : kChartRanges) {
        auto* const segment = new Segment(range, this);
        segment->setChecked(range == m_range);
        connect(segment, &QAbstractButton::clicked, this, [this, range] { choose(range); });
        row->addWidget(segment);
    }
    TextScale::follow(*this, [this, row] {
        const QSize segment = TextScale::size(*this, {kSegmentWidth, kHeight});
        const int count = static_cast<int>(kChartRanges.size());
        const int spacing = TextScale::length(*this, kSpacing);
        row->setSpacing(spacing);
        setFixedSize(count * segment.width() + (count - 1) * spacing, segment.height());
    });
}

void RangeSelector::choose(ChartRange range) {
    if (range == m_range) {
        return;
    }
    m_range = range;
    if (onChoose) {
        onChoose(range);
    }
}

}  // namespace quillbar
