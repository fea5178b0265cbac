#pragma once

#include <QImage>
#include <QMap>
#include <QMetaType>
#include <QString>
#include <QStringList>

// What sounds for one note.
struct NoteEntry
{
    QStringList files;    // names for readGameFile; the first sounds
    double rate = 1.0;    // factor on the sample's own speed; one that is not positive and finite sounds nothing
    double frequency = 0; // Hz, as the tuning file gives it
};

// How the notes of an instrument sound.
struct Tuning
{
    double fadeout = 0;             // seconds that a note takes to fall silent; at least 0.005 in one that was read
    QMap<quint32, NoteEntry> notes; // by MIDI note number
};

// A value that travels between threads.
struct Instrument
{
    QString name;
    QImage icon; // null when there is none
    Tuning tuning;
};
Q_DECLARE_METATYPE(Instrument)
