// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/faults/World.h"

#include "Quillbar/boards/BoardPlaceholder.h"
#include "Quillbar/boards/MarketBoardView.h"
#include "Quillbar/chart/CoinDetailView.h"
#include "Quillbar/chart/PriceChart.h"
#include "Quillbar/labelstate/LabelSnapshot.h"
#include "Quillbar/list/RowList.h"
#include "Quillbar/panel/ConnectionBanner.h"
#include "Quillbar/platform/CertificateAuthorities.h"
#include "Quillbar/watchlist/AddCoinView.h"
#include "Quillbar/widgets/BannerRow.h"
#include "Quillbar/widgets/CenteredText.h"
#include "Quillbar/widgets/Spinner.h"
#include "QuillbarCore/exchange/URLSessionFetcher.h"
#include "QuillbarCore/runtime/QtExecutor.h"
#include "QuillbarCore/runtime/QtSleeper.h"
#include "QuillbarCore/runtime/QtWorker.h"
#include "tests/qtsupport/Widgets.h"

#include <QLabel>
#include <QTest>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace quillbar {

namespace {

using simulator::Simulator;

// Few, as all of them move every second; the list's own coins are among them.
constexpr int kListings = 30;

// One authority for every world, which the process trusts.
const std::string& authorityFile() {
    static const TemporaryFolder folder;
    static const std::string file = (folder.path() / "authority.pem").string();
    return file;
}

void trustAuthority() {
    static const bool isTrusted = [] {
        const Simulator maker({.caFile = authorityFile(), .symbolCount = 1});
        return !trustAuthorities(authorityFile()).has_value();
    }();
    if (!isTrusted) {
        throw std::runtime_error("the exchanges' authority is not trusted");
    }
}

/// The same address by the host's name, so that names can fail too.
std::string byName(std::string base) {
    constexpr std::string_view kAddress = "127.0.0.1";
    return base.replace(base.find(kAddress), kAddress.size(), "localhost");
}

template <class Widget>
Widget* shown(const QWidget& root) {
    const auto all = widgetsOf<Widget>(root);
    const auto found =
        std::find_if(all.begin(), all.end(), [](const Widget* each) { return each->isVisible(); });
    return found == all.end() ? nullptr : *found;
}

template <class Widget>
Widget& theShown(const QWidget& root, const char* what) {
    auto* const found = shown<Widget>(root);
    if (found == nullptr) {
        throw std::runtime_error(std::string("not shown: ") + what);
    }
    return *found;
}

}  // namespace

World::World()
    : m_executor(makeQtExecutor())
    , m_worker(makeQtWorker()) {
    trustAuthority();
    for (std::size_t index = 0; index < kHosts; ++index) {
        m_hosts.push_back(std::make_unique<Simulator>(
            simulator::SimulatorOptions{.caFile = authorityFile(), .symbolCount = kListings}));
    }
    ServiceEndpoints endpoints = ServiceEndpoints::production();
    endpoints.rest.clear();
    endpoints.stream.clear();
    for (const auto& host : m_hosts) {
        endpoints.rest.push_back(byName(host->restBase()));
        endpoints.stream.push_back(byName(host->streamBase()));
    }
    endpoints.marketCap = m_hosts.front()->marketCapBase();
    endpoints.icon = m_hosts.front()->iconBase();
    m_services = std::make_unique<AppServices>(ServicePlatform{.executor = *m_executor,
                                                               .worker = *m_worker,
                                                               .clock = systemClock(),
                                                               .sleeper = makeQtSleeper(),
                                                               .calendar = Calendar::utc()},
                                               endpoints,
                                               m_folder.path());
    m_edits = std::make_unique<TaskScope>(*m_executor);
    m_settings.emplace(m_services->appState(), m_launchAtLogin);
    m_environment.emplace(ViewEnvironment{.executor = *m_executor,
                                          .now = systemClock(),
                                          .calendar = Calendar::utc(),
                                          .appState = m_services->appState(),
                                          .edits = *m_edits,
                                          .marketModels =
                                              [this] {
                                                  return MarketModels{
                                                      .market = m_services->marketState(),
                                                      .marketCaps = m_services->marketCapState()};
                                              },
                                          .sleeper = makeQtSleeper()});
}

World::~World() {
    m_panel.reset();
    m_edits.reset();
    m_services.reset();
    URLSessionFetcher::forgetConnections();
    m_hosts.clear();
    ProcessTime::settle();
    m_worker.reset();
}

void World::onEachHost(const std::function<void(Simulator&)>& act) {
    for (const auto& host : m_hosts) {
        act(*host);
    }
}

void World::start() {
    // What is said of a first start.
    m_log.clear();
    m_services->start();
    showPanel();
    ProcessTime::settle();
}

void World::showPanel() {
    m_panel =
        std::make_unique<PanelView>(*m_environment, m_scheme, *m_settings, m_preferences, [] {});
    m_panel->resize(m_panel->sizeHint());
    showActive(*m_panel);
}

void World::pass(std::chrono::seconds span) {
    for (std::chrono::seconds each{0}; each < span; ++each) {
        ProcessTime::pass(std::chrono::seconds(1));
        ProcessTime::settle();
        onEachHost([](Simulator& host) { host.tick(); });
        ProcessTime::settle();
    }
}

void World::sleepMachine(std::chrono::minutes span) {
    ProcessTime::sleepMachine(span);
    onEachHost([span](Simulator& host) {
        host.faults().refuseConnections(simulator::OpenConnections::drop);
        host.faults().listenAgain();
        for (std::chrono::seconds each{0}; each < span; ++each) {
            host.tick();
        }
    });
}

void World::resume() {
    m_services->resume();
    ProcessTime::settle();
}

// What the user does

void World::click(const char* accessibleName) {
    QWidget* const button = named(*m_panel, QString::fromUtf8(accessibleName));
    if (button == nullptr) {
        throw std::runtime_error(std::string("nothing to click: ") + accessibleName);
    }
    QTest::mouseClick(button, Qt::LeftButton);
    ProcessTime::settle();
}

void World::type(const char* text) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    ProcessTime::settle();
}

void World::tryAgain() {
    if (shown<AddCoinView>(*m_panel) != nullptr) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
        type("L");
    } else if (named(*m_panel, QStringLiteral("重试")) != nullptr) {
        click("重试");
    }
}

// What the user sees

LabelFace World::face() const {
    return LabelFace::of(LabelSnapshot::of(state()), systemClock()());
}

std::string World::banner() const {
    const ConnectionBanner* const banner = shown<ConnectionBanner>(*m_panel);
    return banner == nullptr ? std::string() : banner->text().toStdString();
}

std::string World::board() const {
    const auto& board = theShown<MarketBoardView>(*m_panel, "a board");
    std::string seen;
    if (const auto* const placeholder = shown<BoardPlaceholder>(board)) {
        using Content = BoardPlaceholder::Content;
        const Content content = placeholder->content();
        seen = content == Content::loading  ? "spinner"
               : content == Content::failed ? "加载行情失败"
                                            : "暂无数据";
    } else {
        seen = "rows";
    }
    if (const auto* const warning = shown<BannerRow>(board)) {
        seen += "+" + warning->text().toStdString();
    }
    return seen;
}

std::string World::chart() const {
    const auto& view = theShown<CoinDetailView>(*m_panel, "a chart");
    std::string seen;
    const auto add = [&seen](const std::string& part) { seen += (seen.empty() ? "" : "+") + part; };
    if (const auto* const message = view.findChild<QLabel*>(); message->isVisible()) {
        add(message->text().toStdString());
    }
    if (shown<Spinner>(view) != nullptr) {
        add("spinner");
    }
    if (const PriceChart* const chart = shown<PriceChart>(view)) {
        add(chart->isOutdated() ? "faint chart" : "chart");
    }
    return seen;
}

std::string World::search() const {
    const auto& view = theShown<AddCoinView>(*m_panel, "the search");
    if (const auto* const rows = shown<RowList>(view)) {
        return rows->ids().empty() ? "no rows" : "rows of " + rows->ids().front();
    }
    return theShown<CenteredText>(view, "a text in the search").accessibleName().toStdString();
}

bool World::isPresent(const std::string& symbol) const {
    const simulator::Market& market = m_hosts.front()->market();
    const Ticker* const ticker = state().tickers().find(symbol);
    return ticker != nullptr && ticker->lastPrice == market.price(*market.find(symbol));
}

bool World::hasPresentPrice() const {
    return isPresent("BTCUSDT") && face().text.startsWith(QStringLiteral("BTC "));
}

bool World::hasPresentPrices() const {
    const auto& coins = state().watchlist()->coins;
    return std::all_of(
        coins.begin(), coins.end(), [this](const Coin& coin) { return isPresent(coin.symbol); });
}

}  // namespace quillbar
