// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

#include <string>
#include <string_view>
#include <unordered_map>

namespace quillbar {

/// The coins' decoded logos, so that none is decoded twice. One picture is at most 16 KB. For the
/// main thread.
class CoinIconCache final {
public:
    CoinIconCache() = default;
    CoinIconCache(const CoinIconCache&) = delete;
    CoinIconCache& operator=(const CoinIconCache&) = delete;
    CoinIconCache(CoinIconCache&&) = delete;
    CoinIconCache& operator=(CoinIconCache&&) = delete;
    ~CoinIconCache() = default;

    /// The cache of the process; it is never destroyed before the process ends.
    [[nodiscard]] static CoinIconCache& shared();

    /// The logo of a base asset in any case; null when there is none. The picture shares its pixels
    /// with the cache.
    [[nodiscard]] QImage image(std::string_view baseAsset) const;

    /// Keeps a logo, in place of the one before.
    void insert(std::string_view baseAsset, QImage image);

    /// Forgets every logo.
    void clear();

private:
    std::unordered_map<std::string, QImage> m_images;  // by base asset in upper case
};

}  // namespace quillbar
