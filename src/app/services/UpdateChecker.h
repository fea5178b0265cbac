#pragma once

#include <QObject>
#include <QUrl>

#include <memory>

class QNetworkAccessManager;
class QNetworkReply;

// Asks the project's web server which version was released last. Checks may overlap; each ends with exactly one signal.
// On the interface thread.
class UpdateChecker : public QObject
{
    Q_OBJECT

public:
    static QUrl releaseAddress();

    explicit UpdateChecker(const QUrl &address = releaseAddress(), int timeoutMs = 10'000, QObject *parent = nullptr);

    ~UpdateChecker() override;

    void check();

signals:
    // newVer: the version as text; address: of the download page. Both are the server's, also when nothing is newer.
    void updateAvailable(bool available, const QString &newVer, const QString &address);
    void updateCheckFailed(const QString &error);

private slots:
    void onFinished(QNetworkReply *reply);

private:
    const QUrl address_;
    const int timeoutMs_;
    std::unique_ptr<QNetworkAccessManager> network_; // made for the first check: it takes long
};
