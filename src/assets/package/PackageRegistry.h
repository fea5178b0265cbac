#pragma once

#include <QByteArray>
#include <QString>

#include <mutex>

class PakReader;

// Exclusive use of one package of the process-wide cache, from any thread: every other user of any package waits until
// it ends, and it closes the package file then. A thread that holds one must neither make a second nor call
// readGameFile. Readers stay cached, with the index that they read, as long as the process lives.
class OpenPackage
{
public:
    // Throws "Could not find compatible pak reader." when the file is a package of neither format.
    explicit OpenPackage(const QString &packagePath);
    OpenPackage(const OpenPackage &) = delete;
    OpenPackage &operator=(const OpenPackage &) = delete;
    ~OpenPackage();

    PakReader *operator->() const { return reader_; }

private:
    std::lock_guard<std::mutex> lock_;
    PakReader *reader_;
};

// The name of a file inside a package, as it may stand wherever a file name is expected. The package's path holds
// no "::".
QString pakFileName(const QString &packagePath, const QString &innerPath);

// The bytes of a file that is named by a path, or by a pak:// name. From any thread. Throws a QString.
QByteArray readGameFile(const QString &fileName);
