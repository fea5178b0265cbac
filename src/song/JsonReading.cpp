#include "song/JsonReading.h"

#include <QCoreApplication>

#include <cmath>

namespace {

[[noreturn]] void refuse(const char *name, const QString &why)
{
    throw QStringLiteral("\"%1\": %2").arg(QLatin1String(name), why);
}

} // namespace

namespace JsonReading {

QString textOf(const char *name, const QJsonValue &value)
{
    if (!value.isString())
        refuse(name, QCoreApplication::translate("SongFile", "a text is expected"));
    return value.toString();
}

QString optionalTextOf(const char *name, const QJsonValue &value)
{
    return value.isUndefined() ? QString() : textOf(name, value);
}

double numberOf(const char *name, const QJsonValue &value, double least, double most)
{
    const double number = value.toDouble(least - 1);
    if (!value.isDouble() || !(number >= least && number <= most) || number != std::floor(number))
        refuse(name, QCoreApplication::translate("SongFile", "a whole number from %1 to %2 is expected")
                         .arg(qint64(least))
                         .arg(qint64(most)));
    return number;
}

bool flagOf(const char *name, const QJsonValue &value)
{
    if (!value.isBool())
        refuse(name, QCoreApplication::translate("SongFile", "true or false is expected"));
    return value.toBool();
}

QJsonObject objectOf(const char *name, const QJsonValue &value)
{
    if (!value.isObject())
        refuse(name, QCoreApplication::translate("SongFile", "an object is expected"));
    return value.toObject();
}

QJsonArray arrayOf(const char *name, const QJsonValue &value)
{
    if (!value.isArray())
        refuse(name, QCoreApplication::translate("SongFile", "a list is expected"));
    return value.toArray();
}

} // namespace JsonReading
