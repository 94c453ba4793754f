// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/BoardPlaceholder.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/CenteredText.h"
#include "Quillbar/widgets/Spinner.h"
#include "Quillbar/widgets/TextButton.h"
#include "Quillbar/widgets/TextScale.h"

#include <QString>
#include <QVBoxLayout>

namespace quillbar {

namespace {

constexpr double kSpinnerDiameter = 16;

}  // namespace

BoardPlaceholder::BoardPlaceholder(int height, QWidget* parent)
    : QWidget(parent)
    , m_height(height)
    , m_spinner(new Spinner(kSpinnerDiameter, this))
    , m_failure(new CenteredText(translated("boards", "加载行情失败"), 0, this))
    , m_retry(new TextButton(translated("boards", "重试"), this))
    , m_empty(new CenteredText(translated("boards", "暂无数据"), 0, this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    m_spinner->setAccessibleName(translated("boards", "正在加载行情"));
    QObject::connect(m_retry, &QAbstractButton::clicked, this, [this] { onRetry(); });
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    TextScale::follow(*this, [this, layout] {
        layout->setSpacing(TextScale::length(*this, kSpacing));
        updateGeometry();
    });
    layout->addStretch();
    layout->addWidget(m_spinner, 0, Qt::AlignHCenter);
    layout->addWidget(m_failure);
    layout->addWidget(m_retry, 0, Qt::AlignHCenter);
    layout->addWidget(m_empty);
    layout->addStretch();
    showContent();
}

void BoardPlaceholder::setContent(Content content) {
    if (content != m_content) {
        m_content = content;
        showContent();
    }
}

QSize BoardPlaceholder::sizeHint() const {
    return {0, TextScale::length(*this, m_height)};
}

bool BoardPlaceholder::holdsFocus() const {
    const QWidget* const focus = window()->focusWidget();
    return focus == this || isAncestorOf(focus);
}

void BoardPlaceholder::showContent() {
    const bool hadFocus = holdsFocus();
    if (hadFocus) {
        // When the button is hidden, Qt passes its focus to the next widget.
        setFocus(Qt::OtherFocusReason);
    }
    m_spinner->setVisible(m_content == Content::loading);
    m_failure->setVisible(m_content == Content::failed);
    m_retry->setVisible(m_content == Content::failed);
    m_empty->setVisible(m_content == Content::empty);
    if (hadFocus && m_content == Content::failed) {
        // For this reason the button shows its ring. A click never gives it the focus.
        m_retry->setFocus(Qt::TabFocusReason);
    }
}

}  // namespace quillbar
