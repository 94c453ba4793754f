// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Logger.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// Remembers which of several equivalent addresses is in use, and moves on when it fails: forwards
/// only, one at a time, never past the last. To begin again, make a new selector. All users of the
/// list share it, so that a failure that one meets counts for all. Belongs to the executor's
/// thread.
class EndpointSelector final {
public:
    /// An address and its position in the list.
    struct Endpoint {
        std::string url;
        int index = 0;

        [[nodiscard]] bool operator==(const Endpoint&) const = default;
    };

    /// Begins with the first of `urls`, which may be empty. `markFailed` calls `whenExhausted` at
    /// each failure of the last one. That may release this selector only if the caller of
    /// `markFailed` holds it too.
    explicit EndpointSelector(std::vector<std::string> urls,
                              std::function<void()> whenExhausted = {});

    /// How many addresses there are.
    [[nodiscard]] int count() const noexcept;

    /// The address in use; absent for an empty list.
    [[nodiscard]] std::optional<Endpoint> current() const;

    /// Reports that the address at this position, which the caller got from `current`, failed.
    /// Moves to the next one and logs it, unless somebody has moved already or this one is the
    /// last.
    void markFailed(int index);

private:
    std::vector<std::string> m_urls;
    std::function<void()> m_whenExhausted;
    int m_index = 0;
    Logger m_logger{"Endpoint"};
};

}  // namespace quillbar
