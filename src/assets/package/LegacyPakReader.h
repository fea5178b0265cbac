#pragma once

#include "assets/package/LeafStream.h"
#include "assets/package/PakReader.h"

#include <memory>
#include <optional>

// The legacy package format: a tree of equally long blocks that finds files by the SHA-256 of their paths. A block is
// an index ("II") of keys and children, or begins or continues a leaf ("LL") of keys and values (LeafStream). The value
// under
// "_index" lists the paths. Nothing but the header is kept in memory; each lookup reads the blocks on its way from the
// root, and none twice.
class LegacyPakReader : public PakReader
{
public:
    // Nothing is read before open().
    explicit LegacyPakReader(const QString &packagePath);
    explicit LegacyPakReader(std::unique_ptr<QIODevice> package);

    void open() override;
    void close() override;
    QByteArray getFile(const QString &path) override;
    bool tryGetFile(const QString &path, QByteArray &bytes) override { return getFileOrWarn(path, bytes); }
    bool hasFile(const QString &path) override;

    // In stored order.
    QStringList fileList() override;

private:
    struct Header
    {
        BlockLayout layout;
        qint32 keySize = 0;
        qint32 rootBlock = 0;
        bool rootIsLeaf = false; // kept as read: the root block's own marker decides
        int contentVersion = 0;  // 1: every path of the file table is followed by a field that is skipped
    };

    static Header readHeader(QIODevice &file);
    void ensureOpen();
    std::optional<QByteArray> value(const QString &path);

    std::unique_ptr<QIODevice> file_;
    Header header_;
};
