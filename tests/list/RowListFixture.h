// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowList.h"
#include "tests/list/NamedRow.h"
#include "tests/qtsupport/Pointer.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"

#include <QApplication>
#include <QLineEdit>
#include <QPoint>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// A list of ten rows' height between two fields, with a detail that holds two buttons.
struct RowListFixture : testing::Test {
    static constexpr int kDetailHeight = 210;
    static constexpr int kHeight = 280;

    void SetUp() override {
        auto* const layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        layout->addWidget(before);
        layout->addWidget(list);
        layout->addWidget(after);
        list->setFixedHeight(kHeight);
        window.resize(400, kHeight + 100);
    }
    void TearDown() override { expectConsistent(); }

    void show(std::size_t count) {
        list->setIds(numbered(count));
        showActive(window);
        // With a button held no row is under the pointer.
        pointer::letGo(*list);
    }
    /// The rows that show the pointer over them.
    [[nodiscard]] std::vector<std::string> tinted() const {
        std::vector<std::string> rows;
        for (const std::string& id : list->ids()) {
            if (const ListRow* const row = list->row(id); row != nullptr && row->isHovering()) {
                rows.push_back(id);
            }
        }
        return rows;
    }
    void focus(const std::string& id) { list->row(id)->setFocus(Qt::TabFocusReason); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        expectConsistent();
    }
    void open(const std::optional<std::string>& id) {
        list->setExpanded(id);
        ASSERT_TRUE(spinUntil([this] { return !list->isMoving(); }));
        expectConsistent();
    }
    void wheel(const QPoint& pixels, const QPoint& angle) {
        const QPointF position(200, 100);
        QWheelEvent event(position,
                          list->mapToGlobal(position),
                          pixels,
                          angle,
                          Qt::NoButton,
                          Qt::NoModifier,
                          Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(list, &event);
        expectConsistent();
    }
    void expectConsistent() const { EXPECT_TRUE(list->isConsistent()) << list->brokenRule(); }

    /// What can be seen, from above.
    [[nodiscard]] std::vector<std::string> seen() const {
        std::vector<QWidget*> rows;
        for (NamedRow* const row : widgetsOf<NamedRow>(*list)) {
            if (row->isVisible() && row->geometry().bottom() >= 0 && row->y() < list->height()) {
                rows.push_back(row);
            }
        }
        std::sort(rows.begin(), rows.end(), [](QWidget* a, QWidget* b) { return a->y() < b->y(); });
        std::vector<std::string> names;
        for (QWidget* const row : rows) {
            names.push_back(row->accessibleName().toStdString());
        }
        return names;
    }
    [[nodiscard]] std::string focused() const {
        const QWidget* const widget = QApplication::focusWidget();
        return widget == nullptr ? "nothing" : widget->accessibleName().toStdString();
    }

    int made = 0;
    int presented = 0;
    std::vector<std::string> activated;
    std::vector<std::string> menus;
    QPoint menuPosition;
    std::vector<std::string> forms;
    int settled = 0;

    QWidget window;
    QLineEdit* before = new QLineEdit(&window);
    RowList* list =
        new RowList(RowListContent{
                        .makeRow =
                            [this](QWidget* parent) {
                                ++made;
                                return new NamedRow(presented, parent);
                            },
                        .makeDetail =
                            [](const std::string& id, QWidget* parent) {
                                auto* const detail = new QWidget(parent);
                                detail->setAccessibleName(QStringLiteral("detail ")
                                                          + QString::fromStdString(id));
                                auto* const first = new QPushButton(detail);
                                first->setAccessibleName(QStringLiteral("first"));
                                auto* const second = new QPushButton(detail);
                                second->setGeometry(0, 180, 40, 20);
                                second->setAccessibleName(QStringLiteral("second"));
                                return detail;
                            },
                        .activate = [this](const std::string& id) { activated.push_back(id); },
                        .openMenu =
                            [this](const std::string& id, const QPoint& position) {
                                menus.push_back(id);
                                menuPosition = position;
                            },
                        .openForm = [this](const std::string& id) { forms.push_back(id); },
                        .settled = [this] { ++settled; },
                    },
                    kDetailHeight,
                    &window);
    QLineEdit* after = new QLineEdit(&window);
};

}  // namespace quillbar
