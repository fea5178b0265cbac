#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <QStringList>

// Reads files out of one package. Paths are compared exactly as the package stores them. Every failure is a thrown
// QString, and a reader stays usable after one. A reader has one file position: calls into it must not overlap.
class PakReader
{
public:
    PakReader() = default;
    PakReader(const PakReader &) = delete;
    PakReader &operator=(const PakReader &) = delete;
    virtual ~PakReader() = default;

    // Opens the package for reading and reads what the lookups need. Throws when it is not a package of this format.
    virtual void open() = 0;

    // Lets go of the package file; the next read opens it again.
    virtual void close() = 0;

    // The whole contents of a file; throws "File not found" for an absent name.
    virtual QByteArray getFile(const QString &path) = 0;

    // getFile with a logged warning and false in place of every exception; `bytes` is then left as it was.
    virtual bool tryGetFile(const QString &path, QByteArray &bytes) = 0;

    // Whether the package lists the file; getFile may still fail for one whose bytes are damaged.
    virtual bool hasFile(const QString &path) = 0;

    // The paths of all files in the package.
    virtual QStringList fileList() = 0;

protected:
    // tryGetFile, for every format.
    bool getFileOrWarn(const QString &path, QByteArray &bytes);

    // Readers fetch whole blocks themselves, so the device's own read-ahead would only touch bytes nobody wants.
    static void openReadOnly(QIODevice &file);
};
