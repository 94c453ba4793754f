// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/IconStore.h"

#include "QuillbarCore/catalog/BinanceIconURL.h"
#include "QuillbarCore/catalog/CoinIconDescriptor.h"
#include "QuillbarCore/runtime/AtomicFile.h"
#include "QuillbarCore/runtime/Cancelled.h"

#include <exception>
#include <utility>

namespace quillbar {

namespace {

// A 403 does not count: it may be meant for the whole region. Nor does a body that is no PNG: it
// may be the login page of a network.
bool saysMissing(int status) {
    return status == 404 || status == 410;
}

}  // namespace

IconStore::IconStore(Executor& executor,
                     std::filesystem::path directory,
                     std::shared_ptr<HTTPDataFetching> fetcher,
                     std::string baseURL,
                     FileOperations& files,
                     Clock now)
    : m_directory(std::move(directory))
    , m_fetcher(std::move(fetcher))
    , m_baseURL(std::move(baseURL))
    , m_files(files)
    , m_now(std::move(now))
    , m_scope(executor) {}

IconStore::~IconStore() {
    for (const auto& [name, result] : m_inFlight) {
        result.setError(std::make_exception_ptr(Cancelled{}));
    }
}

Task<std::optional<std::string>> IconStore::iconData(std::string baseAsset) {
    const CoinIconDescriptor descriptor{baseAsset};
    if (!descriptor.canHaveLogo()) {
        co_return std::nullopt;
    }
    std::string name = descriptor.fileName();
    try {
        std::string data = AtomicFile::read(m_directory / name, kMaximumSize);
        if (isPNG(data)) {
            co_return data;
        }
    } catch (const FileError&) {
        // Missing or damaged: download it.
    }
    const auto [running, isNew] = m_inFlight.try_emplace(name);
    // Do not use this object after the wait: it may be destroyed by then.
    const Deferred<Icon> result = running->second;
    if (isNew) {
        m_scope.spawn(load(std::move(baseAsset), std::move(name), result));
    }
    co_return co_await result.wait();
}

bool IconStore::isMissing(std::string_view baseAsset) const {
    const auto missing = m_missing.find(CoinIconDescriptor{std::string(baseAsset)}.fileName());
    return missing != m_missing.end() && isYoungerThan(kMissingFor, missing->second, m_now());
}

Task<void> IconStore::load(std::string baseAsset, std::string fileName, Deferred<Icon> result) {
    Icon icon = co_await download(std::move(baseAsset), m_directory / fileName);
    m_inFlight.erase(fileName);
    result.setValue(std::move(icon));
}

Task<std::optional<std::string>> IconStore::download(std::string baseAsset,
                                                     std::filesystem::path file) {
    HTTPResponse response;
    try {
        std::string url = BinanceIconURL::url(m_baseURL, baseAsset);
        response = co_await m_fetcher->fetch(std::move(url));
    } catch (const std::exception& error) {
        m_logger.error("icon fetch failed for {}: {}", baseAsset, error.what());
        co_return std::nullopt;
    }
    if (response.status != 200) {
        m_logger.log("icon fetch got HTTP {} for {}", response.status, baseAsset);
        if (saysMissing(response.status)) {
            m_missing.insert_or_assign(file.filename(), m_now());
        }
        co_return std::nullopt;
    }
    if (!isPNG(response.body) || response.body.size() > kMaximumSize) {
        m_logger.log("icon fetch returned a non-PNG body for {}", baseAsset);
        co_return std::nullopt;
    }
    m_missing.erase(file.filename());
    persist(response.body, file, baseAsset);
    co_return std::move(response.body);
}

void IconStore::persist(std::string_view data,
                        const std::filesystem::path& file,
                        std::string_view baseAsset) const {
    try {
        // Opening a board stores a hundred logos: too many to wait for the disk each time.
        AtomicFile::write(file, data, m_files, AtomicFile::Durability::process);
    } catch (const std::exception& error) {
        m_logger.error("icon cache write failed for {}: {}", baseAsset, error.what());
    }
}

bool IconStore::isPNG(std::string_view data) {
    return data.starts_with("\x89PNG");
}

}  // namespace quillbar
