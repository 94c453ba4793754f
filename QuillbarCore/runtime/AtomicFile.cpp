// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/AtomicFile.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillbar {

namespace {

constexpr mode_t kFolderMode = 0700;
// Linux follows as many.
constexpr int kMaximumLinks = 40;
// The end of a temporary file's name, which mkostemp replaces.
constexpr std::string_view kMadeUp = "XXXXXX";

// The beginning of the names of a target's temporary files.
std::string temporaryPrefix(const std::filesystem::path& target) {
    return fmt::format(".{}.saving-", target.filename().string());
}

[[noreturn]] void fail(std::string_view action, const std::filesystem::path& path, int code) {
    // Unlike strerror's, this text is English in every locale, as the log is.
    const char* const reason = ::strerrordesc_np(code);
    throw FileError(
        fmt::format(
            "{} {}: {}", action, path.string(), reason == nullptr ? "unknown error" : reason),
        code);
}

// Repeats the call while a signal interrupts it.
template <class Call>
auto uninterrupted(Call call) {
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR) {
            return result;
        }
    }
}

class ReadDescriptor {
public:
    explicit ReadDescriptor(const std::filesystem::path& path)
        // O_NONBLOCK, because opening a pipe would wait for a writer.
        : m_descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
        if (m_descriptor < 0) {
            fail("cannot open", path, errno);
        }
    }
    ReadDescriptor(const ReadDescriptor&) = delete;
    ReadDescriptor& operator=(const ReadDescriptor&) = delete;
    ReadDescriptor(ReadDescriptor&&) = delete;
    ReadDescriptor& operator=(ReadDescriptor&&) = delete;
    ~ReadDescriptor() { ::close(m_descriptor); }

    [[nodiscard]] int get() const noexcept { return m_descriptor; }

private:
    int m_descriptor;
};

// Owns the temporary file until it has been renamed over the target. Its errors name the target.
class TemporaryFile {
public:
    TemporaryFile(const std::filesystem::path& target, FileOperations& operations)
        : m_operations(operations)
        , m_target(target)
        , m_path((target.parent_path() / temporaryPrefix(target)).string().append(kMadeUp))
        , m_descriptor(operations.openTemporary(m_path)) {
        if (m_descriptor < 0) {
            fail("cannot create a file beside", m_target, errno);
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    TemporaryFile(TemporaryFile&&) = delete;
    TemporaryFile& operator=(TemporaryFile&&) = delete;
    ~TemporaryFile() {
        if (m_descriptor >= 0) {
            m_operations.close(m_descriptor);
        }
        if (!m_renamed) {
            m_operations.remove(m_path);
        }
    }

    void fill(std::string_view bytes, AtomicFile::Durability durability) {
        while (!bytes.empty()) {
            const ssize_t written = uninterrupted(
                [&] { return m_operations.write(m_descriptor, bytes.data(), bytes.size()); });
            if (written < 0) {
                fail("cannot write", m_target, errno);
            }
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        if (durability == AtomicFile::Durability::powerCut
            && uninterrupted([&] { return m_operations.synchronise(m_descriptor); }) != 0) {
            fail("cannot synchronise", m_target, errno);
        }
        // A close that was interrupted has closed the descriptor: do not call it again.
        if (m_operations.close(std::exchange(m_descriptor, -1)) != 0 && errno != EINTR) {
            fail("cannot close", m_target, errno);
        }
    }

    void moveToTarget() {
        if (m_operations.rename(m_path, m_target.string()) != 0) {
            fail("cannot replace", m_target, errno);
        }
        m_renamed = true;
    }

private:
    FileOperations& m_operations;
    const std::filesystem::path& m_target;
    std::string m_path;
    int m_descriptor;
    bool m_renamed = false;
};

void makeFolders(const std::filesystem::path& folder, FileOperations& operations) {
    if (folder.empty()) {
        return;
    }
    if (operations.makeDirectory(folder.string(), kFolderMode) == 0 || errno == EEXIST) {
        return;
    }
    if (errno != ENOENT || folder == folder.parent_path()) {
        fail("cannot make the folder", folder, errno);
    }
    makeFolders(folder.parent_path(), operations);
    if (operations.makeDirectory(folder.string(), kFolderMode) != 0 && errno != EEXIST) {
        fail("cannot make the folder", folder, errno);
    }
}

// The folder of the target. It is opened before the target is replaced, so that a failure to open
// it leaves the old file in place.
class Folder {
public:
    Folder(std::filesystem::path path, FileOperations& operations)
        : m_operations(operations)
        , m_path(std::move(path))
        , m_descriptor(operations.openDirectory(m_path.string())) {
        if (m_descriptor < 0) {
            fail("cannot open the folder", m_path, errno);
        }
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    Folder(Folder&&) = delete;
    Folder& operator=(Folder&&) = delete;
    ~Folder() { m_operations.close(m_descriptor); }

    void synchronise() {
        const int result = uninterrupted([this] { return m_operations.synchronise(m_descriptor); });
        // Some file systems cannot synchronise a folder and say so with EINVAL.
        if (result != 0 && errno != EINVAL) {
            fail("cannot synchronise the folder", m_path, errno);
        }
    }

private:
    FileOperations& m_operations;
    std::filesystem::path m_path;
    int m_descriptor;
};

// Removes the temporary files that killed processes left beside a target that was just replaced.
// Ignores errors: the target is saved, and the next save tries again.
void removeAbandoned(const std::filesystem::path& target,
                     const std::filesystem::path& folder,
                     FileOperations& operations) {
    std::error_code error;
    const auto savedAt = std::filesystem::last_write_time(target, error);
    if (error) {
        return;
    }
    const std::string prefix = temporaryPrefix(target);
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with(prefix) || name.size() != prefix.size() + kMadeUp.size()) {
            continue;
        }
        std::error_code unknown;
        const auto leftAt = std::filesystem::last_write_time(entry->path(), unknown);
        if (!unknown && std::chrono::abs(savedAt - leftAt) > AtomicFile::kAbandonedAge) {
            operations.remove(entry->path().string());
        }
    }
}

// The target of the path if that is a symbolic link, as for users who keep their configuration
// elsewhere. It need not exist.
std::filesystem::path resolve(const std::filesystem::path& path) {
    std::filesystem::path target = path;
    for (int links = 0; links < kMaximumLinks; ++links) {
        std::error_code error;
        const auto next = std::filesystem::read_symlink(target, error);
        if (error) {
            return target;
        }
        target = target.parent_path() / next;
    }
    fail("cannot follow", path, ELOOP);
}

}  // namespace

std::string AtomicFile::read(const std::filesystem::path& path, std::size_t maximumSize) {
    const ReadDescriptor descriptor(path);
    struct stat status {};
    if (::fstat(descriptor.get(), &status) != 0) {
        fail("cannot read", path, errno);
    }
    if (S_ISDIR(status.st_mode)) {
        fail("cannot read", path, EISDIR);
    }
    if (!S_ISREG(status.st_mode)) {
        throw FileError(fmt::format("cannot read {}: not a regular file", path.string()), 0);
    }
    std::string bytes;
    std::array<char, std::size_t{64} * 1024> buffer{};
    for (;;) {
        const ssize_t count =
            uninterrupted([&] { return ::read(descriptor.get(), buffer.data(), buffer.size()); });
        if (count < 0) {
            fail("cannot read", path, errno);
        }
        if (count == 0) {
            return bytes;
        }
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
        if (bytes.size() > maximumSize) {
            throw FileError(
                fmt::format("cannot read {}: over {} bytes", path.string(), maximumSize), EFBIG);
        }
    }
}

void AtomicFile::write(const std::filesystem::path& path,
                       std::string_view bytes,
                       FileOperations& operations,
                       Durability durability) {
    const std::filesystem::path target = resolve(path);
    const std::filesystem::path parent = target.has_parent_path() ? target.parent_path() : ".";
    makeFolders(target.parent_path(), operations);
    TemporaryFile temporary(target, operations);
    temporary.fill(bytes, durability);
    std::optional<Folder> folder;
    if (durability == Durability::powerCut) {
        folder.emplace(parent, operations);
    }
    temporary.moveToTarget();
    if (folder) {
        folder->synchronise();
        // Only in saves that wait for the disk: the others must be quick, and their folder may hold
        // thousands of logos.
        removeAbandoned(target, parent, operations);
    }
}

}  // namespace quillbar
