// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/TableRow.h"

#include <QString>
#include <QTimer>

#include <chrono>
#include <cstddef>
#include <string>

namespace quillbar {

/// A row of a `RowList`. The list keeps about as many rows as can be seen, and gives a row another
/// item when it scrolls.
///
/// A click gives it the focus, unless its focus policy is Qt::NoFocus. The keys of the list always
/// do.
class ListRow : public TableRow {
public:
    /// How long the accessible name of the row with the focus stays as it is: prices change every
    /// second, and a screen reader would never finish reading it.
    static constexpr std::chrono::seconds kReadingTime{10};

    explicit ListRow(QWidget* parent = nullptr);

    /// Shows the item of this id, which stands at `index`, from zero, in the list. Called whenever
    /// any of it may have changed: repaint only what has.
    virtual void present(const std::string& id, std::size_t index) = 0;

    /// The text for a screen reader that asks; empty for a row that has only a name. The row's
    /// accessible name is the same text, except that for the row with the focus it may be older by
    /// `kReadingTime`.
    [[nodiscard]] const QString& spokenText() const noexcept { return m_spokenText; }

protected:
    /// Sets the spoken text, for the item of this id. The accessible name follows at once when the
    /// item is another one.
    void setSpokenText(const std::string& id, const QString& text);

    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void tell();

    std::string m_spokenId;
    QString m_spokenText;
    // Runs while the accessible name must not change.
    QTimer m_reading;
};

}  // namespace quillbar
