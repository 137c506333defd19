#include "Vantrel/platform/qt/QtHttpClient.h"

#include "VantrelCore/text/Translation.h"

#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fmt/format.h>
#include <optional>
#include <utility>

namespace vantrel {

namespace {

using Kind = HttpFailure::Kind;

constexpr int mostRedirections = 5;

bool isThisMachine(const QString& host) {
    return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

// Uses the proxy from the environment, except for this machine.
class ProxyChoice final : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        return isThisMachine(query.peerHostName()) ? QList{QNetworkProxy(QNetworkProxy::NoProxy)}
                                                   : systemProxyForQuery(query);
    }
};

// Why the URL is refused; none if it is allowed.
std::optional<HttpFailure> objection(const QUrl& url) {
    if (!url.isValid() || url.host().isEmpty()) {
        return HttpFailure{Kind::refused, marked("The server address is not valid.")};
    }
    const bool isProtected = url.scheme() == QLatin1String("https") ||
                             (url.scheme() == QLatin1String("http") && isThisMachine(url.host()));
    if (!isProtected || !url.userInfo().isEmpty()) {
        return HttpFailure{Kind::refused, marked("Servers are only contacted over https.")};
    }
    return std::nullopt;
}

QNetworkRequest qtRequest(const HttpRequest& request, const QUrl& url, const std::string& userAgent) {
    QNetworkRequest result(url);
    result.setRawHeader("User-Agent", QByteArray::fromStdString(userAgent));
    // No compression: a small body cannot expand into a huge one.
    result.setRawHeader("Accept-Encoding", "identity");
    // Otherwise Qt sends every server the user's language.
    result.setRawHeader("Accept-Language", "*");
    for (const auto& [name, value] : request.headers) {
        result.setRawHeader(QByteArray::fromStdString(name), QByteArray::fromStdString(value));
    }
    using Request = QNetworkRequest;
    result.setAttribute(Request::RedirectPolicyAttribute, request.method == HttpMethod::get
                                                              ? Request::SameOriginRedirectPolicy
                                                              : Request::ManualRedirectPolicy);
    result.setMaximumRedirectsAllowed(mostRedirections);
    result.setAttribute(Request::CacheLoadControlAttribute, Request::AlwaysNetwork);
    result.setAttribute(Request::CacheSaveControlAttribute, false);
    result.setAttribute(Request::CookieLoadControlAttribute, Request::Manual);
    result.setAttribute(Request::CookieSaveControlAttribute, Request::Manual);
    result.setAttribute(Request::AuthenticationReuseAttribute, Request::Manual);
    auto tls = QSslConfiguration::defaultConfiguration();
    tls.setProtocol(QSsl::TlsV1_2OrLater);
    tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    result.setSslConfiguration(tls);
    return result;
}

HttpFailure failureOf(QNetworkReply::NetworkError error) {
    switch (error) {
    case QNetworkReply::HostNotFoundError:
        return {Kind::unreachable, marked("The server was not found. Is this computer online?")};
    case QNetworkReply::SslHandshakeFailedError:
        return {Kind::untrusted, marked("The server could not prove its identity.")};
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::InsecureRedirectError:
        return {Kind::redirected, marked("The server redirected to another address.")};
    case QNetworkReply::TimeoutError:
        return {Kind::timedOut, marked("The server did not answer in time.")};
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return {Kind::unreachable, marked("The server cannot be reached.")};
    default:
        return {Kind::broken, marked("The server's response could not be understood.")};
    }
}

// True for the errors that Qt reports for a status of 400 or above. The response is available all the same.
bool isStatus(QNetworkReply::NetworkError error) {
    return error == QNetworkReply::ProtocolInvalidOperationError ||
           (error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError) ||
           (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError);
}

class Exchange final : public QObject, public HttpExchange {
public:
    Exchange(const HttpRequest& request, const std::string& userAgent, HttpClient::Done done)
        : m_done(std::move(done)), m_largestBody(static_cast<qint64>(request.largestBody)) {
        const auto url = QUrl(QString::fromStdString(request.url), QUrl::StrictMode);
        if (auto reason = objection(url)) {
            end(std::unexpected(std::move(*reason)));
            return;
        }
        m_manager.setProxyFactory(new ProxyChoice);
        const auto sent = qtRequest(request, url, userAgent);
        m_reply.reset(request.method == HttpMethod::get
                          ? m_manager.get(sent)
                          : m_manager.post(sent, QByteArray::fromStdString(request.body)));
        // Qt stops reading at this size, so an endless body cannot exhaust memory.
        m_reply->setReadBufferSize(m_largestBody + 1);
        connect(m_reply.get(), &QNetworkReply::readyRead, this, [this] { endIfTooLarge(); });
        connect(m_reply.get(), &QNetworkReply::finished, this, [this] { finish(); });
        m_deadline.setSingleShot(true);
        connect(&m_deadline, &QTimer::timeout, this,
                [this] { end(std::unexpected(failureOf(QNetworkReply::TimeoutError))); });
        m_deadline.start(
            std::chrono::milliseconds(std::llround(std::max(0.0, request.timeoutSeconds) * 1000)));
    }

    ~Exchange() override {
        if (m_reply) {
            m_reply->disconnect(this);
        }
    }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

private:
    void endIfTooLarge() {
        if (m_reply->bytesAvailable() > m_largestBody) {
            end(std::unexpected(HttpFailure{Kind::tooLarge, marked("The server's response is too long.")}));
        }
    }

    void finish() {
        const auto status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
        const auto error = m_reply->error();
        if (m_reply->bytesAvailable() > m_largestBody) {
            endIfTooLarge();
        } else if (error == QNetworkReply::NoError || isStatus(error)) {
            end(HttpResponse{status.toInt(), m_reply->readAll().toStdString()});
        } else {
            end(std::unexpected(failureOf(error)));
        }
    }

    // Reports the result from the event loop, not from within Qt's calls, because the receiver may destroy
    // this object.
    void end(HttpResult result) {
        if (std::exchange(m_hasEnded, true)) {
            return;
        }
        m_deadline.stop();
        QMetaObject::invokeMethod(
            this, [done = std::move(m_done), result = std::move(result)] { done(result); },
            Qt::QueuedConnection);
        if (m_reply && m_reply->isRunning()) {
            m_reply->abort();
        }
    }

    HttpClient::Done m_done;
    qint64 m_largestBody;
    bool m_hasEnded = false;
    QNetworkAccessManager m_manager;
    // Destroyed before its manager; closes the connection.
    std::unique_ptr<QNetworkReply> m_reply;
    QTimer m_deadline;
};

} // namespace

QtHttpClient::QtHttpClient(std::string userAgent) : m_userAgent(std::move(userAgent)) {}

std::string QtHttpClient::tlsSupport() {
    return QSslSocket::supportsSsl() ? "TLS by " + QSslSocket::activeBackend().toStdString()
                                     : "no TLS library; servers cannot be reached";
}

std::unique_ptr<HttpExchange> QtHttpClient::send(const HttpRequest& request, Done done) {
    return std::make_unique<Exchange>(request, m_userAgent, std::move(done));
}

} // namespace vantrel
