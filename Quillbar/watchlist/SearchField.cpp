// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/SearchField.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/PanelMenu.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPaintEvent>
#include <QPalette>
#include <QPen>
#include <QRectF>

#include <functional>
#include <utility>

namespace quillbar {

namespace {

constexpr double kFontSize = 12;
// The space that Qt itself leaves free around the text.
constexpr int kOwnHorizontalMargin = 2;
constexpr int kOwnVerticalMargin = 1;

void addItem(QMenu& menu, const QString& title, bool isEnabled, std::function<void()> act) {
    QAction* const action = menu.addAction(title);
    action->setEnabled(isEnabled);
    QObject::connect(action, &QAction::triggered, &menu, std::move(act));
}

}  // namespace

SearchField::SearchField(const QString& placeholder, QWidget* parent)
    : QLineEdit(parent) {
    setFrame(false);
    TextScale::follow(*this, [this] { fit(); });
    setMaxLength(kMaximumLength);
    setPlaceholderText(placeholder);
    applyTheme();
}

bool SearchField::event(QEvent* event) {
    // The field may be shown under another theme than the one it was made under.
    if (event->type() == ThemeKey::changeEvent() || event->type() == QEvent::Show) {
        applyTheme();
    }
    return QLineEdit::event(event);
}

void SearchField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
        painter.setPen(QPen(hasFocus() ? colors.accent : colors.separator, 1));
        painter.setBrush(colors.rowHover);
        painter.drawRoundedRect(
            QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius, kCornerRadius);
    }
    QLineEdit::paintEvent(event);
}

void SearchField::contextMenuEvent(QContextMenuEvent* event) {
    // Qt's own menu is in the language of the session.
    auto* const menu = new PanelMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addItem(*menu, translated("watchlist", "剪切"), hasSelectedText(), [this] { cut(); });
    addItem(*menu, translated("watchlist", "拷贝"), hasSelectedText(), [this] { copy(); });
    const bool canPaste = !QGuiApplication::clipboard()->text().isEmpty();
    addItem(*menu, translated("watchlist", "粘贴"), canPaste, [this] { paste(); });
    menu->addSeparator();
    addItem(*menu, translated("watchlist", "全选"), !text().isEmpty(), [this] { selectAll(); });
    menu->popup(event->globalPos());
}

void SearchField::inputMethodEvent(QInputMethodEvent* event) {
    m_composed = event->preeditString();
    QLineEdit::inputMethodEvent(event);
}

void SearchField::keyPressEvent(QKeyEvent* event) {
    if (!isComposing()) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    // Most input methods handle these keys themselves. For the others, composing is ended here.
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        endComposing(Ending::commits);
        break;
    case Qt::Key_Escape:
        endComposing(Ending::givesUp);
        break;
    case Qt::Key_Down:
        // The key is meant for the list of candidates. It must not move the focus out of the field.
        break;
    default:
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
}

void SearchField::endComposing(Ending ending) {
    QInputMethod* const method = QGuiApplication::inputMethod();
    ending == Ending::commits ? method->commit() : method->reset();
    if (isComposing()) {
        // The input method has not ended composing.
        QInputMethodEvent end;
        if (ending == Ending::commits) {
            end.setCommitString(m_composed);
        }
        QCoreApplication::sendEvent(this, &end);
    }
}

void SearchField::fit() {
    const int horizontal = TextScale::length(*this, kHorizontalPadding);
    const int vertical = TextScale::length(*this, kVerticalPadding);
    setTextMargins(horizontal - kOwnHorizontalMargin,
                   vertical - kOwnVerticalMargin,
                   horizontal - kOwnHorizontalMargin,
                   vertical - kOwnVerticalMargin);
    setFont(TextScale::font(*this, kFontSize));
    // Some styles make it higher than asked.
    setFixedHeight(QFontMetrics(font()).height() + 2 * vertical);
}

void SearchField::applyTheme() {
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    QPalette palette = this->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, colors.primaryText);
    palette.setColor(QPalette::PlaceholderText, colors.secondaryText);
    palette.setColor(QPalette::Highlight, colors.accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    if (palette != this->palette()) {
        setPalette(palette);
    }
}

}  // namespace quillbar
