// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/DetailFactory.h"
#include "Quillbar/list/RowList.h"
#include "tests/list/NamedRow.h"
#include "tests/qtsupport/Pointer.h"
#include "tests/qtsupport/Widgets.h"

#include <QKeyEvent>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

inline constexpr int kDragRow = TableRow::kHeight;
inline constexpr int kDragHeight = 280;

/// Notes which keys come through to it.
class KeyNotingWindow final : public QWidget {
public:
    std::vector<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
};

/// A list of ten rows' height, 50 points below the upper edge of its window. Lines are those of the
/// view.
struct RowDragFixture : testing::Test {
    void SetUp() override {
        scrollInterval = scrolling().interval();
        // It fires when a test says so.
        scrolling().setInterval(std::chrono::hours(24));
        list->setGeometry(0, 50, 400, kDragHeight);
        window.resize(400, kDragHeight + 100);
    }
    void TearDown() override {
        expectConsistent();
        pointer::letGo(*list);
    }

    void show(std::size_t count) {
        list->setIds(numbered(count));
        showActive(window);
    }

    // The pointer

    void press(const std::string& id, Qt::MouseButton button = Qt::LeftButton) {
        held = id;
        line = list->row(id)->y() + kDragRow / 2;
        pointer::press(*list, {200, line}, button);
    }
    /// To a line of the view.
    void pullTo(int to) {
        line = to;
        pointer::pull(*list, {200, line});
        expectConsistent();
    }
    void pullBy(int points) { pullTo(line + points); }
    void pullToRow(int position) { pullTo(position * kDragRow + kDragRow / 2); }
    void release(Qt::MouseButton button = Qt::LeftButton) {
        pointer::release(*list, {200, line}, button);
        expectConsistent();
    }
    /// From where a row stands to another place, without letting it go.
    void drag(const std::string& id, int position) {
        press(id);
        pullToRow(position);
        ASSERT_EQ(list->lifted(), id);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window.windowHandle(), key, modifiers);
        expectConsistent();
    }

    // The timer that scrolls

    [[nodiscard]] QTimer& scrolling() const {
        return *list->findChild<QTimer*>(QStringLiteral("dragScroll"));
    }
    void scrollOnce() {
        ASSERT_TRUE(scrolling().isActive());
        QMetaObject::invokeMethod(&scrolling(), "timeout");
        expectConsistent();
    }

    // What is seen

    void expectConsistent() const { EXPECT_TRUE(list->isConsistent()) << list->brokenRule(); }
    [[nodiscard]] int top(const std::string& id) const { return list->row(id)->y(); }
    /// The rows but the one that is held, from above, with "-" for the gap.
    [[nodiscard]] std::vector<std::string> others() const {
        std::vector<std::string> places(list->ids().size(), "-");
        for (const std::string& id : list->ids()) {
            if (id != list->lifted()) {
                places.at(static_cast<std::size_t>((top(id) + list->scrollOffset()) / kDragRow)) =
                    id;
            }
        }
        return places;
    }

    std::vector<std::pair<std::string, std::size_t>> moved;
    std::vector<std::string> menus;
    int presented = 0;
    bool isMovable = true;
    /// As the list has it, in milliseconds.
    int scrollInterval = 0;
    std::string held;
    int line = 0;

    KeyNotingWindow window;
    RowList* list = new RowList(
        RowListContent{
            .makeRow = [this](QWidget* parent) { return new NamedRow(presented, parent); },
            .makeDetail = [](const std::string& /*id*/,
                             QWidget* parent) { return new QWidget(parent); },
            .activate = [](const std::string& /*id*/) {},
            .openMenu = [this](const std::string& id,
                               const QPoint& /*position*/) { menus.push_back(id); },
            .settled = [] {},
            .drag = {.canMove = [this](const std::string& /*id*/) { return isMovable; },
                     .moved =
                         [this](const std::string& id, std::size_t before) {
                             moved.emplace_back(id, before);
                             std::vector<std::string> ids = list->ids();
                             ids.insert(ids.begin() + static_cast<int>(before), "new");
                             std::erase(ids, id);
                             std::replace(ids.begin(), ids.end(), std::string("new"), id);
                             list->setIds(std::move(ids));
                         }},
        },
        kDetailHeight,
        &window);
};

}  // namespace quillbar
