// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/PriceStreamClient.h"

#include "QuillbarCore/exchange/BinanceDecoder.h"
#include "QuillbarCore/exchange/ErrorText.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/model/AsciiCase.h"
#include "QuillbarCore/runtime/Cancelled.h"

#include <algorithm>
#include <exception>
#include <iterator>

namespace quillbar {

namespace {

bool isLetterOrDigit(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z')
           || (character >= '0' && character <= '9');
}

bool isValidSymbol(std::string_view symbol) {
    return !symbol.empty() && std::all_of(symbol.begin(), symbol.end(), isLetterOrDigit);
}

std::unordered_set<std::string> lowerCased(const std::vector<std::string>& symbols) {
    std::unordered_set<std::string> result;
    for (const std::string& symbol : symbols) {
        result.insert(AsciiCase::lowerCased(symbol));
    }
    return result;
}

constexpr Seconds kQuietLimit{600};

std::exception_ptr noPriceError() {
    return std::make_exception_ptr(
        URLError(URLError::Code::timedOut, "connected, but no price came in time"));
}

}  // namespace

class PriceStreamClient::Attempt {
public:
    explicit Attempt(std::shared_ptr<WebSocketConnecting> connection)
        : m_connection(std::move(connection)) {}
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;
    Attempt(Attempt&&) = delete;
    Attempt& operator=(Attempt&&) = delete;
    ~Attempt() { close(); }

    void close() {
        if (const auto connection = std::exchange(m_connection, nullptr)) {
            connection->cancel();
        }
    }

private:
    std::shared_ptr<WebSocketConnecting> m_connection;
};

PriceStreamClient::PriceStreamClient(Executor& executor,
                                     MakeConnection makeConnection,
                                     ReconnectPolicy policy,
                                     Sleeper sleeper,
                                     Seconds stabilityThreshold,
                                     Clock now,
                                     std::shared_ptr<EndpointSelector> endpoints,
                                     std::optional<Seconds> firstPriceLimit)
    : m_makeConnection(std::move(makeConnection))
    , m_policy(std::move(policy))
    , m_sleeper(std::move(sleeper))
    , m_stabilityThreshold(stabilityThreshold)
    , m_now(std::move(now))
    , m_endpoints(std::move(endpoints))
    , m_firstPriceLimit(firstPriceLimit)
    , m_scope(executor) {}

Task<void> PriceStreamClient::setSymbols(std::vector<std::string> symbols) {
    m_symbols = std::move(symbols);
    restart();
    co_return;
}

Task<void> PriceStreamClient::stop() {
    endRun();
    m_connection.reset();
    rest();
    co_return;
}

void PriceStreamClient::useEndpoints(std::shared_ptr<EndpointSelector> endpoints) {
    m_endpoints = std::move(endpoints);
    forgetSilence();
}

std::string PriceStreamClient::streamURL(const std::vector<std::string>& symbols,
                                         std::string_view base) {
    std::string url(base);
    url += "/stream?streams=";
    bool isFirst = true;
    for (const std::string& symbol : symbols) {
        if (!isFirst) {
            url += '/';
        }
        isFirst = false;
        std::transform(symbol.begin(), symbol.end(), std::back_inserter(url), AsciiCase::lower);
        url += "@miniTicker";
    }
    return url;
}

void PriceStreamClient::restart() {
    endRun();
    std::vector<std::string> symbols = validSymbols();
    if (symbols.empty()) {
        rest();
        return;
    }
    m_asked = lowerCased(symbols);
    m_runTask = m_scope.spawn(run(std::move(symbols)));
}

void PriceStreamClient::endRun() {
    std::exchange(m_runTask, {}).cancel();
    m_priceWatch.cancel();
    if (m_connection) {
        m_connection->cancel();
    }
}

std::vector<std::string> PriceStreamClient::validSymbols() const {
    std::vector<std::string> valid;
    for (const std::string& symbol : m_symbols) {
        if (isValidSymbol(symbol)) {
            valid.push_back(symbol);
        } else {
            m_logger.error("skipping invalid symbol: {}", symbol);
        }
    }
    return valid;
}

void PriceStreamClient::push(ConnectionState state) const {
    m_events.second.push(StateEvent{state});
}

void PriceStreamClient::rest() {
    m_failure.set(std::nullopt);
    push(ConnectionState::disconnected);
}

Task<void> PriceStreamClient::run(std::vector<std::string> symbols) {
    int attempt = 0;
    for (;;) {
        // An operation that completed before the cancellation still resumes the task.
        bool isCancelled = co_await IsCancelled();
        if (isCancelled) {
            co_return;
        }
        // Keep the selector alive: a failure of its last endpoint may replace m_endpoints.
        const std::shared_ptr<EndpointSelector> endpoints = m_endpoints;
        const auto endpoint = endpoints->current();
        if (!endpoint) {
            m_logger.error("no stream endpoint available");
            m_failure.set(ConnectionFailure{.kind = ConnectionFailure::Kind::noServer});
            push(ConnectionState::disconnected);
            co_return;
        }
        std::string url = streamURL(symbols, endpoint->url);
        push(ConnectionState::connecting);
        const bool isStable = co_await readConnection(std::move(url));
        isCancelled = co_await IsCancelled();
        if (isCancelled) {
            co_return;
        }
        if (isStable) {
            attempt = 1;
        } else {
            endpoints->markFailed(endpoint->index);
            ++attempt;
        }
        push(ConnectionState::waitingRetry);
        const Seconds delay = m_policy.delay(attempt);
        co_await wait(delay);
    }
}

Task<bool> PriceStreamClient::readConnection(std::string url) {
    const std::shared_ptr<WebSocketConnecting> connection = m_makeConnection();
    m_connection = connection;
    Attempt attempt(connection);
    AsyncStream<std::string> messages = connection->connect(url);
    const TimePoint connectedAt = m_now();
    push(ConnectionState::connected);
    watchForPrice(connection);
    bool hasDelivered = false;
    std::exception_ptr error;
    try {
        while (auto message = co_await messages.next()) {
            hasDelivered = true;
            receive(*message);
        }
    } catch (const Cancelled&) {
        // This loop was replaced or stopped. The connection did not fail.
        throw;
    } catch (...) {
        error = m_isWithoutPrice ? noPriceError() : std::current_exception();
    }
    attempt.close();
    ConnectionFailure failure{.kind = ConnectionFailure::Kind::closedByServer};
    if (error) {
        m_logger.error("connection failed: {}", errorText(error));
        failure = ConnectionFailure::of(error);
    }
    const bool isCancelled = co_await IsCancelled();
    if (!isCancelled) {
        if (!error) {
            m_logger.log("stream closed by server");
        }
        m_failure.set(failure);
        m_priceWatch.cancel();
    }
    const bool hasLived = m_now() - connectedAt >= m_stabilityThreshold;
    const bool isStable = hasDelivered && hasLived;
    co_return isStable;
}

void PriceStreamClient::receive(std::string_view frame) {
    if (m_failure->has_value()) {
        m_failure.set(std::nullopt);
    }
    try {
        TickerEvent price = BinanceDecoder::decodeMiniTickerFrame(frame);
        // The exchange is asked in lower case, and may answer in another case than the list's.
        if (!m_asked.contains(AsciiCase::lowerCased(price.symbol))) {
            m_logger.error("dropped the price of a pair that was not asked for");
            return;
        }
        m_events.second.push(std::move(price));
        if (m_priceWatch.isRunning()) {
            m_priceWatch.cancel();
            forgetSilence();
        }
    } catch (const std::exception& error) {
        m_logger.error("failed to decode frame: {}", error.what());
    }
}

void PriceStreamClient::watchForPrice(const std::shared_ptr<WebSocketConnecting>& connection) {
    m_isWithoutPrice = false;
    if (!m_firstPriceLimit) {
        return;
    }
    Seconds limit = *m_firstPriceLimit;
    if (m_withoutPrice >= m_endpoints->count()) {
        const TimePoint now = m_now();
        // If the clock was set back, measure the quiet time from now on.
        m_quietSince = std::min(m_quietSince.value_or(now), now);
        // The limit counts from then on, over several connections: a watchdog may replace them.
        limit = std::clamp(kQuietLimit - (now - *m_quietSince), limit, kQuietLimit);
    }
    m_priceWatch = m_scope.spawn(endWithoutPrice(connection, limit));
}

void PriceStreamClient::forgetSilence() {
    m_withoutPrice = 0;
    m_quietSince.reset();
}

Task<void> PriceStreamClient::endWithoutPrice(std::shared_ptr<WebSocketConnecting> connection,
                                              Seconds limit) {
    co_await m_sleeper(limit);
    m_isWithoutPrice = true;
    if (m_quietSince) {
        forgetSilence();
    } else {
        ++m_withoutPrice;
    }
    connection->cancel();
}

Task<void> PriceStreamClient::wait(Seconds delay) {
    try {
        Task<void> sleep = m_sleeper(delay);
        co_await std::move(sleep);
    } catch (...) {
        // The wait was cancelled; the loop checks for that itself.
    }
}

}  // namespace quillbar
