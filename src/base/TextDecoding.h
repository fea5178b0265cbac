#pragma once

#include <QByteArray>
#include <QString>

// Text as strangers' files hold it: UTF-8 with or without a byte order mark (which is dropped), or UTF-16 with one,
// which editors on Windows save as "Unicode"; bytes that are neither are read as Latin-1, so nothing is ever refused. A
// NUL is a character like others.
QString decodeText(QByteArray bytes);
bool isUtf8(const QByteArray &bytes);
