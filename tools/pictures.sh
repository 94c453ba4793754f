#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/pictures.sh
#
# Makes every picture of the documents and of the page in software centres from the application as
# it is built here, on a desktop of its own with a simulated exchange; needs no network and no
# screen:
#
#   docs/quillbar.png        the panel with a chart, dark and light
#   docs/quillbar.webp       what one does with it, moving, with English words beside it
#   docs/quillbar.zh-CN.webp the same with Chinese words
#
# Fails when something on the way does not happen, and when a moving picture is too large for a
# page.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/build.sh

most_bytes=1500000

tools/setup.sh pictures
build dev quillbar-pictures
made=build/dev/pictures
# The fonts are those of the system, as people have them.
QUILLBAR_TEST_FONTS=/etc/fonts/fonts.conf build/dev/bin/quillbar-pictures

# moving FOLDER FILE
moving() {
    local bytes
    (cd "$made/$1" && img2webp frames)
    bytes=$(stat --format %s "$made/$1/moving.webp")
    if [ "$bytes" -gt "$most_bytes" ]; then
        printf 'pictures: %s has %d bytes, and a page should not load more than %d\n' \
            "$made/$1/moving.webp" "$bytes" "$most_bytes" >&2
        return 1
    fi
    cp "$made/$1/moving.webp" "$2"
    printf 'pictures: %s, %d bytes\n' "$2" "$bytes"
}

moving film-en docs/quillbar.webp
moving film-zh docs/quillbar.zh-CN.webp
cp "$made/quillbar.png" docs
printf 'pictures: docs/quillbar.png\n'
