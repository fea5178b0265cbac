#include "base/TextDecoding.h"

namespace {

// Of all bytes: without its length a text would end at its first NUL.
QString fromUtf8(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

// Its byte order mark says which byte of two is the higher one (Unicode Standard, section 23.8). No other encoding of
// text that anybody plays begins with it; an odd byte at the end is half a character, and dropped.
bool isUtf16(const QByteArray &bytes)
{
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
}

QString fromUtf16(const QByteArray &bytes)
{
    const int lower = bytes.startsWith("\xFF\xFE") ? 0 : 1;
    QString text;
    text.reserve(int(bytes.size()) / 2);
    for (int i = 2; i + 1 < bytes.size(); i += 2)
        text += QChar(uchar(bytes[i + lower]) | uchar(bytes[i + 1 - lower]) << 8);
    return text;
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
    if (isUtf16(bytes))
        return fromUtf16(bytes);
    while (bytes.startsWith(byteOrderMark))
        bytes.remove(0, byteOrderMark.size());
    auto text = fromUtf8(bytes);
    return text.toUtf8() == bytes ? text : QString::fromLatin1(bytes.constData(), bytes.size());
}
