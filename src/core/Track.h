#pragma once

#include "core/TrackEvent.h"

#include <QMap>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVector>

// The notation of one instrument part: ABC header fields, the tempo and metre at tick 0, and a time-ordered list of
// events. A value; copies share their containers until one is changed. Whoever adds or changes events ends with
// normalize().
class Track
{
public:
    // Header fields by letter ("T", "K", …), each with its values in the order met.
    const QMap<QString, QStringList> &headerFields() const { return headerFields_; }
    QStringList headerFields(const QString &letter) const { return headerFields_.value(letter); }
    QString headerField(const QString &letter, const QString &fallback = {}) const;
    bool hasHeaderField(const QString &letter) const { return !headerFields(letter).isEmpty(); }
    void setHeaderField(const QString &letter, const QString &value) { headerFields_[letter] = QStringList(value); }
    void appendHeaderField(const QString &letter, const QString &value) { headerFields_[letter].append(value); }
    void setHeaderFields(const QMap<QString, QStringList> &fields) { headerFields_ = fields; }

    // The first "T" value, or "Untitled".
    QString title() const;

    qint64 ticksPerMinute() const { return ticksPerMinute_; }
    void setTempo(qint64 ticksPerMinute) { ticksPerMinute_ = ticksPerMinute; }

    quint32 measureTicks() const { return measureTicks_; }
    quint32 beatsPerMeasure() const { return beatsPerMeasure_; }
    void setMetre(quint32 measureTicks, quint32 beatsPerMeasure);

    // Where measures begin behind the start, in ticks ascending, as the source had them: its metre alone does not say
    // how long a pick-up is. Empty when it is not known.
    const QVector<Ticks> &barLines() const { return barLines_; }
    void setBarLines(const QVector<Ticks> &barLines) { barLines_ = barLines; }

    // The end of the last event; as of the last normalize().
    Ticks length() const { return length_; }

    const QVector<TrackEvent> &events() const { return events_; }
    QVector<TrackEvent> &editEvents() { return events_; }
    void appendEvent(const TrackEvent &event) { events_.append(event); }

    int noteCount() const;
    QMap<quint32, int> pitchCounts() const;

    // Index of the first event that starts at the tick or later; the list's size when there is none. The list must be
    // normalised.
    int firstEventAtOrAfter(Ticks tick) const;

    // Sorts the events by start, then length, keeping the order of equals; removes events that change nothing or are
    // replaced at the same tick; recomputes length().
    void normalize();

    // The track as ABC text. When it has none yet, the writer makes it, adds the missing X, L and K fields and sets the
    // notes' text positions.
    const QString &toAbc();
    bool hasAbc() const { return !abc_.isEmpty(); }
    void setAbc(const QString &abc) { abc_ = abc; }
    void clearAbc() { abc_.clear(); }

    // The file that the track was read from or saved to; empty when there is none.
    const QString &filePath() const { return filePath_; }
    void setFilePath(const QString &path) { filePath_ = path; }

private:
    QMap<QString, QStringList> headerFields_;
    qint64 ticksPerMinute_ = defaultTicksPerMinute;
    quint32 measureTicks_ = quint32(ticksPerWholeNote);
    quint32 beatsPerMeasure_ = 4;
    Ticks length_ = 0;
    QVector<TrackEvent> events_;
    QVector<Ticks> barLines_;
    QString abc_;
    QString filePath_;
};

Q_DECLARE_METATYPE(Track)
