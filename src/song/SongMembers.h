#pragma once

#include "song/Song.h"

#include <QStringList>

#include <vector>

// How a song is written as JSON, one row a member; the song file and the journal share it. Reading throws a QString
// that names the member.

// A member of a song or of a part that is one value.
template<typename Owner>
struct SongMember
{
    const char *name;
    QJsonValue (*value)(const Owner &owner);             // undefined: left out
    void (*read)(Owner &owner, const QJsonValue &value); // undefined, where it may be left out, clears it
};
const std::vector<SongMember<Song>> &songMembers();
const std::vector<SongMember<SongPart>> &partMembers(); // all but the id

// A member of a part that is a long text; in JSON an array of its lines.
struct SongText
{
    const char *name;
    std::optional<QString> (*text)(const SongPart &part);
    void (*set)(SongPart &part, const std::optional<QString> &text); // no text where there must be one is an empty one
};
const std::vector<SongText> &partTexts();

namespace SongJson {

constexpr int mostParts = 10'000;
constexpr qint64 largestSong = 256 << 20; // bytes

QJsonObject fromSong(const Song &song);
Song toSong(const QJsonObject &object);

// Throws unless every part has an id of its own, there are not too many, and every value is in its range.
void check(const Song &song);

// Throws when so many bytes, or the texts alone, are more than a song file may have.
void checkSize(qint64 bytes);
void checkSize(const Song &song);

// Members that no row knows.
QJsonObject othersOfSong(const QJsonObject &object);
QJsonObject othersOfPart(const QJsonObject &object);

// The order in which people want to read the members.
QStringList memberOrder();

} // namespace SongJson
