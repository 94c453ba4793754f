// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/DocumentRules.h"
#include "fuzz/FuzzTarget.h"
#include "QuillbarCore/exchange/ServiceGate.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <optional>

namespace quillbar {

namespace {

namespace fs = std::filesystem;

constexpr const char* kService = "exchange";
constexpr const char* kFileName = "exchange-gate.json";
constexpr TimePoint kNow{Seconds{1794657600}};
constexpr int kTooManyRequests = 429;
constexpr int kBanned = 418;

/// Whether a file may be read as one of ours: its keys may also be spelt with escapes.
bool mayTellOfAClosure(std::string_view input) {
    return input.find("until") != std::string_view::npos
           || input.find('\\') != std::string_view::npos;
}

}  // namespace

/// In a folder on a disk, most of a run would be waiting for that.
void fuzz(std::string_view input) {
    static const TemporaryFolder folder;
    static const fs::path file = folder.path() / kFileName;
    const CapturedLog log;
    std::ofstream(file, std::ios::binary | std::ios::trunc)
        .write(input.data(), static_cast<std::streamsize>(input.size()));
    TimePoint now = kNow;
    const Clock clock = [&now] { return now; };

    ServiceGate gate(kService, folder.path(), clock);
    require(log.lines().empty(), "a file that is not understood is passed over silently");
    const std::optional<int> status = gate.closedWith();
    if (status) {
        requireJSON(input);
        require(status == kTooManyRequests || status == kBanned, "only two statuses close a gate");
        require(ServiceGate(kService, folder.path(), clock).closedWith() == status,
                "a gate stays closed over a restart");
        now += status == kBanned ? ServiceGate::kLongestBan : ServiceGate::kLongestPause;
        require(!gate.closedWith(), "no file closes a gate for longer than a service can");
    }

    if (!mayTellOfAClosure(input)) {
        require(!status, "no gate is closed by a file that tells of no closure");
    }
    // Whatever was in the file: what an answer makes of the gate is kept.
    ServiceGate reloaded(kService, folder.path(), clock);
    static_cast<void>(reloaded.closedWith());
    reloaded.noteAnswer(kBanned, "259200");
    require(reloaded.closedWith() == kBanned, "an answer closes a gate");
    require(ServiceGate(kService, folder.path(), clock).closedWith() == kBanned,
            "a gate that an answer closed stays closed over a restart");
    now += ServiceGate::kLongestBan;
    require(!reloaded.closedWith(), "a gate opens");
    require(!fs::exists(file), "an open gate has no file");
}

}  // namespace quillbar
