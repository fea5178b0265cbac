#include "app/Settings.h"
#include "core/AbcParser.h"
#include "ui/PaintCounter.h"
#include "ui/editor/PianoRoll.h"
#include "ui/editor/PianoRollKeyboard.h"
#include "ui/editor/PianoRollRuler.h"
#include "ui/editor/PianoRollText.h"

#include <QApplication>
#include <QClipboard>
#include <QRandomGenerator>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QtTest>

namespace {

constexpr Ticks eighth = ticksPerWholeNote / 8;

QString tune(const QString &body)
{
    return QStringLiteral("X:1\nM:4/4\nL:1/8\nK:C\n") + body;
}

// A roll on the screen with the focus, over a document of its own.
struct Fixture
{
    QTemporaryDir folder;
    Settings settings{folder.filePath(QStringLiteral("settings.cfg"))};
    EditorDocument document;
    PianoRoll roll{document, settings};

    explicit Fixture(const QString &body)
    {
        Track track;
        track.setAbc(tune(body));
        document.setTrack(track);
        roll.resize(1000, 500);
        roll.show();
        QApplication::setActiveWindow(&roll);
        roll.setFocus();
        if (!QTest::qWaitForWindowActive(&roll) || !roll.hasFocus())
            qFatal("The window does not become active.");
    }

    QWidget *canvas() { return roll.viewport(); }
    const PianoRollState &state() const { return roll.state(); }

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
    void press(const QString &keys)
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
        QVector<PianoRollNote> sorted;
        for (int note = 0; note < state().notes.count(); ++note)
            sorted.append(state().notes[note]);
        std::sort(sorted.begin(), sorted.end(), [](const PianoRollNote &a, const PianoRollNote &b) {
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
    void geometry_data();
    void geometry();
    void measures();
    void snap_data();
    void snap();
    void pitchNames();
    void notesInAWindow();

    void keys_data();
    void keys();
    void tuneFromKeysAlone();
    void clickingSelects();
    void band();
    void dragging_data();
    void dragging();
    void dragIsOneUndoStep();
    void escapeEndsADrag();
    void drawing();
    void clipboard();
    void pastesTypedAbc();
    void linkedWithTheText();
    void sounds();
    void silentPitches();
    void ruler();
    void wheelZooms();
    void positionRepaintsItself();
    void scrolledPictureIsWhole();
    void followsPlayback();
    void hugeTimes();
    void randomEvents();
};

void TestPianoRoll::geometry_data()
{
    QTest::addColumn<int>("hScale");
    QTest::addColumn<double>("ratio");
    for (const auto hScale : {-100, -10, 0, 4, 14, 100}) {
        for (const auto ratio : {1.0, 1.5, 2.0})
            QTest::addRow("%d at %g", hScale, ratio) << hScale << ratio;
    }
}

void TestPianoRoll::geometry()
{
    QFETCH(int, hScale);
    QFETCH(double, ratio);
    PianoRollGeometry geometry;
    geometry.setHScale(hScale);
    geometry.setDevicePixelRatio(ratio);
    geometry.setScroll({137, 55});
    for (const Ticks tick : {Ticks(0), eighth, 10 * ticksPerWholeNote + 1}) {
        const auto x = geometry.x(tick);
        QVERIFY(std::abs(geometry.tick(x) - tick) <= geometry.ticksIn(1));
        QVERIFY(qFuzzyIsNull(x * ratio - std::round(x * ratio)));
    }
    for (const auto pitch : {21, 60, 108}) {
        QCOMPARE(geometry.pitch(geometry.top(pitch) + 1), pitch);
        QCOMPARE(geometry.pitch(geometry.bottom(pitch) - 1), pitch);
    }
    QCOMPARE(geometry.pitch(-1e6), PianoRollGeometry::highestPitch);
    QVERIFY(geometry.contentWidth(maxTicks) > 0);
}

void TestPianoRoll::measures()
{
    auto track =
        parseAbc(QStringLiteral("X:1\nM:3/4\nL:1/4\nQ:1/4=90\nK:C\nCCC CC [M:2/4] CC CC [M:none] C4 [M:6/8] C2"));
    const PianoRollMeasures measures(track);
    const auto position = [&](double quarters) {
        return PianoRollText::position(Ticks(quarters * ticksPerQuarter), measures);
    };
    QCOMPARE(position(0), QStringLiteral("Measure 1, beat 1"));
    QCOMPARE(position(4.5), QStringLiteral("Measure 2, beat 2 + 1/8"));
    // The change cuts the second measure short and begins the third.
    QCOMPARE(position(5), QStringLiteral("Measure 3, beat 1"));
    QCOMPARE(position(7), QStringLiteral("Measure 4, beat 1"));
    QCOMPARE(position(9 + 3), QStringLiteral("Measure 5, beat 4"));
    QCOMPARE(position(13 + 0.5), QStringLiteral("Measure 6, beat 2"));
    QCOMPARE(measures.at(4 * ticksPerQuarter).end, 5 * ticksPerQuarter);
    QCOMPARE(measures.previousStart(5 * ticksPerQuarter), 3 * ticksPerQuarter);
    QCOMPARE(measures.marks().size(), size_t(5));

    QVector<qint64> drawn;
    measures.forEachIn(ticksPerQuarter, 8 * ticksPerQuarter, 1,
                       [&](const PianoRollMeasure &measure) { drawn.append(measure.number); });
    QCOMPARE(drawn, (QVector<qint64>{1, 2, 3, 4}));
}

void TestPianoRoll::snap_data()
{
    QTest::addColumn<int>("choice");
    QTest::addColumn<QString>("label");
    QTest::addColumn<Ticks>("tick");
    QTest::addColumn<Ticks>("nearest");
    const Ticks measure = 3 * ticksPerQuarter;
    QTest::newRow("unit") << 2 << "1/8" << eighth + 2521 << 2 * eighth;
    QTest::newRow("quarter unit") << 4 << "1/32" << eighth + 1 << eighth;
    QTest::newRow("triplet") << 7 << "1/8 triplet" << measure + 3300 << measure + 3360;
    QTest::newRow("half notes end with the measure") << 0 << "1/2" << measure - 100 << measure;
    QTest::newRow("off") << 9 << "Off" << Ticks(12345) << Ticks(12345);
}

void TestPianoRoll::snap()
{
    QFETCH(int, choice);
    QFETCH(Ticks, tick);
    Track track;
    track.setMetre(3 * ticksPerQuarter, 3);
    PianoRollSnap snap;
    snap.setChoice(choice);
    QTEST(snap.label(choice), "label");
    QTEST(snap.nearest(tick, PianoRollMeasures(track)), "nearest");
}

void TestPianoRoll::pitchNames()
{
    QCOMPARE(PianoRollText::pitch(60, 7), QStringLiteral("C4"));
    QCOMPARE(PianoRollText::pitch(66, 5), QStringLiteral("F♯4")); // D
    QCOMPARE(PianoRollText::pitch(65, 5), QStringLiteral("F4"));
    QCOMPARE(PianoRollText::pitch(58, 9), QStringLiteral("B♭3"));  // Bb
    QCOMPARE(PianoRollText::pitch(60, 0), QStringLiteral("B♯3"));  // C#
    QCOMPARE(PianoRollText::pitch(59, 14), QStringLiteral("C♭4")); // Cb
    QCOMPARE(PianoRollText::length(3 * eighth / 2), QStringLiteral("3/16"));
    QCOMPARE(PianoRollText::length(2 * ticksPerWholeNote), QStringLiteral("2"));
}

// Against a look at every note, with one note that is longer than all others together.
void TestPianoRoll::notesInAWindow()
{
    QRandomGenerator random(3);
    Track track;
    track.appendEvent(TrackEvent::note(40, 10, 100'000));
    for (int i = 0; i < 1000; ++i)
        track.appendEvent(TrackEvent::note(60, Ticks(random.bounded(50'000)), Ticks(random.bounded(1, 300))));
    track.normalize();
    const PianoRollNotes notes(track);
    for (int i = 0; i < 200; ++i) {
        const auto from = Ticks(random.bounded(52'000));
        const auto to = from + Ticks(random.bounded(1, 4000));
        QVector<int> expected;
        for (int note = 0; note < notes.count(); ++note) {
            if (notes[note].start < to && notes[note].end() >= from)
                expected.append(note);
        }
        QVector<int> found;
        notes.forEachIn(from, to, [&](int note) { found.append(note); });
        QCOMPARE(found, expected);
    }
}

void TestPianoRoll::keys_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QVector<int>>("selected");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("notes");
    const QVector<int> none;
    const QVector<int> second{1};
    QTest::newRow("later") << "CDE" << second << "Right Right"
                           << "0+1:60 2+1:64 3+1:62*";
    QTest::newRow("earlier stops at the start") << "CE2" << second << "Left Left Left"
                                                << "0+1:60 0+2:64*";
    QTest::newRow("up and down") << "CDE" << second << "Up Up Up Down"
                                 << "0+1:60 1+1:64* 2+1:64";
    QTest::newRow("octaves") << "CDE" << second << "Ctrl+Up Ctrl+Up Ctrl+Down"
                             << "0+1:60 1+1:74* 2+1:64";
    QTest::newRow("not above the highest") << "CDc'''" << QVector<int>{1, 2} << "Up"
                                           << "0+1:60 1+1:62* 2+1:108*";
    QTest::newRow("a measure later") << "CDE" << second << "Ctrl+Right"
                                     << "0+1:60 2+1:64 9+1:62*";
    QTest::newRow("longer") << "CDz4" << second << "Shift+Right Shift+Right"
                            << "0+1:60 1+3:62*";
    QTest::newRow("no shorter than the grid") << "CD3" << second << "Shift+Left Shift+Left Shift+Left"
                                              << "0+1:60 1+1:62*";
    QTest::newRow("finer grid") << "CDz" << second << "] Shift+Right"
                                << "0+1:60 1+1.5:62*";
    QTest::newRow("delete") << "CDE" << second << "Del"
                            << "0+1:60 2+1:64";
    QTest::newRow("all") << "CDE" << none << "Ctrl+A Down"
                         << "0+1:59* 1+1:61* 2+1:63*";
    QTest::newRow("none") << "CDE" << second << "Esc Del"
                          << "0+1:60 1+1:62 2+1:64";
    QTest::newRow("next") << "CDE" << second << "Alt+Right"
                          << "0+1:60 1+1:62 2+1:64*";
    QTest::newRow("extend backwards") << "CDE" << second << "Alt+Shift+Left"
                                      << "0+1:60* 1+1:62* 2+1:64";
    QTest::newRow("first from the cursor") << "CDE" << none << "Home Alt+Right"
                                           << "0+1:60* 1+1:62 2+1:64";
    QTest::newRow("insert at the end") << "CDE" << none << "End Ins"
                                       << "0+1:60 1+1:62 2+1:64 3+1:60*";
    QTest::newRow("cursor moves") << "C" << none << "Home Ctrl+Right Left Up Up Ins"
                                  << "0+1:60 7+1:62*";
    QTest::newRow("as long as the last one") << "C3" << QVector<int>{0} << "Shift+Right Esc End Ins"
                                             << "0+4:60 4+4:60*";
    QTest::newRow("duplicate") << "CDE" << QVector<int>{1, 2} << "Ctrl+D"
                               << "0+1:60 1+1:62 2+1:64 3+1:62* 4+1:64*";
    QTest::newRow("cut and paste") << "CDEF" << second << "Ctrl+X End Ctrl+V"
                                   << "0+1:60 2+1:64 3+1:65 4+1:62*";
}

void TestPianoRoll::keys()
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

void TestPianoRoll::tuneFromKeysAlone()
{
    Fixture fixture({});
    fixture.press(QStringLiteral("Home Ins Ins Up Up Ins Esc Right Shift+Right Ins Shift+Right"));
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62 2+1:62 4+2:62*"));
    QCOMPARE(parseAbc(fixture.document.text()->toPlainText()).noteCount(), 4);
    while (fixture.document.canUndo())
        fixture.document.undo();
    fixture.document.update();
    QCOMPARE(fixture.notes(), QString());
}

void TestPianoRoll::clickingSelects()
{
    Fixture fixture(QStringLiteral("CDEF"));
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton, {}, fixture.middleOf(1));
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64 3+1:65"));
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton, Qt::ShiftModifier, fixture.middleOf(2));
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton, Qt::ControlModifier, fixture.middleOf(3));
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton, Qt::ControlModifier, fixture.middleOf(1));
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62 2+1:64* 3+1:65*"));
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton, {}, fixture.middleOf(3));
    QCOMPARE(fixture.document.selectedNotes().size(), 1);
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton, {}, fixture.at(6 * eighth + 700, 70));
    QVERIFY(fixture.document.selectedNotes().isEmpty());
    QCOMPARE(fixture.state().cursor, 6 * eighth);
    QCOMPARE(fixture.state().cursorPitch, 70);
}

void TestPianoRoll::band()
{
    Fixture fixture(QStringLiteral("CDEFGA"));
    fixture.drag(fixture.at(3 * eighth - 500, 58), fixture.at(eighth + 500, 64));
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64* 3+1:65 4+1:67 5+1:69"));
    fixture.drag(fixture.at(5 * eighth - 500, 75), fixture.at(4 * eighth + 500, 60), Qt::ShiftModifier);
    QCOMPARE(fixture.document.selectedNotes().size(), 3);
    fixture.drag(fixture.at(6 * eighth + 800, 75), fixture.at(4 * eighth + 500, 60), Qt::ControlModifier);
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64* 3+1:65 4+1:67 5+1:69*"));
}

void TestPianoRoll::dragging_data()
{
    QTest::addColumn<int>("grip"); // pixels from the middle of the second note
    QTest::addColumn<double>("eighths");
    QTest::addColumn<int>("semitones");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("notes");
    QTest::newRow("moves to the grid") << 0 << 2.3 << 0 << int(Qt::NoModifier) << "0+2:60 4+2:62*";
    QTest::newRow("in pitch only") << 0 << 0.0 << 5 << int(Qt::NoModifier) << "0+2:60 2+2:67*";
    QTest::newRow("not before the start") << 0 << -9.0 << 1 << int(Qt::NoModifier) << "0+2:60 0+2:63*";
    QTest::newRow("copies") << 0 << 3.1 << -2 << int(Qt::ControlModifier) << "0+2:60 2+2:62 5+2:60*";
    QTest::newRow("off the grid") << 0 << 2.5 << 0 << int(Qt::AltModifier) << "0+2:60 4.5+2:62*";
    QTest::newRow("resizes at the right edge") << 22 << 1.7 << 0 << int(Qt::NoModifier) << "0+2:60 2+4:62*";
    QTest::newRow("no shorter than the grid") << 22 << -6.0 << 0 << int(Qt::NoModifier) << "0+2:60 2+1:62*";
}

void TestPianoRoll::dragging()
{
    QFETCH(int, grip);
    QFETCH(double, eighths);
    QFETCH(int, semitones);
    QFETCH(int, modifiers);
    Fixture fixture(QStringLiteral("C2D2"));
    const auto from = fixture.middleOf(1) + QPoint(grip, 0);
    const auto &geometry = fixture.state().geometry;
    const QPoint distance(int(eighths * double(eighth) * geometry.pixelsPerTick()), -semitones * geometry.rowHeight());
    fixture.drag(from, from + distance, Qt::KeyboardModifiers(modifiers));
    QTEST(fixture.notes(), "notes");
}

void TestPianoRoll::dragIsOneUndoStep()
{
    Fixture fixture(QStringLiteral("CDEF"));
    const auto before = fixture.document.text()->toPlainText();
    fixture.press(QStringLiteral("Ctrl+A"));
    fixture.drag(fixture.middleOf(0), fixture.at(5 * eighth, 66));
    QVERIFY(fixture.document.text()->toPlainText() != before);
    fixture.document.undo();
    QCOMPARE(fixture.document.text()->toPlainText(), before);
    QVERIFY(!fixture.document.canUndo());
}

void TestPianoRoll::escapeEndsADrag()
{
    Fixture fixture(QStringLiteral("CDEF"));
    QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.middleOf(1));
    fixture.moveTo(fixture.at(6 * eighth, 70));
    QVERIFY(fixture.state().drag.isRunning());
    fixture.press(QStringLiteral("Esc"));
    QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, fixture.at(6 * eighth, 70));
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64 3+1:65"));
    QVERIFY(!fixture.document.canUndo());
}

void TestPianoRoll::drawing()
{
    Fixture fixture(QStringLiteral("C"));
    const auto spot = fixture.at(2 * eighth + 900, 64);
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton, {}, spot);
    QTest::mouseDClick(fixture.canvas(), Qt::LeftButton, {}, spot);
    QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, spot);
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 2+1:64*"));
    fixture.press(QStringLiteral("D"));
    QVERIFY(fixture.roll.actions().action(PianoRollActions::DrawTool)->isChecked());
    fixture.drag(fixture.at(5 * eighth + 900, 67), fixture.at(8 * eighth - 400, 67));
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 2+1:64 5+3:67*"));
    // The next one is as long; pitches that cannot be played are not drawn.
    fixture.roll.verticalScrollBar()->setValue(0);
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton, {}, fixture.at(9 * eighth, 119));
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 2+1:64 5+3:67 9+3:108*"));
}

// A chord, a tuplet, notes that overlap and a rest before them come back as they were.
void TestPianoRoll::clipboard()
{
    Fixture fixture(QStringLiteral("z4 [C4E2] (3FGA [^c2-e4] [^c2B2] z3"));
    const auto count = fixture.state().notes.count();
    fixture.press(QStringLiteral("Ctrl+A Ctrl+C"));
    QVector<NoteSpec> expected;
    for (int note = 0; note < count; ++note) {
        const auto &copied = fixture.state().notes[note];
        expected.append({copied.start + 28 * eighth, copied.length, quint32(copied.pitch)});
    }
    fixture.roll.commands().setCursor(32 * eighth);
    fixture.press(QStringLiteral("Ctrl+V"));
    QCOMPARE(fixture.state().notes.count(), 2 * count);
    QCOMPARE(fixture.document.selectedNotes().size(), count);
    QVector<NoteSpec> pasted;
    for (const auto event : fixture.document.selectedNotes()) {
        const auto &note = fixture.document.track().events()[event];
        pasted.append({note.start(), note.length(), note.pitch()});
    }
    const auto byPlace = [](const NoteSpec &a, const NoteSpec &b) {
        return std::tie(a.start, a.pitch) < std::tie(b.start, b.pitch);
    };
    std::sort(expected.begin(), expected.end(), byPlace);
    std::sort(pasted.begin(), pasted.end(), byPlace);
    QCOMPARE(pasted, expected);
}

void TestPianoRoll::pastesTypedAbc()
{
    Fixture fixture(QStringLiteral("C"));
    fixture.press(QStringLiteral("End"));
    QApplication::clipboard()->setText(QStringLiteral("G2 [ce] ]] nonsense"));
    fixture.press(QStringLiteral("Ctrl+V"));
    QVERIFY(fixture.notes().startsWith(QStringLiteral("0+1:60 1+2:67* 3+1:72* 3+1:76*")));
    QApplication::clipboard()->setText(QStringLiteral("\xff\n12 %%"));
    const auto before = fixture.state().notes.count();
    fixture.press(QStringLiteral("Ctrl+V"));
    QCOMPARE(fixture.state().notes.count(), before);
}

void TestPianoRoll::linkedWithTheText()
{
    Fixture fixture(QStringLiteral("CDEF"));
    const auto text = fixture.document.text()->toPlainText();
    const auto start = int(text.indexOf(QStringLiteral("CDEF")));
    fixture.roll.clearFocus();
    fixture.document.setCaret(start + 3, {start + 1, 2});
    QCOMPARE(fixture.notes(), QStringLiteral("0+1:60 1+1:62* 2+1:64* 3+1:65"));
    QVERIFY(fixture.state().has(1, PianoRollState::Selected));
    QVERIFY(!fixture.state().has(0, PianoRollState::Selected));
    QVERIFY(fixture.state().has(fixture.state().notes.ofEvent(fixture.document.caretNote()), PianoRollState::AtCaret));
    QCOMPARE(fixture.state().cursor, fixture.document.caretTick());

    QTextCursor typing(fixture.document.text());
    typing.setPosition(start);
    typing.insertText(QStringLiteral("G2"));
    QTRY_COMPARE(fixture.state().notes.count(), 5);
    fixture.roll.setFocus();
    QTest::mouseClick(fixture.canvas(), Qt::LeftButton, {}, fixture.middleOf(4));
    const auto range = fixture.document.textOf(fixture.document.selectedNotes().value(0));
    QCOMPARE(fixture.document.text()->toPlainText().mid(range.offset, range.length), QStringLiteral("F"));
}

void TestPianoRoll::sounds()
{
    Fixture fixture(QStringLiteral("C4"));
    QSignalSpy started(&fixture.document, &EditorDocument::previewNoteRequested);
    QSignalSpy stopped(&fixture.document, &EditorDocument::previewNoteStopped);
    auto *keyboard = fixture.roll.findChild<PianoRollKeyboard *>();
    QTest::mousePress(keyboard, Qt::LeftButton, {}, QPoint(50, fixture.at(0, 67).y()));
    QCOMPARE(started.takeFirst().at(0).toUInt(), 67U);
    QTest::mouseRelease(keyboard, Qt::LeftButton, {}, QPoint(50, 3));
    QCOMPARE(stopped.count(), 1);
    QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.middleOf(0));
    QCOMPARE(started.takeFirst().at(0).toUInt(), 60U);
    QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, fixture.middleOf(0));
    QCOMPARE(stopped.count(), 2);
    fixture.press(QStringLiteral("Up"));
    QCOMPARE(started.takeFirst().at(0).toUInt(), 61U);
    QTRY_COMPARE(stopped.count(), 3);
}

void TestPianoRoll::silentPitches()
{
    Fixture fixture(QStringLiteral("C"));
    QVERIFY(fixture.state().silent.none());
    Instrument instrument;
    instrument.tuning.notes[60] = {{QStringLiteral("c.wav")}, 1, 261};
    instrument.tuning.notes[61] = {{QStringLiteral("c.wav")}, 0, 277};
    fixture.document.setInstrument(instrument);
    QVERIFY(!fixture.state().silent.test(60));
    QVERIFY(fixture.state().silent.test(61));
    QVERIFY(fixture.state().silent.test(62));
    const auto picture = fixture.canvas()->grab().toImage();
    const auto row = [&](int pitch) {
        const auto y = int(fixture.state().geometry.top(pitch));
        return picture.copy(500, y, 64, fixture.state().geometry.rowHeight() - 1);
    };
    QVERIFY(row(62) != row(60)); // both are white keys
}

void TestPianoRoll::ruler()
{
    Fixture fixture(QStringLiteral("C8 D8 E8"));
    auto *ruler = fixture.roll.findChild<PianoRollRuler *>();
    QTest::mouseClick(ruler, Qt::LeftButton, {}, QPoint(int(fixture.state().geometry.x(5 * eighth)) + 3, 10));
    QCOMPARE(fixture.state().cursor, 5 * eighth);
    Ticks playedFrom = -1;
    connect(&fixture.roll, &PianoRoll::playRequested, this, [&](Ticks tick) { playedFrom = tick; });
    fixture.press(QStringLiteral("Shift+Space"));
    QCOMPARE(playedFrom, 5 * eighth);
}

void TestPianoRoll::wheelZooms()
{
    Fixture fixture(QStringLiteral("C8 D8 E8 F8 G8 A8 B8 c8 C8 D8 E8 F8 G8 A8 B8 c8"));
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

void TestPianoRoll::positionRepaintsItself()
{
    Fixture fixture(QStringLiteral("C8 D8 E8 F8"));
    fixture.document.setPlayPosition(eighth);
    QCoreApplication::processEvents();
    PaintCounter counter(fixture.canvas());
    fixture.document.setPlayPosition(eighth + 100);
    QTRY_VERIFY(counter.count() > 0);
    QVERIFY(counter.area().width() < 20);
}

// Scrolling moves pixels; the result must be what painting everything gives.
void TestPianoRoll::scrolledPictureIsWhole()
{
    Fixture fixture(QStringLiteral("C8 D8 E8 F8 [CEG]4 ^c3 d (3ABc G4 C8 D8 E8 F8"));
    Instrument instrument;
    instrument.tuning.notes[60] = {{QStringLiteral("c.wav")}, 1, 261};
    fixture.document.setInstrument(instrument);
    fixture.document.setPlayPosition(9 * eighth);
    const auto onScreen = [&] { return fixture.roll.window()->screen()->grabWindow(fixture.roll.winId()).toImage(); };
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

void TestPianoRoll::followsPlayback()
{
    Fixture fixture(QStringLiteral("C8 D8 E8 F8 G8 A8 B8 c8 C8 D8 E8 F8"));
    const auto isVisible = [&](Ticks tick) {
        const auto x = fixture.state().geometry.x(tick);
        return x >= 0 && x < fixture.canvas()->width();
    };
    fixture.document.setPlayPosition(70 * eighth);
    QVERIFY(isVisible(70 * eighth));
    fixture.press(QStringLiteral("F"));
    fixture.document.setPlayPosition(0);
    QVERIFY(!isVisible(0));
}

void TestPianoRoll::hugeTimes()
{
    Fixture fixture(QStringLiteral("C4294967295 [M:1/40320] C4294967295 [M:2147483647/1] C"));
    for (int i = 0; i < 30; ++i) {
        fixture.roll.zoomTime(i < 20 ? -1 : 1);
        fixture.roll.horizontalScrollBar()->setValue(i * 7'919'777);
        fixture.canvas()->grab();
    }
    fixture.press(QStringLiteral("End Home End Ctrl+Right"));
    QVERIFY(fixture.state().cursor > 2 * ticksPerWholeNote * Ticks(4'294'967'295 / 8));
}

// Keys and mouse at random; what the roll shows stays what the text means.
void TestPianoRoll::randomEvents()
{
    Fixture fixture(QStringLiteral("CDEF GABc [CEG]4 (3DEF G2"));
    QRandomGenerator random(17);
    QVector<QKeySequence> shortcuts;
    for (const auto *action : fixture.roll.actions().findChildren<QAction *>()) {
        if (!action->shortcut().isEmpty())
            shortcuts.append(action->shortcut());
    }
    const auto modifiers = [&] {
        constexpr std::array all{Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                 Qt::AltModifier};
        return Qt::KeyboardModifiers(all[random.bounded(quint32(all.size()))]);
    };
    const auto point = [&] { return QPoint(random.bounded(-40, 1000), random.bounded(-20, 480)); };
    for (int i = 0; i < 1500; ++i) {
        switch (random.bounded(6)) {
        case 0:
            QTest::mousePress(fixture.canvas(), Qt::LeftButton, modifiers(), point());
            break;
        case 1:
            QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, modifiers(), point());
            break;
        case 2:
            fixture.moveTo(point(), modifiers());
            break;
        case 3:
            fixture.document.setPlayPosition(random.bounded(200'000) - 1);
            break;
        default:
            fixture.press(shortcuts[random.bounded(int(shortcuts.size()))].toString());
        }
        // Duplicates would double the tune again and again.
        if (fixture.state().notes.count() > 200) {
            fixture.press(QStringLiteral("Esc Ctrl+A Del"));
        }
    }
    fixture.document.update();
    QCOMPARE(fixture.state().notes.count(), parseAbc(fixture.document.text()->toPlainText()).noteCount());
}

QTEST_MAIN(TestPianoRoll)
#include "test_piano_roll.moc"
