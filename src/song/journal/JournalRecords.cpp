#include "song/journal/JournalRecords.h"

#include "song/JsonWriter.h"
#include "song/SongChange.h"
#include "song/SongFile.h"
#include "song/SongMembers.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QJsonDocument>
#include <QtEndian>

#include <algorithm>
#include <optional>

namespace {

// A file's first bytes, and then its records: the payload's length, its checksum, and the payload, a JSON object.
const QByteArray magic("kelvarion-journal 1\n");
constexpr int lengthSize = 4;
constexpr int checksumSize = 8;
constexpr int frameSize = lengthSize + checksumSize;
constexpr double latestTime = 8.64e15; // milliseconds since 1970, as far as ECMAScript's dates reach

const auto timeKey = QStringLiteral("time");
const auto fileKey = QStringLiteral("file");
const auto stampKey = QStringLiteral("stamp");
const auto savedKey = QStringLiteral("saved");
const auto discardedKey = QStringLiteral("discarded");
const auto songKey = QStringLiteral("song");
const auto changeKey = QStringLiteral("change");

QByteArray checksum(const QByteArray &payload)
{
    return QCryptographicHash::hash(payload, QCryptographicHash::Sha1).left(checksumSize);
}

QByteArray bytesOf(const QJsonObject &payload)
{
    return JournalRecords::framed(writeJson(payload, JsonLayout::Compact));
}

QJsonObject payloadOf(const JournalledSong &song, JournalMark mark, qint64 time)
{
    QJsonObject payload{{timeKey, time}, {savedKey, song.isSaved}};
    if (mark == JournalMark::Discarded)
        payload[discardedKey] = true;
    return payload;
}

// The payload of the record that begins there; none when it is cut or damaged.
std::optional<QByteArray> payloadAt(const QByteArray &bytes, qint64 at)
{
    if (bytes.size() - at < frameSize)
        return {};
    const auto length = qint64(qFromBigEndian<quint32>(bytes.constData() + at));
    if (length > bytes.size() - at - frameSize)
        return {};
    const auto payload = bytes.mid(int(at) + frameSize, int(length));
    if (checksum(payload) != bytes.mid(int(at) + lengthSize, checksumSize))
        return {};
    return payload;
}

void apply(JournalRecords::Contents &contents, const QJsonObject &payload)
{
    auto &last = contents.last;
    if (payload.contains(changeKey))
        last.song = SongChange::applied(last.song, payload[changeKey].toObject());
    if (payload.contains(fileKey))
        last.file = payload[fileKey].toString();
    if (payload.contains(stampKey))
        last.fileStamp = payload[stampKey].toString();
    last.isSaved = payload[savedKey].toBool();
    contents.mark = payload[discardedKey].toBool() ? JournalMark::Discarded : JournalMark::Open;
    contents.time = qint64(std::clamp(payload[timeKey].toDouble(), 0.0, latestTime));
}

QJsonObject parse(const QByteArray &payload)
{
    const auto document = QJsonDocument::fromJson(payload);
    if (!document.isObject())
        throw QCoreApplication::translate("SongJournal", "A record holds nothing.");
    return document.object();
}

[[noreturn]] void failDamaged()
{
    throw QCoreApplication::translate("SongJournal", "The beginning of the journal is damaged.");
}

void checkMagic(const QByteArray &bytes)
{
    if (bytes.startsWith(magic))
        return;
    if (bytes.startsWith(magic.left(magic.size() - 2)))
        throw QCoreApplication::translate("SongJournal", "The journal was written by a newer version of this program.");
    throw QCoreApplication::translate("SongJournal", "This is not a journal.");
}

JournalRecords::Contents readBeginning(const QByteArray &bytes)
{
    checkMagic(bytes);
    const auto payload = payloadAt(bytes, magic.size());
    if (!payload)
        failDamaged();
    JournalRecords::Contents contents;
    const auto object = parse(*payload);
    contents.last.song = SongJson::toSong(object[songKey].toObject());
    apply(contents, object);
    contents.wholeSize = magic.size() + frameSize + payload->size();
    return contents;
}

} // namespace

namespace JournalRecords {

QByteArray framed(const QByteArray &payload)
{
    QByteArray length(lengthSize, '\0');
    qToBigEndian(quint32(payload.size()), length.data());
    return length + checksum(payload) + payload;
}

QByteArray beginning(const JournalledSong &song, JournalMark mark, qint64 time)
{
    SongJson::checkSize(song.song);
    auto payload = payloadOf(song, mark, time);
    payload[fileKey] = song.file;
    payload[stampKey] = song.fileStamp;
    payload[songKey] = SongJson::fromSong(song.song);
    return magic + bytesOf(payload);
}

QByteArray change(const JournalledSong &before, const JournalledSong &after, JournalMark mark, qint64 time)
{
    SongJson::checkSize(after.song);
    auto payload = payloadOf(after, mark, time);
    if (after.file != before.file)
        payload[fileKey] = after.file;
    if (after.fileStamp != before.fileStamp)
        payload[stampKey] = after.fileStamp;
    const auto difference = SongChange::between(before.song, after.song);
    if (!difference.isEmpty())
        payload[changeKey] = difference;
    return bytesOf(payload);
}

Contents read(const QByteArray &bytes)
{
    auto contents = readBeginning(bytes);
    while (const auto payload = payloadAt(bytes, contents.wholeSize)) {
        try {
            auto next = contents;
            apply(next, parse(*payload));
            next.wholeSize += frameSize + payload->size();
            contents = next;
        } catch (const QString &) {
            break; // what follows would build on it
        }
    }
    return contents;
}

} // namespace JournalRecords
