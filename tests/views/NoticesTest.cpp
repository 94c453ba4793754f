// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/GlyphButton.h"
#include "Quillbar/NoticeLines.h"
#include "Quillbar/Notices.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/views/Widgets.h"

#include <QFontMetrics>
#include <QLabel>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kPanelWidth = 400;

TEST(NoticesTest, standInTheirOrderHoweverTheyCame) {
    Notices notices;
    notices.add(Notice::noTray);
    notices.add(Notice::noChineseFont);
    notices.add(Notice::noSessionBus);
    EXPECT_THAT(*notices.standing(),
                ElementsAre(Notice::noChineseFont, Notice::noSessionBus, Notice::noTray));
}

TEST(NoticesTest, areToldOnceAndGoOnce) {
    Notices notices;
    int changes = 0;
    const Observation observation =
        notices.standing().observe([&changes](const auto& /*standing*/) { ++changes; });
    notices.add(Notice::noTray);
    notices.add(Notice::noTray);
    EXPECT_THAT(*notices.standing(), ElementsAre(Notice::noTray));
    notices.remove(Notice::noTray);
    notices.remove(Notice::noTray);
    EXPECT_THAT(*notices.standing(), IsEmpty());
    EXPECT_EQ(changes, 2);
}

TEST(NoticesTest, theMissingFontIsToldInLatinLettersToo) {
    EXPECT_TRUE(Notices::text(Notice::noChineseFont)
                    .contains(QStringLiteral("(no font for Chinese): install fonts-noto-cjk")));
}

TEST(NoticesTest, theMissingTrayIsToldWithItsRemedy) {
    EXPECT_TRUE(Notices::text(Notice::noTray)
                    .contains(QStringLiteral("AppIndicator and KStatusNotifierItem Support")));
}

struct NoticeLinesTest : ::testing::Test {
    NoticeLines& show() {
        lines = new NoticeLines(&notices, &window);
        window.resize(kPanelWidth, 300);
        window.show();
        settle();
        return *lines;
    }

    void settle() {
        spinUntilIdle();
        lines->resize(kPanelWidth, lines->heightForWidth(kPanelWidth));
        spinUntilIdle();
    }

    [[nodiscard]] std::vector<QString> texts() const {
        std::vector<QString> found;
        for (const QLabel* const label : widgetsOf<QLabel>(*lines)) {
            if (label->isVisible()) {
                found.push_back(label->text());
            }
        }
        return found;
    }

    Notices notices;
    QWidget window;
    NoticeLines* lines = nullptr;
};

TEST_F(NoticeLinesTest, areHiddenWhileThereIsNothingToTell) {
    EXPECT_FALSE(show().isVisible());
    notices.add(Notice::noTray);
    EXPECT_TRUE(lines->isVisible());
    EXPECT_THAT(texts(), ElementsAre(Notices::text(Notice::noTray)));
    notices.remove(Notice::noTray);
    EXPECT_FALSE(lines->isVisible());
}

TEST_F(NoticeLinesTest, areHiddenWhereNobodyTakesNotice) {
    const NoticeLines none(nullptr, &window);
    window.show();
    EXPECT_FALSE(none.isVisible());
}

TEST_F(NoticeLinesTest, tellWhatStoodBeforeTheyWereShown) {
    notices.add(Notice::noSessionBus);
    notices.add(Notice::noChineseFont);
    show();
    EXPECT_THAT(
        texts(),
        ElementsAre(Notices::text(Notice::noChineseFont), Notices::text(Notice::noSessionBus)));
}

TEST_F(NoticeLinesTest, showTheWholeTextWithinThePanel) {
    notices.add(Notice::noChineseFont);
    notices.add(Notice::noSessionBus);
    notices.add(Notice::noTray);
    show();
    for (const QLabel* const label : widgetsOf<QLabel>(*lines)) {
        EXPECT_EQ(label->width(), kPanelWidth);
        EXPECT_GE(label->height(), label->heightForWidth(kPanelWidth));
        const auto* const button = widgetsOf<GlyphButton>(*label).at(0);
        const QRect text = label->contentsRect();
        EXPECT_LT(text.right(), button->geometry().left());
        const QRect needed =
            QFontMetrics(label->font()).boundingRect(text, Qt::TextWordWrap, label->text());
        EXPECT_LE(needed.height(), text.height());
    }
}

TEST_F(NoticeLinesTest, goOneByOneAtTheirButton) {
    notices.add(Notice::noSessionBus);
    notices.add(Notice::noTray);
    show();
    const auto* const line = named(*lines, Notices::text(Notice::noSessionBus));
    ASSERT_NE(line, nullptr);
    auto* const button = widgetsOf<GlyphButton>(*line).at(0);
    QTest::mouseClick(button, Qt::LeftButton);
    settle();
    EXPECT_THAT(*notices.standing(), ElementsAre(Notice::noTray));
    EXPECT_THAT(texts(), ElementsAre(Notices::text(Notice::noTray)));
}

TEST_F(NoticeLinesTest, eachButtonSaysWhatItSendsAway) {
    notices.add(Notice::noSessionBus);
    notices.add(Notice::noTray);
    show();
    for (const Notice told : *notices.standing()) {
        const QString text = Notices::text(told);
        const auto* const button = widgetsOf<GlyphButton>(*named(*lines, text)).at(0);
        EXPECT_EQ(button->toolTip(), QStringLiteral("关闭提示"));
        EXPECT_EQ(button->accessibleName(), QStringLiteral("关闭提示, ") + text);
    }
}

TEST_F(NoticeLinesTest, canBeSentAwayByTheKeyboard) {
    notices.add(Notice::noTray);
    show();
    showActive(window);
    QTest::keyClick(&window, Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_THAT(*notices.standing(), IsEmpty());
}

TEST_F(NoticeLinesTest, areWrittenInTheThemesWarningColour) {
    notices.add(Notice::noTray);
    show();
    for (const auto& colors : {ThemeColors::dark(), ThemeColors::light()}) {
        ThemeKey::set(window, {.colors = colors});
        const auto* const label = widgetsOf<QLabel>(*lines).at(0);
        EXPECT_EQ(label->palette().color(QPalette::WindowText), colors.warning);
    }
}

}  // namespace

}  // namespace quillbar
