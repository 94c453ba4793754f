// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/LabelTemplate.h"
#include "QuillbarCore/model/Coin.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quillbar {

/// How a line of the label is written.
enum class LabelFormat { text, json, waybar };

/// Whether the label is printed once, or again whenever it changes; or the market's boards, once.
enum class LabelMode { once, follow, boards };

/// What quillbar-label was asked to do.
struct LabelOptions final {
    LabelMode mode = LabelMode::once;
    LabelFormat format = LabelFormat::text;
    /// The wording of the text in each format; the label's usual one when absent.
    std::optional<LabelTemplate> labelTemplate = std::nullopt;
    /// The coins whose labels are printed, none twice; without any it is the pinned one's.
    std::vector<Coin> coins = {};

    bool operator==(const LabelOptions&) const = default;
};

/// The program prints `text` and ends with success: its help or its version.
struct LabelInformation final {
    std::string text;

    bool operator==(const LabelInformation&) const = default;
};

/// The arguments make no sense; `text` is one line for the user.
struct LabelUsageError final {
    std::string text;

    bool operator==(const LabelUsageError&) const = default;
};

/// Reads the arguments, without the program's name. Pure.
[[nodiscard]] std::variant<LabelOptions, LabelInformation, LabelUsageError> parseLabelOptions(
    const std::vector<std::string>& arguments);

}  // namespace quillbar
