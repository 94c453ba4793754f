// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PanelTab.h"

#include "Quillbar/platform/Translated.h"

namespace quillbar {

std::vector<PanelTab> PanelTab::allCases() {
    std::vector<PanelTab> tabs{watchlist()};
    for (const RankingBoard board : kAllRankingBoards) {
        tabs.push_back(PanelTab::board(board));
    }
    return tabs;
}

QString PanelTab::title() const {
    return m_board ? translatedFromCore(displayName(*m_board)) : translated("panel", "自选");
}

}  // namespace quillbar
