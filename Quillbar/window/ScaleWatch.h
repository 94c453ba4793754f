// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class QScreen;
class QWidget;
class QWindow;

namespace quillbar {

/// Tells when a window is drawn for another scale than its screen has. Under Wayland, Qt 6.4 draws
/// a window for the scale that its screen had when the native window was made. After a change, the
/// compositor enlarges the picture. Main thread.
class ScaleWatch final : public QObject {
public:
    /// Device pixels for each logical pixel.
    struct Ratios {
        double ofWindow = 1;
        double ofScreen = 1;
    };
    /// Looks up the ratios of a native window and of the screen that it is on.
    using LookUp = std::function<Ratios(const QWindow&)>;
    /// The ratios that Qt has. Both are the same for a window without a screen.
    [[nodiscard]] static Ratios ratiosOf(const QWindow& window);

    /// Watches the top-level widget, which outlives the watch. `onOutdated` is called from the
    /// event loop after the screen's scale has changed. It may make the native window anew.
    ScaleWatch(QWidget& window, LookUp lookUp, std::function<void()> onOutdated);

private:
    void follow(const QScreen* screen);
    void check();

    QWidget& m_window;
    LookUp m_lookUp;
    std::function<void()> m_onOutdated;
};

}  // namespace quillbar
