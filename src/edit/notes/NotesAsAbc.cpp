#include "edit/notes/NotesAsAbc.h"

#include "edit/AbcReading.h"
#include "edit/NoteLookup.h"

namespace {

bool hasHeader(const QString &abc)
{
    return abc.startsWith(QLatin1String("K:")) || abc.contains(QLatin1String("\nK:"));
}

} // namespace

QString notesAsAbc(const Track &track, const QVector<NoteSpec> &notes)
{
    Track tune;
    for (const auto &field : {QStringLiteral("L"), QStringLiteral("K")}) {
        if (track.hasHeaderField(field))
            tune.setHeaderField(field, track.headerField(field));
    }
    for (const auto &note : notes)
        tune.appendEvent(TrackEvent::note(note.pitch, note.start - notes.first().start, note.length));
    tune.normalize();
    return tune.toAbc();
}

// The line of the K: field ends the header.
QString bodyOfAbc(const QString &abc)
{
    const auto key = abc.startsWith(QLatin1String("K:")) ? 0 : abc.indexOf(QLatin1String("\nK:")) + 1;
    return abc.mid(abc.indexOf(QLatin1Char('\n'), key) + 1);
}

QVector<NoteSpec> notesFromAbc(const Track &track, const QString &abc)
{
    const auto field = [&](const QString &letter) {
        return letter + QLatin1Char(':') + track.headerField(letter) + QLatin1Char('\n');
    };
    const auto header =
        hasHeader(abc) ? QString() : QStringLiteral("X:1\n") + field(QStringLiteral("L")) + field(QStringLiteral("K"));
    const auto reading = readAbc(header + abc);
    QVector<NoteSpec> notes;
    for (const auto &event : reading.track.events()) {
        if (event.isNote())
            notes.append(specOf(event));
    }
    return notes;
}
