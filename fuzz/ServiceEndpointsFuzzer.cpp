// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzTarget.h"
#include "Quillbar/services/ServiceEndpoints.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>

namespace quillbar {

namespace {

/// The input as an environment: one NAME=value a line, the last of a repeated name counts.
std::map<std::string, std::string, std::less<>> environment(std::string_view input) {
    std::map<std::string, std::string, std::less<>> variables;
    while (!input.empty()) {
        const std::string_view line = input.substr(0, input.find('\n'));
        input.remove_prefix(std::min(line.size() + 1, input.size()));
        const std::size_t mark = line.find('=');
        if (mark != std::string_view::npos) {
            variables[std::string(line.substr(0, mark))] = line.substr(mark + 1);
        }
    }
    return variables;
}

/// Whether the host of an authority, in the form in which a parsed URL is written, is this machine.
/// An address in brackets is left to the code under test.
bool isLoopback(std::string_view authority) {
    if (authority.starts_with('[')) {
        return true;
    }
    const std::string_view host = authority.substr(0, authority.find(':'));
    const bool isAddress = host.find_first_not_of("0123456789.") == std::string_view::npos;
    return host == "localhost" || (host.starts_with("127.") && isAddress);
}

void requireSound(std::string_view url, std::string_view encrypted, std::string_view plain) {
    const bool isPlain = url.starts_with(plain);
    require(isPlain || url.starts_with(encrypted), "a base has one of two schemes");
    require(!url.ends_with('/'), "a base has no slash at its end");
    require(url.find_first_of("?#") == std::string_view::npos, "a base has no query or fragment");
    for (const char character : url) {
        require(character > ' ' && character < '\x7f', "a base is in ASCII, without spaces");
    }
    std::string_view authority = url.substr(isPlain ? plain.size() : encrypted.size());
    authority = authority.substr(0, authority.find('/'));
    const std::size_t mark = authority.find('@');
    if (mark != std::string_view::npos) {
        require(mark == 0, "a base has no credentials");
        authority.remove_prefix(1);
    }
    require(!authority.empty(), "a base has a host");
    require(!isPlain || isLoopback(authority), "nothing leaves the machine unencrypted");
}

}  // namespace

void fuzz(std::string_view input) {
    const auto variables = environment(input);
    const auto variable = [&](const char* name) {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
    try {
        const ServiceEndpoints endpoints = ServiceEndpoints::fromEnvironment(variable);
        require(!endpoints.rest.empty() && !endpoints.stream.empty(), "no list is empty");
        for (const std::string& base : endpoints.rest) {
            requireSound(base, "https://", "http://");
        }
        for (const std::string& base : endpoints.stream) {
            requireSound(base, "wss://", "ws://");
        }
        requireSound(endpoints.marketCap, "https://", "http://");
        requireSound(endpoints.icon, "https://", "http://");
    } catch (const EndpointError& error) {
        const std::string_view text = error.what();
        require(text.starts_with("QUILLBAR_"), "the error names the variable");
    }
}

}  // namespace quillbar
