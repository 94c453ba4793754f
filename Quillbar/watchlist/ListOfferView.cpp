// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/ListOfferView.h"

#include "Quillbar/list/RowList.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/ListOfferRow.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/ThemedLabel.h"

#include <QVBoxLayout>

#include <string>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

constexpr double kNotesSize = 10.5;
constexpr int kNotesMargin = 6;
/// The id of the one row.
constexpr const char* kAll = "all";

}  // namespace

ListOfferView::ListOfferView(std::function<void()> pick, QWidget* parent)
    : QWidget(parent)
    , m_pick(std::move(pick))
    , m_rows(new RowList(RowListContent{
                             .makeRow =
                                 [this](QWidget* rows) {
                                     return new ListOfferRow(
                                         [this]() -> const ListOffer& { return m_offer; },
                                         [this] { m_pick(); },
                                         rows);
                                 },
                             .activate = [this](const std::string& /*id*/) { m_pick(); },
                         },
                         0,
                         this))
    , m_notes(
          new ThemedLabel(systemFont(kNotesSize), &ThemeColors::Resolved::secondaryText, this)) {
    Announcement::mark(*this);
    m_rows->setAccessibleName(translated("watchlist", "搜索结果"));
    m_notes->setWordWrap(true);
    TextScale::follow(*this, [this] {
        const int rowHeight = TextScale::length(*this, TableRow::kHeight);
        m_rows->setPreferredHeight(rowHeight);
        m_rows->setFixedHeight(rowHeight);
        m_notes->setContentsMargins(TextScale::margins(
            *this, {TableRow::kPadding, kNotesMargin, TableRow::kPadding, kNotesMargin}));
    });
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    stack->addWidget(m_rows);
    stack->addWidget(m_notes);
    stack->addStretch(1);
}

void ListOfferView::present(const ListOffer& offer) {
    m_offer = offer;
    const bool hasRow = !offer.fresh.empty();
    m_rows->setIds(hasRow ? std::vector<std::string>{kAll} : std::vector<std::string>());
    m_rows->setVisible(hasRow);
    m_rows->refreshAll();
    m_notes->setText(offer.notes().join(u'\n'));
    setAccessibleName(offer.spoken());
    // At once, so that the notes are never painted where the row has been.
    layout()->activate();
}

}  // namespace quillbar
