#pragma once

#include "assets/package/FileTable.h"
#include "assets/package/PakReader.h"

#include <QVariant>

#include <memory>

// The current package format; numbers are big-endian, counts and lengths are of variable length (ByteReader):
//   "KVAsset6", position of the index (int64), the files' bytes anywhere,
//   "INDEX", count of metadata, each a key and a value, count of files, each a path, position and size (int64 both).
// The index is read once, by the first open; lookups then need no file.
class KVAssetPakReader : public PakReader
{
public:
    // Nothing is read before open().
    explicit KVAssetPakReader(const QString &packagePath);
    explicit KVAssetPakReader(std::unique_ptr<QIODevice> package);

    void open() override;
    void close() override;
    QByteArray getFile(const QString &path) override;
    bool tryGetFile(const QString &path, QByteArray &bytes) override { return getFileOrWarn(path, bytes); }
    bool hasFile(const QString &path) override;

    // In the order of their UTF-16 code units.
    QStringList fileList() override;

    // What the package says about itself; the values are those that readMetadata lists.
    const QVariantMap &metadata() const { return metadata_; }

private:
    void readIndex();
    void seekToIndex();

    std::unique_ptr<QIODevice> file_;
    bool loaded_ = false;
    FileTable files_;
    QVariantMap metadata_;
};
