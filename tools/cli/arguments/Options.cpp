#include "arguments/Options.h"

#include "arrange/Arrangement.h"
#include "import/ChangeKey.h"
#include "import/MergeTracks.h"
#include "import/Realign.h"
#include "import/Transpose.h"
#include "import/UnitLength.h"
#include "import/quantise/CleanQuantise.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

Transform forEachTrack(std::function<Track(const Track &)> change)
{
    return [change = std::move(change)](const QVector<Track> &tracks) {
        QVector<Track> changed;
        std::transform(tracks.begin(), tracks.end(), std::back_inserter(changed), change);
        return changed;
    };
}

Transform makeRealign(const QString &value)
{
    if (value == u"quick")
        return forEachTrack([](const Track &track) { return realign(track, SnapGrid::quick()); });
    QVector<quint32> denominators;
    for (const auto &word : value.split(u',')) {
        const auto denominator = word.toUInt();
        if (denominator == 0 || denominator > ticksPerWholeNote)
            throw WrongUsage{QStringLiteral("--realign takes \"quick\" or denominators from 1 to 40320")};
        denominators.append(denominator);
    }
    return forEachTrack([grid = SnapGrid(denominators)](const Track &track) { return realign(track, grid); });
}

Transform makeQuantise(const QString &)
{
    return forEachTrack([](const Track &track) { return cleanQuantised(track); });
}

Transform makeTranspose(const QString &value)
{
    bool isNumber = false;
    const int semitones = value.toInt(&isNumber);
    if (!isNumber || semitones < -48 || semitones > 48)
        throw WrongUsage{QStringLiteral("--transpose takes a number from -48 to 48")};
    return forEachTrack([semitones](const Track &track) { return transpose(track, semitones); });
}

Transform makeKey(const QString &value)
{
    return forEachTrack([value](const Track &track) { return changeKey(track, value); });
}

Transform makeUnitLength(const QString &value)
{
    static const QRegularExpression unitLength(QStringLiteral("\\A(?:auto|[1-9]\\d{0,4}/[1-9]\\d{0,4})\\z"));
    if (!unitLength.match(value).hasMatch())
        throw WrongUsage{QStringLiteral("--unit-length takes \"auto\" or a fraction like 1/8")};
    return forEachTrack([value](const Track &track) { return changeUnitLength(track, value); });
}

Transform makeMerge(const QString &)
{
    return [](const QVector<Track> &tracks) { return tracks.isEmpty() ? tracks : QVector<Track>{mergeTracks(tracks)}; };
}

template<Transform (*make)(const QString &)>
void readTransform(Arguments &arguments, const QString &value)
{
    arguments.transforms.append(make(value));
}

void readMerge(Arguments &arguments, const QString &value)
{
    readTransform<makeMerge>(arguments, value);
    arguments.merges = true;
}

template<QString Arguments::*member>
void readText(Arguments &arguments, const QString &value)
{
    arguments.*member = value;
}

template<bool Arguments::*member>
void readSwitch(Arguments &arguments, const QString &)
{
    arguments.*member = true;
}

template<typename Value>
using Names = std::initializer_list<std::pair<const char *, Value>>;

// The one of the names that an option has for a value.
template<typename Value>
Value named(const char *option, const QString &text, Names<Value> names)
{
    QStringList known;
    for (const auto &[name, value] : names) {
        if (text == QLatin1String(name))
            return value;
        known.append(QLatin1String(name));
    }
    const auto last = known.takeLast();
    throw WrongUsage{
        QStringLiteral("--%1 takes %2 or %3").arg(QLatin1String(option), known.join(QStringLiteral(", ")), last)};
}

void readFiles(Arguments &arguments, const QString &text)
{
    arguments.files = named<RenderFiles>(
        "files", text, {{"mix", RenderFiles::Mix}, {"parts", RenderFiles::Parts}, {"both", RenderFiles::Both}});
}

void readFormat(Arguments &arguments, const QString &text)
{
    named<int>("format", text, {{"wav", 0}, {"flac", 0}, {"ogg", 0}, {"opus", 0}, {"mp3", 0}});
    arguments.format = text;
}

void readBits(Arguments &arguments, const QString &text)
{
    arguments.bits = named<int>("bits", text, {{"16", 16}, {"24", 24}, {"float", 32}});
}

void readQuality(Arguments &arguments, const QString &text)
{
    bool isNumber = false;
    const double quality = text.toDouble(&isNumber) / 10;
    if (!isNumber || !(quality >= 0 && quality <= 1))
        throw WrongUsage{QStringLiteral("--quality takes a number from 0 to 10")};
    arguments.quality = quality;
}

constexpr int mostPlayers = ArrangeOptions::mostPlayers;
constexpr int mostVoices = ArrangeOptions::mostVoices;

template<int Arguments::*member, int most>
void readCount(Arguments &arguments, const QString &text)
{
    const int count = text.toInt(); // 0 for what is no number
    if (count < 1 || count > most)
        throw WrongUsage{QStringLiteral("\"%1\" is no number from 1 to %2").arg(text).arg(most)};
    arguments.*member = count;
}

void readSetting(Arguments &arguments, const QString &text)
{
    const auto equals = text.indexOf(u'=');
    const auto *const row = SettingsTable::find(text.left(equals));
    if (equals < 0 || row == nullptr)
        throw WrongUsage{QStringLiteral("--set knows no setting in \"%1\"").arg(text)};
    const auto value = SettingsTable::parse(*row, text.mid(equals + 1));
    if (!value)
        throw WrongUsage{QStringLiteral("--set cannot read the value in \"%1\"").arg(text)};
    arguments.settings[row->setting] = *value;
}

void readEngine(Arguments &arguments, const QString &text)
{
    const auto colon = text.indexOf(u':');
    arguments.engine.kind =
        named<EngineKind>("engine", text.left(colon), {{"builtin", EngineKind::Builtin}, {"fmod", EngineKind::Fmod}});
    arguments.engine.libraryFile = colon < 0 ? QString() : text.mid(colon + 1);
    if (colon >= 0 && (arguments.engine.kind == EngineKind::Builtin || arguments.engine.libraryFile.isEmpty()))
        throw WrongUsage{QStringLiteral("--engine takes a file only as fmod:FILE")};
}

void readReading(Arguments &arguments, const QString &text)
{
    arguments.reading = named<AbcDialect>(
        "read", text, {{"game", AbcDialect::Game}, {"standard", AbcDialect::Standard}, {"auto", AbcDialect::Auto}});
}

void readConvertTo(Arguments &arguments, const QString &text)
{
    arguments.to = named<ConvertTo>(
        "to", text, {{"abc", ConvertTo::Abc}, {"midi", ConvertTo::Midi}, {"tunebook", ConvertTo::Tunebook}});
}

void readNames(Arguments &arguments, const QString &text)
{
    arguments.names = named<PartNames>("names", text, {{"song", PartNames::Song}, {"title", PartNames::Title}});
}

} // namespace

const std::vector<Option> &allOptions()
{
    static const std::vector<Option> table{
        {"output", 'o', "FILE",
         "the file or folder to write, - for standard output; the ending of a sound file says its format",
         readText<&Arguments::output>},
        {"force", 'f', "", "write over files that are there", readSwitch<&Arguments::force>},
        {"to", 0, "abc|midi|tunebook", "ABC for each part, or one MIDI file or one book of tunes for each input",
         readConvertTo},
        {"names", 0, "song|title", "ABC files are \"SONG - PART.abc\", or are called as the part alone", readNames},
        {"title", 't', "TEXT", "the title of the song, else the name of its file", readText<&Arguments::title>},
        {"json", 0, "", "print JSON, for other programs", readSwitch<&Arguments::json>},
        {"summary", 0, "", "end with a table of all inputs", readSwitch<&Arguments::summary>},
        {"manifest", 0, "", "write a manifest.json beside the results: songs, parts, lengths, players, findings",
         readSwitch<&Arguments::manifest>},
        {"game", 'g', "DIR", "the folder that the game is installed in", readText<&Arguments::game>},
        {"mods", 'm', "", "use the instruments of the game's mods as well", readSwitch<&Arguments::mods>},
        {"instrument", 'i', "NAME", "plays the parts that name none", readText<&Arguments::instrument>},
        {"files", 0, "mix|parts|both", "all parts in one file, a file for each part, or both", readFiles},
        {"format", 0, "wav|flac|ogg|opus|mp3", "of the sound files in a folder; wav without it", readFormat},
        {"bits", 0, "16|24|float", "of a sample, in WAV and FLAC; 16 without it", readBits},
        {"quality", 'q', "0…10", "of Vorbis, Opus and MP3; 7 without it, 10 makes the largest files", readQuality},
        {"loop", 0, "", "only what sounds in the loop of the song file", readSwitch<&Arguments::loop>},
        {"normalise", 'n', "", "as loud as can be without clipping: -1 dBFS", readSwitch<&Arguments::normalise>},
        {"start-offsets", 0, "", "parts come in later or sooner, by the start offsets of the song file",
         readSwitch<&Arguments::startOffsets>},
        {"engine", 0, "builtin|fmod[:FILE]", "what mixes: this program, or your own FMOD library, which writes WAV",
         readEngine},
        {"players", 'p', "N", "how many people play, 1 to 24", readCount<&Arguments::players, mostPlayers>},
        {"voices", 'k', "K", "most notes at once of one player, 1 to 8; 3 without it",
         readCount<&Arguments::voices, mostVoices>},
        {"read", 'r', "game|standard|auto",
         "how ABC is meant: as the game plays it, as musicians write it, or by what the text shows", readReading},
        {"set", 's', "KEY=VALUE", "reads the inputs with another setting; may be repeated", readSetting},
        {"realign", 0, "quick|D1,D2,…", "snap notes to the usual grids, or to the grids with these denominators",
         readTransform<makeRealign>},
        {"quantise", 0, "", "write notes as a musician would, on the grid of each measure",
         readTransform<makeQuantise>},
        {"transpose", 0, "N", "move notes by N semitones, -48 to 48", readTransform<makeTranspose>},
        {"key", 0, "TEXT", "the new key, for example Am", readTransform<makeKey>},
        {"unit-length", 0, "auto|N/D", "the new unit note length, auto for the shortest text",
         readTransform<makeUnitLength>},
        {"merge", 0, "", "make one part of all parts so far", readMerge},
    };
    return table;
}

const Option &optionNamed(const QString &name)
{
    const auto &options = allOptions();
    const auto found = std::find_if(options.begin(), options.end(),
                                    [&](const Option &option) { return name == QLatin1String(option.name); });
    Q_ASSERT(found != options.end());
    return *found;
}

const std::vector<SettingHelp> &settingsHelp()
{
    using namespace SettingsTable;
    static const std::vector<SettingHelp> table{
        {MidiMergeChannels, "one part for each channel, not one for each MIDI track and channel"},
        {MidiAutoRealign, "snaps notes to the usual grids"},
        {MidiCleanQuantise, "does what --quantise does, instead of snapping"},
        {MidiPitchBend, "cuts bent notes into notes of whole semitones"},
        {MidiAutoDetectUnitLength, "chooses the unit length that makes the text shortest; for MML as well"},
        {MidiMergedUnitLength, "does that with merged channels, too"},
        {MidiProcessVolume, "keeps how hard notes are struck"},
        {MidiVelocityGate, "leaves out notes that are struck softer, of 0 to 127"},
        {MidiEndRestruck, "a note that is struck again while it sounds ends there, instead of being lost"},
        {MidiSustainPedal, "notes sound on while the pedal is down"},
        {MidiSplitPrograms, "a channel that changes its program becomes a part for each"},
        {MidiTrackNames, "parts have the names of their MIDI tracks"},
        {MidiFoldOctaves, "notes out of range move by octaves, instead of being left out"},
        {MidiExactTempo, "tempos within 0.01 %, instead of whole quarter notes a minute"},
        {MidiReadAllChunks, "reads all chunks, however many the header counts"},
        {AbcGraceNotes, "grace notes of standard ABC sound, instead of being left out"},
        {AbcPlayChordNames, "chord names of standard ABC become a part, instead of a remark"},
        {AbcTempoInQuarters, "a tempo alone, \"Q:120\", counts quarter notes, instead of unit notes"},
        {CheckSemitones, "how far a note may be from its sample, for check"},
        {CheckNotesAtOnce, "how many notes of a part may sound at once, for check; 0: any number"},
        {CheckCharacters, "how long the text of a part may be, for check; 0: any length"},
        {ProgramInstrument, "instruments for MIDI programs, as lines PROGRAM=NAME (128: percussion)"},
    };
    return table;
}
