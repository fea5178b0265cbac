#include "Input.h"

#include "Messages.h"
#include "base/TextDecoding.h"
#include "core/AbcParser.h"
#include "import/MidiImport.h"
#include "import/MmlImport.h"

#include <QFile>
#include <QFileInfo>

namespace {

enum class Format { Midi, Abc, ByText };

Format formatOfName(const QString &path)
{
    const auto suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"mid" || suffix == u"midi")
        return Format::Midi;
    return suffix == u"abc" ? Format::Abc : Format::ByText;
}

QByteArray readBytes(const QString &path)
{
    constexpr qint64 largestFile = 256 * 1024 * 1024;
    QFile file(path);
    const bool isOpen = path == u"-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!isOpen)
        throw QStringLiteral("Could not open file.");
    QByteArray bytes;
    while (bytes.size() <= largestFile) {
        const auto block = file.read(1024 * 1024);
        if (block.isEmpty())
            return bytes;
        bytes += block;
    }
    throw QStringLiteral("The file is larger than 256 MB.");
}

MidiImportOptions midiOptions(const Arguments &arguments)
{
    using namespace SettingsTable;
    return {arguments.flag(MidiMergeChannels), arguments.flag(MidiAutoRealign), arguments.flag(MidiPitchBend),
            arguments.flag(MidiAutoDetectUnitLength), arguments.flag(MidiProcessVolume)};
}

Input readText(const QString &text, Format format, const Arguments &arguments)
{
    if (format == Format::Abc || text.startsWith(u"X:"))
        return {{parseAbc(text)}, {}};
    if (!text.startsWith(u"MML@"))
        throw QStringLiteral("Unknown file type.");
    auto result = importMml(text, {arguments.flag(SettingsTable::MidiAutoDetectUnitLength)});
    return {std::move(result.tracks), result.report};
}

} // namespace

Input readInput(const QString &path, const Arguments &arguments)
{
    auto format = path == u"-" ? Format::ByText : formatOfName(path);
    auto bytes = readBytes(path);
    if (path == u"-" && bytes.startsWith("MThd"))
        format = Format::Midi;
    if (format == Format::Midi) {
        auto result = importMidi(bytes, midiOptions(arguments));
        return {std::move(result.tracks), result.report};
    }
    const auto text = decodeText(std::move(bytes));
    return readText(text, format, arguments);
}

QVector<NamedInput> readInputs(const Arguments &arguments, bool &failed)
{
    QVector<NamedInput> inputs;
    const auto total = int(arguments.inputs.size());
    for (int done = 0; done < total; ++done) {
        const auto &path = arguments.inputs[done];
        printProgress(done, total);
        try {
            inputs.append({path, readInput(path, arguments)});
        } catch (const QString &message) {
            printFailure(path, message);
            failed = true;
        }
    }
    printProgress(total, total);
    return inputs;
}
