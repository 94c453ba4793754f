// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/SwayMessage.h"
#include "tests/window/FakeSway.h"

#include <QSysInfo>

#include <gtest/gtest.h>

namespace quillbar {

namespace {

using namespace std::string_literals;

using Type = SwayMessage::Type;

QByteArray bytes(const std::string& text) {
    return QByteArray::fromStdString(text);
}

/// The bytes of a number, in the machine's order.
std::string number(unsigned char lowest, unsigned char highest = 0) {
    const std::string low(1, static_cast<char>(lowest));
    const std::string high(1, static_cast<char>(highest));
    return QSysInfo::ByteOrder == QSysInfo::LittleEndian ? low + "\0\0"s + high
                                                         : high + "\0\0"s + low;
}

const SwayWindowKey kKey{.pid = 4711, .title = QStringLiteral("Quillbar")};

TEST(SwayMessageTest, isAMarkALengthATypeAndThePayload) {
    const SwayMessage message{.type = Type::getTree, .payload = "abc"};
    EXPECT_EQ(message.encoded(), bytes("i3-ipc" + number(3) + number(4) + "abc"));
}

TEST(SwayMessageTest, readsWhatSwayWrites) {
    QByteArray received = bytes("i3-ipc" + number(2) + number(3, 0x80) + "{}");
    const SwayMessage event{.type = Type::windowEvent, .payload = "{}"};
    EXPECT_EQ(SwayMessage::takeFrom(received), event);
    EXPECT_TRUE(received.isEmpty());
}

TEST(SwayMessageTest, waitsForTheLastByteAndKeepsWhatFollows) {
    const SwayMessage first{.type = Type::subscribe, .payload = "one"};
    const SwayMessage second{.type = Type::runCommand, .payload = {}};
    const QByteArray whole = first.encoded();
    for (qsizetype length = 0; length < whole.size(); ++length) {
        QByteArray received = whole.first(length);
        EXPECT_EQ(SwayMessage::takeFrom(received), std::nullopt) << length;
        EXPECT_EQ(received.size(), length);
        EXPECT_FALSE(SwayMessage::isSpoilt(received)) << length;
    }
    QByteArray received = whole + second.encoded();
    EXPECT_EQ(SwayMessage::takeFrom(received), first);
    EXPECT_EQ(SwayMessage::takeFrom(received), second);
    EXPECT_EQ(SwayMessage::takeFrom(received), std::nullopt);
}

TEST(SwayMessageTest, refusesBytesThatAreNoMessage) {
    for (const std::string& text : {"HTTP/1.1 400"s, "i3-ipx"s, "x"s}) {
        QByteArray received = bytes(text);
        EXPECT_TRUE(SwayMessage::isSpoilt(received)) << text;
        EXPECT_EQ(SwayMessage::takeFrom(received), std::nullopt) << text;
    }
}

TEST(SwayMessageTest, refusesAPayloadThatNoSwaySends) {
    QByteArray received = bytes("i3-ipc" + number(0, 0x7F) + number(4) + "x");
    EXPECT_TRUE(SwayMessage::isSpoilt(received));
    EXPECT_EQ(SwayMessage::takeFrom(received), std::nullopt);
    received = bytes("i3-ipc" + number(0, 2) + number(4) + "x");
    EXPECT_FALSE(SwayMessage::isSpoilt(received)) << "the longest that is accepted";
}

TEST(SwayMessageTest, findsTheWindowByProcessAndTitle) {
    const FakeSway sway;
    const SwayWindow expected{.id = 8,
                              .rectangle = {440, 0, 400, 480},
                              .output = {0, 0, 1280, 800},
                              .workspace = {0, 30, 1280, 770}};
    EXPECT_EQ(SwayWindow::findIn(sway.tree(), kKey), expected);
    EXPECT_EQ(SwayWindow::findIn(sway.tree(), {.pid = 4712, .title = kKey.title}), std::nullopt);
    EXPECT_EQ(SwayWindow::findIn(sway.tree(), {.pid = 4711, .title = QStringLiteral("Quill")}),
              std::nullopt);
}

TEST(SwayMessageTest, findsTheWindowAmongTiles) {
    const FakeSway sway;
    QByteArray tree = sway.tree();
    tree.replace(R"("floating_nodes")", R"("else")")
        .replace(R"("nodes":[{"id":6)", R"("x":[{"id":6)");
    EXPECT_EQ(SwayWindow::findIn(tree, kKey), std::nullopt);
    tree.replace(R"("else")", R"("nodes")");
    EXPECT_EQ(SwayWindow::findIn(tree, kKey).value_or(SwayWindow()).id, 8);
}

TEST(SwayMessageTest, findsNothingInATreeThatIsBroken) {
    const FakeSway sway;
    const QByteArray tree = sway.tree();
    const auto with = [&tree](const char* before, const char* after) {
        QByteArray changed = tree;
        changed.replace(before, after);
        EXPECT_NE(changed, tree) << before;
        return SwayWindow::findIn(changed, kKey);
    };
    EXPECT_EQ(SwayWindow::findIn("", kKey), std::nullopt);
    EXPECT_EQ(SwayWindow::findIn("[]", kKey), std::nullopt);
    EXPECT_EQ(SwayWindow::findIn(tree.chopped(1), kKey), std::nullopt);
    EXPECT_EQ(with(R"("id":8)", R"("id":"8")"), std::nullopt);
    EXPECT_EQ(with(R"("id":8)", R"("id":-8)"), std::nullopt);
    EXPECT_EQ(with(R"("width":400)", R"("width":0)"), std::nullopt);
    EXPECT_EQ(with(R"("width":400)", R"("width":2147483647)"), std::nullopt);
    EXPECT_EQ(with(R"("x":440)", R"("x":-2147483648)"), std::nullopt);
    EXPECT_EQ(with(R"("x":440)", R"("z":440)"), std::nullopt);
    EXPECT_EQ(with(R"("type":"workspace")", R"("type":"con")"), std::nullopt);
    EXPECT_EQ(with(R"("type":"output")", R"("type":"con")"), std::nullopt);
    EXPECT_EQ(with(R"("nodes":[{)", R"("nodes":{"a":[{)"), std::nullopt);
}

TEST(SwayMessageTest, knowsTheWindowOfAnEvent) {
    const FakeSway sway;
    const auto idIn = [&](const QByteArray& change) {
        return SwayWindow::idIn(
            R"({"change":")" + change + R"(","container":)" + sway.windowNode() + "}", kKey);
    };
    EXPECT_EQ(idIn("new"), 8);
    EXPECT_EQ(idIn("title"), 8);
    EXPECT_EQ(idIn("close"), std::nullopt);
    EXPECT_EQ(SwayWindow::idIn(R"({"change":"new"})", kKey), std::nullopt);
    EXPECT_EQ(SwayWindow::idIn("new", kKey), std::nullopt);
    EXPECT_EQ(
        SwayWindow::idIn(R"({"change":"new","container":{"pid":4711,"name":"Quillbar"}})", kKey),
        std::nullopt);
}

TEST(SwayMessageTest, tellsTheFirstRefusal) {
    EXPECT_EQ(swayRefusal(R"({"success": true})"), std::nullopt);
    EXPECT_EQ(swayRefusal(R"([{"success": true}, {"success": true}])"), std::nullopt);
    EXPECT_EQ(
        swayRefusal(R"([{"success": true}, {"success": false, "error": "No matching node."}])"),
        QStringLiteral("No matching node."));
    EXPECT_EQ(swayRefusal(R"({"success": false})"), QStringLiteral("no reason given"));
    EXPECT_EQ(swayRefusal("nonsense"), QStringLiteral("no reason given"));
}

}  // namespace

}  // namespace quillbar
