// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/AddCoinButton.h"
#include "Quillbar/watchlist/AddCoinView.h"
#include "Quillbar/widgets/Popover.h"
#include "tests/qtsupport/Ink.h"
#include "tests/watchlist/AddCoinFixture.h"

#include <QInputMethodEvent>

#include <gmock/gmock.h>

#include <memory>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

/// The search in its popover, and an input method that composes text in its field.
struct AddCoinComposingTest : AddCoinFixture {
    void show() {
        startConnected(listOf({"BTC"}));
        theExchangeTrades({"SOL", "SOLV", "BTC", "ETH"});
        panel = std::make_unique<QWidget>();
        panel->setGeometry(100, 100, 320, 400);
        button = new AddCoinButton(environment(), panel.get());
        showActive(*panel);
        QTest::mouseClick(button, Qt::LeftButton);
        spinUntilIdle();
    }

    /// The input method shows `text` as the syllables typed so far.
    void compose(const QString& text) {
        QInputMethodEvent event(text, {});
        QApplication::sendEvent(&field(), &event);
        executor.run();
    }
    /// The input method is done, and hands over `text`.
    void commit(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&field(), &event);
        executor.run();
    }

    [[nodiscard]] static Popover* popover() {
        return dynamic_cast<Popover*>(QApplication::activePopupWidget());
    }
    [[nodiscard]] static bool isOpen() { return popover() != nullptr; }
    [[nodiscard]] QWidget& root() const override { return *popover(); }
    [[nodiscard]] QImage picture() const { return field().grab().toImage(); }

    std::unique_ptr<QWidget> panel;
    AddCoinButton* button = nullptr;
};

TEST_F(AddCoinComposingTest, showsTheSyllablesInPlace) {
    show();
    const QImage empty = picture();
    compose(QStringLiteral("bite"));
    EXPECT_TRUE(field().isComposing());
    EXPECT_NE(picture(), empty);
    EXPECT_EQ(field().text(), QString());
    commit(QStringLiteral("bite"));
    const QRect cursor = field().inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QRect text(0, 0, cursor.left(), field().height());
    const QImage committed = picture().copy(text);
    field().clear();
    compose(QStringLiteral("bite"));
    EXPECT_EQ(difference(picture().copy(text), committed), 0) << "in the field's own type";
}

TEST_F(AddCoinComposingTest, matchesThatComeInBetweenLeaveTheSyllablesAlone) {
    show();
    type(QStringLiteral("SO"));
    compose(QStringLiteral("l"));
    const QImage before = picture();
    time.advance(Seconds{0.3});
    EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT", "SOLV，SOLV/USDT"));
    EXPECT_TRUE(field().isComposing());
    EXPECT_TRUE(field().hasFocus());
    EXPECT_EQ(picture(), before);
    commit(QStringLiteral("LV"));
    EXPECT_EQ(field().text(), QStringLiteral("SOLV"));
}

TEST_F(AddCoinComposingTest, enterCommitsTheSyllablesAndAddsNothing) {
    show();
    for (const auto enter : {Qt::Key_Return, Qt::Key_Enter}) {
        searchFor(QStringLiteral("S"));
        compose(QStringLiteral("ol"));
        press(enter);
        EXPECT_FALSE(field().isComposing());
        EXPECT_EQ(field().text(), QStringLiteral("Sol"));
        time.advance(Seconds{0.3});
        EXPECT_FALSE(isWatched("SOL"));
        EXPECT_THAT(area(), ElementsAre("SOL，SOL/USDT", "SOLV，SOLV/USDT"));
        ASSERT_TRUE(isOpen());
        field().clear();
    }
}

TEST_F(AddCoinComposingTest, enterAfterTheSyllablesPicksTheFirstMatchAsEver) {
    show();
    compose(QStringLiteral("sol"));
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_TRUE(isWatched("SOL"));
    EXPECT_FALSE(isOpen());
}

TEST_F(AddCoinComposingTest, escapeGivesUpTheSyllablesAndNotThePopover) {
    show();
    type(QStringLiteral("SO"));
    compose(QStringLiteral("l"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(field().isComposing());
    EXPECT_EQ(field().text(), QStringLiteral("SO"));
    EXPECT_TRUE(isOpen());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen()) << "as ever";
}

TEST_F(AddCoinComposingTest, theArrowDownStaysInTheFieldWhileItComposes) {
    show();
    searchFor(QStringLiteral("SOL"));
    compose(QStringLiteral("v"));
    press(Qt::Key_Down);
    EXPECT_TRUE(field().hasFocus());
    EXPECT_TRUE(field().isComposing());
    commit(QString());
    press(Qt::Key_Down);
    EXPECT_FALSE(field().hasFocus()) << "as ever";
}

}  // namespace
}  // namespace quillbar
