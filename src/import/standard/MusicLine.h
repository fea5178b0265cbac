#pragma once

#include "import/standard/Voice.h"

#include <QStringView>

// Hears what a line of music says of other things than notes.
class MusicLineListener
{
public:
    virtual ~MusicLineListener() = default;

    // The voice that the notes from here on belong to.
    virtual Voice &voice() = 0;
    // "trill" of "!trill!", or the sign that stands for one.
    virtual void decoration(QStringView name) = 0;
    virtual void inlineField(QChar letter, QStringView value) = 0;
    virtual void unreadable(QStringView text) = 0;
};

// Reads one line of music without its comment (ABC standard 2.1, sections 4 and 8). What means nothing is told to the
// listener and skipped; nothing is thrown.
void readMusicLine(QStringView line, MusicLineListener &listener);
