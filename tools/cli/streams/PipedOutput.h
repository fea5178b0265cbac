#pragma once

#include <QString>
#include <QTemporaryDir>

// For what can only be written from the beginning to the end, standard output, a pipe or a device: a sound file is made
// in a folder of its own, since its head is known only at its end, and sent when it is finished.
class PipedOutput
{
public:
    static bool isNeeded(const QString &output); // "-", or something that is there and is no file or folder

    // ending: of the sound file. Throws a QString.
    PipedOutput(const QString &output, const QString &ending);
    QString path() const; // where to write it
    void send() const;    // throws a QString

private:
    QTemporaryDir folder_;
    QString output_;
    QString ending_;
};
