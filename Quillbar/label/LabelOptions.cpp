// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelOptions.h"

#include <fmt/format.h>

#include <optional>
#include <string_view>

namespace quillbar {

namespace {

constexpr std::string_view kHelp = R"(用法:quillbar-label [选项]

显示固定币种的实时价格,适用于状态栏和终端。

选项:
  --once           等到价格后输出一行并退出(默认,最多等 15 秒)
  --follow         每当文字变化时输出一行
  --boards         输出涨幅、跌幅、成交额、市值四个榜单的前十名并退出
  --format 格式    text(默认)、json 或 waybar,不能与 --boards 同用
  --help           显示本说明
  --version        显示版本

退出状态:0 成功;2 参数或环境变量有误;3 未能及时得到价格;4 未能写出结果。

环境变量:
  QUILLBAR_REST_ENDPOINTS      行情接口地址,以逗号分隔
  QUILLBAR_STREAM_ENDPOINTS    实时行情地址,以逗号分隔
  QUILLBAR_MARKETCAP_ENDPOINT  市值接口地址
  QUILLBAR_CA_FILE             额外信任的证书颁发机构(PEM 文件)
)";

std::optional<LabelMode> modeNamed(std::string_view option) {
    if (option == "--once") {
        return LabelMode::once;
    }
    if (option == "--follow") {
        return LabelMode::follow;
    }
    if (option == "--boards") {
        return LabelMode::boards;
    }
    return std::nullopt;
}

std::optional<LabelFormat> formatNamed(std::string_view name) {
    if (name == "text") {
        return LabelFormat::text;
    }
    if (name == "json") {
        return LabelFormat::json;
    }
    if (name == "waybar") {
        return LabelFormat::waybar;
    }
    return std::nullopt;
}

}  // namespace

std::variant<LabelOptions, LabelInformation, LabelUsageError> parseLabelOptions(
    const std::vector<std::string>& arguments) {
    constexpr std::string_view kFormatOption = "--format";
    std::optional<LabelMode> mode;
    std::optional<LabelFormat> format;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--help" || *argument == "-h") {
            return LabelInformation{std::string(kHelp)};
        }
        if (*argument == "--version") {
            return LabelInformation{fmt::format("quillbar-label {}\n", QUILLBAR_VERSION)};
        }
        if (const auto asked = modeNamed(*argument)) {
            if (mode && mode != asked) {
                return LabelUsageError{"--once、--follow 与 --boards 只能使用其一"};
            }
            mode = asked;
            continue;
        }
        std::string name;
        if (argument->starts_with("--format=")) {
            name = argument->substr(kFormatOption.size() + 1);
        } else if (*argument == kFormatOption) {
            if (++argument == arguments.end()) {
                return LabelUsageError{"--format 需要一个格式:text、json 或 waybar"};
            }
            name = *argument;
        } else {
            return LabelUsageError{fmt::format("未知的参数「{}」,请看 --help", *argument)};
        }
        format = formatNamed(name);
        if (!format) {
            return LabelUsageError{fmt::format("未知的格式「{}」,可用 text、json 或 waybar", name)};
        }
    }
    if (mode == LabelMode::boards && format) {
        return LabelUsageError{"--boards 只能输出文本,不能与 --format 同用"};
    }
    return LabelOptions{mode.value_or(LabelMode::once), format.value_or(LabelFormat::text)};
}

}  // namespace quillbar
