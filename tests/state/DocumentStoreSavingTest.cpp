// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/AtomicFile.h"
#include "tests/state/DocumentStoreFixture.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <filesystem>
#include <string>

namespace quillbar {
namespace {

template <class Store>
struct DocumentStoreSavingTest : DocumentStoreFixture<Store> {};

TYPED_TEST_SUITE(DocumentStoreSavingTest, Stores);

TYPED_TEST(DocumentStoreSavingTest, doesNotKeepWhatItUnderstood) {
    this->theFileHolds(TestFixture::Stored::someText());
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::some());
    store.save(TestFixture::Stored::other());
    EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::otherText() + "/");
}

TYPED_TEST(DocumentStoreSavingTest, keepsNothingWhenThereWasNoFile) {
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    store.save(TestFixture::Stored::some());
    store.save(TestFixture::Stored::other());
    EXPECT_EQ(entryCount(this->directory), 1U);
}

TYPED_TEST(DocumentStoreSavingTest, keepsOnceWhatItCouldNotDecode) {
    this->theFileHolds("my list");
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    EXPECT_EQ(this->fileAndKept(), "my list/");
    store.save(TestFixture::Stored::some());
    EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::someText() + "/my list");
    store.save(TestFixture::Stored::other());
    EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::otherText() + "/my list");
    EXPECT_EQ(entryCount(this->directory), 2U);
}

TYPED_TEST(DocumentStoreSavingTest, keepsTheDocumentOfALaterVersion) {
    this->theFileHolds(TestFixture::Stored::laterVersionText());
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    store.save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->kept), TestFixture::Stored::laterVersionText());
}

TYPED_TEST(DocumentStoreSavingTest, keepsAHugeFile) {
    const std::string huge(kHugeSize, ' ');
    this->theFileHolds(huge);
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    store.save(TestFixture::Stored::some());
    EXPECT_EQ(this->store().load(), TestFixture::Stored::some());
    EXPECT_EQ(std::filesystem::file_size(this->kept), huge.size());
}

TYPED_TEST(DocumentStoreSavingTest, keepsWhatIsThereWhenItNeverLoaded) {
    this->theFileHolds(TestFixture::Stored::otherText());
    this->store().save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->kept), TestFixture::Stored::otherText());
}

TYPED_TEST(DocumentStoreSavingTest, keepsAFileThatCouldNotBeReadWhenItWasLoaded) {
    std::filesystem::create_directories(this->directory);
    std::filesystem::create_symlink(this->file, this->file);
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    std::filesystem::remove(this->file);
    this->theFileHolds(TestFixture::Stored::otherText());
    store.save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->kept), TestFixture::Stored::otherText());
}

TYPED_TEST(DocumentStoreSavingTest, neverOverwritesWhatWasKeptBefore) {
    writeContents(this->kept, "an older list");
    writeContents(this->kept.string() + ".1", "another one");
    this->theFileHolds("my list");
    this->store().save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->kept), "an older list");
    EXPECT_EQ(contentsOf(this->kept.string() + ".1"), "another one");
    EXPECT_EQ(contentsOf(this->kept.string() + ".2"), "my list");
}

TYPED_TEST(DocumentStoreSavingTest, keepsTheSameBytesOnlyOnce) {
    writeContents(this->kept, "my list");
    this->theFileHolds("my list");
    this->store().save(TestFixture::Stored::some());
    EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::someText() + "/my list");
    EXPECT_EQ(entryCount(this->directory), 2U);
}

TYPED_TEST(DocumentStoreSavingTest, movesAwayWhatItCannotRead) {
    std::filesystem::create_directories(this->directory);
    std::filesystem::create_symlink(this->file, this->file);
    writeContents(this->kept, "an older list");
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    store.save(TestFixture::Stored::some());
    EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::someText() + "/an older list");
    EXPECT_EQ(std::filesystem::read_symlink(this->kept.string() + ".1"), this->file);
    store.save(TestFixture::Stored::other());
    EXPECT_EQ(contentsOf(this->file), TestFixture::Stored::otherText());
    EXPECT_EQ(entryCount(this->directory), 3U);
}

TYPED_TEST(DocumentStoreSavingTest, movesAwayAFolder) {
    writeContents(this->file / "inside", "precious");
    this->store().save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->kept / "inside"), "precious");
    EXPECT_EQ(this->store().load(), TestFixture::Stored::some());
}

TYPED_TEST(DocumentStoreSavingTest, leavesWhatItCannotReadInItsPlaceWhicheverSystemCallFails) {
    for (std::size_t broken = 0;; ++broken) {
        SCOPED_TRACE(broken);
        std::filesystem::remove_all(this->directory);
        std::filesystem::create_directories(this->directory);
        std::filesystem::create_symlink(this->file, this->file);
        TypeParam store = this->store();
        this->files.calls.clear();
        this->files.breakCall(broken);
        bool hasThrown = false;
        try {
            store.save(TestFixture::Stored::some());
        } catch (const FileError&) {
            hasThrown = true;
        }
        if (this->files.calls.size() <= broken) {
            EXPECT_FALSE(hasThrown);
            EXPECT_GE(broken, 8U);
            break;
        }
        const bool isReplaced = this->files.succeeded("rename " + this->file.string())
                                && !std::filesystem::is_symlink(this->file);
        EXPECT_EQ(std::filesystem::is_symlink(this->kept), isReplaced);
        EXPECT_EQ(entryCount(this->directory), isReplaced ? 2U : 1U);
        this->files.repair();
        store.save(TestFixture::Stored::other());
        EXPECT_EQ(contentsOf(this->file), TestFixture::Stored::otherText());
        EXPECT_TRUE(std::filesystem::is_symlink(this->kept));
    }
}

TYPED_TEST(DocumentStoreSavingTest, doesNotSaveWhenAHundredFilesAreKept) {
    writeContents(this->kept, "0");
    for (int number = 1; number < 100; ++number) {
        writeContents(this->kept.string() + "." + std::to_string(number), "other");
    }
    this->theFileHolds("my list");
    TypeParam store = this->store();
    EXPECT_THROW(store.save(TestFixture::Stored::some()), FileError);
    EXPECT_EQ(contentsOf(this->file), "my list");
}

TYPED_TEST(DocumentStoreSavingTest, doesNotSaveWhenTheFolderCannotBeMade) {
    writeContents(this->folder.path() / "share", "a file where the folder should be");
    TypeParam store = this->store();
    EXPECT_THROW(store.save(TestFixture::Stored::some()), FileError);
}

TYPED_TEST(DocumentStoreSavingTest, leavesTheOldFileWholeWhicheverSystemCallFails) {
    const std::string target = "rename " + this->file.string();
    for (std::size_t broken = 0;; ++broken) {
        SCOPED_TRACE(broken);
        this->theFileHolds(TestFixture::Stored::someText());
        TypeParam store = this->store();
        EXPECT_EQ(store.load(), TestFixture::Stored::some());
        this->files.calls.clear();
        this->files.breakCall(broken);
        bool hasThrown = false;
        try {
            store.save(TestFixture::Stored::other());
        } catch (const FileError&) {
            hasThrown = true;
        }
        // Once the name stands for the other bytes there is no way back, nor need for one.
        const bool isReplaced = this->files.succeeded(target);
        EXPECT_EQ(contentsOf(this->file),
                  isReplaced ? TestFixture::Stored::otherText() : TestFixture::Stored::someText());
        EXPECT_TRUE(hasThrown || isReplaced);
        EXPECT_EQ(entryCount(this->directory), 1U);
        if (this->files.calls.size() <= broken) {
            EXPECT_FALSE(hasThrown);
            EXPECT_GE(broken, 7U);
            break;
        }
        // The store is as usable as before.
        this->files.repair();
        store.save(TestFixture::Stored::other());
        EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::otherText() + "/");
    }
}

TYPED_TEST(DocumentStoreSavingTest, losesNothingWhicheverSystemCallFailsWhileItKeepsTheOldFile) {
    for (std::size_t broken = 0;; ++broken) {
        SCOPED_TRACE(broken);
        std::filesystem::remove_all(this->directory);
        this->theFileHolds("my list");
        TypeParam store = this->store();
        this->files.calls.clear();
        this->files.breakCall(broken);
        try {
            store.save(TestFixture::Stored::some());
        } catch (const FileError&) {
            EXPECT_EQ(this->files.succeeded("rename " + this->file.string()),
                      contentsOf(this->file) != "my list");
        }
        if (contentsOf(this->file) != "my list") {
            EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::someText() + "/my list");
        }
        if (this->files.calls.size() <= broken) {
            EXPECT_GE(broken, 14U);
            break;
        }
        this->files.repair();
        store.save(TestFixture::Stored::other());
        EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::otherText() + "/my list");
        EXPECT_EQ(entryCount(this->directory), 2U);
    }
}

// Named for the child processes it starts: they run before threads exist.
template <class Store>
struct DocumentStoreSavingDeathTest : DocumentStoreFixture<Store> {};

TYPED_TEST_SUITE(DocumentStoreSavingDeathTest, Stores);

TYPED_TEST(DocumentStoreSavingDeathTest, leavesTheOldFileOrTheNewOneWheneverItIsKilled) {
    this->theFileHolds("my list");
    this->store().save(TestFixture::Stored::some());
    const std::size_t callCount = this->files.calls.size();
    const std::string target = "rename " + this->file.string();
    ASSERT_TRUE(this->files.succeeded(target));
    for (std::size_t killed = 0; killed < callCount; ++killed) {
        SCOPED_TRACE(killed);
        std::filesystem::remove_all(this->directory);
        this->theFileHolds("my list");
        const auto save = [&] {
            TypeParam store = this->store();
            this->files.breakCall(killed, FaultyFileOperations::Fault::kills);
            store.save(TestFixture::Stored::some());
        };
        EXPECT_EXIT(save(), testing::KilledBySignal(SIGKILL), "");
        if (contentsOf(this->file) == "my list") {
            // A file that was half kept is not taken for the whole one afterwards.
            TypeParam store = this->store();
            this->files.repair();
            store.save(TestFixture::Stored::some());
        }
        EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::someText() + "/my list");
    }
}

}  // namespace
}  // namespace quillbar
