#pragma once

#include <QString>

// A QString that a plain literal may stand for.
class Text : public QString
{
public:
    Text() = default;
    Text(const QString &text) : QString(text) {}
    Text(const char *utf8) : QString(QString::fromUtf8(utf8)) {}
};
