// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/HTTPDataFetching.h"

#include <chrono>
#include <cstddef>
#include <string>

namespace quillbar {

/// Limits beyond which a transfer fails.
struct TransferLimits {
    /// The longest time without any progress.
    std::chrono::milliseconds withoutProgress{60'000};
    /// From sending the request to the end of the answer's head. Qt 6.4 keeps a head of any length
    /// in memory, so only this limits the memory for an endless head. If the bytes come faster than
    /// Qt's thread reads heads (about 2 MB/s), not even this does: Qt then reads on until the
    /// server pauses.
    std::chrono::milliseconds head{30'000};
    /// From the start to the last byte, redirects included.
    std::chrono::milliseconds total{90'000};
    /// The most bytes of a body, decompressed.
    std::size_t bodySize = std::size_t{64} * 1024 * 1024;
};

/// Fetches over HTTP and HTTPS through the one session of the process, which keeps connections open
/// between requests, and neither cookies nor a cache. A value: every fetcher uses the same session.
///
/// For the main thread, which needs a QCoreApplication; no fetch may outlive that. The first fetch
/// makes the session; it is destroyed with the QCoreApplication. It asks the application's proxy
/// factory and trusts the certificate authorities of the default SSL configuration.
class URLSessionFetcher final : public HTTPDataFetching {
public:
    URLSessionFetcher() = default;
    explicit URLSessionFetcher(TransferLimits limits)
        : m_limits(limits) {}

    /// A plain GET with the user agent "Quillbar/" and the version. Redirects are followed to https
    /// only, twenty at most; the answer that sends elsewhere is returned as it is. The status is 0
    /// when what answers is no HTTP server (a `data:` URL).
    ///
    /// Throws `URLError`:
    ///
    /// - `timedOut`: no progress for the time allowed, no head in time, or not all in time
    /// - `cannotFindHost`, `cannotConnect`: no connection to the server; Qt 6.4 says the latter of
    ///   a proxy that is not there too
    /// - `proxyFailed`: the proxy turns the request away, or breaks off
    /// - `connectionLost`: the connection broke before the body was whole
    /// - `secureConnectionFailed`: TLS failed; a certificate is expired, for another host, or of an
    ///   unknown authority
    /// - `tooLarge`: the body is too large; found out while it arrives and is decompressed, so
    ///   memory stays bounded
    /// - `badURL`: not an absolute URL, or of an unknown scheme
    /// - `other`: the answer is not HTTP or its status has not three digits, its compression is
    ///   damaged or hides more than twice what a body may have, …
    ///
    /// Qt 6.4 does not always notice that a chunked body breaks off, and may return its beginning
    /// as if it were the whole. So a decoder must not accept half a document.
    Task<HTTPResponse> fetch(std::string url) override;

    /// Closes idle connections, so that later fetches of all fetchers open new ones. Running
    /// transfers keep their connections. For use after a sleep or a change of network, which may
    /// have broken a connection without the system noticing.
    static void forgetConnections() noexcept;

private:
    TransferLimits m_limits;
};

}  // namespace quillbar
