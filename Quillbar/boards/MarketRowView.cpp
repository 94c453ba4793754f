// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/MarketRowView.h"

#include "Quillbar/coins/CoinCell.h"
#include "Quillbar/list/ChangeText.h"
#include "Quillbar/list/ColumnWidths.h"
#include "Quillbar/list/NumericCell.h"
#include "Quillbar/list/RowAccessibility.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/model/PriceFormatter.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRectF>
#include <QSize>

#include <utility>

namespace quillbar {

namespace {

constexpr double kRankSize = 10.5;
constexpr double kSecondarySize = 10.5;
constexpr double kPriceSize = 12;
constexpr double kGlyphSize = 9;
constexpr double kRestingOpacity = 0.55;

/// A square for a glyph in the middle of the widget that the painter paints, which it enlarges.
QRectF glyphSquare(QPainter& painter, const QWidget& widget) {
    QRectF square(0, 0, kGlyphSize, kGlyphSize);
    square.moveCenter(TextScale::enlarge(painter, widget).center());
    return square;
}

}  // namespace

/// The rank, or the arrow that stands for the chart.
class MarketRowView::RankCell final : public NumericCell {
public:
    explicit RankCell(MarketRowView& row)
        : NumericCell(kRankWidth, kRankSize, &row)
        , m_row(row) {}

protected:
    void paintEvent(QPaintEvent* event) override {
        const std::optional<Glyph> glyph = m_row.rankGlyph();
        if (!glyph) {
            NumericCell::paintEvent(event);
            return;
        }
        QPainter painter(this);
        const QRectF square = glyphSquare(painter, *this);
        drawGlyph(painter, *glyph, square, ThemeKey::value(*this).colors.secondaryText);
    }

private:
    MarketRowView& m_row;
};

/// The button that adds the coin, or the mark that it is on the watchlist. Clicks on the mark reach
/// the row.
class MarketRowView::AddCell final : public QWidget {
public:
    explicit AddCell(MarketRowView& row)
        : QWidget(&row)
        , m_button(new GlyphButton(Glyph::plus,
                                   kGlyphSize,
                                   QSize(ColumnWidths::kTrailing, kHeight),
                                   this)) {
        TextScale::follow(*this, [this] {
            setFixedSize(TextScale::size(*this, {ColumnWidths::kTrailing, kHeight}));
        });
        setToolTip(translated("boards", "已在自选列表中"));
        m_button->setToolTip(translated("boards", "加入自选"));
        m_button->setColors(&ThemeColors::Resolved::primaryText,
                            &ThemeColors::Resolved::primaryText);
        m_button->setRestingOpacity(kRestingOpacity);
        // The button needs no focus: the row has it, and a key and the menu of the row do the same.
        m_button->setFocusPolicy(Qt::NoFocus);
        QObject::connect(m_button, &QAbstractButton::clicked, &row, [&row] { row.add(); });
    }

    void setCoin(const QString& name, bool isWatched) {
        RowAccessibility::setName(*m_button, translated("boards", "加入自选 %1").arg(name));
        RowAccessibility::setName(*this, isWatched ? toolTip() : QString());
        m_button->setVisible(!isWatched);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        if (m_button->isHidden()) {
            QPainter painter(this);
            const QRectF square = glyphSquare(painter, *this);
            drawGlyph(
                painter, Glyph::checkmark, square, ThemeKey::value(*this).colors.secondaryText);
        }
    }

private:
    GlyphButton* m_button;
};

MarketRowView::MarketRowView(const ViewEnvironment& environment,
                             std::function<void(const std::string& symbol)> toggle,
                             QWidget* parent)
    : ListRow(parent)
    , m_environment(environment)
    , m_toggle(std::move(toggle))
    , m_rank(new RankCell(*this))
    , m_coin(new CoinCell(environment, this))
    , m_secondary(new NumericCell(ColumnWidths::kAmount, kSecondarySize, this))
    , m_price(new NumericCell(ColumnWidths::kPrice, kPriceSize, this))
    , m_change(new ChangeText(ColumnWidths::kChange, this))
    , m_add(new AddCell(*this)) {
    m_price->setColor(&ThemeColors::Resolved::primaryText);
    addContent(m_rank);
    addContent(m_coin, 1);
    addContent(m_secondary);
    addContent(m_price);
    addContent(m_change);
    addContent(m_add);
}

void MarketRowView::setEntry(const RankedCoin& entry, SecondaryColumn column, Chart chart) {
    if (entry.coin.symbol != m_entry.coin.symbol) {
        // A press that began before was meant for the coin that was here.
        m_isPressed = false;
    }
    m_entry = entry;
    if (chart != m_chart) {
        m_chart = chart;
        m_rank->update();
    }
    const bool isOnWatchlist = isWatched();
    m_rank->setText(QString::number(entry.rank));
    m_coin->setBaseAsset(entry.coin.baseAsset);
    m_secondary->setText(columnText(column, entry));
    m_price->setText(QString::fromStdString(PriceFormatter::price(entry.ticker.lastPrice)));
    m_change->setPercent(entry.ticker.changePercent24h());
    m_add->setCoin(OneLineText::of(entry.coin.baseAsset), isOnWatchlist);
    setSpokenText(entry.coin.symbol, sentence(column));
    RowAccessibility::setDescription(*this, isOnWatchlist ? m_add->toolTip() : QString());
}

bool MarketRowView::isWatched() const {
    return m_environment.appState.watchlist()->contains(m_entry.coin.symbol);
}

std::optional<Glyph> MarketRowView::rankGlyph() const {
    if (m_chart == Chart::open) {
        return Glyph::chevronDown;
    }
    return isHovering() ? std::optional(Glyph::chevronRight) : std::nullopt;
}

QString MarketRowView::sentence(SecondaryColumn column) const {
    return translated("boards", "%1，%2，价格 %3，涨跌 %4，%5 %6")
        .arg(m_rank->text(),
             OneLineText::of(m_entry.coin.baseAsset),
             m_price->text(),
             m_change->text(),
             columnTitle(column),
             m_secondary->text());
}

void MarketRowView::add() {
    m_environment.edits.spawn(m_environment.appState.add(m_entry.coin));
}

// What the user does

void MarketRowView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        ListRow::mousePressEvent(event);
        return;
    }
    m_isPressed = true;
}

void MarketRowView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        ListRow::mouseReleaseEvent(event);
        return;
    }
    if (std::exchange(m_isPressed, false) && rect().contains(event->position().toPoint())) {
        m_toggle(std::string(m_entry.coin.symbol));
    }
}

void MarketRowView::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second click of a double click on the button arrives when the mark is there already.
    if (!m_add->geometry().contains(event->position().toPoint())) {
        mousePressEvent(event);
    }
}

void MarketRowView::keyPressEvent(QKeyEvent* event) {
    const bool isPlain =
        (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    if (!isPlain || event->text() != QStringLiteral("+")) {
        ListRow::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat()) {
        add();
    }
}

}  // namespace quillbar
