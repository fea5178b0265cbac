#pragma once

#include "base/ByteReader.h"

#include <QStringList>

#include <optional>
#include <string_view>
#include <vector>

// Where a file's bytes lie in its package, as the index claims: both in bytes, neither checked.
struct FileEntry
{
    qint64 offset = 0;
    qint64 size = 0;
};

// The paths of a package and where their bytes lie. It keeps the index as it stands on disk and four bytes a file
// beside it: decoded paths would take three times the memory, and a package of the game has 100,000 of them.
class FileTable
{
public:
    FileTable() = default;

    // Reads a file count and that many entries, or those that are whole when the index ends early, and takes all bytes
    // that were read. Of two entries with one path the later counts.
    static FileTable read(ByteReader &in);

    std::optional<FileEntry> find(const QString &path) const;

    // In the order of their UTF-16 code units.
    QStringList paths() const;

private:
    struct Record
    {
        quint32 position : 31; // of the entry, in bytes from the start of the index
        quint32 isAscii : 1;   // the path's bytes then sort as its decoded text does
    };

    std::string_view rawPath(Record record) const;
    QString path(Record record) const;
    int compare(Record left, Record right) const;
    int compare(Record record, const QString &path) const;
    void sortAndDropReplaced();

    QByteArray index_;
    std::vector<Record> records_; // sorted by path
};
