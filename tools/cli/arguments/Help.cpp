#include "arguments/Help.h"

#include "arguments/Options.h"

const char *const programName = "kelvarion-composer-cli";
const char *const programPurpose = "songs for the instruments of Kelvarion, without a window";
const char *const inputHelp =
    "INPUT is a .mid, .midi, .abc or .kvsong file, another text file that begins with \"X:\" (ABC) or \"MML@\" (MML) "
    "or "
    "holds nothing but commands of MML, or - for standard input. Settings of the window are not read.";
const char *const statusHelp = "The exit status is 0 when all was done, 1 when an input could not be read or a file "
                               "not be written, and 2 for a command line that cannot be understood.";

namespace {

constexpr int helpColumn = 30;
constexpr int lineWidth = 100;

// The text from a column on, in as many lines as it takes; the cursor is at the column already.
QString wrapped(const QString &text, int column)
{
    QString lines;
    int width = column;
    for (const auto &word : text.split(u' ')) {
        if (width > column && width + 1 + word.size() > lineWidth) {
            lines += u'\n' + QString(column, u' ');
            width = column;
        } else if (width > column) {
            lines += u' ';
            ++width;
        }
        lines += word;
        width += int(word.size());
    }
    return lines + u'\n';
}

QString row(const QString &term, const QString &explanation)
{
    auto text = term.leftJustified(helpColumn);
    if (term.size() >= helpColumn)
        text += u'\n' + QString(helpColumn, u' ');
    return text + wrapped(explanation, helpColumn);
}

QString withValue(const CommandOption &option)
{
    const auto name = QStringLiteral("--") + option.name;
    return option.value.isEmpty() ? name : name + u' ' + option.value;
}

QString optionRow(const CommandOption &option)
{
    const auto &known = optionNamed(option.name);
    const auto letter =
        known.letter != 0 ? QStringLiteral("  -%1, ").arg(QChar::fromLatin1(known.letter)) : QStringLiteral("      ");
    return row(letter + withValue(option),
               QString::fromUtf8(known.help) + (option.isRequired ? QStringLiteral(" (needed)") : QString()));
}

} // namespace

QString synopsis(const Command &command)
{
    QStringList words{QLatin1String(programName), QLatin1String(command.name)};
    if (*command.inputs != '\0')
        words.append(QString::fromUtf8(command.inputs));
    const auto options = optionsOf(command);
    int left = 0;
    for (const auto &option : options) {
        if (option.isRequired)
            words.append(withValue(option));
        else if (options.size() <= 3)
            words.append(u'[' + withValue(option) + u']');
        else
            ++left;
    }
    if (left > 0)
        words.append(QStringLiteral("[OPTION…]"));
    return words.join(u' ');
}

QString settingWithDefault(SettingsTable::Setting setting)
{
    const auto &row = SettingsTable::rows()[setting];
    return QLatin1String(row.key) + u'=' + QLatin1String(row.defaultText);
}

QString helpText(const std::vector<Command> &commands)
{
    auto text = QStringLiteral("Usage: %1 COMMAND …\n\n").arg(QLatin1String(programName));
    for (const auto &command : commands)
        text += row(QStringLiteral("  ") + QLatin1String(command.name), QString::fromUtf8(command.purpose));
    text += u'\n' + row(QStringLiteral("  COMMAND --help, -h"), QStringLiteral("Tells all options of a command."));
    text += row(QStringLiteral("  --version"), QStringLiteral("Tells the version of the program."));
    return text + u'\n' + wrapped(QString::fromUtf8(inputHelp), 0) + u'\n' + wrapped(QLatin1String(statusHelp), 0);
}

QString helpText(const Command &command)
{
    auto text = QStringLiteral("Usage: ") + synopsis(command) + QStringLiteral("\n\n") +
                wrapped(QString::fromUtf8(command.purpose), 0) + u'\n';
    for (const auto &option : optionsOf(command))
        text += optionRow(option);
    if (!takesTransforms(command))
        return text;
    text += QStringLiteral("\nSettings for --set, with what they are without it:\n");
    for (const auto &[setting, help] : settingsHelp())
        text += row(QStringLiteral("  ") + settingWithDefault(setting), QString::fromUtf8(help));
    return text + u'\n' + wrapped(QString::fromUtf8(inputHelp), 0);
}
