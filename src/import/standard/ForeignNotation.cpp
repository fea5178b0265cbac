#include "import/standard/ForeignNotation.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

namespace {

QVector<TrackEvent> notesOf(const Track &track)
{
    QVector<TrackEvent> notes;
    std::copy_if(track.events().begin(), track.events().end(), std::back_inserter(notes),
                 [](const TrackEvent &event) { return event.isNote(); });
    return notes;
}

bool haveSameNotes(const Track &a, const Track &b)
{
    const auto isSame = [](const TrackEvent &one, const TrackEvent &other) {
        return one.start() == other.start() && one.length() == other.length() && one.pitch() == other.pitch();
    };
    const auto notes = notesOf(a);
    const auto others = notesOf(b);
    return std::equal(notes.begin(), notes.end(), others.begin(), others.end(), isSame);
}

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ForeignNotation)
};

} // namespace

bool isWrittenForTheGame(const QString &text)
{
    static const QRegularExpression mark(QStringLiteral("^(?:Z:.*Kelvarion Composer|I:\\s*Instrument:)"),
                                         QRegularExpression::MultilineOption);
    return !text.contains(u'|') || mark.match(text).hasMatch();
}

QStringList differencesFromTheGame(const QVector<StandardTune> &tunes, const QVector<Track> &asTheGameReads)
{
    bool hasRepeats = false;
    bool hasVoices = false;
    bool hasOtherTempo = false;
    bool hasOtherNotes = tunes.size() != asTheGameReads.size();
    for (int i = 0; i < tunes.size(); ++i) {
        const auto &tune = tunes[i];
        hasRepeats |= tune.repeatsPlayed > 0;
        hasVoices |= tune.voices.size() > 1;
        if (tune.voices.size() != 1 || i >= asTheGameReads.size())
            continue;
        const auto &track = tune.voices.first().track;
        hasOtherTempo |= track.ticksPerMinute() != asTheGameReads[i].ticksPerMinute();
        hasOtherNotes |= !haveSameNotes(track, asTheGameReads[i]);
    }
    QStringList differences;
    if (hasRepeats)
        differences.append(Texts::tr("repeats"));
    if (hasVoices)
        differences.append(Texts::tr("voices"));
    if (hasOtherTempo)
        differences.append(Texts::tr("tempo"));
    if (hasOtherNotes && !hasRepeats && !hasVoices)
        differences.append(Texts::tr("bar lines, ties or accidentals"));
    return differences;
}
