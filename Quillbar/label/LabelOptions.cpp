// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelOptions.h"

#include "Quillbar/label/CoinName.h"
#include "Quillbar/platform/Formatted.h"
#include "Quillbar/platform/Translated.h"

#include <QString>

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace quillbar {

namespace {

std::string help() {
    return translated("label", R"(用法：quillbar-label [选项]

显示固定币种的实时价格，适用于状态栏和终端。

选项：
  --once           等到价格后输出一行并退出（默认，最多等 15 秒）
  --follow         每当文字变化时输出一行
  --boards         输出涨幅、跌幅、成交额、市值四个榜单的前十名并退出
  --format 格式    text（默认）、json 或 waybar，不能与 --boards 同用
  --template 模板  自己写文字，如 '{symbol} {price:.0} {change}'，不能与 --boards 同用
  --symbol 币种    输出这个币种，如 ETH 或 ETH/USDT，可多次使用，不能与 --boards 同用
  --help           显示本说明
  --version        显示版本

模板里可用 {symbol}（币种）、{price}（价格）、{arrow}（箭头）和 {change}（涨跌幅，模板里没有箭头时带正负号）。
冒号后依次可写 < 或 >（靠左或靠右）、宽度和小数位数，如 {price:>10.2}；大括号本身写作 {{ 和 }}。
没有当前价格时只输出币种名称。json 和 waybar 的 text 也按模板。

退出状态：0 成功；2 参数或环境变量有误；3 未能及时得到价格；4 未能写出结果。

环境变量：
  QUILLBAR_REST_ENDPOINTS      行情接口地址，以逗号分隔
  QUILLBAR_STREAM_ENDPOINTS    实时行情地址，以逗号分隔
  QUILLBAR_MARKETCAP_ENDPOINT  市值接口地址
  QUILLBAR_CA_FILE             额外信任的证书颁发机构（PEM 文件）
)")
        .toStdString();
}

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

constexpr std::string_view kFormatOption = "--format";
constexpr std::string_view kTemplateOption = "--template";
constexpr std::string_view kSymbolOption = "--symbol";

bool hasValue(std::string_view option) {
    return option == kFormatOption || option == kTemplateOption || option == kSymbolOption;
}

QString valueMissing(std::string_view option) {
    if (option == kFormatOption) {
        return translated("label", "--format 需要一个格式：text、json 或 waybar");
    }
    return option == kTemplateOption
               ? translated("label", "--template 需要一个模板，如 '{symbol} {price}'")
               : translated("label", "--symbol 需要一个币种，如 ETH");
}

LabelUsageError usageError(const QString& text) {
    return {text.toStdString()};
}

/// What has been read so far. An option that is not given is absent.
struct GivenOptions {
    std::optional<LabelMode> mode;
    std::optional<LabelFormat> format;
    std::optional<LabelTemplate> labelTemplate;
    std::vector<Coin> coins;
};

// Each of these returns the error, if there is one.

std::optional<LabelUsageError> takeMode(LabelMode mode, GivenOptions& given) {
    if (given.mode && given.mode != mode) {
        return usageError(translated("label", "--once、--follow 与 --boards 只能使用其一"));
    }
    given.mode = mode;
    return std::nullopt;
}

std::optional<LabelUsageError> takeFormat(const std::string& name, GivenOptions& given) {
    given.format = formatNamed(name);
    if (!given.format) {
        return LabelUsageError{
            formatted(translated("label", "未知的格式「{}」，可用 text、json 或 waybar"), name)};
    }
    return std::nullopt;
}

std::optional<LabelUsageError> takeTemplate(const std::string& text, GivenOptions& given) {
    auto parsed = LabelTemplate::parse(text);
    if (const auto* const error = std::get_if<LabelTemplateError>(&parsed)) {
        return LabelUsageError{formatted(
            translated("label", "--template 的第 {} 个字符：{}"), error->position, error->text)};
    }
    given.labelTemplate = std::get<LabelTemplate>(std::move(parsed));
    return std::nullopt;
}

std::optional<LabelUsageError> takeCoin(const std::string& name, GivenOptions& given) {
    const std::optional<Coin> coin = coinNamed(name);
    if (!coin) {
        return LabelUsageError{formatted(
            translated("label",
                       "「{}」不是 USDT 交易对，请写 ETH 或 ETH/USDT，多个币种请多次使用 --symbol"),
            name)};
    }
    if (std::ranges::find(given.coins, *coin) == given.coins.end()) {
        given.coins.push_back(*coin);
    }
    return std::nullopt;
}

std::optional<LabelUsageError> takeValue(std::string_view option,
                                         const std::string& value,
                                         GivenOptions& given) {
    if (option == kFormatOption) {
        return takeFormat(value, given);
    }
    return option == kTemplateOption ? takeTemplate(value, given) : takeCoin(value, given);
}

std::variant<LabelOptions, LabelInformation, LabelUsageError> together(GivenOptions given) {
    if (given.mode == LabelMode::boards && given.format) {
        return usageError(translated("label", "--boards 只能输出文本，不能与 --format 同用"));
    }
    if (given.mode == LabelMode::boards && given.labelTemplate) {
        return usageError(translated("label", "--boards 不能与 --template 同用"));
    }
    if (given.mode == LabelMode::boards && !given.coins.empty()) {
        return usageError(translated("label", "--boards 不能与 --symbol 同用"));
    }
    return LabelOptions{.mode = given.mode.value_or(LabelMode::once),
                        .format = given.format.value_or(LabelFormat::text),
                        .labelTemplate = std::move(given.labelTemplate),
                        .coins = std::move(given.coins)};
}

}  // namespace

std::variant<LabelOptions, LabelInformation, LabelUsageError> parseLabelOptions(
    const std::vector<std::string>& arguments) {
    GivenOptions given;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--help" || *argument == "-h") {
            return LabelInformation{help()};
        }
        if (*argument == "--version") {
            return LabelInformation{fmt::format("quillbar-label {}\n", QUILLBAR_VERSION)};
        }
        std::optional<LabelUsageError> error;
        const std::size_t equals = argument->find('=');
        const std::string option = argument->substr(0, equals);
        if (const auto mode = modeNamed(*argument)) {
            error = takeMode(*mode, given);
        } else if (!hasValue(option)) {
            error = LabelUsageError{
                formatted(translated("label", "未知的参数「{}」，请看 --help"), *argument)};
        } else if (equals != std::string::npos) {
            error = takeValue(option, argument->substr(equals + 1), given);
        } else if (++argument != arguments.end()) {
            error = takeValue(option, *argument, given);
        } else {
            return usageError(valueMissing(option));
        }
        if (error) {
            return *std::move(error);
        }
    }
    return together(std::move(given));
}

}  // namespace quillbar
