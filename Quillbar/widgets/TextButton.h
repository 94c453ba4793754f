// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/PlainButton.h"

#include <QString>

namespace quillbar {

/// A word that can be clicked, such as "重试": in 10.5 points, in the accent colour, and underlined
/// under the pointer; pale while it is disabled.
class TextButton final : public PlainButton {
public:
    /// In points, at a text size of 100 %. The width is that of the text.
    static constexpr int kHeight = 20;

    /// The text is its accessible name too.
    explicit TextButton(const QString& text, QWidget* parent = nullptr);

protected:
    void drawContent(QPainter& painter) override;

private:
    void fit();
};

}  // namespace quillbar
