#include "Completion.h"

#include "Commands.h"
#include "arguments/Help.h"
#include "arguments/Options.h"
#include "streams/Messages.h"

#include <QRegularExpression>

namespace {

// What a value can be, where it is one of some words.
QStringList choices(const CommandOption &option)
{
    if (option.name == u"set") {
        QStringList keys;
        for (const auto &[setting, help] : settingsHelp())
            keys.append(QLatin1String(SettingsTable::rows()[setting].key) + u'=');
        return keys;
    }
    static const QRegularExpression mayFollow(QStringLiteral("\\[.*?\\]"));
    const auto words = QString(option.value).remove(mayFollow).split(u'|');
    const auto isOpen = [](const QString &word) { return word != word.toLower() || word.contains(u'…'); };
    return words.size() < 2 || std::any_of(words.begin(), words.end(), isOpen) ? QStringList() : words;
}

// Of all commands, the second words of those with two.
QStringList secondWords(const QString &first)
{
    QStringList words;
    for (const auto &command : allCommands()) {
        const auto name = QString::fromLatin1(command.name).split(u' ');
        if (name.first() == first && name.size() > 1)
            words.append(name.last());
    }
    return words;
}

QStringList firstWords()
{
    QStringList words;
    for (const auto &command : allCommands())
        words.append(QString::fromLatin1(command.name).section(u' ', 0, 0));
    words.removeDuplicates();
    return words;
}

QVector<CommandOption> optionsUnder(const QString &first)
{
    QVector<CommandOption> options;
    for (const auto &command : allCommands()) {
        if (QString::fromLatin1(command.name).section(u' ', 0, 0) == first)
            options += optionsOf(command);
    }
    return options;
}

QString purposeOf(const QString &first)
{
    for (const auto &command : allCommands()) {
        if (QLatin1String(command.name) == first)
            return QString::fromUtf8(command.purpose);
    }
    return QStringLiteral("Looks into packages of the game.");
}

QString forBash()
{
    QString values;
    for (const auto &option : allOptions()) {
        const auto words = choices({QLatin1String(option.name), QString::fromUtf8(option.value)});
        if (words.isEmpty())
            continue;
        auto names = QStringLiteral("--") + QLatin1String(option.name);
        if (option.letter != 0)
            names += QStringLiteral("|-") + QChar::fromLatin1(option.letter);
        values += QStringLiteral("    %1) words='%2' ;;\n").arg(names, words.join(u' '));
    }
    QString commands;
    for (const auto &command : firstWords()) {
        QStringList words(QStringLiteral("--help"));
        for (const auto &option : optionsUnder(command))
            words.append(QStringLiteral("--") + option.name);
        commands += QStringLiteral("        %1) words='%2'; more='%3' ;;\n")
                        .arg(command, words.join(u' '), secondWords(command).join(u' '));
    }
    return QStringLiteral(R"(# bash completion of %1
_kelvarion_composer_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words= more=
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W '%2 --help --version' -- "$current")
        return
    fi
    case $before in
%3    esac
    if [[ -z $words ]]; then
        case ${COMP_WORDS[1]} in
%4        esac
        if [[ $COMP_CWORD -eq 2 && -n $more ]]; then
            words=$more
        elif [[ $current != -* ]]; then
            return
        fi
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    [[ ${COMPREPLY[0]-} != *= ]] || compopt -o nospace
}
complete -o default -F _kelvarion_composer_cli %1
)")
        .arg(QLatin1String(programName), firstWords().join(u' '), values, commands);
}

// In single quotes of zsh and fish, and for zsh inside the brackets of a specification.
QString quoted(QString text)
{
    return text.replace(u'\'', QStringLiteral("'\\''")).replace(u'[', u'(').replace(u']', u')');
}

QString zshSpecification(const CommandOption &option)
{
    const auto &known = optionNamed(option.name);
    auto value = QString();
    if (!option.value.isEmpty()) {
        const auto words = choices(option);
        value = words.isEmpty() ? QStringLiteral(":value:_files") : QStringLiteral(":value:(%1)").arg(words.join(u' '));
    }
    const auto explained =
        QStringLiteral("[%1]%2").arg(quoted(QString::fromUtf8(known.help)).replace(u':', u','), value);
    if (known.letter == 0)
        return QStringLiteral(" '*--%1%2'").arg(option.name, explained);
    return QStringLiteral(" '*'{-%1,--%2}'%3'").arg(QChar::fromLatin1(known.letter)).arg(option.name, explained);
}

QString forZsh()
{
    QString names;
    QString commands;
    for (const auto &command : firstWords()) {
        names += QStringLiteral(" '%1:%2'").arg(command, quoted(purposeOf(command)));
        QString specifications;
        for (const auto &option : optionsUnder(command))
            specifications += zshSpecification(option);
        const auto second = secondWords(command);
        if (!second.isEmpty())
            specifications += QStringLiteral(" '1:command:(%1)'").arg(second.join(u' '));
        commands += QStringLiteral("        %1) _arguments%2 '*:input:_files' ;;\n").arg(command, specifications);
    }
    return QStringLiteral(R"(#compdef %1
local -a commands=(%2)
if ((CURRENT == 2)); then
    _describe command commands
else
    shift words
    ((CURRENT--))
    case $words[1] in
%3    esac
fi
)")
        .arg(QLatin1String(programName), names, commands);
}

QString forFish()
{
    const auto line = QStringLiteral("complete -c ") + QLatin1String(programName);
    QString text;
    for (const auto &command : firstWords()) {
        text += line +
                QStringLiteral(" -n __fish_use_subcommand -f -a %1 -d '%2'\n").arg(command, quoted(purposeOf(command)));
        const auto inside = QStringLiteral(" -n '__fish_seen_subcommand_from %1'").arg(command);
        for (const auto &word : secondWords(command))
            text += line + inside + QStringLiteral(" -a ") + word + u'\n';
        for (const auto &option : optionsUnder(command)) {
            const auto &known = optionNamed(option.name);
            const auto words = choices(option);
            text += line + inside + QStringLiteral(" -l ") + option.name;
            text += known.letter != 0 ? QStringLiteral(" -s ") + QChar::fromLatin1(known.letter) : QString();
            text += option.value.isEmpty() ? QString() : QStringLiteral(" -r");
            text += words.isEmpty() ? QString() : QStringLiteral(" -f -a '%1'").arg(words.join(u' '));
            text += QStringLiteral(" -d '%1'\n").arg(quoted(QString::fromUtf8(known.help)));
        }
    }
    return text;
}

} // namespace

int printCompletion(const Arguments &arguments)
{
    const auto &shell = arguments.inputs.first();
    const auto script = shell == u"bash"   ? forBash()
                        : shell == u"zsh"  ? forZsh()
                        : shell == u"fish" ? forFish()
                                           : QString();
    if (script.isEmpty())
        throw WrongUsage{QStringLiteral("completion is for bash, zsh or fish")};
    StandardOutput output;
    output.device().write(script.toUtf8());
    output.finish();
    return 0;
}
