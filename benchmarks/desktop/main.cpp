// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/Roles.h"

#include <fmt/core.h>

#include <cstdio>
#include <string_view>

int main(int argc, char* argv[]) {
    namespace roles = quillbar::benchmarks;
    const std::string_view role = argc > 1 ? argv[1] : "";
    if (role == "tray-host") {
        return roles::runTrayHost(argc, argv);
    }
    if (role == "panel") {
        return roles::runPanel(argc, argv);
    }
    if (role == "flood") {
        return roles::runFlood(argc, argv);
    }
    fmt::print(stderr, "usage: {} tray-host|panel|flood\n", argv[0]);
    return 2;
}
