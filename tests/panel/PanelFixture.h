// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowList.h"
#include "Quillbar/login/LaunchAtLogin.h"
#include "Quillbar/panel/PanelView.h"
#include "Quillbar/panel/SettingsMenu.h"
#include "Quillbar/panel/UnderlineTabs.h"
#include "QuillbarCore/state/PreferencesState.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/ViewFixture.h"
#include "tests/qtsupport/Widgets.h"
#include "tests/support/FakeLoginItem.h"

#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// The panel over a real AppState, on a light desktop. Build the state first.
struct PanelFixture : ViewFixture {
    PanelView& show() {
        if (!settings) {
            settings.emplace(*state, launchAtLogin);
        }
        panel = std::make_unique<PanelView>(
            environment(), systemScheme, *settings, preferences, [this] { ++quits; });
        panel->resize(panel->sizeHint());
        panel->show();
        spinUntilIdle();
        return *panel;
    }

    [[nodiscard]] const ThemeColors::Resolved& colors() const {
        return ThemeKey::value(*widgetsOf<UnderlineTabs>(*panel).at(0)).colors;
    }

    void click(const QString& name) {
        QWidget* const button = named(*panel, name);
        ASSERT_NE(button, nullptr) << name.toStdString();
        QTest::mouseClick(button, Qt::LeftButton);
        // A frame, after which a board begins to poll.
        spinUntilIdle();
        executor.run();
        spinUntilIdle();
    }
    /// Shows the panel over a watchlist of one coin, and gives it the keyboard.
    void showOneCoin() {
        startConnected(listOf({"BTC"}));
        showActive(show());
    }
    [[nodiscard]] QWidget& onlyRow() const { return *shown<RowList>()->row(symbolOf("BTC")); }
    [[nodiscard]] static QMenu* menu() {
        return dynamic_cast<QMenu*>(QApplication::activePopupWidget());
    }
    /// Lets an edit run that was chosen from a menu.
    void letEditRun() {
        spinUntilIdle();
        // The offscreen platform does not give a window back what a menu over it has taken.
        showActive(*panel);
        executor.run();
        spinUntilIdle();
    }
    [[nodiscard]] bool hasRing(const QString& name) const {
        QWidget& widget = *named(*panel, name);
        return pictureOf(widget).pixelColor(widget.width() / 2, 0) == colors().accent;
    }
    [[nodiscard]] QString focused() const {
        return panel->focusWidget() == nullptr ? QString() : panel->focusWidget()->accessibleName();
    }

    /// Whatever of this type is shown.
    template <class Widget>
    [[nodiscard]] Widget* shown() const {
        for (Widget* const each : widgetsOf<Widget>(*panel)) {
            if (each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }
    void theExchangeHas(const std::vector<std::string>& baseAssets) {
        TickerMap tickers;
        std::vector<Coin> coins;
        for (const std::string& baseAsset : baseAssets) {
            coins.push_back(coinOf(baseAsset));
            tickers.emplace(coins.back().symbol, Ticker{110, 100, 2e9});
        }
        api.exchangeInfoAnswers.otherwise(std::move(coins));
        api.ticker24hAllAnswers.otherwise(std::move(tickers));
    }

    Observed<ColorScheme> systemScheme{ColorScheme::light};
    FakeLoginItem loginItem;
    LaunchAtLogin launchAtLogin{loginItem};
    std::optional<SettingsMenu> settings;
    PreferencesState preferences{PreferencesStore(folder.path(), files)};
    int quits = 0;
    std::unique_ptr<PanelView> panel;
};

}  // namespace quillbar
