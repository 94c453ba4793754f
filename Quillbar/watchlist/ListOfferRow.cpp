// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/ListOfferRow.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/watchlist/ListOffer.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QPainter>
#include <QPaintEvent>
#include <QRectF>

#include <utility>

namespace quillbar {

namespace {

constexpr double kGlyphSize = 13;

}  // namespace

ListOfferRow::ListOfferRow(Content content, std::function<void()> pick, QWidget* parent)
    : SearchRow(parent)
    , m_content(std::move(content))
    , m_pick(std::move(pick)) {}

void ListOfferRow::present(const std::string& /*id*/, std::size_t /*index*/) {
    const ListOffer& offer = m_content();
    setTexts({.name = offer.title(), .beside = offer.names()});
    setAccessibleName(translated("watchlist", "%1，%2").arg(offer.title(), offer.names()));
}

void ListOfferRow::paintEvent(QPaintEvent* event) {
    SearchRow::paintEvent(event);
    QPainter painter(this);
    const QRectF area = TextScale::enlarge(painter, *this);
    QRectF square(0, 0, kGlyphSize, kGlyphSize);
    square.moveCenter(QRectF(kPadding, 0, kIconSize, area.height()).center());
    drawGlyph(painter, Glyph::plus, square, ThemeKey::value(*this).colors.accent);
}

}  // namespace quillbar
