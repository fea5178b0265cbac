#pragma once

#include "core/AbcElement.h"
#include "core/TrackEvent.h"

#include <QVector>

#include <vector>

class AbcListener;

// Tied notes that wait for their continuation, at most one a pitch.
class PendingTies
{
public:
    bool isEmpty() const { return notes_.empty(); }

    // Null when none waits at the pitch.
    TrackEvent *find(quint32 pitch);
    // None may wait at its pitch.
    void put(const TrackEvent &note) { notes_.push_back(note); }
    void writeTo(QVector<TrackEvent> &events, quint32 pitch);
    // The chord that begins at the tick has a length of its own.
    void scale(Ticks start, const AbcRatio &ratio);

    // All of them, by pitch.
    std::vector<TrackEvent> take();

private:
    std::vector<TrackEvent> notes_;
};

// The events that an ABC text means, in the order in which it writes them, ties joined. Private to AbcParser.
class AbcEvents
{
public:
    explicit AbcEvents(AbcListener *listener) : listener_(listener) {} // may be null

    void reserve(qsizetype count) { events_.reserve(decltype(events_.size())(count)); }

    void append(const TrackEvent &event) { events_.append(event); }

    // The notes of the element, which begins at the tick.
    void sound(const AbcElement &element, Ticks start);

    // Ties that lead nowhere end here.
    QVector<TrackEvent> take();

private:
    void endInterruptedTies(const AbcElement &element, Ticks start);
    void sound(const WrittenNote &note, Ticks start);
    bool endsTie(const WrittenNote &note, Ticks start, Ticks length);
    void finishChord(const AbcElement &chord, Ticks start, qsizetype firstEvent);
    void tieFrom(qsizetype firstEvent);
    void loseTie(const TrackEvent &note);

    AbcListener *listener_;
    QVector<TrackEvent> events_;
    PendingTies ties_;
};
