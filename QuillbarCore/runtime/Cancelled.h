// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

namespace quillbar {

/// What an await throws when its task has been cancelled. It does not derive from std::exception,
/// so that the `catch (const std::exception&)` of a retrying loop cannot swallow it. Never logged:
/// a cancellation is silent.
struct Cancelled final {};

}  // namespace quillbar
