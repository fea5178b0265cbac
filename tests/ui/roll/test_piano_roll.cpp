#include "settings/Settings.h"
#include "support/Rows.h"
#include "ui/PaintCounter.h"
#include "ui/roll/PianoRoll.h"
#include "ui/roll/RollKeyboard.h"
#include "ui/roll/RollRuler.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextCursor>

namespace {

constexpr Ticks eighth = ticksPerWholeNote / 8;
const Text longTune("C8 D8 E8 F8 G8 A8 B8 c8 C8 D8 E8 F8 G8 A8 B8 c8");

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
    const RollGeometry &geometry() const { return state().geometry; }

    QPoint at(double eighths, int pitch) const
    {
        return {qRound(geometry().x(Ticks(eighths * eighth))), int(geometry().top(pitch)) + geometry().rowHeight() / 2};
    }
    static void move(QWidget *over, QPoint to, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(QEvent::MouseMove, to, over->mapToGlobal(to), Qt::NoButton, button, modifiers);
        QApplication::sendEvent(over, &event);
    }
    void moveTo(QPoint to, Qt::KeyboardModifiers modifiers = {}) { move(canvas(), to, Qt::LeftButton, modifiers); }
    void openMenu(QPoint place)
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, canvas()->mapToGlobal(place));
        QApplication::sendEvent(canvas(), &event);
        QApplication::activePopupWidget()->close();
    }

    // Keys, "=ABC_text" for the clipboard, and gestures of the mouse at "eighths:pitch": a click, "2x" a double one,
    // "Menu+" the context menu's; "from>to" a drag, that "!" breaks off with the escape key.
    void act(const Text &steps)
    {
        static const QRegularExpression gesture(
            QStringLiteral("^(?:(Shift|Ctrl|Alt|Menu)\\+)?(2x)?([-.\\d]+):(\\d+)(?:>([-.\\d]+):(\\d+)(!)?)?$"));
        for (const auto &step : steps.split(u' ')) {
            if (const auto match = gesture.match(step); match.hasMatch())
                gesticulate(match);
            else if (step.startsWith(u'='))
                QApplication::clipboard()->setText(step.mid(1).replace(u'_', u' '));
            else
                QTest::keySequence(&roll, QKeySequence(step));
        }
    }
    void gesticulate(const QRegularExpressionMatch &match)
    {
        const auto keys = match.captured(1) == u"Shift"  ? Qt::ShiftModifier
                          : match.captured(1) == u"Ctrl" ? Qt::ControlModifier
                          : match.captured(1) == u"Alt"  ? Qt::AltModifier
                                                         : Qt::NoModifier;
        const auto from = at(match.captured(3).toDouble(), match.captured(4).toInt());
        const bool isDrag = !match.captured(5).isEmpty();
        const auto to = isDrag ? at(match.captured(5).toDouble(), match.captured(6).toInt()) : from;
        if (match.captured(1) == u"Menu")
            return openMenu(from);
        if (match.captured(2).isEmpty())
            QTest::mousePress(canvas(), Qt::LeftButton, keys, from);
        else
            QTest::mouseDClick(canvas(), Qt::LeftButton, keys, from);
        if (isDrag) {
            moveTo((from + to) / 2, keys);
            moveTo(to, keys);
        }
        if (!match.captured(7).isEmpty())
            act("Esc");
        QTest::mouseRelease(canvas(), Qt::LeftButton, keys, to);
    }

    // "start+length:pitch" in eighths, by start and pitch, the selected ones with a star, and the cursor.
    QString result() const
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
        texts.append(QStringLiteral("@%1:%2").arg(double(state().cursor) / eighth).arg(state().cursorPitch));
        return texts.join(u' ');
    }
};

} // namespace

class TestPianoRoll : public QObject
{
    Q_OBJECT

private slots:
    void edits_data()
    {
        const Rows<QString, QString, QString, int> row("body", "steps", "result", "undoSteps");
        row("later", "CDE", "1.5:62 Right Right", "0+1:60 2+1:64 3+1:62* @1:62", 2);
        row("earlier stops at the start", "CE2", "1.5:64 Left Left Left", "0+1:60 0+2:64* @1:64", 1);
        row("up and down", "CDE", "1.5:62 Up Up Up Down", "0+1:60 1+1:64* 2+1:64 @1:64", 4);
        row("octaves", "CDE", "1.5:62 Ctrl+Up Ctrl+Up Ctrl+Down", "0+1:60 1+1:74* 2+1:64 @1:74", 3);
        row("not above the highest", "CDc'''", "Ctrl+A Up", "0+1:60* 1+1:62* 2+1:108* @0:60", 0);
        row("not below the lowest", "A,,,,C", "Ctrl+A Up Down Down", "0+1:21* 1+1:60* @0:21", 2);
        row("a measure later", "CDE", "1.5:62 Ctrl+Right", "0+1:60 2+1:64 9+1:62* @1:62", 1);
        row("a measure earlier, as long as that is", "C8|[M:2/4]D4", "8.5:62 Ctrl+Left", "0+8:60 0+4:62* @8:62", 1);
        row("longer", "CDz4", "1.5:62 Shift+Right Shift+Right", "0+1:60 1+3:62* @1:62", 2);
        row("no shorter than the grid", "CD3", "1.5:62 Shift+Left Shift+Left Shift+Left", "0+1:60 1+1:62* @1:62", 2);
        row("shorter than the grid stays", "CD/2", "1.2:62 Shift+Left Shift+Right", "0+1:60 1+1.5:62* @1:62", 1);
        row("finer grid", "CDz", "1.5:62 ] Shift+Right", "0+1:60 1+1.5:62* @1:62", 1);
        row("coarser grid", "CDz4", "1.5:62 [ [ [ [ Right", "0+1:60 5+1:62* @1:62", 1);
        row("delete", "CDE", "1.5:62 Del", "0+1:60 2+1:64 @1:62", 1);
        row("all", "CDE", "Ctrl+A Down", "0+1:59* 1+1:61* 2+1:63* @0:59", 1);
        row("none", "CDE", "1.5:62 Esc Del", "0+1:60 1+1:62 2+1:64 @1:62", 0);
        row("next", "CDE", "1.5:62 Alt+Right Alt+Right", "0+1:60 1+1:62 2+1:64* @1:62", 0);
        row("extend backwards", "CDE", "1.5:62 Alt+Shift+Left Alt+Shift+Right", "0+1:60* 1+1:62* 2+1:64* @1:62", 0);
        row("first from the cursor", "CDE", "Home Alt+Right", "0+1:60* 1+1:62 2+1:64 @0:60", 0);
        row("last before the cursor", "CDE", "End Alt+Left", "0+1:60 1+1:62 2+1:64* @3:60", 0);
        row("insert at the end", "CDE", "End Ins", "0+1:60 1+1:62 2+1:64 3+1:60* @4:60", 1);
        row("cursor moves", "C", "Home Ctrl+Right Left Up Up Ins Esc Ctrl+Left", "0+1:60 7+1:62 @0:62", 1);
        row("as long as the last one", "C3", "1.5:60 Shift+Right Esc End Ins", "0+4:60 4+4:60* @8:60", 2);
        row("duplicate", "CDE", "1.5:62 Shift+2.5:64 Ctrl+D", "0+1:60 1+1:62 2+1:64 3+1:62* 4+1:64* @2:64", 1);
        row("cut and paste", "CDEF", "1.5:62 Ctrl+X End Ctrl+V", "0+1:60 2+1:64 3+1:65 4+1:62* @5:62", 2);
        row("paste among others", "CDEF", "1.5:62 Ctrl+C Home Ctrl+V", "0+1:60 0+1:62* 1+1:62 2+1:64 3+1:65 @1:62", 1);
        row("from keys alone", "", "Home Ins Ins Up Up Ins Esc Right Shift+Right Ins Shift+Right",
            "0+1:60 1+1:62 2+1:62 4+2:62* @5:62", 7);
        row("paste what was typed", "C", "End =G2_[ce]_]]_nonsense Ctrl+V",
            "0+1:60 1+2:67* 3+1:72* 3+1:76* 4+1:76* 5+1:76* @6:60", 1);
        row("paste what is no music", "C", "=12_%% Ctrl+V", "0+1:60 @0:60", 0);

        row("click", "CDEF", "1.5:62", "0+1:60 1+1:62* 2+1:64 3+1:65 @1:62", 0);
        row("click beside", "CDEF", "1.5:62 6.1:70", "0+1:60 1+1:62 2+1:64 3+1:65 @6:70", 0);
        row("click beside off the grid", "CDEF", "Alt+6.25:70", "0+1:60 1+1:62 2+1:64 3+1:65 @6.25:70", 0);
        row("clicks add and take away", "CDEF", "1.5:62 Shift+2.5:64 Ctrl+3.5:65 Ctrl+1.5:62",
            "0+1:60 1+1:62 2+1:64* 3+1:65* @1:62", 0);
        row("click on one of several", "CDEF", "Ctrl+A 3.5:65", "0+1:60 1+1:62 2+1:64 3+1:65* @3:65", 0);
        row("click beside adds nothing", "CDEF", "1.5:62 Shift+6.1:70", "0+1:60 1+1:62* 2+1:64 3+1:65 @6:70", 0);
        row("menu of a note", "CDEF", "1.5:62 Menu+2.5:64", "0+1:60 1+1:62 2+1:64* 3+1:65 @1:62", 0);
        row("menu of the selection", "CDEF", "Ctrl+A Menu+2.5:64", "0+1:60* 1+1:62* 2+1:64* 3+1:65* @0:60", 0);
        row("band", "CDEFGA", "2.8:62>1.2:64", "0+1:60 1+1:62* 2+1:64* 3+1:65 4+1:67 5+1:69 @0:60", 0);
        row("band adds", "CDEFGA", "0.5:60 Shift+5.5:75>3.5:61", "0+1:60* 1+1:62 2+1:64 3+1:65* 4+1:67* 5+1:69* @0:60",
            0);
        row("band turns over", "CDEFGA", "Ctrl+A Ctrl+6.5:75>4.5:60",
            "0+1:60* 1+1:62* 2+1:64* 3+1:65* 4+1:67 5+1:69 @0:60", 0);

        row("drag to the grid", "C2D2", "3:62>5.3:62", "0+2:60 4+2:62* @2:62", 1);
        row("drag in pitch only", "C2D2", "3:62>3.1:67", "0+2:60 2+2:67* @2:67", 1);
        row("drag not before the start", "C2D2", "3:62>-6:63", "0+2:60 0+2:63* @2:63", 1);
        row("drag beyond the range stays where it fitted", "C2c'''2", "Ctrl+A 1:60>1:62", "0+2:60* 2+2:108* @0:60", 0);
        row("drag copies", "C2D2", "Ctrl+3:62>6.1:60", "0+2:60 2+2:62 5+2:60* @2:62", 1);
        row("drag copies nowhere", "C2D2", "Ctrl+3:62>3.2:62", "0+2:60 2+2:62* @2:62", 0);
        row("drag off the grid", "C2D2", "Alt+3:62>5.5:62", "0+2:60 4.5+2:62* @2:62", 1);
        row("drag several", "CDEF", "Ctrl+A 0.5:60>5.5:66", "5+1:66* 6+1:68* 7+1:70* 8+1:71* @0:66", 1);
        row("drag at the right edge resizes", "C2D2", "3.9:62>5.6:62", "0+2:60 2+4:62* @2:62", 1);
        row("drag no shorter than the grid", "C2D2", "3.9:62>-3:62", "0+2:60 2+1:62* @2:62", 1);
        row("drag broken off", "CDEF", "1.5:62>6:70!", "0+1:60 1+1:62* 2+1:64 3+1:65 @1:62", 0);
        row("double click", "C", "2x2.2:64", "0+1:60 2+1:64* @3:64", 1);
        row("double click off the grid", "C", "Alt+2x2.25:64", "0+1:60 2.25+1:64* @3.25:64", 1);
        row("draw", "C", "D 5.2:67>7.9:67", "0+1:60 5+3:67* @8:67", 1);
        row("draw as long as before", "C", "D 5.2:67>7.9:67 10.2:70", "0+1:60 5+3:67 10+3:70* @13:70", 2);
        row("draw at least a step", "C", "D 5.2:67>3:67", "0+1:60 5+1:67* @6:67", 1);
        row("draw with a pitch on the way", "C", "D 5.2:67>5.3:72", "0+1:60 5+1:72* @6:72", 1);
        row("draw broken off", "C", "D 5.2:67>7.9:67!", "0+1:60 @0:60", 0);
        row("tool for selecting again", "C", "D S 5.2:67>7.9:67", "0+1:60 @0:60", 0);
        row("chords, tuplets and overlaps", "z4 [C4E2] (3FGA [^c2-e4] [^c2B2] z3", "Ctrl+A Ctrl+X Ctrl+V",
            "4+4:60* 4+2:64* 6+0.666667:65* 6.66667+0.666667:67* 7.33333+0.666667:69* 8+4:73* 8+4:76* 10+2:71* @12:60",
            2);
    }

    void edits()
    {
        QFETCH(QString, body);
        QFETCH(QString, steps);
        Fixture fixture(body);
        const auto before = fixture.document.text()->toPlainText();
        fixture.act(steps);
        QTEST(fixture.result(), "result");
        for (int note = 0; note < fixture.state().notes.count(); ++note)
            QVERIFY(!fixture.document.textOf(fixture.state().notes[note].event).isEmpty());
        int undoSteps = 0;
        for (; fixture.document.canUndo(); ++undoSteps)
            fixture.document.undo();
        QTEST(undoSteps, "undoSteps");
        QCOMPARE(fixture.document.text()->toPlainText(), before);
    }

    void linkedWithTheText()
    {
        Fixture fixture("CDEF");
        const auto start = fixture.document.reading().layout.bodyOffset;
        fixture.roll.clearFocus();
        fixture.document.setCaret(start + 3, {start + 1, 2});
        QCOMPARE(fixture.result(), QStringLiteral("0+1:60 1+1:62* 2+1:64* 3+1:65 @3:60"));
        QVERIFY(fixture.state().has(1, RollState::Selected) && !fixture.state().has(0, RollState::Selected));
        QVERIFY(fixture.state().has(3, RollState::AtCaret) && !fixture.state().has(1, RollState::AtCaret));
        QCOMPARE(fixture.roll.accessibleDescription(), QStringLiteral("2 note(s) selected"));

        QTextCursor typing(fixture.document.text());
        typing.setPosition(start);
        typing.insertText(QStringLiteral("G2"));
        fixture.roll.setFocus();
        fixture.act("0.5:67"); // reads it
        fixture.act("5.5:65");
        const auto range = fixture.document.textOf(fixture.document.selectedNotes().value(0));
        QCOMPARE(fixture.document.text()->toPlainText().mid(range.offset, range.length), QStringLiteral("F"));
        QCOMPARE(fixture.roll.accessibleDescription(), QStringLiteral("F4, Measure 1, beat 3 + 1/8, length 1/8"));
    }

    void sounds()
    {
        Fixture fixture("C4D4");
        QStringList heard;
        connect(&fixture.document, &EditorDocument::previewNoteRequested, this,
                [&](quint32 pitch) { heard += QString::number(pitch); });
        connect(&fixture.document, &EditorDocument::previewNoteStopped, this, [&] { heard += QStringLiteral("-"); });
        auto *keyboard = fixture.roll.findChild<RollKeyboard *>();
        const auto key = [&](int pitch) { return QPoint(50, fixture.at(0, pitch).y()); };
        QTest::mousePress(keyboard, Qt::LeftButton, {}, key(67));
        Fixture::move(keyboard, key(69), Qt::LeftButton);
        QTest::mouseRelease(keyboard, Qt::LeftButton, {}, QPoint(50, 3));
        QCOMPARE(fixture.state().cursorPitch, 69);
        fixture.act("2:60 6:62>6:64 Up Alt+Left");
        QTRY_COMPARE(heard.join(u' '), QStringLiteral("67 - 69 - 60 - 62 - 63 - 64 - 65 - 60 -"));
    }

    void knowsWhatHasNoSample()
    {
        Fixture fixture("C");
        QVERIFY(fixture.state().silent.none());
        Instrument instrument;
        const QStringList files{QStringLiteral("c.wav")};
        instrument.tuning.notes = {{60, {files, 1, 261}}, {61, {files, 0, 277}}, {62, {{}, 1, 293}}};
        fixture.document.setInstrument(instrument);
        QVERIFY(!fixture.state().silent.test(60));
        for (const auto pitch : {61, 62, 63})
            QVERIFY(fixture.state().silent.test(size_t(pitch)));
        const auto picture = fixture.canvas()->grab().toImage();
        const auto row = [&](int pitch) {
            return picture.copy(500, int(fixture.geometry().top(pitch)), 64, fixture.geometry().rowHeight() - 1);
        };
        QVERIFY(row(62) != row(60)); // both are white keys
    }

    void ruler()
    {
        Fixture fixture("C8 D8 E8");
        auto *ruler = fixture.roll.findChild<RollRuler *>();
        QVector<Ticks> plays;
        connect(&fixture.roll, &PianoRoll::playRequested, this, [&](Ticks tick) { plays += tick; });
        const auto place = fixture.at(5.2, 60);
        QTest::mouseClick(ruler, Qt::LeftButton, {}, {place.x(), 10});
        QCOMPARE(fixture.state().cursor, 5 * eighth);
        Fixture::move(ruler, {fixture.at(7.1, 60).x(), 10}, Qt::LeftButton);
        QCOMPARE(fixture.state().cursor, 7 * eighth);
        Fixture::move(ruler, {place.x(), 10}, Qt::NoButton);
        QTest::mouseClick(ruler, Qt::RightButton, {}, {place.x(), 10});
        QTest::mouseDClick(ruler, Qt::RightButton, {}, {place.x(), 10});
        QCOMPARE(fixture.state().cursor, 7 * eighth);
        QTest::mouseClick(ruler, Qt::LeftButton, Qt::AltModifier, {place.x(), 10});
        QVERIFY(fixture.state().cursor > 5 * eighth);
        QTest::mouseDClick(ruler, Qt::LeftButton, {}, {place.x() + 24, 10});
        fixture.act("Home Right Shift+Space");
        QCOMPARE(plays, (QVector<Ticks>{6 * eighth, eighth}));
    }

    void zooms()
    {
        Fixture fixture(longTune);
        auto &across = *fixture.roll.horizontalScrollBar();
        across.setValue(200);
        const QPoint anchor(400, 100);
        const auto wheel = [&](int delta, Qt::KeyboardModifiers modifiers) {
            QWheelEvent event(anchor, fixture.canvas()->mapToGlobal(anchor), {}, {0, delta}, Qt::NoButton, modifiers,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(fixture.canvas(), &event);
        };
        const auto tick = fixture.geometry().tick(anchor.x());
        const auto pitch = fixture.geometry().pitch(anchor.y());
        wheel(60, Qt::ControlModifier); // half a notch waits for the other half
        QCOMPARE(fixture.geometry().hScale(), 4);
        wheel(60, Qt::ControlModifier);
        QCOMPARE(fixture.settings.value(Settings::PianoRollHScale).toInt(), 5);
        QVERIFY(std::abs(fixture.geometry().tick(anchor.x()) - tick) <= fixture.geometry().ticksIn(2));
        wheel(-120, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(fixture.settings.value(Settings::PianoRollVScale).toInt(), 1);
        QCOMPARE(fixture.geometry().pitch(anchor.y()), pitch);
        const auto scroll = across.value();
        wheel(-120, Qt::ShiftModifier);
        QCOMPARE(across.value(), scroll + 120);
        QCOMPARE(PianoRoll(fixture.document, fixture.settings).state().geometry.hScale(), 5);

        QStringList scales;
        for (const auto *key : {"Ctrl++", "Ctrl+-", "Ctrl+-", "Ctrl+Shift+Up", "Ctrl+Shift+Down", "Ctrl+0"}) {
            fixture.act(key);
            scales += QStringLiteral("%1/%2").arg(fixture.geometry().hScale()).arg(fixture.geometry().vScale());
            const auto &down = *fixture.roll.verticalScrollBar();
            QCOMPARE(across.maximum(), fixture.geometry().contentWidth(136 * eighth));
            QCOMPARE(down.maximum(), std::max(0, fixture.geometry().contentHeight() - fixture.canvas()->height()));
            QCOMPARE(across.pageStep(), fixture.canvas()->width());
            QCOMPARE(down.pageStep(), fixture.canvas()->height());
            QCOMPARE(down.singleStep() * 2, across.singleStep());
        }
        QCOMPARE(scales.join(u' '), QStringLiteral("6/1 5/1 4/1 4/2 4/1 4/2"));
    }

    void followsTheMouse()
    {
        Fixture fixture("C2D2");
        QString said;
        connect(&fixture.roll, &PianoRoll::statusChanged, this, [&](const QString &text) { said = text; });
        const auto hover = [&](double eighths, int pitch) {
            Fixture::move(fixture.canvas(), fixture.at(eighths, pitch), Qt::NoButton);
            return said.remove(QRegularExpression(QStringLiteral("tick \\d+ · "))) + u'|' +
                   QString::number(fixture.canvas()->cursor().shape());
        };
        const auto with = [](const char *text, Qt::CursorShape shape) {
            return QString::fromUtf8(text) + u'|' + QString::number(shape);
        };
        QCOMPARE(hover(3, 62), with("Measure 1, beat 2 + 1/8 · D4 · length 1/4", Qt::PointingHandCursor));
        QCOMPARE(hover(3.95, 62), with("Measure 1, beat 2 + 1/8 · D4 · length 1/4", Qt::SizeHorCursor));
        QCOMPARE(hover(5.2, 67), with("Measure 1, beat 3 + 1/8 · G4", Qt::ArrowCursor));
        QCOMPARE(fixture.state().keyUnderMouse, std::optional(67));
        fixture.act("D");
        QCOMPARE(hover(5.2, 67), with("Measure 1, beat 3 + 1/8 · G4", Qt::CrossCursor));
        QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.at(5.2, 67));
        fixture.moveTo(fixture.at(8, 67));
        QVERIFY2(said.endsWith(QStringLiteral("length 3/8")), qPrintable(said));
        fixture.roll.clearFocus(); // breaks it off
        QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, fixture.at(8, 67));
        QCOMPARE(fixture.result(), QStringLiteral("0+2:60 2+2:62 @0:60"));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(fixture.canvas(), &leave);
        QVERIFY(said.isEmpty() && !fixture.state().keyUnderMouse);
        auto *const keyboard = fixture.roll.findChild<RollKeyboard *>();
        Fixture::move(keyboard, {50, fixture.at(0, 69).y()}, Qt::NoButton);
        QCOMPARE(fixture.state().keyUnderMouse, std::optional(69));
    }

    void actionsSayWhatHolds()
    {
        Fixture fixture("C2D2");
        auto &actions = fixture.roll.actions();
        const auto states = [&] {
            QString flags;
            for (const auto id : {RollActions::SelectTool, RollActions::DrawTool, RollActions::Follow})
                flags += actions.action(id)->isChecked() ? u'x' : u'-';
            for (const auto id : {RollActions::Cut, RollActions::Copy, RollActions::Duplicate, RollActions::Delete,
                                  RollActions::Lengthen, RollActions::Shorten, RollActions::Paste})
                flags += actions.action(id)->isEnabled() ? u'x' : u'-';
            for (const auto *const action : actions.snapActions())
                flags += action->isChecked() ? action->text() : QString();
            return flags;
        };
        QCOMPARE(states(), QStringLiteral("x-x------x1/8"));
        fixture.act("D 1:60 ] F");
        QCOMPARE(states(), QStringLiteral("-x-xxxxxxx1/16"));
        fixture.act("S Esc");
        actions.snapActions().at(7)->trigger();
        QCOMPARE(states(), QStringLiteral("x--------x1/8 triplet"));
        QCOMPARE(fixture.state().snap.choice(), 7);
        const auto picture = fixture.canvas()->grab().toImage();
        fixture.settings.setValue(Settings::NoteColor, QStringLiteral("#ffff8000"));
        QVERIFY(fixture.canvas()->grab().toImage() != picture);
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

    // What is moved, or painted in parts, must be what painting everything gives.
    void pictureIsWhole()
    {
        Fixture fixture("C8 D8 E8 F8 [CEG]4 ^c3 d (3ABc G4 C8 D8 E8 F8");
        Instrument instrument;
        instrument.tuning.notes[60] = {{QStringLiteral("c.wav")}, 1, 261};
        fixture.document.setInstrument(instrument);
        fixture.document.setPlayPosition(9 * eighth);
        const auto onScreen = [&] {
            return fixture.roll.window()->screen()->grabWindow(fixture.roll.winId()).toImage();
        };
        const std::function<void()> changes[] = {
            [&] { fixture.roll.horizontalScrollBar()->setValue(61); },
            [&] { fixture.roll.verticalScrollBar()->setValue(fixture.roll.verticalScrollBar()->value() + 34); },
            [&] {
                fixture.document.setSoundingNotes({{32 * eighth, 4 * eighth, 60}, {8 * eighth, 8 * eighth, 62}});
            },
            [&] {
                fixture.document.setSoundingNotes({{32 * eighth, 4 * eighth, 64}});
            },
            [&] { fixture.roll.commands().placeCursor(12 * eighth, 66); },
            [&] { fixture.document.setPlayPosition(11 * eighth); },
            [&] { fixture.document.setPlayPosition(-1); },
            [&] { fixture.moveTo(fixture.at(10, 62)); },
            [&] {
                fixture.document.selectNotes({1, 2});
            }};
        for (const auto &change : changes) {
            QCoreApplication::processEvents();
            PaintCounter counter(fixture.canvas());
            change();
            QTest::qWait(20);
            const auto moved = onScreen();
            fixture.canvas()->update();
            fixture.roll.update();
            for (auto *child : fixture.roll.findChildren<QWidget *>())
                child->update();
            QTest::qWait(20);
            QVERIFY(counter.count() > 0);
            QCOMPARE(moved, onScreen());
            QVERIFY(!moved.isNull());
        }
    }

    void showsWhereThingsHappen()
    {
        Fixture high("c'''8");
        QVERIFY(high.canvas()->rect().contains(high.at(1, 108)));
        Fixture fixture(longTune);
        const auto isVisible = [&](double eighths) {
            return fixture.canvas()->rect().contains(fixture.at(eighths, 60));
        };
        fixture.document.setPlayPosition(70 * eighth);
        QVERIFY(isVisible(70));
        fixture.act("F");
        fixture.document.setPlayPosition(0);
        QVERIFY(!isVisible(0));
        fixture.act("Home");
        QVERIFY(isVisible(0));
        fixture.act("End");
        QVERIFY(isVisible(128));
        fixture.roll.verticalScrollBar()->setValue(0);
        QVERIFY(!isVisible(128));
        fixture.roll.clearFocus();
        fixture.document.selectNotes({0});
        QVERIFY(isVisible(0));

        const auto page = fixture.roll.horizontalScrollBar()->pageStep();
        fixture.roll.resize(900, 500);
        QTRY_COMPARE(fixture.roll.horizontalScrollBar()->pageStep(), page - 100);

        // A hand takes the picture along, and a drag that leaves the view.
        QTest::mousePress(fixture.canvas(), Qt::MiddleButton, {}, {500, 200});
        const auto before = fixture.geometry().scroll();
        Fixture::move(fixture.canvas(), {350, 210}, Qt::MiddleButton);
        QTest::mouseRelease(fixture.canvas(), Qt::MiddleButton, {}, {350, 210});
        QCOMPARE(fixture.geometry().scroll() - before, QPoint(150, -10));
        QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.at(10, 70));
        fixture.moveTo({fixture.canvas()->width() + 200, 100});
        QTRY_VERIFY(fixture.geometry().scroll().x() > before.x() + 350);
    }

    void hugeTimes()
    {
        Fixture fixture("C4294967295 [M:1/40320] C4294967295 [M:2147483647/1] C");
        for (int i = 0; i < 30; ++i) {
            fixture.roll.zoomTime(i < 20 ? -1 : 1);
            fixture.roll.horizontalScrollBar()->setValue(i * 7'919'777);
            fixture.canvas()->grab();
        }
        fixture.act("End Home End Ctrl+Right");
        QVERIFY(fixture.state().cursor > 2 * ticksPerWholeNote * Ticks(4'294'967'295 / 8));
    }
};

QTEST_MAIN(TestPianoRoll)
#include "test_piano_roll.moc"
