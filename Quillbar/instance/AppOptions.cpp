// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/AppOptions.h"

#include "Quillbar/platform/Formatted.h"
#include "Quillbar/platform/Translated.h"

#include <fmt/format.h>

#include <string_view>

namespace quillbar {

namespace {

std::string help() {
    return translated("instance", R"(用法：quillbar [选项]

在桌面的状态栏里显示固定币种的实时价格，点击后打开行情面板。
已在运行时，再次启动会显示或隐藏面板。

选项：
  --show           显示面板
  --toggle         显示或隐藏面板，适合绑定快捷键
  --preferences    显示偏好设置
  --discreet       隐藏或重新显示状态栏里的数字，适合绑定快捷键
  --quit           退出正在运行的程序
  --background     在后台启动，不打开面板，适合开机自启；已在运行时什么也不做
  --help           显示本说明
  --version        显示版本

退出状态：0 成功；1 无法启动，或没有可以操作的程序；2 参数或环境变量有误。

环境变量：
  QUILLBAR_REST_ENDPOINTS      行情接口地址，以逗号分隔
  QUILLBAR_STREAM_ENDPOINTS    实时行情地址，以逗号分隔
  QUILLBAR_MARKETCAP_ENDPOINT  市值接口地址
  QUILLBAR_ICON_ENDPOINT       图标地址
  QUILLBAR_CA_FILE             额外信任的证书颁发机构（PEM 文件）
)")
        .toStdString();
}

/// What the program does with this option alone.
std::optional<AppOptions> requestOf(std::string_view option) {
    if (option == "--show") {
        return AppOptions{.action = ApplicationAction::showPanel};
    }
    if (option == "--toggle") {
        return AppOptions{.action = ApplicationAction::togglePanel};
    }
    if (option == "--preferences") {
        return AppOptions{.action = ApplicationAction::showPreferences};
    }
    if (option == "--discreet") {
        return AppOptions{.action = ApplicationAction::toggleDiscreet};
    }
    if (option == "--quit") {
        return AppOptions{.action = ApplicationAction::quit};
    }
    if (option == "--background") {
        return AppOptions{.manner = StartManner::background};
    }
    return std::nullopt;
}

}  // namespace

std::variant<AppOptions, AppInformation, AppUsageError> parseAppOptions(
    const std::vector<std::string>& arguments) {
    AppOptions options;
    for (const std::string& argument : arguments) {
        if (argument == "--help" || argument == "-h") {
            return AppInformation{help()};
        }
        if (argument == "--version") {
            return AppInformation{fmt::format("quillbar {}\n", QUILLBAR_VERSION)};
        }
        const auto request = requestOf(argument);
        if (!request) {
            return AppUsageError{
                formatted(translated("instance", "未知的参数「{}」，请看 --help"), argument)};
        }
        if (options != AppOptions{} && options != *request) {
            return AppUsageError{translated("instance",
                                            "--show、--toggle、--preferences、--discreet、--quit "
                                            "与 --background 只能使用其一")
                                     .toStdString()};
        }
        options = *request;
    }
    return options;
}

}  // namespace quillbar
