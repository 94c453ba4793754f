// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/AlertForm.h"
#include "Quillbar/watchlist/SearchField.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/TextButton.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "tests/qtsupport/UsedLanguage.h"
#include "tests/qtsupport/ViewFixture.h"
#include "tests/qtsupport/Widgets.h"

#include <QScrollArea>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quillbar {
namespace {

/// The form of BTC in a window by itself: what its parts say, and how they look.
struct AlertFormPartsTest : ViewFixture {
    void openWithoutAPrice() {
        startConnected(listOf({"BTC"}));
        alerts();
        form = std::make_unique<AlertForm>(environment(), coinOf("BTC"), [this] { ++dismissed; });
        form->resize(form->sizeHint());
        showActive(*form);
    }
    /// BTC costs 102 after 100.
    void open() {
        openWithoutAPrice();
        price("BTC", 102);
        spinUntilIdle();
    }
    template <class Widget>
    [[nodiscard]] Widget& part(const char* name) const {
        return dynamic_cast<Widget&>(*named(*form, QString::fromUtf8(name)));
    }
    [[nodiscard]] SearchField& value() const {
        return part<SearchField>("提醒的价格，或带百分号的 24 小时涨跌");
    }
    [[nodiscard]] SearchField& margin() const { return part<SearchField>("往回多少后可再次提醒"); }
    /// The label that says this; null when none does.
    [[nodiscard]] ThemedLabel* label(const char* text) const {
        for (ThemedLabel* const each : widgetsOf<ThemedLabel>(*form)) {
            if (each->isVisible() && each->text() == QString::fromUtf8(text)) {
                return each;
            }
        }
        return nullptr;
    }
    /// What is said below the field.
    [[nodiscard]] std::string meaning() const {
        return value().accessibleDescription().toStdString();
    }
    void addAlert(const std::string& note) {
        ASSERT_TRUE(alerts().add(
            {.symbol = "BTCUSDT", .baseAsset = "BTC", .threshold = 110, .note = note}));
        spinUntilIdle();
        form->resize(form->sizeHint());
        spinUntilIdle();
    }
    [[nodiscard]] const ThemeColors::Resolved& colors() const {
        return ThemeKey::value(*form).colors;
    }
    /// A choice as it should look, on the ground that it has when it is hovered or chosen.
    [[nodiscard]] QImage choice(const QString& text, bool isChosen, const QColor& ground) const {
        QImage image(60, 22, QImage::Format_ARGB32_Premultiplied);
        image.fill(colors().surface);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(image.rect(), 4, 4);
        painter.setFont(systemFont(10.5, isChosen ? QFont::DemiBold : QFont::Normal));
        painter.setPen(isChosen ? colors().accent : colors().secondaryText);
        painter.drawText(image.rect(), Qt::AlignCenter, text);
        return image;
    }

    int dismissed = 0;
    std::unique_ptr<AlertForm> form;
};

TEST_F(AlertFormPartsTest, saysAboveTheFieldWhatThePriceIs) {
    openWithoutAPrice();
    EXPECT_NE(label("BTC 价格提醒"), nullptr);
    EXPECT_NE(label("现价 —"), nullptr);
    price("BTC", 102);
    EXPECT_NE(label("现价 102.00 · 24 小时 +2.00%"), nullptr);
}

TEST_F(AlertFormPartsTest, saysBelowTheFieldWhyThereIsNoLine) {
    openWithoutAPrice();
    EXPECT_EQ(meaning(), "输入价格，或带 % 的 24 小时涨跌");
    value().setText(QStringLiteral("110"));
    EXPECT_EQ(meaning(), "还没有价格，请稍后再试");
    price("BTC", 110);
    EXPECT_EQ(meaning(), "现在就是这个数；高于它提醒上涨，低于它提醒下跌");
    value().setText(QStringLiteral("a"));
    EXPECT_EQ(meaning(), "不是价格，也不是带 % 的涨跌");
    ThemedLabel* const said = label("不是价格，也不是带 % 的涨跌");
    ASSERT_NE(said, nullptr);
    EXPECT_EQ(said->accessibleName(), said->text());
}

TEST_F(AlertFormPartsTest, tellsWhatIsWrongInRed) {
    open();
    const auto colorOfMeaning = [this] {
        return label(meaning().c_str())->palette().color(QPalette::WindowText);
    };
    value().setText(QStringLiteral("a"));
    EXPECT_EQ(colorOfMeaning(), colors().danger);
    value().setText(QStringLiteral("110"));
    EXPECT_EQ(colorOfMeaning(), colors().secondaryText);
    QTest::mouseClick(&part<QAbstractButton>("重复"), Qt::LeftButton);
    margin().setText(QStringLiteral("110"));
    EXPECT_EQ(colorOfMeaning(), colors().danger);
    margin().setText(QStringLiteral("1%"));
    EXPECT_EQ(colorOfMeaning(), colors().secondaryText);
    value().clear();
    EXPECT_EQ(colorOfMeaning(), colors().secondaryText);
}

TEST_F(AlertFormPartsTest, theMarginHasATitleWhileItCanBeFilledIn) {
    open();
    EXPECT_EQ(label("往回"), nullptr);
    QTest::mouseClick(&part<QAbstractButton>("重复"), Qt::LeftButton);
    ASSERT_NE(label("往回"), nullptr);
    EXPECT_LT(label("往回")->geometry().right(), margin().geometry().left());
    EXPECT_GE(label("往回")->width(), label("往回")->sizeHint().width());
    QTest::mouseClick(&part<QAbstractButton>("仅一次"), Qt::LeftButton);
    EXPECT_EQ(label("往回"), nullptr);
}

TEST_F(AlertFormPartsTest, isAsHighWithTheMarginAsWithout) {
    open();
    const int height = form->sizeHint().height();
    QTest::mouseClick(&part<QAbstractButton>("重复"), Qt::LeftButton);
    EXPECT_EQ(form->sizeHint().height(), height);
}

TEST_F(AlertFormPartsTest, theMarginKeepsInsideTheFormInEnglish) {
    const UsedLanguage english(TextLanguage::english);
    open();
    for (const double scale : {1.0, 1.3}) {
        SCOPED_TRACE(scale);
        ThemeKey::set(*form, {.colors = ThemeColors::dark(), .scale = scale});
        part<QAbstractButton>("Repeat").click();
        form->resize(form->sizeHint());
        spinUntilIdle();
        const QRect note = part<SearchField>("Note").geometry();
        const QRect margin =
            part<SearchField>("How far it must move back before it alerts again").geometry();
        EXPECT_LE(margin.right(), note.right());
        EXPECT_GE(margin.width(), 56 * scale - 1);
        EXPECT_GE(label("back by")->width(), label("back by")->sizeHint().width());
    }
}

TEST_F(AlertFormPartsTest, saysThatTheMarginLeadsNowhere) {
    open();
    value().setText(QStringLiteral("110"));
    QTest::mouseClick(&part<QAbstractButton>("重复"), Qt::LeftButton);
    margin().setText(QStringLiteral("110"));
    EXPECT_EQ(meaning(), "往回的幅度应小于所填的数，如 1%");
    QTest::mouseClick(&part<QAbstractButton>("仅一次"), Qt::LeftButton);
    EXPECT_EQ(meaning(), "价格 ≥ 110.00 时提醒");
    EXPECT_EQ(named(*form, QStringLiteral("往回多少后可再次提醒")), nullptr);
}

TEST_F(AlertFormPartsTest, saysThatTheAlertIsNotOnDisk) {
    open();
    value().setText(QStringLiteral("110"));
    files.breakAll();
    QTest::mouseClick(&part<TextButton>("添加提醒"), Qt::LeftButton);
    files.repair();
    ThemedLabel* const said = label("提醒未能保存到磁盘，重启后会丢失");
    ASSERT_NE(said, nullptr);
    EXPECT_EQ(said->palette().color(QPalette::WindowText), colors().danger);
    EXPECT_EQ(dismissed, 0);
}

TEST_F(AlertFormPartsTest, eachFieldSaysWhatBelongsInIt) {
    open();
    QTest::mouseClick(&part<QAbstractButton>("重复"), Qt::LeftButton);
    EXPECT_EQ(value().placeholderText(), QStringLiteral("价格，或如 5%"));
    EXPECT_EQ(margin().placeholderText(), QStringLiteral("如 1%"));
    EXPECT_EQ(margin().toolTip(), QStringLiteral("往回多少后可再次提醒"));
    EXPECT_EQ(part<SearchField>("备注").placeholderText(), QStringLiteral("备注（可不填）"));
}

TEST_F(AlertFormPartsTest, enterInEachFieldAddsTheAlert) {
    open();
    QTest::mouseClick(&part<QAbstractButton>("重复"), Qt::LeftButton);
    value().setText(QStringLiteral("110"));
    QTest::keyClick(&margin(), Qt::Key_Return);
    EXPECT_EQ(dismissed, 1);
    QTest::keyClick(&part<SearchField>("备注"), Qt::Key_Return);
    EXPECT_EQ(dismissed, 2);
    EXPECT_EQ(alerts().alerts()->size(), 2U);
}

TEST_F(AlertFormPartsTest, theChosenWayIsTinted) {
    open();
    auto& once = part<QAbstractButton>("仅一次");
    auto& again = part<QAbstractButton>("重复");
    QColor tint = colors().accent;
    tint.setAlphaF(0.16F);
    EXPECT_EQ(pictureOf(once), choice(once.text(), true, tint));
    EXPECT_EQ(pictureOf(again), choice(again.text(), false, Qt::transparent));
    again.setAttribute(Qt::WA_UnderMouse);
    EXPECT_EQ(pictureOf(again), choice(again.text(), false, colors().rowHover));
}

TEST_F(AlertFormPartsTest, isWrittenAtItsSizes) {
    open();
    ThemedLabel* const title = label("BTC 价格提醒");
    ThemedLabel* const present = label("现价 102.00 · 24 小时 +2.00%");
    ThemedLabel* const said = label(meaning().c_str());
    ASSERT_TRUE(title != nullptr && present != nullptr && said != nullptr);
    EXPECT_EQ(title->font(), systemFont(12, QFont::DemiBold));
    EXPECT_EQ(title->palette().color(QPalette::WindowText), colors().primaryText);
    for (ThemedLabel* const each : {present, said}) {
        EXPECT_EQ(each->font(), systemFont(10.5));
        EXPECT_EQ(each->palette().color(QPalette::WindowText), colors().secondaryText);
    }
    EXPECT_TRUE(said->wordWrap());
}

TEST_F(AlertFormPartsTest, keepsTenPointsAroundAndSixBetween) {
    open();
    QTest::mouseClick(&part<QAbstractButton>("重复"), Qt::LeftButton);
    spinUntilIdle();
    form->resize(form->sizeHint());
    spinUntilIdle();
    EXPECT_EQ(form->width(), 280);
    const QRect title = label("BTC 价格提醒")->geometry();
    const QRect present = label("现价 102.00 · 24 小时 +2.00%")->geometry();
    const QRect once = part<QAbstractButton>("仅一次").geometry();
    const QRect again = part<QAbstractButton>("重复").geometry();
    const QRect add = part<TextButton>("添加提醒").geometry();
    EXPECT_EQ(title.topLeft(), QPoint(10, 10));
    EXPECT_EQ(present.top() - title.bottom() - 1, 6);
    EXPECT_EQ(value().geometry().left(), 10);
    EXPECT_EQ(value().width(), 260);
    EXPECT_EQ(value().geometry().top() - present.bottom() - 1, 6);
    EXPECT_EQ(once.left(), 10);
    EXPECT_EQ(again.left() - once.right() - 1, 6);
    const QRect marginTitle = label("往回")->geometry();
    EXPECT_EQ(marginTitle.left() - again.right() - 1, 6);
    EXPECT_EQ(margin().geometry().left() - marginTitle.right() - 1, 6);
    EXPECT_EQ(margin().width(), 84);
    EXPECT_EQ(add.right() + 1, 270);
    EXPECT_EQ(form->height() - add.bottom() - 1, 10);
}

TEST_F(AlertFormPartsTest, anAlertOfTheListHasItsButtonAtTheEnd) {
    open();
    addAlert("note");
    ThemedLabel* const said = label("价格 ≥ 110.00 · 仅一次 · note");
    ASSERT_NE(said, nullptr);
    EXPECT_EQ(said->font(), systemFont(10.5));
    EXPECT_EQ(said->palette().color(QPalette::WindowText), colors().primaryText);
    auto& removal = part<GlyphButton>("删除提醒，价格 ≥ 110.00 · 仅一次 · note");
    EXPECT_EQ(removal.toolTip(), QStringLiteral("删除提醒"));
    EXPECT_EQ(removal.size(), QSize(20, 20));
    EXPECT_EQ(removal.mapTo(form.get(), QPoint(20, 0)).x(), 270);
    EXPECT_EQ(removal.geometry().left() - said->geometry().right() - 1, 6);
    EXPECT_EQ(said->mapTo(form.get(), QPoint(0, 0)).x(), 10);
}

TEST_F(AlertFormPartsTest, aLongNoteIsShownInFull) {
    open();
    for (int words = 1; words <= 12; ++words) {
        addAlert(QStringLiteral("every word counts ").repeated(words).trimmed().toStdString());
        ThemedLabel* const said = widgetsOf<ThemedLabel>(*form).back();
        EXPECT_GE(said->height(), said->heightForWidth(said->width())) << words;
        alerts().remove(alerts().alerts()->front().id);
        spinUntilIdle();
    }
}

TEST_F(AlertFormPartsTest, theListIsAsTransparentAsTheForm) {
    open();
    addAlert("note");
    auto& area = *widgetsOf<QScrollArea>(*form).front();
    EXPECT_EQ(area.frameShape(), QFrame::NoFrame);
    EXPECT_FALSE(area.viewport()->autoFillBackground());
    EXPECT_FALSE(area.widget()->autoFillBackground());
    EXPECT_EQ(area.focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(area.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

}  // namespace
}  // namespace quillbar
