// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PreferencesView.h"
#include "tests/panel/PanelFixture.h"
#include "tests/qtsupport/UsedLanguage.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QLabel>

#include <gtest/gtest.h>

#include <algorithm>

namespace quillbar {
namespace {

/// Chinese characters and the punctuation that goes with them.
bool isChinese(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        const char16_t code = character.unicode();
        return (code >= 0x3000 && code <= 0x9fff) || code >= 0xff00;
    });
}

/// The panel over two coins in English.
struct EnglishPanelTest : PanelFixture {
    void open() {
        startConnected(listOf({"BTC", "ETH"}));
        showActive(show());
        price("BTC", 110);
        spinUntilIdle();
    }
    /// What the panel says in Chinese, in whatever way; but for the language that is named in
    /// itself.
    [[nodiscard]] QStringList chineseTexts() const {
        QStringList found;
        const auto take = [&](const QString& text) {
            if (isChinese(text) && text != QStringLiteral("简体中文")) {
                found << text;
            }
        };
        for (const QWidget* const widget : widgetsOf<QWidget>(*panel)) {
            take(widget->accessibleName());
            take(widget->accessibleDescription());
            take(widget->toolTip());
            if (const auto* const label = dynamic_cast<const QLabel*>(widget)) {
                take(label->text());
            } else if (const auto* const button = dynamic_cast<const QAbstractButton*>(widget)) {
                take(button->text());
            }
        }
        for (const MenuEntry& entry : *settings->entries()) {
            take(entry.label);
        }
        return found;
    }
    /// What is shown in less width than its text has.
    [[nodiscard]] QStringList cutTexts() const {
        QStringList found;
        for (const QLabel* const label : widgetsOf<QLabel>(*panel)) {
            const int width = QFontMetrics(label->font()).horizontalAdvance(label->text());
            if (label->isVisible() && !label->wordWrap() && width > label->contentsRect().width()) {
                found << label->text();
            }
        }
        for (const QAbstractButton* const button : widgetsOf<QAbstractButton>(*panel)) {
            if (button->isVisible() && button->sizeHint().width() > button->width()) {
                found << button->accessibleName();
            }
        }
        return found;
    }

    UsedLanguage english{TextLanguage::english};
};

TEST_F(EnglishPanelTest, saysNothingInChinese) {
    open();
    EXPECT_NE(named(*panel, QStringLiteral("Settings")), nullptr);
    EXPECT_EQ(chineseTexts(), QStringList());
    panel->showPreferences();
    spinUntilIdle();
    EXPECT_EQ(chineseTexts(), QStringList());
}

TEST_F(EnglishPanelTest, saysInEnglishWhatGoesWrong) {
    open();
    files.breakAll();
    state->setAppearance(AppearanceMode::light);
    spinUntilIdle();
    EXPECT_NE(named(*panel,
                    QStringLiteral("The appearance could not be saved and will be as before "
                                   "after a restart")),
              nullptr);
    panel->showPreferences();
    preferences.setAlertSound(true);
    spinUntilIdle();
    EXPECT_NE(named(*panel, QStringLiteral("The preferences could not be saved to disk")), nullptr);
    EXPECT_EQ(chineseTexts(), QStringList());
}

TEST_F(EnglishPanelTest, cutsNoText) {
    open();
    EXPECT_EQ(cutTexts(), QStringList());
    panel->showPreferences();
    panel->resize(panel->sizeHint());
    spinUntilIdle();
    EXPECT_EQ(cutTexts(), QStringList());
}

}  // namespace
}  // namespace quillbar
