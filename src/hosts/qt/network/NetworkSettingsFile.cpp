#include "hosts/qt/network/NetworkSettingsFile.h"

#include "core/Escape.h"
#include "hosts/qt/Text.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

namespace pryvane {

namespace {

/// One request on its way; a child of its reply.
class Fetch final : public QObject {
public:
    Fetch(QNetworkReply* reply, std::chrono::milliseconds timeLimit, SettingsFile::Reply done)
        : QObject(reply), m_reply(reply), m_done(std::move(done))
    {
        reply->setReadBufferSize(static_cast<qint64>(SettingsFile::kSizeLimit) + 1);
        connect(reply, &QNetworkReply::readyRead, this, &Fetch::take);
        connect(reply, &QNetworkReply::finished, this, &Fetch::finish, Qt::QueuedConnection);
        m_limit.setSingleShot(true);
        m_limit.callOnTimeout(this, [this] { fail("no complete answer in time"); });
        m_limit.start(timeLimit);
    }

private:
    void take()
    {
        if (m_body.size() <= SettingsFile::kSizeLimit)
            m_body += m_reply->readAll().toStdString();
        if (m_body.size() > SettingsFile::kSizeLimit)
            fail("the answer is too long");
    }

    void finish()
    {
        take();
        const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (m_reply->error() != QNetworkReply::NoError)
            fail(m_reply->errorString().toStdString());
        else if (status != 200)
            fail("the server answered with " + std::to_string(status));
        else
            end(std::move(m_body));
    }

    void fail(const std::string& why)
    {
        const std::string address = m_reply->url().toDisplayString().toStdString();
        end(Error{"the settings file " + forScreen(address) +
                  " could not be fetched: " + forScreen(why)});
    }

    /// Only the first end counts; what follows it comes from the abortion itself.
    void end(Result<std::string> body)
    {
        const SettingsFile::Reply done = std::exchange(m_done, {});
        if (!done)
            return;
        m_limit.stop();
        m_reply->disconnect(this);
        m_reply->abort();
        m_reply->deleteLater();
        done(std::move(body));
    }

    QNetworkReply* m_reply;
    SettingsFile::Reply m_done;
    std::string m_body;
    QTimer m_limit;
};

QNetworkRequest requestFor(const QUrl& address)
{
    QNetworkRequest request(address);
    request.setRawHeader("User-Agent", "Pryvane/" PRYVANE_VERSION);
    request.setRawHeader("Accept-Language", "*");
    // A compressed body could grow past the limit in one step.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::SameOriginRedirectPolicy);
    request.setMaximumRedirectsAllowed(3);
    return request;
}

} // namespace

NetworkSettingsFile::NetworkSettingsFile(std::string_view address,
                                         std::chrono::milliseconds timeLimit)
    : m_address(qt::text(address), QUrl::StrictMode), m_timeLimit(timeLimit)
{
}

void NetworkSettingsFile::fetch(Reply reply)
{
    const bool isWeb =
        m_address.scheme() == QLatin1String("https") || m_address.scheme() == QLatin1String("http");
    // Qt would read files and resources by the same call.
    if (!isWeb || m_address.host().isEmpty()) {
        const Error error{"the settings file has no web address: " +
                          forScreen(m_address.toDisplayString().toStdString())};
        QMetaObject::invokeMethod(
            &m_whileThere, [reply = std::move(reply), error] { reply(error); },
            Qt::QueuedConnection);
        return;
    }
    if (!m_network)
        m_network = std::make_unique<QNetworkAccessManager>();
    new Fetch(m_network->get(requestFor(m_address)), m_timeLimit, std::move(reply));
}

} // namespace pryvane
