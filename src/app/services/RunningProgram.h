#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

class QLocalSocket;

// The program of a user that opens files for those that are started after it. A socket that only the user may open
// tells it the files, and a lock says whose the socket is, so that what a crash left is no hindrance. [ui]
class RunningProgram : public QObject
{
    Q_OBJECT

public:
    // place: of the socket, as QLocalServer has it; the lock is lockFile.
    RunningProgram(const QString &place, const QString &lockFile);

    static QString placeOfUser();
    static QString lockOfUser();

    // Whether another program took the files, which are made absolute. Waits for its answer, for no more than about two
    // seconds.
    static bool handOver(const QString &place, const QStringList &files);

    // Becomes the one that files are handed to; false when there is one already, or it cannot be.
    bool listen();

signals:
    void filesArrived(const QStringList &files);

private:
    void greet();
    void take(QLocalSocket &socket);

    const QString place_;
    QLockFile lock_;
    QLocalServer server_;
};
