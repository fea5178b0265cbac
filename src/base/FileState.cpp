#include "base/FileState.h"

#include "base/SystemFiles.h"
#include "base/TextDecoding.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace {

enum class Comparison { Unknown, Same, Differs };

// A character takes at most four bytes, and a mark may stand before.
Comparison comparison(const QString &path, const QString &text)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return Comparison::Unknown;
    const bool isSame = file.size() <= 4 * qint64(text.size()) + 4 && decodeText(file.readAll()) == text;
    return isSame ? Comparison::Same : Comparison::Differs;
}

} // namespace

FileProtection protectionOf(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return FileProtection::None;
    if (const auto user = SystemFiles::userId(); user && file.ownerId() != *user)
        return FileProtection::OfAnotherUser;
    return file.permission(QFile::WriteOwner) ? FileProtection::None : FileProtection::ReadOnly;
}

bool holdsAnotherText(const QString &path, const QString &text)
{
    return comparison(path, text) == Comparison::Differs;
}

bool holdsText(const QString &path, const QString &text)
{
    return comparison(path, text) == Comparison::Same;
}

QString stampOf(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return {};
    return QStringLiteral("%1 %2").arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch());
}
