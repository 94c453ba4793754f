// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

/// The rule that decides whether a REST request is tried again elsewhere.
namespace quillbar::EndpointFailover {

/// Whether the error (not null) is the endpoint's own: a transport error that is not a cancellation,
/// or an HTTP status from 500 to 599. What is the request's fault, or the limits' of this address
/// (4xx), would be no better elsewhere.
[[nodiscard]] bool shouldTryNextEndpoint(const std::exception_ptr& error);

}  // namespace quillbar::EndpointFailover
