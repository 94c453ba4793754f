// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/StatusItem.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/tray/HostPictures.h"
#include "Quillbar/widgets/EntryMenu.h"

#include <QApplication>
#include <QDBusConnection>

#include <utility>

namespace quillbar {

namespace {

const QString kThemeIcon = QStringLiteral("io.github.quillbar.Quillbar");
// Shown while there is a mark, on hosts that draw icons of the theme and no pictures of ours.
const QString kThemeAlertIcon = QStringLiteral("dialog-information");
// Hosts draw a broken picture for a name that they do not find. This one is in the themes of GNOME,
// MATE and Plasma; the monitors and charts of other names are not in all of them.
const QString kStockIcon = QStringLiteral("x-office-spreadsheet");

QString firedText(int count) {
    return translated("tray", "%n 个价格提醒已触发", nullptr, count);
}

PictureGround groundOf(const TrayHost& host) {
    return host.bar == TrayHost::Bar::dark ? PictureGround::darkBar : PictureGround::own;
}

}  // namespace

StatusItem::StatusItem(StatusItemEnvironment environment, Handlers handlers)
    : m_environment(std::move(environment))
    , m_handlers(std::move(handlers))
    , m_place(m_environment)
    , m_item(DBusMenu::kPath,
             {
                 .activate = [this](QPoint reported) { activate(m_place.ofClick(reported)); },
                 .secondaryActivate =
                     [this](std::optional<QPoint> reported) {
                         activate(reported ? m_place.ofClick(*reported) : unreportedAnchor());
                     },
                 .contextMenu = [this](QPoint reported) { popUpMenu(reported); },
                 .scroll = [this](int places) { scroll(places); },
                 .activationToken =
                     [this](const QString& token) { m_handlers.onActivationToken(token); },
             })
    , m_menu({
          .shown = [this] { menuShown(); },
          .clicked = [this](int id) { menuClicked(id); },
          .openChanged =
              [this](bool isOpen) {
                  isOpen ? m_tooltipPause.hostMenuOpened() : m_tooltipPause.hostMenuClosed();
              },
      })
    , m_tooltipPause(m_environment.executor, m_environment.sleeper, [this] { refresh(); })
    , m_pinAnnouncement(m_environment.executor, m_environment.sleeper, [this] { refresh(); })
    , m_search(m_environment,
               {
                   .hostFound = [this](const TrayHost& host) { adaptTo(host); },
                   .hostTook = [this] { m_olderTray.reset(); },
                   .olderTray = [this](bool isUsed) { setOlderTrayUsed(isUsed); },
                   .noTray = [this] { m_handlers.onNoTray(); },
                   .tray = [this] { m_handlers.onTray(); },
                   .offered =
                       [this] {
                           if (m_handlers.onOffered) {
                               m_handlers.onOffered();
                           }
                       },
               }) {
    connect(&m_ownMenu, &QMenu::aboutToShow, this, [this] {
        // The font is set only when it is needed, because most hosts draw the menu themselves.
        m_ownMenu.setFont(withChineseFamilies(QApplication::font(&m_ownMenu)));
        menuShown();
        m_tooltipPause.setOwnMenuOpen(true);
    });
    connect(
        &m_ownMenu, &QMenu::aboutToHide, this, [this] { m_tooltipPause.setOwnMenuOpen(false); });
    setMenu({});
}

StatusItem::~StatusItem() = default;

void StatusItem::show(const LabelFace& face) {
    // In a quiet market most tickers change only the volume, which the face does not show.
    if (m_face == face) {
        return;
    }
    const bool isFirst = !m_face;
    m_face = face;
    if (!face.isDiscreet) {
        m_pinAnnouncement.pinnedIs(face.symbol);
    }
    if (isFirst) {
        begin();
    }
    refresh();
}

void StatusItem::setFiredAlerts(int count) {
    if (m_firedAlerts != count) {
        m_firedAlerts = count;
        refresh();
    }
}

void StatusItem::setMenu(const std::vector<MenuEntry>& middle) {
    constexpr int kFirstSeparator = 3;
    constexpr int kSecondSeparator = 4;
    const auto separator = [](int id) {
        return MenuEntry{.id = id, .kind = MenuEntry::Kind::separator};
    };
    std::vector<MenuEntry> entries{
        MenuEntry{.id = kOpenPanel, .label = translated("tray", "打开面板")},
        separator(kFirstSeparator)};
    if (!middle.empty()) {
        entries.insert(entries.end(), middle.begin(), middle.end());
        entries.push_back(separator(kSecondSeparator));
    }
    entries.push_back(MenuEntry{.id = kQuit, .label = translated("tray", "退出 Quillbar")});
    m_menu.setEntries(entries);
    // A choice is handled later, because it may change the menu that is still handling the click.
    fillMenu(m_ownMenu, entries, [this](int id) {
        QMetaObject::invokeMethod(
            this, [this, id] { menuClicked(id); }, Qt::QueuedConnection);
    });
}

void StatusItem::begin() {
    QDBusConnection& bus = m_environment.bus;
    if (bus.isConnected()) {
        constexpr auto kExported = QDBusConnection::ExportAllProperties
                                   | QDBusConnection::ExportScriptableSlots
                                   | QDBusConnection::ExportScriptableSignals;
        if (!bus.registerObject(StatusNotifierItem::kPath, &m_item, kExported)
            || !bus.registerObject(DBusMenu::kPath, &m_menu, kExported)) {
            m_logger.error("cannot export the status item over D-Bus");
        }
    }
    m_search.start();
}

void StatusItem::adaptTo(const TrayHost& host) {
    m_host = host;
    m_place.setHost(host.clickPosition);
    if (host.icon == TrayHost::Icon::themeName) {
        m_themeIcon = m_environment.hasThemeIcon(kThemeIcon) ? kThemeIcon : kStockIcon;
    }
    m_olderTray.reset();
    refresh();
}

void StatusItem::setOlderTrayUsed(bool isUsed) {
    if (!isUsed) {
        m_olderTray.reset();
        return;
    }
    m_olderTray = std::make_unique<OlderTray>(
        m_ownMenu,
        OlderTray::Handlers{
            .activate = [this] { activate(unreportedAnchor()); },
            .secondaryActivate = [this] { activate(unreportedAnchor()); },
            .scroll = [this](int places) { scroll(places); },
        });
    m_olderTray->setParent(this);
    refresh();
}

void StatusItem::refresh() {
    if (!m_face) {
        return;
    }
    if (m_olderTray) {
        const QString tooltip =
            m_tooltipPause.isPaused() ? QString() : m_face->text + u'\n' + details();
        m_olderTray->show(pictureIn(LabelForm::square, PictureGround::own), tooltip);
    }
    // Without a host nobody sees the item.
    if (m_search.hasHost()) {
        refreshItem();
    }
}

LabelPicture StatusItem::pictureIn(LabelForm form, PictureGround ground) const {
    const SquareTop top = m_pinAnnouncement.isOn() ? SquareTop::name : SquareTop::price;
    LabelPicture picture = LabelPicture::of(*m_face, form, ground, top);
    picture.isMarked = m_firedAlerts > 0;
    return picture;
}

void StatusItem::refreshItem() {
    const LabelPicture picture = pictureIn(m_host.form, groundOf(m_host));
    if (m_host.icon == TrayHost::Icon::themeName) {
        m_picture.reset();
        const bool isMarked = m_firedAlerts > 0 && m_environment.hasThemeIcon(kThemeAlertIcon);
        m_item.setThemeIcon(isMarked ? kThemeAlertIcon : m_themeIcon);
    } else if (m_picture != picture) {
        m_picture = picture;
        m_item.setPictures([host = m_host, picture] { return hostPictures(host, picture); });
    }
    const bool isRow = m_host.form == LabelForm::text && !m_face->row.isEmpty();
    m_item.setLabel(isRow ? m_face->row : m_face->label(),
                    isRow ? m_face->rowGuide : m_face->guide(),
                    m_host.label == TrayHost::Label::shown
                        ? StatusNotifierItem::Announcement::sent
                        : StatusNotifierItem::Announcement::omitted);
    refreshTooltip();
}

void StatusItem::refreshTooltip() {
    const bool isPaused = m_tooltipPause.isPaused();
    const bool hasNames = !isPaused || m_host.emptyTooltip == TrayHost::EmptyTooltip::nothing;
    QString description = m_face->text;
    if (m_firedAlerts > 0) {
        description = translated("tray", "%1，%2").arg(description, firedText(m_firedAlerts));
    }
    m_item.setDescription(hasNames ? description : QString());

    const QString title = m_face->text.toHtmlEscaped();
    const QString lines = details().toHtmlEscaped();
    if (m_host.tooltip == TrayHost::Tooltip::itemTitle) {
        m_item.setTooltip({}, {});
        m_item.setTitle(isPaused
                            ? QString()
                            : QStringLiteral("<b>") + title + QStringLiteral("</b>\n") + lines);
        return;
    }
    // Plasma sorts the items by their titles, so the title never changes there.
    m_item.setTitle(hasNames ? StatusNotifierItem::kTitle : QString());
    if (isPaused) {
        m_item.setTooltip({}, {});
    } else if (m_host.tooltip == TrayHost::Tooltip::titleAlone) {
        m_item.setTooltip(title + u'\n' + lines, {});
    } else {
        m_item.setTooltip(title, lines);
    }
}

QString StatusItem::details() const {
    return m_firedAlerts > 0 ? firedText(m_firedAlerts) + u'\n' + m_face->details : m_face->details;
}

void StatusItem::activate(std::optional<QPoint> anchor) {
    m_tooltipPause.clicked();
    m_handlers.onActivate(anchor, ActivationSource::click);
}

void StatusItem::scroll(int places) {
    if (m_handlers.onScroll) {
        m_handlers.onScroll(m_host.wheelUp == TrayHost::WheelUp::negative ? -places : places);
    }
}

void StatusItem::popUpMenu(QPoint reported) {
    const auto anchor = m_place.ofClick(reported);
    if (anchor && m_environment.canPopUpMenus) {
        m_ownMenu.popup(*anchor);
    } else {
        // Everything that is in the menu is also in the panel.
        activate(anchor);
    }
}

void StatusItem::menuShown() {
    // When an entry is chosen, the pointer is on the entry, not on the item.
    m_menuAnchor = unreportedAnchor();
    m_tooltipPause.clicked();
    if (m_handlers.onMenuShown) {
        m_handlers.onMenuShown();
    }
}

void StatusItem::menuClicked(int id) {
    const auto shownAt = std::exchange(m_menuAnchor, std::nullopt);
    const std::optional<QPoint> anchor = shownAt ? shownAt : unreportedAnchor();
    if (id == kOpenPanel) {
        m_handlers.onActivate(anchor, ActivationSource::menu);
    } else {
        m_handlers.onMenu(id, anchor);
    }
}

std::optional<QPoint> StatusItem::unreportedAnchor() const {
    // The older tray is a window of X11, so the position of the pointer over it is known in every
    // session.
    return m_olderTray ? std::optional(m_environment.pointer()) : m_place.ofUnreportedClick();
}

}  // namespace quillbar
