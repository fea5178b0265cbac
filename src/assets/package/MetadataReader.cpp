#include "assets/package/MetadataReader.h"

#include "assets/package/Logging.h"

namespace {
constexpr int maxNesting = 64;

enum class Type : quint8 { Double = 2, Boolean = 3, Integer = 4, String = 5, List = 6, Map = 7 };

QVariant readValue(ByteCursor &cursor, int nesting);

QString readString(ByteCursor &cursor)
{
    const auto raw = cursor.string();
    return QString::fromUtf8(raw.data(), int(raw.size()));
}

QVariantList readList(ByteCursor &cursor, int nesting)
{
    QVariantList list;
    const auto count = cursor.vlq();
    for (quint64 i = 0; i < count && !cursor.ended(); ++i)
        list.append(readValue(cursor, nesting));
    return list;
}

QVariantMap readMap(ByteCursor &cursor, int nesting)
{
    QVariantMap map;
    const auto count = cursor.vlq();
    for (quint64 i = 0; i < count && !cursor.ended(); ++i) {
        const auto key = readString(cursor);
        const auto value = readValue(cursor, nesting);
        if (!cursor.ended())
            map.insert(key, value);
    }
    return map;
}

int deeper(int nesting)
{
    if (nesting == maxNesting)
        throw QStringLiteral("Package metadata is nested too deeply.");
    return nesting + 1;
}

QVariant unknownValue(quint8 type)
{
    qCWarning(assetsLog).noquote() << QStringLiteral("Unknown JSON element type in KVAsset6 file: %1").arg(type);
    return {};
}

QVariant readValue(ByteCursor &cursor, int nesting)
{
    const auto type = cursor.byte();
    if (cursor.ended())
        return {};
    switch (Type(type)) {
    case Type::Double:
        return cursor.float64();
    case Type::Boolean:
        return cursor.byte() != 0;
    case Type::Integer:
        return QVariant::fromValue<quint64>(cursor.vlq());
    case Type::String:
        return readString(cursor);
    case Type::List:
        return readList(cursor, deeper(nesting));
    case Type::Map:
        return readMap(cursor, deeper(nesting));
    }
    return unknownValue(type);
}
} // namespace

QVariantMap readMetadata(ByteCursor &cursor)
{
    return readMap(cursor, 0);
}
