#include "base/TextDecoding.h"

namespace {

// Of all bytes: without its length a text would end at its first NUL.
QString fromUtf8(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

} // namespace

bool isUtf8(const QByteArray &bytes)
{
    // Invalid sequences decode to U+FFFD, so only valid text survives the way there and back.
    return fromUtf8(bytes).toUtf8() == bytes;
}

QString decodeText(QByteArray bytes)
{
    static const QByteArray byteOrderMark("\xEF\xBB\xBF");
    while (bytes.startsWith(byteOrderMark))
        bytes.remove(0, byteOrderMark.size());
    auto text = fromUtf8(bytes);
    return text.toUtf8() == bytes ? text : QString::fromLatin1(bytes.constData(), bytes.size());
}
