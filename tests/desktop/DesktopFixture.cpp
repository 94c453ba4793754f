// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/DesktopFixture.h"

#include "Quillbar/panel/FirstStart.h"
#include "tests/desktop/PanelPixels.h"
#include "tests/support/Files.h"

#include <QDBusArgument>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace quillbar {

namespace {

const QString kBusName = QStringLiteral("io.github.quillbar.Quillbar");
const QString kBusPath = QStringLiteral("/io/github/quillbar/Quillbar");
const QString kLabelInterface = QStringLiteral("io.github.quillbar.Quillbar.Label");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kItemInterface = QStringLiteral("org.kde.StatusNotifierItem");

constexpr int kFirstRowCentre = 118;
constexpr int kMostTabStops = 20;

constexpr QPoint kTitle{30, 20};

// At each text size.
constexpr std::array kPanelWidths{400, 460, 520};
constexpr std::array kSearchWidths{280, 322, 364};
// What is narrower or lower is no menu, but a window that is of no use to people.
constexpr int kLeastMenu = 50;

constexpr std::array<int, 5> kTabCentres{26, 70, 114, 164, 214};
constexpr int kTabLine = 61;
constexpr QPoint kBelowTab{0, 14};
// Where the changes stand in their rows.
constexpr int kChangeX = 320;
constexpr int kChangeWidth = 50;
// So low that the row above, lowered by a banner of the board, is not taken for it.
constexpr int kChangeBand = 4;
// Between the price and the change, where a row is bare.
constexpr int kBareX = 310;
// Wider than the dashes that stand for no price, narrower than "0.00%".
constexpr int kWidthOfPrice = 20;

QString textOfTooltip(const QVariant& tooltip) {
    const auto argument = tooltip.value<QDBusArgument>();
    QString icon;
    QString title;
    QString text;
    argument.beginStructure();
    argument >> icon;
    argument.beginArray();
    while (!argument.atEnd()) {
        int width = 0;
        int height = 0;
        QByteArray data;
        argument.beginStructure();
        argument >> width >> height >> data;
        argument.endStructure();
    }
    argument.endArray();
    argument >> title >> text;
    argument.endStructure();
    return text;
}

bool isAmong(const std::array<int, 3>& widths, int width) {
    return std::find(widths.begin(), widths.end(), width) != widths.end();
}

}  // namespace

std::unique_ptr<Desktop> DesktopFixture::sharedDesktop;

void DesktopFixture::SetUpTestSuite() {
    sharedDesktop = std::make_unique<Desktop>();
}

void DesktopFixture::TearDownTestSuite() {
    sharedDesktop.reset();
}

void DesktopFixture::SetUp() {
    const std::string_view name = FirstStart::kFileName;
    writeContents(file(QLatin1String(name.data(), static_cast<qsizetype>(name.size()))), {});
}

void DesktopFixture::TearDown() {
    if (m_application && m_application->isRunning()) {
        endApplication();
    }
    // The next application's item is alone in the status area.
    EXPECT_TRUE(eventually([] { return desktop().items().isEmpty(); }));
}

void DesktopFixture::endApplication() {
    EXPECT_EQ(startAgain({QStringLiteral("--quit")}), 0);
    EXPECT_EQ(endOfApplication(), 0);
}

int DesktopFixture::endOfApplication() {
    const int status = m_application->waitForEnd();
    EXPECT_TRUE(eventually([] { return desktop().items().isEmpty(); }));
    return status;
}

void DesktopFixture::startApplication() {
    m_application.emplace(QStringLiteral(QUILLBAR_PROGRAM),
                          QStringList(),
                          environment(),
                          ChildProcess::Complaints::shown);
    ASSERT_TRUE(eventually([this] { return isItemInStatusArea(); })) << "no item";
    ASSERT_TRUE(eventually([this] {
        return label().contains(QStringLiteral("price")) && isConnected();
    })) << "no price";
}

void DesktopFixture::startInShell(const char* command,
                                  const QString& variable,
                                  const QString& value) {
    QProcessEnvironment changed = environment();
    changed.insert(variable, value);
    m_application.emplace(
        QStringLiteral("/bin/bash"),
        QStringList{
            QStringLiteral("-c"), QString::fromUtf8(command), QStringLiteral(QUILLBAR_PROGRAM)},
        changed);
}

int DesktopFixture::terminateApplication() {
    m_application->terminate();
    return endOfApplication();
}

int DesktopFixture::startAgain(const QStringList& arguments) {
    ChildProcess again(QStringLiteral(QUILLBAR_PROGRAM),
                       arguments,
                       environment(),
                       ChildProcess::Complaints::shown);
    return again.waitForEnd();
}

void DesktopFixture::keepSettings(const QJsonObject& settings) {
    std::filesystem::create_directories(file(QString()));
    QFile settingsFile(file(QStringLiteral("settings.json")));
    ASSERT_TRUE(settingsFile.open(QIODevice::WriteOnly));
    settingsFile.write(QJsonDocument(settings).toJson());
}

QJsonObject DesktopFixture::kept(const QString& name) const {
    QFile document(file(name));
    if (!document.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QJsonDocument::fromJson(document.readAll()).object();
}

std::vector<std::string> DesktopFixture::keptSymbols() const {
    std::vector<std::string> symbols;
    for (const auto& coin :
         kept(QStringLiteral("watchlist.json")).value(QStringLiteral("coins")).toArray()) {
        symbols.push_back(coin.toObject().value(QStringLiteral("symbol")).toString().toStdString());
    }
    return symbols;
}

bool DesktopFixture::comesToKeep(const QString& setting, const QString& value) const {
    return eventually(
        [&] { return kept(QStringLiteral("settings.json")).value(setting).toString() == value; });
}

std::optional<QString> DesktopFixture::autostartEntry() const {
    QFile entry(configuration() / "autostart/io.github.quillbar.Quillbar.desktop");
    if (!entry.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return QString::fromUtf8(entry.readAll());
}

QVariantMap DesktopFixture::label() const {
    return qdbus_cast<QVariantMap>(
        desktop().call(kBusName, kBusPath, kLabelInterface, QStringLiteral("Read")));
}

bool DesktopFixture::isConnected() const {
    return label().value(QStringLiteral("connection")) == QStringLiteral("connected");
}

QVariant DesktopFixture::item(const QString& property) const {
    const QStringList items = desktop().items();
    return items.isEmpty()
               ? QVariant()
               : desktop().property(items.constFirst(), kItemPath, kItemInterface, property);
}

QString DesktopFixture::tooltip() const {
    const QVariant value = item(QStringLiteral("ToolTip"));
    return value.isValid() ? textOfTooltip(value) : QString();
}

bool DesktopFixture::isItemInStatusArea() const {
    const QStringList items = desktop().items();
    return items.size() == 1 && desktop().processOf(items.constFirst()) == m_application->id()
           && desktop().statusArea().has_value();
}

QPoint DesktopFixture::itemCentre() const {
    const auto area = desktop().statusArea();
    return area ? area->center() : QPoint();
}

std::optional<Screen::Window> DesktopFixture::panel() const {
    for (Screen::Window& window : screen().windowsOf(m_application->id())) {
        // Others of this title, of a pixel or of menus, are no panel.
        if (window.title == QStringLiteral("Quillbar")
            && isAmong(kPanelWidths, window.geometry.width())) {
            return std::move(window);
        }
    }
    return std::nullopt;
}

QRect DesktopFixture::panelGeometry() const {
    const auto window = panel();
    return window ? window->geometry : QRect();
}

QRect DesktopFixture::menuGeometry() const {
    for (const Screen::Window& window : screen().windowsOf(m_application->id())) {
        const QRect& area = window.geometry;
        if (!isAmong(kPanelWidths, area.width()) && !isAmong(kSearchWidths, area.width())
            && area.width() > kLeastMenu && area.height() > kLeastMenu) {
            return area;
        }
    }
    return {};
}

QRect DesktopFixture::searchGeometry() const {
    for (const Screen::Window& window : screen().windowsOf(m_application->id())) {
        if (isAmong(kSearchWidths, window.geometry.width())) {
            return window.geometry;
        }
    }
    return {};
}

ItemMenu DesktopFixture::itemMenu() const {
    return ItemMenu(desktop());
}

void DesktopFixture::clickItem() {
    screen().click(itemCentre());
    settle();
}

void DesktopFixture::openPanel() {
    pause();
    clickItem();
    ASSERT_TRUE(eventually([this] {
        const auto window = panel();
        return window && window->id == screen().activeWindow();
    })) << "the panel does not open";
    // The item's tooltip would open over the panel and take what is pressed there.
    screen().movePointer(panelGeometry().topLeft() + kTitle);
    pause();
}

void DesktopFixture::clickOnPanel(QPoint position, int button) {
    // A window that has grown takes the pointer there only once its corners have been cut again.
    ASSERT_TRUE(eventually([this] {
        const QRect panel = panelGeometry();
        const QPoint lowest(panel.center().x(), panel.bottom());
        return screen().picture({lowest, QSize(1, 1)}).pixelColor(0, 0) != Screen::background();
    })) << "the panel is not whole";
    screen().click(panelGeometry().topLeft() + position, button);
    settle();
}

bool DesktopFixture::tabToRows() {
    for (int stop = 0; stop < kMostTabStops; ++stop) {
        screen().key(Screen::kTab);
        screen().key(Screen::kMenu);
        settle();
        if (hasMenu()) {
            return true;
        }
    }
    return false;
}

void DesktopFixture::chooseFromMenu(int entry) {
    ASSERT_TRUE(eventually([this] { return hasMenu(); })) << "no menu";
    for (int step = 0; step < entry; ++step) {
        const QImage before = screen().picture(menuGeometry());
        screen().key(Screen::kDown);
        ASSERT_TRUE(eventually([&] { return screen().picture(menuGeometry()) != before; })) << step;
    }
    screen().key(Screen::kReturn);
    ASSERT_TRUE(eventually([this] { return !hasMenu(); })) << "the menu stays";
}

void DesktopFixture::chooseFromMenuOfRow(int row, int entry) {
    ASSERT_TRUE(eventually([&] { return hasRowsUpTo(row); }));
    clickOnPanel(rowCentre(row), Screen::kRight);
    chooseFromMenu(entry);
}

void DesktopFixture::chooseFromGear(int entry) {
    clickOnPanel(kGear);
    chooseFromMenu(entry);
}

void DesktopFixture::openSearch() {
    clickOnPanel(kPlus);
    ASSERT_TRUE(eventually([this] { return isSearchOpen(); })) << "no search";
    settle();
}

void DesktopFixture::openTab(int tab) {
    clickOnPanel({kTabCentres.at(static_cast<std::size_t>(tab)), kTabLine});
    ASSERT_TRUE(eventually([&] { return isTabSelected(tab); })) << tab;
    // The rows of the tab before may be seen until the frame is whole.
    settle();
    // So many are on every tab.
    ASSERT_TRUE(eventually([this] { return hasRowsUpTo(3); })) << tab;
}

bool DesktopFixture::hasRowsUpTo(int row) const {
    const QImage drawn = screen().picture(panelGeometry());
    for (int each = row - 2; each <= row; ++each) {
        const QRect change(
            kChangeX, rowCentre(each).y() - kChangeBand / 2, kChangeWidth, kChangeBand);
        const int bare = drawn.pixelColor(kBareX, rowCentre(each).y()).lightness();
        if (writtenWidth(drawn, change, bare) < kWidthOfPrice) {
            return false;
        }
    }
    return true;
}

bool DesktopFixture::isTabSelected(int tab) const {
    const QPoint middle(kTabCentres.at(static_cast<std::size_t>(tab)), kTabLine);
    return hasStrongColor(
        screen().picture(panelGeometry()).copy(QRect(middle + kBelowTab, QSize(1, 1))));
}

void DesktopFixture::settle() const {
    screen().finish();
    // Two questions: the first may overtake what the server still has to hand on.
    static_cast<void>(label());
    static_cast<void>(label());
}

QPoint DesktopFixture::rowCentre(int row) {
    return {150, kFirstRowCentre + row * kRowHeight};
}

QProcessEnvironment DesktopFixture::environment() const {
    QProcessEnvironment environment = desktop().environment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"),
                       QString::fromStdString(m_folder.path().string()));
    // Nothing is started at the tester's own login.
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                       QString::fromStdString(configuration().string()));
    return environment;
}

std::filesystem::path DesktopFixture::configuration() const {
    return m_folder.path() / "configuration";
}

std::filesystem::path DesktopFixture::file(const QString& name) const {
    return m_folder.path() / "Quillbar" / name.toStdString();
}

}  // namespace quillbar
