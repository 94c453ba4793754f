// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

/// The rule that decides whether a REST request is tried again elsewhere.
namespace quillbar::EndpointFailover {

/// Whether the error (not null) is the endpoint's own: a transport error that is not a
/// cancellation, or an HTTP status from 500 to 599. A fault of the request, or a limit on our IP
/// address (4xx), would be the same at the next endpoint.
[[nodiscard]] bool shouldTryNextEndpoint(const std::exception_ptr& error);

}  // namespace quillbar::EndpointFailover
