// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/Environment.h"

#include <map>
#include <string>
#include <utility>

namespace quillbar {

/// An environment that holds these variables and no others.
inline EnvironmentVariables environmentOf(std::map<std::string, std::string> variables) {
    return [variables = std::move(variables)](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional<std::string>(found->second);
    };
}

}  // namespace quillbar
