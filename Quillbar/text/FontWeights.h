// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QList>

/// Which of a font's weights to write in. Pure.
namespace quillbar::FontWeights {

/// The weight to ask for where `wanted` is, in a font that has the weights `offered`. Semibold
/// falls back to Medium, which looks alike, before the system would take Bold; else it is `wanted`.
[[nodiscard]] QFont::Weight closest(QFont::Weight wanted, const QList<int>& offered);

}  // namespace quillbar::FontWeights
