// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/window/OutsidePressWatch.h"
#include "Quillbar/window/SwayPlacement.h"
#include "Quillbar/window/ToggleGuard.h"

#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QScreen;

namespace quillbar {

/// The window that drops down from the item: beside it, without a frame or an entry in the task
/// bar, above other windows, with the keyboard's focus. It closes at Escape, at a press anywhere
/// outside, and when another program takes the focus; not when one of its own menus, popovers or
/// dialogs opens; they go with it. Minimised, which some window managers can do, it is still open,
/// and the next click shows it again. Hidden, it costs nothing and keeps its content, so that it
/// opens at once.
///
/// Where there is no item to drop from, it goes where the item would be.
class PanelWindow final : public QWidget {
public:
    /// Takes `content` over; it decides the size, and is shrunk where the screen is too small.
    PanelWindow(QWidget* content, ToggleGuard::Elapsed elapsed);
    PanelWindow(const PanelWindow&) = delete;
    PanelWindow& operator=(const PanelWindow&) = delete;
    PanelWindow(PanelWindow&&) = delete;
    PanelWindow& operator=(PanelWindow&&) = delete;
    ~PanelWindow() override;

    /// A click on the item, which lies at `anchor`, or without an anchor a command that may come from
    /// a key or from a click anywhere: opens or closes the panel.
    void toggle(std::optional<QPoint> anchor);
    /// Opens the panel, or raises it when it is open. Without an anchor it goes beside the item where
    /// that was last, or else where it would be on the primary screen.
    void open(std::optional<QPoint> anchor);
    /// Closes the panel; the next click opens it at once.
    void dismiss();

    /// The token that the host handed out for the click that follows.
    void setActivationToken(const QString& token);

    /// What a press outside, or another program that takes the focus, does to the open panel.
    enum class Elsewhere { closes, changesNothing };
    /// Closes, unless told otherwise.
    void setElsewhere(Elsewhere elsewhere) { m_elsewhere = elsewhere; }

    /// Called after the panel has closed, whatever closed it, but not while it is destroyed.
    std::function<void()> onClosed;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    class Edge;

    void follow(const QScreen* screen);
    void replace();
    void closeBy(ToggleGuard::HiddenBy cause);
    void place();
    /// Closes the menus and popovers of the panel, which would stay without it.
    void closePopups();
    /// Whether the widget is of the panel or of one of its menus and popovers. False for null.
    [[nodiscard]] bool isInside(const QWidget* widget) const;
    void handlePress(OutsidePressWatch::Place place);
    void handleRelease();
    void handleFocusLoss();
    /// Whether the keyboard is with one of the program's own windows.
    [[nodiscard]] static bool hasFocusOfOurs();
    [[nodiscard]] static bool isOverOurs(QPoint point);
    void applyShape();

    QWidget* m_content;
    Edge* m_edge;
    ToggleGuard m_guard;
    ToggleGuard::HiddenBy m_cause = ToggleGuard::HiddenBy::other;
    OutsidePressWatch m_presses;
    QTimer m_focusCheck;
    Elsewhere m_elsewhere = Elsewhere::closes;
    std::optional<QPoint> m_anchor;
    QString m_token;
    bool m_isTranslucent = false;
    // Nobody blends windows, so the corners are cut.
    bool m_isMasked = false;
    /// Null outside sway, which places windows itself.
    std::unique_ptr<SwayPlacement> m_sway;
};

}  // namespace quillbar
