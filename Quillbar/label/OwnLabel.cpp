// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/OwnLabel.h"

#include "QuillbarCore/state/PreferencesStore.h"

namespace quillbar {

OwnLabel::OwnLabel(const ServicePlatform& platform,
                   const ServiceEndpoints& endpoints,
                   const std::filesystem::path& folder,
                   LabelMode mode)
    : m_services(platform, endpoints, folder)
    , m_preferences(PreferencesStore(folder).load()) {
    m_services.start();
    if (mode == LabelMode::follow) {
        m_systemEvents.emplace(m_services, platform.executor, platform.sleeper);
    }
}

}  // namespace quillbar
