// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/SettingsButton.h"

#include "Quillbar/PanelMenu.h"
#include "Quillbar/tray/EntryMenu.h"

#include <QKeyEvent>
#include <QMetaObject>
#include <QSize>

#include <utility>
#include <vector>

namespace quillbar {

namespace {

constexpr double kGlyphSize = 15;
constexpr QSize kSize(24, 24);

constexpr int kAboveQuit = SettingsMenu::kLastId + 1;
constexpr int kQuit = SettingsMenu::kLastId + 2;

}  // namespace

SettingsButton::SettingsButton(SettingsMenu& settings, std::function<void()> quit, QWidget* parent)
    : GlyphButton(Glyph::gear, kGlyphSize, kSize, parent)
    , m_settings(settings)
    , m_quit(std::move(quit))
    , m_menu(new PanelMenu(this)) {
    setAccessibleName(QStringLiteral("设置"));
    setToolTip(QStringLiteral("设置"));
    QObject::connect(this, &QAbstractButton::clicked, this, [this] { openMenu(); });
}

void SettingsButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down) {
        openMenu();
    } else {
        GlyphButton::keyPressEvent(event);
    }
}

void SettingsButton::openMenu() {
    m_settings.refresh();
    // Made for each opening, so that no entry changes under the pointer, or while it is chosen.
    std::vector<MenuEntry> entries = *m_settings.entries();
    entries.push_back(MenuEntry{.id = kAboveQuit, .kind = MenuEntry::Kind::separator});
    entries.push_back(MenuEntry{.id = kQuit, .label = QStringLiteral("退出 Quillbar")});
    fillMenu(*m_menu, entries, [this](int id) { choose(id); });
    m_menu->openBelow(*this);
}

void SettingsButton::choose(int id) {
    if (id == kQuit) {
        m_quit();
    } else if (m_settings.choose(id) == SettingsMenu::Choice::failed) {
        // Later, because the entry that was chosen goes when the menu opens. The panel may have been
        // closed by then.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (isVisible()) {
                    openMenu();
                }
            },
            Qt::QueuedConnection);
    }
}

}  // namespace quillbar
