// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ConnectionFailure.h"

#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Cancelled.h"

namespace quillbar {

namespace {

using Kind = ConnectionFailure::Kind;

Kind kindOf(URLError::Code code) {
    switch (code) {
    case URLError::Code::cancelled:
        return Kind::cancelled;
    case URLError::Code::timedOut:
        return Kind::timedOut;
    case URLError::Code::cannotFindHost:
        return Kind::hostNotFound;
    case URLError::Code::cannotConnect:
        return Kind::cannotConnect;
    case URLError::Code::proxyFailed:
        return Kind::proxyFailed;
    case URLError::Code::connectionLost:
        return Kind::lost;
    case URLError::Code::secureConnectionFailed:
        return Kind::untrusted;
    case URLError::Code::tooLarge:
        return Kind::tooLarge;
    case URLError::Code::notServedHere:
        return Kind::notServedHere;
    case URLError::Code::badURL:
        return Kind::badAddress;
    case URLError::Code::other:
        break;
    }
    return Kind::unknown;
}

ConnectionFailure refusedWith(int httpStatus) {
    return {.kind = Kind::refused, .httpStatus = httpStatus};
}

}  // namespace

ConnectionFailure ConnectionFailure::of(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const URLError& failure) {
        return failure.httpStatus() != 0 ? refusedWith(failure.httpStatus())
                                         : ConnectionFailure{.kind = kindOf(failure.code())};
    } catch (const BinanceError& failure) {
        return failure.httpStatus() != 0 ? refusedWith(failure.httpStatus())
                                         : ConnectionFailure{.kind = Kind::noServer};
    } catch (const Cancelled&) {
        return {.kind = Kind::cancelled};
    } catch (...) {
        return {};
    }
}

}  // namespace quillbar
