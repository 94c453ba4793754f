// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

/// The groups of benchmarks; each function registers its own.
namespace quillbar::benchmarks {

/// The bodies of exchange and market-cap service, and the stream's frames, against QJsonDocument.
void registerDecoding();

/// The boards and the sorted watchlist, against sorting and indexing everything.
void registerBoards();

/// The texts of numbers and of the label, against ICU and QLocale.
void registerTexts();

/// A flood of frames from the socket to the label, against the least that must be done with them.
void registerFlood();

/// The same road with price alerts on it, against the road without.
void registerAlerts();

}  // namespace quillbar::benchmarks
