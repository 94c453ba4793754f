// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ThemedLabel.h"

#include <QString>

namespace quillbar {

/// The heading of a section: small, semibold, in the secondary colour. Screen readers know it as a
/// heading, so that their users can go from one section to the next.
class Heading final : public ThemedLabel {
public:
    /// The text is its accessible name too.
    explicit Heading(const QString& text, QWidget* parent = nullptr);
};

}  // namespace quillbar
