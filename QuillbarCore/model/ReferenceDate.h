// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Time.h"

namespace quillbar {

/// 2001-01-01T00:00:00Z: the dates in our files are seconds since then.
inline constexpr TimePoint kReferenceDate{Seconds{978307200}};

}  // namespace quillbar
