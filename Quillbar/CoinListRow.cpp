// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/CoinListRow.h"

#include "Quillbar/CoinRowView.h"
#include "Quillbar/GlyphButton.h"
#include "Quillbar/RowAccessibility.h"
#include "Quillbar/text/OneLineText.h"

#include <QSize>
#include <QString>

namespace quillbar {

namespace {

constexpr double kDisclosureSize = 9;

}  // namespace

CoinListRow::CoinListRow(const ViewEnvironment& environment, const Source& source, QWidget* parent)
    : ListRow(parent)
    , m_source(source)
    , m_disclosure(new GlyphButton(Glyph::chevronRight,
                                   kDisclosureSize,
                                   QSize(kDisclosureWidth, kHeight),
                                   this))
    , m_coin(new CoinRowView(environment, this)) {
    // The row itself has the focus, and Enter on it does the same.
    m_disclosure->setFocusPolicy(Qt::NoFocus);
    QObject::connect(m_disclosure, &QAbstractButton::clicked, this, [this] {
        m_source.toggle(std::string(m_coin->coin().symbol));
    });
    addContent(m_disclosure);
    addContent(m_coin, 1);
}

void CoinListRow::present(const std::string& id, std::size_t index) {
    m_coin->setCoin(m_source.coins[index]);
    const bool isExpanded = *m_source.expandedSymbol == id;
    m_disclosure->setGlyph(isExpanded ? Glyph::chevronDown : Glyph::chevronRight);
    const QString name = OneLineText::of(m_coin->coin().baseAsset);
    RowAccessibility::setName(
        *m_disclosure,
        (isExpanded ? QStringLiteral("收起 %1 走势") : QStringLiteral("展开 %1 走势")).arg(name));
    RowAccessibility::setName(*this, m_coin->spokenText());
    describePlace(index);
}

void CoinListRow::describePlace(std::size_t index) {
    const std::size_t count = m_source.coins.size();
    if (index != m_index || count != m_count) {
        m_index = index;
        m_count = count;
        setAccessibleDescription(QStringLiteral("第 %1 位,共 %2 位").arg(index + 1).arg(count));
    }
}

}  // namespace quillbar
