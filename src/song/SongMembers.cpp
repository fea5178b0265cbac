#include "song/SongMembers.h"

#include "song/JsonReading.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QSet>

#include <algorithm>
#include <utility>

using namespace JsonReading;

namespace {

constexpr double largestExact = 9007199254740992; // of the whole numbers that JSON's readers agree on

QString key(const char *name)
{
    return QLatin1String(name);
}

QJsonObject without(QJsonObject object, const QStringList &names)
{
    for (const auto &name : names)
        object.remove(name);
    return object;
}

QJsonValue unlessEmpty(const QString &text)
{
    return text.isEmpty() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(text);
}

QJsonValue unlessZero(int number)
{
    return number == 0 ? QJsonValue(QJsonValue::Undefined) : QJsonValue(number);
}

void readStartOffset(SongPart &part, const QJsonValue &value)
{
    part.startOffset = value.isUndefined() ? 0 : int(numberOf("startOffset", value, -mostStartOffset, mostStartOffset));
}

QJsonValue loopValue(const Song &song)
{
    if (!song.loop)
        return QJsonValue::Undefined;
    auto object = song.loop->others;
    object[key("begin")] = song.loop->begin;
    object[key("end")] = song.loop->end;
    return object;
}

void readLoop(Song &song, const QJsonValue &value)
{
    song.loop.reset();
    if (value.isUndefined())
        return;
    const auto loop = objectOf("loop", value);
    const auto begin = numberOf("begin", loop[key("begin")], 0, largestExact - 1);
    const auto end = numberOf("end", loop[key("end")], begin + 1, largestExact);
    song.loop = {Ticks(begin), Ticks(end), without(loop, {key("begin"), key("end")})};
}

QJsonValue barLinesValue(const SongPart &part)
{
    QJsonArray barLines;
    Ticks last = 0;
    for (const auto tick : part.barLines) { // each once, as they are read
        if (tick > std::exchange(last, std::max(last, tick)))
            barLines.append(tick);
    }
    return barLines.isEmpty() ? QJsonValue(QJsonValue::Undefined) : barLines;
}

void readBarLines(SongPart &part, const QJsonValue &value)
{
    part.barLines.clear();
    if (value.isUndefined())
        return;
    Ticks last = 0;
    for (const auto &tick : arrayOf("barLines", value)) {
        last = Ticks(numberOf("barLines", tick, double(last + 1), largestExact));
        part.barLines.append(last);
    }
}

QJsonArray linesOf(const QString &text)
{
    return QJsonArray::fromStringList(text.split(u'\n'));
}

QString joined(const char *name, const QJsonValue &value)
{
    QString text;
    const auto lines = arrayOf(name, value);
    for (int line = 0; line < lines.size(); ++line) {
        if (line > 0)
            text += u'\n';
        text += textOf(name, lines[line]);
    }
    return text;
}

QJsonValue importsValue(const Song &song)
{
    QJsonArray imports;
    for (const auto &imported : song.imports) {
        auto object = imported.others;
        object[key("settings")] = imported.settings;
        if (!imported.path.isEmpty())
            object[key("file")] = imported.path;
        if (!imported.id.isEmpty())
            object[key("id")] = imported.id;
        if (!imported.text.isEmpty())
            object[key("text")] = linesOf(imported.text);
        imports.append(object);
    }
    return imports.isEmpty() ? QJsonValue(QJsonValue::Undefined) : imports;
}

void readImports(Song &song, const QJsonValue &value)
{
    song.imports.clear();
    if (value.isUndefined())
        return;
    for (const auto &each : arrayOf("imports", value)) {
        const auto object = objectOf("imports", each);
        const auto settings = object[key("settings")];
        const auto text = object[key("text")];
        song.imports.append({optionalTextOf("file", object[key("file")]),
                             settings.isUndefined() ? QJsonObject() : objectOf("settings", settings),
                             without(object, {key("file"), key("settings"), key("id"), key("text")}),
                             optionalTextOf("id", object[key("id")]),
                             text.isUndefined() ? QString() : joined("text", text)});
    }
}

QJsonObject fromPart(const SongPart &part)
{
    auto object = part.others;
    object[key("id")] = part.id;
    for (const auto &member : partMembers()) {
        const auto value = member.value(part);
        if (!value.isUndefined())
            object[key(member.name)] = value;
    }
    for (const auto &member : partTexts()) {
        if (const auto text = member.text(part))
            object[key(member.name)] = linesOf(*text);
    }
    return object;
}

SongPart toPart(const QJsonObject &object)
{
    SongPart part;
    part.id = textOf("id", object[key("id")]);
    for (const auto &member : partMembers()) {
        const auto value = object[key(member.name)];
        if (!value.isUndefined())
            member.read(part, value);
    }
    for (const auto &member : partTexts()) {
        const auto value = object[key(member.name)];
        if (!value.isUndefined())
            member.set(part, joined(member.name, value));
    }
    part.others = SongJson::othersOfPart(object);
    return part;
}

SongPart numberedPart(const QJsonValue &value, int number)
{
    try {
        return toPart(objectOf("parts", value));
    } catch (const QString &why) {
        throw QCoreApplication::translate("SongFile", "Part %1, %2.").arg(number).arg(why);
    }
}

void readParts(Song &song, const QJsonArray &parts)
{
    if (parts.size() > SongJson::mostParts)
        throw QCoreApplication::translate("SongFile", "The song has more than %1 parts.").arg(SongJson::mostParts);
    song.parts.reserve(parts.size());
    for (const auto &part : parts)
        song.parts.append(numberedPart(part, int(song.parts.size()) + 1));
}

QStringList namesOfParts()
{
    QStringList names{key("id")};
    for (const auto &member : partMembers())
        names.append(key(member.name));
    for (const auto &member : partTexts())
        names.append(key(member.name));
    return names;
}

QStringList namesOfSong()
{
    QStringList names{key("format"), key("version")};
    for (const auto &member : songMembers())
        names.append(key(member.name));
    return names << key("parts");
}

// What would be refused when it is read is never written.
template<typename Owner>
void checkMembers(Owner owner, const std::vector<SongMember<Owner>> &members)
{
    for (const auto &member : members)
        member.read(owner, member.value(owner));
}

} // namespace

const std::vector<SongMember<Song>> &songMembers()
{
    static const std::vector<SongMember<Song>> members{
        {"title", [](const Song &song) -> QJsonValue { return song.title; },
         [](Song &song, const QJsonValue &value) { song.title = textOf("title", value); }},
        {"masterVolume", [](const Song &song) -> QJsonValue { return song.masterVolume; },
         [](Song &song, const QJsonValue &value) { song.masterVolume = int(numberOf("masterVolume", value, 0, 100)); }},
        {"tempoFactor", [](const Song &song) -> QJsonValue { return song.tempoFactor; },
         [](Song &song, const QJsonValue &value) { song.tempoFactor = int(numberOf("tempoFactor", value, 25, 200)); }},
        {"loop", loopValue, readLoop},
        {"imports", importsValue, readImports},
    };
    return members;
}

const std::vector<SongMember<SongPart>> &partMembers()
{
    static const std::vector<SongMember<SongPart>> members{
        {"name", [](const SongPart &part) -> QJsonValue { return part.name; },
         [](SongPart &part, const QJsonValue &value) { part.name = textOf("name", value); }},
        {"instrument", [](const SongPart &part) -> QJsonValue { return part.instrument; },
         [](SongPart &part, const QJsonValue &value) { part.instrument = textOf("instrument", value); }},
        {"volume", [](const SongPart &part) -> QJsonValue { return part.volume; },
         [](SongPart &part, const QJsonValue &value) { part.volume = int(numberOf("volume", value, 0, 100)); }},
        {"pan", [](const SongPart &part) -> QJsonValue { return part.pan; },
         [](SongPart &part, const QJsonValue &value) { part.pan = int(numberOf("pan", value, -100, 100)); }},
        {"muted", [](const SongPart &part) -> QJsonValue { return part.isMuted; },
         [](SongPart &part, const QJsonValue &value) { part.isMuted = flagOf("muted", value); }},
        {"startOffset", [](const SongPart &part) { return unlessZero(part.startOffset); }, readStartOffset},
        {"file", [](const SongPart &part) { return unlessEmpty(part.path); },
         [](SongPart &part, const QJsonValue &value) { part.path = optionalTextOf("file", value); }},
        {"import", [](const SongPart &part) { return unlessEmpty(part.import); },
         [](SongPart &part, const QJsonValue &value) { part.import = optionalTextOf("import", value); }},
        {"barLines", barLinesValue, readBarLines},
    };
    return members;
}

const std::vector<SongText> &partTexts()
{
    static const std::vector<SongText> texts{
        {"abc", [](const SongPart &part) { return std::optional(part.abc); },
         [](SongPart &part, const std::optional<QString> &text) { part.abc = text.value_or(QString()); }},
        {"draft", [](const SongPart &part) { return part.draft; },
         [](SongPart &part, const std::optional<QString> &text) { part.draft = text; }},
    };
    return texts;
}

namespace SongJson {

QJsonObject fromSong(const Song &song)
{
    auto object = song.others;
    for (const auto &member : songMembers()) {
        const auto value = member.value(song);
        if (!value.isUndefined())
            object[key(member.name)] = value;
    }
    QJsonArray parts;
    for (const auto &part : song.parts)
        parts.append(fromPart(part));
    object[key("parts")] = parts;
    return object;
}

Song toSong(const QJsonObject &object)
{
    Song song;
    for (const auto &member : songMembers()) {
        const auto value = object[key(member.name)];
        if (!value.isUndefined())
            member.read(song, value);
    }
    readParts(song, arrayOf("parts", object[key("parts")]));
    song.others = othersOfSong(object);
    check(song);
    return song;
}

void check(const Song &song)
{
    if (song.parts.size() > mostParts)
        throw QCoreApplication::translate("SongFile", "The song has more than %1 parts.").arg(mostParts);
    checkMembers(song, songMembers());
    QSet<QString> ids;
    for (const auto &part : song.parts) {
        checkMembers(part, partMembers());
        if (part.id.isEmpty())
            throw QCoreApplication::translate("SongFile", "A part has no id.");
        if (ids.contains(part.id))
            throw QCoreApplication::translate("SongFile", "Two parts have the id \"%1\".").arg(part.id);
        ids.insert(part.id);
    }
}

void checkSize(qint64 bytes)
{
    if (bytes > largestSong)
        throw QCoreApplication::translate("SongFile", "The song file is larger than 256 MB.");
}

void checkSize(const Song &song)
{
    qint64 characters = 0;
    for (const auto &part : song.parts)
        characters += part.abc.size() + (part.draft ? part.draft->size() : 0);
    checkSize(characters);
}

QJsonObject othersOfSong(const QJsonObject &object)
{
    static const auto known = namesOfSong();
    return without(object, known);
}

QJsonObject othersOfPart(const QJsonObject &object)
{
    static const auto known = namesOfParts();
    return without(object, known);
}

QStringList memberOrder()
{
    static const auto order = namesOfSong() + namesOfParts() + QStringList{key("settings")};
    return order;
}

} // namespace SongJson
