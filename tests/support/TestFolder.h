#pragma once

#include "support/Rows.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

// A folder of its own for the files of a test.
class TestFolder
{
public:
    TestFolder() {} // written out, so that clang 14 makes constant ones, too
    QString path(const Text &name = {}) const { return directory_.filePath(name); }

    // Makes the folders on the way too. Returns the path.
    QString write(const Text &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        QDir().mkpath(QFileInfo(file).path());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the test's files");
        return file.fileName();
    }

    // Empty when there is no such file.
    QByteArray read(const Text &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QStringList files(const Text &folder = {}) const
    {
        return QDir(path(folder)).entryList(QDir::Files | QDir::Hidden);
    }

private:
    QTemporaryDir directory_;
};
