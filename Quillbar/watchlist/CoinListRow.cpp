// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/CoinListRow.h"

#include "Quillbar/list/RowAccessibility.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/watchlist/CoinRowView.h"
#include "Quillbar/widgets/GlyphButton.h"

#include <QEvent>
#include <QSize>
#include <QString>

#include <utility>

namespace quillbar {

namespace {

constexpr double kDisclosureSize = 9;

}  // namespace

CoinListRow::CoinListRow(const ViewEnvironment& environment,
                         const ExpandableList<Coin>& list,
                         std::function<void(const std::string& symbol)> toggle,
                         QWidget* parent)
    : ListRow(parent)
    , m_list(list)
    , m_toggle(std::move(toggle))
    , m_disclosure(new GlyphButton(Glyph::chevronRight,
                                   kDisclosureSize,
                                   QSize(kDisclosureWidth, kHeight),
                                   this))
    , m_coin(new CoinRowView(environment, this)) {
    // The arrow needs no focus: the row has it, and Enter on the row does the same.
    m_disclosure->setFocusPolicy(Qt::NoFocus);
    QObject::connect(m_disclosure, &QAbstractButton::clicked, this, [this] {
        m_toggle(std::string(m_coin->coin().symbol));
    });
    addContent(m_disclosure);
    addContent(m_coin, 1);
}

void CoinListRow::present(const std::string& id, std::size_t index) {
    m_coin->setCoin(m_list.items()[index]);
    const bool isExpanded = m_list.expandedSymbol() == id;
    m_disclosure->setGlyph(isExpanded ? Glyph::chevronDown : Glyph::chevronRight);
    const QString name = OneLineText::of(m_coin->coin().baseAsset);
    RowAccessibility::setName(*m_disclosure,
                              (isExpanded ? translated("watchlist", "收起 %1 走势")
                                          : translated("watchlist", "展开 %1 走势"))
                                  .arg(name));
    setSpokenText(id, m_coin->spokenText());
    describePlace(index);
}

bool CoinListRow::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        // The age is written only when the tooltip opens, because no event tells that a price grows
        // old.
        setToolTip(m_coin->ageText());
    }
    return ListRow::event(event);
}

void CoinListRow::describePlace(std::size_t index) {
    const std::size_t count = m_list.items().size();
    if (index != m_index || count != m_count) {
        m_index = index;
        m_count = count;
        setAccessibleDescription(
            translated("watchlist", "第 %1 位，共 %2 位").arg(index + 1).arg(count));
    }
}

}  // namespace quillbar
