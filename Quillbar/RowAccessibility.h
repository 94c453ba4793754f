// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

/// What a screen reader is told of our own lists: Qt knows nothing of widgets that paint
/// themselves.
namespace quillbar::RowAccessibility {

/// From here on a `RowList` is a list and each `ListRow` an item of it, under their accessible
/// names. Does nothing the second time.
void install();

/// Names a widget, or describes it. Screen readers are told of another text only.
void setName(QWidget& widget, const QString& name);
void setDescription(QWidget& widget, const QString& description);

}  // namespace quillbar::RowAccessibility
