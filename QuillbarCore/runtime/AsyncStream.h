// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Await.h"

#include <cassert>
#include <concepts>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace quillbar {

template <class T>
class AsyncStream;

namespace detail {

template <class T>
struct StreamState {
    // After taking this many values without a wait, the consumer goes back to the executor's queue,
    // so that a flood of values does not block the event loop.
    static constexpr int kValuesPerTurn = 256;

    void notify() noexcept {
        if (std::exchange(waiting, false)) {
            waiter();
        }
    }

    void end(std::exception_ptr reason) {
        if (ended) {
            return;
        }
        ended = true;
        error = std::move(reason);
        notify();
        if (const auto callback = std::exchange(onTermination, {})) {
            callback();
        }
    }

    void whenEnded(std::function<void()> callback) {
        if (ended) {
            callback();
        } else {
            onTermination = std::move(callback);
        }
    }

    std::deque<T> buffer;
    bool ended = false;
    std::exception_ptr error;
    Completion waiter;
    bool waiting = false;
    int takenInTurn = 0;
    std::function<void()> onTermination;
};

}  // namespace detail

/// The producer's end of an `AsyncStream`. Copies share the stream; when the last copy is
/// destroyed, the stream ends normally. Belongs to the executor's thread.
template <class T>
class StreamSource {
    using State = detail::StreamState<T>;

public:
    /// Appends a value; does nothing once the stream has ended.
    void push(T value) const {
        State& state = *m_guard->state;
        if (!state.ended) {
            state.buffer.push_back(std::move(value));
            state.notify();
        }
    }

    /// Ends the stream; the consumer still receives what was pushed before.
    void finish() const { m_guard->state->end(nullptr); }

    /// Ends the stream with an error, which the consumer's `next` throws after what was pushed
    /// before.
    void fail(std::exception_ptr error) const { m_guard->state->end(std::move(error)); }
    template <class Error>
    requires std::derived_from<Error, std::exception>
    void fail(Error error) const { fail(std::make_exception_ptr(std::move(error))); }

    /// Ends the stream with an error, and drops the values that were not taken yet.
    void abandon(std::exception_ptr error) const {
        m_guard->state->buffer.clear();
        m_guard->state->end(std::move(error));
    }

    /// Calls `callback` once, when the stream ends or its consumer is destroyed; at once if that
    /// has happened already. A later callback replaces an earlier one. The callback must not throw,
    /// and must not hold a copy of the source: the source would keep itself alive. It may destroy
    /// either end.
    void onTermination(std::function<void()> callback) const {
        m_guard->state->whenEnded(std::move(callback));
    }

    /// How many values wait to be taken.
    [[nodiscard]] std::size_t pendingCount() const noexcept {
        return m_guard->state->buffer.size();
    }

    /// Whether the stream has ended or its consumer was destroyed.
    [[nodiscard]] bool isTerminated() const noexcept { return m_guard->state->ended; }

private:
    friend class AsyncStream<T>;

    struct Guard {
        explicit Guard(std::shared_ptr<State> shared)
            : state(std::move(shared)) {}
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;
        Guard(Guard&&) = delete;
        Guard& operator=(Guard&&) = delete;
        ~Guard() { state->end(nullptr); }
        std::shared_ptr<State> state;
    };

    explicit StreamSource(std::shared_ptr<State> state)
        : m_guard(std::make_shared<Guard>(std::move(state))) {}

    std::shared_ptr<Guard> m_guard;
};

/// An unbounded sequence of values over time, with one consumer; it ends normally or with an error.
/// Destroying it tells the producer (`StreamSource::onTermination`). A stream that is
/// default-constructed or moved from has ended. Belongs to the executor's thread.
template <class T>
class AsyncStream {
    using State = detail::StreamState<T>;

public:
    /// A stream and its producer's end.
    [[nodiscard]] static std::pair<AsyncStream, StreamSource<T>> make() {
        auto state = std::make_shared<State>();
        return {AsyncStream{state}, StreamSource<T>{state}};
    }

    AsyncStream() = default;
    AsyncStream(AsyncStream&&) noexcept = default;
    AsyncStream& operator=(AsyncStream&& other) noexcept {
        if (this != &other) {
            close();
            m_state = std::move(other.m_state);
        }
        return *this;
    }
    AsyncStream(const AsyncStream&) = delete;
    AsyncStream& operator=(const AsyncStream&) = delete;
    ~AsyncStream() { close(); }

    class NextOperation {
    public:
        explicit NextOperation(std::shared_ptr<State> state)
            : m_state(std::move(state)) {}

        [[nodiscard]] bool ready() const {
            return !m_state || (hasOutcome() && m_state->takenInTurn < State::kValuesPerTurn);
        }
        void start(Completion done) {
            assert(!m_state->waiting && "an AsyncStream has one consumer");
            m_state->takenInTurn = 0;
            if (hasOutcome()) {
                done();
                return;
            }
            m_state->waiter = done;
            m_state->waiting = true;
        }
        void stop() noexcept { m_state->waiting = false; }
        std::optional<T> result() {
            if (!m_state) {
                return std::nullopt;
            }
            if (!m_state->buffer.empty()) {
                ++m_state->takenInTurn;
                std::optional<T> value{std::move(m_state->buffer.front())};
                m_state->buffer.pop_front();
                return value;
            }
            if (m_state->error) {
                std::rethrow_exception(m_state->error);
            }
            return std::nullopt;
        }

    private:
        [[nodiscard]] bool hasOutcome() const { return !m_state->buffer.empty() || m_state->ended; }

        std::shared_ptr<State> m_state;
    };

    /// The next value: `while (auto value = co_await stream.next())`. Absent once the stream has
    /// ended normally. Throws the error that ended the stream, at each call, or `Cancelled`. A
    /// cancelled wait loses no value.
    [[nodiscard]] Await<NextOperation> next() {
        return Await<NextOperation>{std::in_place, m_state};
    }

private:
    explicit AsyncStream(std::shared_ptr<State> state)
        : m_state(std::move(state)) {}

    void close() noexcept {
        if (m_state) {
            m_state->end(nullptr);
            m_state.reset();
        }
    }

    std::shared_ptr<State> m_state;
};

}  // namespace quillbar
