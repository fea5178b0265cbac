#pragma once

#include <QCoreApplication>
#include <QString>

// Every track of a song gets its own copy of the song's tempo, metre and key changes, and a bend cuts every note that
// sounds, so a small file can ask for a very large song. These limits keep the memory of an import in proportion to its
// file; no song that anybody plays comes near.
class ImportLimits
{
public:
    explicit ImportLimits(qsizetype inputBytes) : copiesLeft_(300'000 + inputBytes / 4) {}

    // Throws a QString when there are too many.
    void addTrack()
    {
        if (--tracksLeft_ < 0)
            throw QCoreApplication::translate("ImportLimits", "Too many tracks.");
    }
    void addCopies(qint64 changes)
    {
        spend(changes, QT_TRANSLATE_NOOP("ImportLimits", "Too many tempo, metre and key changes."));
    }
    void addBentNotes(qint64 notes) { spend(notes, QT_TRANSLATE_NOOP("ImportLimits", "Too many pitch bends.")); }

private:
    void spend(qint64 copies, const char *message)
    {
        if ((copiesLeft_ -= copies) < 0)
            throw QCoreApplication::translate("ImportLimits", message);
    }

    int tracksLeft_ = 10'000;
    qint64 copiesLeft_;
};
