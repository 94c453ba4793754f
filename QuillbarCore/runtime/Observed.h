// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/ChangeSignal.h"

#include <concepts>
#include <functional>
#include <unordered_map>
#include <utility>

namespace quillbar {

/// A value that tells its observers of every change. For the main thread.
template <std::equality_comparable T>
class Observed {
public:
    Observed() = default;
    explicit Observed(T value)
        : m_value(std::move(value)) {}
    Observed(const Observed&) = delete;
    Observed& operator=(const Observed&) = delete;
    Observed(Observed&&) = delete;
    Observed& operator=(Observed&&) = delete;
    ~Observed() = default;

    [[nodiscard]] const T& get() const noexcept { return m_value; }
    [[nodiscard]] const T& operator*() const noexcept { return m_value; }
    [[nodiscard]] const T* operator->() const noexcept { return &m_value; }

    /// Stores the value and calls the observers, unless it equals the value before. An observer may
    /// set the value again: all observers are then called for that first, and those after it once
    /// more, with the newest value. No observer is called with a value that was replaced.
    void set(T value) {
        if (value == m_value) {
            return;
        }
        m_value = std::move(value);
        m_changed.tell(&m_value);
    }

    /// Calls `observer` with the value after each change, until the observation is destroyed. The
    /// observer must not throw. It may end observations, its own too; it may add some, which are
    /// called from the next change on; and it may destroy this object, after which no observer is
    /// called.
    [[nodiscard]] Observation observe(std::function<void(const T&)> observer) const {
        return m_changed.observe([observer = std::move(observer)](const void* value) {
            observer(*static_cast<const T*>(value));
        });
    }

private:
    T m_value{};
    mutable ChangeSignal m_changed;
};

/// A map that tells its observers which key has changed, without copying the map. For the main
/// thread.
template <class Key, std::equality_comparable Value>
class ObservedMap {
public:
    using Map = std::unordered_map<Key, Value>;

    ObservedMap() = default;
    ObservedMap(const ObservedMap&) = delete;
    ObservedMap& operator=(const ObservedMap&) = delete;
    ObservedMap(ObservedMap&&) = delete;
    ObservedMap& operator=(ObservedMap&&) = delete;
    ~ObservedMap() = default;

    [[nodiscard]] const Map& get() const noexcept { return m_map; }
    [[nodiscard]] const Map& operator*() const noexcept { return m_map; }
    [[nodiscard]] const Map* operator->() const noexcept { return &m_map; }

    /// The value under `key`; null when there is none. Valid until the map changes.
    [[nodiscard]] const Value* find(const Key& key) const {
        const auto found = m_map.find(key);
        return found == m_map.end() ? nullptr : &found->second;
    }

    /// Stores a value and tells the observers, unless the key already holds an equal one. `key`
    /// must not refer into this map if an observer may remove it.
    void set(const Key& key, Value value) {
        const auto [position, isNew] = m_map.try_emplace(key, value);
        if (!isNew) {
            if (position->second == value) {
                return;
            }
            position->second = std::move(value);
        }
        m_changed.tell(&key);
    }

    /// Removes a key and tells the observers, if it is there.
    void remove(const Key& key) {
        // Keep the node until all observers were called: `key` may refer into it.
        if (const auto removed = m_map.extract(key)) {
            m_changed.tell(&removed.key());
        }
    }

    /// Removes every key and tells the observers of each.
    void clear() {
        const Map removed = std::exchange(m_map, {});
        for (const auto& [key, value] : removed) {
            if (!m_changed.tell(&key)) {
                // An observer has destroyed this map.
                return;
            }
        }
    }

    /// Calls `observer` with the key after each change of its value, until the observation is
    /// destroyed. The observer may do what an observer of an `Observed` may do.
    [[nodiscard]] Observation observe(std::function<void(const Key&)> observer) const {
        return m_changed.observe([observer = std::move(observer)](const void* key) {
            observer(*static_cast<const Key*>(key));
        });
    }

private:
    Map m_map;
    mutable ChangeSignal m_changed;
};

}  // namespace quillbar
