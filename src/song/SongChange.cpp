#include "song/SongChange.h"

#include "song/SongMembers.h"

#include <QCoreApplication>
#include <QHash>
#include <QJsonArray>

#include <algorithm>

namespace {

const auto songKey = QStringLiteral("song");
const auto partsKey = QStringLiteral("parts");
const auto orderKey = QStringLiteral("order");
const auto idKey = QStringLiteral("id");
const auto othersKey = QStringLiteral("others");
const auto atKey = QStringLiteral("at");
const auto cutKey = QStringLiteral("cut");
const auto putKey = QStringLiteral("put");

[[noreturn]] void failForeign()
{
    throw QCoreApplication::translate("SongJournal", "A change does not belong to its song.");
}

template<typename Owner>
QJsonObject membersBetween(const Owner &before, const Owner &after, const std::vector<SongMember<Owner>> &members)
{
    QJsonObject change;
    for (const auto &member : members) {
        const auto value = member.value(after);
        if (value != member.value(before))
            change[QLatin1String(member.name)] = value.isUndefined() ? QJsonValue() : value;
    }
    if (after.others != before.others)
        change[othersKey] = after.others;
    return change;
}

template<typename Owner>
void applyMembers(Owner &owner, const QJsonObject &change, const std::vector<SongMember<Owner>> &members)
{
    for (const auto &member : members) {
        const auto value = change[QLatin1String(member.name)];
        if (!value.isUndefined())
            member.read(owner, value.isNull() ? QJsonValue(QJsonValue::Undefined) : value);
    }
    if (change.contains(othersKey))
        owner.others = change[othersKey].toObject();
}

QJsonObject spliceBetween(const QString &before, const QString &after)
{
    const auto fromBegin = std::mismatch(before.cbegin(), before.cend(), after.cbegin(), after.cend());
    const auto at = int(fromBegin.first - before.cbegin());
    const auto beforeRest = std::make_reverse_iterator(fromBegin.first);
    const auto afterRest = std::make_reverse_iterator(fromBegin.second);
    const auto fromEnd = std::mismatch(before.crbegin(), beforeRest, after.crbegin(), afterRest);
    const auto same = int(fromEnd.first - before.crbegin());
    return {
        {atKey, at}, {cutKey, int(before.size()) - at - same}, {putKey, after.mid(at, int(after.size()) - at - same)}};
}

QString spliced(QString text, const QJsonObject &splice)
{
    const int at = splice[atKey].toInt(-1);
    const int cut = splice[cutKey].toInt(-1);
    if (at < 0 || cut < 0 || at > text.size() || cut > text.size() - at)
        failForeign();
    return text.replace(at, cut, splice[putKey].toString());
}

void addTexts(QJsonObject &change, const SongPart &before, const SongPart &after)
{
    for (const auto &member : partTexts()) {
        const auto old = member.text(before);
        const auto text = member.text(after);
        if (text != old)
            change[QLatin1String(member.name)] =
                text ? QJsonValue(spliceBetween(old.value_or(QString()), *text)) : QJsonValue();
    }
}

void applyTexts(SongPart &part, const QJsonObject &change)
{
    for (const auto &member : partTexts()) {
        const auto value = change[QLatin1String(member.name)];
        if (value.isNull())
            member.set(part, std::nullopt);
        else if (value.isObject())
            member.set(part, spliced(member.text(part).value_or(QString()), value.toObject()));
    }
}

QJsonObject partBetween(const SongPart &before, const SongPart &after)
{
    auto change = membersBetween(before, after, partMembers());
    addTexts(change, before, after);
    return change;
}

QHash<QString, int> placesOf(const QVector<SongPart> &parts)
{
    QHash<QString, int> places;
    for (const auto &part : parts)
        places.insert(part.id, int(places.size()));
    return places;
}

SongPart newPart(const QString &id)
{
    SongPart part;
    part.id = id;
    return part;
}

QJsonArray partsBetween(const QVector<SongPart> &before, const QVector<SongPart> &after)
{
    QJsonArray changes;
    const auto places = placesOf(before);
    for (const auto &part : after) {
        const int place = places.value(part.id, -1);
        auto change = partBetween(place >= 0 ? before[place] : newPart(part.id), part);
        if (change.isEmpty() && place >= 0)
            continue;
        change[idKey] = part.id;
        changes.append(change);
    }
    return changes;
}

bool isSameOrder(const QVector<SongPart> &before, const QVector<SongPart> &after)
{
    return std::equal(before.cbegin(), before.cend(), after.cbegin(), after.cend(),
                      [](const auto &a, const auto &b) { return a.id == b.id; });
}

void applyParts(QVector<SongPart> &parts, const QJsonArray &changes)
{
    auto places = placesOf(parts);
    for (const auto &value : changes) {
        const auto change = value.toObject();
        const auto id = change[idKey].toString();
        if (!places.contains(id)) {
            places.insert(id, int(parts.size()));
            parts.append(newPart(id));
        }
        auto &part = parts[places[id]];
        applyMembers(part, change, partMembers());
        applyTexts(part, change);
    }
}

void applyOrder(QVector<SongPart> &parts, const QJsonArray &order)
{
    auto places = placesOf(parts);
    QVector<SongPart> ordered;
    for (const auto &id : order) {
        const auto place = places.find(id.toString());
        if (place == places.end())
            failForeign();
        ordered.append(parts[*place]);
        places.erase(place);
    }
    parts = ordered;
}

} // namespace

namespace SongChange {

QJsonObject between(const Song &before, const Song &after)
{
    QJsonObject change;
    const auto members = membersBetween(before, after, songMembers());
    if (!members.isEmpty())
        change[songKey] = members;
    const auto parts = partsBetween(before.parts, after.parts);
    if (!parts.isEmpty())
        change[partsKey] = parts;
    if (!isSameOrder(before.parts, after.parts)) {
        QJsonArray order;
        for (const auto &part : after.parts)
            order.append(part.id);
        change[orderKey] = order;
    }
    return change;
}

Song applied(Song song, const QJsonObject &change)
{
    applyMembers(song, change[songKey].toObject(), songMembers());
    const auto count = song.parts.size();
    applyParts(song.parts, change[partsKey].toArray());
    if (change[orderKey].isArray())
        applyOrder(song.parts, change[orderKey].toArray());
    else if (song.parts.size() != count)
        failForeign(); // nothing says where a new part stands
    if (song.parts.size() > SongJson::mostParts)
        failForeign();
    return song;
}

} // namespace SongChange
