// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/Executor.h"

#include "QuillbarCore/runtime/TaskContext.h"

namespace quillbar {

void Executor::enqueue(ReadyNode& node) noexcept {
    if (!node.isLinked()) {
        node.insertBefore(m_queue);
    }
    if (!m_wakePending) {
        m_wakePending = true;
        wake();
    }
}

bool Executor::runOne() {
    m_wakePending = false;
    if (!m_queue.isLinked()) {
        return false;
    }
    auto& node = static_cast<ReadyNode&>(*m_queue.next());
    node.unlink();
    if (m_queue.isLinked()) {
        // Wake before resuming: the coroutine may run a nested event loop, which must go on with
        // the queue.
        m_wakePending = true;
        wake();
    }
    TaskContext* const context = node.context;
    RunFrame frame{context, m_frame};
    m_frame = &frame;
    node.handle.resume();
    m_frame = frame.outer;
    if (context->done) {
        context->finished();
    }
    return true;
}

bool Executor::isRunning(const TaskContext& context) const noexcept {
    for (const RunFrame* frame = m_frame; frame != nullptr; frame = frame->outer) {
        if (frame->context == &context) {
            return true;
        }
    }
    return false;
}

}  // namespace quillbar
