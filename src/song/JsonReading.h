#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

// The value of a member, when it is of the kind that the member must have; otherwise a QString is thrown that names the
// member and says what is expected.
namespace JsonReading {

QString textOf(const char *name, const QJsonValue &value);
QString optionalTextOf(const char *name, const QJsonValue &value);                     // empty where there is none
double numberOf(const char *name, const QJsonValue &value, double least, double most); // a whole one
bool flagOf(const char *name, const QJsonValue &value);
QJsonObject objectOf(const char *name, const QJsonValue &value);
QJsonArray arrayOf(const char *name, const QJsonValue &value);

} // namespace JsonReading
