// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/EntryMenu.h"

#include <QAction>
#include <QMenu>

#include <gmock/gmock.h>

#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;

struct EntryMenuTest : ::testing::Test {
    void fill(const std::vector<MenuEntry>& entries) {
        fillMenu(menu, entries, [this](int id) { clicked.push_back(id); });
    }
    [[nodiscard]] QAction* action(qsizetype index) const { return menu.actions().at(index); }

    QMenu menu;
    std::vector<int> clicked;
};

TEST_F(EntryMenuTest, showsEveryKindOfEntry) {
    fill({MenuEntry{.id = 1, .label = QStringLiteral("a & b")},
          MenuEntry{.id = 2, .kind = MenuEntry::Kind::separator},
          MenuEntry{.id = 3,
                    .label = QStringLiteral("more"),
                    .kind = MenuEntry::Kind::submenu,
                    .children = {MenuEntry{.id = 4, .label = QStringLiteral("below")}}},
          MenuEntry{.id = 5, .label = QStringLiteral("grey"), .isEnabled = false}});
    ASSERT_EQ(menu.actions().size(), 4);
    EXPECT_EQ(action(0)->text(), QStringLiteral("a && b"));
    EXPECT_TRUE(action(1)->isSeparator());
    EXPECT_EQ(action(2)->menu()->actions().size(), 1);
    EXPECT_FALSE(action(3)->isEnabled());
}

TEST_F(EntryMenuTest, marksWhatIsOn) {
    fill({MenuEntry{.id = 1, .mark = MenuEntry::Mark::check, .isOn = true},
          MenuEntry{.id = 2, .mark = MenuEntry::Mark::radio},
          MenuEntry{.id = 3}});
    EXPECT_TRUE(action(0)->isChecked());
    EXPECT_EQ(action(0)->actionGroup(), nullptr);
    EXPECT_TRUE(action(1)->isCheckable());
    EXPECT_FALSE(action(1)->isChecked());
    EXPECT_NE(action(1)->actionGroup(), nullptr);
    EXPECT_FALSE(action(2)->isCheckable());
}

TEST_F(EntryMenuTest, tellsWhatIsChosen) {
    fill({MenuEntry{.id = 1},
          MenuEntry{.id = 2, .kind = MenuEntry::Kind::submenu, .children = {MenuEntry{.id = 3}}}});
    action(0)->trigger();
    action(1)->menu()->actions().first()->trigger();
    EXPECT_THAT(clicked, ElementsAre(1, 3));
}

TEST_F(EntryMenuTest, whatOnlySaysSomethingCannotBeChosen) {
    fill({MenuEntry{.id = 1, .label = QStringLiteral("title"), .kind = MenuEntry::Kind::header},
          MenuEntry{.id = 2, .label = QStringLiteral("word"), .kind = MenuEntry::Kind::notice},
          MenuEntry{.id = 3}});
    EXPECT_FALSE(action(0)->isEnabled());
    EXPECT_EQ(entryKindOf(*action(0)), MenuEntry::Kind::header);
    EXPECT_FALSE(action(1)->isEnabled());
    EXPECT_EQ(entryKindOf(*action(1)), MenuEntry::Kind::notice);
    EXPECT_EQ(entryKindOf(*action(2)), MenuEntry::Kind::action);
    EXPECT_EQ(entryKindOf(QAction()), MenuEntry::Kind::action);
}

TEST_F(EntryMenuTest, forgetsTheEntriesBefore) {
    fill({MenuEntry{.id = 1, .kind = MenuEntry::Kind::submenu}});
    fill({MenuEntry{.id = 2}});
    EXPECT_EQ(menu.actions().size(), 1);
    EXPECT_EQ(menu.findChildren<QMenu*>().size(), 0);
}

}  // namespace

}  // namespace quillbar
