// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Simulator.h"
#include "tests/simulator/Clients.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbar::simulator {

/// A small exchange, and a client that asks it.
class ExchangeFixture : public ::testing::Test {
protected:
    static SimulatorOptions options() {
        SimulatorOptions options;
        options.symbolCount = 20;
        return options;
    }

    Answer candles() {
        return m_client.get(simulator.restBase() + "/klines?symbol=BTCUSDT&interval=1m&limit=2");
    }
    Answer tickers() { return m_client.get(simulator.restBase() + "/ticker/24hr"); }

public:
    Simulator simulator{options()};

protected:
    HttpClient m_client{simulator};
};

}  // namespace quillbar::simulator
