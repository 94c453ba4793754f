// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/AtomicFile.h"
#include "tests/runtime/HookedFileOperations.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace quillbar {

inline std::string reasonOf(int code) {
    return ::strerrordesc_np(code);
}

/// A folder of its own, the file to write in it, and what its writing throws.
struct AtomicFileFixture : ::testing::Test {
    [[nodiscard]] static unsigned modeOf(const std::filesystem::path& of) {
        struct stat status {};
        return ::lstat(of.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
    }

    // The names in a folder.
    [[nodiscard]] static std::vector<std::string> namesIn(const std::filesystem::path& inFolder) {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(inFolder)) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    // The text and the code of what `action` throws; empty and 0 when it throws nothing.
    struct Failure {
        std::string text;
        int code = 0;
    };
    static Failure failureOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const FileError& error) {
            return {error.what(), error.code()};
        }
        return {};
    }
    static Failure readFailure(const std::filesystem::path& of,
                               std::size_t maximumSize = AtomicFile::kMaximumSize) {
        return failureOf([&] { (void)AtomicFile::read(of, maximumSize); });
    }
    static Failure writeFailure(const std::filesystem::path& to, FileOperations& by) {
        return failureOf([&] { AtomicFile::write(to, "new", by); });
    }

    TemporaryFolder temporary;
    std::filesystem::path folder = temporary.path();
    std::filesystem::path file = folder / "document.json";
    HookedFileOperations operations;
};

}  // namespace quillbar
