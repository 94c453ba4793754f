// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/FileOperations.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// The real system calls, recorded, but for one, counted from 0, that goes wrong.
class FaultyFileOperations final : public FileOperations {
public:
    enum class Fault {
        /// It does nothing and reports an error.
        fails,
        /// The process is killed instead, and half the bytes of a write are written before.
        kills,
    };

    void breakCall(std::size_t index, Fault fault = Fault::fails) {
        m_broken = calls.size() + index;
        m_fault = fault;
    }

    /// From here on every call fails, until `repair`.
    void breakAll() { m_isBroken = true; }
    void repair() {
        m_broken.reset();
        m_isBroken = false;
    }

    /// Whether this call has been made and has not been made to fail.
    [[nodiscard]] bool succeeded(const std::string& call) const {
        for (const std::string& each : calls) {
            if (each == call) {
                return true;
            }
        }
        return false;
    }

    int makeDirectory(const std::string& path, mode_t mode) override {
        return breaks("mkdir") ? -1 : FileOperations::makeDirectory(path, mode);
    }
    int openTemporary(std::string& pathTemplate) override {
        return breaks("mkostemp") ? -1 : FileOperations::openTemporary(pathTemplate);
    }
    int openDirectory(const std::string& path) override {
        return breaks("open") ? -1 : FileOperations::openDirectory(path);
    }
    ssize_t write(int descriptor, const char* data, std::size_t size) override {
        if (m_fault == Fault::kills && isNext()) {
            FileOperations::write(descriptor, data, size / 2);
        }
        return breaks("write") ? -1 : FileOperations::write(descriptor, data, size);
    }
    int synchronise(int descriptor) override {
        return breaks("fsync") ? -1 : FileOperations::synchronise(descriptor);
    }
    int close(int descriptor) override {
        // Even a close that fails has closed.
        const int result = FileOperations::close(descriptor);
        return breaks("close") ? -1 : result;
    }
    int rename(const std::string& from, const std::string& to) override {
        return breaks("rename " + to) ? -1 : FileOperations::rename(from, to);
    }
    int remove(const std::string& path) override {
        return breaks("unlink") ? -1 : FileOperations::remove(path);
    }

    /// Every call, in order; a rename with its target; one that failed with an exclamation mark.
    std::vector<std::string> calls;

private:
    [[nodiscard]] bool isNext() const { return m_isBroken || m_broken == calls.size(); }

    bool breaks(const std::string& call) {
        if (!isNext()) {
            calls.push_back(call);
            return false;
        }
        if (m_fault == Fault::kills) {
            std::raise(SIGKILL);
        }
        calls.push_back(call + "!");
        errno = EIO;
        return true;
    }

    std::optional<std::size_t> m_broken;
    bool m_isBroken = false;
    Fault m_fault = Fault::fails;
};

}  // namespace quillbar
