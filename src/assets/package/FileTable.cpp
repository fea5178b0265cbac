#include "assets/package/FileTable.h"

#include <QLatin1String>
#include <QtEndian>

#include <algorithm>

namespace {
bool isAscii(std::string_view bytes)
{
    unsigned char all = 0;
    for (const char byte : bytes)
        all |= static_cast<unsigned char>(byte);
    return all < 0x80;
}
} // namespace

FileTable FileTable::read(ByteReader &in)
{
    FileTable table;
    const auto count = in.variableLength();
    for (quint64 i = 0; i < count && !in.ended(); ++i) {
        const auto position = quint32(in.position());
        const bool ascii = isAscii(in.string());
        in.bytes(2 * sizeof(qint64));
        if (!in.ended())
            table.records_.push_back({position, ascii});
    }
    table.index_ = in.takeRead();
    table.sortAndDropReplaced();
    return table;
}

std::optional<FileEntry> FileTable::find(const QString &path) const
{
    const auto found =
        std::lower_bound(records_.begin(), records_.end(), path,
                         [this](Record record, const QString &sought) { return compare(record, sought) < 0; });
    if (found == records_.end() || compare(*found, path) != 0)
        return std::nullopt;
    const auto raw = rawPath(*found);
    const char *numbers = raw.data() + raw.size();
    return FileEntry{qFromBigEndian<qint64>(numbers), qFromBigEndian<qint64>(numbers + sizeof(qint64))};
}

QStringList FileTable::paths() const
{
    QStringList list;
    list.reserve(int(records_.size()));
    for (const auto record : records_)
        list.append(path(record));
    return list;
}

// Only entries that were read whole have a record, so the length and the bytes are known to be there.
std::string_view FileTable::rawPath(Record record) const
{
    const char *at = index_.constData() + record.position;
    const auto length = decodeVariableLength([&at] { return quint8(*at++); });
    return {at, size_t(length)};
}

QString FileTable::path(Record record) const
{
    const auto raw = rawPath(record);
    return record.isAscii ? QString::fromLatin1(raw.data(), int(raw.size()))
                          : QString::fromUtf8(raw.data(), int(raw.size()));
}

int FileTable::compare(Record left, Record right) const
{
    if (left.isAscii && right.isAscii)
        return rawPath(left).compare(rawPath(right));
    return path(left).compare(path(right));
}

int FileTable::compare(Record record, const QString &path) const
{
    const auto raw = rawPath(record);
    if (record.isAscii)
        return -path.compare(QLatin1String(raw.data(), int(raw.size())));
    return this->path(record).compare(path);
}

void FileTable::sortAndDropReplaced()
{
    const auto before = [this](Record left, Record right) {
        const int order = compare(left, right);
        return order != 0 ? order < 0 : left.position > right.position;
    };
    // Most packages are written in order already.
    if (!std::is_sorted(records_.begin(), records_.end(), before))
        std::sort(records_.begin(), records_.end(), before);
    const auto samePath = [this](Record left, Record right) { return compare(left, right) == 0; };
    records_.erase(std::unique(records_.begin(), records_.end(), samePath), records_.end());
    records_.shrink_to_fit();
}
