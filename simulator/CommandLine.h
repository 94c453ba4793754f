// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/SimulatorOptions.h"

#include <string>
#include <vector>

namespace quillbar::simulator {

/// What the program was asked for.
struct CommandLine {
    SimulatorOptions options;
    /// When not empty: to be printed instead of starting (`--help`, `--version`).
    std::string text;
};

/// Reads the program's arguments, its own name left out. Ticking is automatic. Values follow their
/// option after a space or a `=`. Throws std::invalid_argument with a one-line English text that
/// names the offending argument.
[[nodiscard]] CommandLine parseCommandLine(const std::vector<std::string>& arguments);

}  // namespace quillbar::simulator
