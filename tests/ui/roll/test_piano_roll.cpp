#include "core/AbcParser.h"
#include "edit/NoteText.h"
#include "settings/Settings.h"
#include "support/Rows.h"
#include "ui/PaintCounter.h"
#include "ui/roll/PianoRoll.h"
#include "ui/roll/RollKeyboard.h"
#include "ui/roll/RollRuler.h"

#include <QApplication>
#include <QClipboard>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextCursor>

namespace {

constexpr Ticks eighth = ticksPerWholeNote / 8;

// A roll on the screen with the focus, over a document of its own.
struct Fixture
{
    QTemporaryDir folder;
    Settings settings{folder.filePath(QStringLiteral("settings.cfg"))};
    EditorDocument document;
    PianoRoll roll{document, settings};

    // Of notes in eighths.
    explicit Fixture(const Text &body = {})
    {
        Track track;
        track.setAbc(QStringLiteral("X:1\nM:4/4\nL:1/8\nK:C\n") + body);
        document.setTrack(track);
        roll.resize(1000, 500);
        roll.show();
        QApplication::setActiveWindow(&roll);
        roll.setFocus();
        if (!QTest::qWaitForWindowActive(&roll) || !roll.hasFocus())
            qFatal("The window does not become active.");
    }

    QWidget *canvas() { return roll.viewport(); }
    const RollState &state() const { return roll.state(); }

    QPoint at(Ticks tick, int pitch) const
    {
        const auto &geometry = state().geometry;
        return {int(geometry.x(tick)), int(geometry.top(pitch)) + geometry.rowHeight() / 2};
    }
    QPoint middleOf(int note) const { return state().rect(state().notes[note]).center().toPoint(); }

    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(canvas(), Qt::LeftButton, modifiers, from);
        moveTo((from + to) / 2, modifiers);
        moveTo(to, modifiers);
        QTest::mouseRelease(canvas(), Qt::LeftButton, modifiers, to);
    }
    void moveTo(QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(QEvent::MouseMove, to, canvas()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, modifiers);
        QApplication::sendEvent(canvas(), &event);
    }
    void click(QPoint place, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(canvas(), Qt::LeftButton, modifiers, place);
    }
    void press(const Text &keys)
    {
        for (const auto &key : keys.split(u' '))
            QTest::keySequence(&roll, QKeySequence(key));
    }
    void select(const QVector<int> &notes)
    {
        QVector<int> events;
        for (const auto note : notes)
            events.append(state().notes[note].event);
        document.selectNotes(events);
    }

    // "start+length:pitch" in eighths, by start and pitch, the selected ones with a star.
    QString notes() const
    {
        QVector<RollNote> sorted;
        for (int note = 0; note < state().notes.count(); ++note)
            sorted.append(state().notes[note]);
        std::sort(sorted.begin(), sorted.end(), [](const RollNote &a, const RollNote &b) {
            return std::tie(a.start, a.pitch) < std::tie(b.start, b.pitch);
        });
        QStringList texts;
        for (const auto &note : sorted)
            texts.append(QStringLiteral("%1+%2:%3%4")
                             .arg(double(note.start) / eighth)
                             .arg(double(note.length) / eighth)
                             .arg(note.pitch)
                             .arg(document.selectedNotes().contains(note.event) ? u"*" : u""));
        return texts.join(u' ');
    }
};

} // namespace

class TestPianoRoll : public QObject
{
    Q_OBJECT

private slots:
    void keys_data()
    {
        const Rows<QString, QVector<int>, QString, QString> row("body", "selected", "keys", "notes");
        const QVector<int> none;
        const QVector<int> second{1};
        row("later", "CDE", second, "Right Right", "0+1:60 2+1:64 3+1:62*");
        row("earlier stops at the start", "CE2", second, "Left Left Left", "0+1:60 0+2:64*");
        row("up and down", "CDE", second, "Up Up Up Down", "0+1:60 1+1:64* 2+1:64");
        row("octaves", "CDE", second, "Ctrl+Up Ctrl+Up Ctrl+Down", "0+1:60 1+1:74* 2+1:64");
        row("not above the highest", "CDc'''", {1, 2}, "Up", "0+1:60 1+1:62* 2+1:108*");
        row("a measure later", "CDE", second, "Ctrl+Right", "0+1:60 2+1:64 9+1:62*");
        row("longer", "CDz4", second, "Shift+Right Shift+Right", "0+1:60 1+3:62*");
        row("no shorter than the grid", "CD3", second, "Shift+Left Shift+Left Shift+Left", "0+1:60 1+1:62*");
        row("finer grid", "CDz", second, "] Shift+Right", "0+1:60 1+1.5:62*");
        row("delete", "CDE", second, "Del", "0+1:60 2+1:64");
        row("all", "CDE", none, "Ctrl+A Down", "0+1:59* 1+1:61* 2+1:63*");
        row("none", "CDE", second, "Esc Del", "0+1:60 1+1:62 2+1:64");
        row("next", "CDE", second, "Alt+Right", "0+1:60 1+1:62 2+1:64*");
        row("extend backwards", "CDE", second, "Alt+Shift+Left", "0+1:60* 1+1:62* 2+1:64");
        row("first from the cursor", "CDE", none, "Home Alt+Right", "0+1:60* 1+1:62 2+1:64");
        row("insert at the end", "CDE", none, "End Ins", "0+1:60 1+1:62 2+1:64 3+1:60*");
        row("cursor moves", "C", none, "Home Ctrl+Right Left Up Up Ins", "0+1:60 7+1:62*");
        row("as long as the last one", "C3", {0}, "Shift+Right Esc End Ins", "0+4:60 4+4:60*");
        row("duplicate", "CDE", {1, 2}, "Ctrl+D", "0+1:60 1+1:62 2+1:64 3+1:62* 4+1:64*");
        row("cut and paste", "CDEF", second, "Ctrl+X End Ctrl+V", "0+1:60 2+1:64 3+1:65 4+1:62*");
    }

    void keys()
    {
        QFETCH(QString, body);
        QFETCH(QVector<int>, selected);
        QFETCH(QString, keys);
        Fixture fixture(body);
        fixture.select(selected);
        fixture.press(keys);
        QTEST(fixture.notes(), "notes");
        for (int note = 0; note < fixture.state().notes.count(); ++note)
            QVERIFY(!fixture.document.textOf(fixture.state().notes[note].event).isEmpty());
    }

    void tuneFromKeysAlone()
    {
        Fixture fixture;
        fixture.press("Home Ins Ins Up Up Ins Esc Right Shift+Right Ins Shift+Right");
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62 2+1:62 4+2:62*"));
        QCOMPARE(parseAbc(fixture.document.text()->toPlainText()).noteCount(), 4);
        while (fixture.document.canUndo())
            fixture.document.undo();
        fixture.document.update();
        QCOMPARE(fixture.notes(), QString());
    }

    void clickingSelects()
    {
        Fixture fixture("CDEF");
        fixture.click(fixture.middleOf(1));
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64 3+1:65"));
        fixture.click(fixture.middleOf(2), Qt::ShiftModifier);
        fixture.click(fixture.middleOf(3), Qt::ControlModifier);
        fixture.click(fixture.middleOf(1), Qt::ControlModifier);
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62 2+1:64* 3+1:65*"));
        fixture.click(fixture.middleOf(3));
        QCOMPARE(fixture.document.selectedNotes().size(), 1);
        fixture.click(fixture.at(6 * eighth + 700, 70));
        QVERIFY(fixture.document.selectedNotes().isEmpty());
        QCOMPARE(fixture.state().cursor, 6 * eighth);
        QCOMPARE(fixture.state().cursorPitch, 70);
    }

    void band()
    {
        Fixture fixture("CDEFGA");
        fixture.drag(fixture.at(3 * eighth - 500, 58), fixture.at(eighth + 500, 64));
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64* 3+1:65 4+1:67 5+1:69"));
        fixture.drag(fixture.at(5 * eighth - 500, 75), fixture.at(4 * eighth + 500, 60), Qt::ShiftModifier);
        QCOMPARE(fixture.document.selectedNotes().size(), 3);
        fixture.drag(fixture.at(6 * eighth + 800, 75), fixture.at(4 * eighth + 500, 60), Qt::ControlModifier);
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64* 3+1:65 4+1:67 5+1:69*"));
    }

    void dragging_data()
    {
        // grip: pixels from the middle of the second note
        const Rows<int, double, int, Qt::KeyboardModifiers, QString> row("grip", "eighths", "semitones", "modifiers",
                                                                         "notes");
        row("moves to the grid", 0, 2.3, 0, Qt::NoModifier, "0+2:60 4+2:62*");
        row("in pitch only", 0, 0.0, 5, Qt::NoModifier, "0+2:60 2+2:67*");
        row("not before the start", 0, -9.0, 1, Qt::NoModifier, "0+2:60 0+2:63*");
        row("copies", 0, 3.1, -2, Qt::ControlModifier, "0+2:60 2+2:62 5+2:60*");
        row("off the grid", 0, 2.5, 0, Qt::AltModifier, "0+2:60 4.5+2:62*");
        row("resizes at the right edge", 22, 1.7, 0, Qt::NoModifier, "0+2:60 2+4:62*");
        row("no shorter than the grid", 22, -6.0, 0, Qt::NoModifier, "0+2:60 2+1:62*");
    }

    void dragging()
    {
        QFETCH(int, grip);
        QFETCH(double, eighths);
        QFETCH(int, semitones);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        Fixture fixture("C2D2");
        const auto from = fixture.middleOf(1) + QPoint(grip, 0);
        const auto &geometry = fixture.state().geometry;
        const QPoint distance(int(eighths * double(eighth) * geometry.pixelsPerTick()),
                              -semitones * geometry.rowHeight());
        fixture.drag(from, from + distance, modifiers);
        QTEST(fixture.notes(), "notes");
    }

    void dragIsOneUndoStep()
    {
        Fixture fixture("CDEF");
        const auto before = fixture.document.text()->toPlainText();
        fixture.press("Ctrl+A");
        fixture.drag(fixture.middleOf(0), fixture.at(5 * eighth, 66));
        QVERIFY(fixture.document.text()->toPlainText() != before);
        fixture.document.undo();
        QCOMPARE(fixture.document.text()->toPlainText(), before);
        QVERIFY(!fixture.document.canUndo());
    }

    void escapeEndsADrag()
    {
        Fixture fixture("CDEF");
        QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.middleOf(1));
        fixture.moveTo(fixture.at(6 * eighth, 70));
        QVERIFY(fixture.roll.mouse().drag().isRunning());
        fixture.press("Esc");
        QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, fixture.at(6 * eighth, 70));
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64 3+1:65"));
        QVERIFY(!fixture.document.canUndo());
    }

    void drawing()
    {
        Fixture fixture("C");
        const auto spot = fixture.at(2 * eighth + 900, 64);
        fixture.click(spot);
        QTest::mouseDClick(fixture.canvas(), Qt::LeftButton, {}, spot);
        QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, spot);
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 2+1:64*"));
        fixture.press("D");
        QVERIFY(fixture.roll.actions().action(RollActions::DrawTool)->isChecked());
        fixture.drag(fixture.at(5 * eighth + 900, 67), fixture.at(8 * eighth - 400, 67));
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 2+1:64 5+3:67*"));
        // The next one is as long; pitches that cannot be played are not drawn.
        fixture.roll.verticalScrollBar()->setValue(0);
        fixture.click(fixture.at(9 * eighth, 119));
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 2+1:64 5+3:67 9+3:108*"));
    }

    // A chord, a tuplet, notes that overlap and a rest before them come back as they were.
    void clipboard()
    {
        Fixture fixture("z4 [C4E2] (3FGA [^c2-e4] [^c2B2] z3");
        const auto before = fixture.notes();
        fixture.press("Ctrl+A Ctrl+C Del");
        QCOMPARE(fixture.notes(), QString());
        fixture.roll.commands().setCursor(4 * eighth);
        fixture.press("Ctrl+V");
        QCOMPARE(fixture.notes().remove(u'*'), before);
    }

    void pastesTypedAbc()
    {
        Fixture fixture("C");
        fixture.press("End");
        QApplication::clipboard()->setText(QStringLiteral("G2 [ce] ]] nonsense"));
        fixture.press("Ctrl+V");
        QVERIFY(fixture.notes().startsWith(QStringLiteral("0+1:60 1+2:67* 3+1:72* 3+1:76*")));
        QApplication::clipboard()->setText(QStringLiteral("\xff\n12 %%"));
        const auto before = fixture.state().notes.count();
        fixture.press("Ctrl+V");
        QCOMPARE(fixture.state().notes.count(), before);
    }

    void linkedWithTheText()
    {
        Fixture fixture("CDEF");
        const auto start = fixture.document.reading().layout.bodyOffset;
        fixture.roll.clearFocus();
        fixture.document.setCaret(start + 3, {start + 1, 2});
        QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64* 3+1:65"));
        QVERIFY(fixture.state().has(1, RollState::Selected));
        QVERIFY(!fixture.state().has(0, RollState::Selected));
        QVERIFY(fixture.state().has(fixture.state().notes.ofEvent(fixture.document.caret().note), RollState::AtCaret));
        QCOMPARE(fixture.state().cursor, fixture.document.caret().tick);

        QTextCursor typing(fixture.document.text());
        typing.setPosition(start);
        typing.insertText(QStringLiteral("G2"));
        QTRY_COMPARE(fixture.state().notes.count(), 5);
        fixture.roll.setFocus();
        fixture.click(fixture.middleOf(4));
        const auto range = fixture.document.textOf(fixture.document.selectedNotes().value(0));
        QCOMPARE(fixture.document.text()->toPlainText().mid(range.offset, range.length), QStringLiteral("F"));
    }

    void sounds()
    {
        Fixture fixture("C4");
        QSignalSpy started(&fixture.document, &EditorDocument::previewNoteRequested);
        QSignalSpy stopped(&fixture.document, &EditorDocument::previewNoteStopped);
        auto *keyboard = fixture.roll.findChild<RollKeyboard *>();
        QTest::mousePress(keyboard, Qt::LeftButton, {}, QPoint(50, fixture.at(0, 67).y()));
        QCOMPARE(started.takeFirst().at(0).toUInt(), 67U);
        QTest::mouseRelease(keyboard, Qt::LeftButton, {}, QPoint(50, 3));
        QCOMPARE(stopped.count(), 1);
        QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.middleOf(0));
        QCOMPARE(started.takeFirst().at(0).toUInt(), 60U);
        QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, fixture.middleOf(0));
        QCOMPARE(stopped.count(), 2);
        fixture.press("Up");
        QCOMPARE(started.takeFirst().at(0).toUInt(), 61U);
        QTRY_COMPARE(stopped.count(), 3);
    }

    void silentPitches()
    {
        Fixture fixture("C");
        QVERIFY(fixture.state().silent.none());
        Instrument instrument;
        instrument.tuning.notes[60] = {{QStringLiteral("c.wav")}, 1, 261};
        instrument.tuning.notes[61] = {{QStringLiteral("c.wav")}, 0, 277};
        fixture.document.setInstrument(instrument);
        QCOMPARE(fixture.state().silent.test(60), false);
        QCOMPARE(fixture.state().silent.test(61), true);
        QCOMPARE(fixture.state().silent.test(62), true);
        const auto picture = fixture.canvas()->grab().toImage();
        const auto row = [&](int pitch) {
            const auto y = int(fixture.state().geometry.top(pitch));
            return picture.copy(500, y, 64, fixture.state().geometry.rowHeight() - 1);
        };
        QVERIFY(row(62) != row(60)); // both are white keys
    }

    void ruler()
    {
        Fixture fixture("C8 D8 E8");
        auto *ruler = fixture.roll.findChild<RollRuler *>();
        QTest::mouseClick(ruler, Qt::LeftButton, {}, QPoint(int(fixture.state().geometry.x(5 * eighth)) + 3, 10));
        QCOMPARE(fixture.state().cursor, 5 * eighth);
        Ticks playedFrom = -1;
        connect(&fixture.roll, &PianoRoll::playRequested, this, [&](Ticks tick) { playedFrom = tick; });
        fixture.press("Shift+Space");
        QCOMPARE(playedFrom, 5 * eighth);
    }

    void wheelZooms()
    {
        Fixture fixture("C8 D8 E8 F8 G8 A8 B8 c8 C8 D8 E8 F8 G8 A8 B8 c8");
        fixture.roll.horizontalScrollBar()->setValue(200);
        const QPoint anchor(400, 100);
        const auto wheel = [&](int delta, Qt::KeyboardModifiers modifiers) {
            QWheelEvent event(anchor, fixture.canvas()->mapToGlobal(anchor), {}, {0, delta}, Qt::NoButton, modifiers,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(fixture.canvas(), &event);
        };
        const auto tick = fixture.state().geometry.tick(anchor.x());
        wheel(60, Qt::ControlModifier); // half a notch waits for the other half
        QCOMPARE(fixture.state().geometry.hScale(), 4);
        wheel(60, Qt::ControlModifier);
        QCOMPARE(fixture.settings.value(Settings::PianoRollHScale).toInt(), 5);
        QVERIFY(std::abs(fixture.state().geometry.tick(anchor.x()) - tick) <= fixture.state().geometry.ticksIn(2));
        const auto pitch = fixture.state().geometry.pitch(anchor.y());
        wheel(-120, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(fixture.settings.value(Settings::PianoRollVScale).toInt(), 1);
        QCOMPARE(fixture.state().geometry.pitch(anchor.y()), pitch);
        const auto scroll = fixture.roll.horizontalScrollBar()->value();
        wheel(-120, Qt::ShiftModifier);
        QCOMPARE(fixture.roll.horizontalScrollBar()->value(), scroll + 120);

        PianoRoll again(fixture.document, fixture.settings);
        QCOMPARE(again.state().geometry.hScale(), 5);
    }

    void positionRepaintsItself()
    {
        Fixture fixture("C8 D8 E8 F8");
        fixture.document.setPlayPosition(eighth);
        QCoreApplication::processEvents();
        PaintCounter counter(fixture.canvas());
        fixture.document.setPlayPosition(eighth + 100);
        QTRY_VERIFY(counter.count() > 0);
        QVERIFY(counter.area().width() < 20);
    }

    // Scrolling moves pixels; the result must be what painting everything gives.
    void scrolledPictureIsWhole()
    {
        Fixture fixture("C8 D8 E8 F8 [CEG]4 ^c3 d (3ABc G4 C8 D8 E8 F8");
        Instrument instrument;
        instrument.tuning.notes[60] = {{QStringLiteral("c.wav")}, 1, 261};
        fixture.document.setInstrument(instrument);
        fixture.document.setPlayPosition(9 * eighth);
        const auto onScreen = [&] {
            return fixture.roll.window()->screen()->grabWindow(fixture.roll.winId()).toImage();
        };
        QCoreApplication::processEvents();
        PaintCounter counter(fixture.canvas());
        fixture.roll.horizontalScrollBar()->setValue(61);
        fixture.roll.verticalScrollBar()->setValue(fixture.roll.verticalScrollBar()->value() + 34);
        QTRY_VERIFY(counter.count() > 0);
        const auto moved = onScreen();
        fixture.canvas()->update();
        fixture.roll.update();
        for (auto *child : fixture.roll.findChildren<QWidget *>())
            child->update();
        QTest::qWait(20);
        QCOMPARE(moved, onScreen());
        QVERIFY(!moved.isNull());
    }

    void followsPlayback()
    {
        Fixture fixture("C8 D8 E8 F8 G8 A8 B8 c8 C8 D8 E8 F8");
        const auto isVisible = [&](Ticks tick) {
            const auto x = fixture.state().geometry.x(tick);
            return x >= 0 && x < fixture.canvas()->width();
        };
        fixture.document.setPlayPosition(70 * eighth);
        QVERIFY(isVisible(70 * eighth));
        fixture.press("F");
        fixture.document.setPlayPosition(0);
        QVERIFY(!isVisible(0));
    }

    void hugeTimes()
    {
        Fixture fixture("C4294967295 [M:1/40320] C4294967295 [M:2147483647/1] C");
        for (int i = 0; i < 30; ++i) {
            fixture.roll.zoomTime(i < 20 ? -1 : 1);
            fixture.roll.horizontalScrollBar()->setValue(i * 7'919'777);
            fixture.canvas()->grab();
        }
        fixture.press("End Home End Ctrl+Right");
        QVERIFY(fixture.state().cursor > 2 * ticksPerWholeNote * Ticks(4'294'967'295 / 8));
    }
};

QTEST_MAIN(TestPianoRoll)
#include "test_piano_roll.moc"
