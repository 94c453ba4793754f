// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/label/LabelOptions.h"
#include "Quillbar/labelstate/LabelSnapshot.h"

#include <string>
#include <vector>

namespace quillbar {

/// The line that `snapshot` makes in `format`, without a line feed; JSON formats give one compact
/// object. Whatever a watchlist file or another program contains, the result is one line without
/// control characters. Pure, but for the time zone of the update's time of day in the waybar
/// tooltip.
[[nodiscard]] std::string labelLine(const LabelSnapshot& snapshot, LabelFormat format);

/// The lines of several labels, a line feed between two of them. As text each label has its own. In
/// a JSON format they share one object: `text` has them all, two spaces between them; json has each
/// label's own object in `coins`, and `stale` is true when any is; waybar has every coin in the
/// tooltip, and as its class the one that all share, or else stale when any is, or else mixed. A
/// single label is as by itself.
[[nodiscard]] std::string labelLines(const std::vector<LabelSnapshot>& labels, LabelFormat format);

/// Whether a reader of `format` must be told of `current` after `previous`: the text differs, or,
/// where the format carries them, the connection with its failure or the staleness. The age of a
/// price alone is no reason.
[[nodiscard]] bool differsVisibly(const LabelSnapshot& previous,
                                  const LabelSnapshot& current,
                                  LabelFormat format);

}  // namespace quillbar
