// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace quillbar {

/// While it lives, the process writes numbers with a comma for the point and apostrophes between
/// the groups: in C++ streams always, in the C library where a German locale is installed. Puts
/// back what was there.
class ForeignLocale final {
public:
    ForeignLocale()
        : m_beforeInC(std::setlocale(LC_ALL, nullptr))
        , m_before(std::locale::global(std::locale(std::locale::classic(), new Commas))) {
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }
    ~ForeignLocale() {
        std::locale::global(m_before);
        std::setlocale(LC_ALL, m_beforeInC.c_str());
    }
    ForeignLocale(const ForeignLocale&) = delete;
    ForeignLocale& operator=(const ForeignLocale&) = delete;
    ForeignLocale(ForeignLocale&&) = delete;
    ForeignLocale& operator=(ForeignLocale&&) = delete;

private:
    class Commas final : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '\''; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::string m_beforeInC;
    std::locale m_before;
};

}  // namespace quillbar
