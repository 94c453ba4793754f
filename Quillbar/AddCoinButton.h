// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/PlainButton.h"
#include "Quillbar/ViewEnvironment.h"

#include <QPointer>

namespace quillbar {

class Popover;

/// The plus that opens the search for a coin to add, in a popover of its own; a second press on it
/// closes that. The popover goes with the button, and closes when the button is hidden.
class AddCoinButton final : public PlainButton {
public:
    /// The environment, which has a sleeper, outlives the button.
    explicit AddCoinButton(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// Whether the search is open.
    [[nodiscard]] bool isOpen() const noexcept { return !m_popover.isNull(); }

protected:
    void drawContent(QPainter& painter) override;

private:
    void toggle();

    const ViewEnvironment& m_environment;
    // Null from its closing on.
    QPointer<Popover> m_popover;
};

}  // namespace quillbar
