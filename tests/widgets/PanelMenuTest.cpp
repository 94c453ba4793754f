// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/EntryMenu.h"
#include "Quillbar/widgets/PanelMenu.h"
#include "tests/qtsupport/Widgets.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QFontMetricsF>
#include <QImage>
#include <QKeySequence>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <vector>

namespace quillbar {
namespace {

/// A menu in the theme of its window, with the entries that the test gives it.
struct PanelMenuTest : ::testing::Test {
    PanelMenuTest() { ThemeKey::set(window, {.colors = ThemeColors::dark()}); }

    void fill(const std::vector<MenuEntry>& entries) {
        fillMenu(menu, entries, [](int /*id*/) {});
        menu.popup(QPoint(50, 50));
    }
    void fill(const MenuEntry& entry) { fill(std::vector<MenuEntry>{entry}); }

    [[nodiscard]] QRect place(int index) const {
        return menu.actionGeometry(menu.actions().at(index));
    }
    /// What is shown of an entry, but for its ends, where the first and the last have round
    /// corners.
    [[nodiscard]] QImage picture(int index = 0) {
        return menu.grab(place(index).adjusted(2, 0, -2, 0)).toImage();
    }
    [[nodiscard]] static std::set<QRgb> colorsIn(const QImage& image) {
        std::set<QRgb> colors;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                colors.insert(image.pixel(x, y));
            }
        }
        return colors;
    }
    [[nodiscard]] bool shows(const QColor& color, int index = 0) {
        return colorsIn(picture(index)).contains(color.rgb());
    }
    /// What lies beneath the entries.
    [[nodiscard]] QColor ground() { return menu.grab().toImage().pixelColor(3, 3); }

    /// An entry that says which key does the same.
    void addWithKey(const QString& label) {
        QAction* const action = menu.addAction(label);
        action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_H));
        action->setShortcutVisibleInContextMenu(true);
    }
    /// Where there is more than the ground, from the left.
    [[nodiscard]] std::vector<int> columnsOf(const QImage& image) {
        const QRgb bare = ground().rgb();
        std::vector<int> columns;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixel(x, y) != bare) {
                    columns.push_back(x);
                    break;
                }
            }
        }
        return columns;
    }
    [[nodiscard]] static int lightest(const QImage& image) {
        int found = 0;
        for (const QRgb color : colorsIn(image)) {
            found = std::max(found, QColor(color).lightness());
        }
        return found;
    }

    QWidget window;
    PanelMenu menu{&window};
};

const MenuEntry kPlain{.id = 1, .label = QStringLiteral("深色")};

TEST_F(PanelMenuTest, isDarkOverADarkPanel) {
    fill(kPlain);
    EXPECT_LT(ground().lightness(), 60);
    EXPECT_GT(ground().lightness(), ThemeColors::dark().surface.lightness());
    EXPECT_TRUE(shows(ThemeColors::dark().primaryText));
}

TEST_F(PanelMenuTest, isLightOverALightPanel) {
    ThemeKey::set(window, {.colors = ThemeColors::light()});
    fill(kPlain);
    EXPECT_GT(ground().lightness(), 230);
    EXPECT_LT(ground().lightness(), ThemeColors::light().surface.lightness());
    EXPECT_TRUE(shows(ThemeColors::light().primaryText));
}

TEST_F(PanelMenuTest, marksWhatIsOnAndNothingElse) {
    const QColor accent = ThemeColors::dark().accent;
    fill({MenuEntry{.id = 1, .mark = MenuEntry::Mark::radio, .isOn = true},
          MenuEntry{.id = 2, .mark = MenuEntry::Mark::radio},
          MenuEntry{.id = 3, .mark = MenuEntry::Mark::check, .isOn = true},
          MenuEntry{.id = 4, .mark = MenuEntry::Mark::check}});
    EXPECT_TRUE(shows(accent, 0));
    EXPECT_FALSE(shows(accent, 1));
    EXPECT_TRUE(shows(accent, 2));
    EXPECT_FALSE(shows(accent, 3));
}

TEST_F(PanelMenuTest, drawsEachKindInItsColour) {
    // What went wrong is not in the colour of losses.
    const ThemeColors::Resolved colors = ThemeColors::of(ColorScheme::dark, ChangeColors::redUp);
    ThemeKey::set(window, {.colors = colors});
    const QString label = QStringLiteral("跟随系统");
    fill({MenuEntry{.id = 1, .label = label, .kind = MenuEntry::Kind::header},
          MenuEntry{.id = 2, .label = label, .kind = MenuEntry::Kind::notice},
          MenuEntry{.id = 3, .label = label, .isEnabled = false}});
    EXPECT_TRUE(shows(colors.secondaryText, 0));
    EXPECT_TRUE(shows(colors.danger, 1));
    EXPECT_TRUE(shows(colors.tertiaryText, 2));
    for (int index = 0; index < 3; ++index) {
        EXPECT_FALSE(shows(colors.primaryText, index)) << index;
    }
}

TEST_F(PanelMenuTest, aHeaderIsOfTheWeightOfWhatItHeads) {
    // Bold Latin letters are wider.
    const QString label = QStringLiteral("mmmmmmmm");
    fill(MenuEntry{.id = 1, .label = label, .kind = MenuEntry::Kind::notice});
    const int regular = menu.width();
    menu.close();
    fill(MenuEntry{.id = 1, .label = label, .kind = MenuEntry::Kind::header});
    EXPECT_EQ(menu.width(), regular);
}

TEST_F(PanelMenuTest, aNoticeIsWrittenAt10Point5) {
    const QString label = QStringLiteral("mmmmmmmm");
    const auto widthWith = [this](const QString& text) {
        fill(MenuEntry{.id = 1, .label = text, .kind = MenuEntry::Kind::notice});
        const int width = menu.width();
        menu.close();
        return width;
    };
    EXPECT_NEAR(widthWith(label + label) - widthWith(label),
                QFontMetricsF(systemFont(10.5)).horizontalAdvance(label),
                1);
}

TEST_F(PanelMenuTest, tellsTheKeyOfAnEntryAtTheRightInGrey) {
    const QString label = QStringLiteral("加入自选");
    menu.addAction(label);
    addWithKey(label);
    menu.popup(QPoint(50, 50));
    const QImage without = picture(0);
    const QImage with = picture(1);
    const std::vector<int> text = columnsOf(without);
    const std::vector<int> all = columnsOf(with);
    ASSERT_FALSE(text.empty());
    ASSERT_GT(all.size(), text.size());
    EXPECT_TRUE(std::equal(text.begin(), text.end(), all.begin())) << "the text stands still";
    EXPECT_GT(all.at(text.size()), text.back() + 10);
    EXPECT_GE(all.back(), with.width() - 20 - 3);
    const QImage key = with.copy(with.rect().adjusted(text.back() + 1, 0, 0, 0));
    EXPECT_LE(lightest(key), ThemeColors::dark().tertiaryText.lightness());
    EXPECT_GT(lightest(with), ThemeColors::dark().tertiaryText.lightness());
}

TEST_F(PanelMenuTest, theKeyOfAnEntryStandsClearOfTheLongestText) {
    addWithKey(QStringLiteral("甲"));
    menu.addAction(QStringLiteral("跟随系统跟随系统"));
    menu.popup(QPoint(50, 50));
    EXPECT_GT(columnsOf(picture(0)).back(), columnsOf(picture(1)).back());
}

TEST_F(PanelMenuTest, tintsTheEntryUnderThePointer) {
    fill({kPlain, MenuEntry{.id = 2, .label = QStringLiteral("浅色")}});
    const QImage before = picture(0);
    const QImage other = picture(1);
    menu.setActiveAction(menu.actions().front());
    EXPECT_NE(picture(0), before);
    EXPECT_EQ(picture(1), other);
}

TEST_F(PanelMenuTest, aHeaderIsNotTinted) {
    fill(MenuEntry{.id = 1, .label = QStringLiteral("外观"), .kind = MenuEntry::Kind::header});
    const QImage before = picture();
    menu.setActiveAction(menu.actions().front());
    EXPECT_EQ(picture(), before);
}

TEST_F(PanelMenuTest, breaksALongTextIntoLines) {
    fill({kPlain,
          MenuEntry{.id = 2,
                    .label = QStringLiteral("开机自启注册失败,请检查系统设置中的登录项"),
                    .kind = MenuEntry::Kind::notice}});
    EXPECT_LT(menu.width(), 250);
    EXPECT_GT(place(1).height(), place(0).height());
}

TEST_F(PanelMenuTest, drawsADividerAsALine) {
    fill({kPlain, MenuEntry{.id = 2, .kind = MenuEntry::Kind::separator}, kPlain});
    EXPECT_EQ(place(1).height(), 9);
    EXPECT_EQ(colorsIn(picture(1)).size(), 2U);
}

TEST_F(PanelMenuTest, showsThatThereIsMoreBelow) {
    fill(MenuEntry{.id = 1, .kind = MenuEntry::Kind::submenu});
    EXPECT_TRUE(shows(ThemeColors::dark().primaryText));
}

TEST_F(PanelMenuTest, anAmpersandIsShownAsItIs) {
    fill({MenuEntry{.id = 1, .label = QStringLiteral("A&B")},
          MenuEntry{.id = 2, .label = QStringLiteral("AB")}});
    EXPECT_NE(picture(0), picture(1));
}

TEST_F(PanelMenuTest, drawsTheIconOfAnAction) {
    QPixmap red(16, 16);
    red.fill(Qt::red);
    menu.addAction(QIcon(red), QStringLiteral("删除"));
    menu.popup(QPoint(50, 50));
    EXPECT_TRUE(shows(Qt::red));
}

/// A menu that closes while the pointer is somewhere else than where it opened.
struct PanelMenuPointerTest : ::testing::Test {
    PanelMenuPointerTest() {
        ThemeKey::set(window, {.colors = ThemeColors::dark()});
        window.setGeometry(50, 50, 400, 100);
        row = new QWidget(&window);
        row->setGeometry(0, 0, 400, 28);
        arrow = new QWidget(row);
        arrow->setGeometry(0, 0, 28, 28);
    }

    /// Opens a menu over the arrow; the pointer goes on, which the window is not told.
    void openOverTheArrowAndGoTo(QPoint place) {
        showActive(window);
        QCursor::setPos(window.mapToGlobal(place));
        spinUntilIdle();
        pointerEnters(*row);
        pointerEnters(*arrow);
        menu = new PanelMenu(&window);
        menu->addAction(QStringLiteral("固定"));
        menu->popup(window.mapToGlobal(QPoint(20, 20)));
        ASSERT_TRUE(menu->isVisible());
    }
    void close() const {
        menu->close();
        spinUntilIdle();
    }

    QWidget window;
    QWidget* row = nullptr;
    QWidget* arrow = nullptr;
    PanelMenu* menu = nullptr;
};

TEST_F(PanelMenuPointerTest, nothingStaysUnderAPointerThatHasLeftMeanwhile) {
    openOverTheArrowAndGoTo({200, 300});
    close();
    EXPECT_FALSE(row->underMouse());
    EXPECT_FALSE(arrow->underMouse());
}

TEST_F(PanelMenuPointerTest, whatIsStillUnderThePointerStaysSo) {
    openOverTheArrowAndGoTo({100, 10});
    close();
    EXPECT_TRUE(row->underMouse());
    EXPECT_FALSE(arrow->underMouse());
}

TEST_F(PanelMenuPointerTest, aMenuEndsWithItsWindow) {
    auto shortLived = std::make_unique<QWidget>();
    auto* const itsMenu = new PanelMenu(shortLived.get());
    itsMenu->addAction(QStringLiteral("固定"));
    showActive(*shortLived);
    itsMenu->popup(QPoint(60, 60));
    ASSERT_EQ(QApplication::activePopupWidget(), itsMenu);
    shortLived.reset();
    spinUntilIdle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

}  // namespace
}  // namespace quillbar
