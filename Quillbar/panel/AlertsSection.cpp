// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/AlertsSection.h"

#include "Quillbar/panel/AlertRow.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/AlertText.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/CheckRow.h"
#include "Quillbar/widgets/TextButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/alerts/AlertKeeper.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QMargins>
#include <QString>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quillbar {

namespace {

constexpr double kTextSize = 10.5;
constexpr int kSpacing = 8;

ThemedLabel* makeLabel(ColorRole role, QWidget* parent) {
    auto* const label = new ThemedLabel(systemFont(kTextSize), role, parent);
    label->setWordWrap(true);
    return label;
}

}  // namespace

AlertsSection::AlertsSection(const ViewEnvironment& environment,
                             PreferencesState& preferences,
                             QWidget* parent)
    : PreferencesSection(translated("panel", "提醒"), parent)
    , m_environment(environment)
    , m_sound(new CheckRow(translated("panel", "提示音"), this))
    , m_empty(makeLabel(&ThemeColors::Resolved::secondaryText, this))
    , m_list(new QVBoxLayout)
    , m_offer(new QWidget(this))
    , m_offerText(makeLabel(&ThemeColors::Resolved::secondaryText, m_offer))
    , m_takeBack(new TextButton(translated("panel", "撤销"), m_offer))
    , m_error(makeLabel(&ThemeColors::Resolved::danger, this))
    , m_scope(environment.executor) {
    m_sound->setTexts(m_sound->text(), translated("panel", "价格提醒出现时响一声"));
    connect(m_sound, &QAbstractButton::clicked, this, [&preferences](bool isOn) {
        preferences.setAlertSound(isOn);
    });
    add(m_sound);
    m_empty->setText(
        translated("panel", "还没有价格提醒。在自选列表的一行上点右键，选“价格提醒…”。"));
    add(m_empty);
    auto* const list = new QWidget(this);
    list->setLayout(m_list);
    list->setAccessibleName(translated("panel", "价格提醒"));
    m_list->setContentsMargins(0, 0, 0, 0);
    m_list->setSpacing(0);
    add(list);
    makeOffer();
    add(m_offer);
    m_error->setText(translated("panel", "提醒未能保存到磁盘，重启后会丢失"));
    m_error->setAccessibleName(m_error->text());
    Announcement::mark(*m_error);
    add(m_error);
    for (ThemedLabel* const text : {m_empty, m_error}) {
        TextScale::followMargins(*text, QMargins(kTextIndent, 0, kTextIndent, 0));
    }
    m_observations.push_back(preferences.preferences().observe(
        [this](const Preferences& chosen) { m_sound->setChecked(chosen.alertSound); }));
    m_observations.push_back(environment.alerts->alerts().observe(
        [this](const std::vector<Alert>& /*alerts*/) { refresh(); }));
    m_observations.push_back(environment.alerts->isSaved().observe(
        [this](bool isSaved) { m_error->setVisible(!isSaved); }));
    m_sound->setChecked(preferences.preferences()->alertSound);
    refresh();
}

void AlertsSection::makeOffer() {
    Announcement::mark(*m_offer);
    auto* const layout = new QHBoxLayout(m_offer);
    TextScale::followSpaces(*m_offer, *layout, QMargins(kTextIndent, 0, kTextIndent, 0), kSpacing);
    layout->addWidget(m_offerText, 1);
    layout->addWidget(m_takeBack);
    m_offer->hide();
    connect(m_takeBack, &QAbstractButton::clicked, this, [this] { takeBack(); });
}

void AlertsSection::refresh() {
    const std::vector<AlertRow*> before = std::exchange(m_rows, {});
    auto next = before.begin();
    // Deleted later, because the call may come from the row's own button.
    const auto removeNext = [this, &next] {
        m_list->removeWidget(*next);
        (*next)->hide();
        (*next)->deleteLater();
        ++next;
    };
    // Alerts and rows are both in the order of their ids.
    for (const Alert& alert : *m_environment.alerts->alerts()) {
        while (next != before.end() && (*next)->id() < alert.id) {
            removeNext();
        }
        if (next != before.end() && (*next)->id() == alert.id) {
            // A row that stays keeps the focus.
            (*next)->setAlert(alert);
            m_rows.push_back(*next++);
            continue;
        }
        auto* const row = new AlertRow(alert,
                                       {.onSwitch =
                                            [this](std::int64_t id, bool isOn) {
                                                isOn ? m_environment.alerts->switchOn(id)
                                                     : m_environment.alerts->switchOff(id);
                                            },
                                        .onDelete = [this](std::int64_t id) { remove(id); }},
                                       this);
        m_list->insertWidget(static_cast<int>(m_rows.size()), row);
        m_rows.push_back(row);
    }
    while (next != before.end()) {
        removeNext();
    }
    // Most changes are of an alert that stays, and the order of thousands takes time.
    if (m_rows != before) {
        putInTabOrder();
    }
    m_empty->setVisible(m_rows.empty());
    m_error->setVisible(!*m_environment.alerts->isSaved());
}

// Without this, the Tab key would visit the widgets in the order in which they were made.
void AlertsSection::putInTabOrder() {
    QWidget* last = m_sound;
    for (AlertRow* const row : m_rows) {
        last = row->tabAfter(last);
    }
    setTabOrder(last, m_takeBack);
}

void AlertsSection::remove(std::int64_t id) {
    const auto row = std::find_if(
        m_rows.begin(), m_rows.end(), [id](const AlertRow* each) { return each->id() == id; });
    const std::vector<Alert>& alerts = *m_environment.alerts->alerts();
    const auto alert = std::find_if(
        alerts.begin(), alerts.end(), [id](const Alert& each) { return each.id == id; });
    if (row == m_rows.end() || alert == alerts.end()) {
        return;
    }
    const auto place = static_cast<std::size_t>(row - m_rows.begin());
    if (const auto focus = (*row)->focusOfDelete()) {
        focusBeside(place, *focus);
    }
    m_deleted = *alert;
    m_environment.alerts->remove(id);
    const QString text = translated("panel", "已删除 %1 %2")
                             .arg(OneLineText::of(m_deleted->baseAsset),
                                  AlertText::condition(m_deleted->kind, m_deleted->threshold));
    // Hidden also between two deletions, because screen readers read only what appears.
    m_offer->hide();
    m_offer->setAccessibleName(text);
    m_offerText->setText(text);
    m_takeBack->setAccessibleName(translated("panel", "撤销，%1").arg(text));
    m_offering.cancel();
    m_offering = m_scope.spawn(offerForAWhile());
}

// The row at that place is about to go.
void AlertsSection::focusBeside(std::size_t place, Qt::FocusReason reason) {
    if (place + 1 < m_rows.size()) {
        m_rows[place + 1]->focusDelete(reason);
    } else if (place > 0) {
        m_rows[place - 1]->focusDelete(reason);
    } else {
        m_sound->setFocus(reason);
    }
}

Task<void> AlertsSection::offerForAWhile() {
    m_offer->show();
    co_await m_environment.sleeper(kOffered);
    withdraw();
}

void AlertsSection::withdraw() {
    m_deleted.reset();
    if (m_takeBack->hasFocus()) {
        // What is hidden with the focus passes it on to whatever comes next.
        m_sound->setFocus(m_takeBack->focusReason());
    }
    m_offer->hide();
}

void AlertsSection::takeBack() {
    if (!m_deleted) {
        return;
    }
    const Alert alert = *std::exchange(m_deleted, std::nullopt);
    m_offering.cancel();
    m_environment.alerts->putBack(alert);
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [&alert](const AlertRow* each) {
        return each->id() == alert.id;
    });
    if (m_takeBack->hasFocus() && row != m_rows.end()) {
        (*row)->focusDelete(m_takeBack->focusReason());
    }
    withdraw();
}

void AlertsSection::hideEvent(QHideEvent* event) {
    PreferencesSection::hideEvent(event);
    if (!event->spontaneous()) {
        m_offering.cancel();
        withdraw();
    }
}

}  // namespace quillbar
