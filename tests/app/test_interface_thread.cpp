#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/MidiBytes.h"

#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QThreadPool>
#include <QToolButton>

namespace {

// A part with so many notes, by twos, over four octaves; 8 bytes a note.
QByteArray part(int notes, int channel)
{
    QByteArray events;
    for (int note = 0; note < notes; ++note) {
        const int key = 40 + (note * 7 + channel) % 48;
        events += MidiBytes::noteOn(0, key, 100, channel) + MidiBytes::noteOff(24 + note % 3 * 12, key, channel);
    }
    return MidiBytes::chunk(events + MidiBytes::endOfTrack());
}

QByteArray song(int parts, int notes)
{
    auto bytes = "MThd" + MidiBytes::bigEndian(6, 4) + MidiBytes::bigEndian(1, 2) +
                 MidiBytes::bigEndian(quint32(parts), 2) + MidiBytes::bigEndian(96, 2);
    for (int number = 0; number < parts; ++number)
        bytes += part(notes, number % 16);
    return bytes;
}

} // namespace

// No event may keep the interface thread for longer than WatchedApplication::limitMs.
class TestInterfaceThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void importsFiveMegabytes();
    void cancelsAnImport();
    void worksOnSixtyFourLongTracks();

private:
    void import(const QByteArray &bytes);

    std::unique_ptr<WindowFixture> fixture_;
};

void TestInterfaceThread::init()
{
    fixture_ = std::make_unique<WindowFixture>(demoGame);
    fixture_->settings().setValue(Settings::MidiMergeChannels, false);
    QVERIFY(fixture_->waitUntilLoaded());
}

void TestInterfaceThread::cleanup()
{
    const auto longest = WatchedApplication::takeLongestMs();
    qInfo("the longest event took %.1f ms", longest);
    QVERIFY(longest < WatchedApplication::limitMs);
    fixture_.reset();
}

void TestInterfaceThread::import(const QByteArray &bytes)
{
    fixture_->dialogs().files = QStringList(fixture_->write("song.mid", bytes));
    fixture_->trigger("actionImport_MIDI");
    fixture_->dialogs().files.clear();
}

void TestInterfaceThread::importsFiveMegabytes()
{
    const auto bytes = song(16, 41'000);
    QVERIFY(bytes.size() > 5'000'000);
    import(bytes);
    auto *const busy = fixture_->child<QWidget>("busyIndicator");
    QTRY_VERIFY(busy->isVisible() || !fixture_->tracks().isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(fixture_->tracks().song().size(), 16, 120'000);
    QVERIFY(!busy->isVisible());
    QCoreApplication::processEvents();
    fixture_->trigger("actionUndo");
    fixture_->trigger("actionRedo");
    QCoreApplication::processEvents();
}

void TestInterfaceThread::cancelsAnImport()
{
    import(song(16, 41'000));
    fixture_->child<QWidget>("busyIndicator")->findChild<QToolButton *>()->click();
    QVERIFY(!fixture_->window().isLoading());
    QVERIFY(QThreadPool::globalInstance()->waitForDone(500)); // it is not read to its end
    QCoreApplication::processEvents();
    QVERIFY(fixture_->tracks().isEmpty());
    import(song(1, 10)); // the next is not in its way
    QTRY_COMPARE_WITH_TIMEOUT(fixture_->tracks().song().size(), 1, 120'000);
}

void TestInterfaceThread::worksOnSixtyFourLongTracks()
{
    import(song(64, 20'000));
    QTRY_COMPARE_WITH_TIMEOUT(fixture_->tracks().song().size(), 64, 300'000);
    QTRY_VERIFY(fixture_->row(63));
    qInfo("longest so far: %.1f ms", WatchedApplication::takeLongestMs());
    fixture_->trigger("actionPlay");
    auto *const bar = fixture_->child<QScrollArea>("scrTrackArea")->verticalScrollBar();
    for (int step = 0; step < 20; ++step) {
        bar->setValue(bar->maximum() * step / 20);
        QTest::qWait(50);
    }
    fixture_->row(0)->onTransposeUp();
    fixture_->trigger("actionSelect_All");
    fixture_->trigger("actionMute_Selected");
    fixture_->trigger("actionClear_Tracks");
    QCoreApplication::processEvents();
    fixture_->trigger("actionUndo");
    QTest::qWait(200);
    fixture_->trigger("actionStop");
    for (int number = 1; number <= 65; ++number)
        fixture_->dialogs().files.append(fixture_->path("%1.abc").arg(number));
    fixture_->trigger("actionMerge_Selected");
    QTRY_COMPARE(fixture_->tracks().song().size(), 65);
    fixture_->trigger("actionSave_All");
    QVERIFY(fixture_->tracks().unsavedIds().isEmpty());
    fixture_->trigger("actionDuplicate_Selected");
    QCoreApplication::processEvents();
}

int main(int argc, char *argv[])
{
    WatchedApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    TestInterfaceThread test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_interface_thread.moc"
