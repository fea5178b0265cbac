#pragma once

#include "arguments/Arguments.h"
#include "assets/InstrumentSet.h"
#include "check/findings/Finding.h"
#include "core/Measures.h"

#include <QJsonObject>

// A part with what is wrong with it, by itself and beside the others of its song.
struct CheckedPart
{
    QString name;
    QString instrument;
    QString text;
    Track track;
    Ticks length = 0; // with the rests at the end
    QVector<Finding> findings;
};

struct FindingCounts
{
    int errors = 0;
    int warnings = 0;
    int notes = 0;

    // What is only worth knowing is not wrong.
    bool isAnythingWrong() const { return errors + warnings > 0; }
    void add(const QVector<Finding> &findings);
    void add(const FindingCounts &other);
    QString text() const; // "2 errors, 1 warning", "nothing is wrong"
    QJsonObject json() const;
};

// What was read, checked part by part and as one song; without instruments what needs them is left out. [any]
QVector<CheckedPart> checkReadSong(const ReadSong &song, const Arguments &arguments, const InstrumentSet &instruments);

// Each finding with its place in the part's text, counted from 1, and in time.
QJsonObject jsonOf(const CheckedPart &part);
