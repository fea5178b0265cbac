// How long one event keeps the interface thread while the window works on long songs, in milliseconds without the time
// in which the system ran something else; see WatchedApplication. QT_QPA_PLATFORM chooses the platform, offscreen when
// there is none.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/Figures.h"
#include "support/MidiBytes.h"
#include "support/WatchedApplication.h"

#include <QScrollArea>
#include <QScrollBar>

#include <stdexcept>

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

class LongSongs
{
public:
    LongSongs()
    {
        fixture_.settings().setValue(Settings::MidiMergeChannels, false);
        require(fixture_.waitUntilLoaded());
        QCoreApplication::processEvents();
        WatchedApplication::takeLongestMs(); // a window's first show in a process loads fonts and plug-ins
    }

    void importFiveMegabytes()
    {
        import(16, 41'000);
        QCoreApplication::processEvents();
        trigger("actionUndo");
        trigger("actionRedo");
        QCoreApplication::processEvents();
    }

    void importSixtyFourTracks() { import(64, 20'000); }

    void workOnSixtyFourTracks()
    {
        trigger("actionPlay");
        scroll();
        fixture_.row(0)->onTransposeUp();
        trigger("actionSelect_All");
        trigger("actionMute_Selected");
        trigger("actionClear_Tracks");
        QCoreApplication::processEvents();
        trigger("actionUndo");
        QTest::qWait(200);
        trigger("actionStop");
        mergeAndSave();
        saveAndOpenTheSong();
        trigger("actionSelect_All");
        trigger("actionDuplicate_Selected");
        QCoreApplication::processEvents();
    }

private:
    static void require(bool isDone)
    {
        if (!isDone)
            throw std::runtime_error("the window did not do what it was asked for");
    }

    void trigger(const char *action) const
    {
        const WatchedApplication::Watch watch;
        fixture_.trigger(action);
    }

    void import(int parts, int notes)
    {
        const auto file = fixture_.write("song.mid", song(parts, notes));
        fixture_.dialogs().files = QStringList(file);
        trigger("actionImport_MIDI");
        waitForTracks(parts);
        require(QTest::qWaitFor([&] { return fixture_.row(parts - 1) != nullptr; }));
    }

    void waitForTracks(int count)
    {
        require(QTest::qWaitFor([&] { return fixture_.tracks().song().size() == count; }, 300'000));
    }

    void scroll()
    {
        auto *const bar = fixture_.child<QScrollArea>("scrTrackArea")->verticalScrollBar();
        for (int step = 0; step < 20; ++step) {
            bar->setValue(bar->maximum() * step / 20);
            QTest::qWait(50);
        }
    }

    void mergeAndSave()
    {
        for (int number = 1; number <= 65; ++number)
            fixture_.dialogs().files.append(fixture_.path("%1.abc").arg(number));
        trigger("actionMerge_Selected");
        waitForTracks(65);
        trigger("actionSave_All");
        require(QTest::qWaitFor([&] { return fixture_.tracks().unsavedIds().isEmpty(); }, 300'000));
    }

    void saveAndOpenTheSong()
    {
        fixture_.dialogs().files = QStringList(fixture_.path("song.kvsong"));
        trigger("actionSave_Song");
        require(QTest::qWaitFor([&] { return !fixture_.window().isSaving(); }, 300'000));
        trigger("actionNew_Song");
        waitForTracks(0);
        fixture_.window().openFiles({fixture_.path("song.kvsong")});
        waitForTracks(65);
        QCoreApplication::processEvents();
    }

    WindowFixture fixture_{demoGame};
};

bool reportLongest(const char *name)
{
    constexpr double limitMs = 100;
    return report({name, WatchedApplication::takeLongestMs(), limitMs, {}, Better::Less});
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    WatchedApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    LongSongs five;
    five.importFiveMegabytes();
    bool isGood = reportLongest("Importing 5 MB: longest event in ms");
    LongSongs sixtyFour;
    sixtyFour.importSixtyFourTracks();
    isGood &= reportLongest("Importing 64 tracks: longest event in ms");
    sixtyFour.workOnSixtyFourTracks();
    isGood &= reportLongest("Working on 64 tracks: longest event in ms");
    return isGood ? 0 : 1;
}
