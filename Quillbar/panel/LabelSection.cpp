// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/LabelSection.h"

#include "Quillbar/labelstate/LabelTemplate.h"
#include "Quillbar/labelstate/LabelWords.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/SearchField.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "Quillbar/widgets/ChoiceValues.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/state/AppState.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <QHideEvent>
#include <QMargins>
#include <QShowEvent>
#include <QVBoxLayout>

#include <cstddef>
#include <string>
#include <variant>

namespace quillbar {

namespace {

constexpr int kSpacing = 4;
constexpr double kTextSize = 10.5;
/// The item cuts longer labels, too.
constexpr qsizetype kLongestPreview = 64;

QString titleOf(LabelWording wording) {
    switch (wording) {
    case LabelWording::symbolPriceChange:
        return translated("panel", "币种 价格 涨跌");
    case LabelWording::symbolPrice:
        return translated("panel", "币种 价格");
    case LabelWording::price:
        return translated("panel", "价格");
    case LabelWording::change:
        return translated("panel", "涨跌");
    case LabelWording::symbol:
        return translated("panel", "币种");
    case LabelWording::custom:
        break;
    }
    return translated("panel", "自定义");
}

// What the preview is written of while there is no price.
PinnedQuote exampleQuote() {
    return {.coin = Coin{"BTCUSDT", "BTC"},
            .ticker = Ticker{67234.5, 66417.56},
            .changePercent = 1.23,
            .freshness = PriceFreshness::live};
}

// Why the text is no template that writes something; empty if it is one.
QString problemOf(const QString& text) {
    if (!text.isEmpty() && text.trimmed().isEmpty()) {
        return translated("panel", "模板不能只有空格");
    }
    const auto parsed = LabelTemplate::parse(text.toStdString());
    const auto* const error = std::get_if<LabelTemplateError>(&parsed);
    if (error == nullptr) {
        return {};
    }
    return translated("panel", "第 %1 个字符：%2")
        .arg(QString::number(error->position), QString::fromStdString(error->text));
}

ThemedLabel* makeLine(ColorRole role, QWidget* parent) {
    auto* const line = new ThemedLabel(systemFont(kTextSize), role, parent);
    line->setWordWrap(true);
    // A word that is too long must not make the panel wider.
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return line;
}

}  // namespace

LabelSection::LabelSection(PreferencesState& preferences, const AppState& appState, QWidget* parent)
    : PreferencesSection(translated("panel", "状态栏"), parent)
    , m_preferences(preferences)
    , m_appState(appState)
    , m_wordings(new ChoiceList(title(), titlesOf(kAllLabelWordings, titleOf), this))
    , m_preview(makeLine(&ThemeColors::Resolved::secondaryText, this)) {
    m_wordings->onSelect = [this](std::size_t index) {
        LabelPreferences label = m_preferences.preferences()->label;
        label.wording = kAllLabelWordings.at(index);
        m_preferences.setLabel(label);
    };
    add(m_wordings);
    makeTemplateField();
    TextScale::followMargins(*m_preview, QMargins(kTextIndent, 0, kTextIndent, 0));
    add(m_preview);
    m_observations.push_back(preferences.preferences().observe(
        [this](const Preferences& /*preferences*/) { refresh(); }));
    m_observations.push_back(
        appState.pinnedQuote().observe([this](const PinnedQuote& /*quote*/) { refreshPreview(); }));
    refresh();
}

void LabelSection::makeTemplateField() {
    m_own = new QWidget(this);
    auto* const stack = new QVBoxLayout(m_own);
    TextScale::followSpaces(*m_own, *stack, QMargins(kTextIndent, 0, kTextIndent, 0), kSpacing);
    m_template = new SearchField(translated("panel", "如 {symbol} {price:.0}"), m_own);
    m_template->setAccessibleName(translated("panel", "自定义的模板"));
    m_template->setMaxLength(kLongestTemplate);
    m_template->setText(QString::fromStdString(m_preferences.preferences()->label.ownTemplate));
    stack->addWidget(m_template);
    m_problem = makeLine(&ThemeColors::Resolved::danger, m_own);
    Announcement::mark(*m_problem);
    stack->addWidget(m_problem);
    auto* const help = makeLine(&ThemeColors::Resolved::secondaryText, m_own);
    help->setText(translated("panel",
                             "可用 {symbol}、{price}、{arrow}、{change}；{price:.0} 不带小数，"
                             "{change:>7} 靠右占 7 格"));
    stack->addWidget(help);
    add(m_own);
    connect(m_template, &QLineEdit::textEdited, this, [this] { readTemplate(); });
    showProblem(problemOf(m_template->text()));
}

void LabelSection::showEvent(QShowEvent* event) {
    PreferencesSection::showEvent(event);
    refreshPreview();
}

void LabelSection::hideEvent(QHideEvent* event) {
    PreferencesSection::hideEvent(event);
    if (event->spontaneous()) {
        // The window went out of sight, and comes back as it was.
        return;
    }
    // A text that cannot be read is gone when the page is opened again.
    m_template->setText(QString::fromStdString(m_preferences.preferences()->label.ownTemplate));
    showProblem(problemOf(m_template->text()));
}

void LabelSection::readTemplate() {
    const QString text = m_template->text();
    const QString problem = problemOf(text);
    showProblem(problem);
    if (problem.isEmpty()) {
        LabelPreferences label = m_preferences.preferences()->label;
        label.ownTemplate = text.toStdString();
        m_preferences.setLabel(label);
    }
}

void LabelSection::showProblem(const QString& problem) {
    m_problem->setText(problem);
    m_problem->setAccessibleName(problem);
    m_problem->setVisible(!problem.isEmpty());
}

void LabelSection::refresh() {
    const LabelWording wording = m_preferences.preferences()->label.wording;
    m_wordings->setSelection(indexIn(kAllLabelWordings, wording));
    m_own->setVisible(wording == LabelWording::custom);
    refreshPreview();
}

void LabelSection::refreshPreview() {
    if (!isVisible()) {
        return;
    }
    const PinnedQuote quote = m_appState.pinnedQuoteNow();
    const bool isExample = !quote.showsPrice();
    const std::string words =
        LabelWords::of(isExample ? exampleQuote() : quote, m_preferences.preferences()->label).text;
    const QString text = OneLineText::of(words).left(kLongestPreview);
    const QString line =
        (isExample ? translated("panel", "示例：%1") : translated("panel", "预览：%1")).arg(text);
    if (line != m_preview->text()) {
        m_preview->setText(line);
    }
}

}  // namespace quillbar
