// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/DocumentStore.h"
#include "tests/state/FaultyFileOperations.h"
#include "tests/state/StoredDocuments.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace quillbar {

inline constexpr std::size_t kHugeSize = 50'000'000;

/// A store of any kind, over a folder of the test's own.
template <class Store>
struct DocumentStoreFixture : ::testing::Test {
    using Stored = StoredDocument<Store>;

    Store store() { return Store(directory, files); }

    void theFileHolds(std::string_view bytes) { writeContents(file, bytes); }

    void expectDefaultAndOneLineWith(std::string_view reason) {
        log.clear();
        EXPECT_EQ(store().load(), Stored::defaultDocument());
        EXPECT_THAT(
            log.lines(),
            ::testing::ElementsAre(::testing::AllOf(::testing::StartsWith(Stored::kUnreadable),
                                                    ::testing::HasSubstr(std::string(reason)),
                                                    ::testing::EndsWith("), using default"))));
    }

    /// The file's bytes and, after a slash, those of NAME.bak.
    std::string fileAndKept() { return contentsOf(file) + "/" + contentsOf(kept); }

    CapturedLog log;
    TemporaryFolder folder;
    FaultyFileOperations files;
    std::filesystem::path directory = folder.path() / "share" / "Quillbar";
    std::filesystem::path file = directory / Stored::kName;
    std::filesystem::path kept = file.string() + ".bak";
};

using Stores = ::testing::Types<WatchlistStore, SettingsStore, PreferencesStore, AlertStore>;

}  // namespace quillbar
