// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/faults/Fault.h"

#include "tests/faults/ProcessNames.h"

#include <utility>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using simulator::CertificateKind;
using simulator::Handshake;
using simulator::OpenConnections;
using simulator::RequestFault;
using simulator::Simulator;
using simulator::StreamEnd;
using simulator::StreamVoice;
using Act = std::function<void(Simulator&)>;
using Kind = RequestFault::Kind;

// More often than anything is asked for in a test.
constexpr int kAlways = 1'000'000;

// The application's own limits, as it states them.
constexpr auto kHandshake = 12s;     // of a stream's connection, until its upgrade
constexpr auto kFirstPrice = 25s;    // of a connection, until its first price
constexpr auto kNoticedDead = 45s;   // of a stream that flowed and is dead
constexpr auto kNoticedMute = 120s;  // of one that lives and is mute: 90 s, looked at each 30 s
constexpr auto kOneWait = 2s;        // before an attempt after the first failure, in whole seconds
constexpr auto kTwoWaits = 4s;       // and after the first two
constexpr auto kPollAgain = 35s;     // until a board has asked again
constexpr auto kRequestGivenUp = 65s;    // until a request is that began over a dead connection
constexpr auto kTwoMinutes = 120s;       // until an attempt that waits for a minute at most
constexpr auto kStreamEverySecond = 2s;  // until a stream that stands has told a price

std::function<void(World&)> onAll(Act act) {
    return [act = std::move(act)](World& world) { world.onEachHost(act); };
}
std::function<void(World&)> onFirst(std::size_t count, Act act) {
    return [count, act = std::move(act)](World& world) {
        for (std::size_t index = 0; index < count; ++index) {
            act(world.host(index));
        }
    };
}

// What is done to one host.

void allIsWell(Simulator& host) {
    host.faults().clear();
}
void refuse(Simulator& host) {
    host.faults().refuseConnections(OpenConnections::drop);
}
/// A firewall that swallows everything, what stands included.
void swallow(Simulator& host) {
    host.faults().setVoice(StreamVoice::dead);
    host.faults().setHandshake(Handshake::silentTls);
    host.faults().on(Kind::hold, "", kAlways);
}
void endOpenConnections(Simulator& host) {
    refuse(host);
    host.faults().listenAgain();
}
void showExpiredCertificate(Simulator& host) {
    host.faults().setCertificate(CertificateKind::expired);
    endOpenConnections(host);
}
void refuseUpgrades(Simulator& host, int status) {
    host.faults().status(status, kAlways, "/stream");
    host.faults().endStreams(StreamEnd::drop);
}
Act answering(int status) {
    return [status](Simulator& host) { host.faults().status(status, kAlways, "/api"); };
}
Act answeringWith(Kind kind) {
    return [kind](Simulator& host) { host.faults().on(kind, "/api", kAlways); };
}
Act speaking(StreamVoice voice) {
    return [voice](Simulator& host) { host.faults().setVoice(voice); };
}

StreamEffect flows() {
    return {};
}
StreamEffect failsAtOnce(std::string reason) {
    return {.backFromStart = kNotWhileItLasts,
            .backFromLive = kNotWhileItLasts,
            .failsAtOnce = true,
            .reason = std::move(reason)};
}

void addAllHostsDown(std::vector<Fault>& faults) {
    faults.push_back({.words = "all hosts refuse",
                      .name = "allRefuse",
                      .begin = onAll(refuse),
                      .end = onAll(allIsWell),
                      .stream = failsAtOnce("无法连接到服务器"),
                      .requests = RequestEffect::failed,
                      .wellWithin = kTwoMinutes});
    faults.push_back({.words = "all hosts accept and never answer",
                      .name = "allSwallow",
                      .begin = onAll(swallow),
                      .end = onAll(allIsWell),
                      .stream = {.backFromStart = kNotWhileItLasts,
                                 .backFromLive = kNotWhileItLasts,
                                 .reason = "连接超时",
                                 .reasonFromStart = kHandshake,
                                 .reasonFromLive = kNoticedDead},
                      .requests = RequestEffect::unanswered,
                      .wellWithin = kTwoMinutes});
    faults.push_back({.words = "the hosts' names do not resolve",
                      .name = "noNames",
                      .begin =
                          [](World& world) {
                              ProcessNames::setKnown(false);
                              world.onEachHost(endOpenConnections);
                          },
                      .end = [](World& /*world*/) { ProcessNames::setKnown(true); },
                      .stream = failsAtOnce("无法解析服务器地址"),
                      .requests = RequestEffect::failed,
                      .wellWithin = kTwoMinutes});
    faults.push_back({.words = "all certificates have expired",
                      .name = "allExpired",
                      .begin = onAll(showExpiredCertificate),
                      .end = onAll(allIsWell),
                      .stream = failsAtOnce("安全连接失败或证书不可信"),
                      .requests = RequestEffect::failed,
                      .wellWithin = kTwoMinutes});
    faults.push_back({.words = "the network is away, and told to be back",
                      .name = "networkAway",
                      .begin = onAll(refuse),
                      .end =
                          [](World& world) {
                              world.onEachHost(allIsWell);
                              world.resume();
                          },
                      .stream = failsAtOnce("无法连接到服务器"),
                      .requests = RequestEffect::failed,
                      .wellWithin = kPollAgain});
}

void addSomeHostsDown(std::vector<Fault>& faults) {
    faults.push_back({.words = "the first host of three refuses",
                      .name = "firstRefuses",
                      .begin = onFirst(1, refuse),
                      .end = onAll(allIsWell),
                      .stream = {.backFromStart = 2 * kOneWait, .backFromLive = 2 * kTwoWaits},
                      .wellWithin = kStreamEverySecond});
    faults.push_back({.words = "the first host of three does not serve the region",
                      .name = "firstNotHere",
                      .begin = onFirst(1,
                                       [](Simulator& host) {
                                           answering(451)(host);
                                           refuseUpgrades(host, 451);
                                       }),
                      .end = onAll(allIsWell),
                      .stream = {.backFromStart = 2 * kOneWait, .backFromLive = 2 * kTwoWaits},
                      .wellWithin = kStreamEverySecond});
    faults.push_back({.words = "the first host of three accepts and never answers",
                      .name = "firstSwallows",
                      .begin = onFirst(1, swallow),
                      .end = onAll(allIsWell),
                      .stream = {.backFromStart = kHandshake + kOneWait + kStreamEverySecond,
                                 .backFromLive = kNoticedDead + kHandshake + 2 * kTwoWaits},
                      .requests = RequestEffect::elsewhereLate,
                      .wellWithin = kRequestGivenUp});
    faults.push_back({.words = "two hosts of three accept and never answer",
                      .name = "twoSwallow",
                      .begin = onFirst(2, swallow),
                      .end = onAll(allIsWell),
                      // What is promised for a start behind two firewalls.
                      .stream = {.backFromStart = 30s,
                                 .backFromLive = kNoticedDead + 2 * kHandshake + 3 * kTwoWaits},
                      .requests = RequestEffect::unanswered,
                      .wellWithin = kRequestGivenUp});
    faults.push_back({.words = "the first host of three upgrades and stays mute",
                      .name = "firstMute",
                      .begin = onFirst(1, speaking(StreamVoice::dead)),
                      .end = onAll(allIsWell),
                      .stream = {.backFromStart = kFirstPrice + kOneWait + kStreamEverySecond,
                                 .backFromLive = kNoticedDead + kFirstPrice + 2 * kTwoWaits},
                      .wellWithin = kStreamEverySecond});
    faults.push_back({.words = "the first host of three upgrades and sends only junk",
                      .name = "firstJunk",
                      .begin = onFirst(1, speaking(StreamVoice::junk)),
                      .end = onAll(allIsWell),
                      .stream = {.backFromStart = kFirstPrice + kOneWait + kStreamEverySecond,
                                 .backFromLive = kNoticedMute + kFirstPrice + 2 * kTwoWaits},
                      .wellWithin = kStreamEverySecond});
}

void addStreamFaults(std::vector<Fault>& faults) {
    const StreamEffect mute{.backFromStart = kNotWhileItLasts, .backFromLive = kNotWhileItLasts};
    faults.push_back(
        {.words = "the stream breaks once",
         .name = "streamBreaks",
         .begin = onAll([](Simulator& host) { host.faults().endStreams(StreamEnd::reset); }),
         .end = onAll(allIsWell),
         .stream = {.backFromStart = 0s, .backFromLive = kOneWait + kStreamEverySecond},
         .wellWithin = kStreamEverySecond});
    faults.push_back({.words = "every stream breaks after its upgrade",
                      .name = "streamsBreak",
                      .begin = onAll([](Simulator& host) {
                          host.faults().endStreamsAfter(0, StreamEnd::reset, kAlways);
                      }),
                      .end = onAll(allIsWell),
                      .stream = failsAtOnce("连接意外断开"),
                      .wellWithin = kTwoMinutes});
    faults.push_back({.words = "every stream is closed by its server after the upgrade",
                      .name = "streamsClose",
                      .begin = onAll([](Simulator& host) {
                          host.faults().endStreamsAfter(0, StreamEnd::close, kAlways);
                      }),
                      .end = onAll(allIsWell),
                      .stream = failsAtOnce("服务器关闭了连接"),
                      .wellWithin = kTwoMinutes});
    faults.push_back({.words = "every server says that it goes away, and pings",
                      .name = "farewells",
                      .begin = onAll([](Simulator& host) {
                          host.faults().ping("still there");
                          host.faults().serverShutdown();
                      }),
                      .end = onAll(allIsWell),
                      .stream = flows(),
                      .wellWithin = kStreamEverySecond});
    faults.push_back({.words = "upgrades are never answered",
                      .name = "noUpgrades",
                      .begin = onAll([](Simulator& host) {
                          host.faults().setHandshake(Handshake::silentUpgrade);
                          host.faults().endStreams(StreamEnd::drop);
                      }),
                      .end = onAll(allIsWell),
                      .stream = {.backFromStart = kNotWhileItLasts,
                                 .backFromLive = kNotWhileItLasts,
                                 .reason = "连接超时",
                                 .reasonFromStart = kHandshake,
                                 .reasonFromLive = kHandshake + kOneWait},
                      .wellWithin = kTwoMinutes});
    faults.push_back({.words = "all streams stay mute and answer no ping",
                      .name = "allMute",
                      .begin = onAll(speaking(StreamVoice::dead)),
                      .end = onAll(allIsWell),
                      .stream = {.backFromStart = kNotWhileItLasts,
                                 .backFromLive = kNotWhileItLasts,
                                 .reason = "连接超时",
                                 .reasonFromStart = kNoticedDead,
                                 .reasonFromLive = kNoticedDead},
                      .wellWithin = kTwoMinutes});
    faults.push_back({.words = "all streams answer pings and tell no price",
                      .name = "allSilent",
                      .begin = onAll(speaking(StreamVoice::silent)),
                      .end = onAll(allIsWell),
                      .stream = mute,
                      .wellWithin = kTwoMinutes});
    faults.push_back({.words = "all streams send only junk",
                      .name = "allJunk",
                      .begin = onAll(speaking(StreamVoice::junk)),
                      .end = onAll(allIsWell),
                      .stream = mute,
                      .wellWithin = kTwoMinutes});
}

void addClockFaults(std::vector<Fault>& faults) {
    const auto back = [](World& /*world*/) { ProcessTime::moveWallClock(-1h); };
    const auto right = [](World& /*world*/) { ProcessTime::moveWallClock(1h); };
    faults.push_back({.words = "the wall clock goes back an hour",
                      .name = "clockGoesBack",
                      .begin = back,
                      .end = right,
                      .stream = flows(),
                      .wellWithin = kPollAgain});
    faults.push_back(
        {.words = "the wall clock goes back an hour, and all streams tell no price",
         .name = "clockGoesBackInSilence",
         .begin =
             [back](World& world) {
                 world.onEachHost(speaking(StreamVoice::silent));
                 back(world);
             },
         .end =
             [right](World& world) {
                 world.onEachHost(allIsWell);
                 right(world);
             },
         .stream = {.backFromStart = kNotWhileItLasts, .backFromLive = kNotWhileItLasts},
         .wellWithin = kTwoMinutes});
}

void addRequestFaults(std::vector<Fault>& faults) {
    const auto add = [&faults](std::string words,
                               std::string name,
                               Act act,
                               RequestEffect effect,
                               std::chrono::seconds wellWithin) {
        faults.push_back({.words = std::move(words),
                          .name = std::move(name),
                          .begin = onAll(std::move(act)),
                          .end = onAll(allIsWell),
                          .stream = flows(),
                          .requests = effect,
                          .wellWithin = wellWithin});
    };
    constexpr auto kFailed = RequestEffect::failed;
    add("500 to every request", "status500", answering(500), kFailed, kPollAgain);
    add("503 to every request", "status503", answering(503), kFailed, kPollAgain);
    add("400 to every request", "status400", answering(400), kFailed, kPollAgain);
    add(
        "429 to every request, with Retry-After: 60",
        "status429",
        [](Simulator& host) {
            host.faults().onRequests({.kind = Kind::status,
                                      .times = kAlways,
                                      .pathPrefix = "/api",
                                      .status = 429,
                                      .retryAfter = 60s});
        },
        kFailed,
        kTwoMinutes);
    add("418 to every request", "status418", answering(418), kFailed, kTwoMinutes);
    add("half of every answer", "halfAnswers", answeringWith(Kind::cutShort), kFailed, kPollAgain);
    add("a price of every answer is no number",
        "wrongNumbers",
        answeringWith(Kind::wrongNumber),
        kFailed,
        kPollAgain);
    add("a reset instead of every answer",
        "resets",
        answeringWith(Kind::reset),
        kFailed,
        kPollAgain);
    add(
        "every request is sent to a place without TLS",
        "redirects",
        [](Simulator& host) {
            host.faults().onRequests({.kind = Kind::redirect,
                                      .times = kAlways,
                                      .pathPrefix = "/api",
                                      .location = "http://localhost/"});
        },
        kFailed,
        kPollAgain);
    add("a page of HTML to every request",
        "pagesOfHtml",
        answeringWith(Kind::notJson),
        kFailed,
        kPollAgain);
    add(
        "every answer takes 20 s",
        "slowAnswers",
        [](Simulator& host) {
            host.faults().onRequests(
                {.kind = Kind::answer, .times = kAlways, .pathPrefix = "/api", .delay = 20s});
        },
        RequestEffect::late,
        kPollAgain);
    add("no request is answered",
        "noAnswers",
        answeringWith(Kind::hold),
        RequestEffect::unanswered,
        kPollAgain);
}

void addRegionFaults(std::vector<Fault>& faults) {
    for (const int status : {403, 451}) {
        faults.push_back(
            {.words = std::to_string(status) + " to everything, upgrades included",
             .name = "region" + std::to_string(status),
             .begin = onAll([status](Simulator& host) {
                 answering(status)(host);
                 refuseUpgrades(host, status);
             }),
             .end = onAll(allIsWell),
             // Only 451 always speaks of the region.
             .stream = failsAtOnce(status == 451 ? "当前地区无法访问行情服务" : "服务器返回 403"),
             .requests = RequestEffect::failed,
             .wellWithin = kTwoMinutes});
    }
}

}  // namespace

const std::vector<Fault>& allFaults() {
    static const std::vector<Fault> all = [] {
        std::vector<Fault> faults;
        addAllHostsDown(faults);
        addSomeHostsDown(faults);
        addStreamFaults(faults);
        addClockFaults(faults);
        addRequestFaults(faults);
        addRegionFaults(faults);
        return faults;
    }();
    return all;
}

}  // namespace quillbar
