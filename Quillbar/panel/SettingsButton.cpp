// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/SettingsButton.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/EntryMenu.h"
#include "Quillbar/widgets/PanelMenu.h"
#include "QuillbarCore/catalog/CoinNames.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMetaObject>
#include <QSize>
#include <QStringList>

#include <string>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

constexpr double kGlyphSize = 15;
constexpr QSize kSize(24, 24);

constexpr int kAboveCopy = SettingsMenu::kLastId + 1;
constexpr int kCopy = SettingsMenu::kLastId + 2;
constexpr int kAboveQuit = SettingsMenu::kLastId + 3;
constexpr int kQuit = SettingsMenu::kLastId + 4;

/// The button as screen readers see it. Qt would call it a plain button.
class AccessibleMenuButton final : public QAccessibleWidget {
public:
    explicit AccessibleMenuButton(SettingsButton& button)
        : QAccessibleWidget(&button, QAccessible::ButtonMenu)
        , m_button(button) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State told = QAccessibleWidget::state();
        told.hasPopup = true;
        return told;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == showMenuAction() || name == pressAction()) {
            m_button.click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    // Outlives this.
    SettingsButton& m_button;
};

// The caller owns what is made; null leaves the object to Qt.
QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const button = dynamic_cast<SettingsButton*>(object);
    return button == nullptr ? nullptr : new AccessibleMenuButton(*button);
}

}  // namespace

SettingsButton::SettingsButton(SettingsMenu& settings,
                               const Observed<Watchlist>& watchlist,
                               std::function<void()> quit,
                               QWidget* parent)
    : GlyphButton(Glyph::gear, kGlyphSize, kSize, parent)
    , m_settings(settings)
    , m_watchlist(watchlist)
    , m_quit(std::move(quit))
    , m_menu(new PanelMenu(this)) {
    // Installing it again changes nothing.
    QAccessible::installFactory(makeAccessible);
    setAccessibleName(translated("panel", "设置"));
    setToolTip(translated("panel", "设置"));
    m_menu->setAccessibleName(translated("panel", "设置"));
    QObject::connect(this, &QAbstractButton::clicked, this, [this] { openMenu(); });
    QObject::connect(m_menu, &QMenu::aboutToShow, this, [this] { setLit(true); });
    QObject::connect(m_menu, &QMenu::aboutToHide, this, [this] { setLit(false); });
}

void SettingsButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down) {
        openMenu();
    } else {
        GlyphButton::keyPressEvent(event);
    }
}

void SettingsButton::openMenu() {
    m_reason = focusReason();
    m_settings.refresh();
    // The menu is filled each time it opens, so that no entry changes under the pointer or while it
    // is chosen.
    std::vector<MenuEntry> entries = *m_settings.entries();
    entries.push_back(MenuEntry{.id = kAboveCopy, .kind = MenuEntry::Kind::separator});
    entries.push_back(MenuEntry{.id = kCopy,
                                .label = translated("panel", "复制自选"),
                                .isEnabled = !m_watchlist->coins.empty()});
    entries.push_back(MenuEntry{.id = kAboveQuit, .kind = MenuEntry::Kind::separator});
    entries.push_back(MenuEntry{.id = kQuit, .label = translated("panel", "退出 Quillbar")});
    fillMenu(*m_menu, entries, [this](int id) { choose(id); });
    m_menu->openBelow(*this);
}

void SettingsButton::choose(int id) {
    if (id == kQuit) {
        m_quit();
        return;
    }
    if (id == kCopy) {
        copyWatchlist();
        return;
    }
    switch (m_settings.choose(id)) {
    case SettingsMenu::Choice::done:
        break;
    case SettingsMenu::Choice::wantsPreferences:
        if (onPreferences) {
            onPreferences(m_reason);
        }
        break;
    case SettingsMenu::Choice::failed:
        // Opened later, because opening the menu deletes the entry that was chosen. The panel may
        // have been closed by then.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (isVisible()) {
                    openMenu();
                }
            },
            Qt::QueuedConnection);
        break;
    }
}

void SettingsButton::copyWatchlist() {
    const std::string text = CoinNames::textOf(m_watchlist->coins);
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

}  // namespace quillbar
