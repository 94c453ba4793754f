// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/QtExecutor.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMetaObject>
#include <QObject>

#include <utility>

namespace quillbar {

namespace {

class QtExecutor final : public QObject,
                         public Executor {
public:
    void post(std::function<void()> function) override {
        QMetaObject::invokeMethod(this, std::move(function), Qt::QueuedConnection);
    }

protected:
    void wake() noexcept override {
        // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): a task that cannot be woken is lost
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        runOne();
        return true;
    }
};

}  // namespace

std::unique_ptr<Executor> makeQtExecutor() {
    return std::make_unique<QtExecutor>();
}

}  // namespace quillbar
