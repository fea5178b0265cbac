#pragma once

#include "base/JobPool.h"
#include "base/SafeFile.h"

#include <QHash>
#include <QSet>

#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <vector>

class QFileInfo;

// Saves many files as SafeFile does, several at a time: a disk synchronises many in hardly more time than one. A file
// has its name only when its bytes are on the disk, and the names are there to stay when finish() has returned. Which
// file gets which name does not depend on which is written first. Used on one thread, which it keeps waiting while too
// much is under way.
class FileBatch
{
public:
    // The path to try next; throws a QString when there is none.
    using NextPath = std::function<QString()>;
    // failure: empty when it was saved.
    using Take = std::function<void(const QString &path, const QString &failure)>;

    explicit FileBatch(SafeFile::Existing existing) : existing_(existing) {}

    // Begins, at the first path where there is nothing, or at the first when what exists is replaced. Asks for paths
    // until finish() has returned. Tells of those before that are saved by now. Throws what `nextPath` throws.
    void add(NextPath nextPath, const QByteArray &bytes, const Take &take);

    // Waits for all. By then each has been told of, in the order in which they were added. Throws a QString when the
    // names cannot be synchronised.
    void finish();

private:
    struct File
    {
        NextPath nextPath;
        QByteArray bytes; // until they are written
        Take take;
        QString path;
        QString written = {}; // where links led to; empty when the path was taken meanwhile
        QString failure = {};
        std::atomic<bool> isDone = false; // nobody else works at it any more
    };

    struct Folder // as it was
    {
        QSet<QString> names;
        bool hasLeftovers = false;
    };

    using Group = std::vector<File *>;

    const Folder &folderOf(const QFileInfo &file);
    bool wasThere(const QString &path);
    QString freePath(const NextPath &nextPath);
    void begin(const Group &group);
    void beginRest();
    void write(const Group &group) const; // [any]
    void writeElsewhere(File &file);
    void tellOfFirst();
    void finishLater(const QString &path);
    void limitBytes(qint64 more);

    const SafeFile::Existing existing_;
    std::deque<File> files_; // not told of yet; jobs hold their addresses
    QHash<QString, Folder> folders_;
    QHash<QString, QStringList> written_; // in folders that are to be synchronised: those that may have leftovers
    Group next_;                          // to be written
    qint64 bytes_ = 0;                    // that jobs may hold
    mutable std::mutex naming_; // a folder takes names one by one anyway; so its lock is not waited for with each
    JobPool pool_{threads};

    // They wait for the disk most of the time. Together they open no more files than systems allow.
    static constexpr int threads = 16;
    static constexpr int mostInGroup = 8;
};
