// How soon the preview of an import of 5 MB shows what a changed setting changes, and how long one event keeps the
// interface thread meanwhile.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/Figures.h"
#include "support/MidiBytes.h"
#include "support/WatchedApplication.h"
#include "ui/importing/ImportPreviewDialog.h"
#include "ui/importing/PartsTable.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QTableView>

#include <algorithm>

namespace {

// 16 parts with 41,000 notes each, by twos, over four octaves; 8 bytes a note.
QByteArray fiveMegabytes()
{
    constexpr int channels = 16;
    constexpr int notes = 41'000;
    auto bytes = "MThd" + MidiBytes::bigEndian(6, 4) + MidiBytes::bigEndian(1, 2) + MidiBytes::bigEndian(channels, 2) +
                 MidiBytes::bigEndian(96, 2);
    for (int channel = 0; channel < channels; ++channel) {
        auto events = MidiBytes::midiEvent(0, {0xC0 | channel, channel * 8});
        for (int note = 0; note < notes; ++note) {
            const int key = 40 + (note * 7 + channel) % 48;
            events += MidiBytes::noteOn(0, key, 100, channel) + MidiBytes::noteOff(24 + note % 3 * 12, key, channel);
        }
        bytes += MidiBytes::chunk(events + MidiBytes::endOfTrack());
    }
    return bytes;
}

// What a person does in the dialog, one event after another: each when what the one before changed is shown. Then all
// is imported.
class Person : public QObject
{
public:
    double longestMs = 0;    // until a change was shown
    double quantisingMs = 0; // until the notes were quantised

    void use(QDialog &dialog)
    {
        const auto &preview = static_cast<ImportPreviewDialog &>(dialog).preview();
        connect(
            &preview, &ImportPreview::settled, this, [&] { act(dialog); }, Qt::QueuedConnection);
    }

private:
    void act(QDialog &dialog)
    {
        const auto ms = double(sinceChange_.nsecsElapsed()) / 1e6;
        const int change = changes_++; // that comes now
        const int last = int(boxes_.size()) + 1;
        if (change > last)
            quantisingMs = ms;
        else if (change > 0)
            longestMs = std::max(longestMs, ms);
        sinceChange_.start();
        if (change < boxes_.size())
            click(dialog, boxes_[change]);
        else if (change < last)
            moveAPart(dialog);
        else if (change == last)
            click(dialog, QStringLiteral("chkCleanQuantise"));
        else
            dialog.accept();
    }

    static void click(const QDialog &dialog, const QString &name) { dialog.findChild<QCheckBox *>(name)->click(); }
    static void moveAPart(const QDialog &dialog)
    {
        auto *const parts = dialog.findChild<QTableView *>()->model();
        parts->setData(parts->index(0, PartsTable::Octaves), 1);
    }

    const QStringList boxes_{QStringLiteral("chkEndRestruck"), QStringLiteral("chkSustainPedal"),
                             QStringLiteral("chkRealign"), QStringLiteral("chkSplitPrograms"),
                             QStringLiteral("chkPitchBend")};
    int changes_ = 0;
    QElapsedTimer sinceChange_;
};

} // namespace

int main(int argc, char *argv[])
{
    WatchedApplication application(argc, argv);
    WindowFixture fixture(demoGame);
    fixture.settings().setValue(Settings::ChooseParts, true);
    WatchedApplication::require(fixture.waitUntilLoaded());
    QCoreApplication::processEvents();

    Person person;
    fixture.dialogs().inDialog = [&](QDialog &dialog) { person.use(dialog); };
    fixture.dialogs().files = QStringList(fixture.write("song.mid", fiveMegabytes()));
    WatchedApplication::takeLongestMs();
    fixture.trigger("actionImport_MIDI");
    WatchedApplication::require(QTest::qWaitFor([&] { return person.quantisingMs > 0; }, 300'000));
    const auto longestMs = WatchedApplication::takeLongestMs();
    WatchedApplication::require(QTest::qWaitFor([&] { return fixture.tracks().song().size() == 16; }, 300'000));

    bool isGood = report({"Preview of 5 MB: ms until a change is shown", person.longestMs, 100, {}, Better::Less});
    isGood &= report({"Preview of 5 MB: ms until it is quantised", person.quantisingMs, 2000, {}, Better::Less});
    isGood &= report({"Preview of 5 MB: longest event in ms", longestMs, 50, {}, Better::Less});
    return isGood ? 0 : 1;
}
