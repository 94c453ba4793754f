// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/panel/PreferencesSection.h"
#include "QuillbarCore/runtime/Observed.h"

#include <vector>

class QHideEvent;
class QShowEvent;

namespace quillbar {

class AppState;
class ChoiceList;
class PreferencesState;
class SearchField;
class ThemedLabel;

/// The section in which the user chooses what the item in the status area says, with a preview of
/// it. For a wording of the user's own there is a field for its template. A template holds as soon
/// as it can be read; while it cannot, a line says why, and the last one that could stays in force.
class LabelSection final : public PreferencesSection {
public:
    /// The greatest number of characters of a template.
    static constexpr int kLongestTemplate = 200;

    /// Both outlive the section.
    LabelSection(PreferencesState& preferences,
                 const AppState& appState,
                 QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void makeTemplateField();
    void refresh();
    void refreshPreview();
    void readTemplate();
    void showProblem(const QString& problem);

    PreferencesState& m_preferences;
    const AppState& m_appState;
    // Children, owned by Qt.
    ChoiceList* m_wordings;
    QWidget* m_own = nullptr;
    SearchField* m_template = nullptr;
    ThemedLabel* m_problem = nullptr;
    ThemedLabel* m_preview;
    // Last, because they call functions of this object.
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
