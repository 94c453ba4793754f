// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/DecoderRules.h"
#include "fuzz/NaiveDecoder.h"
#include "QuillbarCore/exchange/BinanceDecoder.h"

namespace quillbar {

void fuzz(std::string_view input) {
    requireSameOutcome(&BinanceDecoder::decodeKlines, &NaiveDecoder::decodeKlines, input);
}

}  // namespace quillbar
