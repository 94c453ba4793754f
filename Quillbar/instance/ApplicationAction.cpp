// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ApplicationAction.h"

namespace quillbar {

std::string_view actionName(ApplicationAction action) {
    switch (action) {
    case ApplicationAction::togglePanel:
        return "toggle-panel";
    case ApplicationAction::showPanel:
        return "show-panel";
    case ApplicationAction::showPreferences:
        return "show-preferences";
    case ApplicationAction::toggleDiscreet:
        return "toggle-discreet";
    case ApplicationAction::quit:
        return "quit";
    }
    return "";
}

std::optional<ApplicationAction> actionNamed(std::string_view name) {
    for (const auto action : {ApplicationAction::togglePanel,
                              ApplicationAction::showPanel,
                              ApplicationAction::showPreferences,
                              ApplicationAction::toggleDiscreet,
                              ApplicationAction::quit}) {
        if (name == actionName(action)) {
            return action;
        }
    }
    return std::nullopt;
}

}  // namespace quillbar
