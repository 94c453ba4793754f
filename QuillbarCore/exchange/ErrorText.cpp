// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ErrorText.h"

#include "QuillbarCore/runtime/Cancelled.h"

namespace quillbar {

std::string errorText(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& failure) {
        return failure.what();
    } catch (const Cancelled&) {
        return "cancelled";
    } catch (...) {
        return "an error of an unknown type";
    }
}

}  // namespace quillbar
