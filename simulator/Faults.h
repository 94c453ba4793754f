// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/SimulatorOptions.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillbar::simulator {

/// What happens to the next requests.
struct RequestFault {
    enum class Kind {
        answer,    ///< the true answer; of use with a delay
        status,    ///< `status` with the exchange's error body, `retryAfter` when set
        hold,      ///< no answer until `Faults::releaseHeld()`, then the true one
        cutShort,  ///< the head promises the whole body, half of it comes, then the socket closes
        notJson,   ///< status 200 and a page of HTML
        wrongNumber,  ///< the true answer with one price replaced by "abc"
        emptyList,    ///< the true answer without an entry in its list
        redirect,     ///< status 302 to `location`
        oversized,    ///< status 200 and a body of `bytes` bytes
        reset,        ///< the socket is reset (RST) instead of an answer
    };

    Kind kind = Kind::answer;
    /// How many requests it strikes, at least 1.
    int times = 1;
    /// Only requests whose path begins so. Empty: every request but the stream's handshakes;
    /// "/stream" strikes those.
    std::string pathPrefix = {};
    int status = 503;
    std::optional<std::chrono::seconds> retryAfter = std::nullopt;
    /// Real time that passes before whatever is answered.
    std::chrono::milliseconds delay{0};
    std::string location = {};
    std::size_t bytes = 0;
};

/// How a stream's connection ends.
enum class StreamEnd {
    close,  ///< a close frame with code 1001, then the end of the connection
    drop,   ///< the end of the connection without a close frame
    reset,  ///< a reset (RST)
};

/// What streams say.
enum class StreamVoice {
    normal,
    silent,  ///< connected, no market frames; pings are answered
    junk,    ///< connected, frames that are no prices; pings are answered
    dead,    ///< connected, nothing at all is sent, not even a pong or a close
};

/// How far a connection gets.
enum class Handshake {
    normal,
    silentTls,      ///< the socket is accepted, its TLS greeting never answered
    silentUpgrade,  ///< the WebSocket upgrade is never answered; requests are
};

/// Whether connections that stand when the port closes go with it.
enum class OpenConnections { keep, drop };

/// Everything that can go wrong, on demand. Got from `Simulator::faults()`, lives as long as the
/// simulator, and is used on its thread. Nothing here fails unless said.
class Faults {
public:
    /// Adds a rule for coming requests. Rules are consulted oldest first; each request is struck by
    /// the first that fits and has strikes left. Throws std::invalid_argument when `times` is below
    /// 1 or the status is outside 100 to 599.
    virtual void onRequests(RequestFault fault) = 0;
    /// The common case of `onRequests`.
    void status(int status, int times = 1, std::string pathPrefix = {});
    /// The common case of `onRequests` for the kinds that need nothing more.
    void on(RequestFault::Kind kind, std::string pathPrefix = {}, int times = 1);
    /// Answers the requests that `hold` has kept waiting; returns how many.
    virtual int releaseHeld() = 0;

    /// The next `times` streams to have sent `frames` messages end as told. Streams that have sent
    /// as many already end at once; 0 ends a stream right after its handshake.
    virtual void endStreamsAfter(int frames, StreamEnd how, int times = 1) = 0;
    /// Ends every open stream at once; returns how many.
    virtual int endStreams(StreamEnd how) = 0;
    virtual void setVoice(StreamVoice voice) = 0;
    /// Holds for connections made from here on.
    virtual void setHandshake(Handshake handshake) = 0;

    /// Sends `frames` mini-tickers at once on every open stream, going round its pairs at their
    /// present prices. Streams without a listed pair get nothing.
    virtual void burst(int frames) = 0;
    /// Sends a WebSocket ping on every open stream. At most 125 bytes, or std::invalid_argument.
    virtual void ping(std::string_view payload = {}) = 0;
    /// Sends the event with which the exchange announces that a server goes away.
    virtual void serverShutdown() = 0;
    /// Sends any text or binary message on every open stream, well formed or not.
    virtual void sendText(std::string_view text) = 0;
    virtual void sendBinary(std::string_view bytes) = 0;

    /// Holds for connections made from here on. Nothing happens on a plain port.
    virtual void setCertificate(CertificateKind kind) = 0;
    /// Closes the port: connecting is refused.
    virtual void refuseConnections(OpenConnections open = OpenConnections::keep) = 0;
    /// Opens the same port again. Throws std::runtime_error when something else has taken it.
    virtual void listenAgain() = 0;
    /// Back to a faultless exchange: no rules, normal voice and handshake, the valid certificate,
    /// an open port. Held requests are answered; open streams stay.
    virtual void clear() = 0;

    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;
    Faults(Faults&&) = delete;
    Faults& operator=(Faults&&) = delete;

protected:
    Faults() = default;
    ~Faults() = default;
};

}  // namespace quillbar::simulator
