#include "Inspect.h"

#include "Input.h"
#include "Messages.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString key(const char *name)
{
    return QLatin1String(name);
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

void addKindFields(QJsonObject &object, const TrackEvent &event)
{
    switch (event.kind()) {
    case TrackEvent::Note:
        object[key("kind")] = key("Note");
        object[key("length")] = event.length();
        object[key("pitch")] = qint64(event.pitch());
        object[key("velocity")] = double(event.velocity());
        object[key("textLine")] = qint64(event.textLine());
        object[key("textColumn")] = qint64(event.textColumn());
        object[key("textLength")] = qint64(event.textLength());
        break;
    case TrackEvent::Tempo:
        object[key("kind")] = key("Tempo");
        object[key("ticksPerMinute")] = event.ticksPerMinute();
        object[key("beatNumerator")] = qint64(event.numerator());
        object[key("beatDenominator")] = qint64(event.denominator());
        object[key("bpm")] = qint64(event.bpm());
        break;
    case TrackEvent::Key:
        object[key("kind")] = key("Key");
        object[key("keyIndex")] = qint64(event.keyIndex());
        object[key("keyMode")] = qint64(event.keyMode());
        break;
    case TrackEvent::UnitLength:
    case TrackEvent::Metre:
        object[key("kind")] = key(event.kind() == TrackEvent::Metre ? "Metre" : "UnitLength");
        object[key("numerator")] = qint64(event.numerator());
        object[key("denominator")] = qint64(event.denominator());
        break;
    case TrackEvent::None:
        object[key("kind")] = key("None");
        break;
    }
}

QJsonObject summary(Track &track)
{
    const auto abc = track.toAbc(); // first: it fills in fields and the notes' text positions
    QJsonObject fields;
    const auto &headerFields = track.headerFields();
    for (auto field = headerFields.begin(); field != headerFields.end(); ++field)
        fields[field.key()] = QJsonArray::fromStringList(field.value());
    return {{key("title"), track.title()},
            {key("headerFields"), fields},
            {key("ticksPerMinute"), track.ticksPerMinute()},
            {key("measureTicks"), qint64(track.measureTicks())},
            {key("beatsPerMeasure"), qint64(track.beatsPerMeasure())},
            {key("length"), track.length()},
            {key("noteCount"), track.noteCount()},
            {key("abc"), abc}};
}

void writeTrack(Track &track, QIODevice &out)
{
    auto object = compact(summary(track));
    object.chop(1); // the brace, for the events to come
    out.write(object + ",\"events\":[");
    const char *separator = "\n";
    for (const auto &event : track.events()) {
        QJsonObject eventObject{{key("start"), event.start()}};
        addKindFields(eventObject, event);
        out.write(separator + compact(eventObject));
        separator = ",\n";
    }
    out.write("]}");
}

QJsonObject reportObject(const ImportReport &report)
{
    return {{key("belowVelocityGate"), report.belowVelocityGate},
            {key("restruck"), report.restruck},
            {key("outOfRange"), report.outOfRange},
            {key("unterminated"), report.unterminated},
            {key("shiftedNotes"), report.shifts.shiftedNotes},
            {key("largestShiftMs"), report.shifts.largestMs},
            {key("meanShiftMs"), report.shifts.meanMs()}};
}

// An event at a time, so that a long song needs no memory for its text.
void writeSong(ReadSong &song, QIODevice &out)
{
    out.write("{\"tracks\":[");
    const char *separator = "\n";
    for (auto &track : song.tracks) {
        out.write(separator);
        writeTrack(track, out);
        separator = ",\n";
    }
    out.write("]");
    if (song.report)
        out.write(",\n\"report\":" + compact(reportObject(*song.report)));
    out.write("}\n");
}

} // namespace

int inspect(const Arguments &arguments)
{
    const auto &path = arguments.inputs.first();
    bool failed = false;
    auto song = readInput(path, arguments, failed);
    const auto print = [&] {
        for (const auto &transform : arguments.transforms)
            song->tracks = transform(song->tracks);
        StandardOutput out;
        writeSong(*song, out.device());
        out.finish();
    };
    return song && runOrPrint(path, print) && !failed ? 0 : 1;
}
