// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/widgets/BannerRow.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/Widgets.h"

#include <QPainter>
#include <QWindow>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

const QString kText = QStringLiteral("数据为 3 分钟前的");

/// A banner whose indent a test sets.
class TestedBanner final : public BannerRow {
public:
    using BannerRow::BannerRow;
    using BannerRow::setTextIndent;
};

/// A banner with a text, in a dark window.
struct BannerRowTest : testing::Test {
    BannerRowTest() {
        window.resize(400, 60);
        banner.resize(400, 20);
        banner.setText(kText);
    }

    /// A faint warning over the surface, and the text from there on.
    [[nodiscard]] static QImage drawn(int left) {
        const ThemeColors::Resolved& colors = ThemeColors::dark();
        QImage image(400, 20, QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        QColor tint = colors.warning;
        tint.setAlphaF(0.1F);
        painter.fillRect(image.rect(), tint);
        painter.setPen(colors.warning);
        TabularText::draw(painter,
                          QRectF(left, 0, 400 - 12 - left, 20),
                          Qt::AlignLeft | Qt::AlignVCenter,
                          kText,
                          systemFont(9.5));
        return image;
    }

    QWidget window;
    TestedBanner banner{&window};
};

TEST_F(BannerRowTest, isATextOf9Point5TwelvePointsFromTheEdgeOverAFaintWarning) {
    EXPECT_EQ(banner.height(), 20);
    EXPECT_LE(difference(pictureOf(banner), drawn(12)), 1);
    banner.setTextIndent(18);
    EXPECT_LE(difference(pictureOf(banner), drawn(12 + 18)), 1);
}

TEST_F(BannerRowTest, isPaintedAndReadAloudWhenItsTextChanges) {
    window.show();
    ASSERT_TRUE(spinUntil([this] { return window.windowHandle()->isExposed(); }));
    EXPECT_EQ(paintsOf(banner, [this] { banner.setText(kText); }), 0);
    EXPECT_EQ(paintsOf(banner, [this] { banner.setText(QStringLiteral("暂无数据")); }), 1);
    EXPECT_EQ(banner.accessibleName(), QStringLiteral("暂无数据"));
    EXPECT_EQ(paintsOf(banner, [this] { banner.setTextIndent(18); }), 1);
}

}  // namespace
}  // namespace quillbar
