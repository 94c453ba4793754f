// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/PanelTab.h"
#include "Quillbar/Theme.h"
#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QWidget>

#include <optional>
#include <string>
#include <vector>

class QVBoxLayout;

namespace quillbar {

class UnderlineTabs;

/// All that drops down from the item: the header, the tabs, what went wrong,
/// and the selected tab's content. It decides the palette of everything in it.
/// Its size hint is the size it wants; given less height, its list shrinks.
class PanelView final : public QWidget {
public:
    static constexpr int kWidth = 400;

    /// `systemScheme` is the desktop's; both outlive the view.
    PanelView(const ViewEnvironment& environment,
              const Observed<ColorScheme>& systemScheme,
              QWidget* parent = nullptr);
    PanelView(const PanelView&) = delete;
    PanelView& operator=(const PanelView&) = delete;
    PanelView(PanelView&&) = delete;
    PanelView& operator=(PanelView&&) = delete;
    ~PanelView() override;

    /// The tabs that the panel offers, in order.
    [[nodiscard]] static std::vector<PanelTab> tabs();

    [[nodiscard]] PanelTab tab() const { return m_tab; }

    /// The symbol of the watchlist row whose chart is open.
    [[nodiscard]] const Observed<std::optional<std::string>>& expandedSymbol() const noexcept {
        return m_expandedSymbol;
    }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildHeader(QVBoxLayout& stack);
    void buildTabs(QVBoxLayout& stack);
    void buildContent(QVBoxLayout& stack);
    void applyTheme();
    void restoreTab();

    const ViewEnvironment& m_environment;
    const Observed<ColorScheme>& m_systemScheme;
    PanelTab m_tab = PanelTab::watchlist();
    Observed<std::optional<std::string>> m_expandedSymbol;
    UnderlineTabs* m_tabs = nullptr;
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
