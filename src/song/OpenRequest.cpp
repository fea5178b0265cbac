#include "song/OpenRequest.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const auto member = QStringLiteral("open");

bool isFile(const QJsonValue &value)
{
    const auto path = value.toString();
    return QDir::isAbsolutePath(path) && path.isValidUtf16() && !path.contains(QChar::Null);
}

} // namespace

namespace OpenRequest {

QByteArray toLine(const QStringList &files)
{
    const QJsonObject request{{member, QJsonArray::fromStringList(files)}};
    return QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<QStringList> fromLine(const QByteArray &line)
{
    if (line.size() > mostBytes)
        return std::nullopt;
    const auto request = QJsonDocument::fromJson(line).object();
    if (!request.value(member).isArray())
        return std::nullopt;
    QStringList files;
    for (const auto &value : request.value(member).toArray()) {
        if (!isFile(value))
            return std::nullopt;
        files.append(value.toString());
    }
    return files;
}

} // namespace OpenRequest
