// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelOptions.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

LabelOptions optionsOf(const std::vector<std::string>& arguments) {
    const auto parsed = parseLabelOptions(arguments);
    const auto* const options = std::get_if<LabelOptions>(&parsed);
    EXPECT_NE(options, nullptr);
    return options != nullptr ? *options : LabelOptions{};
}

std::string errorOf(const std::vector<std::string>& arguments) {
    const auto parsed = parseLabelOptions(arguments);
    const auto* const error = std::get_if<LabelUsageError>(&parsed);
    EXPECT_NE(error, nullptr);
    return error != nullptr ? error->text : std::string();
}

std::string informationOf(const std::vector<std::string>& arguments) {
    const auto parsed = parseLabelOptions(arguments);
    const auto* const information = std::get_if<LabelInformation>(&parsed);
    EXPECT_NE(information, nullptr);
    return information != nullptr ? information->text : std::string();
}

TEST(LabelOptions, withoutArgumentsPrintOnceAsText) {
    EXPECT_EQ(optionsOf({}), (LabelOptions{LabelMode::once, LabelFormat::text}));
}

TEST(LabelOptions, nameTheMode) {
    EXPECT_EQ(optionsOf({"--once"}).mode, LabelMode::once);
    EXPECT_EQ(optionsOf({"--follow"}).mode, LabelMode::follow);
    EXPECT_EQ(optionsOf({"--boards"}).mode, LabelMode::boards);
    EXPECT_EQ(optionsOf({"--follow", "--follow"}).mode, LabelMode::follow);
}

TEST(LabelOptions, nameTheFormatInEitherSpelling) {
    EXPECT_EQ(optionsOf({"--format", "json"}).format, LabelFormat::json);
    EXPECT_EQ(optionsOf({"--format=waybar", "--follow"}),
              (LabelOptions{LabelMode::follow, LabelFormat::waybar}));
    EXPECT_EQ(optionsOf({"--format=text"}).format, LabelFormat::text);
}

TEST(LabelOptions, wordTheTextInEitherSpelling) {
    const auto wording = std::get<LabelTemplate>(LabelTemplate::parse("{symbol}={price}"));
    EXPECT_EQ(optionsOf({"--template", "{symbol}={price}"}).labelTemplate, wording);
    const LabelOptions options =
        optionsOf({"--template={symbol}={price}", "--follow", "--format=json"});
    EXPECT_EQ(options.labelTemplate, wording);
    EXPECT_EQ(options.mode, LabelMode::follow);
    EXPECT_EQ(options.format, LabelFormat::json);
    EXPECT_FALSE(optionsOf({}).labelTemplate);
}

TEST(LabelOptions, tellWhereATemplateIsWrong) {
    EXPECT_EQ(errorOf({"--template", "币 {prize}"}),
              "--template 的第 4 个字符：未知的字段「prize」，可用 symbol、price、arrow 或 change");
    EXPECT_EQ(errorOf({"--template={price", "--help"}),
              "--template 的第 1 个字符：「{」之后没有「}」，要写大括号本身请用「{{」");
    EXPECT_EQ(errorOf({"--template="}), "--template 的第 1 个字符：模板不能为空");
    EXPECT_EQ(errorOf({"--template"}), "--template 需要一个模板，如 '{symbol} {price}'");
    EXPECT_EQ(errorOf({"--boards", "--template={price}"}), "--boards 不能与 --template 同用");
    EXPECT_EQ(errorOf({"--templat={price}"}), "未知的参数「--templat={price}」，请看 --help");
}

TEST(LabelOptions, nameCoinsOnceEach) {
    EXPECT_EQ(optionsOf({}).coins, std::vector<Coin>{});
    EXPECT_EQ(optionsOf({"--symbol", "eth", "--symbol=SOL/USDT", "--symbol", "ETHUSDT"}).coins,
              (std::vector<Coin>{{"ETHUSDT", "ETH"}, {"SOLUSDT", "SOL"}}));
}

TEST(LabelOptions, tellHowACoinIsNamed) {
    const std::string rest = "不是 USDT 交易对，请写 ETH 或 ETH/USDT，多个币种请多次使用 --symbol";
    EXPECT_EQ(errorOf({"--symbol", "ETH/BTC"}), "「ETH/BTC」" + rest);
    EXPECT_EQ(errorOf({"--symbol=ETH,BTC", "--help"}), "「ETH,BTC」" + rest);
    EXPECT_EQ(errorOf({"--symbol="}), "「」" + rest);
    EXPECT_EQ(errorOf({"--symbol"}), "--symbol 需要一个币种，如 ETH");
    EXPECT_EQ(errorOf({"--symbol=ETH", "--boards"}), "--boards 不能与 --symbol 同用");
}

TEST(LabelOptions, thatMakeNoSenseAreToldInOneLine) {
    EXPECT_EQ(errorOf({"--once", "--follow"}), "--once、--follow 与 --boards 只能使用其一");
    EXPECT_EQ(errorOf({"--boards", "--once"}), "--once、--follow 与 --boards 只能使用其一");
    EXPECT_EQ(errorOf({"--follow", "--boards"}), "--once、--follow 与 --boards 只能使用其一");
    EXPECT_EQ(errorOf({"--folow"}), "未知的参数「--folow」，请看 --help");
    EXPECT_EQ(errorOf({"price"}), "未知的参数「price」，请看 --help");
    EXPECT_EQ(errorOf({"--format"}), "--format 需要一个格式：text、json 或 waybar");
    EXPECT_EQ(errorOf({"--format", "xml"}), "未知的格式「xml」，可用 text、json 或 waybar");
    EXPECT_EQ(errorOf({"--format="}), "未知的格式「」，可用 text、json 或 waybar");
}

TEST(LabelOptions, giveTheBoardsNoFormat) {
    const std::string text = "--boards 只能输出文本，不能与 --format 同用";
    EXPECT_EQ(errorOf({"--boards", "--format", "json"}), text);
    EXPECT_EQ(errorOf({"--format=waybar", "--boards"}), text);
    EXPECT_EQ(errorOf({"--format=text", "--boards"}), text);
    EXPECT_NE(informationOf({"--boards", "--format=json", "--help"}), "");
}

TEST(LabelOptions, helpNamesEveryOptionAndExitStatus) {
    const std::string help = informationOf({"--follow", "--help"});
    for (const char* const part : {"--once",
                                   "--follow",
                                   "--boards",
                                   "--format",
                                   "--template",
                                   "--symbol",
                                   "{symbol}",
                                   "{price}",
                                   "{arrow}",
                                   "{change}",
                                   "json",
                                   "waybar",
                                   "--help",
                                   "--version",
                                   "0 成功；",
                                   "2 参数或环境变量有误；",
                                   "3 未能及时得到价格；",
                                   "4 未能写出结果。",
                                   "最多等 15 秒",
                                   "前十名",
                                   "QUILLBAR_REST_ENDPOINTS ",
                                   "QUILLBAR_STREAM_ENDPOINTS ",
                                   "QUILLBAR_MARKETCAP_ENDPOINT ",
                                   "QUILLBAR_CA_FILE "}) {
        EXPECT_NE(help.find(part), std::string::npos) << part;
    }
}

TEST(LabelOptions, versionIsTheBuilds) {
    EXPECT_EQ(informationOf({"--version"}), "quillbar-label " QUILLBAR_VERSION "\n");
}

}  // namespace

}  // namespace quillbar
