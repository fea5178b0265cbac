#include "app/exporting/NotationExport.h"

#include "app/services/SongSession.h"
#include "base/SafeFile.h"
#include "export/ProgramGuess.h"
#include "export/Tunebook.h"
#include "settings/LastFolder.h"
#include "ui/Dialogs.h"
#include "ui/tracks/TrackList.h"

#include <QDir>
#include <QFileInfo>
#include <QWidget>

struct NotationExport::Made
{
    QByteArray bytes;
    QString remark;
};

struct NotationExport::Format
{
    QString caption;
    QString filter;
    QString ending;
    Settings::Setting folder;
    Made (*make)(const QString &name, QVector<ExportedPart> parts, const TaskControl &control); // [any]
};

QVector<ActionRow> NotationExport::actions()
{
    return {
        {"actionExport_MIDI", tr("Export MIDI..."), "", tr("Write all parts into one MIDI file"), "export",
         "onExportMidi()", Available::WithTracks},
        {"actionExport_Tunebook", tr("Export Tunebook..."), "", tr("Write all parts into one ABC file, as tunes"),
         "export", "onExportTunebook()", Available::WithTracks},
    };
}

void NotationExport::exportMidi()
{
    const auto make = [](const QString &name, QVector<ExportedPart> parts, const TaskControl &control) {
        const auto midi = ::exportMidi(name, parts, control.stop());
        QStringList remarks;
        if (midi.cutNotes > 0)
            remarks.append(tr("%n note(s) end where their pitch begins again", nullptr, midi.cutNotes));
        if (midi.leftOut > 0)
            remarks.append(tr("%n note(s) are too high for MIDI", nullptr, midi.leftOut));
        if (midi.movedParts > 0)
            remarks.append(tr("%n part(s) are written in the tempo of the longest", nullptr, midi.movedParts));
        return Made{midi.bytes, remarks.join(QStringLiteral("; "))};
    };
    write({tr("Export MIDI"), tr("MIDI file (*.mid)"), QStringLiteral(".mid"), Settings::MidiSaveDir, make});
}

void NotationExport::exportTunebook()
{
    const auto make = [](const QString &, QVector<ExportedPart> parts, const TaskControl &) {
        QStringList texts;
        for (auto &part : parts)
            texts.append(part.track.toAbc());
        return Made{tunebook(texts).toUtf8(), {}};
    };
    write({tr("Export Tunebook"), tr("ABC Files (*.abc)"), QStringLiteral(".abc"), Settings::AbcSaveDir, make});
}

void NotationExport::write(const Format &format)
{
    if (task_.isRunning())
        return;
    context_.session.takeEdits(context_.tracks.ids());
    const auto path = chosenFile(format);
    if (path.isEmpty())
        return;
    const auto parts = this->parts();
    std::size_t bytes = 0;
    for (const auto &part : parts)
        bytes += 128 * std::size_t(part.track.events().size());
    const auto work = [=, name = context_.session.name(), make = format.make](const TaskControl &control) {
        const auto made = make(name, parts, control);
        SafeFile::write(path, made.bytes);
        return made.remark;
    };
    const auto tell = [=, this](const QString &remark) {
        end_.tellWritten({path}, remark);
        emit written({path}, remark);
    };
    end_.begin();
    task_.start(
        work, tell, [=, this](const QString &reason) { showFailure(path, reason); }, bytes);
}

QString NotationExport::chosenFile(const Format &format)
{
    const auto proposed = proposedFile(context_.settings, format.folder, context_.session.name(), format.ending);
    const auto path = context_.dialogs.saveFile(&context_.window, format.caption, proposed, format.filter);
    if (!path.isEmpty())
        context_.settings.setValue(format.folder, QFileInfo(path).absolutePath());
    return path;
}

QVector<ExportedPart> NotationExport::parts() const
{
    const ProgramInstruments chosen(context_.settings.value(Settings::ProgramInstrument).toString());
    QVector<ExportedPart> parts;
    for (const auto &track : context_.tracks.song()) {
        const auto titles = track->track->headerFields(QStringLiteral("T"));
        const auto program = guessProgram(track->instrument, titles, chosen);
        parts.append({*track->track, track->track->title(), track->instrument, program});
    }
    return parts;
}

void NotationExport::showFailure(const QString &path, const QString &reason)
{
    const auto text = QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), reason);
    end_.tellFailure(text);
    context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, tr("Export"), text);
}
