// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

/// Whether the process can resolve the one name that its exchanges are reached at, "localhost",
/// which is then 127.0.0.1. No other name is known, whatever the machine says.
///
/// It takes the place of the C library's `getaddrinfo` in every program that links it. Qt remembers
/// an answer for a minute. For any thread.
namespace quillbar::ProcessNames {

void setKnown(bool isKnown);

}  // namespace quillbar::ProcessNames
