// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Popover.h"
#include "tests/panel/TextSizesFixture.h"
#include "tests/qtsupport/Ink.h"

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRect>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace quillbar {
namespace {

/// What is drawn in one place: a widget of the panel, or an entry of a menu.
struct Drawn {
    std::string what;
    QSize size;
    /// Outside of this there is nothing but ground. Absent for texts that wrap, each size at other
    /// words.
    std::optional<QRect> ink;
};

std::optional<QRect> inkOf(QWidget& widget) {
    const auto* const label = dynamic_cast<const QLabel*>(&widget);
    if (label != nullptr && label->wordWrap()) {
        return std::nullopt;
    }
    return boundsOfInk(pictureOf(widget), ThemeKey::value(widget).colors.surface);
}

/// Every widget that is shown in a window, from the outer to the inner ones.
std::vector<Drawn> drawnIn(QWidget& window) {
    std::vector<Drawn> all;
    for (QWidget* const each : window.findChildren<QWidget*>()) {
        if (each->isVisible() && !each->visibleRegion().isEmpty() && !each->window()->isHidden()
            && each->window() == &window) {
            const std::string name = each->accessibleName().toStdString();
            all.push_back({name.empty() ? each->metaObject()->className() : name,
                           each->size(),
                           inkOf(*each)});
        }
    }
    return all;
}

/// Every entry of a menu.
std::vector<Drawn> drawnIn(QMenu& menu) {
    const QImage picture = pictureOf(menu);
    std::vector<Drawn> all;
    for (QAction* const action : menu.actions()) {
        const QRect place = menu.actionGeometry(action);
        const QImage entry = picture.copy(place.adjusted(2, 0, -2, 0));
        all.push_back({action->text().toStdString(),
                       place.size(),
                       boundsOfInk(entry, entry.pixelColor(0, 0))});
    }
    return all;
}

/// The panel at each text size in each palette, beside the panel at 100 %.
struct NothingCutOffTest : TextSizesFixture,
                           testing::WithParamInterface<std::tuple<TextSize, AppearanceMode>> {
    [[nodiscard]] static TextSize size() { return std::get<TextSize>(GetParam()); }

    /// What is drawn at 100 % is drawn at the size too, and is as much larger as that says.
    static void expectGrown(const std::vector<Drawn>& normal, const std::vector<Drawn>& larger) {
        ASSERT_EQ(normal.size(), larger.size());
        ASSERT_FALSE(normal.empty());
        for (std::size_t index = 0; index < normal.size(); ++index) {
            const Drawn& before = normal[index];
            const Drawn& after = larger[index];
            SCOPED_TRACE(before.what);
            ASSERT_EQ(after.what, before.what);
            expectGrown(before.size.width(), after.size.width(), "width of all");
            expectGrown(before.size.height(), after.size.height(), "height of all");
            ASSERT_EQ(after.ink.has_value(), before.ink.has_value());
            if (before.ink) {
                expectGrown(before.ink->width(), after.ink->width(), "width");
                expectGrown(before.ink->height(), after.ink->height(), "height");
                expectGrown(before.ink->left(), after.ink->left(), "left");
                expectGrown(before.ink->top(), after.ink->top(), "top");
            }
        }
    }
    /// Fonts grow in steps of their own, and rounding adds up.
    static void expectGrown(int before, int after, const char* what) {
        const double expected = before * scaleOf(size());
        EXPECT_NEAR(after, expected, 3 + expected * 0.05) << what;
    }
    /// No label has less room than its text needs.
    static void expectRoomForLabels(const QWidget& window) {
        int count = 0;
        for (const QLabel* const label : widgetsOf<QLabel>(window)) {
            if (!label->isVisible() || label->text().isEmpty()) {
                continue;
            }
            ++count;
            SCOPED_TRACE(label->text().toStdString());
            const QRect room = label->contentsRect();
            const int flags = label->wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine;
            const QSize text =
                label->fontMetrics()
                    .boundingRect(QRect(QPoint(), QSize(room.width(), 0)), flags, label->text())
                    .size();
            EXPECT_LE(text.width(), room.width());
            EXPECT_LE(text.height(), room.height());
        }
        EXPECT_GT(count, 0);
    }
    void setPalette() { state->setAppearance(std::get<AppearanceMode>(GetParam())); }
};

TEST_P(NothingCutOffTest, onAnyPageOfThePanel) {
    setPalette();
    for (const Page& page : pages()) {
        SCOPED_TRACE(page.name);
        open(TextSize::normal, page);
        const std::vector<Drawn> normal = drawnIn(*panel);
        open(size(), page);
        expectGrown(normal, drawnIn(*panel));
        expectRoomForLabels(*panel);
    }
}

TEST_P(NothingCutOffTest, whileNothingIsReachedAndNothingCanBeSaved) {
    setPalette();
    tell(ConnectionState::disconnected);
    files.breakAll();
    state->pin("ETHUSDT");
    open(TextSize::normal, pages().front());
    const std::vector<Drawn> normal = drawnIn(*panel);
    open(size(), pages().front());
    expectGrown(normal, drawnIn(*panel));
    expectRoomForLabels(*panel);
}

TEST_P(NothingCutOffTest, inTheSearch) {
    setPalette();
    const auto search = [this](TextSize size) {
        open(size, pages().front());
        click(QStringLiteral("添加币种"));
        Popover& popover = *widgetsOf<Popover>(*panel).front();
        QTest::keyClicks(popover.findChild<QLineEdit*>(), QStringLiteral("SOL"));
        time.advance(Seconds(1));
        settle();
        // The caret blinks.
        popover.findChild<QLineEdit*>()->clearFocus();
        std::vector<Drawn> drawn = drawnIn(popover);
        popover.close();
        return drawn;
    };
    const std::vector<Drawn> normal = search(TextSize::normal);
    EXPECT_TRUE(std::any_of(normal.begin(), normal.end(), [](const Drawn& each) {
        return each.what.find("SOL/USDT") != std::string::npos;
    }));
    expectGrown(normal, search(size()));
}

TEST_P(NothingCutOffTest, inTheFormOfThePriceAlerts) {
    setPalette();
    const auto form = [this](TextSize size) {
        open(size, pages().front());
        onlyRow().setFocus(Qt::TabFocusReason);
        QTest::keyClick(&onlyRow(), Qt::Key_Return, Qt::AltModifier);
        settle();
        Popover& popover = *widgetsOf<Popover>(*panel).front();
        for (QLineEdit* const field : popover.findChildren<QLineEdit*>()) {
            field->deselect();
            field->clearFocus();
        }
        settle();
        expectRoomForLabels(popover);
        std::vector<Drawn> drawn = drawnIn(popover);
        popover.close();
        return drawn;
    };
    const std::vector<Drawn> normal = form(TextSize::normal);
    expectGrown(normal, form(size()));
}

TEST_P(NothingCutOffTest, inTheMenuOfTheGear) {
    setPalette();
    const auto entries = [this](TextSize size) {
        open(size, pages().front());
        click(QStringLiteral("设置"));
        std::vector<Drawn> drawn = drawnIn(*menu());
        menu()->close();
        return drawn;
    };
    const std::vector<Drawn> normal = entries(TextSize::normal);
    EXPECT_GT(normal.size(), 8U);
    expectGrown(normal, entries(size()));
}

INSTANTIATE_TEST_SUITE_P(
    Sizes,
    NothingCutOffTest,
    testing::Combine(testing::Values(TextSize::large, TextSize::larger),
                     testing::Values(AppearanceMode::dark, AppearanceMode::light)),
    [](const auto& info) {
        return std::string(std::get<AppearanceMode>(info.param) == AppearanceMode::dark ? "dark"
                                                                                        : "light")
               + std::to_string(percentOf(std::get<TextSize>(info.param)));
    });

}  // namespace
}  // namespace quillbar
