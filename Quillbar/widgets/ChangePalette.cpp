// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/ChangePalette.h"

namespace quillbar {

namespace {

ChangePalette onDarkPanel(ChangeColors colors) {
    switch (colors) {
    case ChangeColors::greenUp:
        break;
    case ChangeColors::redUp:
        return {.up = QColor(255, 92, 92), .down = QColor(62, 207, 142)};
    case ChangeColors::blueUp:
        return {.up = QColor(92, 174, 255), .down = QColor(255, 159, 64)};
    }
    return {.up = QColor(62, 207, 142), .down = QColor(255, 92, 92)};
}

// The red and the green that change places are darker than the default ones, which are too pale for
// small text over the tint of a row.
ChangePalette onLightPanel(ChangeColors colors) {
    switch (colors) {
    case ChangeColors::greenUp:
        break;
    case ChangeColors::redUp:
        return {.up = QColor(200, 50, 50), .down = QColor(18, 124, 72)};
    case ChangeColors::blueUp:
        return {.up = QColor(20, 96, 190), .down = QColor(172, 82, 0)};
    }
    return {.up = QColor(26, 138, 84), .down = QColor(207, 58, 58)};
}

// Stronger than the colours of the panel, because a line of a few pixels is mostly edges.
ChangePalette inStatusArea(ChangeColors colors) {
    switch (colors) {
    case ChangeColors::greenUp:
        break;
    case ChangeColors::redUp:
        return {.up = QColor(255, 128, 128), .down = QColor(84, 230, 160)};
    case ChangeColors::blueUp:
        return {.up = QColor(124, 192, 255), .down = QColor(255, 178, 96)};
    }
    return {.up = QColor(84, 230, 160), .down = QColor(255, 128, 128)};
}

}  // namespace

ChangePalette ChangePalette::of(ChangeColors colors, Ground ground) {
    switch (ground) {
    case Ground::darkPanel:
        return onDarkPanel(colors);
    case Ground::lightPanel:
        return onLightPanel(colors);
    case Ground::statusArea:
        break;
    }
    return inStatusArea(colors);
}

}  // namespace quillbar
