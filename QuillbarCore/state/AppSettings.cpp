// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/AppSettings.h"

namespace quillbar {

const AppSettings& AppSettings::defaultSettings() {
    static const AppSettings kDefault;
    return kDefault;
}

AppSettings AppSettings::settingBasis(ChangeBasis basis) const {
    AppSettings result = *this;
    result.changeBasis = basis;
    return result;
}

AppSettings AppSettings::settingAppearance(AppearanceMode mode) const {
    AppSettings result = *this;
    result.appearance = mode;
    return result;
}

AppSettings AppSettings::settingLastBoard(std::optional<RankingBoard> board) const {
    AppSettings result = *this;
    result.lastBoard = board;
    return result;
}

}  // namespace quillbar
