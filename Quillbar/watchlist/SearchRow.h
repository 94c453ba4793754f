// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/ListRow.h"

#include <QString>

namespace quillbar {

/// A row below the search's field: the place of a picture, a name, and small texts beside it and at
/// the row's end. A row that cannot be picked is written fainter, cannot be clicked, and has no
/// highlight under the pointer. A click does not move the focus.
class SearchRow : public ListRow {
public:
    static constexpr int kIconSize = 16;

protected:
    struct Texts final {
        QString name;
        /// Elided when it is too long.
        QString beside;
        /// May be empty.
        QString atEnd = {};

        [[nodiscard]] bool operator==(const Texts&) const = default;
    };

    explicit SearchRow(QWidget* parent);

    void setTexts(const Texts& texts);
    /// The default is that it can be picked.
    void setPickable(bool isPickable);

    /// The row was clicked.
    virtual void onClick() = 0;

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Texts m_texts;
    bool m_isPickable = true;
};

}  // namespace quillbar
