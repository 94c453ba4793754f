// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/coins/CoinIconCache.h"

#include "QuillbarCore/catalog/SearchText.h"

#include <utility>

namespace quillbar {

CoinIconCache& CoinIconCache::shared() {
    static CoinIconCache cache;
    return cache;
}

QImage CoinIconCache::image(std::string_view baseAsset) const {
    const auto found = m_images.find(SearchText::upperCased(baseAsset));
    return found == m_images.end() ? QImage() : found->second;
}

void CoinIconCache::insert(std::string_view baseAsset, QImage image) {
    m_images.insert_or_assign(SearchText::upperCased(baseAsset), std::move(image));
}

void CoinIconCache::clear() {
    m_images.clear();
}

}  // namespace quillbar
