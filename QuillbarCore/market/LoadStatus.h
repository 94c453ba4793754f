// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Task.h"

#include <string_view>

namespace quillbar {

/// What a view says of a model's loading, and the one way in which a model refreshes: a failure is
/// logged and keeps the data; a cancellation is silent. Belongs to the main thread.
class LoadStatus final {
public:
    /// A refresh runs and there is nothing to show yet.
    [[nodiscard]] const Observed<bool>& isLoading() const noexcept { return m_isLoading; }
    /// The last refresh failed.
    [[nodiscard]] const Observed<bool>& loadFailed() const noexcept { return m_loadFailed; }

    enum class Shown { nothing, data };
    enum class Outcome { succeeded, unchanged };

    /// Runs a load, which stores what it has loaded and says whether that counts as a success
    /// (clearing `loadFailed`) or changes nothing. Its error is logged as "WHAT failed: ERROR" and
    /// sets `loadFailed`, unless it is a cancellation of the transfer. Throws `Cancelled` alone.
    Task<void> run(Shown shown, Task<Outcome> load, std::string_view what, Logger logger);

private:
    Observed<bool> m_isLoading;
    Observed<bool> m_loadFailed;
};

}  // namespace quillbar
