#include "Arguments.h"

#include "import/ChangeKey.h"
#include "import/MergeTracks.h"
#include "import/Realign.h"
#include "import/Transpose.h"
#include "import/UnitLength.h"
#include "import/quantise/CleanQuantise.h"

#include <QCommandLineParser>
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

struct TransformOption
{
    const char *name;
    const char *valueName; // empty for an option without a value
    Transform (*make)(const QString &value);
};

constexpr TransformOption transformOptions[] = {
    {"realign", "grids", makeRealign}, {"transpose", "semitones", makeTranspose},
    {"key", "key", makeKey},           {"unit-length", "length", makeUnitLength},
    {"merge", "", makeMerge},          {"quantise", "", makeQuantise},
};

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

RenderFiles readFiles(const QString &text)
{
    return named<RenderFiles>("files", text,
                              {{"mix", RenderFiles::Mix}, {"parts", RenderFiles::Parts}, {"both", RenderFiles::Both}});
}

int readBits(const QString &text)
{
    return named<int>("bits", text, {{"16", 16}, {"24", 24}, {"float", 32}});
}

double readQuality(const QString &text)
{
    bool isNumber = false;
    const double quality = text.toDouble(&isNumber) / 10;
    if (!isNumber || !(quality >= 0 && quality <= 1))
        throw WrongUsage{QStringLiteral("--quality takes a number from 0 to 10")};
    return quality;
}

void readRendering(Arguments &arguments, const QCommandLineParser &parser)
{
    for (const auto &files : parser.values(QStringLiteral("files")))
        arguments.files = readFiles(files);
    for (const auto &bits : parser.values(QStringLiteral("bits")))
        arguments.bits = readBits(bits);
    for (const auto &quality : parser.values(QStringLiteral("quality")))
        arguments.quality = readQuality(quality);
    arguments.loop = parser.isSet(QStringLiteral("loop"));
    arguments.normalise = parser.isSet(QStringLiteral("normalise"));
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

AbcDialect readReading(const QString &text)
{
    return named<AbcDialect>(
        "read", text, {{"game", AbcDialect::Game}, {"standard", AbcDialect::Standard}, {"auto", AbcDialect::Auto}});
}

ConvertTo readConvertTo(const QString &text)
{
    return named<ConvertTo>("to", text,
                            {{"abc", ConvertTo::Abc}, {"midi", ConvertTo::Midi}, {"tunebook", ConvertTo::Tunebook}});
}

// Options that are given several times have their values in order; walking the names in order pairs the two.
void readTransforms(Arguments &arguments, const QCommandLineParser &parser)
{
    QHash<QString, int> valuesUsed;
    for (const auto &name : parser.optionNames()) {
        for (const auto &option : transformOptions) {
            if (name != QLatin1String(option.name))
                continue;
            const auto value = parser.values(name).value(valuesUsed[name]++);
            arguments.transforms.append(option.make(value));
        }
    }
}

const char *const transformHelp = R"(
INPUT is a .mid, .midi, .abc or .kvsong file, another text file that begins with "X:" (ABC) or "MML@" (MML) or holds
nothing but commands of MML, or - for standard input.

--read says how ABC is meant: "game" as the game plays it, "standard" as musicians write it (repeats, voices and
bar lines as in the ABC standard; the result is written for the game), "auto" by what the text shows. Only convert
begins with auto, and says when it read a text as standard ABC.

TRANSFORM, applied to every track in the order given:
  --realign quick | D1,D2,…   snap notes to the usual grids, or to the grids with these denominators
  --quantise                  write notes as a musician would, on the grid of each measure
  --transpose N               move notes by N semitones, -48 to 48
  --key TEXT                  the new key, for example Am
  --unit-length auto | N/D    the new unit note length
  --merge                     merge all tracks so far into one
)";

const auto transforms = QStringLiteral("transforms");

QStringList namesIn(const char *names)
{
    return QString::fromLatin1(names).split(u' ', Qt::SkipEmptyParts);
}

bool takesTransforms(const Command &command)
{
    return namesIn(command.optional).contains(transforms);
}

QStringList optionsOf(const Command &command)
{
    auto names = namesIn(command.required) + namesIn(command.optional);
    if (names.removeAll(transforms) > 0) {
        names += {QStringLiteral("set"), QStringLiteral("read")};
        for (const auto &option : transformOptions)
            names.append(QLatin1String(option.name));
    }
    return names;
}

// A command's name may be two of the words.
const Command &takeCommand(QStringList &words, const std::vector<Command> &commands)
{
    for (const auto &command : commands) {
        const auto name = namesIn(command.name);
        if (words.mid(0, name.size()) != name)
            continue;
        words = words.mid(name.size());
        return command;
    }
    throw WrongUsage{words.isEmpty() ? QStringLiteral("a command is missing")
                                     : QStringLiteral("unknown command \"%1\"").arg(words.join(u' '))};
}

void checkUsage(const Command &command, const QStringList &options, int inputCount)
{
    const auto name = QLatin1String(command.name);
    const auto known = optionsOf(command);
    for (const auto &option : options) {
        if (!known.contains(option))
            throw WrongUsage{QStringLiteral("%1 takes no --%2").arg(name, option)};
    }
    for (const auto &option : namesIn(command.required)) {
        if (!options.contains(option))
            throw WrongUsage{QStringLiteral("%1 needs --%2").arg(name, option)};
    }
    if (inputCount < command.fewestInputs || inputCount > command.mostInputs)
        throw WrongUsage{QStringLiteral("%1 is used as: %1 %2").arg(name, QString::fromUtf8(command.usage))};
}

void addOptions(QCommandLineParser &parser)
{
    for (const char *name : {"output", "game", "instrument", "title", "set", "read", "to", "files", "bits", "quality"})
        parser.addOption({QLatin1String(name), QString(), QStringLiteral("value")});
    for (const char *name : {"mods", "json", "force", "loop", "normalise", "help"})
        parser.addOption(QCommandLineOption(QLatin1String(name)));
    for (const auto &option : transformOptions)
        parser.addOption({QLatin1String(option.name), QString(), QLatin1String(option.valueName)});
}

} // namespace

Invocation parseArguments(const QStringList &words, const std::vector<Command> &commands)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(words))
        throw WrongUsage{parser.errorText()};
    if (parser.isSet(QStringLiteral("help")))
        throw HelpWanted{};

    Arguments arguments;
    arguments.inputs = parser.positionalArguments();
    const auto &command = takeCommand(arguments.inputs, commands);
    checkUsage(command, parser.optionNames(), int(arguments.inputs.size()));
    arguments.output = parser.value(QStringLiteral("output"));
    arguments.game = parser.value(QStringLiteral("game"));
    arguments.instrument = parser.value(QStringLiteral("instrument"));
    arguments.title = parser.value(QStringLiteral("title"));
    arguments.mods = parser.isSet(QStringLiteral("mods"));
    arguments.json = parser.isSet(QStringLiteral("json"));
    arguments.reading = command.reading;
    for (const auto &reading : parser.values(QStringLiteral("read")))
        arguments.reading = readReading(reading);
    for (const auto &to : parser.values(QStringLiteral("to")))
        arguments.to = readConvertTo(to);
    arguments.force = parser.isSet(QStringLiteral("force"));
    readRendering(arguments, parser);
    for (const auto &setting : parser.values(QStringLiteral("set")))
        readSetting(arguments, setting);
    readTransforms(arguments, parser);
    return {&command, arguments};
}

QString usageText(const std::vector<Command> &commands)
{
    auto text = QStringLiteral("Usage:\n");
    for (const auto &command : commands) {
        text += QStringLiteral("  kelvarion-composer-cli %1 %2")
                    .arg(QLatin1String(command.name), QString::fromUtf8(command.usage));
        text += takesTransforms(command) ? QStringLiteral(" [--read HOW] [--set KEY=VALUE…] [TRANSFORM…]\n")
                                         : QStringLiteral("\n");
    }
    return text + QString::fromUtf8(transformHelp);
}
