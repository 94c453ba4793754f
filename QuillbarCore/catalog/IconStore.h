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

/// The coins' logos: kept on disk for good, and fetched from the network when they are not there. A
/// power cut may lose or damage the latest ones. Keeps none in memory.
///
/// Belongs to the executor's thread, which it blocks while it reads or writes a small file.
/// Destroying it ends its downloads, and every wait for one with `Cancelled`.
class IconStore final {
public:
    /// The most bytes of a logo.
    static constexpr std::size_t kMaximumSize = std::size_t{1024} * 1024;
    /// How long a logo counts as missing when the server does not have it. Not for ever, because
    /// new coins get their logos later.
    static constexpr Seconds kMissingFor{3600};

    /// `directory` need not exist. `baseURL` is the folder of the logos, without a slash at its
    /// end. The executor and the file operations outlive the store.
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

    /// The bytes of the logo's PNG file; absent when there is none, which is logged; the next call
    /// tries again. Callers that ask for a logo that is being fetched share the download, which
    /// goes on when a caller is cancelled. Throws only `Cancelled`.
    Task<std::optional<std::string>> iconData(std::string baseAsset);

    /// Whether the server said less than `kMissingFor` ago that it has no logo of this base asset,
    /// so that asking again is useless. A request that failed for another reason does not count.
    [[nodiscard]] bool isMissing(std::string_view baseAsset) const;
    /// From here on no logo counts as missing. For a change of network: another one may have the
    /// logos.
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
    // By file name, so that upper and lower case of a base asset share a download.
    std::unordered_map<std::string, Deferred<Icon>> m_inFlight;
    // When the server said that it has no logo, by file name.
    std::unordered_map<std::string, TimePoint> m_missing;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
