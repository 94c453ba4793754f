// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/FileOperations.h"

#include <filesystem>
#include <string_view>

namespace quillbar {

/// Whether the panel opens for the first time ever, so that the user must be told where to find it
/// again. Main thread: its file is so small that reading it blocks nothing.
class FirstStart final {
public:
    /// The empty file that is made in the folder when the user has been told.
    static constexpr std::string_view kFileName = "panel-opened";

    /// Looks into `folder`, which is the application's own and need not exist. A user whose list or
    /// settings are there is not told. Files that are made later change nothing. The operations
    /// outlive this object.
    explicit FirstStart(std::filesystem::path folder,
                        FileOperations& operations = FileOperations::system());

    /// Whether the user must still be told.
    [[nodiscard]] bool isDue() const noexcept { return m_isDue; }
    /// Notes that the user has been told, and makes the file. If it cannot be made, that is logged,
    /// and the next start tells the user again.
    void told();

private:
    void keep();

    std::filesystem::path m_folder;
    FileOperations& m_operations;
    bool m_isDue;
};

}  // namespace quillbar
