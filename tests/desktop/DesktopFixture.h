// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/desktop/ChildProcess.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/ItemMenu.h"
#include "tests/desktop/Screen.h"
#include "tests/desktop/Waiting.h"
#include "tests/support/TemporaryFolder.h"

#include <QJsonObject>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// A desktop that all tests share, and for each test an application with no past.
class DesktopFixture : public testing::Test {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    [[nodiscard]] static Desktop& desktop() { return *sharedDesktop; }
    [[nodiscard]] static Screen& screen() { return sharedDesktop->screen(); }

    /// The panel has been opened before, so it does not begin with the line about its item.
    void SetUp() override;
    /// The application does not run on after a test, and has nothing to complain of at its end.
    void TearDown() override;

    /// Starts the application and waits for its first price in the status area.
    void startApplication();
    /// Starts a line of bash, in which "$0" is the application, where a variable has this value;
    /// waits for nothing.
    void startInShell(const char* command, const QString& variable, const QString& value);
    /// Asks the application to end as the session does; its exit status, waited for.
    [[nodiscard]] int terminateApplication();
    /// Keeps the application from running until it is to resume.
    void haltApplication() { m_application->halt(); }
    void resumeApplication() { m_application->resume(); }
    /// Ends the application from outside, and waits for that.
    void endApplication();
    /// The exit status of the application, which something has asked to end; waited for.
    [[nodiscard]] int endOfApplication();
    /// Starts the program once more and waits for its end.
    [[nodiscard]] int startAgain(const QStringList& arguments = {});
    void keepSettings(const QJsonObject& settings);
    [[nodiscard]] QJsonObject kept(const QString& name) const;
    [[nodiscard]] std::vector<std::string> keptSymbols() const;
    /// Whether a setting comes to be kept so.
    [[nodiscard]] bool comesToKeep(const QString& setting, const QString& value) const;
    /// What the desktop is to start at login; absent without an entry of the application's.
    [[nodiscard]] std::optional<QString> autostartEntry() const;

    /// What the application tells other programs of its label.
    [[nodiscard]] QVariantMap label() const;
    /// Whether the exchange's stream is there, and so no banner that says otherwise.
    [[nodiscard]] bool isConnected() const;
    /// A property of the item in the status area.
    [[nodiscard]] QVariant item(const QString& property) const;
    /// The lines under the title of the item's tooltip.
    [[nodiscard]] QString tooltip() const;
    [[nodiscard]] bool isItemInStatusArea() const;
    [[nodiscard]] QPoint itemCentre() const;

    /// The panel's window, while it is on the screen.
    [[nodiscard]] std::optional<Screen::Window> panel() const;
    [[nodiscard]] bool isPanelOpen() const { return panel().has_value(); }
    [[nodiscard]] QRect panelGeometry() const;
    /// Where a menu of the application is; a null rectangle without one.
    [[nodiscard]] QRect menuGeometry() const;
    [[nodiscard]] bool hasMenu() const { return !menuGeometry().isNull(); }
    /// Where the search for a coin is; a null rectangle while it is closed.
    [[nodiscard]] QRect searchGeometry() const;
    [[nodiscard]] bool isSearchOpen() const { return !searchGeometry().isNull(); }
    /// The menu of the item in the status area.
    [[nodiscard]] ItemMenu itemMenu() const;

    void clickItem();
    /// A click on the item, seen to open the panel.
    void openPanel();
    /// What is at this place on the panel.
    void clickOnPanel(QPoint position, int button = Screen::kLeft);
    /// Walks through the panel by the Tab key until the Menu key opens the menu of the first row.
    [[nodiscard]] bool tabToRows();
    /// Chooses an entry, counted from 1, of the menu that opens, by the keyboard.
    void chooseFromMenu(int entry);
    void chooseFromMenuOfRow(int row, int entry);
    /// Opens the menu of the gear and chooses an entry, counted from 1.
    void chooseFromGear(int entry);
    /// Opens the search and sees it take the keyboard.
    void openSearch();
    /// Clicks a tab, counted from 0 at the watchlist's, and waits until its rows are drawn.
    void openTab(int tab);
    /// Whether the row and the two before it, counted from 0, are drawn with their changes.
    [[nodiscard]] bool hasRowsUpTo(int row) const;
    /// Whether the mark of the selected tab is under this one.
    [[nodiscard]] bool isTabSelected(int tab) const;
    /// Makes sure that the application has handled what was done with the pointer and the keyboard.
    void settle() const;

    /// The middle of a row, counted from 0, as a position on the panel.
    [[nodiscard]] static QPoint rowCentre(int row);
    /// The places of what is clicked on the panel.
    static constexpr QPoint kPriceTitle{280, 94};
    static constexpr QPoint kPlus{348, 20};
    static constexpr QPoint kGear{376, 20};
    static constexpr int kDisclosureX = 20;
    static constexpr int kRowPlusX = 381;
    static constexpr int kTabCount = 5;
    static constexpr int kRowHeight = 28;
    static constexpr int kChartHeight = 210;

private:
    static std::unique_ptr<Desktop> sharedDesktop;

    [[nodiscard]] QProcessEnvironment environment() const;
    [[nodiscard]] std::filesystem::path file(const QString& name) const;
    [[nodiscard]] std::filesystem::path configuration() const;

    TemporaryFolder m_folder;
    std::optional<ChildProcess> m_application;
};

}  // namespace quillbar
