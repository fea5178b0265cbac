#include "core/AbcParser.h"
#include "edit/LiveReading.h"
#include "edit/NoteLookup.h"
#include "edit/NoteSelection.h"
#include "edit/PlaybackMarks.h"
#include "edit/plan/FieldChange.h"
#include "edit/plan/NoteEditPlan.h"
#include "support/Rows.h"

#include <QRandomGenerator>

namespace {

constexpr Ticks unit = ticksPerQuarter;
const QString header = QStringLiteral("X: 1\nL: 1/4\nM: 4/4\nK: C\n");

// A note of the pitch, the first is 0; -1 for none.
int noteOf(const Track &track, quint32 pitch, int which = 0)
{
    const auto &events = track.events();
    const auto found = std::find_if(events.begin(), events.end(), [&](const TrackEvent &event) {
        return event.isNote() && event.pitch() == pitch && which-- == 0;
    });
    return found == events.end() ? -1 : int(found - events.begin());
}

// Steps "insert START LENGTH PITCH", "remove PITCH [WHICH]", "change PITCH START LENGTH PITCH" with times in
// sixteenths.
NoteEdit parseEdit(const Track &track, const QString &steps)
{
    NoteEdit edit;
    for (const auto &step : steps.split(u';')) {
        const auto words = step.split(u' ');
        const auto spec = [&](int word) {
            return NoteSpec{words[word].toInt() * unit / 4, words[word + 1].toInt() * unit / 4,
                            words[word + 2].toUInt()};
        };
        if (words[0] == u"insert")
            edit.inserted.append(spec(1));
        else if (words[0] == u"remove")
            edit.removed.append(noteOf(track, words[1].toUInt(), words.value(2).toInt()));
        else
            edit.changed.append(NoteEdit::Change{noteOf(track, words[1].toUInt()), spec(2)});
    }
    return edit;
}

// The text behind the edit, empty when it changes nothing. It must mean what the edit makes of the track.
QString edited(const QString &text, const NoteEdit &edit)
{
    const auto reading = readAbc(text);
    const auto plan = NoteEditPlan::plan(text, reading, edit);
    if (!plan)
        return {};
    const auto result = applyChanges(text, plan->changes);
    const auto wanted = NoteEditPlan::editedTrack(reading.track, NoteEditPlan::cleaned(reading.track, edit));
    const bool isRight = NoteEditPlan::haveSameEvents(parseAbc(result), wanted) &&
                         NoteEditPlan::haveSameEvents(plan->reading.track, wanted);
    return isRight ? result : QStringLiteral("wrong: ") + result;
}

QString numbers(const QVector<int> &notes)
{
    QStringList texts;
    for (const auto note : notes)
        texts += QString::number(note);
    return texts.join(u' ');
}

} // namespace

// Notes changed in a text, and what holds on to them while it changes.
class TestNoteEdits : public QObject
{
    Q_OBJECT

private slots:
    void editsNotesInTheText_data()
    {
        const Rows<QString, QString, QString> row("body", "edit", "result");
        row("pitch", "C D % keep\nE|F\n", "change 62 4 4 63", "C ^D % keep\nE|F\n");
        row("pitch keeps the rest of the note", "C .D3/2 E\n", "change 62 4 3 65", "C .F3/2 E\n");
        row("accidental that others leaned on", "^F G F|F\n", "change 66 0 4 67", "G G ^F|F\n");
        row("accidental that others would inherit", "F A F\n", "change 69 4 4 66", "F ^F =F\n");
        row("pitch in a chord", "[CEG]2\n", "change 64 0 8 63", "[C^DG]2\n");
        row("pitch in a tuplet", "(3CDE F\n", "change 65 8 4 67", "(3CDE G\n");
        row("remove", "C !f!D E | F\n", "remove 62", "C !f!z E | F\n");
        row("remove the last", "C D\n", "remove 62", "C\n");
        row("remove from a chord", "C [DFA] E\n", "remove 65", "C [DA] E\n");
        row("longer over a rest", "C D z2 | E\n", "change 62 4 8 62", "C D2 z | E\n");
        row("shorter", "C D2 E\n", "change 62 4 4 62", "C D z E\n");
        row("longer over a note", "C D E F|\n", "change 60 0 8 60", "[zC2] D E F|\n");
        row("over a bar line", "C D E F| G\n", "change 65 12 8 65", "C D E F-| [FG]\n");
        row("into a rest", "C z4 D\n", "insert 8 4 64", "C z E z2 D\n");
        row("into a chord", "C D\n", "insert 4 4 65", "C [DF]\n");
        row("at the end", "C D|\n", "insert 16 4 64", "C D| E\n");
        row("behind the end", "C D\n", "insert 12 4 64", "C D z E |\n");
        row("no measure more", "C D E F3/4\n", "change 65 12 4 65", "C D E F\n");
        row("a measure more", "C D E F\n", "change 65 12 8 65", "C D E F- | F\n");
        row("behind a comment", "C D % end", "insert 8 4 64", "C D % end\nE");
        row("where a bar was not full", "C D|E\n", "insert 12 4 64", "C D z E |E\n");
        row("first note, whose letter returns", "C C D|C\n", "change 60 0 4 61", "^C =C D|C\n");
        row("behind a key within the measure", "^C [K:D] D C E\n", "change 62 4 4 61", "^C [K:D] C C E\n");
        row("into an empty measure", "E F ||G\n", "insert 16 4 60", "E F | C |G\n");
        row("before the first bar line", "|: C\n", "insert 4 4 64", "z E |: C\n");
        row("between repeats", "|:C:||:D:|\n", "insert 36 4 64", "|:C:| z E |:D:|\n");
        row("move", "C D z2|\n", "change 60 8 4 60", "z D C z|\n");
        row("tied note", "C4-|C2 D2\n", "change 60 0 16 60", "C4|z2 D2\n");
        row("longer tied note", "C4-|C2 z2\n", "change 60 0 28 60", "C4-|C3 z\n");
        row("what a lost tie must not find", "C6-|C2 C2|D\n", "remove 60 1", "C6|z2 C2|D\n");
        row("all of a measure", "C4|D2:|\nE4\n", "remove 62", "C4|z2:|\nE4\n");
        row("into a chord with a length", "C2 D2|[E/G/]4 z2|\n", "change 62 8 16 62", "C2 D2-|[D2E2G2] z2|\n");
        row("tied chords with lengths", "[CE]2-[CE]2|z4|\n", "remove 64", "C2-[z2C4]|z4|\n");
        row("beside a tied note", "[C-E]2 C2\n", "remove 64", "C2- C2\n");
        row("beside staccato", "[.CE]2 C2\n", "insert 0 8 65", "[.CEF]2 C2\n");
        row("out of a tuplet", "(3CD!f!E F\n", "remove 64", "(3CD!f!z F\n");
        row("into a tuplet", "(3CD2E F\n", "insert 0 12 64", "(3[CE9/]D2E F\n");
        row("out of a broken rhythm", "C>\"Am\"D E\n", "remove 60", "z>\"Am\"D E\n");
        row("from a broken rhythm into a rest", "C>D z2\n", "change 62 6 6 62", "C>D- D z\n");
        row("between the notes of a tuplet", "(3CD\"Am\"E F\n", "insert 4 4 65", "C2/3[z/3D2/3] [z/3F]\"Am\"E2/3 F\n");
        row("across a tuplet that a bar line cuts", "G2(3CD|E F|A\n", "change 60 8 1 60",
            "G2C/4 z5/12 D2/3|E2/3 F|A\n");
        row("out of a tuplet that a bar line cuts", "G2(3CD|E F|A\n", "remove 64", "G2(3CD|z F|A\n");
        row("over a bar line, for a while", "C D E F| G2\n", "change 65 12 6 65", "C D E F-| [F/G2] z/ z\n");
        row("a tied note over other bar lines", "C4-|C4|D4|E4|\n", "change 60 8 28 60", "z2 C2-|C4-|[CD4] z z2|E4|\n");
        row("chord before a staccato note", "C/.D E\n", "insert 0 2 64", "[CE]/ .D E\n");
        row("silence joins rests", "[zC2] D z E z2|\n", "remove 62;remove 64", "C2 z4|\n");
        row("batch", "C D E F\n", "remove 60;change 62 4 4 67;insert 12 4 69", "z G E [FA]\n");
        row("line breaks", "C8\n", "insert 32 4 64", "C8\nE\n");
        row("into a rest of measures", "Z4 | C\n", "insert 20 4 64", "Z | z E z2 | Z2 | C\n");
        row("across a rest of measures", "Z2 | C\n", "insert 12 8 64", "z3 E- | E z3 | C\n");
        row("the same twice, and one that is not there", "C D\n", "change 99 0 4 60;change 62 4 4 64;change 62 4 4 65",
            "C E\n");
        row("spelled in its key", "[K:F]C D\n", "change 62 4 4 63", "[K:F]C _E\n");
        row("nothing new", "C D\n", "change 60 0 4 60;remove 99", "");
        row("on a note of the same pitch", "C D\n", "change 62 0 4 60", "C\n");
        row("out of every range", "C D\n", "change 62 -9 0 200", "[Cc'''/10080]\n");
    }

    void editsNotesInTheText()
    {
        QFETCH(QString, body);
        QFETCH(QString, edit);
        const auto text = header + body;
        const auto found = edited(text, parseEdit(readAbc(text).track, edit));
        QTEST(found.mid(std::max<qsizetype>(0, found.indexOf(u"K: C\n")) + 5), "result");
    }

    void changesFieldsInTheText()
    {
        const auto text = header + QStringLiteral("^F F|=F {F}F % c\n[K:C]^F [E2z/]3/2 Z | (3ABc z3 [Q:120]B\n");
        const auto reading = readAbc(text);
        QCOMPARE(FieldChange::inKey(text, reading, QStringLiteral("G")).value_or(QString()),
                 QStringLiteral("X: 1\nL: 1/4\nM: 4/4\nK: G\n"
                                "F F|=F {F}F % c\n[K:C]^F [E2z/]3/2 Z | (3ABc z3 [Q:120]B\n"));
        QCOMPARE(FieldChange::inUnitLength(text, reading, QStringLiteral("1/8")).value_or(QString()),
                 QStringLiteral("X: 1\nL: 1/8\nM: 4/4\nQ: 1/4=120\nK: C\n"
                                "^F2 F2|=F2 {F}F2 % c\n[K:C]^F2 [E4z]3/2 Z | (3A2B2c2 z6 [Q:1/4=120]B2\n"));
    }

    void keepsItsMeaningInRandomEdits()
    {
        QRandomGenerator random(7);
        int rewritten = 0; // whole tunes, of which the user's own writing is lost
        auto text =
            header + QStringLiteral("c>d e<<f (3abc | [ceg]2 .c2 | ^C | Z2 | (3:2:3 c[ce]d [M:3/4] C2- | C {ab} "
                                    "c ^F ~F\nF4-|F|\n");
        for (int i = 0; i < 300; ++i) {
            const auto events = readAbc(text).track.events();
            const NoteSpec note{random.bounded(60) * unit / 4, (1 + random.bounded(6)) * unit / 4,
                                50 + quint32(random.bounded(40))};
            const auto some = events.isEmpty() ? 0 : random.bounded(int(events.size()));
            NoteEdit edit;
            const int kind = random.bounded(4);
            if (kind == 0 || events.isEmpty())
                edit.inserted.append(note);
            else if (kind == 1)
                edit.removed.append(some);
            else if (kind == 2)
                edit.changed.append({some, note});
            else
                edit.changed.append(NoteEdit::Change{some, {events[some].start(), events[some].length(), note.pitch}});
            const auto result = edited(text, edit);
            const auto reading = readAbc(text);
            if (const auto plan = NoteEditPlan::plan(text, reading, edit); plan && plan->rewritesAll)
                ++rewritten;
            QVERIFY2(!result.startsWith(u"wrong"), qPrintable(text + u'\n' + result));
            if (!result.isEmpty())
                text = result;
        }
        QCOMPARE(rewritten, 0);
    }

    void findsItsWayInATextThatIsTypedOn()
    {
        LiveReading live;
        live.take(readAbc(header + QStringLiteral("CD [EG]2 z A|\n")));
        const auto body = int(header.size());
        QStringList carets;
        for (const int column : {0, 1, 2, 3, 5, 9, 13}) {
            const auto caret = live.caretAt(body + column);
            carets += QStringLiteral("%1@%2").arg(caret.note).arg(caret.tick / unit);
        }
        QCOMPARE(carets.join(u' '), QStringLiteral("0@0 1@1 1@1 -1@2 3@2 -1@4 -1@6"));
        const auto places = [&] {
            QStringList found;
            for (int note = -1; note < 6; ++note) {
                const auto range = live.textOf(note);
                found += range.isEmpty() ? QStringLiteral("-") : QString::number(range.offset - body);
            }
            return found.join(u' ');
        };
        QCOMPARE(places(), QStringLiteral("- 0 1 4 5 11 -"));
        QCOMPARE(numbers(live.notesWithin({body, 6})), QStringLiteral("0 1 2 3"));
        QCOMPARE(numbers(live.notesWithin({body + 1, 4})), QStringLiteral("1 2"));

        live.addTyping(body + 1, 0, 4); // "Czzz D [EG]2 z A|"
        live.addTyping(body + 8, 1, 0); // E is gone
        QCOMPARE(places(), QStringLiteral("- 0 5 - 8 14 -"));
        QCOMPARE(live.noteAt(body + 5), 1);
        QCOMPARE(live.beforeTyping(body + 3), body + 1);
        QCOMPARE(numbers(live.notesWithin({body, 30})), QStringLiteral("0 1 2 3 4"));
    }

    void followsNotesToAnotherReading()
    {
        const auto before = readAbc(header + QStringLiteral("C D [EG] C\n")).track;
        const auto after = readAbc(header + QStringLiteral("[C,C] D2 [EG] D\n")).track;
        NoteSelection selection;
        QVERIFY(selection.select({4, 3, 0, 3, 99, -1}, before));
        QVERIFY(!selection.select({0, 3, 4}, before));
        QCOMPARE(numbers(selection.notes()), QStringLiteral("0 3 4"));
        selection.follow(before, after);
        QCOMPARE(numbers(selection.notes()), QStringLiteral("1"));
        QVERIFY(selection.clear());
        QVERIFY(!selection.clear());

        PlaybackMarks marks;
        QVERIFY(marks.setPosition(0));
        QVERIFY(!marks.setPosition(0));
        const QVector<NoteSpec> notes{{2 * unit, unit, 67}, {0, unit, 60}, {unit, unit, 60}};
        QVERIFY(marks.setNotes(notes, before));
        QVERIFY(!marks.setNotes(notes, before));
        QCOMPARE(numbers(marks.notes()), QStringLiteral("0 3"));
        marks.follow(after);
        QCOMPARE(numbers(marks.notes()), QStringLiteral("1"));
        marks.follow(before);
        QCOMPARE(numbers(marks.notes()), QStringLiteral("0 3"));
    }

    void findsTheDifferenceOfTexts()
    {
        const QStringList texts{QString(),
                                QStringLiteral("a"),
                                QStringLiteral("aa"),
                                QStringLiteral("ab"),
                                QStringLiteral("abcab"),
                                QStringLiteral("xab")};
        for (const auto &from : texts) {
            for (const auto &to : texts) {
                const auto change = difference(from, to);
                QCOMPARE(applyChanges(from, {change}), to);
                QVERIFY(from != to || (change.range.length == 0 && change.text.isEmpty()));
            }
        }
    }

    // Only because each start is looked through once does this come to an end.
    void findsTheNotesOfGiantChords()
    {
        Track track;
        QVector<NoteSpec> notes;
        for (Ticks length = 300'000; length > 0; --length) {
            notes.append({unit, length, 60 + quint32(length) % 2});
            track.appendEvent(TrackEvent::note(notes.last().pitch, unit, length));
        }
        track.normalize();
        notes.append(notes.first());
        notes.append({unit, 1, 60});
        const auto found = findNotes(track, notes);
        QCOMPARE(found.size(), 300'000);
        QCOMPARE(found.last(), 299'999);
        const auto first = firstNotesLike(track, notes);
        QCOMPARE(first.size(), notes.size());
        QVERIFY(first.first() == (NoteSpec{unit, 2, 60}));
        QVERIFY(first[1] == (NoteSpec{unit, 1, 61}));
    }
};

QTEST_APPLESS_MAIN(TestNoteEdits)
#include "test_note_edits.moc"
