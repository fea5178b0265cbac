#pragma once

#include "core/AbcParser.h"
#include "core/Track.h"

#include <array>
#include <optional>
#include <stop_token>

// Fits a song to the players that there are: so many parts, in each no more than so many notes at once, within the
// ranges of the instruments. The same song always becomes the same.
//
// Who plays what (Seats.h): every part begins as a player of its own. While these are too many, the two are merged that
// cost least; while there are too few, the part gets another player that gains most by one; and where merging two costs
// less than what a third gains, both is done. Drums stay with drums; the melody and the bass have players of their own
// from two players on, the drums from three.
//
// Which voice plays which note (Voices.h): the notes that begin together are given to the voices of all players at the
// least sum of these costs, from the first moment to the last:
//
//   a note that is left out   1,000,000  of the melody's top line
//                                 4,000  of the bass line
//                          500 to 1,000  of any other, more for longer ones, up to a half note
//                                   100  when another note that begins with it doubles it an octave away or in unison,
//                                        and lasts as long: doubled notes go before any other
//   a note that is shortened, since its voice is needed: twice what it costs to leave it out, times the share that is
//                          lost; of a line by the same line: 300 times the share. Nothing but the melody ends a note of
//                          the melody, nothing but these two one of the bass
//   another player            200  or 50 with the same instrument; 2,000 for the bass, and 100,000 for the melody,
//                                  which stays with one player
//   octaves into the range    100  each
//   movement                    2  a semitone from the voice's last note, 24 semitones at most
//   register                    1  a semitone from the middle of what the voice was meant for, 24 at most
//
// So nothing that is not doubled is left out while a voice that can play it is free, and the melody's top line is
// whole: every note that is the highest of its part when it begins is there, and sounds until it ends or the next of
// them begins. Kept notes begin when they did and keep their pitch class.

struct PitchRange
{
    quint32 lowest = lowestPlayablePitch;
    quint32 highest = highestPlayablePitch;

    bool contains(quint32 pitch) const { return pitch >= lowest && pitch <= highest; }
    bool operator==(const PitchRange &) const = default;
};

struct SourcePart
{
    Track track; // normalised
    QString name;
    QString instrument = {};
    PitchRange range = {};     // of the instrument
    bool isPercussion = false; // its pitches are drums: nothing moves them, and nothing doubles them
};

struct ArrangeOptions
{
    int players = 4; // 1 .. mostPlayers
    int voices = 3;  // notes at once of one player, 1 .. mostVoices
    // Parts by number; found when they are not given: the melody by its name, or as the part that is high, sounds often
    // and has few chords, and the bass as the lowest.
    std::optional<int> melody = {};
    std::optional<int> bass = {};

    static constexpr int mostPlayers = 24;
    static constexpr int mostVoices = 8;

    bool operator==(const ArrangeOptions &) const = default;
};

enum class DropReason : quint8 {
    Doubled,    // an octave away, or in unison
    NoVoice,    // no voice was free for it
    OutOfRange, // no instrument can play its pitch class
    NoDrummer,  // there are too few players for drums
    NoLength,
};
constexpr int dropReasonCount = int(DropReason::NoLength) + 1;

// What a part is, and of a part before what became of its notes.
struct PartFigures
{
    int notes = 0;
    std::array<int, dropReasonCount> dropped = {};
    int folded = 0;    // moved by octaves
    int shortened = 0; // end early
    int lent = 0;      // played by another player than the part's own
    std::optional<PitchRange> span = {};
    int mostAtOnce = 0;
    int crossings = 0; // notes that begin above what sounds in the part that is the next higher on average

    int count(DropReason reason) const { return dropped[size_t(reason)]; }
    int droppedInAll() const;
    void add(const PartFigures &other); // the sums; the span over both
};

struct ArrangedPart
{
    Track track; // normalised, its text to be made
    QString name;
    QVector<int> sources; // parts by number; the instrument is that of the first
    PartFigures figures;  // nothing is dropped in it
};

struct Arrangement
{
    QVector<ArrangedPart> parts; // at most as many as there are players; none is empty
    QVector<PartFigures> before; // of the source's parts
    std::optional<int> melody;   // parts by number
    std::optional<int> bass;

    PartFigures sumBefore() const;
    PartFigures sumAfter() const;
};

// Parts in another tempo than the longest are played in that one, at the same moments. Throws Interrupted soon after a
// stop. [any]
Arrangement arrange(const QVector<SourcePart> &parts, const ArrangeOptions &options, const std::stop_token &stop = {});
