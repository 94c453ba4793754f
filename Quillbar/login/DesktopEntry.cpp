// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/DesktopEntry.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quillbar {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kMainGroup = "[Desktop Entry]";

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Cuts the next line off, without its line end.
std::string_view takeLine(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

// A character that stands behind a backslash in a value of text.
char unescaped(char character) {
    switch (character) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return character;
    }
}

std::string withoutEscapes(std::string_view value) {
    std::string text;
    for (std::size_t index = 0; index < value.size(); ++index) {
        if (value[index] == '\\' && index + 1 < value.size()) {
            ++index;
            text += unescaped(value[index]);
        } else {
            text += value[index];
        }
    }
    return text;
}

// Between double quotes a backslash stands for itself, except before one of these.
bool isEscapedInQuotes(char character) {
    constexpr std::string_view kEscaped = R"("\$`)";
    return kEscaped.find(character) != std::string_view::npos;
}

// The first argument of a command line, quoted as desktops have it: not only as entries shall be,
// but as in a shell. Absent when its quotes are not closed.
std::optional<std::string> firstArgument(std::string_view line) {
    constexpr char kNone = '\0';
    line = trimmed(line);
    std::string argument;
    char quote = kNone;
    for (std::size_t index = 0; index < line.size(); ++index) {
        const char character = line[index];
        if (quote == kNone && kBlanks.find(character) != std::string_view::npos) {
            return argument;
        }
        if (quote == kNone && (character == '"' || character == '\'')) {
            quote = character;
        } else if (character == quote) {
            quote = kNone;
        } else if (character == '\\' && quote != '\'') {
            ++index;
            if (index == line.size()) {
                return std::nullopt;
            }
            if (quote == '"' && !isEscapedInQuotes(line[index])) {
                argument += character;
            }
            argument += line[index];
        } else {
            argument += character;
        }
    }
    return quote == kNone ? std::optional(std::move(argument)) : std::nullopt;
}

bool isControl(char character) {
    constexpr char kDelete = 0x7f;
    return (character >= 0 && character < ' ') || character == kDelete;
}

// How many bytes the sequence has that begins with this byte; 0 when none does.
std::size_t sequenceLength(unsigned char lead) {
    constexpr unsigned char kFirstOfTwo = 0xc2;
    constexpr unsigned char kFirstOfThree = 0xe0;
    constexpr unsigned char kFirstOfFour = 0xf0;
    constexpr unsigned char kLastOfFour = 0xf4;
    if (lead <= 0x7f) {
        return 1;
    }
    if (lead < kFirstOfTwo || lead > kLastOfFour) {
        return 0;
    }
    if (lead < kFirstOfThree) {
        return 2;
    }
    return lead < kFirstOfFour ? 3 : 4;
}

/// From the first to the second, both included.
using ByteRange = std::pair<unsigned char, unsigned char>;

constexpr ByteRange kContinuation{0x80, 0xbf};

bool isBetween(unsigned char byte, ByteRange range) {
    return byte >= range.first && byte <= range.second;
}

// The range of the second byte: no overlong forms, no surrogates, nothing beyond Unicode.
ByteRange secondByteRange(unsigned char lead) {
    switch (lead) {
    case 0xe0:
        return {0xa0, 0xbf};
    case 0xed:
        return {0x80, 0x9f};
    case 0xf0:
        return {0x90, 0xbf};
    case 0xf4:
        return {0x80, 0x8f};
    default:
        return kContinuation;
    }
}

bool isUTF8(std::string_view text) {
    const auto byteAt = [text](std::size_t index) {
        return static_cast<unsigned char>(text[index]);
    };
    std::size_t index = 0;
    while (index < text.size()) {
        const std::size_t length = sequenceLength(byteAt(index));
        if (length == 0 || index + length > text.size()) {
            return false;
        }
        if (length > 1 && !isBetween(byteAt(index + 1), secondByteRange(byteAt(index)))) {
            return false;
        }
        for (std::size_t next = index + 2; next < index + length; ++next) {
            if (!isBetween(byteAt(next), kContinuation)) {
                return false;
            }
        }
        index += length;
    }
    return true;
}

}  // namespace

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view text) {
    if (text.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    DesktopEntry entry;
    bool hasMainGroup = false;
    bool isInMainGroup = false;
    bool isInGroup = false;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeLine(text));
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        if (line.starts_with('[')) {
            if (!line.ends_with(']')) {
                return std::nullopt;
            }
            isInGroup = true;
            isInMainGroup = line == kMainGroup;
            hasMainGroup = hasMainGroup || isInMainGroup;
            continue;
        }
        const std::size_t equals = line.find('=');
        const std::string_view key = trimmed(line.substr(0, equals));
        if (!isInGroup || equals == std::string_view::npos || key.empty()) {
            return std::nullopt;
        }
        if (isInMainGroup) {
            entry.m_values.insert_or_assign(std::string(key), trimmed(line.substr(equals + 1)));
        }
    }
    return hasMainGroup ? std::optional(std::move(entry)) : std::nullopt;
}

std::optional<std::string> DesktopEntry::text(const std::string& key) const {
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::nullopt : std::optional(withoutEscapes(found->second));
}

bool DesktopEntry::boolean(const std::string& key, bool otherwise) const {
    const auto found = m_values.find(key);
    const std::string_view value = found == m_values.end() ? "" : std::string_view(found->second);
    // Desktop entries used digits before there was a standard.
    if (value == "true" || value == "1") {
        return true;
    }
    return value == "false" || value == "0" ? false : otherwise;
}

std::vector<std::string> DesktopEntry::list(const std::string& key) const {
    std::vector<std::string> texts;
    const auto found = m_values.find(key);
    std::string_view rest = found == m_values.end() ? "" : std::string_view(found->second);
    while (!rest.empty()) {
        std::size_t end = 0;
        while (end < rest.size() && rest[end] != ';') {
            end += rest[end] == '\\' ? 2 : 1;
        }
        end = std::min(end, rest.size());
        if (end > 0) {
            texts.push_back(withoutEscapes(rest.substr(0, end)));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return texts;
}

std::optional<std::string> DesktopEntry::program() const {
    const auto line = text("Exec");
    auto program = line ? firstArgument(*line) : std::nullopt;
    if (!program || program->empty() || program->find('%') != std::string::npos) {
        return std::nullopt;
    }
    return program;
}

std::optional<std::string> DesktopEntry::execOf(std::string_view program) {
    // The Desktop Entry Specification says how to write the last two. But GLib looks a program with
    // a percent sign up as it is written, and systemd's generator refuses both.
    constexpr std::string_view kRefused = R"(=%\)";
    if (program.find_first_of(kRefused) != std::string_view::npos || !isUTF8(program)
        || std::any_of(program.begin(), program.end(), isControl)) {
        return std::nullopt;
    }
    std::string exec = "\"";
    for (const char character : program) {
        if (isEscapedInQuotes(character)) {
            // The backslash of the quoting is itself escaped as in every text value.
            exec += R"(\\)";
        }
        exec += character;
    }
    return exec + '"';
}

}  // namespace quillbar
