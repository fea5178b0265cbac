#include "Convert.h"

#include "Input.h"
#include "Messages.h"
#include "base/SafeFile.h"
#include "core/HeaderFields.h"
#include "export/MidiExport.h"
#include "export/ProgramGuess.h"
#include "export/Tunebook.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

namespace {

// Gives every title file names of its own, one after another; names that differ only in case are one on some file
// systems.
class FileNames
{
public:
    QString nextFor(const QString &title, const QString &ending)
    {
        const auto clean = SafeFile::cleanName(title);
        auto &number = numbers_[clean.toLower()];
        QString name;
        do {
            ++number;
            name = number == 1 ? clean : QStringLiteral("%1 (%2)").arg(clean).arg(number);
        } while (taken_.contains(name.toLower()));
        taken_.insert(name.toLower());
        return name + ending;
    }

private:
    QSet<QString> taken_;
    QHash<QString, int> numbers_; // the last that each title was given
};

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

struct Source
{
    QString path;
    ReadSong song;
    QStringList written = {}; // files
    QString remark = {};      // on what could not be written as it is

    qsizetype trackCount() const { return song.tracks.size(); }
};

QString causeOfNothing(const Source &source)
{
    if (source.trackCount() > 0)
        return QStringLiteral("that failed"); // which was printed
    const auto report = source.song.report.value_or(ImportReport());
    const int leftOut = report.belowVelocityGate + report.restruck + report.outOfRange + report.unterminated;
    return leftOut > 0 ? QStringLiteral("all notes were left out") : QStringLiteral("there are no notes in it");
}

// What people call all of a source.
QString nameOf(const Source &source)
{
    const auto &song = source.song.song;
    if (song && !song->title.isEmpty())
        return song->title;
    if (source.path == u"-")
        return source.song.tracks.isEmpty() ? QString() : source.song.tracks.first().title();
    return QFileInfo(source.path).completeBaseName();
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

// Everything that is read, written and printed on the way from the inputs to the files.
class Conversion
{
public:
    explicit Conversion(const Arguments &arguments) : arguments_(arguments) {}

    int run()
    {
        collectTracks();
        if (transformTracks() && !tracks_.isEmpty())
            writeTracks();
        printSources();
        return failed_ ? 1 : 0;
    }

private:
    void collectTracks();
    bool transformTracks();
    void writeTracks();
    void write(Source &source, QVector<Track> tracks);
    QByteArray midiOf(Source &source, const QVector<Track> &tracks) const;
    void writeFile(Source &source, const QString &name, const QString &ending,
                   const std::function<QByteArray()> &makeBytes);
    void printSources() const;
    void fail(const QString &file, const QString &message)
    {
        printFailure(file, message);
        failed_ = true;
    }

    const Arguments &arguments_;
    QVector<Source> sources_; // those that could be read
    QVector<Track> tracks_;
    bool isMerged_ = false; // into one track for all sources
    FileNames names_;
    bool failed_ = false;
};

void Conversion::collectTracks()
{
    for (const auto &[path, song] : readInputs(arguments_, failed_)) {
        sources_.append({path, song});
        tracks_ += song.tracks;
    }
}

bool Conversion::transformTracks()
{
    const auto before = tracks_.size();
    const bool isDone = runOrPrint(arguments_.inputs.join(QStringLiteral(", ")), [this] {
        for (const auto &transform : arguments_.transforms)
            tracks_ = transform(tracks_);
    });
    isMerged_ = tracks_.size() != before;
    failed_ |= !isDone;
    return isDone;
}

void Conversion::writeTracks()
{
    if (!QDir(arguments_.output).mkpath(QStringLiteral("."))) {
        fail(arguments_.output, QStringLiteral("Could not create the directory."));
        return;
    }
    if (isMerged_) {
        write(sources_.first(), tracks_);
        for (auto &source : sources_)
            source.written = sources_.first().written;
        return;
    }
    int first = 0;
    for (auto &source : sources_) {
        write(source, tracks_.mid(first, int(source.trackCount())));
        first += int(source.trackCount());
    }
}

void Conversion::write(Source &source, QVector<Track> tracks)
{
    if (tracks.isEmpty())
        return;
    const auto ending = arguments_.to == ConvertTo::Midi ? QStringLiteral(".mid") : QStringLiteral(".abc");
    switch (arguments_.to) {
    case ConvertTo::Abc:
        for (auto &track : tracks)
            writeFile(source, track.title(), ending, [&] { return track.toAbc().toUtf8(); });
        break;
    case ConvertTo::Midi:
        writeFile(source, nameOf(source), ending, [&] { return midiOf(source, tracks); });
        break;
    case ConvertTo::Tunebook:
        writeFile(source, nameOf(source), ending, [&] {
            QStringList texts;
            for (auto &track : tracks)
                texts.append(track.toAbc());
            return tunebook(texts).toUtf8();
        });
        break;
    }
}

QByteArray Conversion::midiOf(Source &source, const QVector<Track> &tracks) const
{
    const ProgramInstruments programs(arguments_.setting(SettingsTable::ProgramInstrument).toString());
    QVector<ExportedPart> parts;
    for (const auto &track : tracks)
        parts.append(partOf(track, programs));
    if (source.song.song && !isMerged_)
        nameAsIn(*source.song.song, parts, programs);
    const auto midi = exportMidi(nameOf(source), parts);
    source.remark = describe(midi);
    return midi.bytes;
}

void Conversion::writeFile(Source &source, const QString &name, const QString &ending,
                           const std::function<QByteArray()> &makeBytes)
{
    const QDir directory(arguments_.output);
    auto path = source.path;
    const auto nextPath = [&] { return path = directory.filePath(names_.nextFor(name, ending)); };
    const auto write = [&] {
        const auto bytes = makeBytes();
        if (arguments_.force)
            return SafeFile::write(nextPath(), bytes);
        while (!SafeFile::writeNew(nextPath(), bytes)) { // one of that name is there
        }
    };
    if (runOrPrint(path, write))
        source.written.append(path);
    else
        failed_ = true;
}

void Conversion::printSources() const
{
    for (const auto &source : sources_) {
        const auto what = source.written.isEmpty() ? QStringLiteral("wrote nothing, since ") + causeOfNothing(source)
                          : isMerged_              ? QStringLiteral("merged into ") + source.written.first()
                                      : QStringLiteral("wrote ") + source.written.join(QStringLiteral(", "));
        auto line = source.path + QStringLiteral(": ") + what;
        for (const auto &remark : {source.song.remark, source.remark})
            line += remark.isEmpty() ? QString() : QStringLiteral("; ") + remark;
        printLine(line + (source.song.report ? describe(*source.song.report) : QString()));
    }
}

} // namespace

int convert(const Arguments &arguments)
{
    return Conversion(arguments).run();
}
