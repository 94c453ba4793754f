// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/ChangeText.h"

#include "QuillbarCore/model/MissingValue.h"
#include "QuillbarCore/model/PriceFormatter.h"

#include <QString>

#include <string>

namespace quillbar {

namespace {

constexpr double kSize = 12;

}  // namespace

ChangeText::ChangeText(int width, QWidget* parent)
    : NumericCell(width, kSize, parent) {
    setPercent(std::nullopt);
}

void ChangeText::setPercent(std::optional<double> percent) {
    const std::string text =
        percent ? PriceFormatter::percent(*percent) : std::string(kMissingValueText);
    setText(QString::fromStdString(text));
    setColor(colorOfChange(percent.value_or(0)));
}

}  // namespace quillbar
