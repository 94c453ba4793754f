// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/StatusNotifierItem.h"

#include <QDBusMetaType>

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

// Any program may report any position, and computing with it must not overflow.
QPoint reportedPosition(int x, int y) {
    constexpr int kFarthest = StatusNotifierItem::kFarthest;
    return {std::clamp(x, -kFarthest, kFarthest), std::clamp(y, -kFarthest, kFarthest)};
}

}  // namespace

StatusNotifierItem::StatusNotifierItem(QString menu, Handlers handlers)
    : m_menu(std::move(menu))
    , m_handlers(std::move(handlers)) {
    qDBusRegisterMetaType<StatusImage>();
    qDBusRegisterMetaType<StatusImages>();
    qDBusRegisterMetaType<StatusTooltip>();
}

void StatusNotifierItem::setThemeIcon(const QString& name) {
    if (name == m_iconName) {
        return;
    }
    m_iconName = name;
    m_iconPixmap = {};
    m_draw = {};
    Q_EMIT NewIcon();
}

void StatusNotifierItem::setPictures(Draw draw) {
    m_iconName.clear();
    m_iconPixmap = {};
    m_draw = std::move(draw);
    Q_EMIT NewIcon();
}

StatusImages StatusNotifierItem::iconPixmap() {
    if (const Draw draw = std::exchange(m_draw, {})) {
        m_iconPixmap = draw();
    }
    return m_iconPixmap;
}

void StatusNotifierItem::setTitle(const QString& title) {
    if (title == m_title) {
        return;
    }
    m_title = title;
    Q_EMIT NewTitle();
}

void StatusNotifierItem::setTooltip(const QString& title, const QString& text) {
    const StatusTooltip tooltip{.title = title, .text = text};
    if (tooltip == m_tooltip) {
        return;
    }
    m_tooltip = tooltip;
    Q_EMIT NewToolTip();
}

void StatusNotifierItem::setLabel(const QString& label,
                                  const QString& guide,
                                  Announcement announcement) {
    if (label == m_label && guide == m_labelGuide) {
        return;
    }
    m_label = label;
    m_labelGuide = guide;
    if (announcement == Announcement::sent) {
        Q_EMIT XAyatanaNewLabel(label, guide);
    }
}

void StatusNotifierItem::Activate(int x, int y) {
    m_handlers.activate(reportedPosition(x, y));
}

void StatusNotifierItem::ContextMenu(int x, int y) {
    m_handlers.contextMenu(reportedPosition(x, y));
}

void StatusNotifierItem::SecondaryActivate(int x, int y) {
    m_handlers.secondaryActivate(reportedPosition(x, y));
}

void StatusNotifierItem::Scroll(int delta, const QString& orientation) {
    if (delta != 0 && orientation.compare(QStringLiteral("vertical"), Qt::CaseInsensitive) == 0) {
        m_handlers.scroll(delta < 0 ? 1 : -1);
    }
}

void StatusNotifierItem::ProvideXdgActivationToken(const QString& token) {
    m_handlers.activationToken(token);
}

void StatusNotifierItem::XAyatanaSecondaryActivate(uint /*timestamp*/) {
    m_handlers.secondaryActivate(std::nullopt);
}

}  // namespace quillbar
