// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/Notices.h"

#include "Quillbar/platform/Translated.h"

#include <algorithm>

namespace quillbar {

void Notices::add(Notice notice) {
    std::vector<Notice> notices = *m_standing;
    const auto place = std::lower_bound(notices.begin(), notices.end(), notice);
    if (place == notices.end() || *place != notice) {
        notices.insert(place, notice);
        m_standing.set(notices);
    }
}

void Notices::remove(Notice notice) {
    std::vector<Notice> notices = *m_standing;
    std::erase(notices, notice);
    m_standing.set(notices);
}

QString Notices::text(Notice notice) {
    switch (notice) {
    case Notice::noChineseFont:
        // The only text that is not only in Chinese: it is shown where Chinese cannot be displayed.
        return translated("panel",
                          "缺少中文字体 (no font for Chinese): install fonts-noto-cjk, "
                          "then restart Quillbar");
    case Notice::noSessionBus:
        return translated("panel",
                          "没有会话总线（D-Bus），大多数状态栏无法显示 Quillbar。"
                          "请从桌面会话中启动；按 Ctrl+Q 退出");
    case Notice::noTray:
        return translated("panel",
                          "桌面没有可用的状态栏，面板以窗口打开。GNOME 请启用扩展 "
                          "AppIndicator and KStatusNotifierItem Support；"
                          "再次启动 Quillbar 可重新打开面板，按 Ctrl+Q 退出");
    case Notice::firstStart:
        return translated(
            "panel",
            "价格在状态栏里，点一下（GNOME 上双击）打开面板。看不到时，请展开状态栏里隐藏的图标，"
            "在状态栏的设置里让 Quillbar 一直显示；再次启动 Quillbar 也会打开面板");
    }
    return {};
}

}  // namespace quillbar
