// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/faults/FaultTable.h"

#include <QCoreApplication>
#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <vector>

namespace quillbar {

namespace {

std::vector<Cell>& cells() {
    static std::vector<Cell> all;
    return all;
}

void print() {
    std::cout << "| fault | situation | after 5 s | after 90 s | well again after |\n"
                 "|---|---|---|---|---|\n";
    for (const Cell& cell : cells()) {
        std::cout << "| " << cell.fault << " | " << nameOf(cell.situation) << " | " << cell.soon
                  << " | " << cell.late << " | " << cell.wellAfter.count() << " s |\n";
    }
}

/// Prints the table once every test has run.
class Printer final : public ::testing::Environment {
    // NOLINTNEXTLINE(readability-identifier-naming): GoogleTest spells it so
    void TearDown() override {
        if (QCoreApplication::arguments().contains(QStringLiteral("--print-table"))) {
            print();
        }
    }
};

// NOLINTNEXTLINE(cert-err58-cpp): a program of tests may end where it begins
const auto* const kPrinter = ::testing::AddGlobalTestEnvironment(new Printer);

}  // namespace

std::string nameOf(Situation situation) {
    constexpr std::array kNames{
        "starting", "live", "onABoard", "withAChart", "inTheSearch", "waking"};
    return kNames.at(static_cast<std::size_t>(situation));
}

std::ostream& operator<<(std::ostream& stream, const Sight& sight) {
    std::string tooltip = sight.tooltip;
    std::replace(tooltip.begin(), tooltip.end(), '\n', ';');
    stream << sight.label << " [" << tooltip << "]";
    if (!sight.banner.empty()) {
        stream << " banner: " << sight.banner;
    }
    if (!sight.view.empty()) {
        stream << " view: " << sight.view;
    }
    return stream;
}

void FaultTable::add(const Cell& cell) {
    cells().push_back(cell);
}

}  // namespace quillbar
