#include "assets/ItemReader.h"

#include "assets/GameJson.h"

#include <QBuffer>
#include <QImageReader>
#include <QJsonObject>

namespace {
constexpr int maxIconSide = 1024;

// What file systems allow a name. These names become part of every sample's, so long ones would cost far more memory
// than the bytes that hold them.
constexpr int maxNameLength = 255;

// The other formats of the machine's plug-ins are no business of a stranger's package.
bool isIconFormat(const QByteArray &format)
{
    return format == "png" || format == "jpeg" || format == "jpg" || format == "bmp" || format == "gif";
}
} // namespace

InstrumentItem readItem(const QByteArray &bytes, const QString &fileName)
{
    const auto document = parseGameJson(bytes);
    if (document.isNull())
        throw QStringLiteral("Could not read instrument file %1.").arg(fileName);
    if (!document.isObject())
        throw QStringLiteral("Could not read instrument file %1. Root node is not an object.").arg(fileName);
    const auto root = document.object();
    const auto text = [&root](const QString &key) { return root.value(key).toString(); };
    const auto name = text(QStringLiteral("shortdescription"));
    if (name.isEmpty())
        throw QStringLiteral("Could not read instrument file %1. It names no instrument.").arg(fileName);
    const auto kind = text(QStringLiteral("kind"));
    if (kind.size() > maxNameLength)
        throw QStringLiteral("Could not read instrument file %1. Its kind is too long.").arg(fileName);
    return {name, kind, text(QStringLiteral("inventoryIcon"))};
}

QString readModPath(const QByteArray &bytes)
{
    const auto document = parseGameJson(bytes);
    if (!document.isObject())
        throw QStringLiteral("Could not read mod description.");
    const auto path = document.object().value(QStringLiteral("path")).toString();
    if (path.size() > maxNameLength)
        throw QStringLiteral("The path in the mod description is too long.");
    return path.isEmpty() ? QStringLiteral(".") : path;
}

QImage decodeIcon(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const auto size = isIconFormat(reader.format()) ? reader.size() : QSize();
    if (!size.isValid() || size.width() > maxIconSide || size.height() > maxIconSide)
        return {};
    return reader.read();
}
