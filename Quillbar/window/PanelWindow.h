// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/window/OutsidePressWatch.h"
#include "Quillbar/window/ScaleWatch.h"
#include "Quillbar/window/SwayPlacement.h"
#include "Quillbar/window/ToggleGuard.h"

#include <QPoint>
#include <QRect>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QScreen;

namespace quillbar {

class PanelEdge;

/// The window that drops down from the item. It is beside the item and above other windows, has no
/// frame and no entry in the task bar, and gets the keyboard's focus. It closes at Escape, at a
/// press anywhere outside, and when another program takes the focus. As long as the pointer has not
/// been inside, it waits half a second for the focus, because the focus may follow a pointer that
/// is on its way. It does not close when one of its own menus, popovers or dialogs opens; they
/// close with it. Some window managers can minimise it: it is still open then, and the next click
/// shows it again. While it is hidden it costs nothing and keeps its content, so that it opens at
/// once.
///
/// Without an item, it is where the item would be.
class PanelWindow final : public QWidget {
public:
    /// Takes ownership of `content`, whose size hint is the size; it is shrunk if the screen is too
    /// small. `ratiosOf` looks up for which scale the native window is drawn, and which scale its
    /// screen has.
    PanelWindow(QWidget* content,
                ToggleGuard::Elapsed elapsed,
                ScaleWatch::LookUp ratiosOf = &ScaleWatch::ratiosOf);
    PanelWindow(const PanelWindow&) = delete;
    PanelWindow& operator=(const PanelWindow&) = delete;
    PanelWindow(PanelWindow&&) = delete;
    PanelWindow& operator=(PanelWindow&&) = delete;
    ~PanelWindow() override;

    /// By what the user asks for the panel.
    enum class AskedBy {
        /// The pointer, on the item or on its menu.
        pointer,
        /// A command, which may come from a key or from a click anywhere.
        command,
    };
    /// Opens or closes the panel of the item at `anchor`, as open() does.
    void toggle(AskedBy askedBy, std::optional<QPoint> anchor = std::nullopt);
    /// Opens the panel, or raises it when it is open. Without an anchor, it opens at the last
    /// anchor, or else where the item would be on the primary screen.
    void open(AskedBy askedBy, std::optional<QPoint> anchor = std::nullopt);
    /// Closes the panel; the next click opens it at once.
    void dismiss();
    /// Makes the native window anew, for the scale that its screen has now. An open panel stays
    /// open, but its menus and popovers close.
    void renew();

    /// More characters than the token of any desktop has. A longer one is ignored: it would break
    /// the connection to the X server, or fill the environment.
    static constexpr qsizetype kLongestToken = 1024;

    /// The token of the host for the click that follows; empty for none.
    void setActivationToken(const QString& token);

    /// What a press outside, or another program that takes the focus, does to the open panel.
    enum class Elsewhere { closes, changesNothing };
    /// The default is that it closes.
    void setElsewhere(Elsewhere elsewhere) { m_elsewhere = elsewhere; }

    /// Whether the panel is a window by itself, because there is no item. It then stays where the
    /// user has dragged it. The default is that it is not.
    void setStandalone(bool isStandalone);

    /// Called when the panel has opened; not when it is raised.
    std::function<void()> onOpened;
    /// Called after the panel has closed, whatever closed it, but not while it is destroyed.
    std::function<void()> onClosed;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void follow(const QScreen* screen);
    void handleScreenChange();
    void findBar();
    void replace();
    void closeBy(ToggleGuard::HiddenBy cause);
    void place();
    void keepPlace();
    void handlePress(OutsidePressWatch::Place place);
    void handleRelease();
    void waitForFocus();
    void handleFocusLoss();
    void applyShape();

    QWidget* m_content;
    PanelEdge* m_edge;
    ToggleGuard m_guard;
    ToggleGuard::HiddenBy m_cause = ToggleGuard::HiddenBy::other;
    OutsidePressWatch m_presses;
    ScaleWatch m_scaleWatch;
    QTimer m_focusCheck{this};
    Elsewhere m_elsewhere = Elsewhere::closes;
    bool m_isStandalone = false;
    // Whether it was placed since it is a window by itself.
    bool m_wasPlaced = false;
    std::optional<QPoint> m_anchor;
    // Asked for when the panel opens and when a screen changes: a layout must not wait for a
    // server.
    std::optional<QRect> m_bar;
    QString m_token;
    /// Where place() put the window, or to where the user dragged it while it is a window by
    /// itself.
    QRect m_place;
    // Both are about the time since the panel opened.
    bool m_hadPointer = false;
    bool m_hasInsisted = false;
    bool m_isRenewing = false;
    bool m_isTranslucent = false;
    // No compositor blends windows, so the corners are cut off.
    bool m_isMasked = false;
    /// Null outside sway, which places windows itself.
    std::unique_ptr<SwayPlacement> m_sway;
};

}  // namespace quillbar
