// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Heading.h"

#include "Quillbar/text/SystemFont.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QAccessibleWidget>

namespace quillbar {

namespace {

constexpr double kFontSize = 10.5;

// The caller owns what is made; null leaves the object to Qt.
QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const heading = dynamic_cast<Heading*>(object);
    return heading == nullptr ? nullptr : new QAccessibleWidget(heading, QAccessible::Heading);
}

}  // namespace

Heading::Heading(const QString& text, QWidget* parent)
    : ThemedLabel(systemFont(kFontSize, QFont::DemiBold),
                  &ThemeColors::Resolved::secondaryText,
                  parent) {
    // Installing it again changes nothing.
    QAccessible::installFactory(makeAccessible);
    setText(text);
    setAccessibleName(text);
}

}  // namespace quillbar
