// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/CommandLine.h"

#include "simulator/Control.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace quillbar::simulator {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: quillbar-simulator [OPTION]...

An exchange on 127.0.0.1 with prices that walk at random: REST, the combined stream,
market capitalisations and icons on one port. Prints its addresses on standard output,
one a line, then "ready", and runs until SIGINT or SIGTERM.

  --port PORT           the port; a free one when not given
  --control-port PORT   the same for the port of the faults
  --plain               http and ws instead of https and wss
  --ca-file PATH        where the certificate authority is kept, its key in PATH.key;
                        both are used again when they exist
  --certificate KIND    valid, expired or wrong-host
  --seed NUMBER         the prices repeat for the same seed (default 1)
  --symbols COUNT       how many pairs are listed (default 2000)
  --speed FACTOR        seconds of the market's clock in a second (default 1)
  --start-time MS       the market's clock at the start, in milliseconds since 1970
  --help, --version

Faults, while it runs, by GET or POST on the address printed as "control":

)";

[[noreturn]] void refuse(std::string_view option, std::string_view value, std::string_view wanted) {
    throw std::invalid_argument(fmt::format("{} must be {}, not \"{}\"", option, wanted, value));
}

template <typename Number>
Number numberOf(std::string_view option,
                std::string_view value,
                Number least,
                Number most,
                std::string_view wanted) {
    Number number{};
    const char* end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    // Written so that what is not a number is refused too.
    const bool isFine = error == std::errc{} && stop == end && number >= least && number <= most;
    if (!isFine) {
        refuse(option, value, wanted);
    }
    return number;
}

std::uint16_t portOf(std::string_view option, std::string_view value) {
    return numberOf<std::uint16_t>(option, value, 0, 65535, "a number from 0 to 65535");
}

CertificateKind certificateOf(std::string_view option, std::string_view value) {
    if (value == "valid") {
        return CertificateKind::valid;
    }
    if (value == "expired") {
        return CertificateKind::expired;
    }
    if (value == "wrong-host") {
        return CertificateKind::wrongHost;
    }
    refuse(option, value, "valid, expired or wrong-host");
}

// An option that takes a value.
struct Setting {
    std::string_view name;
    void (*apply)(SimulatorOptions& options, std::string_view option, std::string_view value);
};

constexpr std::array<Setting, 8> kSettings{{
    {"--port",
     [](SimulatorOptions& options, std::string_view option, std::string_view value) {
         options.port = portOf(option, value);
     }},
    {"--control-port",
     [](SimulatorOptions& options, std::string_view option, std::string_view value) {
         options.controlPort = portOf(option, value);
     }},
    {"--ca-file",
     [](SimulatorOptions& options, std::string_view option, std::string_view value) {
         if (value.empty()) {
             refuse(option, value, "a path");
         }
         options.caFile = value;
     }},
    {"--certificate",
     [](SimulatorOptions& options, std::string_view option, std::string_view value) {
         options.certificate = certificateOf(option, value);
     }},
    {"--seed",
     [](SimulatorOptions& options, std::string_view option, std::string_view value) {
         options.seed = numberOf<std::uint64_t>(option, value, 0, UINT64_MAX, "a whole number");
     }},
    {"--symbols",
     [](SimulatorOptions& options, std::string_view option, std::string_view value) {
         options.symbolCount =
             numberOf<int>(option, value, 1, 100'000, "a number from 1 to 100000");
     }},
    {"--speed",
     [](SimulatorOptions& options, std::string_view option, std::string_view value) {
         options.speed =
             numberOf<double>(option, value, 0.001, 1000, "a number from 0.001 to 1000");
     }},
    {"--start-time",
     [](SimulatorOptions& options, std::string_view option, std::string_view value) {
         constexpr std::int64_t kLastTime = 253'402'300'799'999;  // the end of the year 9999
         options.startTime = MarketTime{std::chrono::milliseconds{
             numberOf<std::int64_t>(option, value, 0, kLastTime, "milliseconds since 1970")}};
     }},
}};

const Setting* findSetting(std::string_view name) {
    const auto* found = std::find_if(kSettings.begin(),
                                     kSettings.end(),
                                     [name](const Setting& each) { return each.name == name; });
    return found == kSettings.end() ? nullptr : found;
}

}  // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments) {
    CommandLine commandLine;
    commandLine.options.ticking = Ticking::automatic;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help") {
            commandLine.text = std::string{kHelp} + controlHelp();
            return commandLine;
        }
        if (argument == "--version") {
            commandLine.text = "quillbar-simulator " QUILLBAR_VERSION "\n";
            return commandLine;
        }
        if (argument == "--plain") {
            commandLine.options.transport = Transport::plain;
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string option = argument.substr(0, equals);
        const bool hasValue = equals != std::string::npos || i + 1 < arguments.size();
        std::string value;
        if (equals != std::string::npos) {
            value = argument.substr(equals + 1);
        } else if (hasValue) {
            value = arguments[++i];
        }
        const Setting* setting = findSetting(option);
        if (setting == nullptr) {
            throw std::invalid_argument(fmt::format("unknown argument \"{}\"", argument));
        }
        if (!hasValue) {
            throw std::invalid_argument(fmt::format("{} needs a value", option));
        }
        setting->apply(commandLine.options, option, value);
    }
    return commandLine;
}

}  // namespace quillbar::simulator
