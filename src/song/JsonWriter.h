#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>

// JSON as UTF-8 (RFC 8259), always the same bytes for the same value, every QString exactly: one half of a surrogate
// pair and control characters are written as \uXXXX.
enum class JsonLayout {
    Compact,
    Lines // a line for every member and element, indented by two blanks; lists of numbers stand in one line
};

// Members that stand in `order` come first and in its order, the others after them by name.
QByteArray writeJson(const QJsonObject &object, JsonLayout layout, const QStringList &order = {});
