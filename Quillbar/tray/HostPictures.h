// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/LabelPicture.h"
#include "Quillbar/tray/StatusImage.h"
#include "Quillbar/tray/TrayHost.h"

namespace quillbar {

/// The picture in the sizes for this host, the smallest first. Needs a QGuiApplication; for the
/// main thread.
[[nodiscard]] StatusImages hostPictures(const TrayHost& host, const LabelPicture& picture);

}  // namespace quillbar
