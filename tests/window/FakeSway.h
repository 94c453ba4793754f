// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/window/SwayMessage.h"
#include "tests/support/TemporaryFolder.h"

#include <QByteArray>
#include <QLocalServer>
#include <QRect>
#include <QString>

#include <string>
#include <vector>

namespace quillbar {

/// A sway with one output and one window, listening on a socket of its own. It records what it is
/// asked, and answers at once, from its public fields.
class FakeSway final {
public:
    FakeSway();
    FakeSway(const FakeSway&) = delete;
    FakeSway& operator=(const FakeSway&) = delete;
    FakeSway(FakeSway&&) = delete;
    FakeSway& operator=(FakeSway&&) = delete;
    ~FakeSway();

    [[nodiscard]] QString path() const;
    /// Whether somebody is connected.
    [[nodiscard]] bool isConnected() const { return m_client != nullptr; }

    /// Maps the window, and tells it with an event of that change.
    void mapWindow(const std::string& change = "new");
    /// Closes the window, and tells it with an event that says where the window was.
    void closeWindow();
    /// Sends these bytes as they are.
    void sendRaw(const QByteArray& bytes);
    /// Closes the connection.
    void hangUp();
    /// Ends the listening: nobody can connect any more.
    void disappear();

    /// The answer to getTree, with the window while it is mapped.
    [[nodiscard]] QByteArray tree() const;
    /// What the tree and events say of the window.
    [[nodiscard]] QByteArray windowNode() const;

    /// "subscribe …", "getTree", or the commands.
    std::vector<std::string> requests;

    bool isMapped = true;
    qint64 pid = 4711;
    std::string title = "Quillbar";
    QRect window{440, 0, 400, 480};
    QRect output{0, 0, 1280, 800};
    QRect workspace{0, 30, 1280, 770};
    /// Instead of the real answers, unless empty.
    QByteArray treeAnswer;
    QByteArray commandAnswer;
    QByteArray subscribeAnswer;
    /// Whether answers arrive a byte at a time.
    bool isSlow = false;
    /// Whether questions stay unanswered.
    bool isSilent = false;

private:
    void accept();
    void answer(const SwayMessage& request);
    void tell(const std::string& change);
    void send(const SwayMessage& message);

    TemporaryFolder m_folder;
    QByteArray m_received;
    QLocalServer m_server;
    QLocalSocket* m_client = nullptr;
};

}  // namespace quillbar
