// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/UndoLine.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/WatchlistMove.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/TextButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/alerts/AlertKeeper.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPainter>
#include <QPaintEvent>
#include <QPalette>
#include <QRect>
#include <QString>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

constexpr double kFontSize = 10.5;
constexpr int kPadding = 12;
constexpr int kSpacing = 8;
constexpr int kBottomPadding = 4;

/// One line that ends with dots where it is too long.
class ElidedLabel final : public ThemedLabel {
public:
    using ThemedLabel::ThemedLabel;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const QRect area = contentsRect();
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(area,
                         Qt::AlignLeft | Qt::AlignVCenter,
                         fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
    }
};

Task<void> pinAgain(AppState& state, std::string symbol) {
    state.pin(symbol);
    co_return;
}

}  // namespace

UndoLine::UndoLine(const ViewEnvironment& environment,
                   Observed<std::optional<std::string>>& expandedSymbol,
                   QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_expandedSymbol(expandedSymbol)
    , m_text(new ElidedLabel(systemFont(kFontSize), &ThemeColors::Resolved::secondaryText, this))
    , m_button(new TextButton(translated("panel", "撤销"), this))
    , m_watchlist(*environment.appState.watchlist())
    , m_scope(environment.executor) {
    Announcement::mark(*this);
    // A base asset may be of any length.
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* const layout = new QHBoxLayout(this);
    TextScale::follow(*this, [this, layout] {
        layout->setContentsMargins(
            TextScale::margins(*this, {kPadding, 0, kPadding, kBottomPadding}));
        layout->setSpacing(TextScale::length(*this, kSpacing));
    });
    layout->addWidget(m_text, 1);
    layout->addWidget(m_button);
    hide();
    connect(m_button, &QAbstractButton::clicked, this, [this] { undo(); });
    m_observation = environment.appState.watchlist().observe(
        [this](const Watchlist& watchlist) { onChange(watchlist); });
}

void UndoLine::onChange(const Watchlist& watchlist) {
    const Watchlist before = std::exchange(m_watchlist, watchlist);
    if (std::optional<Removal> removal = removalSince(before, watchlist)) {
        offer(*std::move(removal));
    } else if (m_removal && watchlist.contains(m_removal->coin.symbol)) {
        withdraw();
    }
}

std::optional<UndoLine::Removal> UndoLine::removalSince(const Watchlist& before,
                                                        const Watchlist& now) const {
    const auto removed =
        std::find_if(before.coins.begin(), before.coins.end(), [&now](const Coin& coin) {
            return !now.contains(coin.symbol);
        });
    if (removed == before.coins.end() || before.removing(removed->symbol).coins != now.coins) {
        return std::nullopt;
    }
    Removal removal{.coin = *removed,
                    .leaders = {},
                    .followers = {},
                    .wasPinned = before.pinnedSymbol == removed->symbol,
                    .wasExpanded = *m_expandedSymbol == removed->symbol,
                    .pinSince = now.pinnedSymbol};
    for (auto each = before.coins.begin(); each != before.coins.end(); ++each) {
        (each < removed ? removal.leaders : removal.followers).insert(each->symbol);
    }
    return removal;
}

void UndoLine::offer(Removal removal) {
    const QString name = OneLineText::of(removal.coin.baseAsset);
    m_removal = std::move(removal);
    // Hidden also between two removals, because screen readers read only what appears.
    hide();
    m_text->setText(translated("panel", "已删除 %1").arg(name));
    setAccessibleName(m_text->text());
    m_button->setAccessibleName(translated("panel", "撤销删除 %1").arg(name));
    m_offer.cancel();
    m_offer = m_scope.spawn(showForAWhile());
}

Task<void> UndoLine::showForAWhile() {
    // Shown from the executor's queue, after the list has removed the row. Otherwise the focus of
    // the list's last row would pass to this button, which is there only for a short time.
    if (!m_removal) {
        co_return;
    }
    show();
    co_await m_environment.sleeper(kOffered);
    withdraw();
}

void UndoLine::withdraw() {
    m_removal.reset();
    hide();
}

void UndoLine::undo() {
    if (!m_removal) {
        return;
    }
    const Removal removal = *std::exchange(m_removal, std::nullopt);
    const std::string& symbol = removal.coin.symbol;
    m_offer.cancel();
    const std::optional<Qt::FocusReason> focus =
        m_button->hasFocus() ? std::optional(m_button->focusReason()) : std::nullopt;
    AppState& state = m_environment.appState;
    if (m_environment.alerts != nullptr) {
        m_environment.alerts->restore(symbol);
    }
    // The tasks begin in this order, and each changes the list before its first wait.
    TaskScope& edits = m_environment.edits;
    edits.spawn(state.add(removal.coin));
    edits.spawn(WatchlistMove::inFrontOf(state, symbol, nextOf(removal)));
    if (removal.wasPinned && m_watchlist.pinnedSymbol == removal.pinSince) {
        edits.spawn(pinAgain(state, symbol));
    }
    // After the list has the row again. A sorted list freezes its order when a chart opens, and
    // puts a row that comes later at the end.
    m_scope.spawn(finish(symbol, removal.wasExpanded, focus));
}

std::optional<std::string> UndoLine::nextOf(const Removal& removal) const {
    const std::vector<Coin>& coins = m_watchlist.coins;
    // The place at which the fewest coins change from one side of the coin to the other. Of several
    // such places the last one counts if a coin that stood behind it is left, and otherwise the
    // first one.
    const auto isLeft = [&](const Coin& coin) { return removal.followers.contains(coin.symbol); };
    const bool wantsLast = std::any_of(coins.begin(), coins.end(), isLeft);
    int cost = 0;
    int least = 0;
    std::size_t place = 0;
    for (std::size_t index = 0; index < coins.size(); ++index) {
        cost += removal.followers.contains(coins[index].symbol) ? 1 : 0;
        cost -= removal.leaders.contains(coins[index].symbol) ? 1 : 0;
        if (cost < least || (cost == least && wantsLast)) {
            least = cost;
            place = index + 1;
        }
    }
    return place < coins.size() ? std::optional(coins[place].symbol) : std::nullopt;
}

Task<void> UndoLine::finish(std::string symbol,
                            bool wasExpanded,
                            std::optional<Qt::FocusReason> focus) {
    const bool isBack = m_watchlist.contains(symbol);
    if (isBack && wasExpanded && !m_expandedSymbol->has_value()) {
        m_expandedSymbol.set(symbol);
    }
    // What is hidden with the focus passes it on to whatever comes next.
    if (isBack && focus && m_button->hasFocus() && onBack) {
        onBack(symbol, *focus);
    }
    if (!m_removal) {
        hide();
    }
    co_return;
}

void UndoLine::moveToEndOfTabOrder() {
    // The focus chain is a circle that begins with the window, so the last widget is the one before
    // it.
    QWidget* last = window()->previousInFocusChain();
    while (last != window() && last != m_button && last->focusPolicy() == Qt::NoFocus) {
        last = last->previousInFocusChain();
    }
    if (last != window() && last != m_button) {
        setTabOrder(last, m_button);
    }
}

}  // namespace quillbar
