#include "import/standard/ForeignNotation.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

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

QStringList differencesFromTheGame(const QVector<StandardTune> &tunes, const QVector<GameReading> &ofTheGame)
{
    bool hasRepeats = false;
    bool hasVoices = false;
    bool hasOtherTempo = false;
    bool hasOtherNotes = tunes.size() != ofTheGame.size();
    bool hasRefused = false;
    PartReport found;
    for (const auto &reading : ofTheGame) {
        found.add(reading.report);
        hasRefused |= !reading.track;
    }
    for (int i = 0; i < tunes.size(); ++i) {
        const auto &tune = tunes[i];
        hasRepeats |= tune.repeatsPlayed > 0;
        hasVoices |= tune.voices.size() > 1;
        if (tune.voices.size() != 1 || i >= ofTheGame.size() || !ofTheGame[i].track)
            continue;
        const auto &track = tune.voices.first().track;
        const auto &other = *ofTheGame[i].track;
        hasOtherTempo |= track.ticksPerMinute() != other.ticksPerMinute();
        hasOtherNotes |= !haveSameNotes(track, other);
    }
    const bool hasOthers = hasRepeats || hasVoices || hasOtherNotes;
    const auto isFound = [&](ImportFinding finding) { return hasOthers && found.count(finding) > 0; };
    const bool areBarLines = isFound(ImportFinding::BarLineSilence) || isFound(ImportFinding::BarLineOverlap);
    const bool areTies = isFound(ImportFinding::TieLost);
    const std::pair<bool, QString> all[]{
        {hasRepeats, Texts::tr("repeats")},
        {hasVoices, Texts::tr("voices")},
        {hasOtherTempo, Texts::tr("tempo")},
        {areBarLines, Texts::tr("bar lines")},
        {areTies, Texts::tr("ties")},
        {hasRefused, Texts::tr("signs that it cannot read")},
        {hasOtherNotes && !(hasRepeats || hasVoices || areBarLines || areTies || hasRefused),
         Texts::tr("accidentals or note lengths")},
    };
    QStringList differences;
    for (const auto &[is, words] : all) {
        if (is)
            differences.append(words);
    }
    return differences;
}
