// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/label/LabelOptions.h"
#include "Quillbar/labelstate/LabelSnapshot.h"

#include <string>

namespace quillbar {

/// The line that `snapshot` makes in `format`, without a line feed; JSON formats give one compact
/// object. Whatever a watchlist file or another program contains, the result is one line without
/// control characters. Pure, but for the time zone of the update's time of day in the waybar
/// tooltip.
[[nodiscard]] std::string labelLine(const LabelSnapshot& snapshot, LabelFormat format);

/// Whether a reader of `format` must be told of `current` after `previous`: the text differs, or,
/// where the format carries them, the connection with its failure or the staleness. The age of a
/// price alone is no reason.
[[nodiscard]] bool differsVisibly(const LabelSnapshot& previous,
                                  const LabelSnapshot& current,
                                  LabelFormat format);

}  // namespace quillbar
