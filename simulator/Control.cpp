// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Control.h"

#include "simulator/Exchange.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>
#include <utility>

namespace quillbar::simulator {

namespace {

using Parameters = HttpRequest;

// The parameter as a whole number from `least` up; std::invalid_argument when it is none.
int number(const Parameters& parameters, std::string_view name, int least, int otherwise) {
    const auto text = parameters.parameter(name);
    if (!text) {
        return otherwise;
    }
    int value = 0;
    const char* end = text->data() + text->size();
    const auto [stop, error] = std::from_chars(text->data(), end, value);
    if (error != std::errc{} || stop != end || value < least) {
        throw std::invalid_argument(
            fmt::format("{} must be a whole number from {} up", name, least));
    }
    return value;
}

// The choice the parameter names; the first one when it is absent.
template <typename Choice>
Choice choice(const Parameters& parameters,
              std::string_view name,
              const std::vector<std::pair<std::string_view, Choice>>& choices) {
    const std::string text =
        parameters.parameter(name).value_or(std::string{choices.front().first});
    std::string names;
    for (const auto& [key, value] : choices) {
        if (key == text) {
            return value;
        }
        names += (names.empty() ? "" : ", ") + std::string{key};
    }
    throw std::invalid_argument(fmt::format("{} must be one of: {}", name, names));
}

void onRequests(const Parameters& parameters, Exchange& exchange) {
    using Kind = RequestFault::Kind;
    RequestFault fault;
    fault.kind = choice<Kind>(parameters,
                              "kind",
                              {{"status", Kind::status},
                               {"answer", Kind::answer},
                               {"hold", Kind::hold},
                               {"cut-short", Kind::cutShort},
                               {"not-json", Kind::notJson},
                               {"wrong-number", Kind::wrongNumber},
                               {"empty", Kind::emptyList},
                               {"redirect", Kind::redirect},
                               {"oversized", Kind::oversized},
                               {"reset", Kind::reset}});
    fault.times = number(parameters, "times", 1, 1);
    fault.pathPrefix = parameters.parameter("path").value_or("");
    fault.status = number(parameters, "status", 100, fault.status);
    if (parameters.parameter("retry-after")) {
        fault.retryAfter = std::chrono::seconds{number(parameters, "retry-after", 0, 0)};
    }
    fault.delay = std::chrono::milliseconds{number(parameters, "delay", 0, 0)};
    fault.location = parameters.parameter("location").value_or("");
    fault.bytes = static_cast<std::size_t>(number(parameters, "bytes", 0, 0));
    exchange.onRequests(std::move(fault));
}

StreamEnd streamEnd(const Parameters& parameters) {
    return choice<StreamEnd>(
        parameters,
        "how",
        {{"close", StreamEnd::close}, {"drop", StreamEnd::drop}, {"reset", StreamEnd::reset}});
}

void endStreams(const Parameters& parameters, Exchange& exchange) {
    if (parameters.parameter("after")) {
        exchange.endStreamsAfter(number(parameters, "after", 0, 0),
                                 streamEnd(parameters),
                                 number(parameters, "times", 1, 1));
    } else {
        exchange.endStreams(streamEnd(parameters));
    }
}

void setVoice(const Parameters& parameters, Exchange& exchange) {
    exchange.setVoice(choice<StreamVoice>(parameters,
                                          "is",
                                          {{"normal", StreamVoice::normal},
                                           {"silent", StreamVoice::silent},
                                           {"junk", StreamVoice::junk},
                                           {"dead", StreamVoice::dead}}));
}

void setHandshake(const Parameters& parameters, Exchange& exchange) {
    exchange.setHandshake(choice<Handshake>(parameters,
                                            "is",
                                            {{"normal", Handshake::normal},
                                             {"silent-tls", Handshake::silentTls},
                                             {"silent-upgrade", Handshake::silentUpgrade}}));
}

void setCertificate(const Parameters& parameters, Exchange& exchange) {
    exchange.setCertificate(choice<CertificateKind>(parameters,
                                                    "is",
                                                    {{"valid", CertificateKind::valid},
                                                     {"expired", CertificateKind::expired},
                                                     {"wrong-host", CertificateKind::wrongHost}}));
}

void refuse(const Parameters& parameters, Exchange& exchange) {
    exchange.refuseConnections(choice<OpenConnections>(
        parameters, "open", {{"keep", OpenConnections::keep}, {"drop", OpenConnections::drop}}));
}

void tick(const Parameters& parameters, Exchange& exchange) {
    for (int left = number(parameters, "steps", 1, 1); left > 0; --left) {
        exchange.tick();
    }
}

std::string stateText(const Exchange& exchange) {
    return fmt::format(
        R"({{"steps":{},"openConnections":{},"openStreams":{},"streamsAccepted":{},)"
        R"("abandonedConnections":{},"requests":{},"closeCodes":[{}],"pings":{},"pongs":{}}})",
        exchange.market().steps(),
        exchange.openConnections(),
        exchange.openStreams(),
        exchange.log.streamsAccepted,
        exchange.log.abandonedConnections,
        exchange.log.requests.size(),
        fmt::join(exchange.log.closeCodes, ","),
        exchange.log.pings.size(),
        exchange.log.pongs.size());
}

struct Command {
    std::string_view name;
    std::string_view help;
    void (*run)(const Parameters&, Exchange&);
};

const std::vector<Command>& commands() {
    static const std::vector<Command> kCommands{
        {"requests",
         "what strikes the next requests: kind=status|answer|hold|cut-short|not-json|\n"
         "wrong-number|empty|redirect|oversized|reset, times=1, path=PREFIX,\n"
         "delay=MILLISECONDS, status=503, retry-after=SECONDS, location=URL, bytes=N",
         &onRequests},
        {"release",
         "answers the requests that kind=hold keeps waiting",
         [](const Parameters&, Exchange& exchange) { exchange.releaseHeld(); }},
        {"end-streams",
         "how=close|drop|reset; at once, or after=N messages for times=1 streams",
         &endStreams},
        {"voice", "what streams say: is=normal|silent|junk|dead", &setVoice},
        {"handshake",
         "how far later connections get: is=normal|silent-tls|silent-upgrade",
         &setHandshake},
        {"certificate", "for later connections: is=valid|expired|wrong-host", &setCertificate},
        {"refuse", "closes the exchange's port: open=keep|drop", &refuse},
        {"burst",
         "frames=100 mini-tickers at once on every stream",
         [](const Parameters& parameters, Exchange& exchange) {
             exchange.burst(number(parameters, "frames", 1, 100));
         }},
        {"ping",
         "a WebSocket ping on every stream: payload=TEXT",
         [](const Parameters& parameters, Exchange& exchange) {
             exchange.ping(parameters.parameter("payload").value_or(""));
         }},
        {"server-shutdown",
         "the event that announces the end of a server, on every stream",
         [](const Parameters&, Exchange& exchange) { exchange.serverShutdown(); }},
        {"text",
         "any text message on every stream: text=TEXT",
         [](const Parameters& parameters, Exchange& exchange) {
             exchange.sendText(parameters.parameter("text").value_or(""));
         }},
        {"tick", "moves the market by steps=1", &tick},
        {"clear",
         "back to an exchange without faults",
         [](const Parameters&, Exchange& exchange) { exchange.clear(); }},
        {"state", "answers what was counted so far", [](const Parameters&, Exchange&) {}},
    };
    return kCommands;
}

HttpResponse plainText(int status, std::string text) {
    HttpResponse response;
    response.status = status;
    response.contentType = "text/plain";
    response.body = std::move(text);
    return response;
}

}  // namespace

HttpResponse answerControl(const HttpRequest& request, Exchange& exchange) {
    const std::string_view path = request.path;
    if (path == "/") {
        return plainText(200, controlHelp());
    }
    const std::string_view name = path.substr(std::min<std::size_t>(1, path.size()));
    const auto& all = commands();
    const auto command = std::find_if(
        all.begin(), all.end(), [name](const Command& each) { return each.name == name; });
    if (command == all.end()) {
        return plainText(404, controlHelp());
    }
    try {
        command->run(request, exchange);
    } catch (const std::exception& error) {
        return plainText(400, fmt::format("{}\n", error.what()));
    }
    HttpResponse response;
    response.body = name == "state" ? stateText(exchange) : R"({"done":true})";
    return response;
}

std::string controlHelp() {
    std::string text;
    for (const Command& command : commands()) {
        text += fmt::format("  /{}\n", command.name);
        std::string_view help = command.help;
        while (!help.empty()) {
            const std::size_t end = std::min(help.find('\n'), help.size());
            text += fmt::format("      {}\n", help.substr(0, end));
            help.remove_prefix(std::min(end + 1, help.size()));
        }
    }
    return text;
}

}  // namespace quillbar::simulator
