// What the window does while it plays.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/GatedEngine.h"
#include "ui/song/TrackVisualizationWidget.h"

#include <QLabel>
#include <QToolButton>

#include <atomic>

class TestWindowPlayback : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowFixture> fixture_;

    TrackPlayer &player() { return *fixture_->window().findChild<TrackPlayer *>(); }
    TrackVisualizationWidget *overview(int row) { return fixture_->inRow<TrackVisualizationWidget>(row, "wVis"); }

private slots:
    void init()
    {
        fixture_ = std::make_unique<WindowFixture>(demoGame);
        QVERIFY(fixture_->waitUntilLoaded());
    }

    void cleanup() { fixture_.reset(); }

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
        const auto nearEnd = overview->commonLength() - 40320;
        emit overview->seek(nearEnd);
        QTRY_VERIFY(overview->position() >= nearEnd);
        QTRY_VERIFY_WITH_TIMEOUT(!fixture_->action("actionStop")->isEnabled(), 60'000);
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
        QVERIFY(!fixture_->action("actionStop")->isEnabled());

        fixture_->trigger("actionPlay");
        fixture_->tracks().setVolume(fixture_->tracks().ids().first(), 50); // a change while it loads
        QTRY_VERIFY(busy->isVisible());
        QVERIFY(fixture_->action("actionStop")->isEnabled());
        GatedEngine::open(gate);
        QTRY_VERIFY(!busy->isVisible());
        QTRY_VERIFY(fixture_->inRow<TrackVisualizationWidget>(0, "wVis")->position() > 0);
        fixture_->trigger("actionStop");
        QTRY_VERIFY(!fixture_->action("actionStop")->isEnabled());
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
