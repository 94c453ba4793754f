// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/PlainButton.h"

#include <QSize>
#include <QString>

namespace quillbar {

/// A row with a mark that is switched on and off: a title, and below it details in a smaller font.
/// Both wrap where they are too long. A click anywhere in it, Space and Enter switch it. For screen
/// readers it is a check box whose name is both texts.
class CheckRow final : public PlainButton {
public:
    /// The height of a row with a title of one line, in points at a text size of 100 %.
    static constexpr int kRowHeight = 28;

    /// A row that is off and has no details.
    explicit CheckRow(const QString& title, QWidget* parent = nullptr);

    /// Replaces both texts; `details` may be empty.
    void setTexts(const QString& title, const QString& details);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void drawContent(QPainter& painter) override;

private:
    QString m_details;
};

}  // namespace quillbar
