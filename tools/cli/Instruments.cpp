#include "Instruments.h"

#include "assets/GameInstallation.h"
#include "assets/InstrumentScan.h"
#include "streams/Messages.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QByteArray noteJson(quint32 number, const NoteEntry &note)
{
    const QJsonObject object{{QStringLiteral("files"), QJsonArray::fromStringList(note.files)},
                             {QStringLiteral("rate"), note.rate},
                             {QStringLiteral("frequency"), note.frequency}};
    return '"' + QByteArray::number(number) + "\":" + compact(object);
}

// The notes are put together here, as a JSON object of Qt's sorts "100" before "60".
QByteArray instrumentJson(const Instrument &instrument)
{
    auto json = compact({{QStringLiteral("name"), instrument.name},
                         {QStringLiteral("iconWidth"), instrument.icon.width()},
                         {QStringLiteral("iconHeight"), instrument.icon.height()},
                         {QStringLiteral("fadeout"), instrument.tuning.fadeout}});
    json.chop(1); // the brace
    json += ",\"notes\":{";
    const auto &notes = instrument.tuning.notes;
    for (auto note = notes.begin(); note != notes.end(); ++note)
        json += (note == notes.begin() ? "\n" : ",\n") + noteJson(note.key(), *note);
    return json + "}}";
}

void writeJson(const InstrumentSet &instruments, QIODevice &out)
{
    out.write("{\"instruments\":[");
    const char *separator = "\n";
    for (const auto &name : instruments.names()) {
        out.write(separator + instrumentJson(instruments.instrument(name)));
        separator = ",\n";
    }
    out.write("]}\n");
}

QString describe(const Tuning &tuning)
{
    if (tuning.notes.isEmpty())
        return QStringLiteral("no notes");
    QStringList files;
    for (const auto &note : tuning.notes)
        files += note.files.mid(0, 1);
    files.removeDuplicates();
    return QStringLiteral("notes %1 to %2, %3 samples")
        .arg(tuning.notes.firstKey())
        .arg(tuning.notes.lastKey())
        .arg(files.size());
}

void writeLines(const InstrumentSet &instruments, QIODevice &out)
{
    for (const auto &name : instruments.names()) {
        const auto description = describe(instruments.instrument(name).tuning);
        out.write(printable(QStringLiteral("%1: %2").arg(name, description)).toUtf8() + '\n');
    }
}

} // namespace

InstrumentSet scanGame(const Arguments &arguments)
{
    if (!isGameInstallation(arguments.game))
        throw QStringLiteral("No Kelvarion installation was found at the specified directory.");
    int total = 0;
    const auto mods = arguments.mods ? Mods::Load : Mods::Skip;
    const auto instruments = scanInstruments(arguments.game, mods, [&total](const ScanProgress &progress) {
        total = progress.total;
        printProgress(progress.done, total);
        return true;
    });
    printProgress(total, total);
    return instruments;
}

int listInstruments(const Arguments &arguments)
{
    const auto list = [&arguments] {
        const auto instruments = scanGame(arguments);
        StandardOutput out;
        (arguments.json ? writeJson : writeLines)(instruments, out.device());
        out.finish();
    };
    return runOrPrint(arguments.game, list) ? 0 : 1;
}
