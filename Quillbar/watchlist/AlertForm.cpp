// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/AlertForm.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/AlertText.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/SearchField.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/Popover.h"
#include "Quillbar/widgets/TextButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/alerts/AlertKeeper.h"
#include "QuillbarCore/model/PriceFormatter.h"

#include <QHBoxLayout>
#include <QMargins>
#include <QPainter>
#include <QScrollArea>
#include <QSizePolicy>
#include <QVBoxLayout>

#include <algorithm>
#include <string>
#include <utility>

namespace quillbar {

namespace {

constexpr int kMargin = 10;
constexpr int kSpacing = 6;
constexpr double kTitleSize = 12;
constexpr double kTextSize = 10.5;
constexpr int kChoiceHeight = 22;
constexpr int kChoiceWidth = 60;
constexpr int kMarginFieldWidth = 84;
/// Room for "0.25%", in languages with a longer title in front of it.
constexpr int kLeastMarginFieldWidth = 56;
constexpr double kRadius = 4;
constexpr float kChosenOpacity = 0.16F;
constexpr double kGlyphSize = 8;
constexpr int kGlyphButtonSize = 20;

/// One of two ways, of which one is chosen. The Tab key stops at the two once; the arrow keys
/// choose.
class Choice final : public PlainButton {
public:
    Choice(const QString& text, QWidget* parent)
        : PlainButton(parent) {
        setText(text);
        setAccessibleName(text);
        setCheckable(true);
        setAutoExclusive(true);
        TextScale::follow(*this, [this] {
            setFixedSize(TextScale::size(*this, {kChoiceWidth, kChoiceHeight}));
        });
    }

protected:
    void drawContent(QPainter& painter) override {
        const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
        const QRectF area = TextScale::enlarge(painter, *this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor ground = isChecked() ? colors.accent : colors.rowHover;
        if (isChecked()) {
            ground.setAlphaF(kChosenOpacity);
        }
        if (isChecked() || isHovered()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(ground);
            painter.drawRoundedRect(area, kRadius, kRadius);
        }
        painter.setFont(systemFont(kTextSize, isChecked() ? QFont::DemiBold : QFont::Normal));
        painter.setPen(isChecked() ? colors.accent : colors.secondaryText);
        painter.drawText(area, Qt::AlignCenter, text());
    }
};

QString textOf(AlertInput::Problem problem) {
    switch (problem) {
    case AlertInput::Problem::nothing:
        return translated("watchlist", "输入价格，或带 % 的 24 小时涨跌");
    case AlertInput::Problem::noNumber:
        return translated("watchlist", "不是价格，也不是带 % 的涨跌");
    case AlertInput::Problem::noPriceYet:
        return translated("watchlist", "还没有价格，请稍后再试");
    case AlertInput::Problem::isThere:
        break;
    }
    return translated("watchlist", "现在就是这个数；高于它提醒上涨，低于它提醒下跌");
}

}  // namespace

AlertForm::AlertForm(const ViewEnvironment& environment,
                     Coin coin,
                     std::function<void()> dismiss,
                     QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_coin(std::move(coin))
    , m_dismiss(std::move(dismiss)) {
    const QString name =
        translated("watchlist", "%1 价格提醒").arg(OneLineText::of(m_coin.baseAsset));
    setAccessibleName(name);
    auto* const stack = new QVBoxLayout(this);
    TextScale::follow(*this, [this] { setFixedWidth(TextScale::length(*this, kWidth)); });
    TextScale::followSpaces(*this, *stack, QMargins(kMargin, kMargin, kMargin, kMargin), kSpacing);
    auto* const title = new ThemedLabel(
        systemFont(kTitleSize, QFont::DemiBold), &ThemeColors::Resolved::primaryText, this);
    title->setText(name);
    title->setWordWrap(true);
    stack->addWidget(title);
    makeFields(*stack);
    makeChoices(*stack);
    makeList(*stack);
    setFocusProxy(m_value);
    if (const auto known = ticker()) {
        m_value->setText(QString::fromStdString(PriceFormatter::price(known->lastPrice)));
        m_value->selectAll();
    }
    m_alerts = environment.alerts->alerts().observe(
        [this](const std::vector<Alert>& /*alerts*/) { refreshList(); });
    m_prices = environment.appState.tickers().observe([this](const std::string& symbol) {
        if (symbol == m_coin.symbol) {
            if (!m_value->isModified() || std::holds_alternative<AlertInput::Problem>(m_input)) {
                judge();
            }
            refresh();
        }
    });
    refreshList();
    judge();
    refresh();
    // After all parts have grown, whose heights it adds up.
    TextScale::follow(*m_add, [this] { fitList(); });
}

void AlertForm::open(const ViewEnvironment& environment,
                     const Coin& coin,
                     const QRect& place,
                     QWidget& view) {
    // The rows of a list change places and are used again, and a popover closes with its anchor.
    auto* const anchor = new QWidget(&view);
    anchor->setAttribute(Qt::WA_TransparentForMouseEvents);
    anchor->setFocusPolicy(Qt::NoFocus);
    anchor->setGeometry(place);
    anchor->show();
    auto* const popover = new Popover(*anchor);
    popover->onClosed = [anchor] { anchor->deleteLater(); };
    popover->open(new AlertForm(
        environment, coin, [popover] { popover->close(); }, popover));
}

QSize AlertForm::sizeHint() const {
    const int width = TextScale::length(*this, kWidth);
    return {width, layout()->totalHeightForWidth(width)};
}

// Its parts

void AlertForm::makeFields(QVBoxLayout& stack) {
    m_present = new ThemedLabel(systemFont(kTextSize), &ThemeColors::Resolved::secondaryText, this);
    m_value = new SearchField(translated("watchlist", "价格，或如 5%"), this);
    m_value->setAccessibleName(translated("watchlist", "提醒的价格，或带百分号的 24 小时涨跌"));
    m_meaning = new ThemedLabel(systemFont(kTextSize), &ThemeColors::Resolved::secondaryText, this);
    m_meaning->setWordWrap(true);
    stack.addWidget(m_present);
    stack.addWidget(m_value);
    stack.addWidget(m_meaning);
    connect(m_value, &QLineEdit::textChanged, this, [this] {
        judge();
        refresh();
    });
    connect(m_value, &QLineEdit::returnPressed, this, [this] { add(); });
}

void AlertForm::makeChoices(QVBoxLayout& stack) {
    m_once = new Choice(translated("watchlist", "仅一次"), this);
    m_again = new Choice(translated("watchlist", "重复"), this);
    m_once->setChecked(true);
    m_marginTitle =
        new ThemedLabel(systemFont(kTextSize), &ThemeColors::Resolved::secondaryText, this);
    m_marginTitle->setText(translated("watchlist", "往回"));
    m_marginTitle->hide();
    m_margin = new SearchField(translated("watchlist", "如 1%"), this);
    m_margin->setAccessibleName(translated("watchlist", "往回多少后可再次提醒"));
    m_margin->setToolTip(translated("watchlist", "往回多少后可再次提醒"));
    m_margin->setText(QStringLiteral("1%"));
    TextScale::follow(*m_margin, [this] {
        m_margin->setMinimumWidth(TextScale::length(*this, kLeastMarginFieldWidth));
        m_margin->setMaximumWidth(TextScale::length(*this, kMarginFieldWidth));
    });
    // The row is as high without the field, so that nothing moves under the pointer.
    QSizePolicy policy = m_margin->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_margin->setSizePolicy(policy);
    m_margin->hide();
    auto* const row = new QHBoxLayout;
    TextScale::followSpaces(*this, *row, QMargins(), kSpacing);
    row->addWidget(m_once);
    row->addWidget(m_again);
    row->addWidget(m_marginTitle);
    row->addWidget(m_margin);
    row->addStretch(1);
    stack.addLayout(row);
    m_note = new SearchField(translated("watchlist", "备注（可不填）"), this);
    m_note->setAccessibleName(translated("watchlist", "备注"));
    stack.addWidget(m_note);
    m_add = new TextButton(translated("watchlist", "添加提醒"), this);
    stack.addWidget(m_add, 0, Qt::AlignRight);
    connect(m_again, &QAbstractButton::toggled, this, [this](bool isChosen) {
        m_marginTitle->setVisible(isChosen);
        m_margin->setVisible(isChosen);
        refresh();
    });
    connect(m_margin, &QLineEdit::textChanged, this, [this] { refresh(); });
    for (SearchField* const field : {m_margin, m_note}) {
        connect(field, &QLineEdit::returnPressed, this, [this] { add(); });
    }
    connect(m_add, &QAbstractButton::clicked, this, [this] { add(); });
}

void AlertForm::makeList(QVBoxLayout& stack) {
    auto* const area = new QScrollArea(this);
    auto* const content = new QWidget(area);
    m_list = new QVBoxLayout(content);
    m_list->setContentsMargins(0, 0, 0, 0);
    m_list->setSpacing(0);
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    // The surface of the popover shows through.
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    m_listArea = area;
    stack.addWidget(area);
}

// What it shows

std::optional<Ticker> AlertForm::ticker() const {
    const Ticker* const found = m_environment.appState.tickers().find(m_coin.symbol);
    return found == nullptr ? std::nullopt : std::optional(*found);
}

std::optional<double> AlertForm::margin(const AlertInput::Line& line) const {
    return AlertInput::margin(m_margin->text().toStdString(), line);
}

std::optional<double> AlertForm::seenBy(const AlertInput::Line& line) const {
    if (!m_seen) {
        return std::nullopt;
    }
    return watchesPrice(line.kind) ? m_seen->lastPrice : m_seen->changePercent24h();
}

void AlertForm::judge() {
    m_seen = ticker();
    m_input = AlertInput::line(m_value->text().toStdString(), m_seen);
}

void AlertForm::refresh() {
    const std::optional<Ticker> known = ticker();
    m_present->setText(
        known ? translated("watchlist", "现价 %1 · 24 小时 %2")
                    .arg(QString::fromStdString(PriceFormatter::price(known->lastPrice)),
                         QString::fromStdString(PriceFormatter::percent(known->changePercent24h())))
              : translated("watchlist", "现价 —"));
    QString meaning;
    bool isReady = false;
    bool isWrong = false;
    if (const auto* const problem = std::get_if<AlertInput::Problem>(&m_input)) {
        meaning = textOf(*problem);
        isWrong = *problem == AlertInput::Problem::noNumber;
    } else {
        const auto& line = std::get<AlertInput::Line>(m_input);
        isReady = m_once->isChecked() || margin(line).has_value();
        isWrong = !isReady;
        meaning = isReady ? translated("watchlist", "%1 时提醒")
                                .arg(AlertText::condition(line.kind, line.threshold))
                          : translated("watchlist", "往回的幅度应小于所填的数，如 1%");
    }
    say(meaning, isWrong);
    m_value->setAccessibleDescription(meaning);
    m_add->setEnabled(isReady);
    updateGeometry();
}

void AlertForm::say(const QString& meaning, bool isWrong) {
    m_meaning->setRole(isWrong ? &ThemeColors::Resolved::danger
                               : &ThemeColors::Resolved::secondaryText);
    m_meaning->setText(meaning);
    m_meaning->setAccessibleName(meaning);
}

void AlertForm::refreshList() {
    // Deleted later, because the call may come from the row's own button.
    for (QWidget* const row : std::exchange(m_rows, {})) {
        row->hide();
        row->deleteLater();
    }
    for (const Alert& alert : m_environment.alerts->alertsOf(m_coin.symbol)) {
        auto* const row = new QWidget(m_listArea);
        const QString text =
            AlertText::description(alert)
            + (alert.isOn ? QString() : QStringLiteral(" · ") + AlertText::state(alert));
        auto* const label =
            new ThemedLabel(systemFont(kTextSize), &ThemeColors::Resolved::primaryText, row);
        label->setText(text);
        label->setWordWrap(true);
        auto* const button = new GlyphButton(
            Glyph::xmark, kGlyphSize, QSize(kGlyphButtonSize, kGlyphButtonSize), row);
        button->setToolTip(translated("watchlist", "删除提醒"));
        button->setAccessibleName(translated("watchlist", "删除提醒，%1").arg(text));
        connect(button, &QAbstractButton::clicked, this, [this, id = alert.id] {
            m_environment.alerts->remove(id);
        });
        auto* const layout = new QHBoxLayout(row);
        TextScale::followSpaces(*row, *layout, QMargins(), kSpacing);
        layout->addWidget(label, 1);
        layout->addWidget(button);
        m_list->addWidget(row);
        m_rows.push_back(row);
    }
    m_listArea->setVisible(!m_rows.empty());
    fitList();
}

void AlertForm::fitList() {
    const int width = TextScale::length(*this, kWidth) - 2 * TextScale::length(*this, kMargin);
    // Without a row that is shown the layout has no height for a width.
    const int height = std::max(0, m_list->totalHeightForWidth(width));
    m_listArea->setFixedHeight(std::min(TextScale::length(*this, kListHeight), height));
    updateGeometry();
}

void AlertForm::add() {
    const auto* const line = std::get_if<AlertInput::Line>(&m_input);
    if (line == nullptr || m_value->isComposing()) {
        return;
    }
    const std::optional<double> back = m_again->isChecked() ? margin(*line) : std::nullopt;
    if (m_again->isChecked() && !back) {
        return;
    }
    const auto id = m_environment.alerts->add({.symbol = m_coin.symbol,
                                               .baseAsset = m_coin.baseAsset,
                                               .kind = line->kind,
                                               .threshold = line->threshold,
                                               .margin = back,
                                               .note = m_note->text().trimmed().toStdString()},
                                              seenBy(*line));
    if (!id) {
        return;
    }
    if (!*m_environment.alerts->isSaved()) {
        say(translated("watchlist", "提醒未能保存到磁盘，重启后会丢失"), true);
        return;
    }
    // A copy, because the call may delete the form.
    const std::function<void()> dismiss = m_dismiss;
    dismiss();
}

}  // namespace quillbar
