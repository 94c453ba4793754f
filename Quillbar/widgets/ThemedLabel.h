// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ColorRole.h"

#include <QFont>
#include <QLabel>

namespace quillbar {

/// A label of plain text whose colour and size follow the theme.
class ThemedLabel : public QLabel {
public:
    /// Makes a label without text. `font` is the one at a text size of 100 %; it grows with the
    /// size. `role` is the text's colour.
    ThemedLabel(const QFont& font, ColorRole role, QWidget* parent = nullptr);

    /// Changes the text's colour.
    void setRole(ColorRole role);

protected:
    bool event(QEvent* event) override;

private:
    void applyTheme();

    ColorRole m_role;
};

}  // namespace quillbar
