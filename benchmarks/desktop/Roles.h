// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

/// What the program of this folder can be for the report; each function runs until its standard
/// input ends, and returns the program's exit status.
namespace quillbar::benchmarks {

/// The bar of a desktop on the session bus: says "ready", then "registered" for each item and
/// "label" with the text of each label. The line "click" clicks the item, after "clicked". It has
/// the pointer too: "point X Y" moves it, "press" clicks what is under it, after "pressed", and
/// "wheel" turns its wheel for some seconds as often as a screen has frames, between "turning" and
/// "turned" with the number of turns.
int runTrayHost(int argc, char** argv);

/// The application as `quillbar` is made of it, which says "frame ... ROWS HEIGHT PROCESSOR" when a
/// frame of the panel has been painted and the X server has it: the number of rows painted by then,
/// the panel's height, and the nanoseconds of the processor that the main thread has used; and
/// "hidden" when the panel has gone. The line "processor" has it say "processor ... PROCESSOR";
/// "tabs" has it say "tab ... X Y" for each tab; "beat" begins to watch its event loop, and "rest"
/// ends that with "gap ... NANOSECONDS PROCESSOR", the longest time for which the loop did not run
/// and the most that the main thread used of the processor within such a time. Its argument, if
/// any, is the time between two refreshes of a board, in seconds; it says "slept" at the beginning
/// of each such time.
int runPanel(int argc, char** argv);

/// An exchange whose only argument is how many prices it sends a second, evenly, over all its coins
/// in turn: says its addresses and "ready" as the simulator does, "sent ... N" each second, and
/// "last" when the line "last" has made it send one price of BTCUSDT that no other frame has.
int runFlood(int argc, char** argv);

}  // namespace quillbar::benchmarks
