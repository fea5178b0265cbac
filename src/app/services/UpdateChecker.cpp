#include "app/services/UpdateChecker.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QVersionNumber>

namespace {

constexpr qint64 longestReply = 64 * 1024;

// Parts of 256 and more spill into their neighbours, and any part below zero makes the release the highest of all:
// older versions compare in the same way.
bool isNewer(const QJsonArray &version)
{
    const auto running = QVersionNumber::fromString(QStringLiteral(COMPOSER_VERSION));
    const auto runningRelease =
        quint32(running.majorVersion() << 16 | running.minorVersion() << 8 | running.microVersion());
    const auto part = [&](int index) { return quint32(version.at(index).toInt()); };
    const auto build = part(3);
    const auto release = build > 0x7FFFFFFF ? 0xFFFFFFFF : part(0) << 16 | part(1) << 8 | part(2);
    return release > runningRelease || (release == runningRelease && build != 0);
}

} // namespace

QUrl UpdateChecker::releaseAddress()
{
    return QUrl(QStringLiteral("http://" COMPOSER_UPDATE_HOST "/api/lastversion.php"));
}

UpdateChecker::UpdateChecker(const QUrl &address, int timeoutMs, QObject *parent)
    : QObject(parent), address_(address), timeoutMs_(timeoutMs)
{
}

UpdateChecker::~UpdateChecker() = default;

void UpdateChecker::check()
{
    if (!network_) {
        network_ = std::make_unique<QNetworkAccessManager>();
        connect(network_.get(), &QNetworkAccessManager::finished, this, &UpdateChecker::onFinished);
    }
    QNetworkRequest request(address_);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setRawHeader("Accept-Encoding", "identity"); // the limit counts what arrives
    auto *const reply = network_->get(request);
    connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > longestReply)
            reply->abort();
    });
    QTimer::singleShot(timeoutMs_, reply, [reply] { reply->abort(); });
}

void UpdateChecker::onFinished(QNetworkReply *reply)
{
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError) {
        emit updateCheckFailed(reply->errorString());
        return;
    }
    const auto answer = QJsonDocument::fromJson(reply->readAll()).object();
    const auto version = answer.value(QLatin1String("version")).toArray();
    if (version.size() != 4) {
        emit updateCheckFailed(tr("Could not read update information"));
        return;
    }
    emit updateAvailable(isNewer(version), answer.value(QLatin1String("versionString")).toString(),
                         answer.value(QLatin1String("url")).toString());
}
