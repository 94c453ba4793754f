// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/RankingBoard.h"
#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/state/AppearanceMode.h"

#include <cstdint>
#include <optional>

namespace quillbar {

/// The user's settings. A plain value: an edit leaves the receiver untouched and returns another
/// one; copy it freely between threads. Equality compares all fields.
struct AppSettings final {
    /// The version of the stored document that this program writes and understands.
    static constexpr std::int64_t kCurrentSchemaVersion = 1;

    /// Version of the stored document; kept by every edit.
    std::int64_t schemaVersion = kCurrentSchemaVersion;
    ChangeBasis changeBasis = ChangeBasis::rolling24h;
    AppearanceMode appearance = AppearanceMode::dark;
    /// The board that was open last; absent when it was the watchlist.
    std::optional<RankingBoard> lastBoard = std::nullopt;

    /// The settings of a first start: the rolling 24 hours, dark, no board. The reference stays
    /// valid for the life of the process.
    [[nodiscard]] static const AppSettings& defaultSettings();

    /// The settings with this one field replaced.
    [[nodiscard]] AppSettings settingBasis(ChangeBasis basis) const;
    [[nodiscard]] AppSettings settingAppearance(AppearanceMode mode) const;
    [[nodiscard]] AppSettings settingLastBoard(std::optional<RankingBoard> board) const;

    [[nodiscard]] bool operator==(const AppSettings&) const = default;
};

}  // namespace quillbar
