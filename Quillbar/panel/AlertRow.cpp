// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/AlertRow.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/AlertText.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/widgets/CheckRow.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/TextScale.h"

#include <QHBoxLayout>
#include <QMargins>
#include <QSize>

namespace quillbar {

namespace {

constexpr double kGlyphSize = 8;
constexpr int kButtonSize = 20;
/// With it the glyph stands as far from the panel's edge as other glyphs at the end of a line.
constexpr int kEndMargin = 2;

}  // namespace

AlertRow::AlertRow(const Alert& alert, const Handlers& handlers, QWidget* parent)
    : QWidget(parent)
    , m_id(alert.id)
    , m_switch(new CheckRow(QString(), this))
    , m_delete(new GlyphButton(Glyph::xmark, kGlyphSize, QSize(kButtonSize, kButtonSize), this)) {
    m_delete->setToolTip(translated("panel", "删除提醒"));
    connect(
        m_switch, &QAbstractButton::clicked, this, [this, onSwitch = handlers.onSwitch](bool isOn) {
            onSwitch(m_id, isOn);
        });
    connect(m_delete, &QAbstractButton::clicked, this, [this, onDelete = handlers.onDelete] {
        onDelete(m_id);
    });
    auto* const layout = new QHBoxLayout(this);
    TextScale::followSpaces(*this, *layout, QMargins(0, 0, kEndMargin, 0), 0);
    layout->addWidget(m_switch, 1);
    layout->addWidget(m_delete, 0, Qt::AlignVCenter);
    setAlert(alert);
}

void AlertRow::setAlert(const Alert& alert) {
    const QString coin = OneLineText::of(alert.baseAsset);
    m_switch->setTexts(coin + u' ' + AlertText::condition(alert.kind, alert.threshold),
                       AlertText::state(alert) + QStringLiteral(" · ") + AlertText::manner(alert));
    m_switch->setChecked(alert.isOn);
    m_delete->setAccessibleName(
        translated("panel", "删除提醒，%1 %2").arg(coin, AlertText::description(alert)));
}

QWidget* AlertRow::tabAfter(QWidget* before) {
    setTabOrder(before, m_switch);
    setTabOrder(m_switch, m_delete);
    return m_delete;
}

std::optional<Qt::FocusReason> AlertRow::focusOfDelete() const {
    return m_delete->hasFocus() ? std::optional(m_delete->focusReason()) : std::nullopt;
}

void AlertRow::focusDelete(Qt::FocusReason reason) {
    m_delete->setFocus(reason);
}

}  // namespace quillbar
