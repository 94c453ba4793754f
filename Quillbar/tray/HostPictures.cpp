// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/HostPictures.h"

#include <QImage>

#include <span>

namespace quillbar {

namespace {

// A host that takes the largest picture would make it smaller on nearly every bar. And the pictures
// of the whole text are most of the bytes on the bus.
std::span<const int> heightsFor(const TrayHost& host, const LabelPicture& picture) {
    const bool fits =
        host.picks == TrayHost::Picks::fitting && picture.form != LabelForm::widePicture;
    return fits ? std::span<const int>(kSquareHeights) : std::span<const int>(kPictureHeights);
}

// Doubled pixels are sharp again after the host has halved them. Finer lines would be blurred.
QImage drawnFor(const TrayHost& host, const LabelPicture& picture, int height) {
    return host.picks == TrayHost::Picks::largest
               ? picture.drawn(kPictureHeights.front()).scaledToHeight(height)
               : picture.drawn(height);
}

}  // namespace

StatusImages hostPictures(const TrayHost& host, const LabelPicture& picture) {
    StatusImages images;
    for (const int height : heightsFor(host, picture)) {
        images.append(StatusImage::of(drawnFor(host, picture, height)));
    }
    return images;
}

}  // namespace quillbar
