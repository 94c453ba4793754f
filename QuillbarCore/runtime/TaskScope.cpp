// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/TaskScope.h"

#include "QuillbarCore/runtime/Cancelled.h"
#include "QuillbarCore/runtime/Logger.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace quillbar {

struct TaskScope::RootLink : ListHook {
    explicit RootLink(Root* owner)
        : root(owner) {}
    Root* root;
};

class TaskScope::Root final : public TaskContext,
                              public ReadyNode {
public:
    Root(Executor& taskExecutor, Task<void> rootTask)
        : TaskContext(taskExecutor)
        , task(std::move(rootTask)) {
        const auto frame = task.handle();
        frame.promise().context = this;
        ReadyNode::handle = frame;
        ReadyNode::context = this;
    }

    void finished() noexcept override { TaskScope::finish(this); }

    static Root* of(ListHook* hook) noexcept { return static_cast<RootLink*>(hook)->root; }

    RootLink link{this};
    std::shared_ptr<Root*> self = std::make_shared<Root*>(this);
    // Last: the frame is destroyed before everything that it may refer to.
    Task<void> task;
};

void TaskScope::Handle::cancel() const {
    if (const auto root = m_root.lock()) {
        (*root)->cancel();
    }
}

TaskScope::~TaskScope() {
    while (m_roots.isLinked()) {
        Root* const root = Root::of(m_roots.next());
        if (m_executor.isRunning(*root)) {
            std::fputs("quillbar: a TaskScope was destroyed from inside one of its own tasks\n",
                       stderr);
            std::abort();
        }
        root->link.unlink();
        delete root;
    }
}

TaskScope::Handle TaskScope::spawn(Task<void> task) {
    auto root = std::make_unique<Root>(m_executor, std::move(task));
    root->link.insertBefore(m_roots);
    m_executor.enqueue(*root);
    return Handle{root.release()->self};
}

void TaskScope::cancelAll() noexcept {
    for (ListHook* hook = m_roots.next(); hook != &m_roots; hook = hook->next()) {
        Root::of(hook)->cancel();
    }
}

void TaskScope::finish(Root* root) noexcept {
    const std::exception_ptr error = root->task.handle().promise().error;
    // Unlink first: destroying the frame may destroy a parameter that is the last owner of the
    // scope.
    root->link.unlink();
    delete root;
    if (!error) {
        return;
    }
    try {
        std::rethrow_exception(error);
    } catch (const Cancelled&) {
        // Silent by contract.
    } catch (const std::exception& failure) {
        Logger("Runtime").error("a task ended with an error: {}", failure.what());
    } catch (...) {
        Logger("Runtime").error("a task ended with an error of an unknown type");
    }
}

}  // namespace quillbar
