// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/HttpMessage.h"

#include <string>
#include <string_view>

namespace quillbar::simulator {

class Exchange;

/// Carries out one request to `/NAME?PARAMETERS` and answers {"done":true}, or 400 with what is
/// wrong with it. `/` answers with the help. GET and POST are the same; parameters are read from
/// the query alone.
[[nodiscard]] HttpResponse answerControl(const HttpRequest& request, Exchange& exchange);

/// The text that explains every name and parameter, for `--help`.
[[nodiscard]] std::string controlHelp();

}  // namespace quillbar::simulator
