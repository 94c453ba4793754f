// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/coins/CoinIconView.h"

#include "Quillbar/coins/CoinIconCache.h"
#include "Quillbar/coins/CoinIconImage.h"
#include "Quillbar/text/FittedText.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/catalog/CoinIconDescriptor.h"

#include <QBrush>
#include <QFontMetricsF>
#include <QPainter>
#include <QTransform>

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

namespace quillbar {

namespace {

constexpr double kMonogramRatio = 0.38;
constexpr double kSmallestMonogramScale = 0.5;
constexpr double kMonogramPadding = 1;

}  // namespace

CoinIconView::CoinIconView(const ViewEnvironment& environment, double size, QWidget* parent)
    : QWidget(parent)
    , m_iconStore(environment.iconStore)
    , m_scope(environment.executor) {
    TextScale::follow(*this, [this, size] {
        m_size = size * TextScale::of(*this);
        const int side = static_cast<int>(std::ceil(m_size));
        setFixedSize(side, side);
    });
    setAttribute(Qt::WA_TransparentForMouseEvents);
    describe();
}

void CoinIconView::setBaseAsset(std::string baseAsset) {
    if (baseAsset == m_baseAsset) {
        return;
    }
    m_baseAsset = std::move(baseAsset);
    describe();
    cancelLoad();
    setImage({});
    if (isVisible()) {
        restartLoad();
    }
}

QColor CoinIconView::placeholderColor(int colorIndex) {
    // Dark enough for white letters.
    static const std::array<QColor, CoinIconDescriptor::kColorCount> colors{
        QColor(0, 113, 235),   // blue
        QColor(224, 122, 16),  // orange
        QColor(40, 160, 75),   // green
        QColor(160, 75, 205),  // purple
        QColor(230, 50, 110),  // pink
        QColor(30, 140, 165),  // teal
        QColor(88, 86, 214),   // indigo
        QColor(0, 165, 145),   // mint
        QColor(40, 155, 215),  // cyan
        QColor(150, 116, 78),  // brown
        QColor(222, 56, 48),   // red
        QColor(200, 155, 0),   // yellow
    };
    return colors.at(static_cast<std::size_t>(colorIndex) % colors.size());
}

void CoinIconView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QRectF disc(0, 0, m_size, m_size);
    disc.moveCenter(QRectF(rect()).center());
    if (hasLogo()) {
        paintLogo(painter, disc);
    } else {
        paintPlaceholder(painter, disc);
    }
}

void CoinIconView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!hasLogo() && !m_loading.isRunning()) {
        restartLoad();
    }
}

void CoinIconView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    cancelLoad();
}

void CoinIconView::describe() {
    const CoinIconDescriptor descriptor{m_baseAsset};
    m_monogram = QString::fromStdString(descriptor.monogram());
    m_color = placeholderColor(descriptor.colorIndex());
}

void CoinIconView::restartLoad() {
    cancelLoad();
    QImage cached = CoinIconCache::shared().image(m_baseAsset);
    if (!cached.isNull()) {
        setImage(std::move(cached));
    } else if (m_iconStore != nullptr && !m_iconStore->isMissing(m_baseAsset)) {
        m_loading = m_scope.spawn(load(m_baseAsset));
    }
}

void CoinIconView::cancelLoad() {
    m_loading.cancel();
    m_loading = {};
}

Task<void> CoinIconView::load(std::string baseAsset) {
    const std::optional<std::string> data = co_await m_iconStore->iconData(baseAsset);
    // An answer that came just before the cancellation still arrives here.
    const bool isCancelled = co_await IsCancelled();
    if (!data || isCancelled) {
        co_return;
    }
    // Another view may have decoded it while this one waited.
    QImage image = CoinIconCache::shared().image(baseAsset);
    if (image.isNull()) {
        image = CoinIconImage::decoded(*data);
        if (image.isNull()) {
            co_return;
        }
        CoinIconCache::shared().insert(baseAsset, image);
    }
    setImage(std::move(image));
}

void CoinIconView::setImage(QImage image) {
    m_image = std::move(image);
    m_scaled = {};
    update();
}

void CoinIconView::paintLogo(QPainter& painter, const QRectF& disc) {
    const double scale = painter.device()->devicePixelRatioF();
    const int side = static_cast<int>(std::ceil(m_size * scale));
    if (m_scaled.width() != side) {
        m_scaled = QPixmap::fromImage(
            m_image.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    // A textured ellipse, because a clip path has jagged edges.
    QBrush texture(m_scaled);
    const double pixel = m_size / side;
    texture.setTransform(QTransform::fromTranslate(disc.left(), disc.top()).scale(pixel, pixel));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setBrush(texture);
    painter.drawEllipse(disc);
}

void CoinIconView::paintPlaceholder(QPainter& painter, const QRectF& disc) const {
    painter.setBrush(m_color);
    painter.drawEllipse(disc);
    const FittedText::Fit fit = FittedText::fit(m_monogram,
                                                m_size * kMonogramRatio,
                                                QFont::DemiBold,
                                                m_size - 2 * kMonogramPadding,
                                                kSmallestMonogramScale);
    // Capitals look centred by their own height, not by that of their line.
    const QFontMetricsF metrics(fit.font);
    painter.setFont(fit.font);
    painter.setPen(Qt::white);
    painter.drawText(QPointF(disc.center().x() - metrics.horizontalAdvance(fit.text) / 2,
                             disc.center().y() + metrics.capHeight() / 2),
                     fit.text);
}

}  // namespace quillbar
