// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT

#include <cstdarg>
#include <sched.h>
#include <sys/types.h>

// ThreadSanitizer's own clone takes every child for one with a memory of its own. Qt starts
// programs with a child that shares the parent's until it has become the program, and the parent
// then fails for what the child noted. This one notes nothing.

// The name under which glibc has it beside the one that the sanitizer replaces.
extern "C" int __clone(int (*function)(void*), void* stack, int flags, void* argument, ...);

extern "C" int clone(int (*function)(void*), void* stack, int flags, void* argument, ...) {
    pid_t* parent = nullptr;
    if ((flags & (CLONE_PARENT_SETTID | CLONE_PIDFD)) != 0) {
        va_list rest;
        va_start(rest, argument);
        parent = va_arg(rest, pid_t*);
        va_end(rest);
    }
    return __clone(function, stack, flags, argument, parent, nullptr, nullptr);
}
