// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/SearchResultRow.h"

#include "Quillbar/coins/CoinIconView.h"
#include "Quillbar/text/FittedText.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Theme.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QRectF>
#include <QResizeEvent>

#include <cmath>
#include <utility>

namespace quillbar {

namespace {

constexpr double kNameSize = 13;
constexpr double kSmallestNameScale = 0.8;
constexpr double kSecondarySize = 9.5;
// The width that is left to the pair beside a long name.
constexpr double kLeastPairWidth = 48;

QString watchedText() {
    return QStringLiteral("已添加");
}

// Draws on the baseline of the name, which is that of the whole row.
void drawOn(QPainter& painter, double x, double baseline, const FittedText::Fit& text) {
    painter.setFont(text.font);
    painter.drawText(QPointF(x, baseline), text.text);
}

}  // namespace

SearchResultRow::SearchResultRow(const ViewEnvironment& environment,
                                 Content content,
                                 QWidget* parent)
    : ListRow(parent)
    , m_appState(environment.appState)
    , m_content(std::move(content))
    , m_icon(new CoinIconView(environment, kIconSize, this)) {
    // The field keeps the focus, whatever is clicked.
    setFocusPolicy(Qt::NoFocus);
}

void SearchResultRow::present(const std::string& id, std::size_t index) {
    const Coin& coin = m_content(index);
    const Watched watched = m_appState.watchlist()->contains(id) ? Watched::yes : Watched::no;
    if (coin == m_coin && watched == m_watched) {
        return;
    }
    m_coin = coin;
    m_watched = watched;
    m_icon->setBaseAsset(coin.baseAsset);
    setReactsToPointer(watched == Watched::no);
    const QString name = OneLineText::of(coin.baseAsset) + QStringLiteral(", ") + pairOf(coin);
    setAccessibleName(watched == Watched::yes ? name + QStringLiteral(", ") + watchedText() : name);
    update();
}

QString SearchResultRow::pairOf(const Coin& coin) {
    const std::string& base = coin.baseAsset;
    const bool isPair = !base.empty() && coin.symbol.starts_with(base) && coin.symbol != base;
    return OneLineText::of(isPair ? base + "/" + coin.symbol.substr(base.size()) : coin.symbol);
}

void SearchResultRow::paintEvent(QPaintEvent* event) {
    ListRow::paintEvent(event);
    QPainter painter(this);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    const double left = kPadding + kIconSize + kSpacing;
    double right = width() - kPadding;
    const QFontMetricsF nameMetrics(systemFont(kNameSize, QFont::Medium));
    const double baseline =
        std::round((height() - nameMetrics.height()) / 2 + nameMetrics.ascent());

    painter.setPen(colors.secondaryText);
    if (m_watched == Watched::yes) {
        const QFont font = systemFont(kSecondarySize);
        right -= QFontMetricsF(font).horizontalAdvance(watchedText());
        drawOn(painter, right, baseline, {.font = font, .text = watchedText()});
        right -= kSpacing;
    }
    const FittedText::Fit name = FittedText::fit(OneLineText::of(m_coin.baseAsset),
                                                 kNameSize,
                                                 QFont::Medium,
                                                 right - left - kLeastPairWidth - kSpacing,
                                                 kSmallestNameScale);
    const double pairLeft = left + QFontMetricsF(name.font).horizontalAdvance(name.text) + kSpacing;
    drawOn(painter,
           pairLeft,
           baseline,
           FittedText::fit(pairOf(m_coin), kSecondarySize, QFont::Normal, right - pairLeft, 1));
    painter.setPen(m_watched == Watched::yes ? colors.secondaryText : colors.primaryText);
    drawOn(painter, left, baseline, name);
}

void SearchResultRow::resizeEvent(QResizeEvent* event) {
    m_icon->move(kPadding, (height() - kIconSize) / 2);
    ListRow::resizeEvent(event);
}

void SearchResultRow::mousePressEvent(QMouseEvent* event) {
    // Only a widget that accepts the press gets the release.
    event->setAccepted(event->button() == Qt::LeftButton && m_watched == Watched::no);
}

void SearchResultRow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && m_watched == Watched::no
        && rect().contains(event->position().toPoint())) {
        onPick(Coin(m_coin));
    }
}

}  // namespace quillbar
