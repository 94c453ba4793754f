// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/Theme.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QString>
#include <QWidget>

#include <functional>

namespace quillbar {

class ColorsSection;
class PreferencesSection;
class PreferencesState;
class ScrollColumn;
class ThemedLabel;

/// The page of the panel on which the user sets the preferences: a column of sections, which
/// scrolls where it has too little room. Each choice holds at once; nothing needs to be confirmed.
/// Under the column, which does not scroll it away, stands what could not be saved.
class PreferencesView final : public QWidget {
public:
    /// The greatest height that the page asks for, in points at a text size of 100 %: that of the
    /// list of coins.
    static constexpr int kMaxHeight = 560;

    /// The name of the page.
    [[nodiscard]] static QString title();

    /// The preferences outlive the view. `scheme` returns the panel's present scheme, for which the
    /// samples of colours are drawn.
    PreferencesView(PreferencesState& preferences,
                    std::function<ColorScheme()> scheme,
                    QWidget* parent = nullptr);

    /// Adds a section below the others. The page owns it.
    void add(PreferencesSection* section);

    /// The height that the page wants at that width; both in points.
    [[nodiscard]] int heightFor(int width) const;

    /// Gives the focus to the first choice.
    void takeFocus(Qt::FocusReason reason);

private:
    void refreshError();

    PreferencesState& m_preferences;
    // Children, owned by Qt.
    ScrollColumn* m_sections;
    ColorsSection* m_first;
    ThemedLabel* m_error;
    // Last, because it calls a function of this object.
    Observation m_errorObservation;
};

}  // namespace quillbar
