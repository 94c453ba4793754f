// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/RowList.h"
#include "Quillbar/watchlist/ListOfferView.h"
#include "Quillbar/watchlist/SearchField.h"
#include "Quillbar/watchlist/SearchResultRow.h"
#include "Quillbar/widgets/CenteredText.h"
#include "tests/qtsupport/ViewFixture.h"
#include "tests/qtsupport/Widgets.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbar {

/// The search for a coin to add, wherever it is shown, over a real catalog. Base assets stand for
/// their pairs.
struct AddCoinFixture : ViewFixture {
    void theExchangeTrades(const std::vector<std::string>& baseAssets) {
        api.exchangeInfoAnswers.otherwise(listOf(baseAssets).coins);
    }

    // What the user does.

    void type(const QString& text) {
        for (const QChar letter : text) {
            QTest::keyClick(QApplication::focusWidget(), letter.toLatin1());
            executor.run();
        }
    }
    /// Types and waits until the search has begun.
    void searchFor(const QString& text) {
        type(text);
        time.advance(Seconds{0.3});
    }
    void press(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        executor.run();
    }
    void click(const std::string& baseAsset) {
        QTest::mouseClick(row(baseAsset), Qt::LeftButton);
        executor.run();
    }

    // What is seen.

    /// The view, or the window that it is in.
    [[nodiscard]] virtual QWidget& root() const = 0;

    [[nodiscard]] SearchField& field() const { return *widgetsOf<SearchField>(root()).front(); }
    /// The matches.
    [[nodiscard]] RowList& rows() const {
        std::vector<RowList*> lists = widgetsOf<RowList>(root());
        std::erase_if(lists, [](const RowList* list) {
            return dynamic_cast<const ListOfferView*>(list->parentWidget()) != nullptr;
        });
        return *lists.front();
    }
    [[nodiscard]] SearchResultRow* row(const std::string& baseAsset) const {
        auto* const found = dynamic_cast<SearchResultRow*>(rows().row(symbolOf(baseAsset)));
        EXPECT_NE(found, nullptr) << baseAsset;
        return found;
    }
    /// What stands below the field: the text, or what is said of each row, from above.
    [[nodiscard]] std::vector<std::string> area() const {
        std::vector<std::string> lines;
        for (const CenteredText* const text : widgetsOf<CenteredText>(root())) {
            if (text->isVisible()) {
                lines.push_back(text->accessibleName().toStdString());
            }
        }
        if (rows().isVisible()) {
            EXPECT_EQ(rows().brokenRule(), "");
            for (const std::string& id : rows().ids()) {
                if (const ListRow* const row = rows().row(id)) {
                    lines.push_back(row->accessibleName().toStdString());
                }
            }
        }
        return lines;
    }
    [[nodiscard]] bool isWatched(const std::string& baseAsset) const {
        return state->watchlist()->contains(symbolOf(baseAsset));
    }
};

}  // namespace quillbar
