#pragma once

#include "song/Song.h"

#include <functional>
#include <random>

// Songs of anything that a song may hold, and random changes of them; the same seed gives the same.
class RandomSongs
{
public:
    explicit RandomSongs(unsigned seed) : random_(seed) {}

    Song song()
    {
        Song song;
        song.title = text(20);
        for (int count = below(8); count > 0; --count)
            song.parts.append(part());
        for (int count = below(3); count > 0; --count)
            song.imports.append({path(), others(), others(), song.title.left(3)});
        song.masterVolume = below(101);
        song.tempoFactor = 25 + below(176);
        if (below(2) == 0)
            song.loop = SongLoop{below(1000), 1000 + below(1'000'000'000), others()};
        song.others = others();
        return song;
    }

    // One step of somebody who works on the song.
    void edit(Song &song)
    {
        if (song.parts.isEmpty() || below(40) == 0)
            song.parts.append(part());
        const int index = below(int(song.parts.size()));
        auto &part = song.parts[index];
        const std::function<void()> changes[] = {
            [&] { part.volume = below(101); },
            [&] { part.pan = below(201) - 100; },
            [&] { part.isMuted = !part.isMuted; },
            [&] { part.startOffset = below(9) - 4; },
            [&] { part.draft = below(2) == 0 ? std::optional(text(100)) : std::nullopt; },
            [&] { song.parts.move(index, below(int(song.parts.size()))); },
            [&] { song.title = text(20); },
            [&] { song.masterVolume = below(101); },
            [&] {
                song.loop = below(2) == 0 ? std::optional(SongLoop{below(9), 10, {}}) : std::nullopt;
            },
            [&] { part.path = path(); },
            [&] { part.barLines = barLines(); },
            [&] { below(4) == 0 ? song.parts.remove(index) : void(); },
            [&] { splice(part.abc); }};
        changes[std::min(below(14), 12)]();
    }

    int below(int bound) { return int(random_() % unsigned(bound)); }

private:
    SongPart part()
    {
        SongPart part;
        part.id = QStringLiteral("T%1").arg(++lastId_);
        part.name = text(10);
        part.abc = text(400);
        if (below(4) == 0)
            part.draft = text(100);
        part.instrument = text(8);
        part.volume = below(101);
        part.pan = below(201) - 100;
        part.isMuted = below(2) == 0;
        part.barLines = barLines();
        part.startOffset = below(2) == 0 ? 0 : below(20'001) - 10'000;
        part.path = path();
        part.import = part.name.left(3);
        part.others = others();
        return part;
    }

    QVector<Ticks> barLines()
    {
        QVector<Ticks> barLines;
        for (int count = below(4); count > 0; --count)
            barLines.append((barLines.isEmpty() ? 0 : barLines.last()) + 1 + below(100'000));
        return barLines;
    }

    void splice(QString &abc)
    {
        const int at = below(int(abc.size()) + 1);
        abc.replace(at, below(20), text(20));
    }

    // Letters and line ends most of the time, and any UTF-16 unit, also half a surrogate pair.
    QString text(int longest)
    {
        QString text;
        for (int count = below(longest); count > 0; --count) {
            const int kind = below(20);
            if (kind < 16)
                text += QLatin1Char("CDEFGAB|cde'/2 z"[kind]);
            else if (kind < 19)
                text += QStringList{QStringLiteral("\r\n"), QStringLiteral("\n"), QStringLiteral("\r")}[kind - 16];
            else
                text += QChar(ushort(below(0x10000)));
        }
        return text;
    }

    QString path()
    {
        const auto name = QString::number(below(1000)) + QStringLiteral(" \u00e9.abc");
        return QStringList{QString(), QStringLiteral("/songs/") + name, QStringLiteral("/songs/parts/") + name,
                           QStringLiteral("/elsewhere/") + name}[below(4)];
    }

    QJsonObject others()
    {
        if (below(3) != 0)
            return {};
        return {{QStringLiteral("x-") + text(5), QJsonObject{{text(3), below(100) / 8.0}}},
                {QStringLiteral("y"), below(2) == 0},
                {QStringLiteral("z"), QJsonValue()}};
    }

    std::mt19937 random_;
    int lastId_ = 0;
};
