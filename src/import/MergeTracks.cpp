#include "import/MergeTracks.h"

#include <QCoreApplication>
#include <QHash>

Track mergeTracks(const QVector<Track> &tracks)
{
    const auto &first = tracks.first();
    auto merged = first;
    merged.clearAbc();
    merged.setFilePath({});
    merged.setHeaderField(QStringLiteral("X"), QStringLiteral("1"));

    QHash<Ticks, qint64> tempos;
    for (const auto &event : first.events()) {
        if (event.kind() == TrackEvent::Tempo)
            tempos.insert(event.start(), event.ticksPerMinute());
    }

    const auto differentTempos =
        QCoreApplication::translate("MergeTracks", "Cannot merge tracks with different tempos");
    for (const auto &track : tracks.mid(1)) {
        if (track.ticksPerMinute() != first.ticksPerMinute())
            throw differentTempos;
        for (const auto &event : track.events()) {
            if (event.kind() != TrackEvent::Tempo)
                merged.appendEvent(event);
            else if (tempos.value(event.start(), -1) != event.ticksPerMinute())
                throw differentTempos;
        }
    }
    merged.normalize();
    return merged;
}
