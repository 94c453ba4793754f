// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

/// The names under which the application is found on the session bus. Stable for ever: desktop
/// files, users' hot keys and scripts hold them.
namespace quillbar::ApplicationNames {

inline constexpr const char* kBusName = "io.github.quillbar.Quillbar";
inline constexpr const char* kObjectPath = "/io/github/quillbar/Quillbar";
/// What desktops call when the user starts the application a second time.
inline constexpr const char* kApplicationInterface = "org.freedesktop.Application";
inline constexpr const char* kLabelInterface = "io.github.quillbar.Quillbar.Label";
inline constexpr const char* kAlertsInterface = "io.github.quillbar.Quillbar.Alerts";

}  // namespace quillbar::ApplicationNames
