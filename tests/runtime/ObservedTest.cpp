// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Observed.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

struct ObservedTest : ::testing::Test {
    Observation observe(const std::string& name) {
        return value.observe([this, name](int to) { note(name, to); });
    }
    void note(const std::string& name, int to) { events.push_back(fmt::format("{}:{}", name, to)); }

    std::vector<std::string> events;
    Observed<int> value{1};
};

TEST_F(ObservedTest, holdsItsValue) {
    EXPECT_EQ(value.get(), 1);
    EXPECT_EQ(*value, 1);
    EXPECT_EQ(*Observed<int>(), 0);
    EXPECT_EQ(Observed<std::string>("text")->size(), 4U);
}

TEST_F(ObservedTest, tellsEveryObserverOfAChangeInTheirOrder) {
    const auto a = observe("a");
    const auto b = observe("b");
    EXPECT_THAT(events, IsEmpty());
    value.set(2);
    EXPECT_THAT(events, ElementsAre("a:2", "b:2"));
    EXPECT_EQ(*value, 2);
}

TEST_F(ObservedTest, doesNotTellOfAnEqualValue) {
    const auto a = observe("a");
    value.set(1);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ObservedTest, endsAnObservationWithItsHandle) {
    {
        const auto a = observe("a");
        value.set(2);
    }
    value.set(3);
    EXPECT_THAT(events, ElementsAre("a:2"));
}

TEST_F(ObservedTest, endsAnObservationWhoseHandleIsAssignedAnother) {
    auto handle = observe("a");
    handle = observe("b");
    value.set(2);
    EXPECT_THAT(events, ElementsAre("b:2"));
    handle = Observation();
    value.set(3);
    EXPECT_THAT(events, ElementsAre("b:2"));
}

TEST_F(ObservedTest, letsAnObserverEndItsOwnObservation) {
    Observation own;
    own = value.observe([&](int to) {
        note("own", to);
        own.disconnect();
    });
    const auto b = observe("b");
    value.set(2);
    value.set(3);
    EXPECT_THAT(events, ElementsAre("own:2", "b:2", "b:3"));
}

TEST_F(ObservedTest, letsAnObserverEndALaterOne) {
    Observation later;
    const auto first = value.observe([&](int to) {
        note("first", to);
        later.disconnect();
    });
    later = observe("later");
    value.set(2);
    EXPECT_THAT(events, ElementsAre("first:2"));
}

TEST_F(ObservedTest, letsAnObserverBeginAnObservationThatIsToldOfTheNextChange) {
    std::optional<Observation> added;
    const auto first = value.observe([&](int to) {
        note("first", to);
        if (!added) {
            added.emplace(observe("added"));
        }
    });
    value.set(2);
    EXPECT_THAT(events, ElementsAre("first:2"));
    value.set(3);
    EXPECT_THAT(events, ElementsAre("first:2", "first:3", "added:3"));
}

TEST_F(ObservedTest, tellsLaterObserversOnlyTheNewestValueWhenAnObserverSetsIt) {
    const auto before = observe("before");
    const auto correcting = value.observe([&](int to) {
        if (to > 10) {
            value.set(10);
        }
    });
    const auto after = observe("after");
    value.set(50);
    EXPECT_THAT(events, ElementsAre("before:50", "before:10", "after:10", "after:10"));
    EXPECT_EQ(*value, 10);
}

TEST_F(ObservedTest, mayBeDestroyedBeforeItsObservations) {
    std::optional<Observed<int>> shortLived(std::in_place, 1);
    auto observation = shortLived->observe([](int /*to*/) {});
    EXPECT_TRUE(observation.connected());
    shortLived.reset();
    EXPECT_FALSE(observation.connected());
    observation.disconnect();
}

TEST_F(ObservedTest, mayBeDestroyedByAnObserverAndTellsNobodyAfterThat) {
    std::optional<Observed<std::string>> shortLived(std::in_place, "one");
    const auto first = shortLived->observe([&](const std::string& /*to*/) { shortLived.reset(); });
    // Two more: only from the second on does the signal look at itself again.
    int told = 0;
    const auto second = shortLived->observe([&](const std::string& /*to*/) { ++told; });
    const auto third = shortLived->observe([&](const std::string& /*to*/) { ++told; });
    shortLived->set("two");
    EXPECT_EQ(told, 0);
}

struct ObservedMapTest : ::testing::Test {
    Observation observeAll() {
        return map.observe([this](const std::string& key) {
            const int* const value = map.find(key);
            events.push_back(value != nullptr ? fmt::format("{}={}", key, *value) : "no " + key);
        });
    }

    std::vector<std::string> events;
    ObservedMap<std::string, int> map;
};

TEST_F(ObservedMapTest, holdsItsValues) {
    EXPECT_EQ(map.find("a"), nullptr);
    map.set("a", 1);
    map.set("b", 2);
    ASSERT_NE(map.find("a"), nullptr);
    EXPECT_EQ(*map.find("a"), 1);
    EXPECT_EQ(map->size(), 2U);
    EXPECT_THAT(*map, UnorderedElementsAre(Pair("a", 1), Pair("b", 2)));
    EXPECT_THAT(map.get(), UnorderedElementsAre(Pair("a", 1), Pair("b", 2)));
}

TEST_F(ObservedMapTest, tellsWhichKeyHasChanged) {
    const auto all = observeAll();
    map.set("a", 1);
    map.set("b", 2);
    map.set("a", 3);
    map.remove("b");
    EXPECT_THAT(events, ElementsAre("a=1", "b=2", "a=3", "no b"));
}

TEST_F(ObservedMapTest, doesNotTellOfWhatDoesNotChange) {
    map.set("a", 1);
    const auto all = observeAll();
    map.set("a", 1);
    map.remove("b");
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ObservedMapTest, tellsOfEveryKeyWhenItIsCleared) {
    map.set("a", 1);
    map.set("b", 2);
    const auto all = observeAll();
    map.clear();
    EXPECT_THAT(events, UnorderedElementsAre("no a", "no b"));
    EXPECT_THAT(*map, IsEmpty());
    map.clear();
    EXPECT_EQ(events.size(), 2U);
}

TEST_F(ObservedMapTest, mayBeFilledAgainByAnObserverWhileItIsCleared) {
    map.set("a", 1);
    const auto keeping = map.observe([this](const std::string& key) {
        if (map.find(key) == nullptr) {
            map.set(key, 9);
        }
    });
    map.clear();
    EXPECT_THAT(*map, ElementsAre(Pair("a", 9)));
}

// Long enough to live on the heap, so that a dangling reference to one is found out.
const std::string kLongKey(64, 'k');

TEST_F(ObservedMapTest, removesAKeyGivenByAReferenceIntoItself) {
    map.set(kLongKey, 1);
    const auto all = observeAll();
    map.remove(map->begin()->first);
    EXPECT_THAT(events, ElementsAre("no " + kLongKey));
}

TEST_F(ObservedMapTest, mayBeDestroyedBeforeItsObservations) {
    std::optional<ObservedMap<std::string, int>> shortLived(std::in_place);
    const auto observation = shortLived->observe([](const std::string& /*key*/) {});
    shortLived.reset();
    EXPECT_FALSE(observation.connected());
}

TEST_F(ObservedMapTest, mayBeDestroyedByAnObserverAndTellsNobodyAfterThat) {
    std::optional<ObservedMap<std::string, int>> shortLived(std::in_place);
    const auto first = shortLived->observe([&](const std::string& /*key*/) { shortLived.reset(); });
    int told = 0;
    const auto second = shortLived->observe([&](const std::string& /*key*/) { ++told; });
    const auto third = shortLived->observe([&](const std::string& /*key*/) { ++told; });
    shortLived->set("a", 1);
    EXPECT_EQ(told, 0);
}

TEST_F(ObservedMapTest, mayBeDestroyedByAnObserverWhileItTellsOfManyKeys) {
    std::optional<ObservedMap<std::string, int>> shortLived(std::in_place);
    for (const char* const key : {"a", "b", "c"}) {
        shortLived->set(key, 1);
    }
    int told = 0;
    const auto first = shortLived->observe([&](const std::string& /*key*/) {
        ++told;
        shortLived.reset();
    });
    const auto second = shortLived->observe([&](const std::string& /*key*/) { ++told; });
    const auto third = shortLived->observe([&](const std::string& /*key*/) { ++told; });
    shortLived->clear();
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(third.connected());
}

}  // namespace

}  // namespace quillbar
