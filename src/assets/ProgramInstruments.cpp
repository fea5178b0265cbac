#include "assets/ProgramInstruments.h"

#include <QStringList>

ProgramInstruments::ProgramInstruments(const QString &text)
{
    for (const auto &line : text.split(u'\n')) {
        bool isNumber = false;
        const int program = line.section(u'=', 0, 0).toInt(&isNumber);
        if (isNumber && program >= 0 && program <= percussion)
            set(program, line.section(u'=', 1));
    }
}

QString ProgramInstruments::text() const
{
    QStringList lines;
    for (auto each = names_.begin(); each != names_.end(); ++each)
        lines.append(QStringLiteral("%1=%2").arg(QString::number(each.key()), each.value()));
    return lines.join(u'\n');
}

void ProgramInstruments::set(int program, const QString &instrument)
{
    if (instrument.isEmpty())
        names_.remove(program);
    else
        names_[program] = instrument;
}
