// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/PlainButton.h"

#include <QString>

namespace quillbar {

/// A word that can be clicked, such as the one that tries again: 10.5 points in the accent colour,
/// underlined under the pointer.
class TextButton final : public PlainButton {
public:
    /// In points. The width is that of the text.
    static constexpr int kHeight = 20;

    /// The text is its accessible name too.
    explicit TextButton(const QString& text, QWidget* parent = nullptr);

protected:
    void drawContent(QPainter& painter) override;
};

}  // namespace quillbar
