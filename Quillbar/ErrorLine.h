// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/state/AppState.h"

#include <QLabel>

namespace quillbar {

/// The line that says what went wrong with the user's last edit; hidden while nothing did.
class ErrorLine final : public QLabel {
public:
    /// The state outlives the line.
    explicit ErrorLine(const AppState& state, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;

private:
    void update(const std::optional<std::string>& error);
    void applyTheme();

    Observation m_observation;
};

}  // namespace quillbar
