// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/ApplicationService.h"
#include "Quillbar/instance/LabelService.h"
#include "tests/instance/FakeLabelSource.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QDBusConnection>

#include <gtest/gtest.h>

namespace quillbar {

/// The running application with its name and a label that is what it is set to.
struct FakeApplication final {
    explicit FakeApplication(const QDBusConnection& bus)
        : service(bus, [](auto, const auto&) {})
        , label(service.label(), source) {
        bool hasName = false;
        service.claim([&](auto claim) { hasName = claim == ApplicationService::Claim::claimed; });
        EXPECT_TRUE(spinUntil([&] { return hasName; }));
    }

    FakeLabelSource source;
    ApplicationService service;
    LabelService label;
};

}  // namespace quillbar
