#include "base/FileState.h"

#include "base/TextDecoding.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

FileProtection protectionOf(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return FileProtection::None;
#ifdef Q_OS_UNIX
    if (file.ownerId() != geteuid())
        return FileProtection::OfAnotherUser;
#endif
    return file.permission(QFile::WriteOwner) ? FileProtection::None : FileProtection::ReadOnly;
}

// A character takes at most four bytes, and a mark may stand before.
bool holdsAnotherText(const QString &path, const QString &text)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    return file.size() > 4 * qint64(text.size()) + 4 || decodeText(file.readAll()) != text;
}
