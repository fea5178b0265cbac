#include "support/Rows.h"
#include "ui/PaintCounter.h"
#include "ui/song/NotePicture.h"
#include "ui/song/TrackVisualizationWidget.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

constexpr Ticks songLength = 32 * ticksPerWholeNote;

// A chord at the start, then one long note to the end.
Track song()
{
    Track track;
    for (const quint32 pitch : {60U, 64U, 67U})
        track.appendEvent(TrackEvent::note(pitch, 0, 4 * ticksPerWholeNote));
    track.appendEvent(TrackEvent::note(72, 8 * ticksPerWholeNote, songLength - 8 * ticksPerWholeNote));
    track.normalize();
    return track;
}

qint64 brightness(const QImage &image)
{
    qint64 sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += qGray(image.pixel(x, y));
    }
    return sum;
}

} // namespace

class TestTrackVisualization : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        settings_ = std::make_unique<Settings>(folder_->filePath(QStringLiteral("settings.cfg")));
        widget_ = std::make_unique<TrackVisualizationWidget>(*settings_);
        widget_->setTrack(song());
        widget_->setSpan({0, songLength});
        widget_->resize(320, 60);
        widget_->show();
        QVERIFY(QTest::qWaitForWindowExposed(widget_.get()));
        settle();
    }

    void cleanup()
    {
        widget_.reset();
        settings_.reset();
    }

    void seeks()
    {
        const QSignalSpy seeks(widget_.get(), &TrackVisualizationWidget::seek);
        for (const int x : {0, 32, 160, 319}) {
            QTest::mouseClick(widget_.get(), Qt::LeftButton, {}, {x, 30});
            QTest::mouseClick(widget_.get(), Qt::RightButton, {}, {x, 30});
        }
        widget_->setPosition(ticksPerWholeNote / 2);
        for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home})
            QTest::keyClick(widget_.get(), key);
        QVector<Ticks> ticks;
        for (const auto &seek : seeks)
            ticks.append(seek[0].toLongLong());
        QCOMPARE(ticks, QVector<Ticks>({0, songLength / 10, songLength / 2, songLength * 319 / 320, 0,
                                        ticksPerWholeNote * 3 / 2, 0}));
    }

    void nothingToSeekInAnEmptySong()
    {
        widget_->setTrack(Track());
        widget_->setSpan({0, 0});
        widget_->setPosition(1000);
        QCOMPARE(widget_->tickAt(100), Ticks(0));
        QVERIFY(!shown().isNull());
    }

    void theLineRepaintsOnlyItself()
    {
        PaintCounter paints(widget_.get());
        widget_->setPosition(songLength / 2);
        QTRY_COMPARE(paints.count(), 1);
        paints.clear();
        widget_->setPosition(songLength / 2 + songLength / 320); // a pixel further
        QTRY_COMPARE(paints.count(), 1);
        QVERIFY(paints.area().width() <= 5);
        QVERIFY(paints.area().contains(160, 30) && paints.area().contains(161, 30));
    }

    void nothingIsPaintedWhenNothingMoved()
    {
        widget_->setPosition(songLength / 2);
        settle();
        PaintCounter paints(widget_.get());
        widget_->setPosition(songLength / 2);
        widget_->setPosition(songLength / 2 + songLength / 320 / 100); // a hundredth of a pixel
        widget_->setSpan({0, songLength});
        widget_->setMuted(false);
        widget_->noteReleased(0);
        widget_->releaseAllNotes();
        settle();
        QCOMPARE(paints.count(), 0);
    }

    void thePictureIsMadeOnlyWhenItMust()
    {
        int expected = widget_->pictureCount();
        const auto madeAnew = [&](int times) {
            settle();
            expected += times;
            return QTest::qWaitFor([&] { return widget_->pictureCount() == expected; });
        };
        for (int i = 0; i < 50; ++i)
            widget_->setPosition(i * songLength / 50);
        widget_->notePressed(1);
        widget_->setMuted(true);
        QVERIFY(madeAnew(0));
        settings_->setValue(Settings::AbcOpenDir, QStringLiteral("/"));
        QVERIFY(madeAnew(0));
        settings_->setValue(Settings::NoteColor, QStringLiteral("#ffff8000"));
        QVERIFY(madeAnew(1));
        widget_->setSpan({0, 2 * songLength});
        widget_->setTrack(song());
        QVERIFY(madeAnew(1));
        widget_->resize(400, 60);
        QVERIFY(madeAnew(1));
        widget_->hide();
        widget_->setTrack(song());
        QVERIFY(madeAnew(0)); // nobody sees it
    }

    void longTracksAreDrawnMeanwhile()
    {
        Track track;
        for (int i = 0; i < 20'000; ++i)
            track.appendEvent(TrackEvent::note(quint32(40 + i % 40), i * songLength / 20'000, ticksPerQuarter));
        track.normalize();
        const int made = widget_->pictureCount();
        const auto before = shown();
        widget_->setTrack(track);
        QCOMPARE(shown(), before);
        widget_->setSpan({0, 2 * songLength}); // while the picture is drawn, which is one too many
        widget_->notePressed(0);
        QTRY_COMPARE(widget_->pictureCount(), made + 2);
        widget_->releaseAllNotes();
        QVERIFY(shown() != before);
    }

    void pressedNotesAreLit()
    {
        widget_->setPosition(songLength / 2);
        settle();
        const auto before = shown();
        PaintCounter paints(widget_.get());
        widget_->notePressed(1);
        QTRY_COMPARE(paints.count(), 1);
        QVERIFY(paints.area().width() <= 42); // an eighth of the width, and rounding
        QVERIFY(brightness(shown()) > brightness(before));
        widget_->notePressed(2);
        widget_->noteReleased(1);
        widget_->noteReleased(2);
        settle();
        QCOMPARE(shown(), before);
        widget_->notePressed(3);
        widget_->setTrack(song());
        QCOMPARE(shown(), before);
    }

    void ignoresNotesThatAreNotThere()
    {
        auto track = song();
        track.appendEvent(TrackEvent::metre(ticksPerWholeNote, 3, 4));
        track.normalize();
        widget_->setTrack(track);
        for (const int index : {-1, 3, 5, 1 << 30}) // 3 is the metre
            widget_->notePressed(index);
        QVERIFY(widget_->pressedNotes().isEmpty());
    }

    void looksAsItsStateAndTheSettingsSay()
    {
        const auto line = [this](Settings::Setting lines, bool isDrawn) {
            settings_->setValue(lines, isDrawn);
            return brightness(shown());
        };
        widget_->clearFocus(); // its ring is bright
        const auto bare = line(Settings::DrawOctaveLines, false);
        const auto octaves = line(Settings::DrawOctaveLines, true);
        const auto both = line(Settings::DrawMeasureLines, true);
        QVERIFY(bare < octaves && octaves < both);
        widget_->setMuted(true);
        QVERIFY(brightness(shown()) < both * 3 / 4);
        widget_->setMuted(false);
        QCOMPARE(line(Settings::DrawMeasureLines, false), octaves);
        QCOMPARE(line(Settings::DrawOctaveLines, false), bare);
    }

    // What the source has instead, behind it.
    void showsAShadow()
    {
        const auto bare = shown();
        Track other;
        other.appendEvent(TrackEvent::note(40, 0, songLength));
        other.normalize();
        widget_->setShadow(std::make_shared<const Track>(other));
        QVERIFY(widget_->hasShadow());
        QTRY_VERIFY(shown() != bare);
        widget_->setShadow(nullptr);
        QVERIFY(!widget_->hasShadow());
        QTRY_COMPARE(shown(), bare);
    }

    void seeksWhileItIsDragged()
    {
        const QSignalSpy seeks(widget_.get(), &TrackVisualizationWidget::seek);
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            QMouseEvent move(QEvent::MouseMove, {160, 9}, widget_->mapToGlobal(QPoint(160, 9)), Qt::NoButton, button,
                             {});
            QCoreApplication::sendEvent(widget_.get(), &move);
        }
        QCOMPARE(seeks.size(), 1);
        QCOMPARE(seeks[0][0].toLongLong(), songLength / 2);
    }

    // Also the shortest at the edge of a song that is far longer than the picture is wide.
    void everyNoteIsSeen()
    {
        Track track;
        const Ticks length = 100000 * ticksPerWholeNote;
        for (const quint32 pitch : {21U, 60U, 108U}) {
            track.appendEvent(TrackEvent::note(pitch, 0, 1));
            track.appendEvent(TrackEvent::note(pitch, length, 1));
        }
        track.normalize();
        const NoteLayout layout(track, {0, length}, QSize(200, 40), 1.0);
        const QRect picture(QPoint(), layout.size());
        for (const auto &event : track.events()) {
            QVERIFY(picture.contains(layout.noteRect(event)));
            QVERIFY(layout.noteRect(event).height() >= 3);
        }
        // Chords stay apart.
        const NoteLayout chord(song(), {0, songLength}, QSize(320, 64), 1.0);
        QVERIFY(!chord.noteRect(song().events()[0]).intersects(chord.noteRect(song().events()[1])));
    }

    void oddSongsAreDrawn_data()
    {
        const Rows<Track, Ticks> row("track", "length");
        Track smallMeasure;
        smallMeasure.setMetre(1, 1);
        row("a bar line on every tick of the longest song", smallMeasure, maxTicks);
        Track noMetre;
        noMetre.setMetre(0, 0);
        noMetre.appendEvent(TrackEvent::metre(10, 0, 0));
        row("no metre", noMetre, Ticks(1000));
        Track metres;
        for (Ticks i = 0; i < 20000; ++i)
            metres.appendEvent(TrackEvent::metre(i, 1U + quint32(i % 9), 4294967295U));
        row("a metre on every tick", metres, maxTicks);
        Track hugeNotes;
        hugeNotes.appendEvent(TrackEvent::note(4294967295U, maxTicks, maxTicks));
        hugeNotes.appendEvent(TrackEvent::note(0, 0, maxTicks));
        hugeNotes.normalize();
        row("notes beyond everything", hugeNotes, maxTicks);
        row("notes beyond a length of nothing", hugeNotes, Ticks(0));
    }

    void oddSongsAreDrawn()
    {
        QFETCH(Track, track);
        QFETCH(Ticks, length);
        const NoteLayout layout(track, {0, length}, QSize(2000, 100), 2.0);
        QVERIFY(!drawNotePicture(track, layout, {Qt::blue, true, true}).isNull());
    }

private:
    QImage shown() { return widget_->grab().toImage(); }
    void settle() { QTest::qWait(30); }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Settings> settings_;
    std::unique_ptr<TrackVisualizationWidget> widget_;
};

QTEST_MAIN(TestTrackVisualization)
#include "test_track_visualization.moc"
