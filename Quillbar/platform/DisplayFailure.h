// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <qlogging.h>

#include <string>

namespace quillbar {

/// As long as this object exists: if Qt finds no display, or no plugin for it, the process writes a
/// sentence for the user and exits with our own status. Without it, Qt advises the user to
/// reinstall the application, and aborts. Keep it while the QApplication is made. There may be one
/// at a time.
class DisplayFailure final {
public:
    /// "PROGRAM: SENTENCE" goes to standard error.
    DisplayFailure(std::string program, std::string sentence, int status);
    DisplayFailure(const DisplayFailure&) = delete;
    DisplayFailure& operator=(const DisplayFailure&) = delete;
    DisplayFailure(DisplayFailure&&) = delete;
    DisplayFailure& operator=(DisplayFailure&&) = delete;
    ~DisplayFailure();

private:
    QtMessageHandler m_before;
};

}  // namespace quillbar
