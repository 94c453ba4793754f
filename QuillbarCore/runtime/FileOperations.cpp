// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/FileOperations.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillbar {

int FileOperations::makeDirectory(const std::string& path, mode_t mode) {
    return ::mkdir(path.c_str(), mode);
}

int FileOperations::openTemporary(std::string& pathTemplate) {
    return ::mkostemp(pathTemplate.data(), O_CLOEXEC);
}

int FileOperations::openDirectory(const std::string& path) {
    return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

ssize_t FileOperations::write(int descriptor, const char* data, std::size_t size) {
    return ::write(descriptor, data, size);
}

int FileOperations::synchronise(int descriptor) {
    return ::fsync(descriptor);
}

int FileOperations::close(int descriptor) {
    return ::close(descriptor);
}

int FileOperations::rename(const std::string& from, const std::string& to) {
    return std::rename(from.c_str(), to.c_str());
}

int FileOperations::remove(const std::string& path) {
    return ::unlink(path.c_str());
}

FileOperations& FileOperations::system() {
    static FileOperations operations;
    return operations;
}

}  // namespace quillbar
