// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace quillbar {

/// What a test program sees of the machine: nothing that its tests could come to depend on.
/// docs/testing.md lists it, thing by thing.
///
/// Made first thing in main, before GoogleTest, Qt or the locale. The program then starts itself
/// once more, in the same process, with an environment of its own: libraries read variables while
/// they are loaded, so that removing them later would be too late. Programs that a test starts
/// inherit it. Three variables of the outside are asked, all of them ours:
///
///     QUILLBAR_TEST_LOCALE    the locale; C.UTF-8 when absent or empty
///     QUILLBAR_TEST_ZONE      the zone; UTC when absent or empty
///     QUILLBAR_TEST_FONTS     the fontconfig file; the tests' own when absent or empty
///
/// QUILLBAR_EXPECTED_* and the options of sanitizers come through as they are.
class TestEnvironment final {
public:
    /// `argv` as main has it. Throws std::system_error when the system refuses something, and
    /// returns in the program that was started again.
    explicit TestEnvironment(char* const* argv);
    TestEnvironment(const TestEnvironment&) = delete;
    TestEnvironment& operator=(const TestEnvironment&) = delete;
    TestEnvironment(TestEnvironment&&) = delete;
    TestEnvironment& operator=(TestEnvironment&&) = delete;
    /// Removes the folder in which everything was kept. A program that is killed leaves it.
    ~TestEnvironment();

    /// Where the program was started. Its working folder is the home folder from then on.
    [[nodiscard]] const std::filesystem::path& startFolder() const noexcept {
        return m_startFolder;
    }

private:
    std::filesystem::path m_startFolder;
    /// Empty in a program that a test program started: the folder is that one's.
    std::filesystem::path m_ownFolder;
};

}  // namespace quillbar
