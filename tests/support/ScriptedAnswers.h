// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Deferred.h"
#include "QuillbarCore/runtime/Task.h"

#include <cstddef>
#include <deque>
#include <exception>
#include <optional>
#include <utility>

namespace quillbar {

/// What a fake answers: one scripted answer for each request, in order, then the one for all that
/// follow. An answer that is held is settled by the test, later.
template <class T>
class ScriptedAnswers {
public:
    /// Scripts a value.
    void value(T value) { held().setValue(std::move(value)); }

    /// Scripts an error.
    template <class Error>
    void error(Error error) {
        held().setError(std::make_exception_ptr(std::move(error)));
    }

    /// Scripts an answer that keeps its request waiting until the test settles it.
    Deferred<T> held() {
        Deferred<T> answer;
        m_script.push_back(answer);
        return answer;
    }

    /// What answers every request beyond the script; without it that is T's default value.
    void otherwise(T value) {
        Deferred<T> answer;
        answer.setValue(std::move(value));
        m_otherwise = answer;
    }

    /// The same with an error.
    template <class Error>
    void otherwiseError(Error error) {
        Deferred<T> answer;
        answer.setError(std::make_exception_ptr(std::move(error)));
        m_otherwise = answer;
    }

    /// Answers a request. Its place in the script is taken when the request runs.
    Task<T> next() {
        const Deferred<T> answer = take();
        Waiting waiting(m_waiting);
        T value = co_await answer.wait();
        co_return value;
    }

    /// How many requests wait for an answer that is held; one that is cancelled waits no more.
    [[nodiscard]] std::size_t waitingCount() const noexcept { return m_waiting; }

private:
    class Waiting {
    public:
        explicit Waiting(std::size_t& count)
            : m_count(count) {
            ++m_count;
        }
        Waiting(const Waiting&) = delete;
        Waiting& operator=(const Waiting&) = delete;
        Waiting(Waiting&&) = delete;
        Waiting& operator=(Waiting&&) = delete;
        ~Waiting() { --m_count; }

    private:
        std::size_t& m_count;
    };

    Deferred<T> take() {
        if (!m_script.empty()) {
            Deferred<T> answer = m_script.front();
            m_script.pop_front();
            return answer;
        }
        if (!m_otherwise) {
            otherwise(T{});
        }
        return *m_otherwise;
    }

    std::deque<Deferred<T>> m_script;
    std::optional<Deferred<T>> m_otherwise;
    std::size_t m_waiting = 0;
};

}  // namespace quillbar
