#include "song/preview/ImportPreview.h"

#include "base/Interrupted.h"
#include "import/EachTrack.h"
#include "song/ChosenTunes.h"

#include <algorithm>

namespace {

// Parts that nothing tells apart are numbered.
QStringList keysOf(const ReadSong &song)
{
    QHash<QString, int> met;
    QStringList keys;
    for (int i = 0; i < song.tracks.size(); ++i) {
        const auto key = keyOf(song.tracks[i], song.parts.value(i));
        keys.append(QStringLiteral("%1#%2").arg(key).arg(++met[key]));
    }
    return keys;
}

} // namespace

ImportPreview::ImportPreview(const QVector<SongSource> &sources, const ProposalBasis &basis, QObject *parent)
    : QObject(parent), sources_(sources), basis_(basis)
{
}

void ImportPreview::show(const ReadSong &song, const ReadingOptions &options)
{
    options_ = options;
    tunes_.clear();
    for (const auto &each : song.converted) {
        const auto tunes = tunesWithTracks(song, each.source);
        tunes_.insert(each.source, QSet<int>(tunes.begin(), tunes.end()));
    }
    start([song](const TaskControl &) { return song; });
}

void ImportPreview::read(const ReadingOptions &options)
{
    options_ = options;
    options_.tracks = ReadingOptions::Tracks::ToBeShown;
    start([sources = sources_, tunes = tunes_, wanted = options_](const TaskControl &control) {
        auto song = readSong(sources, wanted, control.stop(), [](int) {});
        for (const auto &each : QVector<ConvertedAbc>(song.converted))
            keepTunes(song, each.source, tunes.value(each.source));
        return song;
    });
}

void ImportPreview::start(const std::function<ReadSong(const TaskControl &)> &source)
{
    settling_.cancel();
    unsettled_.clear();
    const auto work = [source, choices = choices_, basis = basis_](const TaskControl &control) {
        return preview(source(control), choices, basis, control);
    };
    const auto fail = [this](const QString &error) {
        failure_ = error;
        takeReading({});
    };
    const auto take = [this](const Reading &reading) {
        failure_.clear();
        takeReading(reading);
    };
    reading_.start(work, take, fail);
}

ImportPreview::Reading ImportPreview::preview(const ReadSong &song, const Choices &choices, const ProposalBasis &basis,
                                              const TaskControl &control)
{
    Reading reading{song, Parts(song.tracks.size()), keysOf(song)};
    auto *const parts = reading.parts.data();
    forEachTrack(song.tracks, control.stop(), [&](int number) {
        auto &part = parts[number];
        part = PartPreview(song.tracks[number], song.parts.value(number));
        part.settle(choices.value(reading.keys.at(number)), basis);
    });
    return reading;
}

void ImportPreview::takeReading(const Reading &reading)
{
    settling_.cancel();
    song_ = reading.song;
    parts_ = reading.parts;
    keys_ = reading.keys;
    unsettled_.clear();
    emit partsChanged();
    for (int i = 0; i < parts_.size(); ++i) { // what was chosen meanwhile
        if (parts_[i].instrument() != instrument(i) || parts_[i].octaves() != octaves(i))
            settle(i);
    }
    if (!settling_.isRunning())
        emit settled();
}

void ImportPreview::take(int part, bool isTaken)
{
    choices_[keys_[part]].isTaken = isTaken;
    emit takenChanged();
}

void ImportPreview::takeAll(bool areTaken)
{
    for (const auto &key : qAsConst(keys_))
        choices_[key].isTaken = areTaken;
    emit takenChanged();
}

void ImportPreview::setInstrument(int part, const QString &name)
{
    choices_[keys_[part]].instrument = name;
    settle(part);
}

void ImportPreview::setOctaves(int part, int octaves)
{
    choices_[keys_[part]].octaves = octaves;
    settle(part);
}

void ImportPreview::settle(int part)
{
    emit partChanged(part);
    if (!unsettled_.contains(part))
        unsettled_.append(part);
    QVector<std::pair<PartPreview, PartChoice>> todo;
    for (const int number : qAsConst(unsettled_))
        todo.append({parts_[number], choice(number)});
    const auto work = [todo, basis = basis_](const TaskControl &control) {
        Parts done;
        for (const auto &[unsettled, choice] : todo) {
            throwIfStopped(control.stop());
            done.append(unsettled);
            done.last().settle(choice, basis);
        }
        return done;
    };
    const auto take = [this, numbers = unsettled_](const Parts &parts) { takeSettled(numbers, parts); };
    settling_.start(work, take, [this](const QString &error) {
        failure_ = error;
        takeReading({});
    });
}

void ImportPreview::takeSettled(const QVector<int> &numbers, const Parts &parts)
{
    unsettled_.clear();
    for (int i = 0; i < numbers.size(); ++i) {
        parts_[numbers[i]] = parts[i];
        emit partChanged(numbers[i]);
    }
    if (!reading_.isRunning())
        emit settled();
}

QString ImportPreview::problem() const
{
    if (!failure_.isEmpty() || !parts_.isEmpty())
        return failure_;
    return song_.errors.isEmpty() ? QString() : song_.errors.first().text;
}

QVector<int> ImportPreview::takenParts() const
{
    QVector<int> taken;
    for (int i = 0; i < parts_.size(); ++i) {
        if (isTaken(i))
            taken.append(i);
    }
    return taken;
}

ReadSong ImportPreview::song() const
{
    auto song = song_;
    song.tracks.clear();
    song.parts.clear();
    song.sources.clear();
    song.tunes.clear();
    for (const int i : takenParts()) {
        song.tracks.append(parts_[i].track());
        song.parts.append(parts_[i].report());
        song.sources.append(song_.sources.value(i));
        song.tunes.append(song_.tunes.value(i));
    }
    return song;
}

QStringList ImportPreview::instruments() const
{
    QStringList names;
    for (const int i : takenParts())
        names.append(parts_[i].instrument());
    return names;
}

ProgramInstruments ImportPreview::remembered() const
{
    auto remembered = basis_.remembered;
    for (const int i : takenParts()) {
        const auto chosen = choice(i).instrument;
        if (chosen && parts_[i].program())
            remembered.set(*parts_[i].program(), *chosen);
    }
    return remembered;
}
