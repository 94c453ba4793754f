// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/label/LabelLine.h"
#include "Quillbar/label/LabelOptions.h"
#include "Quillbar/labelstate/LabelSource.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <functional>
#include <optional>
#include <string_view>

namespace quillbar {

/// Prints the label, once or as it changes. Lives on the main thread; what it is handed outlives it.
class LabelPrinter final {
public:
    /// How long `--once` waits for a price.
    static constexpr Seconds kPatience{15};
    /// The exit statuses.
    static constexpr int kSuccess = 0;
    static constexpr int kNoPrice = 3;
    static constexpr int kNotWritten = 4;

    struct Output {
        /// Writes one line, adding the line feed, and flushes it. Returns false when it cannot be
        /// written: nobody reads any more, or the disk is full. Following then ends with success,
        /// and `--once` with `kNotWritten`.
        std::function<bool(std::string_view line)> print;
        /// Ends the program with an exit status. Called once at most; the printer prints nothing
        /// afterwards.
        std::function<void(int status)> finish;
    };

    /// The printer is the only observer of the source. `--once` waits for the change beside the
    /// price until the source is started.
    LabelPrinter(LabelSource& source,
                 Executor& executor,
                 Sleeper sleeper,
                 LabelOptions options,
                 Output output);
    LabelPrinter(const LabelPrinter&) = delete;
    LabelPrinter& operator=(const LabelPrinter&) = delete;
    LabelPrinter(LabelPrinter&&) = delete;
    LabelPrinter& operator=(LabelPrinter&&) = delete;
    ~LabelPrinter();

    /// Begins to observe. When following, it prints the first line at once. Call it once.
    void start();

private:
    /// The label in the wording of the options.
    [[nodiscard]] LabelSnapshot snapshot() const;
    void update();
    void updateOnce(const LabelSnapshot& snapshot);
    void updateFollowing(const LabelSnapshot& snapshot);
    Task<void> giveUp();
    void printOnce(const LabelSnapshot& snapshot, int status);
    void finish(int status);

    LabelSource& m_source;
    Sleeper m_sleeper;
    LabelOptions m_options;
    Output m_output;
    std::optional<LabelSnapshot> m_printed;
    bool m_isFinished = false;
    // Last: its task uses `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
