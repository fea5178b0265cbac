#include "base/Interrupted.h"
#include "core/AbcParser.h"
#include "import/MmlImport.h"
#include "import/midi/MidiImport.h"
#include "support/MidiBytes.h"
#include "support/Rows.h"
#include "support/Thrown.h"

#include <functional>
#include <future>

namespace {

QByteArray longMidi()
{
    QByteArray events;
    for (int note = 0; note < 500'000; ++note)
        events += MidiBytes::noteOn(0, 60 + note % 12) + MidiBytes::noteOff(24, 60 + note % 12);
    return MidiBytes::file({events + MidiBytes::endOfTrack()});
}

} // namespace

using Reading = std::function<void(const std::stop_token &)>;
Q_DECLARE_METATYPE(Reading)

// Every reader of songs ends in the middle when it is told to.
class TestStopping : public QObject
{
    Q_OBJECT

private slots:
    void endsEarly_data()
    {
        const Rows<Reading> row("read");
        row("MIDI", [midi = longMidi()](const auto &stop) { importMidi(midi, {}, stop); });
        row("MML", [mml = QStringLiteral("cdefgab").repeated(400'000)](const auto &stop) { importMml(mml, {}, stop); });
        row("ABC", [abc = QStringLiteral("K:C\n") + QStringLiteral("cdefgab\n").repeated(400'000)](const auto &stop) {
            parseAbc(abc, stop);
        });
    }

    void endsEarly()
    {
        QFETCH(Reading, read);
        bool isStopped = false;
        for (int attempt = 0; attempt < 20 && !isStopped; ++attempt) { // a busy machine may read it all before
            std::stop_source stop;
            auto reading = std::async(std::launch::async, [&] { read(stop.get_token()); });
            reading.wait_for(std::chrono::milliseconds(5));
            stop.request_stop();
            isStopped = throws<Interrupted>([&] { reading.get(); });
        }
        QVERIFY(isStopped);
    }
};

QTEST_APPLESS_MAIN(TestStopping)
#include "test_stopping.moc"
