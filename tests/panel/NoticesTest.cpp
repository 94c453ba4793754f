// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/NoticeLines.h"
#include "Quillbar/panel/Notices.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"

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
    EXPECT_EQ(Notices::text(Notice::noChineseFont),
              QStringLiteral("缺少中文字体 (no font for Chinese): install fonts-noto-cjk, then "
                             "restart Quillbar"));
}

TEST(NoticesTest, theMissingBusIsToldWithItsRemedy) {
    EXPECT_EQ(
        Notices::text(Notice::noSessionBus),
        QStringLiteral("没有会话总线（D-Bus），大多数状态栏无法显示 Quillbar。请从桌面会话中启动；"
                       "按 Ctrl+Q 退出"));
}

TEST(NoticesTest, theMissingTrayIsToldWithItsRemedy) {
    EXPECT_EQ(
        Notices::text(Notice::noTray),
        QStringLiteral("桌面没有可用的状态栏，面板以窗口打开。GNOME 请启用扩展 AppIndicator and "
                       "KStatusNotifierItem Support；再次启动 Quillbar 可重新打开面板，"
                       "按 Ctrl+Q 退出"));
}

TEST(NoticesTest, theFirstStartIsToldOfTheDoubleClickOfGnome) {
    EXPECT_EQ(Notices::text(Notice::firstStart),
              QStringLiteral("价格在状态栏里，点一下（GNOME 上双击）打开面板。看不到时，"
                             "请展开状态栏里隐藏的图标，在状态栏的设置里让 Quillbar 一直显示；"
                             "再次启动 Quillbar 也会打开面板"));
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

TEST_F(NoticeLinesTest, keepTwelvePointsAtTheirSidesAndFourAboveAndBelow) {
    notices.add(Notice::noTray);
    notices.add(Notice::noSessionBus);
    show();
    const std::vector<QLabel*> labels = widgetsOf<QLabel>(*lines);
    const QLabel* const label = labels.at(0);
    const auto* const button = widgetsOf<GlyphButton>(*label).at(0);
    EXPECT_EQ(label->font(), systemFont(10.5));
    // The glyph of eight points stands twelve from the edge, its button six.
    EXPECT_EQ(button->geometry(), QRect(kPanelWidth - 6 - 20, 1, 20, 20));
    EXPECT_EQ(label->contentsRect(), label->rect().adjusted(12, 4, -26, -4));
    EXPECT_EQ(labels.at(1)->y(), label->geometry().bottom() + 1 + 1) << "a line between the two";
}

TEST_F(NoticeLinesTest, growWithTheTextSize) {
    notices.add(Notice::noTray);
    show();
    ThemeKey::set(window, {.colors = ThemeColors::dark(), .scale = 1.3});
    spinUntilIdle();
    const QLabel* const label = widgetsOf<QLabel>(*lines).at(0);
    EXPECT_EQ(label->contentsRect().left(), 16);
    // Six and twenty points at 100 %.
    EXPECT_EQ(widgetsOf<GlyphButton>(*label).at(0)->geometry(), QRect(kPanelWidth - 34, 1, 26, 26));
}

TEST_F(NoticeLinesTest, standOnAFaintGroundInTheThemesWarningColour) {
    notices.add(Notice::noTray);
    show();
    auto& label = *widgetsOf<QLabel>(*lines).at(0);
    widgetsOf<GlyphButton>(label).at(0)->hide();
    const ThemeColors::Resolved& colors = ThemeKey::value(label).colors;
    QImage expected(1, 1, QImage::Format_ARGB32_Premultiplied);
    expected.fill(colors.surface);
    QColor ground = colors.warning;
    ground.setAlphaF(0.1F);
    QPainter(&expected).fillRect(0, 0, 1, 1, ground);
    const QImage picture = pictureOf(label);
    for (const QPoint corner : {QPoint(0, 0), QPoint(399, 0), QPoint(0, picture.height() - 1)}) {
        EXPECT_EQ(picture.pixelColor(corner), expected.pixelColor(0, 0));
    }
}

TEST_F(NoticeLinesTest, areSentAwayByACrossOfEightPoints) {
    notices.add(Notice::noTray);
    show();
    auto& button = *widgetsOf<GlyphButton>(*lines).at(0);
    const ThemeColors::Resolved& colors = ThemeKey::value(button).colors;
    QImage expected(20, 20, QImage::Format_ARGB32_Premultiplied);
    expected.fill(colors.surface);
    {
        QPainter painter(&expected);
        drawGlyph(painter, Glyph::xmark, QRectF(6, 6, 8, 8), colors.secondaryText);
    }
    EXPECT_EQ(pictureOf(button), expected);
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
        EXPECT_EQ(button->accessibleName(), QStringLiteral("关闭提示，") + text);
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
