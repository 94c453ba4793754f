// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/ListRow.h"

#include "Quillbar/list/RowAccessibility.h"

#include <QFocusEvent>

namespace quillbar {

ListRow::ListRow(QWidget* parent)
    : TableRow(parent)
    , m_reading(this) {
    setFocusPolicy(Qt::ClickFocus);
    m_reading.setObjectName(QStringLiteral("reading"));
    m_reading.setInterval(kReadingTime);
    m_reading.setSingleShot(true);
    m_reading.setTimerType(Qt::VeryCoarseTimer);
    QObject::connect(&m_reading, &QTimer::timeout, this, [this] { tell(); });
}

void ListRow::setSpokenText(const std::string& id, const QString& text) {
    m_spokenText = text;
    if (id != m_spokenId || !m_reading.isActive()) {
        m_spokenId = id;
        tell();
    }
}

void ListRow::tell() {
    if (accessibleName() == m_spokenText) {
        return;
    }
    setAccessibleName(m_spokenText);
    if (hasFocus()) {
        m_reading.start();
    }
}

void ListRow::focusInEvent(QFocusEvent* event) {
    TableRow::focusInEvent(event);
    m_reading.start();
}

void ListRow::focusOutEvent(QFocusEvent* event) {
    TableRow::focusOutEvent(event);
    m_reading.stop();
    if (!m_spokenText.isEmpty()) {
        tell();
    }
}

}  // namespace quillbar
