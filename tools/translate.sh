#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Brings the file of the English texts up to date with the sources: texts that it lacks come in
# unfinished, and those that no source has any longer go. Write the English of the unfinished ones,
# and build; nothing else reads the sources for texts.
set -eu
cd "$(dirname "$0")/.."
tools=$(qmake6 -query QT_INSTALL_BINS)
# Both functions stand where lupdate expects a translation: context, text, note and count.
"$tools/lupdate" Quillbar QuillbarCore -extensions cpp,h \
    -tr-function-alias translate+=translated,translate+=userText \
    -source-language zh_CN -target-language en -locations none -no-obsolete \
    -ts Quillbar/translations/quillbar_en.ts
