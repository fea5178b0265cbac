#include "import/midi/MidiImport.h"

#include "base/ByteReader.h"
#include "base/Interrupted.h"
#include "import/midi/MidiConversion.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>

namespace {

constexpr quint32 headerMagic = 0x4D546864; // "MThd"
constexpr quint32 trackMagic = 0x4D54726B;  // "MTrk"
constexpr quint64 chunkHeaderSize = 8;
constexpr quint32 shortestHeader = 6;
constexpr quint8 metaEvent = 0xFF;

[[noreturn]] void failInvalid()
{
    throw QCoreApplication::translate("MidiImport", "Invalid MIDI file.");
}

QString withStatus(const QString &message, quint8 status)
{
    return message.arg(status, 2, 16, QLatin1Char('0'));
}

class MidiReader
{
public:
    MidiReader(const QByteArray &bytes, const MidiImportOptions &options, const std::stop_token &stop)
        : bytes_(bytes), in_(bytes), options_(options), stop_(stop)
    {
    }

    ImportResult read();

private:
    void readHeader();
    void readTracks();
    bool findTrack(int number);
    void readTrack();
    void readEvent();
    void readSystemEvent();
    QByteArray readText(quint64 length);
    void readMetaEvent();
    void readMetaData(quint8 type, quint64 length);

    const QByteArray &bytes_;
    ByteReader in_;
    MidiImportOptions options_;
    const std::stop_token &stop_;
    std::optional<MidiConversion> conversion_;
    int trackCount_ = 0;

    quint64 now_ = 0; // file ticks since the chunk began
    quint8 status_ = 0;
    quint8 channelPrefix_ = 0;
    bool trackEnded_ = false;
};

void MidiReader::readHeader()
{
    if (in_.u32() != headerMagic)
        failInvalid();
    const auto length = in_.u32();
    const auto format = in_.u16();
    trackCount_ = in_.u16();
    const auto division = in_.u16();
    if (format > 1)
        throw QCoreApplication::translate("MidiImport", "Unsupported MIDI type %1.").arg(format);
    if ((division & 0x8000U) != 0)
        throw QCoreApplication::translate("MidiImport", "SMPTE time divisions are currently unsupported.");
    if (division == 0)
        failInvalid();
    if (options_.readAllChunks && length > shortestHeader) // the header is taken to be as short otherwise
        in_.skip(std::min(quint64(length - shortestHeader), in_.left()));
    conversion_.emplace(options_, division, bytes_.size());
}

ImportResult MidiReader::read()
{
    readHeader();
    conversion_->beginGroup();
    readTracks();
    if (options_.mergeChannels)
        conversion_->endGroup();
    return conversion_->finish(stop_);
}

void MidiReader::readTracks()
{
    for (int i = 0; findTrack(i); ++i) {
        if (!options_.mergeChannels)
            conversion_->beginGroup();
        readTrack();
        if (!options_.mergeChannels)
            conversion_->endGroup();
    }
}

// Whether there is one more. Its chunk's length is not used: it ends with its end-of-track event, or with the file.
bool MidiReader::findTrack(int number)
{
    while (options_.readAllChunks ? in_.left() >= chunkHeaderSize : number < trackCount_) {
        const auto magic = in_.u32();
        const auto length = in_.u32();
        if (magic == trackMagic)
            return true;
        if (!options_.readAllChunks)
            failInvalid();
        in_.skip(std::min(quint64(length), in_.left()));
    }
    return false;
}

void MidiReader::readTrack()
{
    conversion_->beginChunk();
    now_ = 0;
    status_ = 0;
    channelPrefix_ = 0;
    trackEnded_ = false;
    while (!trackEnded_ && !in_.atEnd()) {
        throwIfStopped(stop_);
        readEvent();
    }
    if (!trackEnded_)
        conversion_->dropActiveNotes();
}

void MidiReader::readEvent()
{
    now_ += in_.variableLength();
    // A data byte stands for the status byte before it; meta and system events can be repeated like that, too.
    if (in_.peek() >= 0x80)
        status_ = in_.u8();
    const quint8 channel = status_ & 0x0FU;
    switch (status_ >> 4) {
    case 0x8: {
        const auto key = in_.u8();
        in_.skip(1);
        conversion_->noteOff(channel, key, now_);
        break;
    }
    case 0x9: {
        const auto key = in_.u8();
        if (const auto velocity = in_.u8(); velocity == 0)
            conversion_->noteOff(channel, key, now_);
        else
            conversion_->noteOn(channel, key, velocity, now_);
        break;
    }
    case 0xA:
        in_.skip(2);
        break;
    case 0xB: {
        const auto number = in_.u8();
        conversion_->controller(channel, number, in_.u8(), now_);
        break;
    }
    case 0xC:
        conversion_->program(channel, in_.u8(), now_);
        break;
    case 0xD:
        in_.skip(1);
        break;
    case 0xE: {
        const auto low = in_.u8();
        conversion_->pitchBend(channel, (in_.u8() << 7) | low, now_);
        break;
    }
    case 0xF:
        readSystemEvent();
        break;
    default:
        throw withStatus(QCoreApplication::translate("MidiImport", "Unknown MIDI channel event 0x%1."), status_);
    }
}

void MidiReader::readSystemEvent()
{
    if (status_ == metaEvent)
        readMetaEvent();
    else if (status_ == 0xF0 || status_ == 0xF7)
        in_.skip(in_.variableLength());
    else
        throw withStatus(QCoreApplication::translate("MidiImport", "Unknown MIDI system event 0x%1."), status_);
}

// A file that ends early gives what there is.
QByteArray MidiReader::readText(quint64 length)
{
    const auto text = in_.bytes(std::min(length, in_.left()));
    return {text.data(), int(text.size())};
}

void MidiReader::readMetaEvent()
{
    const auto type = in_.u8();
    const auto length = in_.variableLength();
    if (type == 0x03 && options_.trackNames) {
        conversion_->trackName(readText(length));
    } else if (type == 0x04) {
        conversion_->instrumentName(channelPrefix_, readText(length));
    } else if (type == 0x2F) {
        conversion_->closeActiveNotes(now_);
        in_.skip(length);
        trackEnded_ = true;
    } else {
        readMetaData(type, length);
    }
}

// The meta events of fixed length; one of another length is skipped like those that are not known.
void MidiReader::readMetaData(quint8 type, quint64 length)
{
    if (type == 0x20 && length == 1) {
        const auto channel = in_.u8();
        if (channel < 16)
            channelPrefix_ = channel;
    } else if (type == 0x51 && length == 3) {
        conversion_->tempo(in_.u24(), now_);
    } else if (type == 0x58 && length == 4) {
        const auto numerator = in_.u8();
        conversion_->timeSignature(numerator, in_.u8(), now_);
        in_.skip(2);
    } else if (type == 0x59 && length == 2) {
        const int sharps = qint8(in_.u8());
        conversion_->keySignature(sharps, in_.u8(), now_);
    } else {
        in_.skip(length);
    }
}

} // namespace

ImportResult importMidi(const QByteArray &bytes, const MidiImportOptions &options, const std::stop_token &stop)
{
    return MidiReader(bytes, options, stop).read();
}
