// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/FirstStart.h"

#include "QuillbarCore/runtime/AtomicFile.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/state/SettingsStore.h"
#include "QuillbarCore/state/WatchlistStore.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>
#include <utility>

namespace quillbar {

namespace {

constexpr std::array kSignsOfUse{WatchlistDocument::kFileName,
                                 SettingsDocument::kFileName,
                                 FirstStart::kFileName};

}  // namespace

FirstStart::FirstStart(std::filesystem::path folder, FileOperations& operations)
    : m_folder(std::move(folder))
    , m_operations(operations)
    , m_isDue(std::none_of(kSignsOfUse.begin(), kSignsOfUse.end(), [this](std::string_view name) {
        std::error_code error;
        return std::filesystem::exists(m_folder / name, error);
    })) {}

void FirstStart::told() {
    if (std::exchange(m_isDue, false)) {
        keep();
    }
}

void FirstStart::keep() {
    try {
        AtomicFile::write(m_folder / kFileName, {}, m_operations, AtomicFile::Durability::process);
    } catch (const FileError& error) {
        Logger("FirstStart").error("cannot keep that the panel was opened: {}", error.what());
    }
}

}  // namespace quillbar
