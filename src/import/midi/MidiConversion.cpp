#include "import/midi/MidiConversion.h"

#include "base/TextDecoding.h"
#include "core/AbcParser.h"
#include "core/KeyTable.h"
#include "core/Logging.h"

#include <cmath>

namespace {

constexpr quint8 sustainController = 64;
constexpr quint8 resetController = 121; // all controllers, and so the pedal

// A line feed in a title would end the header field.
QString oneLine(QString text)
{
    for (auto &c : text) {
        if (c.category() == QChar::Other_Control)
            c = u' ';
    }
    return text;
}

int foldedPitch(int pitch)
{
    constexpr int octave = 12;
    while (pitch < 0 || (pitch < 60 && !isPlayable(pitch)))
        pitch += octave;
    while (!isPlayable(pitch))
        pitch -= octave;
    return pitch;
}

} // namespace

MidiConversion::MidiConversion(const MidiImportOptions &options, quint16 division, qsizetype fileSize)
    : options_(options), tickScale_(double(ticksPerWholeNote) / (4.0 * division)), limits_(fileSize),
      channels_(new std::array<MidiChannel, 16>) // make_unique would clear 300 kB that nobody reads
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
        channel.sources.clear();
        channel.hasNotes = false;
        channel.changesSeen = 0;
        channel.program = 0;
        channel.programs.clear();
        channel.found.clear();
        channel.pitchOffset = 0;
    }
}

// Chunks play together, but are read one after the other: a pedal that one leaves down holds nothing of the next.
void MidiConversion::beginChunk()
{
    chunks_.addChunk();
    for (auto &channel : *channels_)
        channel.pedalIsDown = false;
}

Ticks MidiConversion::toTicks(quint64 fileTicks) const
{
    const auto ticks = double(fileTicks) * tickScale_ + 0.5; // halves round up
    return ticks < double(maxTicks) ? Ticks(ticks) : maxTicks;
}

void MidiConversion::catchUp(MidiChannel &channel)
{
    limits_.addCopies(changes_.size() - channel.changesSeen);
    for (; channel.changesSeen < changes_.size(); ++channel.changesSeen)
        channel.events.append(changes_[int(channel.changesSeen)]);
}

bool MidiConversion::canBeWritten(int pitch) const
{
    return options_.foldOctaves || isPlayable(pitch);
}

void MidiConversion::finishNote(MidiChannel &channel, int pitch, const ActiveNotes::Note &note, quint64 end)
{
    if (!canBeWritten(pitch)) {
        channel.add(ImportFinding::OutOfRange, toTicks(note.start));
        return;
    }
    if (!isPlayable(pitch)) {
        channel.add(ImportFinding::Folded, toTicks(note.start));
        pitch = foldedPitch(pitch);
    }
    appendNote(channel, pitch, note, end);
}

void MidiConversion::appendNote(MidiChannel &channel, int pitch, const ActiveNotes::Note &note, quint64 end)
{
    if (channel.changesSeen < changes_.size())
        catchUp(channel);
    const auto velocity = options_.processVolume ? float(note.velocity / 127.0) : 1.0F;
    channel.events.append(TrackEvent::note(quint32(pitch), toTicks(note.start), toTicks(end - note.start), velocity));
    channel.hasNotes = true;
    if (channel.sources.isEmpty() || channel.sources.last() != chunks_.current())
        channel.sources.append(chunks_.current());
}

void MidiConversion::noteOn(quint8 channelNumber, quint8 key, quint8 velocity, quint64 now)
{
    auto &channel = (*channels_)[channelNumber];
    if (velocity < options_.velocityGate) {
        channel.add(ImportFinding::BelowVelocityGate, toTicks(now));
        return;
    }
    const int pitch = key + channel.pitchOffset;
    ActiveNotes::Note note{now, velocity, 1, 0, false};
    if (const auto *const sounding = channel.active.find(pitch); sounding != nullptr) {
        note.strikes += sounding->strikes;
        endRestruck(channel, pitch, *sounding, now);
    }
    channel.active.set(pitch, note);
}

// One that began at the same time is the same note.
void MidiConversion::endRestruck(MidiChannel &channel, int pitch, const ActiveNotes::Note &note, quint64 now)
{
    const bool isEnded = note.isHeldByPedal || options_.endRestruck;
    const auto end = note.released > note.start && !channel.pedalIsDown ? note.released : now;
    if (isEnded && end > note.start)
        finishNote(channel, pitch, note, end);
    else
        channel.add(ImportFinding::Restruck, toTicks(note.start));
}

// A key that was struck again is released as often as it was struck, but some programs release it once. So the note
// ends with the last release before the next strike.
void MidiConversion::noteOff(quint8 channelNumber, quint8 key, quint64 now)
{
    auto &channel = (*channels_)[channelNumber];
    const int pitch = key + channel.pitchOffset;
    auto *const note = channel.active.find(pitch);
    if (note == nullptr || note->isHeldByPedal)
        return;
    if (options_.endRestruck && --note->strikes > 0) {
        note->released = now;
    } else if (channel.pedalIsDown) {
        note->isHeldByPedal = true;
        note->strikes = 0;
    } else {
        finishNote(channel, pitch, *note, now);
        channel.active.remove(pitch);
    }
}

void MidiConversion::pedal(MidiChannel &channel, bool isDown, quint64 now)
{
    channel.pedalIsDown = isDown;
    if (isDown)
        return;
    channel.active.forEach([&](int pitch, const ActiveNotes::Note &note) {
        if (!note.isHeldByPedal)
            return;
        finishNote(channel, pitch, note, now);
        channel.active.remove(pitch);
    });
}

// Registered parameter 0 is the range of the pitch bend, in semitones.
void MidiConversion::controller(quint8 channelNumber, quint8 number, quint8 value, quint64 now)
{
    auto &channel = (*channels_)[channelNumber];
    auto &parameter = channel.registeredParameter;
    if (number == 6 && parameter == 0)
        channel.bendRange = value;
    else if (number == 100)
        parameter = (parameter & 0xFF00U) | (value & 0x7FU);
    else if (number == 101)
        parameter = ((value & 0x7FU) << 8) | (parameter & 0xFFU);
    else if (options_.sustainPedal && (number == sustainController || number == resetController))
        pedal(channel, number == sustainController && value >= 64, now);
}

void MidiConversion::program(quint8 channelNumber, quint8 program, quint64 now)
{
    auto &channel = (*channels_)[channelNumber];
    channel.program = program % 128;
    if (options_.splitPrograms)
        channel.programs[toTicks(now)] = channel.program;
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
        const bool isOver = note.released > note.start && !channel.pedalIsDown;
        if (note.start != now || !canBeWritten(pitch))
            finishNote(channel, pitch, note, isOver ? note.released : now);
        if (isOver)
            return;
        auto rest = note;
        rest.start = now;
        bent.emplace_back(pitch + change, rest);
    });
    limits_.addBentNotes(qint64(bent.size()));
    channel.active.clear();
    for (const auto &[pitch, note] : bent)
        channel.active.set(pitch, note);
    channel.pitchOffset = offset;
}

QString MidiConversion::decoded(QByteArray name)
{
    while (name.endsWith('\0')) // some programs store the end of their strings, too
        name.chop(1);
    if (!isUtf8(name))
        ++result_.report.undecodedTexts;
    return oneLine(decodeText(name));
}

void MidiConversion::instrumentName(quint8 channel, const QByteArray &name)
{
    const auto text = decoded(name);
    if (channel < channels_->size())
        (*channels_)[channel].names.append(text);
}

void MidiConversion::trackName(const QByteArray &name)
{
    chunks_.setName(decoded(name));
}

void MidiConversion::tempo(quint32 microsecondsPerQuarter, quint64 now)
{
    if (microsecondsPerQuarter == 0)
        return;
    const auto tempo =
        options_.exactTempo ? exactTempo(microsecondsPerQuarter) : truncatedTempo(microsecondsPerQuarter);
    if (!options_.mergeChannels)
        tempoList_[toTicks(now)] = tempo;
    else if (now == 0)
        start_.tempo = tempo;
    else
        appendChange(tempo.eventAt(toTicks(now)));
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
            if (note.isHeldByPedal || note.released > note.start) {
                finishNote(channel, pitch, note, note.isHeldByPedal ? now : note.released);
                return;
            }
            qCDebug(notationLog, "WARNING: Unterminated notes found at track end!\n");
            if (options_.foldOctaves && !isPlayable(pitch)) {
                finishNote(channel, pitch, note, now);
            } else if (pitch < 0) {
                channel.add(ImportFinding::OutOfRange, toTicks(note.start));
                return;
            } else {
                appendNote(channel, pitch, note, now);
            }
            channel.add(ImportFinding::Unterminated, toTicks(note.start));
        });
        channel.active.clear();
    }
}

void MidiConversion::dropActiveNotes()
{
    for (auto &channel : *channels_) {
        channel.active.forEach(
            [&](int, const ActiveNotes::Note &note) { channel.add(ImportFinding::Unterminated, toTicks(note.start)); });
        channel.active.clear();
    }
}

QVector<MidiPart> MidiConversion::takeGroupParts()
{
    const auto programs = options_.splitPrograms ? ProgramParts::Split : ProgramParts::Joined;
    QVector<MidiPart> parts;
    for (int c = 0; c < int(channels_->size()); ++c) {
        auto &channel = (*channels_)[size_t(c)];
        if (!channel.hasNotes) {
            for (const auto &[program, found] : channel.found)
                result_.elsewhere.add(found);
            continue;
        }
        catchUp(channel);
        parts += takeParts(channel, c, programs, limits_);
    }
    return parts;
}

void MidiConversion::endGroup()
{
    auto parts = takeGroupParts();
    const auto trackTitles = chunks_.titles(parts, *channels_);
    for (int i = 0; i < parts.size(); ++i) {
        limits_.addTrack();
        const int channel = parts[i].channel;
        const int number = options_.mergeChannels ? channel + 1 : titleNumber_++;
        auto titles = (*channels_)[size_t(channel)].names;
        if (!trackTitles[i].isEmpty())
            titles.prepend(trackTitles[i]);
        titles.append(QStringLiteral("Track %1 - %2").arg(number).arg(instrumentTitle(parts[i])));
        result_.parts.append(parts[i].report);
        result_.tracks.append(midiTrack(std::move(parts[i]), titles, start_));
    }
}

void MidiConversion::applyTempoList()
{
    for (auto &track : result_.tracks) {
        limits_.addCopies(qint64(tempoList_.size()));
        for (const auto &[time, tempo] : tempoList_)
            setTempo(track, time, tempo);
    }
}

ImportResult MidiConversion::finish(const std::stop_token &stop)
{
    applyTempoList();
    finishTracks(result_, options_, stop);
    return std::move(result_);
}
