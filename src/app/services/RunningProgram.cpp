#include "app/services/RunningProgram.h"

#include "song/OpenRequest.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QTimer>

namespace {

constexpr int patienceMs = 2000;
const auto answer = QByteArrayLiteral("taken\n");

QString folderOfUser()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation); // which nobody else may enter
}

} // namespace

RunningProgram::RunningProgram(const QString &place, const QString &lockFile) : place_(place), lock_(lockFile)
{
    lock_.setStaleLockTime(0); // however old, it is that of a program that runs
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &RunningProgram::greet);
}

QString RunningProgram::placeOfUser()
{
#ifdef Q_OS_WIN
    const auto home = QCryptographicHash::hash(QDir::homePath().toUtf8(), QCryptographicHash::Sha1).toHex();
    return QStringLiteral("kelvarion-composer-") + QString::fromLatin1(home); // pipes have no folders
#else
    return folderOfUser() + QStringLiteral("/kelvarion-composer");
#endif
}

QString RunningProgram::lockOfUser()
{
    return folderOfUser() + QStringLiteral("/kelvarion-composer.lock");
}

bool RunningProgram::handOver(const QString &place, const QStringList &files)
{
    QStringList paths;
    for (const auto &file : files)
        paths.append(QFileInfo(file).absoluteFilePath());
    const auto request = OpenRequest::toLine(paths);
    if (request.size() > OpenRequest::mostBytes)
        return false;
    QLocalSocket socket;
    socket.connectToServer(place);
    if (!socket.waitForConnected(patienceMs) || socket.write(request) != request.size())
        return false;
    QByteArray heard;
    while (heard.size() < answer.size() && socket.waitForReadyRead(patienceMs))
        heard += socket.read(answer.size() - heard.size());
    return heard == answer;
}

bool RunningProgram::listen()
{
    if (!lock_.tryLock())
        return false;
    QLocalServer::removeServer(place_); // that of a program that ended without its leave
    return server_.listen(place_);
}

void RunningProgram::greet()
{
    while (auto *const socket = server_.nextPendingConnection()) {
        socket->setReadBufferSize(OpenRequest::mostBytes + 1);
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { take(*socket); });
        QTimer::singleShot(patienceMs, socket, &QLocalSocket::abort); // who says nothing
        take(*socket);
    }
}

void RunningProgram::take(QLocalSocket &socket)
{
    if (!socket.canReadLine()) {
        if (socket.bytesAvailable() > OpenRequest::mostBytes)
            socket.abort();
        return;
    }
    const auto files = OpenRequest::fromLine(socket.readLine());
    if (!files)
        return socket.abort();
    socket.write(answer);
    socket.disconnectFromServer(); // once it is written
    // Later, since the socket may not outlive the questions that are asked of them.
    const auto tell = [this, files = *files] { emit filesArrived(files); };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}
