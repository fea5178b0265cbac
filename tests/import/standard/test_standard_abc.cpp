#include "core/AbcParser.h"
#include "import/standard/ChordName.h"
#include "import/standard/StandardAbc.h"
#include "support/Rows.h"
#include "support/Thrown.h"

#include <QtTest>

namespace {

// "0:60(2) 2:64": onsets in quarters of a whole note, pitches, and the length where it is not one quarter.
QString describe(const Track &track)
{
    QStringList notes;
    const auto quarters = [](Ticks ticks) { return QString::number(double(ticks) / double(ticksPerQuarter), 'g', 4); };
    for (const auto &event : track.events()) {
        if (!event.isNote())
            continue;
        auto note = quarters(event.start()) + u':' + QString::number(event.pitch());
        if (event.length() != ticksPerQuarter)
            note += u'(' + quarters(event.length()) + u')';
        notes.append(note);
    }
    return notes.join(u' ');
}

// Fields are parted by "; ", lines of the body by line feeds; every tune begins with "X:1".
QString tuneText(QString fields, const QString &body)
{
    return QStringLiteral("X:1\n") + fields.replace(QStringLiteral("; "), QStringLiteral("\n")) + u'\n' + body + u'\n';
}

QString voicesOf(const StandardTune &tune)
{
    QStringList voices;
    for (const auto &voice : tune.voices)
        voices.append(describe(voice.track));
    return tune.error.isEmpty() ? voices.join(QStringLiteral(" / ")) : tune.error;
}

} // namespace

class TestStandardAbc : public QObject
{
    Q_OBJECT

private slots:
    void plays_data()
    {
        const Rows<QString, QString, QString> row("fields", "body", "notes");
        row("short metre: sixteenths", "M:2/4; K:C", "CDEF|", "0:60(0.25) 0.25:62(0.25) 0.5:64(0.25) 0.75:65(0.25)");
        row("6/8: eighths", "M:6/8; K:C", "CDE|", "0:60(0.5) 0.5:62(0.5) 1:64(0.5)");
        row("accidental in all octaves", "L:1/4; K:C", "^F f F, F|F", "0:66 1:78 2:54 3:66 4:65");
        row("accidental in its octave", "L:1/4; %%propagate-accidentals octave; K:C", "^F f F|", "0:66 1:77 2:66");
        row("accidental for its note", "L:1/4; I:propagate-accidentals not; K:C", "^F F ^F-F|", "0:66 1:65 2:66(2)");
        row("tie carries the sharp", "L:1/4; K:C", "^F4-|F F3|", "0:66(5) 5:65(3)");
        row("a tie within the bar carries nothing", "L:1/4; K:C", "^F-F F|F", "0:66(2) 2:66 3:65");
        row("explicit signature", "L:1/4; K:D exp _b _e ^f", "CEFB|", "0:60 1:63 2:66 3:70");
        row("changed signature", "L:1/4; K:D =c ^g", "CFG|", "0:60 1:66 2:68");
        row("phrygian", "L:1/4; K:Aphr", "BFEc|", "0:70 1:65 2:64 3:72");
        row("mode apart", "L:1/4; K:G Mixolydian", "FB|", "0:65 1:71");
        row("bagpipe", "L:1/4; K:HP", "CFG|", "0:61 1:66 2:67");
        row("no key, a clef", "L:1/4; K:clef=bass", "FB|", "0:65 1:71");
        row("modes and alterations in one word", "L:1/4; K:Dmixolydian ^f_b", "CFB|", "0:60 1:66 2:70");
        row("explicit without a tonic", "L:1/4; K:exp ^c", "CFB|", "0:61 1:65 2:71");
        row("minor", "L:1/4; K:Bbm", "CDE|", "0:60 1:61 2:63");
        row("natural of the key", "L:1/4; K:D =f", "CF|", "0:61 1:65");
        row("alterations without a tonic", "L:1/4; K:^c=f", "CF|", "0:61 1:65");
        row("octave clef", "L:1/4; K:C treble-8", "CC2|", "0:48 1:48(2)");
        row("transposed", "L:1/4; K:C octave=1 transpose=-2", "C[K:D]C|", "0:70 1:71");
        row("lengths", "L:1/4; K:C", "C2C/C//C3/2C/4|", "0:60(2) 2:60(0.5) 2.5:60(0.25) 2.75:60(1.5) 4.25:60(0.25)");
        row("broken rhythm", "L:1/4; K:C", "C > D C<<D|", "0:60(1.5) 1.5:62(0.5) 2:60(0.25) 2.25:62(1.75)");
        row("broken over grace and rest", "L:1/4; K:C", "C>{e}D z<E|",
            "0:60(1.5) 1.5:76(0.25) 1.75:62(0.25) 2.5:64(1.5)");
        row("broken rhythm of nothing", "M:3/4; L:1/4; K:C", ">C|Z>D|", "0:60 4:62");
        row("a chord of nothing", "L:1/4; K:C", "[]C[z]D|", "0:60 1:62");
        row("chord lengths multiply", "L:1/4; K:C", "[C2E2]2 G|", "0:60(4) 0:64(4) 4:67");
        row("the first note sets the pace", "L:1/4; K:C", "[C2E]G|", "0:64 0:60(2) 2:67");
        row("a tied note of a chord", "L:1/4; K:C", "[C-E]C [CE]-[CE]|", "0:64 0:60(2) 2:60(2) 2:64(2)");
        row("old chords", "L:1/4; K:C", "+CE+2+f+D", "0:60(2) 0:64(2) 2:62");
        row("chords without an end", "L:1/4; K:C", "[CE|D [C (3EFG",
            "0:60 0:64 1:62 2:60 3:64(0.6667) 3.667:65(0.6667) 4.333:67(0.6667)");
        row("ties behind blanks and bar lines", "L:1/4; K:C", "C - | C D -\nD|", "0:60(2) 2:62(2)");
        row("tuplets", "L:1/4; K:C", "(3CDE (3:2:2C2D|",
            "0:60(0.6667) 0.6667:62(0.6667) 1.333:64(0.6667) 2:60(1.333) 3.333:62(0.6667)");
        row("five in compound time", "M:6/8; L:1/4; K:C", "(5CDEFG A|",
            "0:60(0.6) 0.6:62(0.6) 1.2:64(0.6) 1.8:65(0.6) 2.4:67(0.6) 3:69");
        row("five in simple time", "M:3/4; L:1/4; K:C", "(5CDEFG A|",
            "0:60(0.4) 0.4:62(0.4) 0.8:64(0.4) 1.2:65(0.4) 1.6:67(0.4) 2:69");
        row("seven in four, without drift", "L:1/4; K:C", "(7:4:2C6z D|", "0:60(3.429) 4:62");
        row("rests", "M:3/4; L:1/4; K:C", "Z2 C y D x E|", "6:60 7:62 9:64");
        row("repeat without a start", "L:1/4; K:C", "C|1D:|2E|]F|", "0:60 1:62 2:60 3:64 4:65");
        row("lists of endings", "L:1/4; K:C", "|:C|1,3D:|2E:|4F|", "0:60 1:62 2:60 3:64 4:60 5:62 6:60 7:65");
        row("ranges of endings", "L:1/4; K:C", "|:C[1-2D:|[3E|]", "0:60 1:62 2:60 3:62 4:60 5:64");
        row("a double bar begins nothing", "L:1/4; K:C", "|:C|D||E:|F|", "0:60 1:62 2:64 3:60 4:62 5:64 6:65");
        row("two repeats in one sign", "L:1/4; K:C", "|:C::D:|", "0:60 1:60 2:62 3:62");
        row("three times", "L:1/4; K:C", "|:C::|D", "0:60 1:60 2:60 3:62");
        row("a repeat after endings", "L:1/4; K:C", "|:C|1D:|2E||F:|G", "0:60 1:62 2:60 3:64 4:65 5:65 6:67");
        row("a repeat that begins in an ending", "L:1/4; M:1/4; K:C", "|:C|1D:|2E|:F|G|A|B|c:|d",
            "0:60 1:62 2:60 3:64 4:65 5:67 6:69 7:71 8:72 9:65 10:67 11:69 12:71 13:72 14:74");
        row("a sign before the second ending", "L:1/4; K:C", "|:C[1D:| |: [2E|:F:|", "0:60 1:62 2:60 3:64 4:65 5:65");
        row("an unclosed repeat", "L:1/4; K:C", "|:C|:D:|", "0:60 1:60 2:62 3:62");
        row("no second ending", "L:1/4; K:C", "|:C|1D:|E", "0:60 1:62 2:60 3:64");
        row("repeats from a double bar", "L:1/4; K:C", "C|]D:|E||F:|", "0:60 1:62 2:60 3:62 4:64 5:65 6:65");
        row("a strain behind an ending without an end", "L:1/4; M:1/4; K:C", "|:C|1Z2:|2z|E|F|G|A|B:|c",
            "0:60 3:60 5:64 6:65 7:67 8:69 9:71 10:65 11:67 12:69 13:71 14:72");
        row("a strain with endings behind it", "L:1/4; M:1/4; K:C", "|:C|1D:|2E|F|Z2|G|1A:|2B|]",
            "0:60 1:62 2:60 3:64 4:65 7:67 8:69 9:65 12:67 13:71");
        row("what is too short for a strain", "L:1/4; K:C", "|:C|1D:|2E|F|G|A:|", "0:60 1:62 2:60 3:64 4:65 5:67 6:69");
        row("a heading ends the ending", "L:1/4; K:C", "|:C|1D:|2E|[P:B]F:|", "0:60 1:62 2:60 3:64 4:65 5:65");
        row("parts", "L:1/4; P:((AB)2C)2; K:C", "[P:A]C|[P:B]D|[P:C]E|",
            "0:60 1:62 2:60 3:62 4:64 5:60 6:62 7:60 8:62 9:64");
        row("parts by lines, with a preface", "L:1/4; P:BAX; K:C", "G\nP:A (slow)\n|:C:|\nP:B\nD\nP:D.S.\nE",
            "0:67 1:62 2:64 3:60 4:60");
        row("parts for a voice that comes after them", "L:1/4; P:BA; K:C", "V:1\n[P:A]C|[P:B]D|\nV:2\nE|",
            "0:62 1:60 / 0:64");
        row("overlay", "L:1/4; K:C", "C4|CDEF & G2|c4|", "0:60(4) 4:60 4:67(2) 5:62 6:64 7:65 8:72(4)");
        row("an overlay has its own ties", "L:1/4; K:C", "zC-D & zzC|", "1:60 2:62 2:60");
        row("a key ends accidentals", "L:1/4; K:C", "^FF[K:G]F_B[K:C]B", "0:66 1:66 2:66 3:70 4:71");
        row("measures of any length", "M:4/4; L:1/4; K:C", "C|DEFGA|B4|", "0:60 1:62 2:64 3:65 4:67 5:69 6:71(4)");
        row("voices", "L:1/4; V:1; V:2 clef=bass-8; K:C", "V:1\nC|\nV:2\nC|\n[V:1]D|", "0:60 1:62 / 0:48");
        row("a voice that is silent", "L:1/4; V:1; V:2; K:C", "V:1\nC|\nV:2\nz|", "0:60");
        row("music before the first voice", "L:1/4; K:C", "C|\nV:a\nD|\nV:b\nE|", "0:60 1:62 / 0:64");
        row("each voice its own bar", "L:1/4; K:C", "V:1\n^C\nV:2\nC\nV:1\nC|", "0:61 1:61 / 0:60");
        row("decorations, strings, slurs", "L:1/4; K:C", "!trill!C \"Am7\"D (.E ~F) +fermata+G !C!D | % E",
            "0:60 1:62 2:64 3:65 4:67 5:60 6:62");
        row("words and remarks", "L:1/4; K:C", "C\\\nw: a b c\nW: CCC\nD [r:EEE]\n%%begintext\nE E\n%%endtext\nF",
            "0:60 1:62 2:65");
        row("unit and metre on the way", "L:1/4; M:4/4; K:C", "C[L:1/8]C[M:3/4]Z|C", "0:60 1:60(0.5) 4.5:60(0.5)");
        row("text of a header that looks like music", "T:A; | long title: C |; R::|; L:1/4; K:C", "C|\nw:|a\nD|",
            "0:60 1:62");
        row("music without a key", "M:4/4; CD|", "E|", "0:60(0.5) 0.5:62(0.5) 1:64(0.5)");
        row("a repeat sign at the line's begin", "L:1/4; K:C", "|:C\nE:|\nC::D\n",
            "0:60 1:64 2:60 3:64 4:60 5:60 6:62");
        row("quarter tones and triple sharps", "L:1/4; K:C", "^/C _3/2D ^^^E|", "0:61 1:61 2:66");
        row("tuplets of no size", "L:1/4; K:C", "(1CD (0E (65F|", "0:60 1:62 2:64 3:65");
        row("gaps in print", "L:1/4; K:C", "Cy2D[CE&G]y|E", "0:60 1:62 2:60 2:64 2:67 3:64");
        row("an open string", "L:1/4; K:C", "C\"abc D\nE|", "0:60 1:64");
        row("octaves", "L:1/4; K:C", "C,,c''C,'c|", "0:36 1:96 2:60 3:72");
        row("group of parts that is left out", "L:1/4; P:A(BC)0A; K:C", "[P:A]C|[P:B]D|[P:C]E|", "0:60 1:60");
        row("a ratio of chords", "L:1/4; K:C", "[|C|[|:D:|]E|", "0:60 1:62 2:62 3:64");
        row("graces in chords and ties", "L:1/4; K:C", "{[CE]}D{C-}E|",
            "0:60(0.25) 0.25:64(0.25) 0.5:62(0.5) 1:60(0.25) 1.25:64(0.75)");
        row("ties of nothing", "L:1/4; K:C", "-C[-D]z-E|", "0:60 1:62 3:64");
        row("directives on the way", "L:1/4; K:C", "C[I:MIDI rtranspose 12]C[I:MIDI transpose 0]C[U:W=!f!]WD|",
            "0:60 1:72 2:60 3:62");
        row("a macro that is used", "m:~G = G{A}G; K:C", "~G",
            "The tune uses the macro \"~G\" (m:), which cannot be read.");
        row("parts without end", "P:((((((A99)99)99)99)99)99; K:C", "[P:A]C", "Too many parts.");
    }

    void plays()
    {
        QFETCH(QString, fields);
        QFETCH(QString, body);
        QFETCH(QString, notes);
        const auto tunes = importStandardAbc(tuneText(fields, body));
        QCOMPARE(tunes.size(), 1);
        QCOMPARE(voicesOf(tunes.first()), notes);
        // What the game reads in the text that is written is what was understood.
        for (auto voice : tunes.first().voices) {
            const auto understood = describe(voice.track);
            QCOMPARE(describe(parseAbc(voice.track.toAbc())), understood);
        }
    }

    void readsAsAsked()
    {
        const auto text = tuneText(QStringLiteral("L:1/4; K:C"), QStringLiteral("\"C\"{D}C E|\"G7/B\"D \"^slow\"D|"));
        const auto asUsual = importStandardAbc(text).first();
        QCOMPARE(voicesOf(asUsual), QStringLiteral("0:62(0.25) 0.25:60(0.75) 1:64 2:62 3:62"));
        QCOMPARE(asUsual.voices[0].track.headerField(QStringLiteral("N")), QStringLiteral("Chords: C | G7/B |"));
        const auto other = importStandardAbc(text, {ChordNames::Play, GraceNotes::Drop, BareTempo::Quarters}).first();
        QCOMPARE(voicesOf(other), QStringLiteral("0:60 1:64 2:62 3:62 / 0:48(2) 0:60(2) 0:64(2) 0:67(2) "
                                                 "2:47(2) 2:55(2) 2:59(2) 2:62(2) 2:65(2)"));
    }

    void namesChords_data()
    {
        const Rows<QString, QString> row("name", "pitches"); // the bass, the root and what is above it
        row("major", "C", "48 60 64 67");
        row("the lowest root and bass", "G", "43 55 59 62");
        row("sharp", "F#m7", "54 66 69 73 76");
        row("flat, in parentheses", "(Bb)", "46 58 62 65");
        row("a flat across the octave", "Cb", "47 59 63 66");
        row("a sharp across it", "B#", "48 60 64 67");
        row("over a bass", "D/f#", "54 62 66 69");
        row("over an old bass", "A/C+", "49 57 61 64");
        row("augmented", "C+", "48 60 64 68");
        row("two notes", "E5", "52 64 71");
        row("no quality", "Cx", "");
        row("no root", "maj", "");
        row("no bass", "C/", "");
        row("more behind the bass", "C/Gm", "");
    }
    void namesChords()
    {
        QFETCH(QString, name);
        QStringList pitches;
        for (const int pitch : chordPitches(name))
            pitches.append(QString::number(pitch));
        QTEST(pitches.join(u' '), "pitches");
    }

    // The text from its title on, without the line that names us.
    void writes_data()
    {
        const Rows<QString, QString, QString> row("fields", "body", "text");
        row("lines begin with measures", "T:A; M:6/8; K:C", "E|CCC DDD|EEE FFF|GGG AAA|B6|",
            "T: A\nL: 1/8\nM: 6/8\nQ: 1/4=120\nK: C\nE C C C D D D E E E F F F \nG G G A A A B6 \n");
        row("a note over the bar line", "T:A; M:4/4; L:1/4; K:C", "E|C4-|C2 DD|EEEE|",
            "T: A\nL: 1/4\nM: 4/4\nQ: 1/4=120\nK: C\nE C6 \nD D \nE E E E \n");
        row("fields at the start", "T:A; K:C", "[M:3/4][Q:1/4=90][L:1/4]\nK:G\nGAB|",
            "T: A\nL: 1/8\nM: 3/4\nQ: 1/4=90\nK: G\nG2 A2 B2 \n");
        row("fields once", "T:A; M:2/4; L:1/4; K:C", "|:[M:2/4][K:C]CD|[M:none]E:|",
            "T: A\nL: 1/4\nM: 2/4\nQ: 1/4=120\nK: C\nC D \nM: 4/4\nE \nM: 2/4\nC D \nM: 4/4\nE \n");
        row("each part in its key", "T:A; L:1/4; P:ABA; K:G", "P:A\n\"G\"FG|\nP:B\nK:C\nFG|",
            "T: A\nL: 1/4\nN: Chords: G |\nQ: 1/4=120\nK: G\nF G \nK: C\nF G \nK: G\nF G \n");
        row("decorations", "T:A; U:W=!fermata!; K:C", "!trill!C TDWE.F|",
            "T: A\nL: 1/8\nN: Decorations: fermata, staccato, trill (2)\nQ: 1/4=120\nK: C\nC D E F \n");
    }

    void writes()
    {
        QFETCH(QString, fields);
        QFETCH(QString, body);
        auto track = importStandardAbc(tuneText(fields, body)).first().voices.first().track;
        auto lines = track.toAbc().mid(track.toAbc().indexOf(QStringLiteral("T: "))).split(u'\n');
        lines.removeAt(1);
        QTEST(lines.join(u'\n'), "text");
    }

    void readsTempos_data()
    {
        const Rows<QString, QString> row("fields", "quarters a minute");
        row("none", "K:C", "120");
        row("beat", "Q:3/8 = 60; K:C", "90");
        row("sum of beats", "Q:1/4 3/8 1/4 3/8=40; K:C", "200");
        row("words beside it", "Q:\"Fast\" 1/4=132 \"x\"; K:C", "132");
        row("a word alone", "Q:\"Andante\"; K:C", "88");
        row("unit notes", "M:6/8; L:1/8; Q:120; K:C", "60");
        row("multiples of the unit", "L:1/8; Q:C3=90; K:C", "135");
        row("halves", "Q:1/4=72.5; K:C", "72.5");
        row("from to", "Q:1/4=100-120; K:C", "100");
        row("nonsense", "Q:quick; K:C", "120");
        row("none at all", "Q:1/4=0; K:C", "120");
        row("too many", "Q:1/4=200000; K:C", "120");
        row("the unit by name", "L:1/8; Q:C=90; K:C", "45");
        row("half the unit", "L:1/4; Q:C/2=90; K:C", "45");
        row("a beat that is none", "Q:1/4 x=90; K:C", "120");
    }

    void readsTempos()
    {
        QFETCH(QString, fields);
        const auto tunes = importStandardAbc(tuneText(fields, QStringLiteral("C4 C4")));
        auto track = tunes.first().voices.first().track;
        const auto perMinute = double(parseAbc(track.toAbc()).ticksPerMinute()) / double(ticksPerQuarter);
        QTEST(QString::number(perMinute), "quarters a minute");
    }

    void splitsBooks()
    {
        const auto tunes =
            importStandardAbc(QStringLiteral("%abc-2.1\r\nL:1/4\r\nM:3/4\r\n\r\nfree CDE text\r\n\r\n"
                                             "X:7\r\nT:One\r\nC:Me\r\nK:C\r\nC\r\n \r\nmore free text: CCC\r\n\r\n"
                                             "X:8\nL:1/8\nK:C\nV:1\nD\nV:2 name=\"Low B\"\nE\n\nT:Three\nK:C\nF"));
        QCOMPARE(tunes[0].voices[0].track.headerField(QStringLiteral("C")), QStringLiteral("Me"));
        QStringList shown;
        for (const auto &tune : tunes) {
            for (const auto &voice : tune.voices)
                shown.append(tune.number + u' ' + voice.track.title() + u' ' +
                             voice.track.headerField(QStringLiteral("M")) + u' ' + describe(voice.track));
        }
        QCOMPARE(shown,
                 QStringList({QStringLiteral("7 One 3/4 0:60"), QStringLiteral("8 Untitled - 1 3/4 0:62(0.5)"),
                              QStringLiteral("8 Untitled - Low B 3/4 0:64(0.5)"), QStringLiteral(" Three 3/4 0:65")}));
    }

    void endsSoon_data()
    {
        const Rows<QString, int, QString> row("sign", "times", "error");
        row("repeats without end", ":|1", 300'000, "");
        row("rests", "Z9999", 300'000, "");
        row("notes", "C", 1'200'000, "The tune is too long.");
        row("chords in many passes", "|:[CEG][1-63D:|", 20'000, "The tune is too long.");
        row("parts of bar lines", "[P:A]C||||||||[P:B]", 20'000, "");
    }

    void endsSoon()
    {
        QFETCH(QString, sign);
        QFETCH(int, times);
        const auto tunes = importStandardAbc(tuneText(QStringLiteral("P:(AB)999; K:C"), sign.repeated(times)));
        QTEST(tunes.first().error, "error");
        QCOMPARE(thrownBy([] { importStandardAbc(QStringLiteral("X:1\n").repeated(10'001)); }),
                 QStringLiteral("Too many tunes."));
    }

    void countsWhatIsLeftOut_data()
    {
        const Rows<QString, int, int, int> row("body", "outOfRange", "unreadable", "repeatsPlayed");
        row("nothing", "C|", 0, 0, 0);
        row("too high and too low", "c'''''C,,,,,C,,,,,,,,,,|", 3, 0, 0);
        row("repeats", "|:C:|:C::|", 0, 0, 3);
        row("signs", "C\u00a7 D\u00a7|", 0, 2, 0);
        row("an accidental of no note", "C^ D|", 0, 1, 0);
    }

    void countsWhatIsLeftOut()
    {
        QFETCH(QString, body);
        const auto tune =
            importStandardAbc(tuneText(QStringLiteral("L:1/4; K:C"), body + QStringLiteral("\nC"))).first();
        QTEST(tune.outOfRange, "outOfRange");
        QTEST(tune.unreadable, "unreadable");
        QTEST(tune.repeatsPlayed, "repeatsPlayed");
    }

    void asksForPrograms()
    {
        const auto tunes = importStandardAbc(tuneText(
            QStringLiteral("K:C"),
            QStringLiteral("V:1\n%%MIDI program 73\nC\nV:2\n%%MIDI channel 10\n%%MIDI transpose 12\nC\n[Q:1/4=90]D")));
        const auto &voices = tunes.first().voices;
        QCOMPARE(voices[0].program, std::optional(73));
        QCOMPARE(voices[1].channel, std::optional(10));
        QCOMPARE(describe(voices[1].track), QStringLiteral("0:72(0.5) 0.5:74(0.5)"));
        // A tempo of one voice is one of all.
        QCOMPARE(voices[0].track.events().last().ticksPerMinute(), 90 * ticksPerQuarter);
    }
};

QTEST_MAIN(TestStandardAbc)

#include "test_standard_abc.moc"
