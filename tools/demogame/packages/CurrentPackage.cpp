#include "packages/CurrentPackage.h"

#include "packages/ByteWriter.h"

#include <cstring>

namespace {

enum ValueType : quint8 { DoubleValue = 2, BooleanValue, IntegerValue, StringValue, ListValue, MapValue };

void putMap(QByteArray &bytes, const QVariantMap &map);

quint64 bitsOf(double value)
{
    quint64 bits;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

void putList(QByteArray &bytes, const QVariantList &list);

void putValue(QByteArray &bytes, const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Double:
        putNumber<quint8>(bytes, DoubleValue);
        return putNumber(bytes, bitsOf(value.toDouble()));
    case QMetaType::Bool:
        putNumber<quint8>(bytes, BooleanValue);
        return putNumber<quint8>(bytes, value.toBool());
    case QMetaType::ULongLong:
        putNumber<quint8>(bytes, IntegerValue);
        return putLength(bytes, value.toULongLong());
    case QMetaType::QVariantList:
        putNumber<quint8>(bytes, ListValue);
        return putList(bytes, value.toList());
    case QMetaType::QVariantMap:
        putNumber<quint8>(bytes, MapValue);
        return putMap(bytes, value.toMap());
    default:
        putNumber<quint8>(bytes, StringValue);
        return putString(bytes, value.toString().toUtf8());
    }
}

void putList(QByteArray &bytes, const QVariantList &list)
{
    putLength(bytes, quint64(list.size()));
    for (const auto &value : list)
        putValue(bytes, value);
}

void putMap(QByteArray &bytes, const QVariantMap &map)
{
    putLength(bytes, quint64(map.size()));
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        putString(bytes, entry.key().toUtf8());
        putValue(bytes, entry.value());
    }
}

} // namespace

QByteArray currentPackage(const Files &files, const QVariantMap &metadata)
{
    const QByteArray magic("KVAsset6");
    const auto headerSize = magic.size() + int(sizeof(qint64));
    QByteArray data;
    QByteArray table;
    putLength(table, files.size());
    for (const auto &[path, contents] : files) {
        putString(table, path.toUtf8());
        putNumber<qint64>(table, headerSize + data.size());
        putNumber<qint64>(table, contents.size());
        data.append(contents);
    }
    auto package = magic;
    putNumber<qint64>(package, headerSize + data.size());
    package.append(data).append("INDEX");
    putMap(package, metadata);
    return package.append(table);
}
