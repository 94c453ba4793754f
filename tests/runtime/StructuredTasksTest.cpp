// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
// The parts of the runtime together, as the exchange's clients use them: a client that connects
// again after a back-off, and a model that polls.
#include "QuillbarCore/runtime/AsyncStream.h"
#include "QuillbarCore/runtime/Cancelled.h"
#include "tests/runtime/TaskFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Messages = AsyncStream<std::string>;

// Tells "connecting", "live", each message and "wait N", for ever.
class ReconnectingClient {
public:
    ReconnectingClient(Executor& executor, std::function<Task<Messages>()> connect, Sleeper sleeper)
        : m_connect(std::move(connect))
        , m_sleeper(std::move(sleeper))
        , m_scope(executor) {}

    // Connects until the stream returned is dropped.
    Messages events() {
        auto [stream, source] = Messages::make();
        const auto loop = m_scope.spawn(run(source));
        source.onTermination([loop] { loop.cancel(); });
        return std::move(stream);
    }

private:
    Task<void> run(StreamSource<std::string> out) {
        double delay = 1;
        for (;;) {
            try {
                out.push("connecting");
                Messages messages = co_await m_connect();
                out.push("live");
                while (auto message = co_await messages.next()) {
                    delay = 1;
                    out.push(std::move(*message));
                }
            } catch (const std::exception&) {
                out.push(fmt::format("wait {}", delay));
            }
            co_await m_sleeper(Seconds(delay));
            delay = std::min(delay * 2, 30.0);
        }
    }

    std::function<Task<Messages>()> m_connect;
    Sleeper m_sleeper;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

struct ReconnectingClientTest : TaskFixture {
    Task<Messages> connect() {
        const bool isRefused = static_cast<std::size_t>(connects) < refused.size()
                               && refused[static_cast<std::size_t>(connects)];
        ++connects;
        if (isRefused) {
            throw std::runtime_error("refused");
        }
        auto [stream, source] = Messages::make();
        source.onTermination([this] { ++closed; });
        connections.push_back(source);
        co_return std::move(stream);
    }

    TaskScope::Handle consume() {
        return start([this, stream = client->events()]() mutable -> Task<void> {
            while (auto event = co_await stream.next()) {
                note(std::move(*event));
            }
            note("end");
        });
    }

    std::vector<bool> refused;
    int connects = 0;
    int closed = 0;
    std::vector<StreamSource<std::string>> connections;
    std::optional<ReconnectingClient> client{std::in_place,
                                             executor,
                                             [this] { return connect(); },
                                             pause};
};

TEST_F(ReconnectingClientTest, connectsAgainAfterItsBackOff) {
    refused = {true, true, false, true, false};
    consume();
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "wait 1"));
    time.advance(500ms);
    EXPECT_EQ(connects, 1);
    time.advance(500ms);
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "wait 2"));
    time.advance(2s);
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "live"));
    connections[0].push("a");
    connections[0].push("b");
    executor.run();
    EXPECT_THAT(takeEvents(), ElementsAre("a", "b"));
    connections[0].push("c");
    connections[0].fail(std::runtime_error("reset"));
    executor.run();
    EXPECT_THAT(takeEvents(), ElementsAre("c", "wait 1"));
    time.advance(1s);
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "wait 2"));
    time.advance(2s);
    EXPECT_THAT(takeEvents(), ElementsAre("connecting", "live"));
}

TEST_F(ReconnectingClientTest, stopsWaitingWhenItsConsumerIsCancelled) {
    refused = {true};
    const auto consumer = consume();
    EXPECT_EQ(time.sleepingCount(), 1U);
    consumer.cancel();
    executor.run();
    EXPECT_EQ(time.sleepingCount(), 0U);
    EXPECT_FALSE(consumer.isRunning());
    time.advance(60s);
    EXPECT_EQ(connects, 1);
}

TEST_F(ReconnectingClientTest, closesItsConnectionWhenItsConsumerIsCancelled) {
    const auto consumer = consume();
    EXPECT_EQ(closed, 0);
    consumer.cancel();
    executor.run();
    EXPECT_EQ(closed, 1);
}

TEST_F(ReconnectingClientTest, closesItsConnectionWithinItsDestructorThoughAMessageIsOnItsWay) {
    consume();
    connections[0].push("never delivered");
    client.reset();
    EXPECT_EQ(closed, 1);
    executor.run();
    EXPECT_THAT(events, ElementsAre("connecting", "live", "end"));
    EXPECT_TRUE(scope.isEmpty());
}

TEST_F(ReconnectingClientTest, stopsWaitingWithinItsDestructor) {
    refused = {true};
    consume();
    client.reset();
    EXPECT_EQ(time.sleepingCount(), 0U);
    executor.run();
    time.advance(60s);
    EXPECT_THAT(events, ElementsAre("connecting", "wait 1", "end"));
    EXPECT_EQ(connects, 1);
}

// Fetches a value every minute, keeping the last one through errors.
class PollingModel {
public:
    PollingModel(Executor& executor, std::function<Task<std::string>()> fetch, Sleeper sleeper)
        : m_fetch(std::move(fetch))
        , m_sleeper(std::move(sleeper))
        , m_scope(executor) {
        m_scope.spawn(poll());
    }

    std::string value;
    std::string error;
    std::function<void()> onChange;

private:
    Task<void> poll() {
        for (;;) {
            try {
                value = co_await m_fetch();
                error.clear();
            } catch (const std::exception& failure) {
                error = failure.what();
            }
            onChange();
            co_await m_sleeper(60s);
        }
    }

    std::function<Task<std::string>()> m_fetch;
    Sleeper m_sleeper;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

struct PollingModelTest : TaskFixture {
    Task<std::string> fetch() {
        const int number = ++fetches;
        if (number == 2) {
            throw std::runtime_error("boom");
        }
        co_return fmt::format("v{}", number);
    }

    void makeModel() {
        model.emplace(
            executor, [this] { return fetch(); }, pause);
        model->onChange = [this] { note(fmt::format("{}/{}", model->value, model->error)); };
    }

    int fetches = 0;
    std::optional<PollingModel> model;
};

TEST_F(PollingModelTest, keepsItsValueThroughAnError) {
    makeModel();
    EXPECT_THAT(events, IsEmpty());
    time.advance(120s);
    EXPECT_THAT(events, ElementsAre("v1/", "v1/boom", "v3/"));
}

TEST_F(PollingModelTest, pollsNoMoreOnceItIsDestroyed) {
    makeModel();
    time.advance(1s);
    model.reset();
    EXPECT_EQ(time.sleepingCount(), 0U);
    time.advance(300s);
    EXPECT_EQ(fetches, 1);
}

TEST_F(PollingModelTest, mayBeDestroyedByWhatItsObserverPosts) {
    makeModel();
    model->onChange = [this] { executor.post([this] { model.reset(); }); };
    executor.run();
    EXPECT_FALSE(model.has_value());
    EXPECT_EQ(time.sleepingCount(), 0U);
}

}  // namespace

}  // namespace quillbar
