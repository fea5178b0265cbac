#include "Manual.h"

#include "Commands.h"
#include "arguments/Help.h"
#include "arguments/Options.h"
#include "streams/Messages.h"

namespace {

// Nothing in the text is taken for a request or for an escape.
QString escaped(QString text)
{
    text.replace(u'\\', QStringLiteral("\\e"));
    text.replace(u'-', QStringLiteral("\\-"));
    text.replace(u'\'', QStringLiteral("\\(aq"));
    return text.startsWith(u'.') ? QStringLiteral("\\&") + text : text;
}

QString escaped(const char *text)
{
    return escaped(QString::fromUtf8(text));
}

QString tagged(const QString &term, const QString &explanation)
{
    return QStringLiteral(".TP\n%1\n%2\n").arg(term, escaped(explanation));
}

QString optionItem(const CommandOption &option)
{
    const auto &known = optionNamed(option.name);
    auto term = QStringLiteral("\\fB%1\\fR").arg(escaped(QStringLiteral("--") + option.name));
    if (known.letter != 0)
        term.prepend(QStringLiteral("\\fB\\-%1\\fR, ").arg(QChar::fromLatin1(known.letter)));
    if (!option.value.isEmpty())
        term += QStringLiteral(" \\fI%1\\fR").arg(escaped(option.value));
    return tagged(term, QString::fromUtf8(known.help) + u'.');
}

// The options of the transformations stand once, behind the commands.
QString commandSection(const Command &command)
{
    auto text = QStringLiteral(".SS %1\n.B %2\n.PP\n%3\n")
                    .arg(QLatin1String(command.name), escaped(synopsis(command)), escaped(command.purpose));
    auto own = command;
    const auto optional = QString::fromUtf8(command.optional).remove(QStringLiteral("transforms")).toUtf8();
    own.optional = optional.constData();
    for (const auto &option : optionsOf(own))
        text += optionItem(option);
    return text;
}

QString transformSection()
{
    const Command command{"", "", "", "transforms", "", 0, 0, AbcDialect::Game, nullptr};
    auto text = QStringLiteral(
        ".SH OPTIONS\nConvert, render, check, song, arrange and inspect take these as well. What changes notes is "
        "done to every part, in the order given.\n");
    for (const auto &option : optionsOf(command))
        text += optionItem(option);
    text += QStringLiteral(".SS Settings for \\-\\-set\nWith what they are without it:\n");
    for (const auto &[setting, help] : settingsHelp())
        text += tagged(QStringLiteral("\\fB%1\\fR").arg(escaped(settingWithDefault(setting))),
                       QString::fromUtf8(help) + u'.');
    return text;
}

} // namespace

int printManual(const Arguments &)
{
    const auto name = QLatin1String(programName);
    StandardOutput output;
    auto text =
        QStringLiteral(".TH %1 1 \"\" \"Kelvarion Composer %2\"\n.SH NAME\n%3 \\- %4\n"
                       ".SH SYNOPSIS\n.B %3\n.I command\n.RI [ option ...]\n.RI [ input ...]\n")
            .arg(QString(name).toUpper(), QStringLiteral(COMPOSER_VERSION), escaped(name), escaped(programPurpose));
    text += QStringLiteral(".SH DESCRIPTION\n%1\n.SH COMMANDS\n").arg(escaped(inputHelp));
    for (const auto &command : allCommands())
        text += commandSection(command);
    text += transformSection();
    text +=
        QStringLiteral(".SH EXIT STATUS\n%1\n.SH SEE ALSO\n.BR kelvarion\\-composer (1)\n").arg(escaped(statusHelp));
    output.device().write(text.toUtf8());
    output.finish();
    return 0;
}
