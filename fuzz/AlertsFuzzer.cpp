// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/DocumentRules.h"
#include "fuzz/FuzzTarget.h"
#include "QuillbarCore/alerts/AlertBook.h"
#include "QuillbarCore/alerts/AlertStore.h"

namespace quillbar {

void fuzz(std::string_view input) {
    const auto alerts = requireSoundDocument<AlertsDocument>(input);
    if (!alerts) {
        return;
    }
    AlertBook book;
    for (const Alert& alert : alerts->alerts) {
        require(alert.isSound(), "what is not sound is refused");
        book.add(alert);
    }
    for (const Alert& alert : alerts->alerts) {
        const auto outcome = book.take(alert.symbol, {.lastPrice = 100, .openPrice24h = 99});
        for (const AlertBook::Firing& firing : outcome.fired) {
            require(firing.alert.isOn, "what is switched off fires nothing");
        }
        require(book.take(alert.symbol, {.lastPrice = 100, .openPrice24h = 99}).fired.empty(),
                "the same price again fires nothing");
    }
}

}  // namespace quillbar
