#include "app/songtools/SourceTracks.h"

#include "song/SongReader.h"
#include "song/SongSource.h"

#include <QRegularExpression>

#include <algorithm>
#include <unordered_set>

namespace {

// ABC is only imported as the standard has it.
ReadingOptions asItIs(const SongSource &source, const QJsonObject &settings)
{
    auto options = readingOptions(settings);
    const bool isAbc = source.kind == SongSource::Kind::AbcFile || source.kind == SongSource::Kind::AbcText;
    options.abc = isAbc ? AbcDialect::Standard : AbcDialect::Auto;
    options.cleanQuantise = false;
    options.midi.autoRealign = false;
    options.midi.velocityGate = 0;
    options.midi.endRestruck = true;
    options.midi.processVolume = true;
    return options;
}

// Where a part has notes, so that others can be known again that were moved to a grid or by octaves.
class NoteImage
{
public:
    explicit NoteImage(const Track &track)
    {
        for (const auto &event : track.events()) {
            if (event.isNote())
                notes_.insert(keyOf(event, 0));
        }
    }

    // How many of the track's notes are there, of 1.
    double shareOf(const Track &track) const
    {
        const auto &events = track.events();
        const auto isHere = [this](const TrackEvent &event) {
            return event.isNote() && (notes_.count(keyOf(event, 0)) > 0 || notes_.count(keyOf(event, -1)) > 0 ||
                                      notes_.count(keyOf(event, 1)) > 0);
        };
        return double(std::count_if(events.begin(), events.end(), isHere)) / std::max(1, track.noteCount());
    }

private:
    static qint64 keyOf(const TrackEvent &note, int aside)
    {
        constexpr Ticks grid = ticksPerWholeNote / 32;
        return (note.start() / grid + aside) * 12 + note.pitch() % 12;
    }

    std::unordered_set<qint64> notes_;
};

void addNotes(Track &track, const Track &other)
{
    for (const auto &event : other.events()) {
        if (event.isNote())
            track.appendEvent(event);
    }
    track.normalize();
}

// How much of a track is in a part, of 1, and more where its name says that it is: an arrangement names up to three of
// its sources, and then how many there are besides.
class PartOfSource
{
public:
    explicit PartOfSource(const Track &track) : title_(track.title()), notes_(track) {}

    double shareOf(const Track &track) const
    {
        static const QRegularExpression andOthers(QStringLiteral(" \\+ \\d+( \\(\\d+\\))?$"));
        const int named = title_.contains(track.title()) ? 2 : title_.contains(andOthers) ? 1 : 0;
        return named + notes_.shareOf(track);
    }

private:
    QString title_;
    NoteImage notes_;
};

// What was arranged, merged or split: each of the tracks sounds with the part that has most of it, and a part whose
// notes sound in others is silent.
void share(SourceTracks &result, const QVector<std::shared_ptr<const SongTrack>> &parts, const QVector<Track> &tracks)
{
    constexpr double enough = 0.25;
    QVector<Track> heard(parts.size());
    QVector<bool> isSource(parts.size(), false);
    std::vector<PartOfSource> images;
    for (const auto &part : parts)
        images.emplace_back(*part->track);
    for (const auto &track : tracks) {
        std::vector<double> shares;
        for (const auto &image : images)
            shares.push_back(image.shareOf(track));
        for (int i = 0; i < parts.size(); ++i)
            isSource[i] |= shares[size_t(i)] >= enough;
        const auto best = std::max_element(shares.begin(), shares.end());
        if (best == shares.end() || *best < enough)
            continue;
        auto &into = heard[int(best - shares.begin())];
        if (into.noteCount() == 0)
            into = track;
        else
            addNotes(into, track);
    }
    for (int i = 0; i < parts.size(); ++i) {
        if (isSource[i])
            result.tracks.insert(parts[i]->id, std::make_shared<const Track>(heard[i]));
    }
}

void assign(SourceTracks &result, const QVector<std::shared_ptr<const SongTrack>> &parts, QVector<Track> tracks)
{
    const bool isWhole = parts.size() == tracks.size();
    const auto take = [&](const SongTrack &part, int index) {
        result.tracks.insert(part.id, std::make_shared<const Track>(tracks.takeAt(index)));
    };
    QVector<std::shared_ptr<const SongTrack>> unnamed;
    for (const auto &part : parts) {
        const auto found = std::find_if(tracks.begin(), tracks.end(),
                                        [&](const Track &track) { return track.title() == part->track->title(); });
        if (found != tracks.end())
            take(*part, int(found - tracks.begin()));
        else
            unnamed.append(part);
    }
    if (!isWhole)
        return share(result, unnamed, tracks);
    for (const auto &part : qAsConst(unnamed))
        take(*part, 0);
}

QVector<std::shared_ptr<const SongTrack>> partsOf(const SongTracks &song, const SongImported &imported)
{
    QVector<std::shared_ptr<const SongTrack>> parts;
    for (const auto &track : song) {
        if (!imported.id.isEmpty() && track->import == imported.id)
            parts.append(track);
    }
    return parts;
}

} // namespace

SourceTracks sourceTracks(const SongTracks &song, const QVector<SongImported> &imports, const std::stop_token &stop)
{
    SourceTracks result;
    for (const auto &imported : imports) {
        const auto parts = partsOf(song, imported);
        if (parts.isEmpty())
            continue;
        const auto source = sourceOf(imported);
        auto read = readSource(source, asItIs(source, imported.settings), stop);
        for (const auto &error : qAsConst(read.errors))
            result.problems.append(imported.path.isEmpty() ? error.text
                                                           : imported.path + QStringLiteral(": ") + error.text);
        read.tracks.erase(std::remove_if(read.tracks.begin(), read.tracks.end(),
                                         [](const Track &track) { return track.noteCount() == 0; }),
                          read.tracks.end());
        assign(result, parts, read.tracks);
    }
    return result;
}
