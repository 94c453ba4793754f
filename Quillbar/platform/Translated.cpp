// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/Translated.h"

#include <QCoreApplication>

namespace quillbar {

QString translated(const char* context, const char* chinese) {
    return QCoreApplication::translate(context, chinese);
}

QString translated(const char* context, const char* chinese, const char* note, int count) {
    return QCoreApplication::translate(context, chinese, note, count);
}

}  // namespace quillbar
