#include "check/PartCheck.h"
#include "check/findings/FindingKinds.h"
#include "check/findings/Fixes.h"
#include "check/text/UnitLengthChange.h"
#include "core/AbcParser.h"
#include "support/DescribeTrack.h"
#include "support/Rows.h"

namespace {

QString tune(const Text &body)
{
    return QStringLiteral("X: 1\nL: 1/4\nM: 4/4\nK: C\n") + body;
}

// From A0 to C5 with a sample at C4, but silent at D4.
InstrumentSet lute()
{
    Instrument lute;
    lute.name = QStringLiteral("Lute");
    for (quint32 pitch = 21; pitch <= 72; ++pitch)
        lute.tuning.notes[pitch] = {{QStringLiteral("c4.ogg")}, std::pow(2, (double(pitch) - 60) / 12), 0};
    lute.tuning.notes[62].rate = 0;
    InstrumentSet instruments;
    instruments.add(lute);
    return instruments;
}

// "kind offset+length @tick in quarters", the offset in the body.
QString described(const QVector<Finding> &findings, int bodyOffset)
{
    QStringList texts;
    for (const auto &finding : findings) {
        auto text = FindingKinds::name(finding.kind);
        if (!finding.range.isEmpty())
            text += QStringLiteral(" %1+%2").arg(finding.range.offset - bodyOffset).arg(finding.range.length);
        if (finding.tick >= 0)
            text += QStringLiteral(" @%1").arg(double(finding.tick) / ticksPerQuarter);
        texts += text;
    }
    return texts.join(QStringLiteral(", "));
}

QString fixedText(const QString &text, const QVector<Finding> &findings)
{
    return applyChanges(text, combinedFixes(findings));
}

QVector<QVector<Finding>> checkedTogether(const QStringList &texts)
{
    QVector<PartFacts> facts;
    for (const auto &text : texts)
        facts.append(factsOf(checkText(text)));
    return checkSong(facts, [&texts](int part) { return texts[part]; });
}

QString notesOf(const QString &text)
{
    const auto track = parseAbc(text);
    Track notes;
    for (const auto &event : track.events()) {
        if (event.isNote())
            notes.appendEvent(event);
    }
    return describe(notes);
}

} // namespace

class TestCheck : public QObject
{
    Q_OBJECT

private slots:
    void findsWhatIsWrongWithAPart_data()
    {
        const Rows<QString, QString, QString> row("body", "findings", "fixed"); // an empty one: as it was
        row("nothing", "CEFG|[CE]4|\n", "", "");
        row("the end's bar lines are not heard", "CEFG||:|", "", "");
        row("refused", "CEFG#", "refused-text 4+1 @3", "");
        row("double bar line", "CEFG||C4", "empty-measure 5+1 @4", "CEFG|C4");
        row("opening bar line", "|CEFG|C4", "empty-measure 0+1 @0", "CEFG|C4");
        row("repeats", "CEFG:| |:C4", "empty-measure 7+2 @4", "CEFG::C4");
        row("a repeat begins on a line", "CEFG|\n|:C4", "empty-measure 6+2 @4", "CEFG\n|:C4");
        row("pick-up", "!f!(3CEF | C4 |", "pick-up 9+1 @2", "z2 !f!(3CEF | C4 |");
        row("short measure", "C4 | C3 | C4", "bar-line-silence 8+1 @7", "");
        row("long measure", "C4 | C5 | C4", "bar-line-overlap 8+1 @9", "");
        row("two measures without a line between", "C8 || C4", "", "");
        row("rests of measures", "Z2|CEFG|Z|C4", "", "");
        row("no metre, no measures", "C|[M:none]||C|E", "pick-up 1+1 @1", "z3 C|[M:none]||C|E");
        row("out of range", "d'''2 [^c'''E]2 | [K:D] .f,,,,,,4",
            "out-of-range 0+5 @0, out-of-range 7+5 @2, out-of-range 24+9 @4", "d''2 [^c''E]2 | [K:D] .F,,,4");
        row("stray signs", "C)C]C2}|(CE)E2|", "stray-sign 1+1 @1, stray-sign 3+1 @2, stray-sign 6+1 @4",
            "CCC2|(CE)E2|");
        row("a chord's bracket is told once", "[CEFG|C]C3|", "refused-text 0+1 @0", "");
        row("grace notes", "{C}C4|{/DE C4|\nC4", "open-grace-notes 6+2 @4", "");
        row("ties", "C-C-F2|[CE]-[CG]-G2|E- -",
            "lost-tie 3+1 @2, lost-tie 11+1 @5, lost-tie 16+1 @6, lost-tie 21+1 @9, stray-sign 23+1 @9",
            "C-CF2|[CE]-[CG]-G2|E -");
        row("fields", "C4|[L:1/8][M:odd][K:Hmin]C4\nQ:fast\nX:2\nK:none\nM:C|",
            "ignored-field 3+7 @4, unreadable-field 10+7 @4, unreadable-field 17+8 @4, unreadable-field 28+6 @8, "
            "second-tune 35+3 @8",
            "");
        row("a unit length that is the header's", "Cz7\nL: 1/4\n", "", "");
        row("silent and far", "D4|c4", "no-sample 0+2 @0, far-from-sample 3+2 @4", "D,4|c4");
        row("silent and tied", "D2-D2|[CD]2-[CD]2|", "no-sample 0+3 @0, no-sample 8+1 @4", "D,2-D,2|[CD,]2-[CD,]2|");
        row("no notes", "z4|", "empty-part", "");
    }

    void findsWhatIsWrongWithAPart()
    {
        QFETCH(QString, body);
        QFETCH(QString, fixed);
        const auto text = tune(body);
        const auto findings = checkPart(text, QString(), lute()).findings;
        QTEST(described(findings, int(text.size() - body.size())), "findings");
        QCOMPARE(fixedText(text, findings), tune(fixed.isEmpty() ? body : fixed));
        for (const auto &finding : findings)
            QVERIFY2(!sentenceOf(finding).contains(u'%'), qPrintable(sentenceOf(finding)));
    }

    void countsNotesAtOnce()
    {
        CheckOptions options;
        options.mostNotesAtOnce = 2;
        const auto findings = checkPart(tune(QStringLiteral("[CEG]2[CE]2|[C4EG]E[GB]2")), {}, {}, options).findings;
        QCOMPARE(described(findings, 24), QStringLiteral("many-notes 3+1 @0, many-notes 13+2 @4, many-notes 21+1 @6"));
    }

    void knowsInstruments()
    {
        const auto text = tune(QStringLiteral("C"));
        QVERIFY(checkPart(text, QStringLiteral("Lute"), lute()).findings.isEmpty());
        QVERIFY(checkPart(text, QStringLiteral("Kazoo"), {}).findings.isEmpty()); // nothing is known yet
        const auto unknown = checkPart(text, QStringLiteral("Kazoo %1"), lute()).findings;
        QCOMPARE(sentenceOf(unknown.first()), QStringLiteral("The game has no instrument “Kazoo %1”."));
        const auto named = QStringLiteral("X:1\nI:Instrument:Old Lute\nK:C\nC");
        QCOMPARE(fixedText(named, checkPart(named, {}, lute()).findings),
                 QStringLiteral("X:1\nI:Instrument:Lute\nK:C\nC"));
    }

    void shortensTexts_data()
    {
        const Rows<QString, QString> row("text", "shorter");
        row("fields are added", "K:C\nC/2D/2 z/2Z|[E/4z/2]2\n", "L:1/8\nQ:1/4=120\nK:C\nCD zZ|[E/z]2\n");
        row("fields are changed", "L: 1/4 % x\nQ:90\nK:C\n.C/-C/(3D/E/F/[Q:60]C/>C/[Q:1/2=60]^c'/{G/}[CE]/\n",
            "L: 1/8 % x\nQ:1/4=90\nK:C\n.C-C(3DEF[Q:1/4=60]C>C[Q:1/2=60]^c'{G/}[C2E2]/\n");
    }

    void shortensTexts()
    {
        QFETCH(QString, text);
        const auto fixed = applyChanges(text, withUnitLength(text, shortestUnitLength(text)));
        QTEST(fixed, "shorter");
        QCOMPARE(describe(parseAbc(fixed)), describe(parseAbc(text)));
    }

    void movesNotesAmongAccidentals()
    {
        const auto text = tune(QStringLiteral("^G,,,,G,,,2G,,,|_G,,,G,,,,3|G,,,,-G,,,,3|"));
        QCOMPARE(fixedText(text, checkText(text).findings),
                 tune(QStringLiteral("^G,,,=G,,,2G,,,|_G,,,=G,,,3|G,,,-G,,,3|")));
    }

    void mendsWhatDiffers_data()
    {
        const Rows<QString, QString> row("text", "mended");
        const auto add = [&row](const char *name, const char *header, const char *body, const char *fixed) {
            const auto whole = [](const QString &fields, const char *music) {
                return QStringLiteral("X:1\nL:1/4\n%1K:C\n%2").arg(fields, QLatin1String(music));
            };
            const auto right = QString::fromLatin1(header).replace(QStringLiteral("Q:90"), QStringLiteral("Q:1/4=120"));
            row(name, whole(QLatin1String(header), body), whole(right, fixed));
        };
        add("measures", "M:4/4\n", "C4|C2 |]", "C4|C2 z2 | z2 |]");
        add("whole measures", "M:4/4\n", "(C4)||\n% end", "(C4) | Z | z2||\n% end");
        add("no bar lines", "M:4/4\n", "C3[CE4]", "C3[CE4] z6");
        add("no metre", "", "C|D|", "C|D z8|");
        add("rest of a measure", "M:4/4\n", "C4|z4|z", "C4|z4|z z");
        add("tempo", "Q:90\n", "C10", "C10");
        add("a tuplet may be open", "M:4/4\n", "(3CDE", "(3CDE");
    }
    void mendsWhatDiffers()
    {
        QFETCH(QString, text);
        QFETCH(QString, mended);
        const auto leader = QStringLiteral("X:1\nL:1/4\nK:C\nC4C4C2");
        const auto fixed = fixedText(text, checkedTogether({leader, leader, text})[2]);
        QCOMPARE(fixed, mended);
        QCOMPARE(checkedTogether({leader, fixed})[1].isEmpty(), fixed != text);
    }

    void givesTheTemposOfTheOthers_data()
    {
        const Rows<QString, QString> row("body", "wanted"); // the same where there is no fix
        row("at notes", "C4 D4 E2", "C4 [Q:1/4=90]D4 [Q:1/4=60]E2");
        row("behind bar lines", "C4|D4|E2|", "C4|[Q:1/4=90]D4|[Q:1/4=60]E2|");
        row("instead of its own", "C2[Q:70]C2\nQ:80\nD4 E2[Q:1/4=50]", "C2C2\n[Q:1/4=90]D4 [Q:1/4=60]E2");
        row("in a rest", "C2 z8", "C2 z2[Q:1/4=90]z4[Q:1/4=60]z2");
        row("in a note", "^C3 D7", "^C3 [zD7][Q:1/4=90]z4[Q:1/4=60]z2");
        row("in a chord", "[C6E6] z4", "[z4C6E6][Q:1/4=90]z2 z2[Q:1/4=60]z2");
        row("in a chord with a length", "[CE]6 [CE]4", "[CE]6 [CE]4");
        row("in tied notes", "C6-C4", "[z4C6-][Q:1/4=90]z2[z2C4][Q:1/4=60]z2");
        row("in a tuplet", "C3 (3DEF z5", "C3 (3DEF z5");
        row("before a tuplet", "C4 (3DEF z2 z2", "C4 [Q:1/4=90](3DEF z2 [Q:1/4=60]z2");
        row("in a broken rhythm", "C3>D1 z6", "C3>D1 z6");
        row("it ends before", "C4 D2", "C4 [Q:1/4=90]D2");
    }
    void givesTheTemposOfTheOthers()
    {
        QFETCH(const QString, body);
        QFETCH(const QString, wanted);
        const auto whole = [](const QString &music) { return QStringLiteral("X:1\nL:1/4\nK:C\n") + music; };
        const auto leader = whole(QStringLiteral("C4 [Q:1/4=90]C4 [Q:1/4=60]C2"));
        const auto findings = checkedTogether({leader, leader, whole(body)})[2];
        const auto fixed = applyChanges(whole(body), combinedFixes(findings, FindingKind::TempoDiffers));
        QCOMPARE(fixed, whole(wanted));
        const auto left = described(checkedTogether({leader, leader, fixed})[2], 0);
        QCOMPARE(left.contains(QStringLiteral("tempo-differs")), fixed == whole(body));
        QCOMPARE(notesOf(fixed), notesOf(whole(body)));
    }

    void lengthsInWords()
    {
        QCOMPARE(lengthInWords(3 * ticksPerWholeNote / 4), QStringLiteral("3/4 note"));
        QCOMPARE(lengthInWords(ticksPerWholeNote), QStringLiteral("a whole note"));
        QCOMPARE(lengthInWords(5 * ticksPerWholeNote / 2), QStringLiteral("2.5 whole notes"));
        QCOMPARE(lengthInWords(7 * ticksPerWholeNote + ticksPerWholeNote / 3), QStringLiteral("7.33 whole notes"));
    }

    void comparesParts()
    {
        QStringList parts;
        for (const auto *const body : {"C4|C4[Q:1/4=90]|", "z C3|[Q:1/4=90]C4", "z4", "C4|C4", "C4|[Q:1/4=90]z2"})
            parts.append(tune(QString::fromUtf8(body)));
        const auto findings = checkedTogether(parts);
        QStringList texts;
        for (const auto &part : findings)
            texts += described(part, 0);
        QCOMPARE(texts.join(u'|'),
                 QStringLiteral("tempo-differs @4|start-differs @1||tempo-differs @4|length-differs @6"));
    }
};

QTEST_GUILESS_MAIN(TestCheck)
#include "test_check.moc"
