// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PreferencesSection.h"

#include "Quillbar/widgets/Heading.h"
#include "Quillbar/widgets/TextScale.h"

#include <QVBoxLayout>

namespace quillbar {

namespace {

constexpr int kSpacing = 4;

}  // namespace

PreferencesSection::PreferencesSection(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_title(title)
    , m_stack(new QVBoxLayout(this)) {
    m_stack->setContentsMargins(0, 0, 0, 0);
    auto* const heading = new Heading(title, this);
    m_stack->addWidget(heading);
    TextScale::follow(*this, [this, heading] {
        m_stack->setSpacing(TextScale::length(*this, kSpacing));
        heading->setContentsMargins(TextScale::margins(*this, {kTextIndent, 0, kTextIndent, 0}));
    });
}

void PreferencesSection::add(QWidget* widget) {
    m_stack->addWidget(widget);
}

}  // namespace quillbar
