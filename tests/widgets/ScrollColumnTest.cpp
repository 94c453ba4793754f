// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/PlainButton.h"
#include "Quillbar/widgets/ScrollColumn.h"
#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"

#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <vector>

namespace quillbar {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 100;
constexpr int kButton = 30;
constexpr int kSpacing = 6;
constexpr int kButtons = 8;
constexpr int kAll = kButtons * kButton + (kButtons - 1) * kSpacing;

class Button final : public PlainButton {
public:
    using PlainButton::PlainButton;

protected:
    void drawContent(QPainter& /*painter*/) override {}
};

/// Two lines where it is narrow, which it is not in the column.
class Wrapping final : public QWidget {
public:
    explicit Wrapping(QWidget* parent)
        : QWidget(parent) {
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }
    [[nodiscard]] int heightForWidth(int width) const override { return width < kWidth ? 80 : 40; }
    [[nodiscard]] QSize sizeHint() const override { return minimumSizeHint(); }
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, heightForWidth(0)}; }
};

/// A column of eight buttons, of which not all have room, below a field in a window.
struct ScrollColumnTest : ::testing::Test {
    ScrollColumnTest() {
        ThemeKey::set(window, {.colors = ThemeColors::dark()});
        window.resize(kWidth, 200);
        before->setGeometry(0, 0, kWidth, 20);
        column->setGeometry(0, 50, kWidth, kHeight);
        for (int each = 0; each < kButtons; ++each) {
            auto* const button = new Button(column);
            button->setFixedHeight(kButton);
            column->add(button);
            buttons.push_back(button);
        }
        showActive(window);
        spinUntilIdle();
    }

    void press(Qt::Key key) {
        QTest::keyClick(window.focusWidget(), key);
        spinUntilIdle();
    }
    /// Where a widget begins in what is seen of the column.
    [[nodiscard]] int topOf(const QWidget& widget) const {
        return widget.mapTo(column->viewport(), QPoint()).y();
    }
    [[nodiscard]] bool hasFade(const char* name) const {
        const auto* const fade = column->findChild<QWidget*>(QString::fromLatin1(name));
        return fade != nullptr && fade->isVisible();
    }
    void turnWheel(int notches) {
        QWheelEvent event(QPointF(10, 10),
                          column->mapToGlobal(QPointF(10, 10)),
                          {},
                          QPoint(0, 120 * notches),
                          Qt::NoButton,
                          Qt::NoModifier,
                          Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(column->viewport(), &event);
        spinUntilIdle();
    }

    QWidget window;
    QLineEdit* before = new QLineEdit(&window);
    ScrollColumn* column = new ScrollColumn(kSpacing, &window);
    std::vector<QWidget*> buttons;
};

TEST_F(ScrollColumnTest, asksForTheHeightOfAllThatIsInIt) {
    EXPECT_EQ(column->heightFor(kWidth), kAll);
    EXPECT_EQ(column->sizeHint().height(), kAll);
    EXPECT_LT(column->minimumSizeHint().height(), kHeight);
}

TEST_F(ScrollColumnTest, stacksItsWidgetsOverItsWholeWidth) {
    for (int each = 0; each < kButtons; ++each) {
        const QWidget& button = *buttons[static_cast<std::size_t>(each)];
        EXPECT_EQ(topOf(button), each * (kButton + kSpacing));
        EXPECT_EQ(button.width(), kWidth);
    }
}

TEST_F(ScrollColumnTest, givesLinesThatWrapTheHeightThatTheyNeedAtItsWidth) {
    column->add(new Wrapping(column));
    spinUntilIdle();
    EXPECT_EQ(column->widget()->height(), column->heightFor(kWidth));
    int top = 0;
    for (const QWidget* const button : buttons) {
        EXPECT_EQ(topOf(*button), top);
        top += kButton + kSpacing;
    }
}

TEST_F(ScrollColumnTest, showsAllOfWhatGrowsAroundTheFocus) {
    QWidget& growing = *buttons[1];
    growing.setFocus(Qt::TabFocusReason);
    growing.setFixedHeight(70);
    spinUntilIdle();
    EXPECT_GE(topOf(growing), 0);
    EXPECT_LE(topOf(growing) + 70, kHeight);
    EXPECT_LT(topOf(*buttons[0]), 0) << "it has scrolled";
}

TEST_F(ScrollColumnTest, showsTheFocusWhereWhatGrowsAroundItHasNoRoom) {
    QWidget& growing = *buttons[1];
    growing.setFocus(Qt::TabFocusReason);
    growing.setFixedHeight(2 * kHeight);
    spinUntilIdle();
    EXPECT_GE(topOf(growing), 0);
}

TEST_F(ScrollColumnTest, staysWhereTheUserHasScrolledWhileOtherThingsGrow) {
    buttons[0]->setFocus(Qt::TabFocusReason);
    column->verticalScrollBar()->setValue(80);
    buttons.back()->setFixedHeight(70);
    spinUntilIdle();
    EXPECT_EQ(column->verticalScrollBar()->value(), 80);
    column->scrollToTop();
    EXPECT_EQ(topOf(*buttons[0]), 0);
}

TEST_F(ScrollColumnTest, showsNoBarButAFadeWhereItGoesOn) {
    EXPECT_FALSE(column->verticalScrollBar()->isVisible());
    EXPECT_FALSE(hasFade("upperFade"));
    EXPECT_TRUE(hasFade("lowerFade"));
    column->verticalScrollBar()->setValue(40);
    EXPECT_TRUE(hasFade("upperFade"));
    EXPECT_TRUE(hasFade("lowerFade"));
    column->verticalScrollBar()->setValue(kAll - kHeight);
    EXPECT_TRUE(hasFade("upperFade"));
    EXPECT_FALSE(hasFade("lowerFade"));
    window.resize(kWidth, 50 + kAll);
    column->resize(kWidth, kAll);
    spinUntilIdle();
    EXPECT_FALSE(hasFade("upperFade"));
    EXPECT_FALSE(hasFade("lowerFade"));
}

TEST_F(ScrollColumnTest, theWheelScrollsAndStopsAtTheEnds) {
    turnWheel(-1);
    EXPECT_LT(topOf(*buttons[0]), 0);
    // One event scrolls by a page at most.
    for (int each = 0; each < kButtons; ++each) {
        turnWheel(-1);
    }
    EXPECT_EQ(topOf(*buttons.back()) + kButton, kHeight);
    for (int each = 0; each < kButtons; ++each) {
        turnWheel(1);
    }
    EXPECT_EQ(topOf(*buttons[0]), 0);
}

TEST_F(ScrollColumnTest, whatTheTabKeyReachesIsScrolledIntoViewClearOfTheFade) {
    before->setFocus();
    for (QWidget* const button : buttons) {
        press(Qt::Key_Tab);
        ASSERT_EQ(window.focusWidget(), button);
        const bool isLast = button == buttons.back();
        EXPECT_GE(topOf(*button), 0);
        EXPECT_LE(topOf(*button) + kButton, kHeight - (isLast ? 0 : ScrollFade::kHeight));
    }
    for (auto each = buttons.rbegin() + 1; each != buttons.rend(); ++each) {
        press(Qt::Key_Backtab);
        ASSERT_EQ(window.focusWidget(), *each);
        EXPECT_GE(topOf(**each), *each == buttons.front() ? 0 : ScrollFade::kHeight);
    }
}

TEST_F(ScrollColumnTest, scrollsNoFurtherThanWhatHasTheFocusNeeds) {
    before->setFocus();
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_EQ(topOf(*buttons[0]), 0) << "the second is seen";
    press(Qt::Key_Tab);
    EXPECT_EQ(topOf(*buttons[2]) + kButton, kHeight - ScrollFade::kHeight);
}

TEST_F(ScrollColumnTest, theKeysOfPagesAndEndsScroll) {
    buttons[0]->setFocus();
    press(Qt::Key_PageDown);
    EXPECT_EQ(topOf(*buttons[0]), -kHeight);
    press(Qt::Key_PageUp);
    EXPECT_EQ(topOf(*buttons[0]), 0);
    press(Qt::Key_End);
    EXPECT_EQ(topOf(*buttons.back()) + kButton, kHeight);
    press(Qt::Key_Home);
    EXPECT_EQ(topOf(*buttons[0]), 0);
    press(Qt::Key_Down);
    EXPECT_EQ(topOf(*buttons[0]), 0) << "the arrows belong to what is in the column";
}

TEST_F(ScrollColumnTest, leavesTheKeysToAWidgetThatUsesThem) {
    auto* const field = new QLineEdit(column);
    column->add(field);
    spinUntilIdle();
    field->setText(QStringLiteral("12"));
    field->setFocus();
    spinUntilIdle();
    const int top = topOf(*field);
    press(Qt::Key_Home);
    EXPECT_EQ(field->cursorPosition(), 0);
    EXPECT_EQ(topOf(*field), top);
}

TEST_F(ScrollColumnTest, takesNoMoreThanItNeedsAndFollowsItsWidgets) {
    QWidget other;
    auto* const stack = new QVBoxLayout(&other);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->addWidget(column);
    stack->addStretch();
    other.resize(kWidth, 600);
    other.show();
    spinUntilIdle();
    EXPECT_EQ(column->height(), kAll);
    buttons[0]->setFixedHeight(2 * kButton);
    spinUntilIdle();
    EXPECT_EQ(column->height(), kAll + kButton);
    other.resize(kWidth, 150);
    spinUntilIdle();
    EXPECT_EQ(column->height(), 150);
    column->setParent(&window);
}

TEST_F(ScrollColumnTest, isHigherWhereALineHasToWrap) {
    auto* const line = new QLabel(QStringLiteral("word ").repeated(20), column);
    line->setWordWrap(true);
    column->add(line);
    // Qt shows later what is added to a layout.
    spinUntilIdle();
    EXPECT_GT(column->heightFor(kWidth), column->heightFor(10 * kWidth));
    EXPECT_EQ(column->heightFor(kWidth), kAll + kSpacing + line->heightForWidth(kWidth));
}

}  // namespace
}  // namespace quillbar
