// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QRect>
#include <QWidget>

namespace quillbar {

/// The soft shadow of a lifted window on a window below it. It is a part of that window, so it
/// needs no transparent margin around the lifted one, whose place and clicks stay as they are.
/// Beyond the edge of the window below there is no shadow, as that window casts none either.
///
/// It is there while the lifted window is shown, follows it and the window below, and takes neither
/// clicks nor the focus. Used on the main thread alone.
class LiftedShadow final : public QWidget {
public:
    /// How far it reaches beyond the lifted window, in points, and how much lower it lies.
    static constexpr int kReach = 12;
    static constexpr int kDrop = 3;

    /// `below`, which is a window and at least as long-lived, owns the shadow. The shadow deletes
    /// itself soon after `lifted` is destroyed.
    LiftedShadow(QWidget& lifted, QWidget& below);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow();

    /// Null between the end of the window and that of its shadow.
    QPointer<QWidget> m_lifted;
    QWidget& m_below;
    /// The lifted window in coordinates of the shadow.
    QRect m_caster;
};

}  // namespace quillbar
