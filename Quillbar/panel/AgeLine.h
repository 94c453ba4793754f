// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/BannerRow.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/AppState.h"

#include <QTimer>

#include <chrono>
#include <optional>
#include <vector>

namespace quillbar {

/// The row that says for how long no price has come although the exchange is connected. The banner
/// tells of every other state of the connection. The row is shown while the prices are stale,
/// unless the list has no prices or the widget with the prices is hidden.
///
/// It also works while the panel is closed, so that the panel opens with room for it. It looks at
/// the time only while the widget with the prices is not hidden itself. Main thread.
class AgeLine final : public BannerRow {
public:
    /// How often it checks the age of the prices.
    static constexpr std::chrono::seconds kInterval{5};

    /// The state outlives the line. `prices` is the widget that shows the prices, a child of the
    /// same parent.
    AgeLine(const AppState& state, Clock now, QWidget& prices, QWidget* parent = nullptr);

    /// What the line says of the state at that instant; absent while there is nothing to say.
    [[nodiscard]] static std::optional<QString> textAt(const AppState& state, TimePoint now);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow();
    void refresh();

    const AppState& m_state;
    Clock m_now;
    QWidget& m_prices;
    QTimer m_timer;
    std::vector<Observation> m_observations;
};

}  // namespace quillbar
