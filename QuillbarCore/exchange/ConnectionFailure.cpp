// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/ConnectionFailure.h"

#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Cancelled.h"

#include <fmt/format.h>

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

std::string displayName(const ConnectionFailure& failure) {
    switch (failure.kind) {
    case Kind::hostNotFound:
        return "无法解析服务器地址";
    case Kind::cannotConnect:
        return "无法连接到服务器";
    case Kind::proxyFailed:
        return "代理不可用";
    case Kind::timedOut:
        return "连接超时";
    case Kind::untrusted:
        return "安全连接失败或证书不可信";
    case Kind::refused:
        return fmt::format("服务器返回 {}", failure.httpStatus);
    case Kind::closedByServer:
        return "服务器关闭了连接";
    case Kind::lost:
        return "连接意外断开";
    case Kind::tooLarge:
        return "服务器的数据过大";
    case Kind::notServedHere:
        return "当前地区无法访问行情服务";
    case Kind::badAddress:
        return "服务器地址无效";
    case Kind::noServer:
        return "没有可用的服务器";
    case Kind::cancelled:
        return "连接已取消";
    case Kind::unknown:
        return "连接出现异常";
    }
    return {};
}

}  // namespace quillbar
