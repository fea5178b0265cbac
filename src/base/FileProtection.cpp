#include "base/FileProtection.h"

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
