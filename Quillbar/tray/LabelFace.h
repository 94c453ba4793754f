// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/LabelSnapshot.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/ChangeColors.h"
#include "QuillbarCore/state/LabelPreferences.h"

#include <QString>

#include <vector>

namespace quillbar {

/// Everything that the status item shows, ready to be drawn or sent. A plain value: two that are
/// equal look the same. Every text is a `OneLineText`, except that `details` has line feeds.
struct LabelFace final {
    /// What a picture of the whole text shows of one more coin.
    struct Beside final {
        /// As `label()` and `change` are of the pinned coin.
        QString label;
        QString change;
        LabelDirection direction = LabelDirection::stale;

        [[nodiscard]] bool operator==(const Beside&) const = default;
    };

    /// The whole label, "BTC 67,234.50 ▲ 1.23%". Never empty, and at most 64 characters: a longer
    /// one is cut in the middle.
    QString text = QStringLiteral("Quillbar");
    /// The label in the user's wording, with the same limit; empty where that is `text`.
    QString worded;
    /// The label with those of the coins beside it, two spaces between them, for a host that shows
    /// text; each has the limit. Empty without any.
    QString row;
    /// What `guide()` is for the label, for the row.
    QString rowGuide;
    /// The coins behind the first one of `row`, for a host that shows a picture of the text.
    std::vector<Beside> beside;
    /// The change with its arrow at the end of `label()`, "▲ 1.23%"; empty when it shows none
    /// there.
    QString change;
    /// The pinned coin's base asset, with the same limit; empty when none is pinned.
    QString symbol;
    /// The price in at most six characters, "67.2k", "0.0₄18"; empty when the label shows none.
    QString shortPrice;
    /// The change in at most five characters, "+1.2%"; empty when none is known, or no price shown.
    QString shortChange;
    /// Which of the three the user's wording has.
    bool showsSymbol = true;
    bool showsPrice = true;
    bool showsChange = true;
    /// Whether the user has hidden the numbers. Then nothing else tells of a coin.
    bool isDiscreet = false;
    LabelDirection direction = LabelDirection::stale;
    /// The colours of a rising and of a falling change, where the item draws them.
    ChangeColors changeColors = ChangeColors::greenUp;
    /// The lines of a tooltip below the text: how to pin a coin if none is pinned, how old the data
    /// are, the state of the connection and why it is down, and other errors. Where the numbers are
    /// hidden it says so, and has none of its own.
    QString details;

    [[nodiscard]] bool operator==(const LabelFace&) const = default;

    /// What the item says in its place, as text or in a picture of it. Never empty.
    [[nodiscard]] const QString& label() const { return worded.isEmpty() ? text : worded; }

    /// A text that is as wide as `label()` can get while only its digits and its direction change
    /// and the change stays below 100 percent; in the user's own template, while no digit is added.
    /// For hosts that reserve this width.
    [[nodiscard]] QString guide() const;

    /// The face of `snapshot` at the instant `now`, in the colours and the wording of the user's
    /// choice. Where the wording has no change, there is no colour for it either. Pure, but for the
    /// time zone of the update's time of day.
    ///
    /// The age of the data is in minutes, then hours, then days, so the tooltip does not change
    /// each second. If a face is made at each change of the snapshot and once a minute, it is never
    /// wrong for longer than a minute.
    [[nodiscard]] static LabelFace of(const LabelSnapshot& snapshot,
                                      TimePoint now,
                                      ChangeColors changeColors = ChangeColors::greenUp,
                                      const LabelPreferences& label = {});

private:
    static void setRow(LabelFace& face,
                       const LabelSnapshot& snapshot,
                       const LabelPreferences& label);
};

}  // namespace quillbar
