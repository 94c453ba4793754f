// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

class QVBoxLayout;

namespace quillbar {

/// A section of the page of preferences: its heading, and below it what the user chooses. Each
/// section is a class of its own that adds its choices, observes the preferences and sets them.
class PreferencesSection : public QWidget {
public:
    /// How far texts that are not in a `ChoiceList` stand from the section's edges, in points at a
    /// text size of 100 %, so that they begin where the marks of the choices do.
    static constexpr int kTextIndent = 8;

    [[nodiscard]] const QString& title() const noexcept { return m_title; }

protected:
    /// A section without choices. `title` is its heading.
    explicit PreferencesSection(const QString& title, QWidget* parent = nullptr);

    /// Adds a widget below the others. The section owns it.
    void add(QWidget* widget);

private:
    QString m_title;
    QVBoxLayout* m_stack;
};

}  // namespace quillbar
