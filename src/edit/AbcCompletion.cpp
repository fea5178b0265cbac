#include "edit/AbcCompletion.h"

#include "core/KeyTable.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

// Of the header, as they are written there.
const QStringList &fields()
{
    static const auto all =
        QStringLiteral("X: 1|T: |C: |M: 4/4|L: 1/8|Q: 1/4=120|K: C|I: Instrument: |N: |O: |R: |S: |Z: ").split(u'|');
    return all;
}

// The names of the ABC standard 2.1.
const QStringList &decorations()
{
    static const auto all =
        QStringLiteral(
            "accent arpeggio breath coda crescendo( crescendo) dacapo dacoda diminuendo( diminuendo) downbow "
            "emphasis f fermata ff fff ffff fine invertedfermata invertedturn longphrase lowermordent "
            "mediumphrase mf mordent mp open p plus pp ppp pppp pralltriller roll segno sfz shortphrase "
            "slide snap tenuto thumb trill turn upbow uppermordent wedge D.C. D.S.")
            .split(u' ');
    return all;
}

QStringList keys()
{
    QStringList all;
    for (quint32 mode = 0; mode < modeCount; ++mode) {
        for (quint32 row = 0; row < keyRowCount; ++row)
            all += KeyTable::keyName(row, mode);
    }
    all.sort();
    return all;
}

AbcCompletion completing(const QString &typed, const QStringList &all, const QString &suffix = {})
{
    AbcCompletion completion{int(typed.size()), {}};
    for (const auto &choice : all) {
        if (choice.startsWith(typed, Qt::CaseInsensitive) && choice != typed)
            completion.choices += choice + suffix;
    }
    return completion;
}

// Nothing is offered before something was typed.
AbcCompletion completingBegun(const QString &typed, const QStringList &all, const QString &suffix = {})
{
    return typed.isEmpty() ? AbcCompletion() : completing(typed, all, suffix);
}

AbcCompletion valueOf(QChar field, const QString &value, const QStringList &instruments)
{
    static const auto instrument = QStringLiteral("Instrument:");
    if (field == u'K')
        return completingBegun(value, keys());
    if (field != u'I')
        return {};
    if (!value.startsWith(instrument))
        return completingBegun(value, {instrument + u' '});
    static const QRegularExpression blanks(QStringLiteral("^\\s*"));
    return completing(value.mid(instrument.size()).remove(blanks), instruments);
}

} // namespace

AbcCompletion AbcCompletion::of(const QString &line, Place place, const QStringList &instruments)
{
    static const QRegularExpression field(QStringLiteral("^\\[?([A-Za-z]):\\s*([^\\[\\]|]*)$"));
    if (line.contains(u'%'))
        return {};
    const auto bracket = std::max(0, int(line.lastIndexOf(u'[')));
    if (const auto match = field.match(line.mid(bracket)); match.hasMatch())
        return valueOf(match.captured(1)[0], match.captured(2), instruments);
    if (place == Place::Header)
        return line.size() == 1 && line[0].isUpper() ? completing(line, fields()) : AbcCompletion();
    if (line.count(u'!') % 2 == 0)
        return {};
    return completingBegun(line.mid(line.lastIndexOf(u'!') + 1), decorations(), QStringLiteral("!"));
}
