#include "assets/Catalogue.h"
#include "song/preview/ImportPreview.h"
#include "support/MidiBytes.h"
#include "support/Rows.h"

using Keys = QVector<int>;

namespace {

const QString band = QStringLiteral("Bass 28-60, Drum Kit 35-60, Flute 60-96, Lute 40-85");

// A quarter note for each key.
QByteArray part(const Keys &keys, int program, int channel)
{
    auto events = MidiBytes::midiEvent(0, {0xC0 | channel, program});
    for (const int key : keys)
        events += MidiBytes::noteOn(0, key, 100, channel) + MidiBytes::noteOff(96, key, channel);
    return events + MidiBytes::endOfTrack();
}

QVector<SongSource> midiSource(const QByteArray &bytes)
{
    return {{SongSource::Kind::Bytes, QStringLiteral("song"), bytes}};
}

ProposalBasis basis(const QString &remembered = {})
{
    return {catalogue(band), ProgramInstruments(remembered), QStringLiteral("Bass")};
}

} // namespace

class TestImportPreview : public QObject
{
    Q_OBJECT

private slots:
    void proposes_data()
    {
        const Rows<int, int, Keys, QString, QString, int, int> row("program", "channel", "keys", "remembered",
                                                                   "instrument", "octaves", "lost");
        row("by its program", 73, 0, {72, 74}, "", "Flute", 0, 0);
        row("what was chosen before", 73, 0, {72, 74}, "73=Lute", "Lute", 0, 0);
        row("what was chosen before and is gone", 73, 0, {72, 74}, "73=Kazoo", "Flute", 0, 0);
        row("too low", 73, 0, {48, 50, 60}, "", "Flute", 1, 0);
        row("far too high", 32, 0, {100, 96}, "", "Bass", -4, 0);
        row("a note too low, of many", 73, 0, Keys(40, 72) + Keys{48}, "", "Flute", 0, 1);
        row("a range too wide", 73, 0, {36, 48, 60, 72, 84, 96, 108}, "", "Flute", 0, 3);
        row("percussion is not moved", 5, 9, {72, 74}, "128=Flute", "Flute", 0, 0);
        row("percussion out of range", 5, 9, {72, 74}, "5=Lute", "Drum Kit", 0, 2);
    }

    void proposes()
    {
        QFETCH(int, program);
        QFETCH(int, channel);
        QFETCH(Keys, keys);
        QFETCH(QString, remembered);
        ImportPreview preview(midiSource(MidiBytes::file({part(keys, program, channel)})), basis(remembered));
        preview.read({});
        QTRY_VERIFY(!preview.isBusy());
        QCOMPARE(preview.parts().size(), 1);
        const auto &shown = preview.parts().first();
        QTEST(shown.instrument(), "instrument");
        QTEST(shown.octaves(), "octaves");
        QTEST(shown.lostNotes(), "lost");
        QCOMPARE(shown.notes(), int(keys.size()));
        QCOMPARE(shown.channel(), std::optional(channel + 1));
        QCOMPARE(int(shown.range()->first), *std::min_element(keys.begin(), keys.end()) + 12 * shown.octaves());
        QCOMPARE(shown.characters(), int(Track(shown.track()).toAbc().size()));
    }

    void givesWhatWasChosen()
    {
        const auto bytes = MidiBytes::file({part({60, 100}, 73, 0), part({64}, 24, 1), part({67}, 24, 2)});
        ImportPreview preview(midiSource(bytes), basis());
        preview.read({});
        QTRY_VERIFY(!preview.isBusy());
        preview.setInstrument(0, QStringLiteral("Lute"));
        preview.setInstrument(1, QStringLiteral("Bass"));
        preview.take(1, false);
        preview.setOctaves(0, 1);
        ReadingOptions options;
        options.midi.mergeChannels = false;
        preview.read(options); // before all of it is settled
        QTRY_VERIFY(!preview.isBusy());
        preview.setOctaves(2, -1);
        QCOMPARE(preview.octaves(2), -1); // shown at once
        QTRY_VERIFY(!preview.isBusy());
        const auto song = preview.song();
        QCOMPARE(song.tracks.size(), 2);
        QCOMPARE(song.parts.size(), 2);
        QCOMPARE(song.tracks[0].pitchCounts(), (QMap<quint32, int>{{72, 1}})); // the other one left the range
        QCOMPARE(preview.parts()[0].lostNotes(), 1);
        QCOMPARE(song.tracks[1].pitchCounts(), (QMap<quint32, int>{{55, 1}}));
        QCOMPARE(preview.instruments(), (QStringList{QStringLiteral("Lute"), QStringLiteral("Lute")}));
        QCOMPARE(preview.remembered().text(), QStringLiteral("73=Lute"));
        preview.setOctaves(2, 4);
        QTRY_VERIFY(!preview.isBusy());
        QVERIFY(!preview.parts()[2].range()); // nothing is left
    }

    void countsNotesAtOnce()
    {
        QByteArray events;
        for (const int key : {60, 64, 67})
            events += MidiBytes::noteOn(48, key);
        events += MidiBytes::noteOff(10, 60) + MidiBytes::noteOn(0, 72) + MidiBytes::noteOff(96, 64) +
                  MidiBytes::noteOff(0, 67) + MidiBytes::noteOff(96, 72) + MidiBytes::endOfTrack();
        ReadingOptions options;
        options.midi.autoRealign = false;
        ImportPreview preview(midiSource(MidiBytes::file({events})), basis());
        preview.read(options);
        QTRY_COMPARE(preview.parts().size(), 1);
        QCOMPARE(preview.parts()[0].mostAtOnce(), 3);
    }

    void tellsWhyThereIsNothing()
    {
        ImportPreview preview(midiSource("MThd"), basis());
        preview.read({});
        QTRY_VERIFY(!preview.isBusy());
        QCOMPARE(preview.problem(), QStringLiteral("Invalid MIDI file."));
    }
};

QTEST_GUILESS_MAIN(TestImportPreview)
#include "test_import_preview.moc"
