// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/ChineseFont.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QString>

namespace quillbar::ChineseFont {

namespace {

// A font that is not complete enough to be marked as Chinese may still have all characters of the
// panel.
bool canShow(const QString& text) {
    const QFontMetrics metrics(QGuiApplication::font());
    for (const QChar character : text) {
        if (!metrics.inFont(character)) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool isInstalled() {
    return !QFontDatabase::families(QFontDatabase::SimplifiedChinese).isEmpty()
           || canShow(QStringLiteral("自选涨幅跌幅成交额市值"));
}

}  // namespace quillbar::ChineseFont
