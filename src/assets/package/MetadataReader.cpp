#include "assets/package/MetadataReader.h"

#include "assets/package/Logging.h"

namespace {
constexpr int maxNesting = 64;

enum class Type : quint8 { Double = 2, Boolean = 3, Integer = 4, String = 5, List = 6, Map = 7 };

QVariant readValue(ByteReader &in, int nesting);

QString readString(ByteReader &in)
{
    const auto raw = in.string();
    return QString::fromUtf8(raw.data(), int(raw.size()));
}

QVariantList readList(ByteReader &in, int nesting)
{
    QVariantList list;
    const auto count = in.variableLength();
    for (quint64 i = 0; i < count && !in.ended(); ++i)
        list.append(readValue(in, nesting));
    return list;
}

QVariantMap readMap(ByteReader &in, int nesting)
{
    QVariantMap map;
    const auto count = in.variableLength();
    for (quint64 i = 0; i < count && !in.ended(); ++i) {
        const auto key = readString(in);
        const auto value = readValue(in, nesting);
        if (!in.ended())
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

QVariant readValue(ByteReader &in, int nesting)
{
    const auto type = in.u8();
    if (in.ended())
        return {};
    switch (Type(type)) {
    case Type::Double:
        return in.float64();
    case Type::Boolean:
        return in.u8() != 0;
    case Type::Integer:
        return QVariant::fromValue<quint64>(in.variableLength());
    case Type::String:
        return readString(in);
    case Type::List:
        return readList(in, deeper(nesting));
    case Type::Map:
        return readMap(in, deeper(nesting));
    }
    return unknownValue(type);
}
} // namespace

QVariantMap readMetadata(ByteReader &in)
{
    return readMap(in, 0);
}
