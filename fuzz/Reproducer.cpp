// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
//
// Runs a fuzzer's target on files, in a build without libFuzzer: on a seed of the corpus, or on an
// input that broke the fuzzer.

#include "fuzz/FuzzTarget.h"
#include "tests/support/TestEnvironment.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// The files that the arguments name from a folder on, those of a folder in the order of their
/// names.
std::vector<fs::path> filesOf(const std::vector<fs::path>& arguments, const fs::path& from) {
    std::vector<fs::path> files;
    for (const fs::path& name : arguments) {
        const fs::path argument = from / name;
        if (!fs::is_directory(argument)) {
            files.push_back(argument);
            continue;
        }
        std::vector<fs::path> entries;
        for (const auto& entry : fs::directory_iterator(argument)) {
            entries.push_back(entry.path());
        }
        std::ranges::sort(entries);
        files.insert(files.end(), entries.begin(), entries.end());
    }
    return files;
}

std::optional<std::vector<char>> contentsOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    // Exactly as large as the file, so that a sanitizer sees a read past its end.
    std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    bytes.shrink_to_fit();
    return bytes;
}

}  // namespace

int main(int argc, char* argv[]) {
    const quillbar::TestEnvironment environment(argv);
    const std::vector<fs::path> files = filesOf({argv + 1, argv + argc}, environment.startFolder());
    if (files.empty()) {
        fmt::print(stderr, "Usage: {} FILE-OR-FOLDER...\n", argv[0]);
        return 2;
    }
    for (const fs::path& file : files) {
        const auto bytes = contentsOf(file);
        if (!bytes) {
            fmt::print(stderr, "{}: cannot be read\n", file.string());
            return 1;
        }
        // Flushed before the run, so that the last line names the input that broke it.
        fmt::print("{}\n", file.string());
        std::fflush(stdout);
        quillbar::fuzz({bytes->data(), bytes->size()});
    }
    fmt::print("{} inputs\n", files.size());
    return 0;
}
