// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <QWidget>

#include <string>

namespace quillbar {

/// A coin's round logo. Until it is loaded, and for a coin without one, a disc in one of twelve
/// colours with the coin's monogram. Its size follows the text size alone. The pointer passes
/// through it.
///
/// The logo is loaded only while the view is shown. Loading ends when the view is hidden, destroyed
/// or given another coin, and begins again when it is shown again. A logo that the server does not
/// have is requested once an hour.
class CoinIconView final : public QWidget {
public:
    /// `size` is the diameter in points at a text size of 100 %. The environment outlives the view.
    CoinIconView(const ViewEnvironment& environment, double size, QWidget* parent = nullptr);

    /// Shows another coin at once: its logo when the cache has it, its disc otherwise. Does nothing
    /// for the base asset that is shown.
    void setBaseAsset(std::string baseAsset);

    [[nodiscard]] const std::string& baseAsset() const noexcept { return m_baseAsset; }

    /// Whether a logo is shown, not the disc.
    [[nodiscard]] bool hasLogo() const noexcept { return !m_image.isNull(); }

    /// The colour of the disc of that index, which is taken modulo twelve.
    [[nodiscard]] static QColor placeholderColor(int colorIndex);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void describe();
    void restartLoad();
    void cancelLoad();
    Task<void> load(std::string baseAsset);
    void setImage(QImage image);

    void paintLogo(QPainter& painter, const QRectF& disc);
    void paintPlaceholder(QPainter& painter, const QRectF& disc) const;

    IconStore* m_iconStore;
    // The diameter at the text size.
    double m_size = 0;
    std::string m_baseAsset;
    // What the placeholder shows while there is no logo.
    QString m_monogram;
    QColor m_color;
    QImage m_image;
    // The logo at the size and on the screen where it was last painted.
    QPixmap m_scaled;
    TaskScope::Handle m_loading;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
