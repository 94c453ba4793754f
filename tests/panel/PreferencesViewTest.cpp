// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/ErrorLine.h"
#include "Quillbar/panel/PreferencesView.h"
#include "Quillbar/widgets/ChangePalette.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "Quillbar/widgets/Heading.h"
#include "Quillbar/widgets/ScrollColumn.h"
#include "tests/panel/PanelFixture.h"
#include "tests/qtsupport/Ink.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScrollBar>

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

const QString kGear = QStringLiteral("设置");
const QString kBack = QStringLiteral("返回");
const QString kGreenUp = QStringLiteral("绿涨红跌");
const QString kRedUp = QStringLiteral("红涨绿跌");
const QString kBlueUp = QStringLiteral("蓝涨橙跌");

/// The panel over two coins, one of which rises, with the keyboard.
struct PreferencesViewTest : PanelFixture {
    PanelView& open() {
        startConnected(listOf({"BTC", "ETH"}));
        showActive(show());
        return *panel;
    }
    void openPage(Qt::FocusReason reason = Qt::OtherFocusReason) {
        open().showPreferences(reason);
        spinUntilIdle();
    }
    [[nodiscard]] bool isPageShown() const { return shown<PreferencesView>() != nullptr; }
    [[nodiscard]] bool isListShown() const { return shown<RowList>() != nullptr; }
    void press(Qt::Key key) {
        QWidget* const focus = panel->focusWidget();
        QTest::keyClick(focus == nullptr ? panel.get() : focus, key);
        spinUntilIdle();
    }
    [[nodiscard]] bool isChosen(const QString& name) const {
        return dynamic_cast<QAbstractButton&>(*named(*panel, name)).isChecked();
    }
    /// Where the label of this text begins; absent while there is none.
    [[nodiscard]] std::optional<int> leftOf(const char* text) const {
        for (const QLabel* const label : widgetsOf<QLabel>(*panel)) {
            if (label->isVisible() && label->text() == QString::fromUtf8(text)) {
                return label->mapTo(panel.get(), QPoint()).x();
            }
        }
        return std::nullopt;
    }
    /// Whether the widget's picture has that colour somewhere.
    [[nodiscard]] static bool shows(QWidget& widget, const QColor& color) {
        const QImage picture = pictureOf(widget).convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == color) {
                    return true;
                }
            }
        }
        return false;
    }
};

TEST_F(PreferencesViewTest, takesThePlaceOfAllBelowTheHeader) {
    open();
    const QSize size = panel->sizeHint();
    const RowList* const shownList = shown<RowList>();
    EXPECT_FALSE(isPageShown());
    panel->showPreferences();
    spinUntilIdle();
    EXPECT_TRUE(isPageShown());
    EXPECT_FALSE(isListShown());
    EXPECT_EQ(shown<UnderlineTabs>(), nullptr);
    EXPECT_EQ(named(*panel, kGear), nullptr);
    EXPECT_EQ(named(*panel, QStringLiteral("添加币种")), nullptr);
    EXPECT_EQ(panel->sizeHint().width(), size.width());
    EXPECT_GE(panel->sizeHint().height(), size.height());
    const QSize list = shownList->size();
    panel->closePreferences();
    EXPECT_EQ(shownList->size(), list) << "nor is it squeezed for a moment, which would scroll it";
    spinUntilIdle();
    EXPECT_FALSE(isPageShown());
    EXPECT_TRUE(isListShown());
    EXPECT_NE(named(*panel, kGear), nullptr);
    EXPECT_EQ(named(*panel, kBack), nullptr);
    EXPECT_EQ(panel->sizeHint(), size);
}

TEST_F(PreferencesViewTest, theHeaderNamesThePage) {
    openPage();
    EXPECT_TRUE(leftOf("偏好设置"));
    EXPECT_FALSE(leftOf("Quillbar"));
    panel->closePreferences();
    EXPECT_FALSE(leftOf("偏好设置"));
    EXPECT_TRUE(leftOf("Quillbar"));
}

TEST_F(PreferencesViewTest, theArrowStandsAtTheEdgeOfTheTextsAndLeavesTheHeaderAsItWas) {
    openPage();
    QWidget& back = *named(*panel, kBack);
    const QRect ink = boundsOfInk(pictureOf(back), ThemeColors::dark().surface);
    EXPECT_NEAR(back.mapTo(panel.get(), ink.topLeft()).x(), 12, 1);
    EXPECT_EQ(back.size(), QSize(24, 24));
    EXPECT_EQ(back.toolTip(), kBack);
    panel->closePreferences();
    spinUntilIdle();
    EXPECT_EQ(leftOf("Quillbar"), 12);
}

TEST_F(PreferencesViewTest, aPanelWithoutCoinsGrowsAsFarAsThePageNeeds) {
    startConnected(Watchlist{});
    showActive(show());
    const int small = panel->sizeHint().height();
    panel->showPreferences();
    EXPECT_GT(panel->sizeHint().height(), small);
    panel->resize(panel->sizeHint());
    spinUntilIdle();
    EXPECT_GE(shown<ChoiceList>()->height(), 3 * ChoiceList::kRowHeight);
    panel->closePreferences();
    EXPECT_EQ(panel->sizeHint().height(), small);
}

TEST_F(PreferencesViewTest, isOpenedByTheGear) {
    open();
    click(kGear);
    ASSERT_NE(menu(), nullptr);
    for (QAction* const entry : menu()->actions()) {
        if (entry->text() == QStringLiteral("偏好设置…")) {
            QTest::mouseClick(menu(), Qt::LeftButton, {}, menu()->actionGeometry(entry).center());
            break;
        }
    }
    spinUntilIdle();
    EXPECT_TRUE(isPageShown());
}

TEST_F(PreferencesViewTest, closesTheMenuOrTheSearchThatIsOpenOverTheList) {
    open();
    for (const QString& opener : {kGear, QStringLiteral("添加币种")}) {
        click(opener);
        ASSERT_NE(QApplication::activePopupWidget(), nullptr) << opener.toStdString();
        panel->showPreferences();
        spinUntilIdle();
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << opener.toStdString();
        EXPECT_TRUE(isPageShown());
        panel->closePreferences();
        spinUntilIdle();
    }
}

TEST_F(PreferencesViewTest, theArrowGoesBack) {
    openPage();
    click(kBack);
    EXPECT_FALSE(isPageShown());
    EXPECT_TRUE(isListShown());
}

TEST_F(PreferencesViewTest, escapeGoesBackAndOnlyThenClosesThePanel) {
    struct Window final : QWidget {
        void keyPressEvent(QKeyEvent* event) override { escapes += event->key() == Qt::Key_Escape; }
        int escapes = 0;
    };
    open();
    Window window;
    panel->setParent(&window);
    panel->show();
    showActive(window);
    panel->showPreferences();
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(isPageShown());
    EXPECT_EQ(window.escapes, 0);
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(window.escapes, 1);
    // Before the window that it is in.
    panel.reset();
}

TEST_F(PreferencesViewTest, showsWhatIsStored) {
    PreferencesStore(folder.path()).save({1, ChangeColors::blueUp});
    startConnected(listOf({"BTC"}));
    PreferencesState stored{PreferencesStore(folder.path())};
    PreferencesView view(stored, [] { return ColorScheme::dark; });
    view.show();
    EXPECT_TRUE(dynamic_cast<QAbstractButton&>(*named(view, kBlueUp)).isChecked());
    EXPECT_FALSE(dynamic_cast<QAbstractButton&>(*named(view, kGreenUp)).isChecked());
}

TEST_F(PreferencesViewTest, aChoiceHoldsAtOnceInTheWholePanel) {
    openPage();
    EXPECT_TRUE(isChosen(kGreenUp));
    click(kRedUp);
    EXPECT_TRUE(isChosen(kRedUp));
    EXPECT_EQ(preferences.preferences()->changeColors, ChangeColors::redUp);
    EXPECT_EQ(PreferencesStore(folder.path()).load().changeColors, ChangeColors::redUp);
    EXPECT_EQ(ThemeKey::value(*panel).colors,
              ThemeColors::of(ColorScheme::dark, ChangeColors::redUp));
    state->setAppearance(AppearanceMode::light);
    EXPECT_EQ(ThemeKey::value(*panel).colors,
              ThemeColors::of(ColorScheme::light, ChangeColors::redUp));
}

TEST_F(PreferencesViewTest, aPanelBeginsInTheColorsThatAreStored) {
    preferences.setChangeColors(ChangeColors::blueUp);
    open();
    EXPECT_EQ(colors(), ThemeColors::of(ColorScheme::dark, ChangeColors::blueUp));
}

TEST_F(PreferencesViewTest, followsAChoiceThatIsMadeElsewhere) {
    openPage();
    preferences.setChangeColors(ChangeColors::blueUp);
    EXPECT_TRUE(isChosen(kBlueUp));
    EXPECT_FALSE(isChosen(kGreenUp));
}

TEST_F(PreferencesViewTest, rowsOfTheListFollowTheChoice) {
    open();
    price("BTC", 110);
    spinUntilIdle();
    QWidget& row = *shown<RowList>()->row(symbolOf("BTC"));
    const auto rising = [](ChangeColors choice) {
        return ThemeColors::of(ColorScheme::dark, choice).up;
    };
    EXPECT_TRUE(shows(row, rising(ChangeColors::greenUp)));
    preferences.setChangeColors(ChangeColors::redUp);
    EXPECT_TRUE(shows(row, rising(ChangeColors::redUp)));
    EXPECT_FALSE(shows(row, rising(ChangeColors::greenUp)));
}

TEST_F(PreferencesViewTest, whatWentWrongStaysRedWhileLossesAreGreen) {
    preferences.setChangeColors(ChangeColors::redUp);
    open();
    files.breakAll();
    state->setAppearance(AppearanceMode::light);
    spinUntilIdle();
    EXPECT_EQ(shown<ErrorLine>()->palette().color(QPalette::WindowText), QColor(207, 58, 58));
}

TEST_F(PreferencesViewTest, eachChoiceShowsItsColorsInThePanelsShade) {
    openPage();
    const auto showsItsColors = [this](const QString& name, ChangeColors choice) {
        for (const auto ground :
             {ChangePalette::Ground::darkPanel, ChangePalette::Ground::lightPanel}) {
            const bool isDark = ground == ChangePalette::Ground::darkPanel;
            state->setAppearance(isDark ? AppearanceMode::dark : AppearanceMode::light);
            const ChangePalette palette = ChangePalette::of(choice, ground);
            if (!shows(*named(*panel, name), palette.up)
                || !shows(*named(*panel, name), palette.down)) {
                return false;
            }
        }
        return true;
    };
    EXPECT_TRUE(showsItsColors(kGreenUp, ChangeColors::greenUp));
    EXPECT_TRUE(showsItsColors(kRedUp, ChangeColors::redUp));
    EXPECT_TRUE(showsItsColors(kBlueUp, ChangeColors::blueUp));
}

TEST_F(PreferencesViewTest, saysWhatCouldNotBeSavedUntilItIs) {
    const QString text = QStringLiteral("偏好设置未能保存到磁盘");
    openPage();
    EXPECT_EQ(named(*panel, text), nullptr);
    files.breakAll();
    click(kRedUp);
    EXPECT_NE(named(*panel, text), nullptr);
    EXPECT_TRUE(isChosen(kRedUp));
    files.repair();
    click(kBlueUp);
    EXPECT_EQ(named(*panel, text), nullptr);
}

TEST_F(PreferencesViewTest, theKeyboardReachesEverythingAndChooses) {
    openPage(Qt::TabFocusReason);
    EXPECT_EQ(focused(), kGreenUp);
    EXPECT_TRUE(hasRing(kGreenUp));
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), kRedUp);
    EXPECT_EQ(preferences.preferences()->changeColors, ChangeColors::redUp);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("100%"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("简体中文"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("币种 价格 涨跌"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), QStringLiteral("固定的币种"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), kBack);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), kRedUp);
    press(Qt::Key_Backtab);
    press(Qt::Key_Return);
    EXPECT_FALSE(isPageShown());
}

TEST_F(PreferencesViewTest, eachSectionBeginsWithAHeading) {
    openPage();
    const Heading* const heading = shown<Heading>();
    ASSERT_NE(heading, nullptr);
    EXPECT_EQ(heading->text(), QStringLiteral("颜色"));
    EXPECT_EQ(leftOf("颜色").value_or(0) + heading->contentsMargins().left(), 12);
    EXPECT_LT(heading->mapTo(panel.get(), QPoint()).y(),
              shown<ChoiceList>()->mapTo(panel.get(), QPoint()).y());
}

TEST_F(PreferencesViewTest, scrollsInAPanelThatIsTooLowForIt) {
    openPage(Qt::TabFocusReason);
    panel->resize(PanelView::kWidth, shown<PreferencesView>()->y() + 80);
    spinUntilIdle();
    const ScrollColumn& column = *shown<ScrollColumn>();
    EXPECT_LT(column.height(), column.heightFor(column.width()));
    const auto isSeen = [&](const QString& name) {
        const QWidget& row = *named(*panel, name);
        const int top = row.mapTo(&column, QPoint()).y();
        return top >= 0 && top + row.height() <= column.height();
    };
    EXPECT_FALSE(isSeen(kBlueUp));
    shown<ScrollColumn>()->verticalScrollBar()->setValue(100);
    panel->closePreferences();
    panel->showPreferences(Qt::TabFocusReason);
    spinUntilIdle();
    EXPECT_EQ(shown<ScrollColumn>()->verticalScrollBar()->value(), 0) << "it opens at its top";
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), kBlueUp);
    EXPECT_TRUE(isSeen(kBlueUp));
    press(Qt::Key_Home);
    EXPECT_FALSE(isSeen(kBlueUp));
}

TEST_F(PreferencesViewTest, whatCouldNotBeSavedIsNotScrolledAway) {
    openPage();
    panel->resize(PanelView::kWidth, shown<PreferencesView>()->y() + 100);
    files.breakAll();
    click(kRedUp);
    const QWidget& error = *named(*panel, QStringLiteral("偏好设置未能保存到磁盘"));
    EXPECT_TRUE(panel->rect().contains(QRect(error.mapTo(panel.get(), QPoint()), error.size())));
    EXPECT_FALSE(shown<ScrollColumn>()->isAncestorOf(&error));
}

TEST_F(PreferencesViewTest, asksForRoomForWhatCouldNotBeSavedToo) {
    start();
    // With the first sections alone, because the whole page has its greatest height already.
    const PreferencesView page(preferences, [] { return ColorScheme::dark; });
    const int before = page.heightFor(PanelView::kWidth);
    ASSERT_LT(before, PreferencesView::kMaxHeight);
    files.breakAll();
    preferences.setChangeColors(ChangeColors::redUp);
    EXPECT_GT(page.heightFor(PanelView::kWidth), before);
}

TEST_F(PreferencesViewTest, opensWithoutARingForAClick) {
    openPage();
    EXPECT_EQ(focused(), kGreenUp);
    EXPECT_FALSE(hasRing(kGreenUp));
}

TEST_F(PreferencesViewTest, theFocusGoesBackToWhatHadIt) {
    open();
    named(*panel, kGear)->setFocus(Qt::TabFocusReason);
    panel->showPreferences(Qt::TabFocusReason);
    press(Qt::Key_Escape);
    EXPECT_EQ(focused(), kGear);
    EXPECT_TRUE(hasRing(kGear));
}

TEST_F(PreferencesViewTest, isShownAndClosedOnceOnly) {
    open();
    named(*panel, kGear)->setFocus(Qt::TabFocusReason);
    panel->showPreferences();
    panel->showPreferences();
    panel->closePreferences();
    EXPECT_EQ(focused(), kGear) << "not the page itself";
    named(*panel, QStringLiteral("自选"))->setFocus(Qt::TabFocusReason);
    panel->closePreferences();
    EXPECT_EQ(focused(), QStringLiteral("自选"));
}

TEST_F(PreferencesViewTest, aPanelThatIsAWindowKeepsItsMark) {
    openPage();
    panel->setStandalone(true);
    EXPECT_NE(named(*panel, QStringLiteral("关闭面板")), nullptr);
}

}  // namespace
}  // namespace quillbar
