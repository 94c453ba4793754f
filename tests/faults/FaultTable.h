// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <chrono>
#include <ostream>
#include <string>

namespace quillbar {

/// What the application is doing when a fault comes.
enum class Situation { starting, live, onABoard, withAChart, inTheSearch, waking };

inline constexpr std::array kSituations{Situation::starting,
                                        Situation::live,
                                        Situation::onABoard,
                                        Situation::withAChart,
                                        Situation::inTheSearch,
                                        Situation::waking};

/// As a part of a test's name.
[[nodiscard]] std::string nameOf(Situation situation);

/// What a user sees at one moment.
struct Sight {
    std::string label;
    std::string tooltip;
    /// What the connection's banner says; empty while there is no banner.
    std::string banner;
    /// The board, the chart or the search; empty where the list is shown.
    std::string view;
};

/// On one line.
std::ostream& operator<<(std::ostream& stream, const Sight& sight);

/// One fault in one situation.
struct Cell {
    std::string fault;
    Situation situation{};
    Sight soon = {};
    Sight late = {};
    std::chrono::seconds wellAfter{0};
};

/// What has been tried and seen in this process. Printed at its end when it is started with the
/// argument --print-table.
namespace FaultTable {

void add(const Cell& cell);

}  // namespace FaultTable

}  // namespace quillbar
