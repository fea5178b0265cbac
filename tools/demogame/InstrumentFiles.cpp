#include "InstrumentFiles.h"

#include "Drums.h"
#include "Icons.h"
#include "MelodicInstruments.h"
#include "TuningText.h"

#include <cmath>

namespace {

// The keys of a piano: whatever a song asks for sounds.
constexpr int lowestNote = 21;
constexpr int highestNote = 108;
constexpr int drumRate = 44100;
constexpr double drumLevel = 0.45;

// The ear is keener up there: equal peaks would let high notes shout and low ones drown.
constexpr double softerPerOctave = 0.25; // halvings

double hertzOf(int note)
{
    return 440 * std::exp2((note - 69) / 12.0);
}

void scale(Channels &channels, double gain)
{
    for (auto &signal : channels)
        for (auto &value : signal)
            value *= gain;
}

QByteArray itemText(const QString &name, const QString &kind, const QString &description)
{
    return QStringLiteral("// %1, an instrument of the demo game.\n"
                          "{\n"
                          "    \"itemName\": \"demo%2\",\n"
                          "    \"shortdescription\": \"%1\", // what players see\n"
                          "    \"description\": \"%3\",\n"
                          "    \"inventoryIcon\": \"%2.png\",\n"
                          "    \"kind\": \"%2\" // the directory of its tuning\n"
                          "}\n")
        .arg(name, kind, description)
        .toUtf8();
}

QString tuningDirectory(const QString &kind)
{
    return QStringLiteral("/sfx/instruments/%1/").arg(kind);
}

Files describe(const QString &name, const QString &kind, const QString &description, const TuningText &tuning)
{
    const auto itemPath = QStringLiteral("/items/instruments/%1.").arg(kind);
    return {{itemPath + QStringLiteral("instrument"), itemText(name, kind, description)},
            {itemPath + QStringLiteral("png"), iconPng(kind)},
            {tuningDirectory(kind) + QStringLiteral("tuning.config"), tuning.bytes()}};
}

QByteArray melodicSample(const MelodicInstrument &instrument, int note, int take)
{
    auto channels =
        instrument.render({hertzOf(note), instrument.rate, instrument.seconds, quint32(note + 1000 * take)});
    scale(channels, instrument.level * std::exp2(softerPerOctave * (60 - note) / 12));
    return sampleFile(channels, instrument.rate, instrument.format);
}

QString sampleName(const MelodicInstrument &instrument, int note, int take)
{
    const auto takeName = instrument.takes == 1 ? QString() : QStringLiteral("-take%1").arg(take + 1);
    return QStringLiteral("$instrument$-%1%2%3").arg(note).arg(takeName, QLatin1String(fileEnding(instrument.format)));
}

bool isSampled(const MelodicInstrument &instrument, int note)
{
    return note >= instrument.lowest && note <= instrument.highest && (note - instrument.lowest) % instrument.step == 0;
}

Files melodicFiles(const MelodicInstrument &instrument)
{
    const auto kind = QString::fromUtf8(instrument.kind);
    const auto name = QString::fromUtf8(instrument.name);
    TuningText tuning(name, instrument.fadeout);
    Files files;
    for (int note = lowestNote; note <= highestNote; ++note) {
        QStringList names;
        for (int take = 0; isSampled(instrument, note) && take < instrument.takes; ++take) {
            names.append(sampleName(instrument, note, take));
            auto path = tuningDirectory(kind) + names.last();
            files.emplace(path.replace(QLatin1String("$instrument$"), kind), melodicSample(instrument, note, take));
        }
        tuning.add(note, hertzOf(note), names);
    }
    files.merge(describe(name, kind, QString::fromUtf8(instrument.description), tuning));
    return files;
}

Files drumFiles()
{
    const auto kind = QStringLiteral("drums");
    TuningText tuning(QStringLiteral("Drums"), 1.5);
    Files files;
    for (const auto &drum : drumKit()) {
        const auto sampleName = QLatin1String(drum.name) + QLatin1String(fileEnding(SampleFormat::Wav));
        auto channels = renderDrum(drum, drumRate);
        scale(channels, drumLevel);
        files.emplace(tuningDirectory(kind) + sampleName, sampleFile(channels, drumRate, SampleFormat::Wav));
        tuning.add(drum.key, hertzOf(drum.key), {sampleName});
    }
    files.merge(describe(QStringLiteral("Drums"), kind, QStringLiteral("One sound for each key."), tuning));
    return files;
}

} // namespace

Files instrumentFiles(const QString &kind)
{
    return kind == QLatin1String("drums") ? drumFiles() : melodicFiles(melodicInstrument(kind));
}
