// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/ListHook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Number : ListHook {
    explicit Number(int number)
        : value(number) {}
    int value;
};

std::vector<int> valuesOf(const ListHook& head) {
    std::vector<int> values;
    for (const ListHook* hook = head.next(); hook != &head; hook = hook->next()) {
        values.push_back(static_cast<const Number*>(hook)->value);
    }
    return values;
}

TEST(ListHookTest, isInNoListAtFirst) {
    const ListHook head;
    EXPECT_FALSE(head.isLinked());
    EXPECT_EQ(head.next(), &head);
}

TEST(ListHookTest, appendsInFrontOfTheHeadAndInsertsInFrontOfANode) {
    ListHook head;
    Number first(1);
    Number second(2);
    Number third(3);
    first.insertBefore(head);
    third.insertBefore(head);
    second.insertBefore(third);
    EXPECT_TRUE(head.isLinked());
    EXPECT_TRUE(second.isLinked());
    EXPECT_THAT(valuesOf(head), ElementsAre(1, 2, 3));
}

TEST(ListHookTest, unlinksANodeAndLeavesTheRest) {
    ListHook head;
    Number first(1);
    Number second(2);
    Number third(3);
    first.insertBefore(head);
    second.insertBefore(head);
    third.insertBefore(head);
    second.unlink();
    EXPECT_FALSE(second.isLinked());
    EXPECT_THAT(valuesOf(head), ElementsAre(1, 3));
    second.unlink();
    EXPECT_THAT(valuesOf(head), ElementsAre(1, 3));
    second.insertBefore(head);
    EXPECT_THAT(valuesOf(head), ElementsAre(1, 3, 2));
}

TEST(ListHookTest, leavesItsListWhenDestroyed) {
    ListHook head;
    std::optional<Number> first(std::in_place, 1);
    first->insertBefore(head);
    {
        Number second(2);
        second.insertBefore(head);
    }
    EXPECT_THAT(valuesOf(head), ElementsAre(1));
    first.reset();
    EXPECT_FALSE(head.isLinked());
    EXPECT_THAT(valuesOf(head), IsEmpty());
}

TEST(ListHookTest, mayOutliveItsHead) {
    Number first(1);
    Number second(2);
    {
        ListHook head;
        first.insertBefore(head);
        second.insertBefore(head);
    }
    second.unlink();
    EXPECT_FALSE(first.isLinked());
}

}  // namespace

}  // namespace quillbar
