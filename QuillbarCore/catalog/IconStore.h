// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/HTTPDataFetching.h"
#include "QuillbarCore/runtime/Deferred.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/FileOperations.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillbar {

/// The coins' logos: on disk for good, from the network when they are not there (a power cut may
/// take or damage the last ones). Keeps none in memory.
///
/// Belongs to the executor's thread, which it blocks while it reads or writes a small file.
/// Destroying it ends its downloads, and every wait for one with `Cancelled`.
class IconStore final {
public:
    /// A larger file is no logo.
    static constexpr std::size_t kMaximumSize = std::size_t{1024} * 1024;
    /// How long a logo that the server does not have counts as missing: new coins get theirs later.
    static constexpr Seconds kMissingFor{3600};

    /// `directory` need not exist. `baseURL` is where the logos lie, without a slash at its end. The
    /// executor and the file operations outlive the store.
    IconStore(Executor& executor,
              std::filesystem::path directory,
              std::shared_ptr<HTTPDataFetching> fetcher,
              std::string baseURL,
              FileOperations& files = FileOperations::system(),
              Clock now = systemClock());
    IconStore(const IconStore&) = delete;
    IconStore& operator=(const IconStore&) = delete;
    IconStore(IconStore&&) = delete;
    IconStore& operator=(IconStore&&) = delete;
    ~IconStore();

    /// The bytes of the logo's PNG file; absent when none can be had, which is logged and not
    /// remembered. Who asks for a logo that is being fetched shares the download; no caller's
    /// cancellation touches it. Throws `Cancelled` alone.
    Task<std::optional<std::string>> iconData(std::string baseAsset);

    /// Whether the server said less than `kMissingFor` ago that it has no logo of this base asset, so
    /// that asking again is in vain. A request that failed otherwise says nothing of the kind.
    [[nodiscard]] bool isMissing(std::string_view baseAsset) const;
    /// Has no logo count as missing any more. For when the network changes: on another one they may
    /// be there.
    void forgetMissing() noexcept { m_missing.clear(); }

private:
    using Icon = std::optional<std::string>;

    Task<void> load(std::string baseAsset, std::string fileName, Deferred<Icon> result);
    Task<Icon> download(std::string baseAsset, std::filesystem::path file);
    void persist(std::string_view data,
                 const std::filesystem::path& file,
                 std::string_view baseAsset) const;
    [[nodiscard]] static bool isPNG(std::string_view data);

    std::filesystem::path m_directory;
    std::shared_ptr<HTTPDataFetching> m_fetcher;
    std::string m_baseURL;
    FileOperations& m_files;
    Clock m_now;
    Logger m_logger{"IconStore"};
    // By file name, so that all spellings of a base asset share one.
    std::unordered_map<std::string, Deferred<Icon>> m_inFlight;
    // When the server said so, by file name.
    std::unordered_map<std::string, TimePoint> m_missing;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
