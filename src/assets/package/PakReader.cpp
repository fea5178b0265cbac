#include "assets/package/PakReader.h"

#include "assets/package/Logging.h"

bool PakReader::getFileOrWarn(const QString &path, QByteArray &bytes)
{
    try {
        bytes = getFile(path);
        return true;
    } catch (const QString &message) {
        qCWarning(assetsLog).noquote() << QStringLiteral("tryGetFile failed on %1: %2").arg(path, message);
    } catch (...) {
        qCDebug(assetsLog).noquote() << QStringLiteral("Unexpected failure while reading %1").arg(path);
    }
    return false;
}

void PakReader::openReadOnly(QIODevice &file)
{
    if (!file.isOpen() && !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw QStringLiteral("Could not open file.");
}
