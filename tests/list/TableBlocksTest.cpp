// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/ChangeText.h"
#include "Quillbar/list/ColumnHeader.h"
#include "Quillbar/list/NumericCell.h"
#include "Quillbar/list/SortableHeader.h"
#include "Quillbar/list/TableRow.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/RingIn.h"
#include "tests/qtsupport/Widgets.h"

#include <QImage>
#include <QWindow>

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

/// A widget of a fixed width that takes the height it is given.
QWidget* column(int width, QWidget* parent) {
    auto* const widget = new QWidget(parent);
    widget->setFixedWidth(width);
    return widget;
}

// TableRow

TEST(TableRowTest, isOf28PointsWithItsContentSixApartAndTwelveFromTheEdges) {
    TableRow row;
    QWidget* const first = column(16, &row);
    auto* const flexible = new QWidget(&row);
    QWidget* const last = column(62, &row);
    row.addContent(first);
    row.addContent(flexible, 1);
    row.addContent(last);
    row.addGap(14);
    row.resize(400, TableRow::kHeight);
    row.show();
    EXPECT_EQ(row.height(), 28);
    EXPECT_EQ(first->geometry(), QRect(12, 0, 16, 28));
    EXPECT_EQ(flexible->x(), 12 + 16 + 6);
    EXPECT_EQ(last->geometry(), QRect(400 - 12 - 14 - 6 - 62, 0, 62, 28));
    EXPECT_EQ(flexible->geometry().right() + 1 + 6, last->x());
}

TEST(TableRowTest, isTintedWhileThePointerIsOverIt) {
    TableRow row;
    row.resize(100, TableRow::kHeight);
    const auto background = [&row] {
        QImage image(row.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        row.render(&image, {}, {}, QWidget::DrawChildren);
        EXPECT_EQ(image.pixelColor(0, 0), image.pixelColor(99, 27));
        return image.pixelColor(0, 0).alpha();
    };
    EXPECT_EQ(background(), 0);
    row.setAlternate(true);
    EXPECT_EQ(background(), Roles(ThemeColors::dark()).rowAlternate.alpha());
    pointerEnters(row);
    EXPECT_TRUE(row.isHovering());
    EXPECT_EQ(background(), Roles(ThemeColors::dark()).rowHover.alpha());
    pointerLeaves(row);
    EXPECT_FALSE(row.isHovering());
    EXPECT_EQ(background(), Roles(ThemeColors::dark()).rowAlternate.alpha());
}

TEST(TableRowTest, itsRingKeepsClearOfItsNeighbours) {
    QWidget window;
    window.resize(200, 60);
    TableRow row(&window);
    row.setFocusPolicy(Qt::TabFocus);
    row.resize(200, TableRow::kHeight);
    showActive(window);
    row.clearFocus();
    row.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(pictureOf(row), ringIn(QRectF(2, 1, 196, 26), {200, 28}, ThemeColors::dark()));
}

TEST(TableRowTest, aRowThatIsHiddenIsNoLongerUnderThePointer) {
    TableRow row;
    row.show();
    pointerEnters(row);
    row.hide();
    EXPECT_FALSE(row.isHovering());
}

TEST(TableRowTest, isPaintedWhenItLooksDifferent) {
    QWidget window;
    window.resize(200, 60);
    TableRow row(&window);
    row.resize(200, TableRow::kHeight);
    window.show();
    ASSERT_TRUE(spinUntil([&window] { return window.windowHandle()->isExposed(); }));
    for (const bool value : {true, false}) {
        EXPECT_EQ(paintsOf(row, [&] { row.setAlternate(value); }), 1);
        EXPECT_EQ(paintsOf(row, [&] { row.setAlternate(value); }), 0);
    }
    EXPECT_EQ(paintsOf(row, [&] { pointerEnters(row); }), 1);
    EXPECT_EQ(paintsOf(row, [&] { row.setReactsToPointer(false); }), 1);
    EXPECT_EQ(paintsOf(row, [&] { row.setReactsToPointer(false); }), 0);
    EXPECT_EQ(paintsOf(row, [&] { row.setReactsToPointer(true); }), 1);
    EXPECT_EQ(paintsOf(row, [&] { pointerLeaves(row); }), 1);
}

// ColumnHeader

TEST(ColumnHeaderTest, standsOverTheColumnsOfTheRows) {
    ColumnHeader header;
    header.addGap(16);
    header.addFlexibleTitle(QStringLiteral("币种"));
    header.addTitle(QStringLiteral("成交额"), 64);
    header.addGap(14);
    header.resize(400, ColumnHeader::kHeight);
    header.show();
    EXPECT_EQ(header.height(), 20);
    const QWidget* const volume = named(header, QStringLiteral("成交额"));
    ASSERT_NE(volume, nullptr);
    EXPECT_EQ(volume->geometry().left(), 400 - 12 - 14 - 6 - 64);
    EXPECT_EQ(volume->width(), 64);
    EXPECT_EQ(named(header, QStringLiteral("币种"))->x(), 12 + 16 + 6);
}

TEST(ColumnHeaderTest, hasASeparatorAlongItsBottomEdge) {
    ColumnHeader header;
    header.resize(100, ColumnHeader::kHeight);
    QImage image(header.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    header.render(&image, {}, {}, QWidget::DrawChildren);
    EXPECT_EQ(image.pixelColor(0, 19).alpha(), ThemeColors::dark().separator.alpha());
    EXPECT_EQ(image.pixelColor(99, 19).alpha(), ThemeColors::dark().separator.alpha());
    EXPECT_EQ(image.pixelColor(50, 18).alpha(), 0);
}

TEST(NumericCellTest, repaintsOnlyWhenWhatItShowsChanges) {
    QWidget window;
    auto* const cell = new NumericCell(82, 12, &window);
    cell->setText(QStringLiteral("1.00"));
    window.show();
    ASSERT_TRUE(spinUntil([&window] { return window.windowHandle()->isExposed(); }));
    EXPECT_EQ(paintsOf(*cell, [=] { cell->setText(QStringLiteral("1.00")); }), 0);
    EXPECT_EQ(paintsOf(*cell, [=] { cell->setText(QStringLiteral("2.00")); }), 1);
    EXPECT_EQ(paintsOf(*cell, [=] { cell->setColor(&Roles::secondaryText); }), 0);
    EXPECT_EQ(paintsOf(*cell, [=] { cell->setColor(&Roles::up); }), 1);
}

TEST(NumericCellTest, aNumberTooWideForItsColumnIsWrittenSmaller) {
    NumericCell cell(82, 12);
    cell.resize(82, 28);
    cell.setText(QStringLiteral("123,456,789,012.00"));
    const QImage picture = pictureOf(cell);
    const QRgb surface = ThemeColors::dark().surface.rgba();
    for (int y = 0; y < picture.height(); ++y) {
        EXPECT_EQ(picture.pixel(0, y), surface) << "cut off at the left in line " << y;
    }
}

TEST(ChangeTextTest, itsColourTellsWhereThePriceWent) {
    ChangeText change(62);
    EXPECT_EQ(change.width(), 62);
    EXPECT_EQ(change.text(), QStringLiteral("—"));
    EXPECT_EQ(change.color(), &Roles::secondaryText);
    change.setPercent(2.5);
    EXPECT_EQ(change.text(), QStringLiteral("+2.50%"));
    EXPECT_EQ(change.color(), &Roles::up);
    change.setPercent(-2.5);
    EXPECT_EQ(change.text(), QStringLiteral("-2.50%"));
    EXPECT_EQ(change.color(), &Roles::down);
    change.setPercent(0.0);
    EXPECT_EQ(change.text(), QStringLiteral("0.00%"));
    EXPECT_EQ(change.color(), &Roles::secondaryText);
    change.setPercent(0.001);
    EXPECT_EQ(change.text(), QStringLiteral("+0.00%"));
    EXPECT_EQ(change.color(), &Roles::up);
    change.setPercent(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(change.color(), &Roles::secondaryText);
    change.setPercent(std::nullopt);
    EXPECT_EQ(change.text(), QStringLiteral("—"));
}

// SortableHeader

TEST(SortableHeaderTest, itsRingKeepsClearOfTheArrow) {
    QWidget window;
    window.resize(200, 40);
    auto* const header = new ColumnHeader(&window);
    header->addFlexibleTitle(QStringLiteral("币种"));
    SortableHeader* const column = header->addSortable(QStringLiteral("价格"), 82);
    header->addGap(14);
    header->resize(200, ColumnHeader::kHeight);
    showActive(window);
    column->setDirection(SortDirection::descending);
    column->clearFocus();
    const QImage without = pictureOf(*header);
    column->setFocus(Qt::TabFocusReason);
    const QImage with = pictureOf(*header);
    const QRect place = column->geometry();
    EXPECT_EQ(with.copy(place.adjusted(0, 3, 0, -3)), without.copy(place.adjusted(0, 3, 0, -3)));
    EXPECT_EQ(with.pixelColor(place.right() + 3, 9), ThemeColors::dark().accent);
    EXPECT_EQ(with.pixelColor(place.left() - 3, 9), ThemeColors::dark().accent);
    EXPECT_EQ(with.pixelColor(place.right() + 1, 9), ThemeColors::dark().surface);
    PaintCount painted(*header);
    column->clearFocus();
    spinUntilIdle();
    EXPECT_GT(painted.count, 0) << "the ring goes with the focus";
    EXPECT_EQ(pictureOf(*header), without);
}

TEST(SortableHeaderTest, tellsTheDirectionAloud) {
    SortableHeader header(QStringLiteral("价格"), 82);
    EXPECT_EQ(header.width(), 82);
    EXPECT_EQ(header.toolTip(), QStringLiteral("点击排序:降序 → 升序 → 手动顺序"));
    EXPECT_EQ(header.accessibleName(), QStringLiteral("价格"));
    header.setDirection(SortDirection::descending);
    EXPECT_EQ(header.accessibleName(), QStringLiteral("价格，降序"));
    header.setDirection(SortDirection::ascending);
    EXPECT_EQ(header.accessibleName(), QStringLiteral("价格，升序"));
    header.setDirection(std::nullopt);
    EXPECT_EQ(header.accessibleName(), QStringLiteral("价格"));
}

}  // namespace
}  // namespace quillbar
