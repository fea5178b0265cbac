#include "import/ChangeKey.h"

#include "core/KeyTable.h"

QString keyText(quint32 row, quint32 mode, MajorQualifier major)
{
    if (mode == Major && major == MajorQualifier::Include)
        return KeyTable::tonic(row, mode) + QStringLiteral("maj");
    return KeyTable::keyName(row, mode);
}

std::optional<HeaderFields::Key> keyPosition(const QString &keyText)
{
    return HeaderFields::findKey(keyText);
}

Track changeKey(const Track &track, const QString &keyText)
{
    auto result = track;
    result.setHeaderField(QStringLiteral("K"), keyText);
    result.clearAbc();
    return result;
}
