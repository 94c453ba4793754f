// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/AddCoinButton.h"
#include "Quillbar/watchlist/AddCoinView.h"
#include "Quillbar/widgets/Popover.h"
#include "tests/watchlist/AddCoinFixture.h"

#include <QLineEdit>
#include <QPointer>
#include <QWindow>

#include <gmock/gmock.h>

#include <memory>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

/// The button in a window, as the panel has it.
struct AddCoinButtonTest : AddCoinFixture {
    void show() {
        startConnected(listOf({"BTC"}));
        theExchangeTrades({"BTC", "SOL"});
        window = std::make_unique<QWidget>();
        window->setGeometry(100, 100, 400, 300);
        button = new AddCoinButton(environment(), window.get());
        button->move(340, 8);
        other = new QLineEdit(window.get());
        other->setGeometry(10, 200, 100, 30);
        showActive(*window);
        other->setFocus();
    }

    /// The window system tells of a click on the button, whatever is open above it.
    void clickButton() {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, button->geometry().center());
        spinUntilIdle();
    }
    [[nodiscard]] static Popover* popover() {
        return dynamic_cast<Popover*>(QApplication::activePopupWidget());
    }
    [[nodiscard]] QWidget& root() const override { return *popover(); }

    std::unique_ptr<QWidget> window;
    AddCoinButton* button = nullptr;
    QLineEdit* other = nullptr;
};

TEST_F(AddCoinButtonTest, saysWhatItDoes) {
    show();
    EXPECT_EQ(button->accessibleName(), QStringLiteral("添加币种"));
    EXPECT_EQ(button->toolTip(), QStringLiteral("添加币种"));
}

TEST_F(AddCoinButtonTest, opensTheSearchInAPopover) {
    show();
    EXPECT_FALSE(button->isOpen());
    clickButton();
    EXPECT_TRUE(button->isOpen());
    ASSERT_NE(popover(), nullptr);
    EXPECT_EQ(popover()->accessibleName(), QStringLiteral("添加币种"));
    EXPECT_EQ(popover()->width(), 280);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_THAT(area(), ElementsAre("输入币种代号开始搜索"));
}

TEST_F(AddCoinButtonTest, aSecondPressClosesIt) {
    show();
    clickButton();
    clickButton();
    EXPECT_FALSE(button->isOpen());
    EXPECT_EQ(popover(), nullptr);
    clickButton();
    EXPECT_TRUE(button->isOpen());
    button->click();
    EXPECT_FALSE(button->isOpen()) << "not by the pointer either";
}

TEST_F(AddCoinButtonTest, aCoinIsFoundAddedAndThePopoverCloses) {
    show();
    clickButton();
    const QPointer<Popover> first = popover();
    searchFor(QStringLiteral("SOL"));
    EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT"));
    click("SOL");
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_FALSE(button->isOpen());
    EXPECT_EQ(popover(), nullptr);
    EXPECT_TRUE(spinUntil([&] { return first.isNull(); }));
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(AddCoinButtonTest, everyOpeningStartsAfresh) {
    show();
    clickButton();
    searchFor(QStringLiteral("SOL"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(button->isOpen());
    EXPECT_TRUE(window->isVisible());
    clickButton();
    EXPECT_EQ(field().text(), QString());
    EXPECT_THAT(area(), ElementsAre("输入币种代号开始搜索"));
}

TEST_F(AddCoinButtonTest, aCoinThatIsAddedLateClosesNoLaterPopover) {
    show();
    clickButton();
    searchFor(QStringLiteral("SOL"));
    auto prices = api.ticker24hAnswers.held();
    click("SOL");
    press(Qt::Key_Escape);
    clickButton();
    prices.setValue({});
    executor.run();
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_TRUE(button->isOpen());
}

TEST_F(AddCoinButtonTest, aCoinThatIsAddedRightAfterTheClosingClosesNoLaterPopover) {
    show();
    clickButton();
    searchFor(QStringLiteral("SOL"));
    auto prices = api.ticker24hAnswers.held();
    click("SOL");
    button->click();
    button->click();
    ASSERT_TRUE(button->isOpen());
    prices.setValue({});
    executor.run();
    EXPECT_TRUE(button->isOpen());
}

TEST_F(AddCoinButtonTest, theKeyboardOpensItAndGetsBackToTheButton) {
    show();
    button->setFocus(Qt::TabFocusReason);
    const QImage ring = pictureOf(*button);
    QTest::keyClick(button, Qt::Key_Return);
    ASSERT_TRUE(button->isOpen());
    EXPECT_TRUE(field().hasFocus());
    press(Qt::Key_Escape);
    EXPECT_TRUE(button->hasFocus());
    EXPECT_EQ(pictureOf(*button), ring) << "with its ring";
}

TEST_F(AddCoinButtonTest, closesWithThePanel) {
    show();
    clickButton();
    window->hide();
    EXPECT_FALSE(button->isOpen());
    EXPECT_EQ(popover(), nullptr);
}

TEST_F(AddCoinButtonTest, followsTheThemeOfThePanelWhileOpen) {
    show();
    clickButton();
    ThemeKey::set(*window, {.colors = ThemeColors::light()});
    EXPECT_EQ(field().palette().color(QPalette::Text), ThemeColors::light().primaryText);
}

TEST_F(AddCoinButtonTest, goesInTheMiddleOfASearch) {
    show();
    clickButton();
    auto catalog = api.exchangeInfoAnswers.held();
    searchFor(QStringLiteral("SOL"));
    window.reset();
    EXPECT_EQ(popover(), nullptr);
    catalog.setValue(listOf({"SOL"}).coins);
    executor.run();
}

}  // namespace
}  // namespace quillbar
