#include "import/MidiConversion.h"

#include "base/Interrupted.h"
#include "base/TextDecoding.h"
#include "core/AbcParser.h"
#include "core/KeyTable.h"
#include "core/Logging.h"
#include "import/ProgramNames.h"
#include "import/Realign.h"
#include "import/UnitLength.h"

#include <cmath>

namespace {

constexpr quint8 softestVelocity = 8;
constexpr int percussionChannel = 9;

const QString &titleField()
{
    static const auto letter = QStringLiteral("T");
    return letter;
}

const QString &tempoField()
{
    static const auto letter = QStringLiteral("Q");
    return letter;
}

QString tempoText(quint32 bpm)
{
    return QStringLiteral("1/4=%1").arg(bpm);
}

// A line feed in a title would end the header field.
QString oneLine(QString text)
{
    for (auto &c : text) {
        if (c.category() == QChar::Other_Control)
            c = u' ';
    }
    return text;
}

} // namespace

MidiConversion::MidiConversion(const MidiImportOptions &options, quint16 division, qsizetype fileSize)
    : options_(options), tickScale_(double(ticksPerWholeNote) / (4.0 * division)), limits_(fileSize),
      channels_(new std::array<Channel, 16>) // make_unique would clear 300 kB that nobody reads
{
}

void MidiConversion::beginGroup()
{
    changes_.clear();
    start_ = {};
    for (auto &channel : *channels_) {
        channel.active.clear();
        channel.names.clear();
        channel.events = {};
        channel.hasNotes = false;
        channel.changesSeen = 0;
        channel.program = 0;
        channel.pitchOffset = 0;
    }
}

Ticks MidiConversion::toTicks(quint64 fileTicks) const
{
    const auto ticks = double(fileTicks) * tickScale_ + 0.5; // halves round up
    return ticks < double(maxTicks) ? Ticks(ticks) : maxTicks;
}

void MidiConversion::catchUp(Channel &channel)
{
    limits_.addCopies(changes_.size() - channel.changesSeen);
    for (; channel.changesSeen < changes_.size(); ++channel.changesSeen)
        channel.events.append(changes_[int(channel.changesSeen)]);
}

void MidiConversion::appendNote(Channel &channel, int pitch, const ActiveNotes::Note &note, quint64 end)
{
    if (channel.changesSeen < changes_.size())
        catchUp(channel);
    const auto velocity = options_.processVolume ? float(note.velocity / 127.0) : 1.0F;
    appendInPlace(channel.events,
                  TrackEvent::note(quint32(pitch), toTicks(note.start), toTicks(end - note.start), velocity));
    channel.hasNotes = true;
}

void MidiConversion::noteOn(quint8 channelNumber, quint8 key, quint8 velocity, quint64 now)
{
    if (velocity < softestVelocity) {
        ++result_.report.belowVelocityGate;
        return;
    }
    auto &channel = (*channels_)[channelNumber];
    const int pitch = key + channel.pitchOffset;
    if (channel.active.find(pitch) != nullptr)
        ++result_.report.restruck;
    channel.active.set(pitch, {now, velocity});
}

void MidiConversion::noteOff(quint8 channelNumber, quint8 key, quint64 now)
{
    auto &channel = (*channels_)[channelNumber];
    const int pitch = key + channel.pitchOffset;
    const auto *const note = channel.active.find(pitch);
    if (note == nullptr)
        return;
    if (isPlayable(pitch))
        appendNote(channel, pitch, *note, now);
    else
        ++result_.report.outOfRange;
    channel.active.remove(pitch);
}

// Registered parameter 0 is the range of the pitch bend, in semitones.
void MidiConversion::controller(quint8 channelNumber, quint8 number, quint8 value)
{
    auto &channel = (*channels_)[channelNumber];
    auto &parameter = channel.registeredParameter;
    if (number == 6 && parameter == 0)
        channel.bendRange = value;
    else if (number == 100)
        parameter = (parameter & 0xFF00U) | (value & 0x7FU);
    else if (number == 101)
        parameter = ((value & 0x7FU) << 8) | (parameter & 0xFFU);
}

void MidiConversion::program(quint8 channel, quint8 program)
{
    (*channels_)[channel].program = program % 128;
}

// ABC has no bends, so every sounding note is cut and goes on as a new note at the nearest semitone.
void MidiConversion::pitchBend(quint8 channelNumber, int value, quint64 now)
{
    auto &channel = (*channels_)[channelNumber];
    const int offset = int(std::round(channel.bendRange * 2 * (value / 16384.0 - 0.5)));
    const int change = offset - channel.pitchOffset;
    if (!options_.pitchBend || change == 0)
        return;
    std::vector<std::pair<int, ActiveNotes::Note>> bent;
    channel.active.forEach([&](int pitch, const ActiveNotes::Note &note) {
        if (!isPlayable(pitch))
            ++result_.report.outOfRange;
        else if (note.start != now)
            appendNote(channel, pitch, note, now);
        bent.emplace_back(pitch + change, ActiveNotes::Note{now, note.velocity});
    });
    limits_.addBentNotes(qint64(bent.size()));
    channel.active.clear();
    for (const auto &[pitch, note] : bent)
        channel.active.set(pitch, note);
    channel.pitchOffset = offset;
}

void MidiConversion::instrumentName(quint8 channel, QByteArray name)
{
    while (name.endsWith('\0')) // some programs store the end of their strings, too
        name.chop(1);
    if (!isUtf8(name))
        ++result_.report.undecodedTexts;
    if (channel < channels_->size())
        (*channels_)[channel].names.append(oneLine(decodeText(name)));
}

void MidiConversion::tempo(quint32 microsecondsPerQuarter, quint64 now)
{
    if (microsecondsPerQuarter == 0)
        return;
    const quint32 bpm = 60'000'000 / microsecondsPerQuarter;
    if (!options_.mergeChannels) {
        tempoList_[toTicks(now)] = bpm;
    } else if (now == 0) {
        start_.tempo = tempoText(bpm);
        start_.ticksPerMinute = bpm * ticksPerQuarter;
    } else {
        appendChange(TrackEvent::tempo(toTicks(now), 1, 4, bpm));
    }
}

void MidiConversion::timeSignature(quint8 numerator, quint8 denominatorPower, quint64 now)
{
    if (denominatorPower > 31)
        return;
    const quint32 denominator = 1U << denominatorPower;
    if (now == 0) {
        start_.metre = QStringLiteral("%1/%2").arg(numerator).arg(denominator);
        start_.measureTicks = quint32(ticksPerWholeNote) / denominator * numerator;
        start_.beatsPerMeasure = numerator;
    } else {
        appendChange(TrackEvent::metre(toTicks(now), numerator, denominator));
    }
}

void MidiConversion::keySignature(int sharps, int mode, quint64 now)
{
    if (sharps < -7 || sharps > 7 || mode < 0 || mode > 1)
        return;
    const auto row = quint32(int(neutralKeyRow) - sharps);
    if (now == 0)
        start_.key = KeyTable::keyName(row, quint32(mode));
    else
        appendChange(TrackEvent::key(toTicks(now), row, quint32(mode)));
}

// Deliberately without the test for the playable range.
void MidiConversion::closeActiveNotes(quint64 now)
{
    for (auto &channel : *channels_) {
        channel.active.forEach([&](int pitch, const ActiveNotes::Note &note) {
            qCDebug(notationLog, "WARNING: Unterminated notes found at track end!\n");
            if (pitch < 0) {
                ++result_.report.outOfRange;
                return;
            }
            ++result_.report.unterminated;
            appendNote(channel, pitch, note, now);
        });
        channel.active.clear();
    }
}

void MidiConversion::dropActiveNotes()
{
    for (auto &channel : *channels_) {
        channel.active.forEach([&](int, const ActiveNotes::Note &) { ++result_.report.unterminated; });
        channel.active.clear();
    }
}

Track MidiConversion::makeTrack(Channel &channel, const QString &title) const
{
    Track track;
    for (const auto &name : channel.names + QStringList(title))
        track.appendHeaderField(titleField(), name);
    if (!start_.tempo.isEmpty()) {
        track.setHeaderField(tempoField(), start_.tempo);
        track.setTempo(start_.ticksPerMinute);
    }
    if (!start_.metre.isEmpty()) {
        track.setHeaderField(QStringLiteral("M"), start_.metre);
        track.setMetre(start_.measureTicks, start_.beatsPerMeasure);
    }
    if (!start_.key.isEmpty())
        track.setHeaderField(QStringLiteral("K"), start_.key);
    track.editEvents() = std::move(channel.events);
    return track;
}

void MidiConversion::endGroup()
{
    for (int c = 0; c < int(channels_->size()); ++c) {
        auto &channel = (*channels_)[size_t(c)];
        if (!channel.hasNotes)
            continue;
        limits_.addTrack();
        catchUp(channel);
        const auto name = c == percussionChannel ? QStringLiteral("Percussion") : programName(channel.program);
        const int number = options_.mergeChannels ? c + 1 : titleNumber_++;
        result_.tracks.append(makeTrack(channel, QStringLiteral("Track %1 - %2").arg(number).arg(name)));
    }
}

void MidiConversion::applyTempoList(Track &track)
{
    limits_.addCopies(qint64(tempoList_.size()));
    for (const auto &[time, bpm] : tempoList_) {
        if (time == 0) {
            track.setHeaderField(tempoField(), tempoText(bpm));
            track.setTempo(bpm * ticksPerQuarter);
        } else {
            track.appendEvent(TrackEvent::tempo(time, 1, 4, bpm));
        }
    }
}

Track MidiConversion::finished(Track track)
{
    applyTempoList(track);
    if (!track.hasHeaderField(tempoField()))
        track.setHeaderField(tempoField(), tempoText(120));
    track.normalize();
    if (options_.autoRealign)
        track = realign(std::move(track), SnapGrid::quick(), &result_.report.shifts);
    if (!options_.mergeChannels) {
        const auto denominator = options_.autoDetectUnitLength ? detectUnitLength(track) : 4;
        track.setHeaderField(QStringLiteral("L"), unitLengthText(denominator));
    }
    return track;
}

ImportResult MidiConversion::finish(const std::stop_token &stop)
{
    // Each track leaves the list before it is worked on, so that its events are not copied more often than needed.
    for (auto &track : result_.tracks) {
        throwIfStopped(stop);
        track = finished(std::move(track));
    }
    return std::move(result_);
}
