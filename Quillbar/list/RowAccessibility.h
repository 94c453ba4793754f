// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

/// What screen readers are told about our lists. Qt knows nothing about widgets that paint
/// themselves.
namespace quillbar::RowAccessibility {

/// From this call on, a `RowList` is a list to screen readers, and each `ListRow` an item of it.
/// Calling it again does nothing.
void install();

/// Sets the name or the description of a widget. Screen readers are told only when the text is
/// another one.
void setName(QWidget& widget, const QString& name);
void setDescription(QWidget& widget, const QString& description);

}  // namespace quillbar::RowAccessibility
