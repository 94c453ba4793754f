// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/panel/PreferencesSection.h"
#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

class QVBoxLayout;

namespace quillbar {

class AlertRow;
class CheckRow;
class PreferencesState;
class TextButton;
class ThemedLabel;

/// The section that lists all price alerts. Each can be switched on and off, and deleted; for a
/// short time after that it can be brought back. Above them is the switch for the sound of their
/// notices.
class AlertsSection final : public PreferencesSection {
public:
    /// How long a deletion can be taken back.
    static constexpr Seconds kOffered{10};

    /// The environment, which has alerts and a sleeper, and the preferences outlive the section.
    AlertsSection(const ViewEnvironment& environment,
                  PreferencesState& preferences,
                  QWidget* parent = nullptr);

protected:
    /// Ends the offer to take a deletion back.
    void hideEvent(QHideEvent* event) override;

private:
    void makeOffer();
    void refresh();
    void putInTabOrder();
    void remove(std::int64_t id);
    void focusBeside(std::size_t place, Qt::FocusReason reason);
    Task<void> offerForAWhile();
    void withdraw();
    void takeBack();

    const ViewEnvironment& m_environment;
    // Children, owned by Qt.
    CheckRow* m_sound;
    ThemedLabel* m_empty;
    QVBoxLayout* m_list;
    QWidget* m_offer;
    ThemedLabel* m_offerText;
    TextButton* m_takeBack;
    ThemedLabel* m_error;
    // One for each alert, in their order.
    std::vector<AlertRow*> m_rows;
    // What was deleted and can be taken back.
    std::optional<Alert> m_deleted;
    std::vector<Observation> m_observations;
    TaskScope::Handle m_offering;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
