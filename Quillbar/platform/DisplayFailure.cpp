// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/DisplayFailure.h"

#include "Quillbar/platform/StandardStreams.h"

#include <QString>

#include <unistd.h>
#include <utility>

namespace quillbar {

namespace {

struct Ending {
    std::string program;
    std::string sentence;
    int status = 0;
    QtMessageHandler otherwise = nullptr;
};

// Qt's handlers have no place for an object of ours.
Ending& ending() {
    static Ending one;
    return one;
}

void handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg) {
        StandardStreams::complain(ending().program, ending().sentence);
        ::_exit(ending().status);
    }
    ending().otherwise(type, context, message);
}

}  // namespace

DisplayFailure::DisplayFailure(std::string program, std::string sentence, int status)
    : m_before(qInstallMessageHandler(handle)) {
    ending() = {std::move(program), std::move(sentence), status, m_before};
}

DisplayFailure::~DisplayFailure() {
    qInstallMessageHandler(m_before);
}

}  // namespace quillbar
