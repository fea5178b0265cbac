#pragma once

#include "assets/LeafStream.h"
#include "assets/PakReader.h"

#include <memory>
#include <optional>

// The legacy package format: a block database that finds files by the SHA-256 of their paths. Nothing but its header is
// kept in memory; each lookup reads the blocks on its way from the root.
class LegacyPakReader : public PakReader
{
public:
    explicit LegacyPakReader(const QString &packagePath);
    explicit LegacyPakReader(std::unique_ptr<QIODevice> package);

    void open() override;
    void close() override;
    QByteArray getFile(const QString &path) override;
    bool hasFile(const QString &path) override;

    // In stored order.
    QStringList fileList() override;

private:
    struct Header {
        BlockLayout layout;
        qint32 keySize = 0;
        qint32 rootBlock = 0;
        bool rootIsLeaf = false;
        int contentVersion = 0; // 1: every path of the file table is followed by a field that is skipped
    };

    static Header readHeader(QIODevice &file);
    void ensureOpen();
    std::optional<QByteArray> value(const QString &path);

    std::unique_ptr<QIODevice> file_;
    Header header_;
};
