// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/FileOperations.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

/// The real system calls, each of which a test can watch, make fail or do something around.
class HookedFileOperations final : public FileOperations {
public:
    int makeDirectory(const std::string& path, mode_t mode) override {
        return perform<int>("makeDirectory",
                            [&] { return FileOperations::makeDirectory(path, mode); });
    }
    int openTemporary(std::string& pathTemplate) override {
        return perform<int>("openTemporary",
                            [&] { return FileOperations::openTemporary(pathTemplate); });
    }
    int openDirectory(const std::string& path) override {
        return perform<int>("openDirectory", [&] { return FileOperations::openDirectory(path); });
    }
    ssize_t write(int descriptor, const char* data, std::size_t size) override {
        const std::size_t taken = std::min(size, longestWrite);
        return perform<ssize_t>("write",
                                [&] { return FileOperations::write(descriptor, data, taken); });
    }
    int synchronise(int descriptor) override {
        return perform<int>("synchronise", [&] { return FileOperations::synchronise(descriptor); });
    }
    int close(int descriptor) override {
        const int result = perform<int>("close", [&] { return FileOperations::close(descriptor); });
        if (result != 0) {
            // A close that fails has closed all the same.
            const int code = errno;
            FileOperations::close(descriptor);
            errno = code;
        }
        return result;
    }
    int rename(const std::string& from, const std::string& to) override {
        return perform<int>("rename", [&] { return FileOperations::rename(from, to); });
    }
    int remove(const std::string& path) override {
        return perform<int>("remove", [&] { return FileOperations::remove(path); });
    }

    /// The calls so far, by name.
    std::vector<std::string> calls;
    /// Called before each call with its number, from 0, and its name; the call then fails with the
    /// error returned, unless that is 0.
    std::function<int(std::size_t, std::string_view)> before;
    /// Called after each call that was made, with its number.
    std::function<void(std::size_t)> after;
    /// What one write takes at most.
    std::size_t longestWrite = std::string::npos;

private:
    template <class Result, class Call>
    Result perform(const char* name, Call call) {
        const std::size_t number = calls.size();
        calls.emplace_back(name);
        if (const int code = before ? before(number, name) : 0; code != 0) {
            errno = code;
            return -1;
        }
        const Result result = call();
        if (after) {
            const int code = errno;
            after(number);
            errno = code;
        }
        return result;
    }
};

}  // namespace quillbar
