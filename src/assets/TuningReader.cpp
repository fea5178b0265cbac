#include "assets/TuningReader.h"

#include "assets/GameJson.h"
#include "assets/package/Logging.h"
#include "base/FilePaths.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonParseError>

#include <algorithm>

namespace {
// A shorter fade would click.
constexpr double shortestFadeout = 0.005;

// Several for each key of a piano. Names of a few bytes grow to whole paths.
constexpr int maxSamples = 2048;

QString unreadable(const QString &kind, const QString &reason)
{
    return QStringLiteral("Could not read tuning file for %1. Reason: %2.").arg(kind, reason);
}

QJsonObject rootObject(const QByteArray &bytes, const QString &kind)
{
    QJsonParseError error;
    const auto document = parseGameJson(bytes, &error);
    if (document.isNull())
        throw unreadable(kind, error.errorString());
    if (!document.isObject())
        throw QStringLiteral("Could not read tuning file for %1, root element is not an object.").arg(kind);
    return document.object();
}

QStringList namesIn(const QJsonObject &entry)
{
    const auto file = entry.value(QLatin1String("file"));
    if (file.isString())
        return {file.toString()};
    const auto files = entry.value(QLatin1String("files"));
    if (!files.isArray())
        return {};
    QStringList names;
    for (const auto &name : files.toArray()) {
        if (name.isString())
            names.append(name.toString());
    }
    return names;
}

QString samplePath(QString name, const QString &kind, const QString &prefix)
{
    name.replace(QLatin1String("$instrument$"), kind);
    if (name.startsWith(QLatin1Char('/')))
        name.remove(0, 1);
    return prefix + name;
}

QStringList samplesOf(const QStringList &names, const QString &kind, const SampleBase &base)
{
    QStringList samples;
    for (const auto &name : names) {
        const auto path = samplePath(name, kind, base.prefix);
        const bool isInDirectory = base.directory.isEmpty() || isInside(base.directory, path);
        if (isInDirectory && (base.mod.isEmpty() || !leadsOutOf(base.mod, path)))
            samples.append(path);
        else
            qCWarning(assetsLog).noquote()
                << QStringLiteral("Sample %1 of %2 lies outside of its assets directory.").arg(path, kind);
    }
    return samples;
}

using NoteMap = QMap<quint32, NoteEntry>;

NoteMap mappedNotes(const QJsonObject &mapping, const QString &kind, const SampleBase &base)
{
    NoteMap notes;
    int samples = 0;
    for (auto member = mapping.begin(); member != mapping.end(); ++member) {
        const auto number = member.key().toUInt();
        const auto value = *member;
        if (number == 0 || !value.isObject())
            continue;
        const auto entry = value.toObject();
        const auto names = namesIn(entry);
        NoteEntry note{samplesOf(names, kind, base), 1.0, entry.value(QLatin1String("f")).toDouble()};
        if (note.files.isEmpty() && !names.isEmpty())
            continue; // silent, like a note whose sample is missing, not another note's sound
        samples += int(note.files.size());
        if (samples > maxSamples)
            throw unreadable(kind, QStringLiteral("too many samples"));
        notes.insert(number, note);
    }
    return notes;
}

// From the lowest note up, so that the reference is always the nearest note with files of its own at or below.
void fillGaps(NoteMap &notes, const QString &kind)
{
    const auto hasFiles = [](const NoteEntry &note) { return !note.files.isEmpty(); };
    auto reference = std::find_if(notes.begin(), notes.end(), hasFiles);
    for (auto note = notes.begin(); note != notes.end(); ++note) {
        if (hasFiles(*note)) {
            reference = note;
            continue;
        }
        if (reference == notes.end())
            throw QStringLiteral("Could not map instrument note %1 for %2.").arg(note.key()).arg(kind);
        note->files = reference->files;
        note->rate = note->frequency / reference->frequency;
    }
}
} // namespace

Tuning readTuning(const QByteArray &bytes, const QString &kind, const SampleBase &base)
{
    const auto root = rootObject(bytes, kind);
    Tuning tuning;
    tuning.fadeout = std::max(shortestFadeout, root.value(QLatin1String("fadeout")).toDouble());
    tuning.notes = mappedNotes(root.value(QLatin1String("mapping")).toObject(), kind, base);
    fillGaps(tuning.notes, kind);
    return tuning;
}
