// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/DesktopFixture.h"
#include "tests/pictures/Film.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <chrono>
#include <string_view>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

constexpr QRect kStill(860, 0, 420, 475);
constexpr QRect kFilmed(440, 0, 840, 520);
constexpr QPoint kBesideThePanel{700, 300};

/// Places on the panel beside those of the fixture.
constexpr int kChartMiddle = 118 + 28 + 14 + 130;
/// Before the bar has made room for the item, its area is narrower.
constexpr int kLeastItem = 20;
constexpr int kPinEntry = 4;
constexpr int kEntriesOfRow = 6;

std::vector<Chapter> chapters() {
    return {
        {{QStringLiteral("The price, always in view"),
          QStringLiteral("One coin, live, while you do something else. "
                         "Green has risen, red has fallen.")},
         {QStringLiteral("价格就在状态栏里"),
          QStringLiteral("一个币种的实时价格，不打断您手里的事。绿色为涨，红色为跌。")}},
        {{QStringLiteral("Click it: your list"),
          QStringLiteral("币种  coin\n成交额  volume\n价格  price\n涨跌  change\n\n"
                         "亿  × 100 million\n万  × 10 thousand")},
         {QStringLiteral("点一下，就是自选列表"),
          QStringLiteral("成交额、价格和涨跌，随行情变化。点列标题可以排序。")}},
        {{QStringLiteral("Click an arrow: a chart"),
          QStringLiteral("A day, a week or a month. The pointer tells the price of a moment.\n"
                         "高  highest   低  lowest")},
         {QStringLiteral("点行首的箭头，看走势图"),
          QStringLiteral("一天、一周或一个月。指针移到图上，读出某一时刻的价格。")}},
        {{QStringLiteral("Click the plus: add a coin"),
          QStringLiteral("Type its code, press Enter.")},
         {QStringLiteral("点加号，添加币种"), QStringLiteral("输入代号，按回车。")}},
        {{QStringLiteral("Click a tab: the market"),
          QStringLiteral("自选  your list\n涨幅  gainers\n跌幅  losers\n成交额  volume\n"
                         "市值  market capitalisation")},
         {QStringLiteral("点标签，看市场榜单"),
          QStringLiteral("涨幅、跌幅、成交额、市值，打开时自动刷新。")}},
        {{QStringLiteral("Right button: pin a coin"),
          QStringLiteral("固定到菜单栏  pin to the bar\n删除  remove from the list")},
         {QStringLiteral("点右键，固定币种"),
          QStringLiteral("固定到菜单栏之后，状态栏显示的就是它。")}},
    };
}

class Pictures : public DesktopFixture {
protected:
    void startInPalette(const QString& name) {
        keepSettings({{QStringLiteral("schemaVersion"), 1},
                      {QStringLiteral("changeBasis"), QStringLiteral("rolling24h")},
                      {QStringLiteral("appearance"), name}});
        startApplication();
    }

    [[nodiscard]] QString pinned() const {
        return label().value(QStringLiteral("symbol")).toString();
    }

    [[nodiscard]] static QString folder() { return QStringLiteral(QUILLBAR_PICTURES); }
};

/// Films what a person does, one thing after the other. Each goes to a place first and does it
/// then.
class Story : public Pictures {
protected:
    void goTo(QPoint placeOnPanel) { m_film.movePointer(panelGeometry().topLeft() + placeOnPanel); }

    void click(QPoint placeOnPanel, int button = Screen::kLeft) {
        goTo(placeOnPanel);
        m_film.showPress();
        clickOnPanel(placeOnPanel, button);
    }

    /// The item, once the bar has given it its place and it is drawn there.
    [[nodiscard]] static QRect itemArea() {
        QRect area;
        EXPECT_TRUE(eventually([&] {
            area = desktop().statusArea().value_or(QRect());
            return area.width() > kLeastItem
                   && screen().picture(area).pixelColor(0, 0) != Screen::background();
        }));
        return area;
    }

    void openFromItem() {
        m_film.movePointer(itemCentre());
        m_film.showPress();
        clickItem();
        ASSERT_TRUE(eventually([this] { return isPanelOpen(); }));
        // Away before the item's tooltip opens over the panel.
        goTo({200, 20});
        ASSERT_TRUE(eventually([this] { return hasRowsUpTo(3); }));
    }

    void readChart() {
        const int height = panelGeometry().height();
        click({kDisclosureX, rowCentre(1).y()});
        ASSERT_TRUE(eventually([&] { return panelGeometry().height() == height + kChartHeight; }));
        m_film.watch(750ms);
        for (const int x : {90, 200, 300}) {
            goTo({x, kChartMiddle});
            m_film.watch(750ms);
        }
        click({kDisclosureX, rowCentre(1).y()});
        ASSERT_TRUE(eventually([&] { return panelGeometry().height() == height; }));
    }

    void addCoin() {
        click(kPlus);
        ASSERT_TRUE(eventually([this] { return isSearchOpen(); }));
        m_film.watch(500ms);
        for (const char letter : std::string_view("doge")) {
            screen().type({&letter, 1});
            m_film.watch(250ms);
        }
        m_film.watch(750ms);
        screen().key(Screen::kReturn);
        ASSERT_TRUE(eventually([this] { return !isSearchOpen() && keptSymbols().size() == 5; }));
        ASSERT_TRUE(eventually([this] { return hasRowsUpTo(4); }));
    }

    void lookAtBoards() {
        for (const int x : {70, 114, 164, 214}) {
            click({x, 61});
            ASSERT_TRUE(eventually([this] { return hasRowsUpTo(12); }));
            m_film.watch(1250ms);
        }
        click({26, 61});
        ASSERT_TRUE(eventually([this] { return isTabSelected(0); }));
    }

    void pinSecondCoin() {
        ASSERT_TRUE(eventually([this] { return hasRowsUpTo(4); }));
        click(rowCentre(1), Screen::kRight);
        ASSERT_TRUE(eventually([this] { return hasMenu(); }));
        m_film.watch(500ms);
        const QRect menu = menuGeometry();
        const QPoint entry(menu.left() + menu.width() / 3,
                           menu.top() + menu.height() * (2 * kPinEntry - 1) / (2 * kEntriesOfRow));
        m_film.movePointer(entry);
        m_film.showPress();
        screen().click(entry);
        ASSERT_TRUE(eventually([this] { return pinned() == QStringLiteral("ETHUSDT"); }));
        settle();
    }

    Film m_film{screen(), kFilmed, chapters()};
};

TEST_F(Pictures, showBothPalettes) {
    QImage both(2 * kStill.width(), kStill.height(), QImage::Format_RGB32);
    QPainter painter(&both);
    for (const auto& [palette, x] : {std::pair(QStringLiteral("dark"), 0),
                                     std::pair(QStringLiteral("light"), kStill.width())}) {
        startInPalette(palette);
        openPanel();
        const int height = panelGeometry().height();
        clickOnPanel({kDisclosureX, rowCentre(1).y()});
        ASSERT_TRUE(eventually([&] { return panelGeometry().height() == height + kChartHeight; }));
        const QPoint moment = panelGeometry().topLeft() + QPoint(134, kChartMiddle);
        // A chart that has just come tells nothing before the pointer moves on it.
        for (const int step : {0, 1}) {
            screen().movePointer(moment + QPoint(step, 0));
            settle();
            pause();
        }
        painter.drawImage(x, 0, screen().picture(kStill));
        endApplication();
    }
    painter.end();
    ASSERT_TRUE(QDir().mkpath(folder()));
    EXPECT_TRUE(both.save(folder() + QStringLiteral("/quillbar.png")));
}

TEST_F(Story, tellsWhatOneDoes) {
    startInPalette(QStringLiteral("dark"));
    pause();
    screen().movePointer(kBesideThePanel);
    m_film.magnify(itemArea(), 3s);
    m_film.nextChapter();
    openFromItem();
    m_film.watch(2500ms);
    m_film.nextChapter();
    readChart();
    m_film.nextChapter();
    addCoin();
    m_film.watch(1500ms);
    m_film.nextChapter();
    lookAtBoards();
    m_film.nextChapter();
    pinSecondCoin();
    m_film.magnify(itemArea(), 2500ms);
    EXPECT_TRUE(m_film.save(folder() + QStringLiteral("/film-en"), Language::english));
    EXPECT_TRUE(m_film.save(folder() + QStringLiteral("/film-zh"), Language::chinese));
}

}  // namespace

}  // namespace quillbar
