// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/StatusItem.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/tray/EntryMenu.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QImage>

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

const QString kWatcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString kThemeIcon = QStringLiteral("io.github.quillbar.Quillbar");

// A busy host that does not answer in time has the registration all the same.
bool isSilence(const QDBusMessage& reply) {
    const QDBusError::ErrorType type = QDBusError(reply).type();
    return type == QDBusError::NoReply || type == QDBusError::Timeout
           || type == QDBusError::TimedOut;
}

QDBusMessage questionToBus(const QString& method, const QString& argument) {
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage question =
        QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
    question << argument;
    return question;
}

// Pixels doubled are sharp again once the host has halved them; lines drawn finer would be a blur.
QImage drawnFor(const TrayHost& host, const LabelPicture& picture, int height) {
    return host.picks == TrayHost::Picks::largest
               ? picture.drawn(kPictureHeights.front()).scaledToHeight(height)
               : picture.drawn(height);
}

// As wide as the text gets while its digits change.
QString guideOf(QString text) {
    std::replace_if(
        text.begin(),
        text.end(),
        [](QChar character) { return character >= u'0' && character <= u'9'; },
        QChar(u'8'));
    return text;
}

}  // namespace

StatusItem::StatusItem(StatusItemEnvironment environment, Handlers handlers)
    : m_environment(std::move(environment))
    , m_handlers(std::move(handlers))
    , m_item(
          DBusMenu::kPath,
          {
              .activate = [this](QPoint reported) { activate(reported); },
              .secondaryActivate = [this](std::optional<QPoint> reported) { activate(reported); },
              .contextMenu = [this](QPoint reported) { popUpMenu(reported); },
              .activationToken =
                  [this](const QString& token) { m_handlers.onActivationToken(token); },
          })
    , m_menu({
          .shown = [this] { menuShown(); },
          .clicked = [this](int id) { menuClicked(id); },
      })
    , m_scope(m_environment.executor) {
    connect(&m_ownMenu, &QMenu::aboutToShow, this, [this] {
        // Only here: most hosts draw the menu themselves.
        m_ownMenu.setFont(withChineseFamilies(QApplication::font(&m_ownMenu)));
        menuShown();
    });
    setMenu({});
}

StatusItem::~StatusItem() = default;

void StatusItem::show(const LabelFace& face) {
    const bool isFirst = !m_face;
    m_face = face;
    if (isFirst) {
        begin();
    }
    refresh();
}

void StatusItem::setMenu(const std::vector<MenuEntry>& middle) {
    constexpr int kFirstSeparator = 3;
    constexpr int kSecondSeparator = 4;
    const auto separator = [](int id) {
        return MenuEntry{.id = id, .kind = MenuEntry::Kind::separator};
    };
    std::vector<MenuEntry> entries{MenuEntry{.id = kOpenPanel, .label = QStringLiteral("打开面板")},
                                   separator(kFirstSeparator)};
    if (!middle.empty()) {
        entries.insert(entries.end(), middle.begin(), middle.end());
        entries.push_back(separator(kSecondSeparator));
    }
    entries.push_back(MenuEntry{.id = kQuit, .label = QStringLiteral("退出 Quillbar")});
    m_menu.setEntries(entries);
    // A choice is handled after the menu is done with it, because it may change the menu.
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
        m_desktopShade.emplace(bus, [this](BarShade bar) {
            m_desktopBar = bar;
            refresh();
        });
        auto* const owners = new QDBusServiceWatcher(
            kWatcherService, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
        connect(
            owners,
            &QDBusServiceWatcher::serviceOwnerChanged,
            this,
            [this](const QString& /*service*/, const QString& /*before*/, const QString& owner) {
                watcherIs(owner);
            });
        ask(questionToBus(QStringLiteral("GetNameOwner"), kWatcherService),
            [this](const QDBusMessage& reply) {
                if (reply.type() == QDBusMessage::ReplyMessage) {
                    watcherIs(reply.arguments().value(0).toString());
                } else {
                    reportOffered();
                }
            });
    } else {
        reportOffered();
    }
    waitForWatcher();
}

void StatusItem::ask(const QDBusMessage& question, Reply reply) {
    auto* const answer = new QDBusPendingCallWatcher(m_environment.bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, reply = std::move(reply)] {
        answer->deleteLater();
        reply(answer->reply());
    });
}

void StatusItem::watcherIs(const QString& owner) {
    if (owner == m_watcher) {
        return;
    }
    if (owner.isEmpty()) {
        loseWatcher();
        return;
    }
    m_watcher = owner;
    m_isRefused = false;
    m_registering.cancel();
    m_waiting.cancel();
    introduceTo(owner);
}

// The item is made ready for the host before the host is told of it.
void StatusItem::introduceTo(const QString& owner) {
    ask(questionToBus(QStringLiteral("GetConnectionUnixProcessID"), owner),
        [this, owner](const QDBusMessage& reply) {
            if (owner != m_watcher) {
                return;
            }
            m_host = reply.type() == QDBusMessage::ReplyMessage ? TrayHost::ofProcess(
                         m_environment.processName(reply.arguments().value(0).toUInt()))
                                                                : TrayHost{};
            m_olderTray.reset();
            refresh();
            registerWith(owner);
        });
}

void StatusItem::registerWith(const QString& owner) {
    // With the connection's own name: for one of the item's own, GNOME's extension 46 loses the item
    // in two of five starts.
    QDBusMessage question = QDBusMessage::createMethodCall(
        owner, kWatcherPath, kWatcherService, QStringLiteral("RegisterStatusNotifierItem"));
    question << m_environment.bus.baseService();
    ask(question, [this, owner](const QDBusMessage& reply) {
        if (owner != m_watcher) {
            return;
        }
        if (reply.type() == QDBusMessage::ErrorMessage && !isSilence(reply)) {
            registrationFailed(owner, reply.errorMessage());
            return;
        }
        m_isRefused = false;
        m_waiting.cancel();
        m_olderTray.reset();
        reportTray();
    });
    reportOffered();
}

void StatusItem::registrationFailed(const QString& owner, const QString& why) {
    // Another refusal of the same host is no news, and must not begin the wait afresh.
    if (!m_isRefused) {
        m_isRefused = true;
        m_logger.error("the tray host refused the item: {}", why.toStdString());
        waitForWatcher();
    }
    m_registering = m_scope.spawn(registerLater(owner));
}

Task<void> StatusItem::registerLater(QString owner) {
    co_await m_environment.sleeper(kPatience);
    registerWith(owner);
}

void StatusItem::loseWatcher() {
    m_watcher.clear();
    m_isRefused = false;
    m_registering.cancel();
    waitForWatcher();
}

void StatusItem::waitForWatcher() {
    m_waiting.cancel();
    m_waiting = m_scope.spawn(lookForOlderTray());
}

Task<void> StatusItem::lookForOlderTray() {
    const bool hasBus = m_environment.bus.isConnected();
    while (true) {
        // Without a bus no watcher can be on its way.
        bool hasWaited = hasBus;
        if (hasWaited) {
            co_await m_environment.sleeper(kPatience);
        }
        while (!m_environment.hasOlderTray()) {
            if (hasWaited) {
                reportNoTray();
            }
            co_await m_environment.sleeper(kPatience);
            hasWaited = true;
        }
        useOlderTray();
        if (hasBus) {
            // Whatever becomes of this tray, commands reach the application.
            co_return;
        }
        co_await untilOlderTrayIsGone();
        leaveOlderTray();
    }
}

Task<void> StatusItem::untilOlderTrayIsGone() {
    while (m_environment.hasOlderTray()) {
        co_await m_environment.sleeper(kPatience);
    }
}

void StatusItem::reportOffered() {
    if (const auto report = std::exchange(m_handlers.onOffered, nullptr)) {
        report();
    }
}

void StatusItem::reportNoTray() {
    if (m_hadTray || m_toldNoTray) {
        return;
    }
    m_toldNoTray = true;
    m_logger.log("no tray host: the panel opens as a window");
    m_handlers.onNoTray();
}

void StatusItem::reportTray() {
    m_hadTray = true;
    if (std::exchange(m_toldNoTray, false)) {
        m_handlers.onTray();
    }
}

void StatusItem::useOlderTray() {
    m_olderTray =
        std::make_unique<OlderTray>(m_ownMenu,
                                    OlderTray::Handlers{
                                        .activate = [this] { activate(std::nullopt); },
                                        .secondaryActivate = [this] { activate(std::nullopt); },
                                    });
    m_olderTray->setParent(this);
    refresh();
    reportTray();
}

void StatusItem::leaveOlderTray() {
    m_olderTray.reset();
    // As at the start: nothing else reaches the application without a bus.
    m_hadTray = false;
}

BarShade StatusItem::shade() const {
    return m_host.bar == TrayHost::Bar::alwaysDark ? BarShade::dark : m_desktopBar;
}

void StatusItem::refresh() {
    if (!m_face) {
        return;
    }
    if (m_olderTray) {
        const QString tooltip = m_face->text + u'\n' + m_face->details;
        m_olderTray->show(LabelPicture::of(*m_face, LabelForm::square, m_desktopBar), tooltip);
    }
    // Nobody looks at the item while there is no host.
    if (!m_watcher.isEmpty()) {
        refreshItem();
    }
}

void StatusItem::refreshItem() {
    const LabelPicture picture = LabelPicture::of(*m_face, m_host.form, shade());
    if (m_host.icon == TrayHost::Icon::themeName) {
        m_picture.reset();
        m_item.setThemeIcon(kThemeIcon);
    } else if (m_picture != picture) {
        m_picture = picture;
        m_item.setPictures([host = m_host, picture] {
            StatusImages images;
            for (const int height : kPictureHeights) {
                images.append(StatusImage::of(drawnFor(host, picture, height)));
            }
            return images;
        });
    }
    m_item.setLabel(m_face->text,
                    guideOf(m_face->text),
                    m_host.label == TrayHost::Label::shown
                        ? StatusNotifierItem::Announcement::sent
                        : StatusNotifierItem::Announcement::omitted);
    const QString title = m_face->text.toHtmlEscaped();
    const QString details = m_face->details.toHtmlEscaped();
    if (m_host.tooltip == TrayHost::Tooltip::titleAlone) {
        m_item.setTooltip(title + u'\n' + details, QString());
    } else {
        m_item.setTooltip(title, details);
    }
}

void StatusItem::activate(std::optional<QPoint> reported) {
    const QPoint anchor = reported ? anchorOf(*reported) : m_environment.pointer();
    m_handlers.onActivate(anchor, ActivationSource::click);
}

void StatusItem::popUpMenu(QPoint reported) {
    m_ownMenu.popup(anchorOf(reported));
}

void StatusItem::menuShown() {
    // By the time an entry is chosen, the pointer is on that entry.
    m_menuAnchor = m_environment.pointer();
    if (m_handlers.onMenuShown) {
        m_handlers.onMenuShown();
    }
}

void StatusItem::menuClicked(int id) {
    const QPoint anchor =
        std::exchange(m_menuAnchor, std::nullopt).value_or(m_environment.pointer());
    if (id == kOpenPanel) {
        m_handlers.onActivate(anchor, ActivationSource::menu);
    } else {
        m_handlers.onMenu(id);
    }
}

QPoint StatusItem::anchorOf(QPoint reported) const {
    const QPoint position = m_environment.logicalPosition(reported);
    return clickAnchor(position,
                       m_environment.isInBar(position),
                       m_environment.pointer(),
                       m_environment.pointerPosition,
                       m_host.clickPosition);
}

}  // namespace quillbar
