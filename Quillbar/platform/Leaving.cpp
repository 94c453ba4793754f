// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/Leaving.h"

#include <cstdlib>

namespace quillbar {

int leave(int status) {
#if defined(__has_feature)
#    if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
    return status;
#    endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return status;
#endif
    std::_Exit(status);
}

}  // namespace quillbar
