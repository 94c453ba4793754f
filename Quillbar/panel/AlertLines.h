// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QWidget>

#include <vector>

namespace quillbar {

/// The price alerts that fired and that no notice of the desktop has shown, a line each, with a
/// button that says the user has seen it. Hidden while there are none.
class AlertLines final : public QWidget {
public:
    /// The environment outlives the view.
    explicit AlertLines(const ViewEnvironment& environment, QWidget* parent = nullptr);

private:
    class Line;

    void refresh();

    const ViewEnvironment& m_environment;
    std::vector<Line*> m_lines;
    Observation m_observation;
};

}  // namespace quillbar
