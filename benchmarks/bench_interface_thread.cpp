// How long one event keeps the interface thread while the window works on long songs, in milliseconds without the time
// in which the system ran something else; see WatchedApplication.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/Figures.h"
#include "support/MidiBytes.h"
#include "support/WatchedApplication.h"
#include "ui/ValueDial.h"

#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <vector>

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

// The longest event of several pieces of work, each of which is printed too.
class Longest
{
public:
    void note(const char *work)
    {
        const auto ms = WatchedApplication::takeLongestMs();
        std::printf("  %-28s %5.1f ms\n", work, ms);
        ms_ = std::max(ms_, ms);
    }

    bool report(const std::string &name) const
    {
        return ::report({name + ": longest event in ms", ms_, limitMs, {}, Better::Less});
    }

private:
    static constexpr double limitMs = 50;
    double ms_ = 0;
};

// A window with a song of so many tracks and notes.
class LongSong
{
public:
    LongSong(int parts, int notes) : parts_(parts), notes_(notes)
    {
        fixture_.settings().setValue(Settings::MidiMergeChannels, false);
        WatchedApplication::require(fixture_.waitUntilLoaded());
        settle();
        WatchedApplication::takeLongestMs(); // a window's first show in a process loads fonts and plug-ins
    }

    bool work()
    {
        std::printf("%d tracks of %d notes\n", parts_, notes_);
        import();
        edit();
        changeTheList();
        turnDial();
        mergeAndSave();
        saveAndOpenTheSong();
        const auto name = std::to_string(parts_) + " tracks of " + std::to_string(notes_) + " notes";
        const bool isGood = longest_.report(name);
        return report({name + ": a dial step in ms", dialStepMs_, 5, {}, Better::Less}) && isGood;
    }

private:
    void trigger(const char *action) const
    {
        const WatchedApplication::Watch watch;
        fixture_.trigger(action);
    }

    // Until everything that follows is done and painted.
    void settle() { QTest::qWait(restMs); }

    void perform(const char *work, const char *action)
    {
        trigger(action);
        settle();
        longest_.note(work);
    }

    void import()
    {
        const auto file = fixture_.write("song.mid", song(parts_, notes_));
        fixture_.dialogs().files = QStringList(file);
        trigger("actionImport_MIDI");
        waitForTracks(parts_);
        WatchedApplication::require(QTest::qWaitFor([&] { return fixture_.row(parts_ - 1) != nullptr; }));
        settle();
        longest_.note("import");
    }

    void waitForTracks(int count)
    {
        WatchedApplication::require(QTest::qWaitFor([&] { return fixture_.tracks().song().size() == count; }, 300'000));
        settle();
    }

    void edit()
    {
        perform("undo import", "actionUndo");
        perform("redo import", "actionRedo");
        trigger("actionPlay");
        scroll();
        longest_.note("play and scroll");
        {
            const WatchedApplication::Watch watch;
            fixture_.row(0)->onTransposeUp();
        }
        if (!QTest::qWaitFor([this] { return fixture_.tracks().history().undoText().startsWith(u'T'); }))
            qFatal("the track was not transposed");
        settle();
        longest_.note("transpose");
    }

    void changeTheList()
    {
        perform("select all", "actionSelect_All");
        perform("mute", "actionMute_Selected");
        perform("remove all", "actionClear_Tracks");
        perform("undo remove all", "actionUndo");
        perform("undo mute", "actionUndo");
        perform("stop", "actionStop");
        perform("select all again", "actionSelect_All");
        perform("duplicate", "actionDuplicate_Selected");
        perform("undo duplicate", "actionUndo");
        perform("redo duplicate", "actionRedo");
        perform("undo duplicate again", "actionUndo");
    }

    void scroll()
    {
        auto *const bar = fixture_.child<QScrollArea>("scrTrackArea")->verticalScrollBar();
        for (int step = 0; step < 20; ++step) {
            bar->setValue(bar->maximum() * step / 20);
            QTest::qWait(50);
        }
    }

    // The median of many, each with all that follows from it.
    void turnDial()
    {
        fixture_.child<QScrollArea>("scrTrackArea")->verticalScrollBar()->setValue(0);
        auto *const dial = fixture_.inRow<ValueDial>(0, "dlVolume");
        std::vector<double> steps;
        for (int step = 0; step < 51; ++step) {
            QElapsedTimer clock;
            clock.start();
            dial->setValue(20 + step);
            QCoreApplication::processEvents();
            steps.push_back(double(clock.nsecsElapsed()) / 1e6);
        }
        std::nth_element(steps.begin(), steps.begin() + 25, steps.end());
        dialStepMs_ = steps[25];
        settle();
        longest_.note("dial");
    }

    void mergeAndSave()
    {
        for (int number = 1; number <= parts_ + 1; ++number)
            fixture_.dialogs().files.append(fixture_.path("%1.abc").arg(number));
        trigger("actionMerge_Selected");
        waitForTracks(parts_ + 1);
        longest_.note("merge");
        trigger("actionSave_All");
        WatchedApplication::require(QTest::qWaitFor([&] { return fixture_.tracks().unsavedIds().isEmpty(); }, 300'000));
        settle();
        longest_.note("save all");
    }

    void saveAndOpenTheSong()
    {
        fixture_.dialogs().files = QStringList(fixture_.path("song.kvsong"));
        trigger("actionSave_Song");
        WatchedApplication::require(QTest::qWaitFor([&] { return !fixture_.window().isSaving(); }, 300'000));
        settle();
        longest_.note("save song");
        trigger("actionNew_Song");
        waitForTracks(0);
        longest_.note("new song");
        fixture_.window().openFiles({fixture_.path("song.kvsong")});
        waitForTracks(parts_ + 1);
        longest_.note("open song");
    }

    static constexpr int restMs = 300;
    WindowFixture fixture_{demoGame};
    int parts_;
    int notes_;
    Longest longest_;
    double dialStepMs_ = 0;
};

} // namespace

int main(int argc, char *argv[])
{
    WatchedApplication application(argc, argv);
    bool isGood = LongSong(16, 41'000).work(); // 5 MB
    isGood &= LongSong(64, 20'000).work();
    isGood &= LongSong(3, 400'000).work();
    return isGood ? 0 : 1;
}
