// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/JSONDocument.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

namespace quillbar {
namespace {

using JSONDocument::compactText;
using JSONDocument::parse;

std::string refusalOf(std::string_view text) {
    try {
        static_cast<void>(parse(text));
    } catch (const DocumentError& error) {
        return error.what();
    }
    return "none";
}

TEST(JSONDocument, keepsTheOrderOfKeysAndWritesNoSpaces) {
    EXPECT_EQ(compactText(parse(R"( { "b" : 1 , "a" : [ true , null ] } )")),
              R"({"b":1,"a":[true,null]})");
}

TEST(JSONDocument, refusesWhatIsNotExactlyOneJSONValueInUTF8) {
    for (const char* const text : {"",
                                   " ",
                                   "{",
                                   "{\"a\":1}x",
                                   "{} {}",
                                   "[1,]",
                                   "{\"a\":01}",
                                   "{'a':1}",
                                   "nan",
                                   "/* */ 1",
                                   "\"\xff\"",
                                   R"("\ud800")",
                                   "1e999"}) {
        EXPECT_THROW(static_cast<void>(parse(text)), DocumentError) << text;
    }
    using namespace std::string_literals;
    EXPECT_EQ(refusalOf("{}\0"s), "a zero byte in the text");
    EXPECT_EQ(refusalOf("{}\0\0x"s), "a zero byte in the text");
}

TEST(JSONDocument, refusesToWriteWhatIsNotUTF8) {
    nlohmann::ordered_json value;
    value["symbol"] = "\xff\xfe";
    EXPECT_THROW(static_cast<void>(compactText(value)), DocumentError);
}

TEST(JSONDocument, findsAMemberThatIsThereAndNotNull) {
    const auto object = parse(R"({"a":1,"b":null,"A":2})");
    ASSERT_NE(JSONDocument::optionalMember(object, "a"), nullptr);
    EXPECT_EQ(*JSONDocument::optionalMember(object, "a"), 1);
    EXPECT_EQ(JSONDocument::optionalMember(object, "b"), nullptr);
    EXPECT_EQ(JSONDocument::optionalMember(object, "c"), nullptr);
    EXPECT_THROW(static_cast<void>(JSONDocument::optionalMember(parse("[]"), "a")), DocumentError);
}

TEST(JSONDocument, readsTheNumberOfAKey) {
    const auto object = parse(R"({"whole":3,"part":-0.5,"text":"3","flag":true})");
    EXPECT_EQ(JSONDocument::requiredNumber(object, "whole"), 3);
    EXPECT_EQ(JSONDocument::requiredNumber(object, "part"), -0.5);
    for (const char* const key : {"text", "flag", "none"}) {
        EXPECT_THROW(static_cast<void>(JSONDocument::requiredNumber(object, key)), DocumentError)
            << key;
    }
}

TEST(JSONDocument, readsTheTruthOfAKey) {
    const auto object = parse(R"({"yes":true,"no":false,"text":"true","number":1,"null":null})");
    EXPECT_TRUE(JSONDocument::requiredTruth(object, "yes"));
    EXPECT_FALSE(JSONDocument::requiredTruth(object, "no"));
    for (const char* const key : {"text", "number", "null", "none"}) {
        EXPECT_THROW(static_cast<void>(JSONDocument::requiredTruth(object, key)), DocumentError)
            << key;
    }
}

TEST(JSONDocument, refusesAnObjectWithMoreKeysThanAnyOfOurs) {
    const auto objectOf = [](int keys) {
        std::string text = R"({"inner":{"a":1})";
        for (int key = 1; key < keys; ++key) {
            text += ",\"" + std::to_string(key) + "\":0";
        }
        return text + "}";
    };
    EXPECT_EQ(parse(objectOf(1000)).size(), 1000U);
    EXPECT_EQ(refusalOf(objectOf(1001)), "more than 1000 keys in an object");
    // Many more are refused as soon as the limit is passed, not after minutes.
    EXPECT_EQ(refusalOf(objectOf(200'000)), "more than 1000 keys in an object");
}

TEST(JSONDocument, readsALongListOfObjectsOnce) {
    // Reading the list again at each object's end would take minutes.
    constexpr std::size_t kLength = 200'000;
    std::string text = "[{}";
    for (std::size_t index = 1; index < kLength; ++index) {
        text += ",{}";
    }
    EXPECT_EQ(parse(text + "]").size(), kLength);
}

TEST(JSONDocument, refusesWhatIsNestedDeeperThanAnyOfOurs) {
    EXPECT_EQ(refusalOf(std::string(64, '[') + std::string(64, ']')), "none");
    // The deepest would exhaust the stack, and then the memory.
    for (const std::size_t depth : {65U, 200'000U, 16'000'000U}) {
        EXPECT_EQ(refusalOf(std::string(depth, '[')), "nested deeper than 64 levels");
    }
    std::string objects = "[";
    for (int depth = 1; depth < 65; ++depth) {
        objects += R"({"inner":)";
    }
    EXPECT_EQ(refusalOf(objects), "nested deeper than 64 levels");
}

TEST(JSONDocument, refusesMoreValuesThanAnyOfOurs) {
    const auto listOf = [](std::size_t length) {
        std::string text = "[0";
        for (std::size_t index = 1; index < length; ++index) {
            text += ",0";
        }
        return text + "]";
    };
    // The list is one more.
    EXPECT_EQ(refusalOf(listOf(999'999)), "none");
    EXPECT_EQ(refusalOf(listOf(1'000'000)), "more than 1000000 values");
}

}  // namespace
}  // namespace quillbar
