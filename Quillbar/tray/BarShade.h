// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

namespace quillbar {

/// How the bar behind the status item looks. Hosts never recolour a picture, and none says what it
/// is drawn on.
enum class BarShade {
    dark,
    light,
    /// Pictures bring their own dark ground with them.
    unknown,
};

}  // namespace quillbar
