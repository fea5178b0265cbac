#pragma once

#include <QString>
#include <QVector>

// Characters of a text, counted in UTF-16 units from its beginning.
struct TextRange
{
    int offset = 0;
    int length = 0;

    int end() const { return offset + length; }
    bool isEmpty() const { return length == 0; }
};

struct TextChange
{
    TextRange range;
    QString text;
};

// The changes must be in the order of the text and not overlap.
QString applyChanges(const QString &text, const QVector<TextChange> &changes);

// The one stretch in which two texts differ.
TextChange difference(const QString &from, const QString &to);
