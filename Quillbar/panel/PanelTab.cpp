// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PanelTab.h"

#include <QUtf8StringView>

namespace quillbar {

std::vector<PanelTab> PanelTab::allCases() {
    std::vector<PanelTab> tabs{watchlist()};
    for (const RankingBoard board : kAllRankingBoards) {
        tabs.push_back(PanelTab::board(board));
    }
    return tabs;
}

QString PanelTab::title() const {
    return m_board ? QUtf8StringView(displayName(*m_board)).toString() : QStringLiteral("自选");
}

}  // namespace quillbar
