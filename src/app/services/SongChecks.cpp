#include "app/services/SongChecks.h"

#include "check/findings/FindingKinds.h"
#include "check/findings/Fixes.h"
#include "core/AbcParser.h"

#include <algorithm>

SongChecks::SongChecks(TrackList &tracks, const InstrumentSetModel &catalogue, const Settings &settings,
                       DefaultInstrument defaultInstrument, QObject *parent)
    : QObject(parent), tracks_(tracks), catalogue_(catalogue), settings_(settings),
      defaultInstrument_(std::move(defaultInstrument))
{
    constexpr int restMs = 200; // so that the steps of one gesture are checked once
    timer_.setInterval(restMs);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &SongChecks::begin);
    connect(&tracks_, &TrackList::songChanged, &timer_, qOverload<>(&QTimer::start));
    connect(&catalogue_, &InstrumentSetModel::modelReset, this, &SongChecks::forget);
    connect(&settings_, &Settings::settingChanged, this, [this](Settings::Setting setting) {
        if (isCheckOption(setting) || setting == Settings::DefaultInstrument)
            timer_.start();
    });
}

// What was found with other instruments does not hold.
void SongChecks::forget()
{
    check_.cancel();
    checked_ = {};
    timer_.start();
}

QVector<CheckedSong::Part> SongChecks::parts() const
{
    QVector<CheckedSong::Part> parts;
    for (const auto &track : tracks_.song())
        parts.append({track->id, track->track, track->instrument.isEmpty() ? defaultInstrument_() : track->instrument});
    return parts;
}

void SongChecks::begin()
{
    const auto options = checkOptions([this](auto setting) { return settings_.value(setting); });
    check_.start(
        [before = checked_, parts = parts(), instruments = catalogue_.instruments(),
         options](const TaskControl &control) { return before.updated(parts, instruments, options, control.stop()); },
        [this](const CheckedSong &song) { take(song); }, [this](const QString &message) { emit failed(message); });
}

void SongChecks::take(const CheckedSong &song)
{
    checked_ = song;
    emit changed();
}

void SongChecks::fix(const QString &trackId, const Finding &finding)
{
    for (const auto &result : checked_.parts()) {
        if (result.part.id == trackId)
            mend(FindingKinds::fixText(finding.kind), {{trackId, result.part.track, finding.fix}});
    }
}

void SongChecks::fixAll(FindingKind kind)
{
    QVector<Mending> parts;
    for (const auto &result : checked_.parts()) {
        const auto changes = combinedFixes(result.alone->findings + result.together, kind);
        if (!changes.isEmpty())
            parts.append({result.part.id, result.part.track, changes});
    }
    mend(FindingKinds::fixText(kind), parts);
}

// Reading takes a while in a long song.
void SongChecks::mend(const QString &step, const QVector<Mending> &parts)
{
    const auto work = [parts](const TaskControl &control) {
        QMap<QString, Track> mended;
        for (const auto &part : parts) {
            auto track = *part.track;
            mended[part.id] = parseAbc(applyChanges(track.toAbc(), part.changes), control.stop());
        }
        return mended;
    };
    const auto done = [this, step, parts](const QMap<QString, Track> &mended) {
        const bool isAsChecked = std::all_of(parts.begin(), parts.end(), [this](const Mending &part) {
            const auto *const track = tracks_.find(part.id);
            return track && track->track == part.track;
        });
        if (isAsChecked && !mended.isEmpty())
            tracks_.setTracks(step, mended);
    };
    mend_.start(work, done, [this](const QString &message) { emit failed(message); });
}
