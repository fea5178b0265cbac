#pragma once

#include <QStringList>

// What the characters before a caret may be the beginning of. A value.
struct AbcCompletion
{
    int typed = 0;       // so many characters give way to the choice
    QStringList choices; // none of them is what was typed

    enum class Place { Header, Music };

    // Of the text before the caret in its line: fields and their values, keys, instruments (`I:Instrument:`) and, in
    // music, decorations between "!".
    static AbcCompletion of(const QString &line, Place place, const QStringList &instruments);
};
