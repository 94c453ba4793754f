// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/Translated.h"

#include <QCoreApplication>

namespace quillbar {

QString translated(const char* context, const char* chinese) {
    return QCoreApplication::translate(context, chinese);
}

}  // namespace quillbar
