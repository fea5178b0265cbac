#pragma once

#include <QByteArray>
#include <QJsonDocument>

// Parses an item, a tuning or a mod description: UTF-8 JSON of at most 1 MiB with "//" comments, which end with their
// line and begin even inside a string. A null document means that the rest is not JSON; `error`, when given, says why.
QJsonDocument parseGameJson(const QByteArray &bytes, QJsonParseError *error = nullptr);
