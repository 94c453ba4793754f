// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CertificateAuthority.h"
#include "simulator/Connection.h"
#include "simulator/Faults.h"
#include "simulator/Port.h"
#include "simulator/Router.h"
#include "simulator/Simulator.h"

#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar::simulator {

/// The works of `Simulator`: the port, its connections, and the faults that strike them. Used as
/// `Simulator` is; the names mean what they mean there.
class Exchange final : public QObject,
                       public Faults,
                       private ConnectionHost {
public:
    explicit Exchange(const SimulatorOptions& options);
    ~Exchange() override;
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;
    Exchange(Exchange&&) = delete;
    Exchange& operator=(Exchange&&) = delete;

    void tick();
    [[nodiscard]] const Market& market() const { return m_market; }
    [[nodiscard]] std::uint16_t port() const { return m_portNumber; }
    [[nodiscard]] bool isTls() const { return m_authority != nullptr; }
    [[nodiscard]] std::string caCertificatePem() const;
    [[nodiscard]] const std::string& caFile() const { return m_caFile; }
    [[nodiscard]] int openConnections() const { return static_cast<int>(m_connections.size()); }
    [[nodiscard]] int openStreams() const;

    /// How much is remembered of each kind.
    static constexpr std::size_t kRemembered = 10'000;

    /// What was seen, the newest of it; read and cleared from outside.
    struct Log {
        std::vector<RequestRecord> requests;
        std::vector<int> closeCodes;
        std::vector<std::string> pongs;
        std::vector<std::string> pings;
        int streamsAccepted = 0;
        int abandonedConnections = 0;
    };
    Log log;

    void onRequests(RequestFault fault) override;
    int releaseHeld() override;
    void endStreamsAfter(int frames, StreamEnd how, int times) override;
    int endStreams(StreamEnd how) override;
    void setVoice(StreamVoice voice) override { m_voice = voice; }
    void setHandshake(Handshake handshake) override { m_handshake = handshake; }
    void burst(int frames) override;
    void ping(std::string_view payload) override;
    void serverShutdown() override;
    void sendText(std::string_view text) override;
    void sendBinary(std::string_view bytes) override;
    void setCertificate(CertificateKind kind) override { m_certificate = kind; }
    void refuseConnections(OpenConnections open) override;
    void listenAgain() override;
    void clear() override;

private:
    void requested(Connection& connection, const HttpRequest& request) override;
    void pinged(Connection& connection, std::string_view payload) override;
    void ponged(std::string_view payload) override;
    void closed(Connection& connection, int code) override;
    void ended(Connection& connection) override;

    struct EndRule {
        int frames;
        StreamEnd how;
        int times;
    };

    void makeAuthority(const std::string& caFile);
    void accept(qintptr descriptor);
    [[nodiscard]] const QSslConfiguration& tlsConfiguration();
    [[nodiscard]] std::optional<RequestFault> strike(const HttpRequest& request);
    void answer(Connection& connection, const HttpRequest& request, const RequestFault& fault);
    void answerTruly(Connection& connection, const HttpRequest& request);
    void openStream(Connection& connection, const HttpRequest& request);
    /// Sends one message on a stream unless it is mute; false once the stream has ended.
    bool say(Connection& stream, WebSocketFrames::Opcode opcode, std::string_view payload);
    bool endIfDue(Connection& stream);
    static void end(Connection& stream, StreamEnd how);
    /// The streams as they stand; a stream that ends meanwhile stays a valid object until the event
    /// loop runs.
    [[nodiscard]] std::vector<Connection*> streams() const;
    void schedule(Connection& connection, std::chrono::milliseconds delay, std::function<void()> f);

    Market m_market;
    Router m_router;
    std::unique_ptr<CertificateAuthority> m_authority;
    std::unique_ptr<QTemporaryDir> m_temporaryFolder;
    std::string m_caFile;
    std::map<CertificateKind, QSslConfiguration> m_tlsConfigurations;
    CertificateKind m_certificate;
    Handshake m_handshake = Handshake::normal;
    StreamVoice m_voice = StreamVoice::normal;
    std::vector<RequestFault> m_requestFaults;
    std::vector<EndRule> m_endRules;
    std::vector<Connection*> m_connections;
    Port m_port;
    std::uint16_t m_portNumber = 0;
    QTimer m_ticker;
};

}  // namespace quillbar::simulator
