#include "ConvertedFiles.h"

#include "base/ErrorText.h"
#include "core/HeaderFields.h"
#include "export/MidiExport.h"
#include "export/ProgramGuess.h"
#include "export/Tunebook.h"
#include "song/SongParts.h"

#include <functional>

namespace {

QString describe(const ImportReport &report)
{
    QStringList parts;
    const auto add = [&parts](int count, const QString &text) {
        if (count > 0)
            parts.append(QStringLiteral("%1 %2").arg(count).arg(text));
    };
    add(report.belowVelocityGate, QStringLiteral("too soft"));
    add(report.restruck, QStringLiteral("struck again while sounding"));
    add(report.outOfRange, QStringLiteral("out of range"));
    add(report.folded, QStringLiteral("moved by octaves into the range"));
    add(report.unterminated, QStringLiteral("never ended"));
    add(report.undecodedTexts, QStringLiteral("names not in UTF-8"));
    if (report.shifts.shiftedNotes > 0) {
        parts.append(QStringLiteral("%1 shifted by up to %2 ms, %3 ms on average")
                         .arg(report.shifts.shiftedNotes)
                         .arg(report.shifts.largestMs, 0, 'f', 1)
                         .arg(report.shifts.meanMs(), 0, 'f', 1));
    }
    return parts.isEmpty() ? QString() : QStringLiteral("; notes: ") + parts.join(u", ");
}

QString causeOfNothing(const ConvertedInput &input)
{
    if (input.trackCount > 0)
        return QStringLiteral("that failed"); // which was printed
    const auto report = input.song.report.value_or(ImportReport());
    const int leftOut = report.belowVelocityGate + report.restruck + report.outOfRange + report.unterminated;
    return leftOut > 0 ? QStringLiteral("all notes were left out") : QStringLiteral("there are no notes in it");
}

ExportedPart partOf(const Track &track, const ProgramInstruments &programs)
{
    const auto titles = track.headerFields(QStringLiteral("T"));
    const auto instrument = HeaderFields::instrumentName(track.headerFields(QStringLiteral("I")));
    return {track, track.title(), instrument, guessProgram(instrument, titles, programs)};
}

// A song file knows its parts better than their texts do.
void nameAsIn(const Song &song, QVector<ExportedPart> &parts, const ProgramInstruments &programs)
{
    for (int i = 0; i < parts.size(); ++i) {
        const auto &part = song.parts[i];
        const auto titles = QStringList(part.name) + parts[i].track.headerFields(QStringLiteral("T"));
        parts[i].name = part.name;
        parts[i].instrument = part.instrument;
        parts[i].program = guessProgram(part.instrument, titles, programs);
    }
}

QString describe(const MidiExport &midi)
{
    QStringList remarks;
    if (midi.cutNotes > 0)
        remarks.append(QStringLiteral("%1 notes end where their pitch begins again").arg(midi.cutNotes));
    if (midi.leftOut > 0)
        remarks.append(QStringLiteral("%1 notes are too high for MIDI").arg(midi.leftOut));
    if (midi.movedParts > 0)
        remarks.append(QStringLiteral("%1 parts are written in the tempo of the longest").arg(midi.movedParts));
    return remarks.join(QStringLiteral("; "));
}

QByteArray midiOf(ConvertedInput &input, const QVector<Track> &tracks, Merged merged, const Arguments &arguments)
{
    const ProgramInstruments programs(arguments.setting(SettingsTable::ProgramInstrument).toString());
    QVector<ExportedPart> parts;
    for (const auto &track : tracks)
        parts.append(partOf(track, programs));
    if (input.song.song && merged == Merged::No)
        nameAsIn(*input.song.song, parts, programs);
    const auto midi = exportMidi(songName(input.path, input.song), parts);
    input.remark = describe(midi);
    return midi.bytes;
}

QByteArray tunebookOf(const QVector<Track> &tracks)
{
    QStringList texts;
    for (auto track : tracks)
        texts.append(track.toAbc());
    return tunebook(texts).toUtf8();
}

void addFile(ConvertedInput &input, const QString &name, const QString &ending,
             const std::function<QByteArray()> &makeBytes)
{
    ConvertedInput::File file{name, ending, {}};
    try {
        file.bytes = makeBytes();
    } catch (...) {
        file.failure = currentErrorText();
    }
    input.files.append(file);
}

} // namespace

void makeFiles(ConvertedInput &input, const QVector<Track> &tracks, Merged merged, const Arguments &arguments)
{
    if (tracks.isEmpty())
        return;
    const auto song = songName(input.path, input.song);
    switch (arguments.to) {
    case ConvertTo::Abc:
        for (auto track : tracks) {
            const auto title = track.title();
            addFile(input, arguments.names == PartNames::Title ? title : SongParts::fileTitle(song, title),
                    QStringLiteral(".abc"), [&] { return track.toAbc().toUtf8(); });
        }
        break;
    case ConvertTo::Midi:
        addFile(input, song, QStringLiteral(".mid"), [&] { return midiOf(input, tracks, merged, arguments); });
        break;
    case ConvertTo::Tunebook:
        addFile(input, song, QStringLiteral(".abc"), [&] { return tunebookOf(tracks); });
        break;
    }
}

QString lineOf(const ConvertedInput &input, const QString &mergedInto)
{
    const auto what = !mergedInto.isEmpty()     ? QStringLiteral("merged into ") + mergedInto
                      : input.written.isEmpty() ? QStringLiteral("wrote nothing, since ") + causeOfNothing(input)
                                                : QStringLiteral("wrote ") + input.written.join(QStringLiteral(", "));
    auto line = input.path + QStringLiteral(": ") + what;
    for (const auto &remark : {input.song.remark, input.remark})
        line += remark.isEmpty() ? QString() : QStringLiteral("; ") + remark;
    return line + (input.song.report ? describe(*input.song.report) : QString());
}
