// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/BinanceIconURL.h"

#include "QuillbarCore/catalog/SearchText.h"
#include "QuillbarCore/exchange/PercentEncoding.h"

#include <fmt/format.h>

namespace quillbar::BinanceIconURL {

std::string url(std::string_view base, std::string_view baseAsset) {
    return fmt::format("{}/{}.png", base, percentEncoded(SearchText::upperCased(baseAsset)));
}

}  // namespace quillbar::BinanceIconURL
