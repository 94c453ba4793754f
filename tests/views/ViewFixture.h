// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/catalog/IconStore.h"
#include "tests/state/AppStateFixture.h"
#include "tests/support/FakeFetcher.h"

#include <filesystem>
#include <memory>

namespace quillbar {

/// What views are built on: a real AppState over fakes, as its own tests have it, and a real
/// IconStore over a fake fetcher. Build the state first.
struct ViewFixture : AppStateFixture {
    /// The environment, which lives as long as the fixture. The first call wires it to the state
    /// that is built then.
    const ViewEnvironment& environment() {
        if (!m_environment) {
            m_environment = std::make_unique<ViewEnvironment>(ViewEnvironment{
                .executor = executor,
                .now = time.clock(),
                .calendar = Calendar::utc(),
                .appState = *state,
                .edits = scope,
                .iconStore = &iconStore,
            });
        }
        return *m_environment;
    }

    std::shared_ptr<FakeFetcher> iconFetcher = std::make_shared<FakeFetcher>();
    IconStore iconStore{executor, folder.path() / "Icons", iconFetcher, "https://icons.test/logos"};

private:
    std::unique_ptr<ViewEnvironment> m_environment;
};

}  // namespace quillbar
