// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/panel/PreferencesSection.h"
#include "Quillbar/widgets/Theme.h"
#include "QuillbarCore/runtime/Observed.h"

#include <functional>

namespace quillbar {

class ChoiceList;
class PreferencesState;

/// The section in which the user chooses the colours of rising and falling prices. Each choice has
/// a sample of its colours.
class ColorsSection final : public PreferencesSection {
public:
    /// The preferences outlive the section. `scheme` returns the panel's present scheme, for which
    /// the samples are drawn.
    ColorsSection(PreferencesState& preferences,
                  std::function<ColorScheme()> scheme,
                  QWidget* parent = nullptr);

    /// Gives the focus to the colours that are chosen.
    void takeFocus(Qt::FocusReason reason);

private:
    // A child, owned by Qt.
    ChoiceList* m_colors;
    // Last, because it calls functions of this object.
    Observation m_observation;
};

}  // namespace quillbar
