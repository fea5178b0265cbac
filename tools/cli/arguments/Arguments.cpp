#include "arguments/Arguments.h"

#include "arguments/Options.h"

#include <QCommandLineParser>

#include <algorithm>

namespace {

const auto transforms = QStringLiteral("transforms");
const auto help = QStringLiteral("help");
const auto version = QStringLiteral("version");

// The options that read the inputs and change their tracks.
constexpr const char *transformOptions = "read set realign quantise transpose key unit-length merge";

QStringList wordsOf(const char *words)
{
    return QString::fromUtf8(words).split(u' ', Qt::SkipEmptyParts);
}

CommandOption commandOption(const QString &word)
{
    const auto equals = word.indexOf(u'=');
    const auto name = word.left(equals);
    const auto value = equals < 0 ? QString::fromUtf8(optionNamed(name).value) : word.mid(equals + 1);
    return {name, value};
}

// The words lose the name of the command, which may be two of them.
const Command *takeCommand(QStringList &words, const std::vector<Command> &commands)
{
    for (const auto &command : commands) {
        const auto name = wordsOf(command.name);
        if (words.mid(0, name.size()) != name)
            continue;
        words = words.mid(name.size());
        return &command;
    }
    return nullptr;
}

void checkUsage(const Command &command, const QStringList &given, int inputCount)
{
    const auto name = QLatin1String(command.name);
    const auto known = optionsOf(command);
    for (const auto &option : given) {
        const auto isIt = [&](const CommandOption &candidate) { return candidate.name == option; };
        if (std::none_of(known.begin(), known.end(), isIt))
            throw WrongUsage{QStringLiteral("%1 takes no --%2").arg(name, option)};
    }
    for (const auto &option : known) {
        if (option.isRequired && !given.contains(option.name))
            throw WrongUsage{QStringLiteral("%1 needs --%2").arg(name, option.name)};
    }
    if (inputCount < command.fewestInputs)
        throw WrongUsage{QStringLiteral("%1 needs %2").arg(name, QString::fromUtf8(command.inputs))};
    if (inputCount > command.mostInputs)
        throw WrongUsage{QStringLiteral("%1 takes fewer words").arg(name)};
}

void addOptions(QCommandLineParser &parser)
{
    for (const auto &option : allOptions()) {
        QStringList names(QLatin1String(option.name));
        if (option.letter != 0)
            names.append(QChar::fromLatin1(option.letter));
        parser.addOption({names, QString(), QString::fromUtf8(option.value)});
    }
    parser.addOption({QStringList{help, QStringLiteral("h")}, QString()});
    parser.addOption(QCommandLineOption(version));
}

// The names of the options in the order given, with short forms written out.
QStringList namesGiven(const QCommandLineParser &parser)
{
    auto names = parser.optionNames();
    for (auto &name : names) {
        for (const auto &option : allOptions()) {
            if (name == QChar::fromLatin1(option.letter))
                name = QLatin1String(option.name);
        }
    }
    return names;
}

// Options that are given several times have their values in order; walking the names in order pairs the two.
void readOptions(Arguments &arguments, const QCommandLineParser &parser, const QStringList &names)
{
    QHash<QString, int> valuesUsed;
    for (const auto &name : names)
        optionNamed(name).read(arguments, parser.values(name).value(valuesUsed[name]++));
}

Arguments argumentsOf(const Command &command, const QStringList &inputs, const QCommandLineParser &parser)
{
    Arguments arguments;
    arguments.inputs = inputs;
    arguments.reading = command.reading;
    const auto names = namesGiven(parser);
    checkUsage(command, names, int(inputs.size()));
    readOptions(arguments, parser, names);
    return arguments;
}

} // namespace

bool takesTransforms(const Command &command)
{
    return wordsOf(command.optional).contains(transforms);
}

QVector<CommandOption> optionsOf(const Command &command)
{
    QVector<CommandOption> options;
    for (const auto &word : wordsOf(command.required)) {
        options.append(commandOption(word));
        options.last().isRequired = true;
    }
    for (const auto &word : wordsOf(command.optional)) {
        for (const auto &each : word == transforms ? wordsOf(transformOptions) : QStringList(word))
            options.append(commandOption(each));
    }
    return options;
}

Invocation parseArguments(const QStringList &words, const std::vector<Command> &commands)
{
    QCommandLineParser parser;
    addOptions(parser);
    const bool isUnderstood = parser.parse(words);
    auto inputs = parser.positionalArguments();
    const auto *const command = takeCommand(inputs, commands);
    if (parser.isSet(help))
        throw HelpWanted{command};
    if (parser.isSet(version))
        throw VersionWanted{};
    if (!isUnderstood)
        throw WrongUsage{parser.errorText(), command};
    if (command == nullptr)
        throw WrongUsage{inputs.isEmpty() ? QStringLiteral("a command is missing")
                                          : QStringLiteral("unknown command \"%1\"").arg(inputs.join(u' '))};
    try {
        return {command, argumentsOf(*command, inputs, parser)};
    } catch (WrongUsage &usage) {
        usage.command = command;
        throw;
    }
}
