// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/PanelMenu.h"
#include "tests/watchlist/AddCoinViewFixture.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct AddCoinViewTest : AddCoinViewFixture {};

// Layout

TEST_F(AddCoinViewTest, isAFieldOverAnAreaOf200Points) {
    show();
    EXPECT_EQ(view->width(), 280);
    EXPECT_EQ(view->sizeHint().width(), 280);
    EXPECT_EQ(field().pos(), QPoint(8, 8));
    EXPECT_EQ(field().width(), 280 - 2 * 8);
    const int belowTheField = 8 + field().height() + 6;
    EXPECT_EQ(named(*view, QString::fromUtf8(kHint))->pos(), QPoint(4, belowTheField));
    EXPECT_EQ(named(*view, QString::fromUtf8(kHint))->width(), 280 - 2 * 4);
    EXPECT_EQ(view->height(), belowTheField + 200 + 4);
    EXPECT_EQ(field().placeholderText(), QStringLiteral("搜索币种,如 SOL"));
    EXPECT_EQ(named(*view, QString::fromUtf8(kHint))->height(), 200);
    searchFor(QStringLiteral("SOL"));
    EXPECT_EQ(rows().height(), 200);
    EXPECT_EQ(rows().pos(), QPoint(4, belowTheField));
    EXPECT_EQ(view->height(), view->sizeHint().height());
}

TEST_F(AddCoinViewTest, beginsWithTheHintAndTheFocusInTheField) {
    show();
    EXPECT_THAT(area(), ElementsAre(kHint));
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(view->query(), QString());
    EXPECT_THAT(view->results(), IsEmpty());
    EXPECT_EQ(view->errorMessage(), std::nullopt);
    time.advance(Seconds{10});
    EXPECT_EQ(api.exchangeInfoRequests, 0) << "nobody has asked for anything";
}

TEST_F(AddCoinViewTest, speaksToScreenReaders) {
    show();
    EXPECT_EQ(view->accessibleName(), QStringLiteral("添加币种"));
    EXPECT_EQ(field().accessibleName(), QStringLiteral("搜索币种"));
    EXPECT_EQ(rows().accessibleName(), QStringLiteral("搜索结果"));
}

TEST_F(AddCoinViewTest, takesNoEndlessText) {
    show();
    QGuiApplication::clipboard()->setText(QString(1'048'576, QLatin1Char('A')));
    field().paste();
    EXPECT_EQ(view->query().size(), SearchField::kMaximumLength);
    EXPECT_EQ(SearchField::kMaximumLength, 16'385);
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre(kNoMatches));
}

// Look

TEST_F(AddCoinViewTest, followsTheTheme) {
    show();
    searchFor(QStringLiteral("SOL"));
    ThemeKey::set(*view, {.colors = ThemeColors::light()});
    EXPECT_EQ(field().palette().color(QPalette::Text), ThemeColors::light().primaryText);
    const QImage light = pictureOf(*row("SOL"));
    ThemeKey::set(*view, {.colors = ThemeColors::dark()});
    EXPECT_EQ(field().palette().color(QPalette::Text), ThemeColors::dark().primaryText);
    EXPECT_EQ(field().palette().color(QPalette::PlaceholderText),
              ThemeColors::dark().secondaryText);
    EXPECT_NE(pictureOf(*row("SOL")), light);
}

TEST_F(AddCoinViewTest, theOutlineOfTheFieldShowsTheFocus) {
    show();
    searchFor(QStringLiteral("SOL"));
    EXPECT_EQ(pictureOf(field()).pixelColor(100, 0), ThemeColors::dark().accent);
    press(Qt::Key_Down);
    EXPECT_NE(pictureOf(field()).pixelColor(100, 0), ThemeColors::dark().accent);
}

TEST_F(AddCoinViewTest, theMenuOfTheFieldIsChinese) {
    show();
    QGuiApplication::clipboard()->setText(QStringLiteral("ETH"));
    type(QStringLiteral("SOL"));
    field().selectAll();
    QContextMenuEvent event(
        QContextMenuEvent::Mouse, QPoint(5, 5), field().mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&field(), &event);
    auto* const menu = dynamic_cast<PanelMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr) << "it is drawn as the panel is";
    std::vector<std::string> titles;
    for (const QAction* const action : menu->actions()) {
        titles.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        EXPECT_TRUE(action->isEnabled());
    }
    EXPECT_THAT(titles, ElementsAre("剪切", "拷贝", "粘贴", "-", "全选"));
    QTest::mouseClick(
        menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(2)).center());
    spinUntilIdle();
    EXPECT_EQ(view->query(), QStringLiteral("ETH"));
}

}  // namespace
}  // namespace quillbar
