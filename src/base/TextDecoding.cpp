#include "base/TextDecoding.h"

bool isUtf8(const QByteArray &bytes)
{
    // Invalid sequences decode to U+FFFD, so only valid text survives the way there and back.
    return QString::fromUtf8(bytes).toUtf8() == bytes;
}

QString decodeText(QByteArray bytes)
{
    static const QByteArray byteOrderMark("\xEF\xBB\xBF");
    while (bytes.startsWith(byteOrderMark))
        bytes.remove(0, byteOrderMark.size());
    auto text = QString::fromUtf8(bytes);
    return text.toUtf8() == bytes ? text : QString::fromLatin1(bytes);
}
