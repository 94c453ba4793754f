// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantList>

#include <cstdint>
#include <string_view>

namespace quillbar {

/// Makes arguments of D-Bus calls out of bytes. Past their end every byte is 0. A type is one
/// letter: i int, u uint, s text, b bool, d double, v variant, S list of texts, I list of ints, V
/// list of variants, M map from texts to variants, E list of menu events, y bytes.
class DBusArguments final {
public:
    explicit DBusArguments(std::string_view input)
        : m_rest(input) {}

    [[nodiscard]] bool isAtEnd() const { return m_rest.empty(); }
    [[nodiscard]] std::uint8_t number();

    /// One argument of each of these types.
    [[nodiscard]] QVariantList of(std::string_view types);
    /// At most seven, of whatever types.
    [[nodiscard]] QVariantList any();

private:
    [[nodiscard]] int integer();
    [[nodiscard]] QString text();
    [[nodiscard]] QVariant value(char type, int depth);
    [[nodiscard]] QVariant anyValue(int depth);
    /// The length of a list. It is 0 for a list that lies too deep within others.
    [[nodiscard]] std::size_t count(int depth);

    std::string_view m_rest;
};

}  // namespace quillbar
