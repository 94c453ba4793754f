// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace quillbar {

/// Sets one variable of the environment, or removes it, and puts back what was there when it dies.
/// For tests of one thread: the environment is the process's.
class TemporaryEnvironment final {
public:
    TemporaryEnvironment(std::string name, const std::optional<std::string>& value)
        : m_name(std::move(name)) {
        m_before = this->value();
        set(value);
    }
    ~TemporaryEnvironment() { set(m_before); }
    TemporaryEnvironment(const TemporaryEnvironment&) = delete;
    TemporaryEnvironment& operator=(const TemporaryEnvironment&) = delete;
    TemporaryEnvironment(TemporaryEnvironment&&) = delete;
    TemporaryEnvironment& operator=(TemporaryEnvironment&&) = delete;

    /// What the variable is at this moment; absent when there is none.
    [[nodiscard]] std::optional<std::string> value() const {
        const char* const now = std::getenv(m_name.c_str());
        return now == nullptr ? std::nullopt : std::optional<std::string>(now);
    }

private:
    void set(const std::optional<std::string>& value) const {
        if (value) {
            ::setenv(m_name.c_str(), value->c_str(), 1);
        } else {
            ::unsetenv(m_name.c_str());
        }
    }

    std::string m_name;
    std::optional<std::string> m_before;
};

}  // namespace quillbar
