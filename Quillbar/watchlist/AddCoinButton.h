// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/PlainButton.h"
#include "Quillbar/widgets/ViewEnvironment.h"

#include <QPointer>

#include <functional>
#include <string>

namespace quillbar {

class Popover;

/// The plus button that opens the search for a coin to add, in a popover. A second click closes the
/// popover. It also closes when the button is hidden, and goes with the button.
class AddCoinButton final : public PlainButton {
public:
    /// The environment, which has a sleeper, outlives the button.
    explicit AddCoinButton(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// Whether the search is open.
    [[nodiscard]] bool isOpen() const noexcept { return !m_popover.isNull(); }

    /// Called when a coin has been added and the search has closed. `reason` is how the button got
    /// the focus. Use it when you pass the focus on.
    std::function<void(const std::string& symbol, Qt::FocusReason reason)> onAdded;

protected:
    void drawContent(QPainter& painter) override;

private:
    void toggle();

    const ViewEnvironment& m_environment;
    // Null once the popover has begun to close.
    QPointer<Popover> m_popover;
};

}  // namespace quillbar
