// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/label/LabelLine.h"
#include "Quillbar/label/LabelOptions.h"
#include "Quillbar/label/PrintedLabels.h"
#include "Quillbar/platform/TextLanguage.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// Prints the labels, once or as it changes. Lives on the main thread; what it is handed outlives
/// it.
class LabelPrinter final {
public:
    /// How long `--once` waits for a price.
    static constexpr Seconds kPatience{15};
    /// The exit statuses.
    static constexpr int kSuccess = 0;
    static constexpr int kUnknownCoin = 2;
    static constexpr int kNoPrice = 3;
    static constexpr int kNotWritten = 4;

    struct Output {
        /// Writes one line, or a line for each coin, adding the last line feed, and flushes it.
        /// Returns false when it cannot be written: nobody reads any more, or the disk is full.
        /// Following then ends with success, and `--once` with `kNotWritten`.
        std::function<bool(std::string_view lines)> print;
        /// Tells the user what is wrong, in one line.
        std::function<void(const std::string& text)> complain;
        /// Ends the program with an exit status. Called once at most; the printer prints nothing
        /// afterwards.
        std::function<void(int status)> finish;
    };

    /// The printer is the only observer of the labels. `--once` waits for the change beside each
    /// price until the labels are started. A coin that the exchange does not know ends either mode
    /// with a complaint.
    LabelPrinter(PrintedLabels& labels,
                 Executor& executor,
                 Sleeper sleeper,
                 LabelOptions options,
                 Output output);
    LabelPrinter(const LabelPrinter&) = delete;
    LabelPrinter& operator=(const LabelPrinter&) = delete;
    LabelPrinter(LabelPrinter&&) = delete;
    LabelPrinter& operator=(LabelPrinter&&) = delete;
    ~LabelPrinter();

    /// Begins to observe. When following, it prints the first lines at once. Call it once.
    void start();

private:
    using Snapshots = std::vector<LabelSnapshot>;

    /// The labels in the wording of the options.
    [[nodiscard]] Snapshots snapshots() const;
    void update();
    void updateOnce(const Snapshots& labels);
    void updateFollowing(const Snapshots& labels);
    Task<void> giveUp();
    void printOnce(const Snapshots& labels, int status);
    [[nodiscard]] bool print(const Snapshots& labels);
    void rejectCoins(const std::vector<std::string>& names);
    void finish(int status);

    PrintedLabels& m_labels;
    Sleeper m_sleeper;
    LabelOptions m_options;
    Output m_output;
    /// What has been printed last, of every coin; empty before.
    Snapshots m_printed;
    /// In which language: beside the label, json and waybar have words in it.
    TextLanguage m_printedIn = TextLanguage::chinese;
    bool m_isFinished = false;
    // Last: its task uses `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
