#include "base/TextDecoding.h"
#include "core/AbcParser.h"
#include "core/AbcTokenizer.h"
#include "core/HeaderFields.h"
#include "core/KeyTable.h"
#include "support/DescribeTrack.h"
#include "support/Rows.h"
#include "support/Thrown.h"

#include <QtTest>

// ABC text in, events out, and back.
namespace {

QString bodyOf(Track track)
{
    const auto text = track.toAbc();
    return text.mid(text.indexOf(QStringLiteral("\nK: ")) + 1).section(u'\n', 1);
}

} // namespace

class TestAbc : public QObject
{
    Q_OBJECT

private slots:
    void readsBody_data()
    {
        // header: M: and L:, before K:C
        const Rows<QString, QString, QString> row("header", "body", "events");
        const char *const common = "M:4/4\nL:1/4\n";
        row("bar lines keep to the grid", common, "A B C | D",
            "69@0+10080 71@10080+10080 60@20160+10080 62@40320+10080");
        row("no metre, no grid", "L:1/4\n", "A | B", "69@0+10080 71@10080+10080");
        row("the default unit is a quarter", "", "C", "60@0+10080");
        row("L in the body has no effect", common, "[L:1/8]C", "60@0+10080");
        row("octaves and range", common, "C,,,,c''''C,c'", "48@20160+10080 84@30240+10080");
        row("lengths", common, "C2C/C//C3/4C/3C//3C/0",
            "60@0+20160 60@20160+5040 60@25200+2520 60@27720+7560 60@35280+3360 "
            "60@38640+1680 60@40320+10080");
        row("accidentals hold to the bar", common, "^FF=F|F",
            "66@0+10080 66@10080+10080 65@20160+10080 65@40320+10080");
        row("accidentals hold for their octave", common, "^Ff", "66@0+10080 77@10080+10080");
        row("key change", common, "[K:D]F[K:Bbm]B", "K5/0@0 66@0+10080 K12/1@10080 70@10080+10080");
        row("triplet", common, "(3ABC D", "69@0+6720 71@6720+6720 60@13440+6720 62@20160+10080");
        row("tuplet of chord and rest", common, "(3[CE]zC", "60@0+6720 64@0+6720 60@13440+6720");
        row("compound metre", "M:6/8\nL:1/8\n", "(2AB (5ABCDE",
            "69@0+7560 71@7560+7560 69@15120+3024 71@18144+3024 60@21168+3024 "
            "62@24192+3024 64@27216+3024");
        row("tuplet of any size", common, "(1:2CC (11DE", "60@0+20160 60@20160+10080 62@30240+10080 64@40320+10080");
        row("tie", common, "c2-c2", "72@0+40320");
        row("tie over a bar and a chord", common, "C-|[CE]C",
            "60@0+10080 60@40320+10080 64@40320+10080 60@50400+10080");
        row("tie to nowhere", common, "C-D", "60@0+10080 62@10080+10080");
        row("staccato", common, ".c2c", "72@0+10080 72@20160+10080");
        row("chord advances by its shortest", common, "[C2E]G", "64@0+10080 60@0+20160 67@10080+10080");
        row("rest in a chord sets the advance", common, "[zC2]D", "60@0+20160 62@10080+10080");
        row("chord length", common, "[CE]2 C", "60@0+20160 64@0+20160 60@20160+10080");
        row("chord tie", common, "[CE]-[CE]", "60@0+20160 64@0+20160");
        row("tied notes of a chord with a length", common, "[C-E]2C", "64@0+20160 60@0+30240");
        row("chord out of range is no empty chord", common, "[C,,,,]C", "60@10080+10080");
        row("broken rhythm", common, "C>D E < F", "60@0+15120 62@15120+5040 64@20160+5040 65@25200+15120");
        row("double and chained", common, "C>>D C>D>E",
            "60@0+17640 62@17640+2520 60@20160+15120 62@35280+7560 64@42840+5040");
        row("broken rhythm before the staccato", common, ".C>D", "60@0+7560 62@15120+5040");
        row("stray broken rhythm", common, ">C>|D>", "60@0+10080 62@40320+10080");
        row("grace notes take no time", common, "{/cd}C", "60@0+10080");
        row("rests of measures", common, "Z2|C|Z|X|D", "60@80640+10080 62@201600+10080");
        row("a new metre restarts the grid", common, "C[M:3/4]D|E[M:none]F|G",
            "60@0+10080 M3/4@10080 62@10080+10080 64@40320+10080 M0/0@50400 65@50400+10080 67@60480+10080");
        row("tempo in the body", common, "C[Q:1/4=90]D[Q:100]E[Q:x]F",
            "60@0+10080 Q907200@10080 62@10080+10080 Q1008000@20160 64@20160+10080 Q0@30240 65@30240+10080");
        row("what makes no sound", common, "\"Gm\"(C!trill!.D+f+~)E`&%c\nF\\",
            "60@0+10080 62@10080+5040 64@20160+10080 65@30240+10080");
        row("huge lengths stay in bounds", common, "C4294967295 C4294967295",
            "60@0+43293270333600 60@43293270333600+43293270333600");
    }

    void readsBody()
    {
        QFETCH(QString, header);
        QFETCH(QString, body);
        QTEST(describe(parseAbc(QStringLiteral("X:1\n") + header + QStringLiteral("K:C\n") + body)), "events");
    }

    void errors_data()
    {
        const Rows<QString, QString> row("text", "message");
        row("header", "X:1\nABC", "Unexpected token found in ABC header: line 2, column 1.");
        row("body", "X:1\nK:C\nab;", "Unknown token found in ABC body at line 3, column 3.");
        row("in a chord", "K:C\n[a;]", "Unknown token found in ABC body at line 2, column 3.");
        row("chord", "K:C\n[a|]", "Unexpected token found in chord at line 2, column 3.");
        row("chord at the end", "K:C\n[a\n", "Unexpected token found in chord at line 2, column 3.");
        row("giant chord", QStringLiteral("K:C\n[") + QString(20000, u'c') + u']',
            "Unexpected token found in chord at line 2, column 10002.");
        row("empty chord", "K:C\n[ ]", "Empty chord");
        row("open annotation", "K:C\n\"^a\nC", "Unknown token found in ABC body at line 2, column 1.");
        row("number", "K:C\nC4294967296", "Unknown token found in ABC body at line 2, column 1.");
        row("none", "%%x y\nX:1\n% c\nT:a\n\nK:C\n", "nothing");
    }

    void errors()
    {
        QFETCH(QString, text);
        QTEST(thrownBy([&] { parseAbc(text); }), "message");
    }

    void aNulEndsNothing()
    {
        const QByteArray bytes("X:1\nK:C\nCD\0E\0", 13);
        auto track = parseAbc(decodeText(bytes));
        QCOMPARE(track.noteCount(), 3);
        QCOMPARE(track.toAbc().toUtf8(), bytes);
        QCOMPARE(decodeText(QByteArray("\xE4\0b", 3)).size(), 3);
    }

    void keepsItsTextUntilItChanges()
    {
        const auto text = QStringLiteral("X:3\nT: A\nT:B \nK:G\nc2 [eg]\n");
        auto track = parseAbc(text);
        QCOMPARE(track.toAbc(), text);
        QCOMPARE(track.headerFields(QStringLiteral("T")), QStringList({QStringLiteral("A"), QStringLiteral("B")}));
        QCOMPARE(track.events()[2].textLine(), 4U);
        QCOMPARE(track.events()[2].textColumn(), 5U);
        QCOMPARE(track.events()[0].textLength(), 2U);
    }

    void keys_data()
    {
        const Rows<int, int> row("row", "mode");
        row("Bb", 9, 0);
        row("F#m", 4, 1);
        row("Dmix", 6, 2);
        row("cMAJ", 7, 0);
        row("A min", 7, 1);
        row("Aaeo", 4, 0);
        row("Ddor", 7, 3);
        row("Hm", 7, 0);
        row("", 7, 0);
        row("<G>", 6, 0);
    }

    void keys()
    {
        const auto text = QString::fromLatin1(QTest::currentDataTag());
        const auto key = HeaderFields::parseKey(text);
        QTEST(int(key.row), "row");
        QTEST(int(key.mode), "mode");
        Track track; // is read as it was written
        track.setHeaderField(QStringLiteral("K"), text);
        for (quint32 pitch = 60; pitch < 72; ++pitch)
            track.appendEvent(TrackEvent::note(pitch, track.events().size() * ticksPerQuarter, ticksPerQuarter));
        const auto read = parseAbc(track.toAbc());
        for (int i = 0; i < 12; ++i)
            QCOMPARE(read.events()[i].pitch(), track.events()[i].pitch());
    }

    void headerNumbers_data()
    {
        const Rows<QString, QString, QString, qint64, qint64, qint64> row("unit", "metre", "tempo", "unitTicks",
                                                                          "measureTicks", "ticksPerMinute");
        row("none", "", "", "", 10080, 0, 1209600);
        row("beat", "1/8", "6/8", "1/4=90", 5040, 30240, 907200);
        row("in units", "1/16", "C|", "90", 2520, 20160, 226800);
        row("words", "2", "C", "Allegro 3/8=60", 80640, 40320, 907200);
        row("zeros", "1/0", "4/0", "0/4=60", 10080, 0, 604800);
        row("blanks", "0/8", "none", "1/4 = 120", 10080, 0, 10080);
        row("no denominator", "1/4", "4/4", "1/=60", 10080, 40320, 10080);
        row("too fine", "1/50000", "3", "1/4=", 10080, 0, 10080);
        row("too large", "4294967296", "4294967296/4", "4294967296", 10080, 0, 1209600);
        row("beat of no length", "1/4", "4/4", "1/0=60", 10080, 40320, 604800);
        row("a third", "1/4", "4/4", "1/3=100", 10080, 40320, 1344000);
    }

    void headerNumbers()
    {
        QFETCH(QString, unit);
        QFETCH(QString, metre);
        QFETCH(QString, tempo);
        const auto unitTicks = HeaderFields::parseUnitLength(unit);
        QTEST(qint64(unitTicks), "unitTicks");
        QTEST(qint64(HeaderFields::parseMetre(metre).measureTicks()), "measureTicks");
        QTEST(HeaderFields::headerTempo(tempo, unitTicks), "ticksPerMinute");
    }

    void spellings_data()
    {
        const Rows<int, QString> row("row", "names");
        row("seven sharps", 0, "B#- C# C## D# D## E# F# F## G# G## A# B");
        row("none", 7, "C C# D D# E F F# G G# A Bb B");
        row("one flat", 8, "C C# D Eb E F F# G G# A Bb B");
        row("seven flats", 14, "C Db D Eb Fb F Gb G Ab Bbb Bb Cb+");
    }

    void spellings()
    {
        QFETCH(int, row);
        QStringList names;
        for (quint32 pitchClass = 0; pitchClass < 12; ++pitchClass) {
            const auto &spelling = KeyTable::spelling(quint32(row), pitchClass);
            names.append(QString(QLatin1Char("CDEFGAB"[spelling.letter])) +
                         QString(std::max<int>(0, spelling.accidental), u'#') +
                         QString(std::max(0, -spelling.accidental), u'b') +
                         (spelling.octaveCorrection < 0   ? QStringLiteral("-")
                          : spelling.octaveCorrection > 0 ? QStringLiteral("+")
                                                          : QString()));
        }
        QTEST(names.join(u' '), "names");
    }

    void writesBody_data()
    {
        const Rows<QString, QString> row("abc", "body");
        row("notes", "CD2", "C D2 \n");
        row("chord", "[CE2]C/", "[CE2] C/ \n");
        row("overlap", "[zC2]D/3", "[zC2] D/3 \n");
        row("accidentals hold", "^F^F=F", "^F F =F \n");
        row("gap, octaves and odd lengths", "zC,,3/c''4/3", "z C,,3/ c''4/3 \n");
        row("a line a whole note", "C3C3C", "C3 C3 \nC \n");
        row("fields on lines of their own", "C[Q:1/4=90][K:D][M:3/4]F", "C \nQ: 1/4=90\nK: D\nM: 3/4\nF \n");
        row("zero length at a change", "[C0C]", "[C0C] \n");
        row("modes and flats", "[K:Dphr]B", "K: Dphr\nB \n");
    }

    void writesBody()
    {
        QFETCH(QString, abc);
        auto track = parseAbc(QStringLiteral("L:1/4\nK:C\n") + abc);
        track.clearAbc();
        QTEST(bodyOf(track), "body");
    }

    void writesHeader()
    {
        Track track;
        const auto generator = QStringLiteral("Z: ABC Generated by Kelvarion Composer v" COMPOSER_VERSION "\n");
        QCOMPARE(track.toAbc(), QStringLiteral("X: 1\nT: Untitled\n") + generator + QStringLiteral("L: 1/4\nK: C\n"));
        QCOMPARE(track.headerField(QStringLiteral("L")), QStringLiteral("1/4"));

        track.appendHeaderField(QStringLiteral("T"), QStringLiteral("One"));
        track.appendHeaderField(QStringLiteral("T"), QStringLiteral("Two"));
        track.setHeaderField(QStringLiteral("Z"), QStringLiteral("by Kelvarion Composer"));
        track.setHeaderField(QStringLiteral("C"), QStringLiteral("Me"));
        track.clearAbc();
        QCOMPARE(track.toAbc(),
                 QStringLiteral("X: 1\nT: One\nT: Two\nC: Me\nL: 1/4\nZ: by Kelvarion Composer\nK: C\n"));
    }

    // A text in two pieces is cut as it is in one, and the rest of a line can be left out.
    void cutsATextInPieces()
    {
        const auto text = QStringLiteral("[I:linebreak $ !]ab\nI:decoration +\n!$!");
        AbcTokenizer whole(text);
        AbcToken token;
        QVERIFY(whole.next(token));
        whole.skipLine();
        QVERIFY(whole.next(token));
        QCOMPARE(token.line, 1);
        AbcTokenizer rest(QStringView(text).right(3), whole.symbols());
        AbcToken other;
        while (whole.next(token)) {
            QVERIFY(rest.next(other));
            QCOMPARE(other.type, token.type);
            QCOMPARE(other.text.size(), token.text.size());
        }
        QVERIFY(!rest.next(other));
        QCOMPARE(whole.line(), 3);
    }
};

QTEST_APPLESS_MAIN(TestAbc)
#include "test_abc.moc"
