// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/SettingsMenu.h"

#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/state/AppearanceMode.h"

#include <cstddef>
#include <utility>

namespace quillbar {

namespace {

// The menu changes, so an id must not depend on the place of its entry.
enum Id : int {
    basisHeader = SettingsMenu::kFirstId,
    firstBasis,
    appearanceHeader = 20,
    firstAppearance,
    aboveLaunch = 30,
    launch,
    launchError,
    preferences,
};

static_assert(preferences <= SettingsMenu::kLastId);
static_assert(firstBasis + int{kAllChangeBases.size()} <= appearanceHeader);
static_assert(firstAppearance + int{kAllAppearanceModes.size()} <= aboveLaunch);

/// A title, and below it all values of a setting, the present one marked.
template <class Values, class Value>
void addPicker(std::vector<MenuEntry>& entries,
               int headerId,
               const QString& title,
               const Values& values,
               Value present) {
    entries.push_back(MenuEntry{.id = headerId, .label = title, .kind = MenuEntry::Kind::header});
    int id = headerId;
    for (const Value value : values) {
        ++id;
        entries.push_back(MenuEntry{.id = id,
                                    .label = translatedFromCore(displayName(value)),
                                    .mark = MenuEntry::Mark::radio,
                                    .isOn = value == present});
    }
}

/// The value whose entry has this id; absent if there is none.
template <class Values>
auto valueOf(const Values& values, int firstId, int id)
    -> std::optional<typename Values::value_type> {
    const int index = id - firstId;
    if (index < 0 || static_cast<std::size_t>(index) >= values.size()) {
        return std::nullopt;
    }
    return values[static_cast<std::size_t>(index)];
}

QString launchErrorText(bool isEnabling) {
    return isEnabling ? translated("panel", "开机自启注册失败,请检查系统设置中的登录项")
                      : translated("panel", "取消开机自启失败,请稍后重试");
}

}  // namespace

SettingsMenu::SettingsMenu(AppState& appState, LaunchAtLogin& launchAtLogin)
    : m_appState(appState)
    , m_launchAtLogin(launchAtLogin)
    , m_isLaunched(launchAtLogin.isEnabled()) {
    const auto changed = [this](const auto& /*value*/) { updateEntries(); };
    m_observations.push_back(appState.settings().observe(changed));
    m_observations.push_back(m_isLaunched.observe(changed));
    m_observations.push_back(m_launchError.observe(changed));
    updateEntries();
}

SettingsMenu::Choice SettingsMenu::choose(int id) {
    if (id == launch) {
        setLaunchAtLogin(!*m_isLaunched);
        return *m_launchError ? Choice::failed : Choice::done;
    }
    if (id == preferences) {
        return Choice::wantsPreferences;
    }
    if (const auto basis = valueOf(kAllChangeBases, firstBasis, id)) {
        m_appState.setChangeBasis(*basis);
    } else if (const auto mode = valueOf(kAllAppearanceModes, firstAppearance, id)) {
        m_appState.setAppearance(*mode);
    }
    return Choice::done;
}

void SettingsMenu::setLaunchAtLogin(bool enabled) {
    m_isLaunched.set(enabled);
    if (m_launchAtLogin.set(enabled)) {
        m_launchError.set(std::nullopt);
        return;
    }
    m_isLaunched.set(m_launchAtLogin.isEnabled());
    m_wantedLaunch = enabled;
    m_launchError.set(launchErrorText(enabled));
}

void SettingsMenu::refresh() {
    m_isLaunched.set(m_launchAtLogin.isEnabled());
}

void SettingsMenu::renewTexts() {
    if (*m_launchError) {
        m_launchError.set(launchErrorText(m_wantedLaunch));
    }
    updateEntries();
}

void SettingsMenu::updateEntries() {
    const AppSettings& settings = *m_appState.settings();
    std::vector<MenuEntry> entries;
    addPicker(entries,
              basisHeader,
              translated("panel", "涨跌幅基准"),
              kAllChangeBases,
              settings.changeBasis);
    addPicker(entries,
              appearanceHeader,
              translated("panel", "外观"),
              kAllAppearanceModes,
              settings.appearance);
    entries.push_back(MenuEntry{.id = aboveLaunch, .kind = MenuEntry::Kind::separator});
    entries.push_back(MenuEntry{.id = launch,
                                .label = translated("panel", "开机自启"),
                                .mark = MenuEntry::Mark::check,
                                .isOn = *m_isLaunched});
    if (const auto& error = *m_launchError) {
        entries.push_back(
            MenuEntry{.id = launchError, .label = *error, .kind = MenuEntry::Kind::notice});
    }
    entries.push_back(MenuEntry{.id = preferences, .label = translated("panel", "偏好设置…")});
    m_entries.set(std::move(entries));
}

}  // namespace quillbar
