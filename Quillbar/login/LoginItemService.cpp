// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/LoginItemService.h"

namespace quillbar {

std::string_view description(LoginItemStatus status) {
    switch (status) {
    case LoginItemStatus::notRegistered:
        return "not registered";
    case LoginItemStatus::enabled:
        return "enabled";
    case LoginItemStatus::requiresApproval:
        return "requires approval";
    case LoginItemStatus::notFound:
        break;
    }
    return "not found";
}

}  // namespace quillbar
