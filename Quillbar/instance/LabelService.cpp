// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/LabelService.h"

#include <utility>

namespace quillbar {

namespace {

bool mustBeTold(const LabelReport& previous, const LabelReport& current) {
    const PinnedQuote& told = previous.label.quote;
    const PinnedQuote& quote = current.label.quote;
    return differsVisibly(previous.label, current.label) || told.coin != quote.coin
           || told.changePercent.has_value() != quote.changePercent.has_value()
           || previous.isStarted != current.isStarted || previous.language != current.language;
}

}  // namespace

LabelService::LabelService(LabelAdaptor& adaptor, LabelSource& source)
    : m_adaptor(adaptor)
    , m_source(source) {
    m_adaptor.setReader([this] { return labelMessage(report()); });
    m_source.observe([this] { update(); });
    update();
}

LabelService::~LabelService() {
    m_source.observe({});
    m_adaptor.setReader({});
}

LabelReport LabelService::report() const {
    return {m_source.snapshot(), m_source.isStarted(), TextLanguages::inUse()};
}

void LabelService::update() {
    LabelReport current = report();
    if (m_told && !mustBeTold(*m_told, current)) {
        return;
    }
    m_told = std::move(current);
    Q_EMIT m_adaptor.Changed(labelMessage(*m_told));
}

}  // namespace quillbar
