// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/Theme.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class QVBoxLayout;

namespace quillbar {

class ChoiceList;
class PreferencesState;
class ThemedLabel;

/// The page of the panel on which the user sets the preferences. Each choice holds at once; nothing
/// needs to be confirmed. Under the choices stands what could not be saved.
class PreferencesView final : public QWidget {
public:
    /// The name of the page.
    [[nodiscard]] static QString title();

    /// The preferences outlive the view. `scheme` returns the panel's present scheme, for which the
    /// samples of colours are drawn.
    PreferencesView(PreferencesState& preferences,
                    std::function<ColorScheme()> scheme,
                    QWidget* parent = nullptr);

    /// Gives the focus to the first choice.
    void takeFocus(Qt::FocusReason reason);

private:
    void buildColors(QVBoxLayout& stack);
    void refresh();

    PreferencesState& m_preferences;
    std::function<ColorScheme()> m_scheme;
    // Children, owned by Qt.
    ChoiceList* m_colors = nullptr;
    ThemedLabel* m_error;
    // Last, because they call functions of this object.
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
