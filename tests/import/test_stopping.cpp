#include "base/Interrupted.h"
#include "core/AbcParser.h"
#include "import/MidiImport.h"
#include "import/MmlImport.h"
#include "support/MidiBytes.h"
#include "support/Thrown.h"

#include <QElapsedTimer>
#include <QtTest>

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
        QTest::addColumn<Reading>("read");
        QTest::newRow("MIDI") << Reading([midi = longMidi()](const auto &stop) { importMidi(midi, {}, stop); });
        QTest::newRow("MML") << Reading(
            [mml = QStringLiteral("cdefgab").repeated(400'000)](const auto &stop) { importMml(mml, {}, stop); });
        QTest::newRow("ABC") << Reading([abc = QStringLiteral("K:C\n") + QStringLiteral("cdefgab\n").repeated(400'000)](
                                            const auto &stop) { parseAbc(abc, stop); });
    }

    void endsEarly()
    {
        QFETCH(Reading, read);
        QElapsedTimer clock;
        clock.start();
        read({});
        const auto whole = clock.nsecsElapsed();

        std::stop_source stop;
        clock.restart();
        auto reading = std::async(std::launch::async, [&] { read(stop.get_token()); });
        reading.wait_for(std::chrono::nanoseconds(whole / 10));
        stop.request_stop();
        QVERIFY(throws<Interrupted>([&] { reading.get(); }));
        QVERIFY(clock.nsecsElapsed() < whole);
    }
};

QTEST_APPLESS_MAIN(TestStopping)
#include "test_stopping.moc"
