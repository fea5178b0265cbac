// What the window does while it plays.
#include "app/ExampleSongs.h"
#include "app/Screenshot.h"
#include "app/WindowFixture.h"
#include "core/AbcParser.h"
#include "support/GatedEngine.h"
#include "support/Rows.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/song/TrackVisualizationWidget.h"
#include "ui/song/VUMeter.h"
#include "ui/timeline/TimeRuler.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDial>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolBar>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>
#include <atomic>

Q_DECLARE_METATYPE(Dialogs::Answer)

class TestWindowPlayback : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowFixture> fixture_;
    QHash<QString, std::pair<float, float>> loudest_; // left and right peak of each track; of the master by ""

    TrackPlayer &player() { return *fixture_->window().findChild<TrackPlayer *>(); }
    TrackVisualizationWidget *overview(int row) { return fixture_->inRow<TrackVisualizationWidget>(row, "wVis"); }

    // The highest levels of two seconds of music, when what was scheduled before has gone.
    void listen()
    {
        for (const bool isOver : {false, true}) {
            const auto begin = overview(1)->position();
            QVERIFY(QTest::qWaitFor([&] { return overview(1)->position() > begin + ticksPerWholeNote; }));
            if (!isOver)
                loudest_.clear();
        }
    }
    float left(const char *id) { return loudest_.value(QLatin1String(id)).first; }
    float right(const char *id) { return loudest_.value(QLatin1String(id)).second; }

private slots:
    void init()
    {
        fixture_ = std::make_unique<WindowFixture>(demoGame);
        QVERIFY(fixture_->waitUntilLoaded());
        connect(&player(), &TrackPlayer::trackMeter, this,
                [this](const QString &id, float, float, float left, float right) {
                    auto &loudest = loudest_[id];
                    loudest = {std::max(loudest.first, left), std::max(loudest.second, right)};
                });
        connect(&player(), &TrackPlayer::masterMeter, this, [this](float, float, float left, float right) {
            auto &loudest = loudest_[QString()];
            loudest = {std::max(loudest.first, left), std::max(loudest.second, right)};
        });
    }

    void cleanup()
    {
        fixture_.reset();
        loudest_.clear();
    }

    void playsAndStops()
    {
        QVERIFY(fixture_->import(jig, 3));
        auto *const overview = fixture_->inRow<TrackVisualizationWidget>(0, "wVis");
        fixture_->trigger("actionPlay");
        QTRY_VERIFY(overview->position() > 40320);
        QVERIFY(fixture_->action("actionStop")->isEnabled());
        emit overview->seek(0);
        QTRY_VERIFY(overview->position() < 40320);
        QVERIFY(fixture_->action("actionStop")->isEnabled());
        fixture_->trigger("actionStop");
        QTRY_VERIFY(!fixture_->action("actionStop")->isEnabled());
        QCOMPARE(overview->position(), Ticks(0));

        fixture_->trigger("actionPlay"); // to its end
        QTRY_VERIFY(overview->position() > 0);
        const auto nearEnd = overview->span().end() - 40320;
        QSignalSpy stopped(&player(), &TrackPlayer::trackStopped);
        emit overview->seek(nearEnd);
        QTRY_COMPARE_WITH_TIMEOUT(stopped.size(), 3, 60'000);
        QTRY_COMPARE(overview->position(), nearEnd); // where Play begins the next time
        fixture_->trigger("actionStop");
        QCOMPARE(overview->position(), Ticks(0));
        QVERIFY(!fixture_->action("actionStop")->isEnabled());
    }

    // A key sounds from when it is pressed until it is let go.
    void hearsTheKeyboard()
    {
        QVERIFY(fixture_->import(jig, 3));
        fixture_->keyboard.ports = QStringList(QStringLiteral("Piano"));
        fixture_->settings().setValue(Settings::KeyboardPort, QStringLiteral("Piano"));
        fixture_->keyboard.play({0x90, 72, 100});
        QTRY_VERIFY(left("") > 0);
        fixture_->keyboard.play({0x90, 72, 0});
        const auto isSilent = [&] {
            loudest_.clear();
            QTest::qWait(100);
            return !(left("") > 0);
        };
        QTRY_VERIFY(isSilent());

        // And enters notes where somebody edits.
        fixture_->inRow<QAbstractButton>(0, "btnEdit")->click();
        auto &editor = *fixture_->window().findChild<AbcEditorWindow *>();
        QApplication::setActiveWindow(&editor);
        editor.findChild<QAction *>(QStringLiteral("actionStepEntry"))->trigger();
        const auto before = editor.document().text()->toPlainText();
        for (const int velocity : {100, 0})
            fixture_->keyboard.play({0x90, 72, velocity});
        QTRY_VERIFY(editor.document().text()->toPlainText() != before);
        editor.document().undo();
    }

    // Into the selected part, where the song was when the key was pressed, as one step.
    void recordsWhatIsPlayed()
    {
        fixture_->makeEngine = [] { return std::make_unique<BuiltinEngine>(HeardOutput::Paced); };
        fixture_->makeWindow();
        QVERIFY(fixture_->waitUntilLoaded());
        QVERIFY(fixture_->import(jig, 3));
        auto &tracks = fixture_->tracks();
        const auto part = tracks.ids().at(1);
        tracks.setSelected(part, true);
        const auto notes = [&] { return tracks.find(part)->track->noteCount(); };
        const auto before = notes();
        fixture_->trigger("actionRecord"); // without a keyboard
        QVERIFY(!fixture_->dialogs().messages.isEmpty() && !fixture_->action("actionRecord")->isChecked());

        fixture_->keyboard.ports = QStringList(QStringLiteral("Piano"));
        fixture_->settings().setValue(Settings::KeyboardPort, QStringLiteral("Piano"));
        constexpr quint32 pitch = 108;            // which the song has not
        fixture_->keyboard.play({0x90, 60, 100}); // and let go while it records
        QTest::qWait(20);
        fixture_->trigger("actionRecord");
        QTRY_VERIFY(overview(1)->position() > ticksPerWholeNote);
        const auto pressed = overview(1)->position();
        fixture_->keyboard.play({0x90, int(pitch), 100});
        QTRY_VERIFY(overview(1)->position() > pressed + ticksPerQuarter);
        const auto length = overview(1)->position() - pressed;
        for (const int key : {int(pitch), 60})
            fixture_->keyboard.play({0x90, key, 0});
        QTest::qWait(10);
        fixture_->trigger("actionStop");
        QVERIFY(!fixture_->action("actionRecord")->isChecked());
        QCOMPARE(notes(), before + 1);
        const auto &events = tracks.find(part)->track->events();
        const auto note = std::find_if(events.begin(), events.end(),
                                       [](const auto &event) { return event.isNote() && event.pitch() == pitch; });
        QVERIFY(note != events.end());
        QVERIFY(std::abs(note->start() - pressed) <= ticksPerQuarter / 2);
        QVERIFY(std::abs(note->length() - length) <= ticksPerQuarter / 2);
        fixture_->trigger("actionUndo");
        QCOMPARE(notes(), before);
    }

    // Where the song was when it was stopped is not where it is begun again.
    void takesNoPositionOfWhatWasStopped()
    {
        QVERIFY(fixture_->import(jig, 3));
        fixture_->trigger("actionPlay");
        emit player().trackPositionChanged(fixture_->tracks().ids().first(), ticksPerWholeNote * 100);
        QCOMPARE(fixture_->child<TimeRuler>("timeRuler")->position(), Ticks(0));
        QCOMPARE(overview(0)->position(), Ticks(0));
        QTRY_VERIFY(overview(0)->position() > 0);
        QVERIFY(overview(0)->position() < ticksPerWholeNote * 100);
    }

    // Into a song without notes, by its beats.
    void recordsByTheMetronome()
    {
        fixture_->makeEngine = [] { return std::make_unique<BuiltinEngine>(HeardOutput::Paced); };
        fixture_->makeWindow();
        QVERIFY(fixture_->waitUntilLoaded());
        fixture_->trigger("actionNew_Track");
        fixture_->trigger("actionMetronome");
        fixture_->keyboard.ports = QStringList(QStringLiteral("Piano"));
        fixture_->settings().setValue(Settings::KeyboardPort, QStringLiteral("Piano"));
        Ticks position = 0;
        connect(&player(), &TrackPlayer::trackPositionChanged, this, [&](const QString &id, quint64 tick) {
            if (Playback::isMetronome(id))
                position = Ticks(tick);
        });
        fixture_->trigger("actionRecord");
        QTRY_VERIFY(position > ticksPerWholeNote / 2);
        const auto pressed = position;
        fixture_->keyboard.play({0x90, 60, 100});
        QTRY_VERIFY(position > pressed + ticksPerQuarter);
        fixture_->keyboard.play({0x80, 60, 0});
        QTest::qWait(10);
        fixture_->trigger("actionStop");
        const auto &track = *fixture_->tracks().song().first()->track;
        QCOMPARE(track.noteCount(), 1);
        QVERIFY(std::abs(track.events().first().start() - pressed) <= ticksPerQuarter / 2);
        QVERIFY(!fixture_->action("actionRecord")->isChecked());
    }

    // A text that can hold the notes only when all of it is written anew, for 40 seconds, as busy machines are late;
    // what was played is not lost if it may not.
    void recordingAsksBeforeATextIsWrittenAnew_data()
    {
        const Rows<Dialogs::Answer> row("answer");
        row("not written anew", Dialogs::Answer::No);
        row("written anew", Dialogs::Answer::Yes);
    }
    void recordingAsksBeforeATextIsWrittenAnew()
    {
        QFETCH(Dialogs::Answer, answer);
        fixture_->makeEngine = [] { return std::make_unique<BuiltinEngine>(HeardOutput::Paced); };
        fixture_->makeWindow();
        QVERIFY(fixture_->waitUntilLoaded());
        auto &tracks = fixture_->tracks();
        const auto track = parseAbc(QStringLiteral("X: 1\nL: 1/4\nM: 4/4\nK: C\n[Z40C160] | C4 | C4 | % end\n"));
        const auto part = tracks.add(QString(), {NewTrack{track, QString()}}).first();
        fixture_->keyboard.ports = QStringList(QStringLiteral("Piano"));
        fixture_->settings().setValue(Settings::KeyboardPort, QStringLiteral("Piano"));
        const auto hasItsText = [&] { return tracks.trackWithPath(part).toAbc().endsWith(QStringLiteral("end\n")); };
        fixture_->dialogs().answer = answer;
        tracks.setSelected(part, true);
        fixture_->trigger("actionRecord");
        QTRY_VERIFY(overview(0)->position() > 0);
        fixture_->keyboard.play({0x90, 72, 100});
        const auto struck = overview(0)->position();
        QTRY_VERIFY(overview(0)->position() > struck + ticksPerQuarter / 4);
        fixture_->keyboard.play({0x90, 72, 0});
        QTest::qWait(10);
        fixture_->trigger("actionStop");
        QCOMPARE(fixture_->dialogs().takeAsked().size(), 1);
        const bool isPartOfItsOwn = answer == Dialogs::Answer::No;
        QCOMPARE(hasItsText(), isPartOfItsOwn);
        QCOMPARE(tracks.ids().size(), isPartOfItsOwn ? 2 : 1);
        QCOMPARE(tracks.song().last()->track->noteCount(), isPartOfItsOwn ? 1 : track.noteCount() + 1);
    }

    // As with the mouse and the keys: the window is the active one.
    void playsFromThePosition()
    {
        QVERIFY(fixture_->import(jig, 3));
        auto &window = fixture_->window();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto *const ruler = fixture_->child<TimeRuler>("timeRuler");
        QTRY_VERIFY(ruler->isVisible() && ruler->width() == overview(0)->width());
        QCOMPARE(ruler->mapToGlobal(QPoint()).x(), overview(2)->mapToGlobal(QPoint()).x());
        QTest::mouseClick(ruler, Qt::LeftButton, {}, {ruler->width() / 2, ruler->height() - 5});
        const auto chosen = ruler->position();
        QVERIFY(chosen > 0 && chosen < ruler->span().end());
        for (int row = 0; row < 3; ++row)
            QCOMPARE(overview(row)->position(), chosen);

        QSignalSpy pressed(&player(), &TrackPlayer::notePressed);
        QSignalSpy moved(&player(), &TrackPlayer::trackPositionChanged);
        QTest::keyClick(&window, Qt::Key_Space);
        QTRY_VERIFY(ruler->position() > chosen + ticksPerWholeNote && !pressed.isEmpty());
        for (const auto &note : pressed) {
            const auto &events = fixture_->tracks().find(note[0].toString())->track->events();
            QVERIFY(events[note[1].toInt()].start() >= chosen);
        }
        for (const auto &report : moved)
            QVERIFY(report[1].toLongLong() >= chosen);

        QSignalSpy stopped(&player(), &TrackPlayer::trackStopped);
        QTest::keyClick(&window, Qt::Key_Space); // rests there
        QTRY_COMPARE(stopped.size(), 3);
        QTRY_COMPARE(overview(0)->position(), ruler->position());
        const auto paused = ruler->position();
        QVERIFY(paused > chosen);
        moved.clear();
        QTest::keyClick(&window, Qt::Key_Space);
        QTRY_VERIFY(moved.size() > 3);
        QVERIFY(moved.first()[1].toLongLong() >= paused);
        fixture_->trigger("actionStop");
        QTRY_COMPARE(ruler->position(), chosen);
        for (const auto expected : {Ticks(0), Ticks(0)}) {
            fixture_->trigger("actionStop");
            QCOMPARE(ruler->position(), expected);
        }
    }

    void zoomsByCommands()
    {
        QVERIFY(fixture_->import(jig, 3));
        auto *const ruler = fixture_->child<TimeRuler>("timeRuler");
        const auto whole = ruler->span().length;
        const auto seen = [&] { return double(ruler->span().length) / double(whole); };
        fixture_->trigger("actionZoom_In");
        const auto once = seen();
        QVERIFY(once < 0.9);
        fixture_->trigger("actionZoom_In");
        QVERIFY(std::abs(seen() - once * once) < 0.01);
        fixture_->trigger("actionZoom_Out");
        QVERIFY(std::abs(seen() - once) < 0.01);
        auto *const bar = fixture_->child<QScrollBar>("songScrollBar");
        bar->setValue(bar->maximum());
        const auto last = overview(1)->span();
        QVERIFY(whole - last.end() <= 1);
        fixture_->trigger("actionFollow"); // no more
        fixture_->trigger("actionPlay");
        QTRY_VERIFY(ruler->position() > whole / 4);
        QVERIFY(ruler->span() == last);
    }

    void zoomsAllRowsTogether()
    {
        QVERIFY(fixture_->import(jig, 3));
        auto &window = fixture_->window();
        auto *const ruler = fixture_->child<TimeRuler>("timeRuler");
        QTRY_COMPARE(ruler->width(), overview(0)->width());
        const auto *const bar = fixture_->child<QScrollBar>("songScrollBar");
        const auto whole = ruler->span();
        QVERIFY(whole == TimeSpan({0, fixture_->tracks().commonLength()}) && bar->isHidden());
        auto *const viewport =
            fixture_->child<QScrollArea>("scrTrackArea")->viewport(); // the overviews leave it to that
        const auto turn = [&](QPoint at, int notches, Qt::KeyboardModifiers modifiers) {
            const auto global = overview(1)->mapToGlobal(at);
            QWheelEvent event(viewport->mapFromGlobal(global), global, {}, {0, 120 * notches}, Qt::NoButton, modifiers,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(viewport, &event);
        };
        const QPoint at(overview(1)->width() / 3, 20);
        const auto under = overview(1)->tickAt(at.x());
        turn(at, 6, Qt::ControlModifier);
        QCOMPARE(ruler->span().length, whole.length / 8);
        QVERIFY(std::abs(overview(1)->tickAt(at.x()) - under) < 8);
        QVERIFY(overview(0)->span() == ruler->span() && overview(2)->span() == ruler->span() && bar->isVisible());
        const auto zoomed = ruler->span();
        turn(at, -1, Qt::ShiftModifier);
        QVERIFY(overview(0)->span().begin > zoomed.begin && overview(0)->span().length == zoomed.length);

        fixture_->trigger("actionGo_to_End"); // is shown
        QCOMPARE(overview(2)->span().end(), whole.length);
        QCOMPARE(bar->value(), bar->maximum());
        fixture_->trigger("actionGo_to_Start");
        fixture_->trigger("actionPlay"); // and followed
        QTRY_VERIFY(ruler->span().begin > zoomed.length / 2);
        QVERIFY(ruler->position() >= ruler->span().begin && ruler->position() <= ruler->span().end());
        fixture_->trigger("actionStop");
        fixture_->trigger("actionZoom_Whole");
        QVERIFY(overview(0)->span() == whole && bar->isHidden());
        QVERIFY(window.width() <= 1366 && window.height() <= 768);
    }

    void loopsAndChangesTheTempo()
    {
        QVERIFY(fixture_->import(jig, 3));
        auto &window = fixture_->window();
        auto *const ruler = fixture_->child<TimeRuler>("timeRuler");
        const auto measure = Ticks(fixture_->tracks().song().first()->track->measureTicks());
        fixture_->trigger("actionMeasure_Forward");
        fixture_->trigger("actionLoop_Begin");
        fixture_->trigger("actionMeasure_Forward");
        fixture_->trigger("actionLoop_End");
        QVERIFY(ruler->loop() == TimeSpan({measure, measure}) && fixture_->action("actionLoop")->isChecked());
        auto *const tempo = fixture_->child<QSpinBox>("tempoFactor");
        tempo->setValue(150);
        fixture_->trigger("actionMeasure_Back");
        fixture_->trigger("actionPlay");
        int passes = 0;
        Ticks last = 0;
        connect(&player(), &TrackPlayer::trackPositionChanged, this, [&](const QString &id, quint64 position) {
            if (id != fixture_->tracks().ids().first())
                return;
            passes += Ticks(position) < last ? 1 : 0;
            last = Ticks(position);
        });
        QTRY_VERIFY_WITH_TIMEOUT(passes >= 3, 20'000);
        QVERIFY(last >= measure - ticksPerQuarter && last <= 2 * measure);
        fixture_->trigger("actionLoop"); // off: it plays on
        QVERIFY(!ruler->loop());
        QTRY_VERIFY(last > 3 * measure);
        fixture_->trigger("actionStop");
        fixture_->trigger("actionLoop"); // the same one
        QVERIFY(ruler->loop() == TimeSpan({measure, measure}));

        const auto song = window.session().song();
        QVERIFY(song.tempoFactor == 150 && song.loop->begin == measure && song.loop->end == 2 * measure);
        fixture_->dialogs().closeAnswer = Dialogs::CloseAnswer::Discard;
        fixture_->trigger("actionNew_Song");
        QTRY_VERIFY(fixture_->tracks().isEmpty());
        QVERIFY(!ruler->loop() && tempo->value() == 100 && !fixture_->action("actionLoop")->isChecked());
    }

    void movesThePositionWithKeys()
    {
        QVERIFY(fixture_->import(jig, 3));
        auto &window = fixture_->window();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const auto *const ruler = fixture_->child<TimeRuler>("timeRuler");
        const auto positions = [&](const QVector<std::pair<Qt::Key, Qt::KeyboardModifier>> &keys) {
            QVector<Ticks> result;
            for (const auto &[key, modifier] : keys) {
                QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, key, modifier);
                result.append(ruler->position());
            }
            return result;
        };
        const auto measure = Ticks(fixture_->tracks().song().first()->track->measureTicks());
        const auto end = fixture_->tracks().commonLength();
        QCOMPARE(positions({{Qt::Key_Right, Qt::ControlModifier},
                            {Qt::Key_Right, Qt::ControlModifier},
                            {Qt::Key_Left, Qt::ControlModifier},
                            {Qt::Key_End, Qt::NoModifier},
                            {Qt::Key_Home, Qt::NoModifier}}),
                 QVector<Ticks>({measure, 2 * measure, measure, end, 0}));

        // Keys that a control which was reached with Tab needs itself.
        auto *const box = fixture_->inRow<QCheckBox>(0, "chkSelect");
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClick(box, Qt::Key_Space);
        QVERIFY(box->isChecked());
        auto *const volume = fixture_->inRow<QDial>(0, "dlVolume");
        volume->setFocus(Qt::TabFocusReason);
        QCOMPARE(positions({{Qt::Key_Home, Qt::NoModifier}, {Qt::Key_Right, Qt::ControlModifier}}),
                 QVector<Ticks>({0, measure}));
        QCOMPARE(volume->value(), 0);
        fixture_->tracks().history().undo();
        QTest::mouseClick(box, Qt::LeftButton); // leaves the focus where it is
        QVERIFY(!box->hasFocus() && !fixture_->inRow<QWidget>(0, "btnMute")->hasFocus());
    }

    void showsTheLoadingOfSamplesAndCancelsIt()
    {
        const auto gate = GatedEngine::makeGate(false);
        const auto opener = qScopeGuard([&] { GatedEngine::open(gate); }); // also when the test fails
        fixture_->makeEngine = [gate] { return std::make_unique<GatedEngine>(EngineOutput::Silent, gate); };
        fixture_->makeWindow();
        QTRY_VERIFY(!fixture_->window().isLoading());
        QVERIFY(fixture_->import(hymn, 4));
        fixture_->window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&fixture_->window()));
        auto *const busy = fixture_->child<QWidget>("samplesIndicator");
        fixture_->trigger("actionPlay");
        QVERIFY(!busy->isVisible());
        QTRY_VERIFY(busy->isVisible());
        QCOMPARE(busy->findChild<QLabel *>()->text(), QStringLiteral("Loading samples, track 1 of 4..."));
        QTest::keyClick(&fixture_->window(), Qt::Key_Escape);
        QTRY_VERIFY(!busy->isVisible());
        QTRY_VERIFY(!fixture_->action("actionStop")->isEnabled());

        fixture_->trigger("actionPlay");
        fixture_->tracks().setVolume({fixture_->tracks().ids().first()}, 50); // a change while it loads
        QTRY_VERIFY(busy->isVisible());
        QVERIFY(fixture_->action("actionStop")->isEnabled());
        GatedEngine::open(gate);
        QTRY_VERIFY(!busy->isVisible());
        QTRY_VERIFY(fixture_->inRow<TrackVisualizationWidget>(0, "wVis")->position() > 0);
        const auto reached = overview(0)->position();
        QTest::keyClick(&fixture_->window(), Qt::Key_Escape); // cancels only what is shown
        QTRY_VERIFY(overview(0)->position() > reached + ticksPerQuarter);
        fixture_->trigger("actionStop");
        QTRY_VERIFY(!fixture_->action("actionStop")->isEnabled());
    }

    // It counts in, and clicks as long as it is switched on.
    void practises()
    {
        QVERIFY(fixture_->import(jig, 3));
        QStringList heard;
        connect(&player(), &TrackPlayer::notePressed, this, [&heard](const QString &id) {
            if (!heard.contains(id))
                heard.append(id);
        });
        const auto choices = fixture_->child<QMenu>("menuMetronome")->actions();
        const auto isMeasure = [](const QAction *action) { return action->text() == QStringLiteral("1 Measure"); };
        (*std::find_if(choices.begin(), choices.end(), isMeasure))->trigger();
        fixture_->trigger("actionMetronome");
        fixture_->trigger("actionPlay");
        QTRY_VERIFY(heard.contains(QStringLiteral("T1")) && heard.contains(QStringLiteral("~metronome")));
        QCOMPARE(heard.first(), QStringLiteral("~count-in"));
        heard.clear();
        fixture_->trigger("actionPlay"); // anew
        QTRY_VERIFY(heard.contains(QStringLiteral("~count-in")));
        heard.clear();
        QTRY_VERIFY(heard.contains(QStringLiteral("T1")) && heard.contains(QStringLiteral("~metronome")));
        QSignalSpy stopped(&player(), &TrackPlayer::trackStopped);
        fixture_->trigger("actionMetronome");
        QTRY_COMPARE(stopped.size(), 1);
        QCOMPARE(stopped[0][0].toString(), QStringLiteral("~metronome"));
        QCOMPARE(fixture_->settings().value(Settings::CountInMeasures).toInt(), 1);
        QVERIFY(!fixture_->settings().value(Settings::MetronomeOn).toBool());
    }

    // Typed offsets stay, dice are thrown with each start, and the song is what it was.
    void rehearses()
    {
        QVERIFY(fixture_->import(jig, 3));
        const auto song = fixture_->tracks().song();
        QStringList offsets;
        bool isTyped = true;
        fixture_->dialogs().inDialog = [&](QDialog &dialog) {
            auto *const table = dialog.findChild<QTableWidget *>();
            for (int row = 0; row < table->rowCount(); ++row) {
                QCOMPARE(table->item(row, 0)->text(), song[row]->track->title());
                offsets.append(table->item(row, 1)->text());
            }
            table->item(1, 1)->setText(QStringLiteral("-9000"));
            dialog.findChild<QSpinBox *>(QStringLiteral("spnSpread"))->setValue(1000);
            dialog.findChild<QRadioButton *>(QStringLiteral("rdoTyped"))->setChecked(isTyped);
            dialog.findChild<QRadioButton *>(QStringLiteral("rdoDiced"))->setChecked(!isTyped);
            dialog.accept();
        };
        for (const bool typed : {true, false, false}) {
            isTyped = typed;
            fixture_->trigger("actionRehearsal_Offsets");
            fixture_->trigger("actionPlay");
        }
        QSet<int> thrown;
        for (int i = 0; i < 300; ++i)
            thrown.insert(Rehearsal{true, true, 1}.dice());
        QCOMPARE(thrown, QSet<int>({-1, 0, 1}));
        QCOMPARE(offsets.mid(0, 6).join(u' '), QStringLiteral("0 0 0 0 -2000 0")); // as far as it may be
        QVERIFY(offsets.mid(6) != QStringList({QStringLiteral("0"), QStringLiteral("-2000"), QStringLiteral("0")}));
        QVERIFY(fixture_->action("actionRehearsal")->isChecked());
        const auto *const button = qobject_cast<QToolButton *>(
            fixture_->child<QToolBar>("tbPlayback")->widgetForAction(fixture_->action("actionRehearsal")));
        QVERIFY(button->popupMode() == QToolButton::MenuButtonPopup);
        QVERIFY(button->menu()->actions().contains(fixture_->action("actionRehearsal_Offsets")));
        QVERIFY(fixture_->tracks().song() == song);
        QCOMPARE(fixture_->settings().value(Settings::RehearsalSpread).toInt(), 1000);
        fixture_->dialogs().inDialog = [&](QDialog &dialog) {
            auto *const table = dialog.findChild<QTableWidget *>();
            QVERIFY(!table->isEnabled());
            dialog.findChild<QSpinBox *>(QStringLiteral("spnSpread"))->setValue(2);
            dialog.findChild<QPushButton *>(QStringLiteral("btnDice"))->click();
            for (int row = 0; row < table->rowCount(); ++row)
                QVERIFY(std::abs(table->item(row, 1)->text().toInt()) <= 2);
            QVERIFY(table->isEnabled()); // whoever throws them now wants to keep them
            dialog.reject();
        };
        fixture_->trigger("actionRehearsal_Offsets");
    }

    void isPicturedWhilePlaying()
    {
        QVERIFY(fixture_->import(jig, 3));
        saveScreenshot(fixture_->window(), fixture_->path("picture.png"));
        QTRY_VERIFY(fixture_->action("actionStop")->isEnabled());
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(!QImage(fixture_->path("picture.png")).isNull() && !fixture_->action("actionStop")->isEnabled());
    }

    void followsUndoWhilePlaying()
    {
        QVERIFY(fixture_->import(jig, 3));
        fixture_->trigger("actionPlay");
        const auto first = [this] { return fixture_->inRow<TrackVisualizationWidget>(0, "wVis"); };
        QTRY_VERIFY(first()->position() > 40320);
        QSignalSpy stopped(&player(), &TrackPlayer::trackStopped);
        fixture_->inRow<QToolButton>(0, "btnDelete")->click();
        QTRY_COMPARE(stopped.count(), 1);
        QCOMPARE(stopped[0][0].toString(), QStringLiteral("T1"));
        QSignalSpy started(&player(), &TrackPlayer::trackStarted);
        fixture_->trigger("actionUndo");
        QTRY_VERIFY(first()->position() > 40320); // it goes on with the others
        fixture_->row(0)->onTransposeUp();
        QCOMPARE(fixture_->tracks().history().undoText(), QStringLiteral("Transpose Track"));
        QTRY_COMPARE(started.count(), 2);
        QCOMPARE(stopped.count(), 1);
        QTRY_VERIFY(first()->position() > 40320);
        fixture_->trigger("actionStop");
        QTRY_VERIFY(!fixture_->action("actionStop")->isEnabled());
    }

    // Two tracks of notes without end.
    void soundsAsTheSongIsMixed()
    {
        const auto notes = QByteArray("CEGc|").repeated(2000);
        QGuiApplication::clipboard()->setText(QString::fromUtf8(
            "X:1\nT:A\nL:1/4\nQ:1/4=120\nK:C\n" + notes + "\n\nX:2\nT:B\nL:1/4\nQ:1/4=120\nK:C\n" + notes + "\n"));
        fixture_->trigger("actionImport_from_Clipboard");
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
        auto &tracks = fixture_->tracks();
        const auto id = tracks.ids().first();
        fixture_->trigger("actionPlay");
        QTRY_VERIFY(overview(0)->position() > 0 && overview(1)->position() > 0);
        listen();
        const auto usual = left("T1");
        QVERIFY(usual > 0 && right("T1") > 0 && left("T2") > 0 && left("") > 0);
        const auto *const meter = fixture_->inRow<VUMeter>(0, "vuMeter");
        const auto *const master = fixture_->child<VUMeter>("masterMeter");
        QVERIFY(meter->channel(0).shownPeak() > 0 && meter->channel(1).shownPeak() > 0);
        QVERIFY(master->channel(0).shownPeak() > 0 && master->channel(1).shownPeak() > 0);
        QTRY_VERIFY(!overview(0)->pressedNotes().isEmpty());
        QVERIFY(overview(0)->pressedNotes().size() <= 2); // of one note after the other

        tracks.setMuted({id}, true);
        listen();
        QVERIFY(left("T1") == 0 && left("T2") > 0);
        tracks.setMuted({id}, false);
        tracks.setPan({id}, 100);
        listen();
        QVERIFY(left("T1") == 0 && right("T1") > 0);
        tracks.history().undo();
        tracks.setVolume({id}, 0);
        listen();
        QVERIFY(left("T1") == 0 && right("T1") == 0);
        tracks.setVolume({id}, 50);
        listen();
        QVERIFY(left("T1") > 0 && left("T1") < 0.9F * usual);
        fixture_->child<QSlider>("slMasterVolume")->setValue(0);
        QCOMPARE(fixture_->settings().value(Settings::MasterVolume).toInt(), 0);
        listen();
        QVERIFY(left("") == 0 && left("T1") > 0);

        QSignalSpy loading(&player(), &TrackPlayer::loadingSample);
        auto *const list = fixture_->child<QComboBox>("instrumentList");
        for (int i = 0; i < list->count() && loading.isEmpty(); ++i) { // some have no samples of their own
            tracks.setInstrument({id}, list->itemText(i));
            QTest::qWait(100);
        }
        QVERIFY(!loading.isEmpty());
        QVERIFY(fixture_->window().statusBar()->currentMessage().startsWith(QStringLiteral("Loading sample ")));

        fixture_->trigger("actionStop");
        QTRY_VERIFY(!fixture_->action("actionStop")->isEnabled());
        QVERIFY(overview(0)->pressedNotes().isEmpty() && overview(0)->position() == 0);
        QTRY_VERIFY(meter->channel(0).shownPeak() == 0 && master->channel(0).shownPeak() == 0);
    }

    void tellsThatNothingIsHeard()
    {
        const auto *const notice = fixture_->child<QLabel>("outputProblem");
        const auto *const engine = fixture_->child<QLabel>("engineProblem");
        for (const auto &problem : {QStringLiteral("There is no sound device."), QString()}) {
            emit player().outputChanged(problem);
            QCOMPARE(notice->text(), problem);
            QCOMPARE(notice->isVisible(), !problem.isEmpty());
            emit player().engineMade(problem);
            QCOMPARE(engine->isVisible(), !problem.isEmpty());
        }
    }

    void endsAPreview()
    {
        struct LongVoices : BuiltinEngine
        {
            explicit LongVoices(std::atomic<int> &fades) : BuiltinEngine(EngineOutput::Silent), fades_(fades) {}
            bool isPlaying(VoiceId) const override { return true; }
            AudioResult fadeOut(VoiceId, std::size_t) override
            {
                ++fades_;
                return AudioResult::Ok;
            }
            std::atomic<int> &fades_;
        };
        std::atomic<int> fades = 0;
        fixture_->makeEngine = [&fades] { return std::make_unique<LongVoices>(fades); };
        fixture_->makeWindow();
        QVERIFY(fixture_->waitUntilLoaded());
        QVERIFY(fixture_->import(jig, 3));
        QSignalSpy loading(&player(), &TrackPlayer::loadingSample);
        emit fixture_->row(0)->previewNote(60);
        QTRY_COMPARE(loading.size(), 1);
        QCOMPARE(fades.load(), 0);
        emit fixture_->row(0)->stopPreview();
        QTRY_COMPARE(fades.load(), 1);
        fixture_.reset();
    }
};

QTEST_MAIN(TestWindowPlayback)
#include "test_window_playback.moc"
