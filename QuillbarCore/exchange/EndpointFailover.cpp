// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/EndpointFailover.h"

#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/URLError.h"

namespace quillbar {

bool EndpointFailover::shouldTryNextEndpoint(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const URLError& transport) {
        return transport.code() != URLError::Code::cancelled;
    } catch (const BinanceError& answer) {
        return answer.httpStatus() >= 500 && answer.httpStatus() <= 599;
    } catch (...) {
        // Such as a cancelled task, or a body that cannot be decoded.
        return false;
    }
}

}  // namespace quillbar
