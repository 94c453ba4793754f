// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/Alert.h"

#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>

namespace quillbar {

class CheckRow;
class GlyphButton;

/// One price alert among all: a switch with its coin, its condition, its note and its state, and a
/// button that deletes it.
class AlertRow final : public QWidget {
public:
    /// What the user does with an alert, by its id. Both are set. A handler does not destroy the
    /// row, but may post that.
    struct Handlers final {
        std::function<void(std::int64_t id, bool isOn)> onSwitch;
        std::function<void(std::int64_t id)> onDelete;
    };

    AlertRow(const Alert& alert, const Handlers& handlers, QWidget* parent = nullptr);

    [[nodiscard]] std::int64_t id() const noexcept { return m_id; }
    /// Shows what has become of the alert, which has the same id.
    void setAlert(const Alert& alert);

    /// Makes its two controls the next stops of the Tab key after `before`; returns the last.
    QWidget* tabAfter(QWidget* before);

    /// By what the button that deletes the alert got the focus; absent while it does not have it.
    [[nodiscard]] std::optional<Qt::FocusReason> focusOfDelete() const;
    void focusDelete(Qt::FocusReason reason);

private:
    std::int64_t m_id;
    // Children, owned by Qt.
    CheckRow* m_switch;
    GlyphButton* m_delete;
};

}  // namespace quillbar
