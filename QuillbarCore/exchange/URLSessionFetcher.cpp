// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLSessionFetcher.h"

#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Await.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <QVariant>

#include <array>
#include <exception>
#include <memory>
#include <optional>
#include <utility>

namespace quillbar {

namespace {

using Session = std::shared_ptr<QNetworkAccessManager>;

constexpr int kMaximumRedirects = 20;
constexpr int kFirstStatus = 100;
constexpr int kFirstErrorStatus = 400;
constexpr int kLastStatus = 999;
// How many bytes the session reads ahead; a server that sends more has to wait. This does not hold
// for chunked bodies: Qt 6.4 reads all chunks, until this thread finds that they are too large.
constexpr qint64 kReadAhead = qint64{256} * 1024;
constexpr auto kUserAgent = "Quillbar/" QUILLBAR_VERSION;

// Never destroyed: a process that exits without destroying its QCoreApplication must not destroy
// the session among its statics either.
Session& currentSession() {
    static auto& session = *new Session;
    return session;
}

Session session() {
    Session& current = currentSession();
    if (!current) {
        current = std::make_shared<QNetworkAccessManager>();
        // Destroy the session before the QCoreApplication, which its threads and timers need.
        qAddPostRoutine([] { currentSession().reset(); });
    }
    return current;
}

QNetworkRequest makeRequest(const QUrl& url, const TransferLimits& limits) {
    QNetworkRequest request{url};
    request.setHeader(QNetworkRequest::UserAgentHeader, QString::fromLatin1(kUserAgent));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    // We count the bytes that we receive. But Qt first decompresses everything that has arrived, to
    // count it too, which may take seconds. Its check ends a body that is far too large, with a
    // compression error; a body that is a little too large is left to us, because we report it as
    // that.
    request.setDecompressedSafetyCheckThreshold(2 * static_cast<qint64>(limits.bodySize));
    request.setTransferTimeout(static_cast<int>(limits.withoutProgress.count()));
    return request;
}

URLError::Code codeOf(QNetworkReply::NetworkError error) {
    using Code = URLError::Code;
    switch (error) {
    case QNetworkReply::TimeoutError:
    case QNetworkReply::ProxyTimeoutError:
        return Code::timedOut;
    case QNetworkReply::HostNotFoundError:
        return Code::cannotFindHost;
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError:
        return Code::cannotConnect;
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return Code::proxyFailed;
    case QNetworkReply::RemoteHostClosedError:
        return Code::connectionLost;
    case QNetworkReply::SslHandshakeFailedError:
        return Code::secureConnectionFailed;
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return Code::badURL;
    default:
        return Code::other;
    }
}

// Qt reports a status of 400 and more as an error of its own, although the answer is complete.
bool isStatusError(QNetworkReply::NetworkError error) {
    using Reply = QNetworkReply;
    return error == Reply::ProxyAuthenticationRequiredError  // 407
           || error == Reply::ProtocolInvalidOperationError  // 400 and 418
           || (error > Reply::UnknownProxyError && error <= Reply::UnknownContentError)
           || (error >= Reply::InternalServerError && error <= Reply::UnknownServerError);
}

// Absent when the server does not speak HTTP.
std::optional<int> statusOf(const QNetworkReply& reply) {
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    return status.isValid() ? std::optional(status.toInt()) : std::nullopt;
}

// Qt takes every number in a status line for a status, even a negative one.
bool isHTTPStatus(int status) {
    return status >= kFirstStatus && status <= kLastStatus;
}

struct Answer {
    HTTPResponse response;
    // Where a redirect points; empty when the answer is none.
    QUrl location;
};

class TransferOperation {
public:
    TransferOperation(QUrl url, TransferLimits limits, QDeadlineTimer deadline)
        : m_url(std::move(url))
        , m_limits(limits)
        , m_deadline(deadline) {}
    TransferOperation(const TransferOperation&) = delete;
    TransferOperation& operator=(const TransferOperation&) = delete;
    TransferOperation(TransferOperation&&) = delete;
    TransferOperation& operator=(TransferOperation&&) = delete;
    ~TransferOperation() { end(); }

    [[nodiscard]] bool ready() const noexcept { return false; }

    void start(Completion done) {
        m_session = session();
        m_reply = m_session->get(makeRequest(m_url, m_limits));
        m_reply->setReadBufferSize(kReadAhead);
        watchTheTime(done);
        QObject::connect(m_reply, &QNetworkReply::readyRead, &m_context, [this, done] {
            receive();
            if (m_error) {
                end();
                done();
            }
        });
        QObject::connect(m_reply, &QNetworkReply::errorOccurred, &m_context, [this, done] {
            // `finished` does not follow when the body cannot be decompressed: Qt waits for us to
            // read it. The same error stands for a status; then `finished` follows, or came before.
            if (m_reply && m_reply->error() == QNetworkReply::UnknownContentError) {
                QMetaObject::invokeMethod(
                    &m_context, [this, done] { finish(done); }, Qt::QueuedConnection);
            }
        });
        QObject::connect(
            m_reply, &QNetworkReply::finished, &m_context, [this, done] { finish(done); });
    }

    void stop() noexcept { end(); }

    Answer result() {
        if (m_error) {
            throw URLError{*m_error};
        }
        return std::move(m_answer);
    }

private:
    void watchTheTime(const Completion& done) {
        const auto limitBy = [this, done](QTimer& timer, const std::string& reason) {
            timer.setSingleShot(true);
            timer.callOnTimeout(&m_context, [this, done, reason] {
                fail(URLError::Code::timedOut, reason);
                end();
                done();
            });
        };
        limitBy(m_whole, "not done within " + std::to_string(m_limits.total.count()) + " ms");
        m_whole.start(std::chrono::milliseconds(m_deadline.remainingTime()));
        limitBy(m_head, "no head within " + std::to_string(m_limits.head.count()) + " ms");
        QObject::connect(m_reply, &QNetworkReply::requestSent, &m_context, [this] {
            m_head.start(m_limits.head);
        });
        QObject::connect(
            m_reply, &QNetworkReply::metaDataChanged, &m_context, [this] { m_head.stop(); });
    }

    void finish(const Completion& done) {
        if (!m_reply) {
            return;
        }
        receive();
        conclude();
        end();
        done();
    }

    void receive() {
        std::array<char, std::size_t{64} * 1024> chunk{};
        std::string& body = m_answer.response.body;
        while (!m_error && m_reply->isOpen()) {
            const qint64 count = m_reply->read(chunk.data(), chunk.size());
            if (count <= 0) {
                return;
            }
            const auto size = static_cast<std::size_t>(count);
            if (size > m_limits.bodySize - body.size()) {
                fail(URLError::Code::tooLarge,
                     "the body exceeds " + std::to_string(m_limits.bodySize) + " bytes");
                return;
            }
            body.append(chunk.data(), size);
        }
    }

    void conclude() {
        if (m_error) {
            return;
        }
        const std::optional<int> status = statusOf(*m_reply);
        const QNetworkReply::NetworkError error = m_reply->error();
        if (error == QNetworkReply::OperationCanceledError) {
            // While we listen to the reply, only its own transfer timer cancels it.
            fail(URLError::Code::timedOut,
                 "no progress for " + std::to_string(m_limits.withoutProgress.count()) + " ms");
            return;
        }
        if (error != QNetworkReply::NoError
            && !(status >= kFirstErrorStatus && isStatusError(error))) {
            fail(codeOf(error), m_reply->errorString().simplified().toStdString());
            return;
        }
        if (status && !isHTTPStatus(*status)) {
            fail(URLError::Code::other, "not an HTTP status: " + std::to_string(*status));
            return;
        }
        m_answer.response.status = status.value_or(0);
        if (m_reply->hasRawHeader("Retry-After")) {
            m_answer.response.retryAfter = m_reply->rawHeader("Retry-After").toStdString();
        }
        const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
        if (!target.isEmpty()) {
            m_answer.location = m_url.resolved(target);
        }
    }

    void fail(URLError::Code code, const std::string& text) {
        if (code == URLError::Code::timedOut && currentSession() == m_session) {
            // The connection may be dead without the system noticing, as after a change of network.
            // An HTTP/2 connection would then fail every later request too, so use new connections.
            // Running transfers keep the old session until they end.
            URLSessionFetcher::forgetConnections();
        }
        m_error.emplace(code, text);
    }

    // Stops listening before it ends the transfer, because abort() emits its signals at once.
    void end() noexcept {
        m_whole.stop();
        m_head.stop();
        if (QNetworkReply* const reply = std::exchange(m_reply, {})) {
            reply->disconnect(&m_context);
            // abort() would report a second error for a reply that has failed; destroying it aborts
            // it too.
            if (reply->error() == QNetworkReply::NoError) {
                reply->abort();
            }
            reply->deleteLater();
        }
    }

    QUrl m_url;
    TransferLimits m_limits;
    QDeadlineTimer m_deadline;
    Session m_session;
    QPointer<QNetworkReply> m_reply;
    Answer m_answer;
    std::optional<URLError> m_error;
    QObject m_context;
    QTimer m_whole;
    QTimer m_head;
};

}  // namespace

void URLSessionFetcher::forgetConnections() noexcept {
    currentSession().reset();
}

Task<HTTPResponse> URLSessionFetcher::fetch(std::string url) {
    const TransferLimits limits = m_limits;
    const QDeadlineTimer deadline(limits.total);
    QUrl next = QUrl::fromEncoded(QByteArray::fromStdString(url), QUrl::StrictMode);
    if (!next.isValid() || next.isRelative()) {
        const QString text = QString::fromStdString(url).simplified();
        throw URLError(URLError::Code::badURL, "not a URL: " + text.toStdString());
    }
    for (int redirects = 0;; ++redirects) {
        Answer answer = co_await Await<TransferOperation>(std::in_place, next, limits, deadline);
        const bool isFollowed = answer.location.scheme() == QLatin1String("https");
        if (!isFollowed || redirects == kMaximumRedirects) {
            co_return std::move(answer.response);
        }
        next = answer.location;
    }
}

}  // namespace quillbar
