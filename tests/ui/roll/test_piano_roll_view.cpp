// What of a tune is seen, where, and what the roll says about it.
#include "RollFixture.h"
#include "support/Rows.h"
#include "ui/PaintCounter.h"
#include "ui/roll/RollKeyboard.h"
#include "ui/roll/RollRuler.h"

#include <QScreen>
#include <QScrollBar>

class TestPianoRollView : public QObject
{
    Q_OBJECT

private slots:
    void knowsWhatHasNoSample()
    {
        RollFixture fixture("C");
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
        const auto keys = fixture.roll.findChild<RollKeyboard *>()->grab().toImage();
        const auto colour = [&](int pitch) {
            const QPointF place(4, fixture.at(0, pitch).y());
            return keys.pixelColor((place * keys.devicePixelRatio()).toPoint());
        };
        QVERIFY(colour(58).lightness() < colour(60).lightness() - 60 && colour(60).lightness() > 150);
        QVERIFY(colour(60) != fixture.state().colours.ruler); // which is below all
    }

    // Behind the notes, and as far as they go.
    void showsGhosts()
    {
        RollFixture fixture("C8");
        const auto colourAt = [&](double eighths, int pitch) {
            const auto picture = fixture.canvas()->grab().toImage();
            return picture.pixelColor((QPointF(fixture.at(eighths, pitch)) * picture.devicePixelRatio()).toPoint());
        };
        const auto own = colourAt(2, 60), empty = colourAt(10.3, 64);
        Track other;
        for (const quint32 pitch : {60U, 64U})
            other.appendEvent(TrackEvent::note(pitch, 0, 400 * eighth));
        other.normalize();
        for (const double place : {0.2, 7.8}) // its round ends, too
            QCOMPARE(colourAt(place, 60), fixture.state().colours.note.fill);
        const auto range = fixture.roll.horizontalScrollBar()->maximum();
        fixture.roll.setGhosts({RollNotes(other)});
        QCOMPARE(colourAt(2, 60), own);
        QVERIFY(colourAt(10.3, 64) != empty && colourAt(10.3, 64) == colourAt(10.3, 60));
        QVERIFY(fixture.roll.horizontalScrollBar()->maximum() > 10 * range);
    }

    void ruler()
    {
        RollFixture fixture("C8 D8 E8");
        auto *ruler = fixture.roll.findChild<RollRuler *>();
        QVector<Ticks> plays, starts;
        connect(&fixture.roll, &PianoRoll::playOrStopRequested, this, [&](Ticks tick) { starts += tick; });
        connect(&fixture.roll, &PianoRoll::playRequested, this, [&](Ticks tick) { plays += tick; });
        const auto place = fixture.at(5.2, 60);
        QTest::mouseClick(ruler, Qt::LeftButton, {}, {place.x(), 10});
        QCOMPARE(fixture.state().cursor, 5 * eighth);
        RollFixture::move(ruler, {fixture.at(7.1, 60).x(), 10}, Qt::LeftButton);
        QCOMPARE(fixture.state().cursor, 7 * eighth);
        RollFixture::move(ruler, {place.x(), 10}, Qt::NoButton);
        QTest::mouseClick(ruler, Qt::RightButton, {}, {place.x(), 10});
        QTest::mouseDClick(ruler, Qt::RightButton, {}, {place.x(), 10});
        QCOMPARE(fixture.state().cursor, 7 * eighth);
        QTest::mouseClick(ruler, Qt::LeftButton, Qt::AltModifier, {place.x(), 10});
        QVERIFY(fixture.state().cursor > 5 * eighth);
        QTest::mouseDClick(ruler, Qt::LeftButton, {}, {place.x() + 24, 10});
        fixture.act("Home Right Shift+Space Right Space");
        QCOMPARE(starts, QVector<Ticks>{2 * eighth});
        QCOMPARE(plays, (QVector<Ticks>{6 * eighth, eighth}));
        static_cast<SpokenWidget *>(ruler)->setSpokenValue(3); // as assistive programs do
        QCOMPARE(fixture.state().cursor, 2 * ticksPerWholeNote);
    }

    void rulerTellsProblems()
    {
        RollFixture fixture("C8|D6|E8");
        const auto *ruler = fixture.roll.findChild<RollRuler *>();
        const auto at = [&](double eighths) { return ruler->problemsAt(fixture.at(eighths, 60).x()); };
        QTRY_VERIFY(at(14).contains(QStringLiteral("short by 1/4")));
        QCOMPARE(at(12), QString());
        const auto picture = const_cast<RollRuler *>(ruler)->grab().toImage();
        const auto dotAt = [&](double eighths) {
            const QPointF place(fixture.at(eighths, 60).x() + 0.5, ruler->height() - 5);
            return picture.pixelColor((place * picture.devicePixelRatio()).toPoint());
        };
        QCOMPARE(dotAt(14), fixture.state().colours.warning);
        QCOMPARE(dotAt(12), fixture.state().colours.ruler);
    }

    void zooms()
    {
        RollFixture fixture(longTune);
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
        RollFixture fixture("C2D2");
        QString said;
        connect(&fixture.roll, &PianoRoll::statusChanged, this, [&](const QString &text) { said = text; });
        const auto hover = [&](double eighths, int pitch) {
            RollFixture::move(fixture.canvas(), fixture.at(eighths, pitch), Qt::NoButton);
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
        fixture.act("P");
        QCOMPARE(hover(5.2, 67), with("Measure 1, beat 3 + 1/8 · G4", Qt::CrossCursor));
        const auto shown = [&] {
            const auto picture = fixture.canvas()->grab().toImage();
            return picture.pixel(fixture.at(6.5, 67) * picture.devicePixelRatio());
        };
        const auto paper = shown();
        QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.at(5.2, 67));
        fixture.moveTo(fixture.at(8, 67));
        QVERIFY2(said.endsWith(QStringLiteral("length 3/8")), qPrintable(said));
        QVERIFY(shown() != paper);
        fixture.roll.clearFocus(); // breaks it off
        QTest::mouseRelease(fixture.canvas(), Qt::LeftButton, {}, fixture.at(8, 67));
        QCOMPARE(fixture.result(), QStringLiteral("0+2:60 2+2:62 @0:60"));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(fixture.canvas(), &leave);
        QVERIFY(said.isEmpty() && !fixture.state().keyUnderMouse);
        auto *const keyboard = fixture.roll.findChild<RollKeyboard *>();
        RollFixture::move(keyboard, {50, fixture.at(0, 69).y()}, Qt::NoButton);
        QCOMPARE(fixture.state().keyUnderMouse, std::optional(69));
    }

    // Where the note will be, before it is.
    void showsWhatIsDragged_data()
    {
        const Rows<double, double, int, QString> row("from", "to", "toPitch", "drawn");
        row("moved", 3, 7, 67, "67: 6-8");
        row("longer", 3.95, 7.1, 62, "62: 2-7");
    }
    void showsWhatIsDragged()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(int, toPitch);
        RollFixture fixture("C2D2");
        RollFixture::move(fixture.canvas(), fixture.at(to, toPitch), Qt::NoButton);
        const auto before = fixture.canvas()->grab().toImage();
        QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.at(from, 62));
        fixture.moveTo(fixture.at((from + to) / 2, toPitch));
        fixture.moveTo(fixture.at(to, toPitch));
        const auto picture = fixture.canvas()->grab().toImage();
        const auto isChanged = [&](double eighths) {
            const auto place = fixture.at(eighths, toPitch) * picture.devicePixelRatio();
            return picture.pixel(place) != before.pixel(place);
        };
        int first = 0, end = 12;
        while (first < end && !isChanged(first + 0.5))
            ++first;
        while (end > first && !isChanged(end - 0.5))
            --end;
        QTEST(QStringLiteral("%1: %2-%3").arg(toPitch).arg(first).arg(end), "drawn");
    }

    void actionsSayWhatHolds()
    {
        RollFixture fixture("C2D2");
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
        fixture.act("P 1:60 ] L");
        QCOMPARE(states(), QStringLiteral("-x-xxxxxxx1/16"));
        fixture.act("S Esc");
        actions.snapActions().at(9)->trigger();
        QCOMPARE(states(), QStringLiteral("x--------x1/8 triplet"));
        QCOMPARE(fixture.state().snap.choice(), 9);
        const auto picture = fixture.canvas()->grab().toImage();
        fixture.settings.setValue(Settings::NoteColor, QStringLiteral("#ffff8000"));
        QVERIFY(fixture.canvas()->grab().toImage() != picture);
    }

    void positionRepaintsItself()
    {
        RollFixture fixture("C8 D8 E8 F8");
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
        RollFixture fixture("C8 D8 E8 F8 [CEG]4 ^c3 d (3ABc G4 C8 D8 E8 F8");
        Instrument instrument;
        instrument.tuning.notes[60] = {{QStringLiteral("c.wav")}, 1, 261};
        fixture.document.setInstrument(instrument);
        fixture.document.setPlayPosition(9 * eighth);
        QTRY_VERIFY(!fixture.state().findings.isEmpty()); // the ruler shows them when they are there
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
        RollFixture high("c'''8");
        QVERIFY(high.canvas()->rect().contains(high.at(1, 108)));
        RollFixture fixture(longTune);
        const auto isVisible = [&](double eighths) {
            return fixture.canvas()->rect().contains(fixture.at(eighths, 60));
        };
        fixture.document.setPlayPosition(70 * eighth);
        QVERIFY(isVisible(70));
        fixture.act("L");
        fixture.document.setPlayPosition(0);
        QVERIFY(!isVisible(0));
        fixture.act("Home");
        QVERIFY(isVisible(0));
        fixture.act("End");
        QVERIFY(isVisible(128));
        fixture.roll.clearFocus();
        auto &down = *fixture.roll.verticalScrollBar();
        for (const int place : {down.minimum(), down.maximum()}) {
            down.setValue(place);
            fixture.document.selectNotes({});
            QVERIFY(!isVisible(0));
            fixture.document.selectNotes({0});
            QVERIFY(isVisible(0));
        }

        const auto page = fixture.roll.horizontalScrollBar()->pageStep();
        fixture.roll.resize(900, 500);
        QTRY_COMPARE(fixture.roll.horizontalScrollBar()->pageStep(), page - 100);

        // A hand takes the picture along, and a drag that leaves the view.
        QTest::mousePress(fixture.canvas(), Qt::MiddleButton, {}, {500, 200});
        const auto before = fixture.geometry().scroll();
        RollFixture::move(fixture.canvas(), {350, 210}, Qt::MiddleButton);
        QTest::mouseRelease(fixture.canvas(), Qt::MiddleButton, {}, {350, 210});
        QCOMPARE(fixture.geometry().scroll() - before, QPoint(150, -10));
        QTest::mousePress(fixture.canvas(), Qt::LeftButton, {}, fixture.at(10, 70));
        fixture.moveTo({fixture.canvas()->width() + 200, 100});
        QTRY_VERIFY(fixture.geometry().scroll().x() > before.x() + 350);
    }

    void hugeTimes()
    {
        RollFixture fixture("C4294967295 [M:1/40320] C4294967295 [M:2147483647/1] C");
        for (int i = 0; i < 30; ++i) {
            fixture.roll.zoomTime(i < 20 ? -1 : 1);
            fixture.roll.horizontalScrollBar()->setValue(i * 7'919'777);
            fixture.canvas()->grab();
        }
        fixture.act("End Home End Ctrl+Right");
        QVERIFY(fixture.state().cursor > 2 * ticksPerWholeNote * Ticks(4'294'967'295 / 8));
    }
};

QTEST_MAIN(TestPianoRollView)
#include "test_piano_roll_view.moc"
