#include "export/MidiExport.h"

#include "assets/ProgramInstruments.h"
#include "base/Interrupted.h"
#include "core/HeaderFields.h"
#include "core/KeyTable.h"
#include "export/MidiChunk.h"
#include "export/MidiTempo.h"

#include <QCoreApplication>

#include <array>
#include <bit>
#include <numeric>

namespace {

constexpr quint8 percussionChannel = 9;
constexpr quint8 channelPrefix = 0x20;
constexpr quint8 midiPort = 0x21;
constexpr quint32 pitchCount = 128;

struct Place
{
    quint8 port;
    quint8 channel;
};

// Channels of their own for all but percussion, which has the tenth.
class Channels
{
public:
    Place next(bool isPercussion)
    {
        if (isPercussion)
            return {0, percussionChannel};
        constexpr int channelsOfPort = 15;
        const int channel = used_ % channelsOfPort;
        const int port = used_++ / channelsOfPort;
        return {quint8(std::min(port, 127)), quint8(channel < percussionChannel ? channel : channel + 1)};
    }

private:
    int used_ = 0;
};

// A part's notes as one channel can play them: at each pitch one after the other.
class ChannelNotes
{
public:
    explicit ChannelNotes(MidiExport &result) : result_(result) { last_.fill(-1); }

    // By their starts.
    void add(TrackEvent note)
    {
        if (note.pitch() >= pitchCount) {
            ++result_.leftOut;
            return;
        }
        auto &last = last_[note.pitch()];
        if (last >= 0 && notes_[size_t(last)].start() == note.start())
            return merge(notes_[size_t(last)], note);
        if (last >= 0 && notes_[size_t(last)].end() > note.start())
            cut(notes_[size_t(last)], note.start());
        last = qsizetype(notes_.size());
        notes_.push_back(note);
    }

    const std::vector<TrackEvent> &notes() const { return notes_; }

private:
    void merge(TrackEvent &one, const TrackEvent &other)
    {
        ++result_.cutNotes;
        if (other.end() > one.end())
            one = other;
    }
    void cut(TrackEvent &note, Ticks end)
    {
        ++result_.cutNotes;
        note.setLength(end - note.start());
    }

    MidiExport &result_;
    std::array<qsizetype, pitchCount> last_;
    std::vector<TrackEvent> notes_;
};

struct KeyChange
{
    Ticks at;
    HeaderFields::Key key;
};

std::vector<KeyChange> keysOf(const Track &track)
{
    std::vector<KeyChange> keys;
    if (const auto key = HeaderFields::findKey(track.headerField(QStringLiteral("K"), QStringLiteral("C"))))
        keys.push_back({0, *key});
    for (const auto &event : track.events()) {
        if (event.kind() == TrackEvent::Key)
            keys.push_back({event.start(), {event.keyIndex(), event.keyMode()}});
    }
    return keys;
}

bool areSame(const std::vector<KeyChange> &a, const std::vector<KeyChange> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const KeyChange &one, const KeyChange &other) {
        return one.at == other.at && one.key.row == other.key.row && one.key.mode == other.key.mode;
    });
}

// Of the modes MIDI knows major and minor; the others have their accidentals.
void addKeys(MidiChunk &chunk, const std::vector<KeyChange> &keys, const TempoPlaces &places)
{
    for (const auto &[at, key] : keys)
        chunk.addKey(places.of(at), qint8(int(neutralKeyRow) - int(key.row)), key.mode == Minor ? 1 : 0);
}

// Only halves of halves can be written.
void addMetre(MidiChunk &chunk, Ticks at, quint32 numerator, quint32 denominator)
{
    if (numerator > 0 && numerator <= 255 && std::has_single_bit(denominator))
        chunk.addMetre(at, quint8(numerator), quint8(std::countr_zero(denominator)));
}

void addMetres(MidiChunk &chunk, const Track &track, const TempoPlaces &places)
{
    const auto metre = HeaderFields::parseMetre(track.headerField(QStringLiteral("M")));
    addMetre(chunk, 0, metre.numerator, metre.denominator);
    for (const auto &event : track.events()) {
        if (event.kind() == TrackEvent::Metre)
            addMetre(chunk, places.of(event.start()), event.numerator(), event.denominator());
    }
}

class MidiExporter
{
public:
    MidiExporter(const QVector<ExportedPart> &parts, const std::stop_token &stop)
        : parts_(parts), stop_(stop), tempo_(tracksOf(parts)), keys_(keysOf(tempo_.leader()))
    {
    }
    MidiExport run(const QString &title);

private:
    static QVector<Track> tracksOf(const QVector<ExportedPart> &parts);
    MidiChunk conductor(const QString &title) const;
    MidiChunk chunkOf(const ExportedPart &part);
    void addNotes(MidiChunk &chunk, const Track &track, quint8 channel, const TempoPlaces &places);
    Ticks quarterUnits(const std::vector<MidiChunk> &chunks) const;

    const QVector<ExportedPart> &parts_;
    const std::stop_token &stop_;
    MidiTempo tempo_;
    std::vector<KeyChange> keys_;
    Channels channels_;
    MidiExport result_;
};

QVector<Track> MidiExporter::tracksOf(const QVector<ExportedPart> &parts)
{
    QVector<Track> tracks;
    for (const auto &part : parts)
        tracks.append(part.track);
    return tracks;
}

MidiChunk MidiExporter::conductor(const QString &title) const
{
    MidiChunk chunk;
    chunk.addText(MidiChunk::TrackName, title);
    const auto &leader = tempo_.leader();
    const auto places = tempo_.placesOf(leader);
    addMetres(chunk, leader, places);
    addKeys(chunk, keys_, places);
    for (const auto &change : tempo_.changes())
        chunk.addTempo(change.at, change.microsecondsPerQuarter);
    chunk.endAt(places.of(leader.length()));
    return chunk;
}

MidiChunk MidiExporter::chunkOf(const ExportedPart &part)
{
    const bool isPercussion = part.program == ProgramInstruments::percussion;
    const auto [port, channel] = channels_.next(isPercussion);
    MidiChunk chunk;
    chunk.addText(MidiChunk::TrackName, part.name);
    if (port > 0)
        chunk.addMeta(midiPort, QByteArray(1, char(port)));
    if (!part.instrument.isEmpty()) {
        chunk.addMeta(channelPrefix, QByteArray(1, char(channel)));
        chunk.addText(MidiChunk::InstrumentName, part.instrument);
    }
    if (part.program && !isPercussion)
        chunk.addProgram(channel, quint8(*part.program));

    const auto places = tempo_.placesOf(part.track);
    result_.movedParts += places.areMoved() ? 1 : 0;
    if (const auto keys = keysOf(part.track); !areSame(keys, keys_))
        addKeys(chunk, keys, places);
    addNotes(chunk, part.track, channel, places);
    chunk.endAt(places.of(part.track.length()));
    return chunk;
}

void MidiExporter::addNotes(MidiChunk &chunk, const Track &track, quint8 channel, const TempoPlaces &places)
{
    ChannelNotes notes(result_);
    for (auto event : track.events()) {
        throwIfStopped(stop_);
        if (!event.isNote())
            continue;
        const auto end = places.of(event.end());
        event.setStart(places.of(event.start()));
        event.setLength(end - event.start());
        notes.add(event);
    }
    for (const auto &note : notes.notes())
        chunk.addNote(channel, note);
}

// Of a quarter note, so that all times are whole: 480, which is usual, or the smallest multiple of it that will do.
Ticks MidiExporter::quarterUnits(const std::vector<MidiChunk> &chunks) const
{
    constexpr Ticks usual = 480;
    auto divisor = ticksPerQuarter / usual;
    for (const auto &chunk : chunks)
        divisor = std::gcd(divisor, chunk.commonDivisor());
    return ticksPerQuarter / divisor;
}

MidiExport MidiExporter::run(const QString &title)
{
    constexpr int mostParts = 0xFFFE;
    if (parts_.size() > mostParts)
        throw QCoreApplication::translate("MidiExport", "A MIDI file has at most %1 parts.").arg(mostParts);
    std::vector<MidiChunk> chunks{conductor(title)};
    for (const auto &part : parts_)
        chunks.push_back(chunkOf(part));
    const auto units = quarterUnits(chunks);
    result_.bytes = "MThd";
    appendNumber(result_.bytes, 6, 4);
    appendNumber(result_.bytes, 1, 2);
    appendNumber(result_.bytes, quint32(chunks.size()), 2);
    appendNumber(result_.bytes, quint32(units), 2);
    for (const auto &chunk : chunks) {
        throwIfStopped(stop_);
        result_.bytes += chunk.bytes(ticksPerQuarter / units);
    }
    return std::move(result_);
}

} // namespace

MidiExport exportMidi(const QString &title, const QVector<ExportedPart> &parts, const std::stop_token &stop)
{
    return MidiExporter(parts, stop).run(title);
}
