// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/login/LoginItemService.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// A login item that records what it is asked, and does what the test says.
class FakeLoginItem final : public LoginItemService {
public:
    void registerItem() override {
        calls.emplace_back("register");
        if (duringRegister) {
            duringRegister();
        }
        change(afterRegister);
    }
    void unregisterItem() override {
        calls.emplace_back("unregister");
        change(afterUnregister);
    }
    [[nodiscard]] LoginItemStatus status() const override { return current; }

    LoginItemStatus current = LoginItemStatus::notRegistered;
    /// What the status is once the call has been made, whether or not it failed.
    LoginItemStatus afterRegister = LoginItemStatus::enabled;
    LoginItemStatus afterUnregister = LoginItemStatus::notRegistered;
    /// Called while the item is registered, before anything of it can be seen.
    std::function<void()> duringRegister;
    /// What calls fail with.
    std::optional<std::string> failure;
    std::vector<std::string> calls;

private:
    void change(LoginItemStatus after) {
        current = after;
        if (failure) {
            throw LoginItemError(*failure);
        }
    }
};

}  // namespace quillbar
