// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/Benchmarks.h"

#include <benchmark/benchmark.h>

int main(int argc, char* argv[]) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    quillbar::benchmarks::registerDecoding();
    quillbar::benchmarks::registerBoards();
    quillbar::benchmarks::registerTexts();
    quillbar::benchmarks::registerFlood();
    quillbar::benchmarks::registerAlerts();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
