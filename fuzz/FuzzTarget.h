// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quillbar {

/// One run of a fuzzer: every *Fuzzer.cpp defines it. Returns when the code under test handled the
/// input as it should; aborts, or lets an exception out, when not.
void fuzz(std::string_view input);

/// Aborts, after a line on stderr, when `holds` is false. `rule` says what should have been so.
void require(bool holds, std::string_view rule);

}  // namespace quillbar
