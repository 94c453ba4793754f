// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace quillbar {

/// A strip of tabs; a bar under the selected one. The arrow keys go from tab to tab.
class UnderlineTabs final : public QWidget {
public:
    /// The titles in their order. `outerPadding` is left free at both ends of the strip;
    /// `underlineHeight` is the height of the bar. Both are in points. The first tab is selected.
    UnderlineTabs(const std::vector<QString>& titles,
                  int outerPadding,
                  double underlineHeight,
                  QWidget* parent = nullptr);

    /// The selected tab's position.
    [[nodiscard]] std::size_t selection() const noexcept { return m_selection; }

    /// Selects a tab of the strip, without calling `onSelect`.
    void setSelection(std::size_t index);

    /// Called when the user selects another tab.
    std::function<void(std::size_t index)> onSelect;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Tab;

    void select(std::size_t index);
    void move(int step);

    std::vector<Tab*> m_tabs;
    std::size_t m_selection = 0;
};

}  // namespace quillbar
