// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Await.h"
#include "QuillbarCore/runtime/ListHook.h"

#include <exception>
#include <memory>
#include <utility>
#include <variant>

namespace quillbar {

/// A value or an error that arrives once, for any number of waiters. Copies refer to the same
/// value. Each waiter gets a copy of the T, and can be cancelled alone.
template <class T>
class Deferred {
    struct Waiter : ListHook {
        Completion done;
    };

    struct State {
        [[nodiscard]] bool isSettled() const noexcept { return outcome.index() != 0; }

        void wakeAll() noexcept {
            while (waiters.isLinked()) {
                auto& waiter = static_cast<Waiter&>(*waiters.next());
                waiter.unlink();
                waiter.done();
            }
        }

        std::variant<std::monostate, T, std::exception_ptr> outcome;
        ListHook waiters;
    };

public:
    Deferred()
        : m_state(std::make_shared<State>()) {}

    /// Sets the value; does nothing when a value or an error was set before.
    void setValue(T value) const {
        if (!m_state->isSettled()) {
            m_state->outcome.template emplace<1>(std::move(value));
            m_state->wakeAll();
        }
    }

    /// Sets the error, which every `wait` throws; does nothing when a value or an error was set
    /// before.
    void setError(std::exception_ptr error) const {
        if (!m_state->isSettled()) {
            m_state->outcome.template emplace<2>(std::move(error));
            m_state->wakeAll();
        }
    }

    [[nodiscard]] bool isSettled() const noexcept { return m_state->isSettled(); }

    class WaitOperation {
    public:
        explicit WaitOperation(std::shared_ptr<State> state)
            : m_state(std::move(state)) {}

        [[nodiscard]] bool ready() const { return m_state->isSettled(); }
        void start(Completion done) {
            m_waiter.done = done;
            m_waiter.insertBefore(m_state->waiters);
        }
        void stop() noexcept { m_waiter.unlink(); }
        T result() {
            if (auto* const error = std::get_if<2>(&m_state->outcome)) {
                std::rethrow_exception(*error);
            }
            return std::get<1>(m_state->outcome);
        }

    private:
        std::shared_ptr<State> m_state;
        Waiter m_waiter{};
    };

    /// Waits for the value; throws the error, or `Cancelled`.
    [[nodiscard]] Await<WaitOperation> wait() const {
        return Await<WaitOperation>{std::in_place, m_state};
    }

private:
    std::shared_ptr<State> m_state;
};

}  // namespace quillbar
