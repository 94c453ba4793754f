// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/AtomicFile.h"
#include "QuillbarCore/state/DocumentStore.h"
#include "tests/state/FaultyFileOperations.h"
#include "tests/state/StoredDocuments.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace quillbar {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::size_t kHugeSize = 50'000'000;

template <class Store>
struct DocumentStoreTest : testing::Test {
    using Stored = StoredDocument<Store>;

    Store store() { return Store(directory, files); }

    void theFileHolds(std::string_view bytes) { writeContents(file, bytes); }

    void expectDefaultAndOneLineWith(std::string_view reason) {
        log.clear();
        EXPECT_EQ(store().load(), Stored::defaultDocument());
        EXPECT_THAT(log.lines(),
                    ElementsAre(AllOf(StartsWith(Stored::kUnreadable),
                                      HasSubstr(std::string(reason)),
                                      EndsWith("), using default"))));
    }

    /// The file's bytes and, after a slash, those of NAME.bak.
    std::string fileAndKept() { return contentsOf(file) + "/" + contentsOf(kept); }

    CapturedLog log;
    TemporaryFolder folder;
    FaultyFileOperations files;
    std::filesystem::path directory = folder.path() / "share" / "Quillbar";
    std::filesystem::path file = directory / Stored::kName;
    std::filesystem::path kept = file.string() + ".bak";
};

using Stores = testing::Types<WatchlistStore, SettingsStore>;
TYPED_TEST_SUITE(DocumentStoreTest, Stores);

TYPED_TEST(DocumentStoreTest, keepsItsFileInTheDirectory) {
    EXPECT_EQ(this->store().path(), this->file);
}

TYPED_TEST(DocumentStoreTest, loadsWhatItSaved) {
    this->store().save(TestFixture::Stored::some());
    EXPECT_EQ(this->store().load(), TestFixture::Stored::some());
    EXPECT_THAT(this->log.lines(), IsEmpty());
}

TYPED_TEST(DocumentStoreTest, writesCompactJsonInDeclaredOrderWithoutAbsentFields) {
    TypeParam store = this->store();
    store.save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->file), TestFixture::Stored::someText());
    store.save(TestFixture::Stored::other());
    EXPECT_EQ(contentsOf(this->file), TestFixture::Stored::otherText());
}

TYPED_TEST(DocumentStoreTest, startsWithTheDefaultAndMakesTheFolderAtTheFirstSave) {
    this->expectDefaultAndOneLineWith("No such file or directory");
    EXPECT_FALSE(std::filesystem::exists(this->directory));
    this->store().save(TestFixture::Stored::some());
    EXPECT_EQ(entryCount(this->directory), 1U);
}

TYPED_TEST(DocumentStoreTest, keepsTheUsersDocumentsPrivate) {
    this->store().save(TestFixture::Stored::some());
    using std::filesystem::perms;
    EXPECT_EQ(std::filesystem::status(this->file).permissions(),
              perms::owner_read | perms::owner_write);
    EXPECT_EQ(std::filesystem::status(this->directory).permissions(), perms::owner_all);
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultFromAnEmptyFile) {
    this->theFileHolds("");
    this->expectDefaultAndOneLineWith("unexpected end of input");
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultWhereverTheFileWasCut) {
    const std::string whole = TestFixture::Stored::someText();
    for (std::size_t length = 1; length < whole.size(); ++length) {
        SCOPED_TRACE(whole.substr(0, length));
        this->theFileHolds(whole.substr(0, length));
        this->expectDefaultAndOneLineWith("");
    }
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultFromWhatIsNotTheDocument) {
    for (const std::string_view text : {"nonsense",
                                        "\xFF\xFE{}",
                                        "null",
                                        "[]",
                                        "7",
                                        "{}",
                                        R"({"schemaVersion":"1"})",
                                        R"({"schemaVersion":1.5})",
                                        R"({"schemaVersion":1e999})",
                                        R"({"schemaVersion":NaN})"}) {
        SCOPED_TRACE(text);
        this->theFileHolds(text);
        this->expectDefaultAndOneLineWith("");
    }
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultWhenAnotherDocumentFollows) {
    this->theFileHolds(TestFixture::Stored::someText() + "{}");
    this->expectDefaultAndOneLineWith("");
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultFromADeepNest) {
    // Deep enough to overflow the stack of whoever takes 48 bytes for a level.
    this->theFileHolds(std::string(200000, '['));
    this->expectDefaultAndOneLineWith("");
    this->theFileHolds(std::string(200000, '[') + std::string(200000, ']'));
    this->expectDefaultAndOneLineWith("");
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultFromAHugeFile) {
    this->theFileHolds(std::string(kHugeSize, ' ') + TestFixture::Stored::someText());
    this->expectDefaultAndOneLineWith("bytes");
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultFromAFolder) {
    std::filesystem::create_directories(this->file);
    this->expectDefaultAndOneLineWith("Is a directory");
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultFromWhatCannotBeOpened) {
    std::filesystem::create_directories(this->directory);
    std::filesystem::create_symlink(this->file, this->file);
    this->expectDefaultAndOneLineWith("Too many levels of symbolic links");
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultFromAPipeAndWaitsForNobody) {
    std::filesystem::create_directories(this->directory);
    ASSERT_EQ(::mkfifo(this->file.c_str(), 0600), 0);
    this->expectDefaultAndOneLineWith("not a regular file");
}

TYPED_TEST(DocumentStoreTest, quotesADamagedFileOnlyBriefly) {
    this->theFileHolds("\"" + std::string(100000, 'a'));
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    ASSERT_EQ(this->log.lines().size(), 1U);
    EXPECT_LT(this->log.lines().front().size(), 500U);
    EXPECT_THAT(this->log.lines().front(), EndsWith("aaa…), using default"));
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultFromALaterVersionAndNamesTheVersion) {
    this->theFileHolds(TestFixture::Stored::laterVersionText());
    EXPECT_EQ(this->store().load(), TestFixture::Stored::defaultDocument());
    EXPECT_THAT(this->log.lines(), ElementsAre(TestFixture::Stored::kLaterVersionLine));
    EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::laterVersionText() + "/");
}

TYPED_TEST(DocumentStoreTest, toleratesARepeatedKey) {
    std::string text = TestFixture::Stored::someText();
    text.insert(1, R"("schemaVersion":1,)");
    this->theFileHolds(text);
    EXPECT_EQ(this->store().load(), TestFixture::Stored::some());
}

TYPED_TEST(DocumentStoreTest, doesNotKeepWhatItUnderstood) {
    this->theFileHolds(TestFixture::Stored::someText());
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::some());
    store.save(TestFixture::Stored::other());
    EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::otherText() + "/");
}

TYPED_TEST(DocumentStoreTest, keepsNothingWhenThereWasNoFile) {
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    store.save(TestFixture::Stored::some());
    store.save(TestFixture::Stored::other());
    EXPECT_EQ(entryCount(this->directory), 1U);
}

TYPED_TEST(DocumentStoreTest, keepsOnceWhatItCouldNotDecode) {
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

TYPED_TEST(DocumentStoreTest, keepsTheDocumentOfALaterVersion) {
    this->theFileHolds(TestFixture::Stored::laterVersionText());
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    store.save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->kept), TestFixture::Stored::laterVersionText());
}

TYPED_TEST(DocumentStoreTest, keepsAHugeFile) {
    const std::string huge(kHugeSize, ' ');
    this->theFileHolds(huge);
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    store.save(TestFixture::Stored::some());
    EXPECT_EQ(this->store().load(), TestFixture::Stored::some());
    EXPECT_EQ(std::filesystem::file_size(this->kept), huge.size());
}

TYPED_TEST(DocumentStoreTest, keepsWhatIsThereWhenItNeverLoaded) {
    this->theFileHolds(TestFixture::Stored::otherText());
    this->store().save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->kept), TestFixture::Stored::otherText());
}

TYPED_TEST(DocumentStoreTest, keepsAFileThatCouldNotBeReadWhenItWasLoaded) {
    std::filesystem::create_directories(this->directory);
    std::filesystem::create_symlink(this->file, this->file);
    TypeParam store = this->store();
    EXPECT_EQ(store.load(), TestFixture::Stored::defaultDocument());
    std::filesystem::remove(this->file);
    this->theFileHolds(TestFixture::Stored::otherText());
    store.save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->kept), TestFixture::Stored::otherText());
}

TYPED_TEST(DocumentStoreTest, neverOverwritesWhatWasKeptBefore) {
    writeContents(this->kept, "an older list");
    writeContents(this->kept.string() + ".1", "another one");
    this->theFileHolds("my list");
    this->store().save(TestFixture::Stored::some());
    EXPECT_EQ(contentsOf(this->kept), "an older list");
    EXPECT_EQ(contentsOf(this->kept.string() + ".1"), "another one");
    EXPECT_EQ(contentsOf(this->kept.string() + ".2"), "my list");
}

TYPED_TEST(DocumentStoreTest, keepsTheSameBytesOnlyOnce) {
    writeContents(this->kept, "my list");
    this->theFileHolds("my list");
    this->store().save(TestFixture::Stored::some());
    EXPECT_EQ(this->fileAndKept(), TestFixture::Stored::someText() + "/my list");
    EXPECT_EQ(entryCount(this->directory), 2U);
}

TYPED_TEST(DocumentStoreTest, doesNotReplaceWhatItCanNeitherReadNorKeep) {
    std::filesystem::create_directories(this->directory);
    std::filesystem::create_symlink(this->file, this->file);
    TypeParam store = this->store();
    EXPECT_THROW(store.save(TestFixture::Stored::some()), FileError);
    EXPECT_TRUE(std::filesystem::is_symlink(this->file));
}

TYPED_TEST(DocumentStoreTest, doesNotReplaceAFolder) {
    writeContents(this->file / "inside", "precious");
    TypeParam store = this->store();
    EXPECT_THROW(store.save(TestFixture::Stored::some()), FileError);
    EXPECT_EQ(contentsOf(this->file / "inside"), "precious");
}

TYPED_TEST(DocumentStoreTest, doesNotSaveWhenAHundredFilesAreKept) {
    writeContents(this->kept, "0");
    for (int number = 1; number < 100; ++number) {
        writeContents(this->kept.string() + "." + std::to_string(number), "other");
    }
    this->theFileHolds("my list");
    TypeParam store = this->store();
    EXPECT_THROW(store.save(TestFixture::Stored::some()), FileError);
    EXPECT_EQ(contentsOf(this->file), "my list");
}

TYPED_TEST(DocumentStoreTest, doesNotSaveWhenTheFolderCannotBeMade) {
    writeContents(this->folder.path() / "share", "a file where the folder should be");
    TypeParam store = this->store();
    EXPECT_THROW(store.save(TestFixture::Stored::some()), FileError);
}

TYPED_TEST(DocumentStoreTest, leavesTheOldFileWholeWhicheverSystemCallFails) {
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

TYPED_TEST(DocumentStoreTest, losesNothingWhicheverSystemCallFailsWhileItKeepsTheOldFile) {
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
struct DocumentStoreDeathTest : DocumentStoreTest<Store> {};

TYPED_TEST_SUITE(DocumentStoreDeathTest, Stores);

TYPED_TEST(DocumentStoreDeathTest, leavesTheOldFileOrTheNewOneWheneverItIsKilled) {
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
