// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/state/DocumentStoreFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

template <class Store>
struct DocumentStoreTest : DocumentStoreFixture<Store> {};

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
    this->expectDefaultAndOneLineWith("[json.exception.parse_error.101]");
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

TYPED_TEST(DocumentStoreTest, readsNoMoreThanAnyDocumentHas) {
    constexpr std::size_t kGreatest = std::size_t{4} * 1024 * 1024;
    const std::string text = TestFixture::Stored::someText();
    this->theFileHolds(std::string(kGreatest - text.size(), ' ') + text);
    EXPECT_EQ(this->store().load(), TestFixture::Stored::some());
    this->theFileHolds(std::string(kGreatest - text.size() + 1, ' ') + text);
    this->expectDefaultAndOneLineWith("over 4194304 bytes");
}

TYPED_TEST(DocumentStoreTest, loadsTheDefaultFromANestThatWouldTakeAllMemory) {
    this->theFileHolds(std::string(4'000'000, '['));
    this->expectDefaultAndOneLineWith("nested deeper than 64 levels");
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

}  // namespace
}  // namespace quillbar
