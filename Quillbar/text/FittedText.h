// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

/// One line of text, which is written smaller before it is elided.
namespace quillbar::FittedText {

struct Fit final {
    QFont font;
    QString text;
};

/// The text in the system font of that size and weight, fitted into `width` points: written smaller
/// when it is too wide, down to `smallestScale` of its size, and elided at its end beyond that.
[[nodiscard]] Fit fit(const QString& text,
                      double points,
                      QFont::Weight weight,
                      double width,
                      double smallestScale);

}  // namespace quillbar::FittedText
