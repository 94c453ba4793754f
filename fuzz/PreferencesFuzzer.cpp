// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/DocumentRules.h"
#include "fuzz/FuzzTarget.h"
#include "QuillbarCore/state/PreferencesStore.h"

namespace quillbar {

void fuzz(std::string_view input) {
    static_cast<void>(requireSoundDocument<PreferencesDocument>(input));
}

}  // namespace quillbar
