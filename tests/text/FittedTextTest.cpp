// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/FittedText.h"
#include "Quillbar/text/SystemFont.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

TEST(FittedTextTest, shrinksBeforeItLosesLetters) {
    const QString text = QStringLiteral("1000SATS");
    const double width = QFontMetricsF(systemFont(13, QFont::DemiBold)).horizontalAdvance(text);
    EXPECT_EQ(FittedText::fit(text, 13, QFont::DemiBold, width, 0.8).font,
              systemFont(13, QFont::DemiBold));
    const auto shrunk = FittedText::fit(text, 13, QFont::DemiBold, width * 0.9, 0.8);
    EXPECT_EQ(shrunk.text, text);
    EXPECT_LT(shrunk.font.pointSizeF(), systemFont(13).pointSizeF());
    const auto elided = FittedText::fit(text, 13, QFont::DemiBold, width * 0.5, 0.8);
    EXPECT_TRUE(elided.text.endsWith(QStringLiteral("…"))) << elided.text.toStdString();
    EXPECT_EQ(elided.font, systemFont(13 * 0.8, QFont::DemiBold));
}

}  // namespace
}  // namespace quillbar
