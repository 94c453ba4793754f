// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/watchlist/AddCoinView.h"
#include "Quillbar/watchlist/ListOfferRow.h"
#include "Quillbar/watchlist/ListOfferView.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "tests/watchlist/AddCoinFixture.h"

#include <QClipboard>
#include <QGuiApplication>

#include <memory>
#include <string>
#include <vector>

namespace quillbar {

/// The search, with a list of coins in its field.
struct AddCoinListFixture : AddCoinFixture {
    void show(const std::vector<std::string>& watched = {"BTC"}) {
        startConnected(listOf(watched));
        theExchangeTrades({"SOLV", "BTC", "SOL", "WSOL", "ETH", "1000SATS"});
        view = std::make_unique<AddCoinView>(environment(), [this](const std::string& symbol) {
            ++dismissals;
            added = symbol;
        });
        showActive(*view);
        view->setFocus(Qt::PopupFocusReason);
    }

    /// Pastes into the field, in place of what is there, as the keyboard does.
    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        field().selectAll();
        QTest::keyClick(&field(), Qt::Key_V, Qt::ControlModifier);
        executor.run();
    }
    /// Pastes and waits until the list has been read.
    void read(const QString& text) {
        paste(text);
        time.advance(Seconds{0.3});
    }
    void clickOffer() {
        QTest::mouseClick(offerRow(), Qt::LeftButton);
        executor.run();
    }

    [[nodiscard]] QWidget& root() const override { return *view; }
    [[nodiscard]] ListOfferView& offerView() const {
        return *widgetsOf<ListOfferView>(*view).front();
    }
    /// The row that adds the list; null while none is shown.
    [[nodiscard]] ListOfferRow* offerRow() const {
        for (ListOfferRow* const row : widgetsOf<ListOfferRow>(*view)) {
            if (row->isVisible()) {
                return row;
            }
        }
        return nullptr;
    }
    /// What stands below the field for a list, from above.
    [[nodiscard]] std::vector<std::string> offered() const {
        std::vector<std::string> lines;
        if (const ListOfferRow* const row = offerRow()) {
            lines.push_back(row->accessibleName().toStdString());
        }
        for (const ThemedLabel* const label : widgetsOf<ThemedLabel>(*view)) {
            if (label->isVisible()) {
                for (const QString& line : label->text().split(u'\n', Qt::SkipEmptyParts)) {
                    lines.push_back(line.toStdString());
                }
            }
        }
        return lines;
    }

    int dismissals = 0;
    // The coin that the last dismissal was told of.
    std::string added;
    std::unique_ptr<AddCoinView> view;
};

}  // namespace quillbar
