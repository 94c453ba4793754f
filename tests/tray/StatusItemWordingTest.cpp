// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/tray/StatusItemFixture.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

const QString kLabel = QStringLiteral("XAyatanaLabel");
const QString kGuide = QStringLiteral("XAyatanaLabelGuide");

struct StatusItemWordingTest : StatusItemFixture {
    static LabelFace worded() {
        LabelFace result = face();
        result.worded = QStringLiteral("67,234.50");
        result.change.clear();
        return result;
    }
    static LabelFace row() {
        LabelFace result = face();
        result.row = QStringLiteral("BTC 67,234.50 ▲ 1.23%  ETH 3,456.00 ▼ 0.50%");
        result.rowGuide = QStringLiteral("BTC 88,888.88 ▲88.88%  ETH 8,888.88 ▲88.88%");
        return result;
    }
    static LabelFace hidden() {
        LabelFace result;
        result.isDiscreet = true;
        result.details = QStringLiteral("数字已隐藏");
        return result;
    }
    [[nodiscard]] QString text(const QString& name) { return host->property(name).toString(); }
};

TEST_F(StatusItemWordingTest, saysTheWordingAndKeepsTheWholeTextForTheTooltip) {
    startAt("gnome-shell");
    item->show(worded());
    settle();
    EXPECT_EQ(text(kLabel), QStringLiteral("67,234.50"));
    EXPECT_EQ(text(kGuide), QStringLiteral("88,888.88"));
    EXPECT_EQ(host->tooltip().title, face().text);
    EXPECT_EQ(text(QStringLiteral("IconAccessibleDesc")), face().text);
}

TEST_F(StatusItemWordingTest, standsBesideOtherCoinsOnlyWhereTheHostShowsText) {
    startAt("gnome-shell");
    item->show(row());
    settle();
    EXPECT_EQ(text(kLabel), row().row);
    EXPECT_EQ(text(kGuide), row().rowGuide);
    item->show(face());
    settle();
    EXPECT_EQ(text(kLabel), face().text);
}

TEST_F(StatusItemWordingTest, isThePinnedCoinAloneInAPicture) {
    startAt("waybar");
    item->show(row());
    settle();
    EXPECT_EQ(text(kLabel), face().text);
    const QImage picture =
        LabelPicture::of(face(), LabelForm::widePicture, PictureGround::own).drawn(22);
    EXPECT_EQ(host->icon()[0], StatusImage::of(picture));
}

TEST_F(StatusItemWordingTest, hidesTheNumbersBehindTheMark) {
    startAt("waybar");
    item->show(hidden());
    settle();
    EXPECT_EQ(text(kLabel), QStringLiteral("Quillbar"));
    EXPECT_EQ(host->icon()[0], StatusImage::of(LabelPicture{}.drawn(22)));
    EXPECT_EQ(text(QStringLiteral("IconAccessibleDesc")), QStringLiteral("Quillbar"));
}

TEST_F(StatusItemWordingTest, showsThePriceAtOnceAfterItWasHidden) {
    startAt("kded5");
    item->show(hidden());
    item->show(face());
    settle();
    const QImage picture =
        LabelPicture::of(face(), LabelForm::square, PictureGround::own).drawn(22);
    EXPECT_EQ(host->icon()[0], StatusImage::of(picture)) << "nobody has pinned another coin";
}

}  // namespace

}  // namespace quillbar
