// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

/// What a screen reader is told of our own lists: Qt knows nothing of widgets that paint themselves.
namespace quillbar::RowAccessibility {

/// From here on a `RowList` is a list and each `ListRow` an item of it, under their accessible
/// names. Does nothing the second time.
void install();

}  // namespace quillbar::RowAccessibility
