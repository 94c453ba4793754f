// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/ChildProcess.h"
#include "tests/desktop/DesktopFixture.h"
#include "tests/support/Files.h"

#include <QJsonArray>

#include <optional>

namespace quillbar {

namespace {

const QString kAlerts = QStringLiteral("alerts.json");

/// Away from the panel; a click on a notice is what its program calls the default action.
constexpr const char* kNoticeSettings = R"([global]
    origin = bottom-left
    mouse_left_click = do_action, close_current
[urgency_normal]
    timeout = 0
)";

/// A desktop on which a program shows notices, and price alerts that are set in the panel.
class AlertsTest : public DesktopFixture {
protected:
    void startNotices() {
        const auto settings = m_settings.path() / "dunstrc";
        writeContents(settings, kNoticeSettings);
        m_notices.emplace(
            QStringLiteral("dunst"),
            QStringList{QStringLiteral("-conf"), QString::fromStdString(settings.string())},
            desktop().environment());
        ASSERT_TRUE(eventually([] {
            return desktop().processOf(QStringLiteral("org.freedesktop.Notifications")) != 0;
        })) << "dunst does not start";
    }
    /// The middle of the notice in the lower left quarter of the screen, which is bare without one.
    [[nodiscard]] static std::optional<QPoint> notice() {
        const QRect quarter(0, 450, 640, 450);
        const QImage picture = screen().picture(quarter);
        QRect drawn;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) != Screen::background()) {
                    drawn |= QRect(x, y, 1, 1);
                }
            }
        }
        return drawn.isNull() ? std::nullopt : std::optional(quarter.topLeft() + drawn.center());
    }
    /// Opens the form of the first coin by the keyboard, and sets an alert at the price that stands
    /// in it, as soon as the present price is another one.
    void setAlertAtPresentPrice() {
        ASSERT_TRUE(tabToRows());
        screen().key(Screen::kEscape);
        ASSERT_TRUE(eventually([this] { return !hasMenu(); }));
        screen().keyWith(Screen::kAlt, Screen::kReturn);
        ASSERT_TRUE(eventually([this] { return isSearchOpen(); })) << "no form";
        ASSERT_TRUE(eventually([this] {
            screen().key(Screen::kReturn);
            settle();
            return !isSearchOpen();
        }));
        ASSERT_EQ(numberOf(QStringLiteral("alerts")), 1);
    }
    /// How many the file has of "alerts" or of what "fired".
    [[nodiscard]] qsizetype numberOf(const QString& list) const {
        return kept(kAlerts).value(list).toArray().size();
    }
    /// Lets the market move until an alert has fired.
    [[nodiscard]] bool comesToFire() {
        return eventually([this] {
            desktop().moveMarket(100);
            settle();
            return numberOf(QStringLiteral("alerts")) == 0;
        });
    }

private:
    TemporaryFolder m_settings;
    std::optional<ChildProcess> m_notices;
};

TEST_F(AlertsTest, anAlertThatIsSetInThePanelBecomesANoticeAndAClickOnItOpensTheChart) {
    startNotices();
    startApplication();
    openPanel();
    const int height = panelGeometry().height();
    setAlertAtPresentPrice();
    ASSERT_FALSE(notice());
    ASSERT_TRUE(comesToFire());
    ASSERT_TRUE(eventually([] { return notice().has_value(); }));
    EXPECT_TRUE(eventually([this] { return numberOf(QStringLiteral("fired")) == 0; }))
        << "it is shown, and need not be kept";
    screen().key(Screen::kEscape);
    ASSERT_TRUE(eventually([this] { return !isPanelOpen(); }));
    screen().click(notice().value_or(QPoint()));
    EXPECT_TRUE(eventually([&] { return panelGeometry().height() == height + kChartHeight; }));
}

}  // namespace

}  // namespace quillbar
