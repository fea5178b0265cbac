#include "core/AbcParser.h"
#include "import/WrittenTempo.h"
#include "import/midi/MidiImport.h"
#include "support/DescribeTrack.h"
#include "support/MidiBytes.h"
#include "support/Rows.h"
#include "support/Thrown.h"

#include <QtTest>

#include <random>

using namespace MidiBytes;

namespace {

MidiImportOptions options(bool mergeChannels, bool autoRealign = false)
{
    MidiImportOptions result;
    result.mergeChannels = mergeChannels;
    result.autoRealign = autoRealign;
    return result;
}

QString describe(const ImportResult &result)
{
    QStringList tracks;
    for (const auto &track : result.tracks)
        tracks.append(::describe(track));
    return tracks.join(QStringLiteral(" | "));
}

// What was left out: notes that are too soft, restruck, out of range or unterminated, and texts that are not decoded.
QString leftOut(const ImportReport &report)
{
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(report.belowVelocityGate)
        .arg(report.restruck)
        .arg(report.outOfRange)
        .arg(report.unterminated)
        .arg(report.undecodedTexts);
}

QByteArray bend(int delta, int value)
{
    return midiEvent(delta, {0xE0, value & 0x7F, value >> 7});
}

} // namespace

Q_DECLARE_METATYPE(MidiImportOptions)

class TestMidiImport : public QObject
{
    Q_OBJECT

private slots:
    void notes_data()
    {
        const Rows<QByteArray, QString> row("events", "expected"); // notes, and what was left out if anything
        const auto end = endOfTrack();
        row("note", noteOn(0, 60) + noteOff(96, 60) + end, "60@0+10080");
        row("equals in the order of their ends", noteOn(0, 60) + noteOn(0, 64) + noteOff(96, 64) + noteOff(0, 60) + end,
            "64@0+10080 60@0+10080");
        row("velocity 0 ends", noteOn(0, 60) + noteOn(96, 60, 0) + end, "60@0+10080");
        row("too soft to begin or end", noteOn(0, 60) + noteOn(48, 60, 5) + noteOff(48, 60) + end,
            "60@0+10080 left 1 0 0 0 0");
        row("struck again", noteOn(0, 60) + noteOn(48, 60) + noteOff(48, 60) + end, "60@5040+5040 left 0 1 0 0 0");
        row("out of range",
            noteOn(0, 20) + noteOn(0, 109) + noteOff(96, 20) + noteOff(0, 109) + noteOn(0, 21) + noteOff(96, 21) + end,
            "21@10080+10080 left 0 0 2 0 0");
        row("closed at the end of the track, whatever the pitch", noteOn(0, 20) + noteOn(0, 60) + endOfTrack(96),
            "20@0+10080 60@0+10080 left 0 0 0 2 0");
        row("lost without an end of track", noteOn(0, 60) + noteOff(96, 60) + noteOn(0, 62),
            "60@0+10080 left 0 0 0 1 0");
        row("changes that there are not",
            tempo(1, 0) + midiEvent(0, {0xFF, 0x58, 4, 3, 32, 24, 8}) + midiEvent(0, {0xFF, 0x59, 2, 8, 0}) +
                midiEvent(0, {0xFF, 0x59, 2, 0, 2}) + noteOn(0, 60) + noteOff(96, 60) + end,
            "60@105+10080");
        row("running status goes on behind a meta event",
            noteOn(0, 60) + tempo(96, 500000) + bytes({0, 0x51, 3, 6, 0x1A, 0x80}) + noteOff(0, 60) + end,
            "60@0+10080 Q1512000@10080");
        row("a bend cuts the note", noteOn(0, 60) + bend(48, 12288) + bend(10, 12300) + noteOff(38, 60) + end,
            "60@0+5040 61@5040+5040");
        row("bend range",
            midiEvent(0, {0xB0, 101, 0}) + midiEvent(0, {0xB0, 100, 0}) + midiEvent(0, {0xB0, 6, 12}) + noteOn(0, 60) +
                bend(0, 0) + noteOff(96, 60) + end,
            "48@0+10080");
        row("a note bent below 0",
            midiEvent(0, {0xB0, 101, 0}) + midiEvent(0, {0xB0, 100, 0}) + midiEvent(0, {0xB0, 6, 127}) + noteOn(0, 0) +
                bend(0, 0) + noteOn(0, 127) + bend(0, 8192) + noteOff(96, 127) + bend(0, 0) + endOfTrack(96),
            " left 0 0 6 0 0");
        row("skipped events",
            midiEvent(0, {0xF0, 2, 1, 2}) + midiEvent(0, {0xA0, 1, 2}) + midiEvent(0, {0xD0, 1}) +
                midiEvent(0, {0xFF, 0x01, 1, 65}) + midiEvent(0, {0xFF, 0x58, 2, 3, 2}) + noteOn(0, 60) +
                noteOff(96, 60) + end,
            "60@0+10080");
    }

    void notes()
    {
        QFETCH(QByteArray, events);
        const auto result = importMidi(file({events}), options(true));
        const auto left = leftOut(result.report);
        QTEST(describe(result) + (left == u"0 0 0 0 0" ? QString() : QStringLiteral(" left ") + left), "expected");
    }

    // The ways of reading that files need which were not written for the game.
    void choices_data()
    {
        const Rows<MidiImportOptions, QByteArray, QString> row("options", "events", "expected");
        const auto with = [](auto... members) {
            auto chosen = options(true);
            ((chosen.*members = true), ...);
            return chosen;
        };
        using Options = MidiImportOptions;
        const auto end = endOfTrack(96);
        const auto on = noteOn(0, 60);
        const auto restrike = with(&Options::endRestruck);
        row("struck again, released twice", restrike, on + noteOn(48, 60) + noteOff(48, 60) + noteOff(48, 60) + end,
            "60@0+5040 60@5040+10080");
        row("struck again before it is released", restrike,
            on + noteOn(48, 60) + noteOff(0, 60) + noteOff(48, 60) + end, "60@0+5040 60@5040+5040");
        row("struck again, released once", restrike,
            on + noteOn(48, 60) + noteOff(48, 60) + noteOn(48, 60) + noteOff(48, 60) + end,
            "60@0+5040 60@5040+5040 60@15120+5040");
        row("struck again, released once at the end", restrike, on + noteOn(48, 60) + noteOff(48, 60) + end,
            "60@0+5040 60@5040+5040");
        row("struck again, never released", restrike, on + noteOn(48, 60) + end,
            "60@0+5040 60@5040+10080 left 0 0 0 1 0");
        row("struck twice at once", restrike, on + on + noteOff(96, 60) + noteOff(0, 60) + end,
            "60@0+10080 left 0 1 0 0 0");
        row("struck again, then bent", restrike,
            on + noteOn(24, 60) + noteOff(24, 60) + bend(48, 12288) + noteOff(48, 60) + end, "60@0+2520 60@2520+2520");

        const auto pedalled = with(&Options::sustainPedal);
        const auto down = midiEvent(0, {0xB0, 64, 127});
        row("pedal", pedalled,
            down + on + noteOff(48, 60) + midiEvent(48, {0xB0, 64, 64}) + midiEvent(48, {0xB0, 64, 63}) + end,
            "60@0+15120");
        row("pedal, reset", pedalled, down + on + noteOff(48, 60) + midiEvent(48, {0xB0, 121, 0}) + end, "60@0+10080");
        row("pedal, never lifted", pedalled, down + on + noteOff(48, 60) + end, "60@0+15120");
        row("pedal, struck again", pedalled, down + on + noteOff(24, 60) + noteOn(24, 60) + noteOff(24, 60) + end,
            "60@0+5040 60@5040+12600");
        row("pedal, bent", pedalled, down + on + noteOff(24, 60) + bend(24, 12288) + end, "60@0+5040 61@5040+10080");
        row("pedal, by the rules", options(true), down + on + noteOff(48, 60) + end, "60@0+5040");

        const auto programs = midiEvent(0, {0xC0, 56}) + on + noteOff(96, 60) + midiEvent(0, {0xC0, 40}) + on +
                              noteOff(96, 60) + midiEvent(0, {0xC0, 56}) + on + tempo(0, 400000) + noteOff(96, 60);
        row("programs", with(&Options::splitPrograms), programs + endOfTrack(),
            "60@0+10080 Q1512000@20160 60@20160+10080 | 60@10080+10080 Q1512000@20160");
        row("programs of drums", with(&Options::splitPrograms),
            midiEvent(0, {0xC9, 1}) + noteOn(0, 36, 100, 9) + noteOff(96, 36, 9) + midiEvent(0, {0xC9, 2}) +
                noteOn(0, 36, 100, 9) + noteOff(96, 36, 9) + end,
            "36@0+10080 36@10080+10080");
        row("no notes with a program", with(&Options::splitPrograms),
            midiEvent(0, {0xC0, 40}) + midiEvent(1, {0xC0, 56}) + on + noteOff(96, 60) + end, "60@105+10080");
        row("by octaves", with(&Options::foldOctaves),
            noteOn(0, 8) + noteOff(96, 8) + noteOn(0, 109) + noteOff(96, 109) + noteOn(0, 127) + end,
            "32@0+10080 97@10080+10080 103@20160+10080 left 0 0 0 1 0");
        auto soft = options(true);
        soft.velocityGate = 3;
        row("gate", soft, noteOn(0, 60, 2) + noteOn(0, 62, 3) + noteOff(96, 62) + end, "62@0+10080 left 1 0 0 0 0");
        row("exact tempo", with(&Options::exactTempo),
            on + noteOff(96, 60) + tempo(0, 461538) + tempo(96, 700000) + end,
            "60@0+10080 Q1310400@10080 Q864000@20160");
    }

    void choices()
    {
        QFETCH(MidiImportOptions, options);
        QFETCH(QByteArray, events);
        const auto result = importMidi(file({events}), options);
        const auto left = leftOut(result.report);
        QTEST(describe(result) + (left == u"0 0 0 0 0" ? QString() : QStringLiteral(" left ") + left), "expected");
    }

    void namesOfTracks()
    {
        const auto name = [](const char *text) { return midiEvent(0, {0xFF, 0x03, int(strlen(text))}).append(text); };
        const auto note = [](int channel) { return noteOn(0, 60, 100, channel) + noteOff(96, 60, channel); };
        auto chosen = options(true);
        chosen.trackNames = chosen.readAllChunks = true;
        const auto bytes = file({name("Song") + endOfTrack(), name(" Right\n") + note(0) + endOfTrack(),
                                 name("Left") + name("Other") + note(0) + endOfTrack(),
                                 name("Band") + note(1) + note(9) + endOfTrack(), note(2) + endOfTrack()})
                               .replace(11, 1, "\1")
                               .append("XFIH" + bigEndian(3, 4) + "abc" + chunk(name("Late") + note(3) + endOfTrack()));
        QStringList titles;
        for (const auto &track : importMidi(bytes, chosen).tracks)
            titles.append(track.title());
        QCOMPARE(titles.join(u'|'),
                 QStringLiteral("Right, Left|Band - Acoustic Grand Piano|Track 3 - Acoustic Grand Piano|Late|"
                                "Band - Percussion"));
    }

    void chunksLeaveNothingBehind_data()
    {
        const Rows<QByteArray, QByteArray, QString> row("first", "second", "expected");
        const auto second = noteOn(0, 60) + noteOff(48, 60) + endOfTrack(48);
        row("pedal", midiEvent(0, {0xB0, 64, 127}), second, "60@0+5040");
        row("time", midiEvent(96, {0xB0, 1, 1}), second, "60@0+5040");
        row("status", midiEvent(0, {0xB0, 1, 1}), bytes({0, 60, 100}), "Unknown MIDI channel event 0x00.");
    }

    void chunksLeaveNothingBehind()
    {
        QFETCH(QByteArray, first);
        QFETCH(QByteArray, second);
        auto chosen = options(true);
        chosen.sustainPedal = true;
        QString notes;
        const auto error = thrownBy([&] {
            notes = describe(importMidi(file({first + endOfTrack(), second}), chosen));
        });
        QTEST(notes.isEmpty() ? error : notes, "expected");
    }

    void tempoIsExactWithin_data()
    {
        const Rows<int, QString> row("microseconds", "tempo");
        row("a whole number", 500000, "1/4=120");
        row("half a quarter", 497925, "1/8=241");
        row("a third", 500000 * 360 / 361, "1/12=361");
        row("slowest", 16777215, "");
        row("fastest", 1, "1/4=60000000");
    }

    void tempoIsExactWithin()
    {
        QFETCH(int, microseconds);
        QFETCH(QString, tempo);
        const auto written = exactTempo(quint32(microseconds));
        const double wanted = 60e6 / microseconds * double(ticksPerQuarter);
        QVERIFY(qAbs(double(written.ticksPerMinute()) / wanted - 1) <= 1e-4);
        QVERIFY(tempo.isEmpty() || written.text() == tempo);
    }

    void roundsHalvesOfTicksUp()
    {
        const auto bytes =
            file({noteOn(1, 60) + noteOff(1, 60) + endOfTrack()}, 1, 64); // start and length: 157.5 model ticks each
        QCOMPARE(describe(importMidi(bytes, options(true))), QStringLiteral("60@158+158"));
    }

    void errors_data()
    {
        const Rows<QByteArray, QString> row("bytes", "message");
        row("empty", {}, "Invalid MIDI file.");
        row("format 2", file({}, 2), "Unsupported MIDI type 2.");
        row("SMPTE", file({}, 1, 0xE728), "SMPTE time divisions are currently unsupported.");
        row("division 0", file({}, 1, 0), "Invalid MIDI file.");
        row("longer header",
            "MThd" + bigEndian(8, 4) + bigEndian(1, 2) + bigEndian(1, 2) + bigEndian(96, 2) + "xx" + chunk({}),
            "Invalid MIDI file.");
        row("missing track", file({}).replace(11, 1, "\1"), "Invalid MIDI file.");
        row("no status yet", file({bytes({0, 0x12})}), "Unknown MIDI channel event 0x00.");
        row("system event", file({midiEvent(0, {0xF4})}), "Unknown MIDI system event 0xf4.");
        row("nothing", file({}), "nothing");
    }

    void errors()
    {
        QFETCH(QByteArray, bytes);
        QTEST(thrownBy([&] { importMidi(bytes, {}); }), "message");
    }

    void channelsOverAllTracks()
    {
        const auto conductor = tempo(0, 400000) + midiEvent(0, {0xFF, 0x58, 4, 6, 3, 24, 8}) +
                               midiEvent(0, {0xFF, 0x59, 2, 0xFD, 1}) + tempo(96, 700000) + endOfTrack();
        const auto player = midiEvent(0, {0xC0, 130}) + noteOn(0, 60) + noteOff(192, 60) + noteOn(0, 36, 100, 9) +
                            noteOff(96, 36, 9) + endOfTrack();
        const auto result = importMidi(file({conductor, player}), options(true));
        QCOMPARE(describe(result), QStringLiteral("60@0+20160 Q856800@10080 | Q856800@10080 36@20160+10080"));
        const auto &track = result.tracks.first();
        QCOMPARE(track.title(), QStringLiteral("Track 1 - Electric Grand Piano"));
        QCOMPARE(result.tracks[1].title(), QStringLiteral("Track 10 - Percussion"));
        QCOMPARE(track.headerField(QStringLiteral("Q")), QStringLiteral("1/4=150"));
        QCOMPARE(track.ticksPerMinute(), 1512000);
        QCOMPARE(track.headerField(QStringLiteral("M")), QStringLiteral("6/8"));
        QCOMPARE(track.measureTicks(), 30240U);
        QCOMPARE(track.headerField(QStringLiteral("K")), QStringLiteral("Cm"));
        QVERIFY(!track.hasHeaderField(QStringLiteral("L")));
    }

    void tracksOnTheirOwn()
    {
        const auto conductor =
            tempo(0, 400000) + midiEvent(0, {0xFF, 0x58, 4, 3, 2, 24, 8}) + tempo(96, 700000) + endOfTrack();
        const auto named = midiEvent(0, {0xFF, 0x20, 1, 9}) + midiEvent(0, {0xFF, 0x04, 4, 'D', '\n', 0xE9, 'x'}) +
                           midiEvent(0, {0xFF, 0x04, 5, 0xC3, 0xA9, 0, 'x', 0}) + noteOn(0, 36, 100, 9) +
                           noteOff(48, 36, 9) + bend(0, 12288) + endOfTrack(); // of the other's channel
        const auto plain = noteOn(0, 60) + noteOff(48, 60) + endOfTrack();
        const auto result = importMidi(file({conductor, named, plain}), options(false));
        QCOMPARE(describe(result), QStringLiteral("36@0+5040 Q856800@10080 | 60@0+5040 Q856800@10080"));
        QCOMPARE(result.tracks[0].headerFields(QStringLiteral("T")),
                 QStringList({QStringLiteral("D \u00e9x"), QStringLiteral("\u00e9 x"),
                              QStringLiteral("Track 1 - Percussion")}));
        QCOMPARE(result.tracks[1].title(), QStringLiteral("Track 2 - Acoustic Grand Piano"));
        QCOMPARE(result.tracks[1].headerField(QStringLiteral("L")), QStringLiteral("1/8"));
        QCOMPARE(result.tracks[1].headerField(QStringLiteral("Q")), QStringLiteral("1/4=150"));
        QVERIFY(!result.tracks[1].hasHeaderField(QStringLiteral("M")));
        QCOMPARE(leftOut(result.report), QStringLiteral("0 0 0 0 1"));
    }

    void keepsVelocitiesWhenAsked()
    {
        auto chosen = options(true);
        chosen.processVolume = true;
        const auto bytes =
            file({noteOn(0, 60, 127) + noteOff(9, 60) + noteOn(0, 60, 64) + noteOff(9, 60) + endOfTrack()});
        const auto result = importMidi(bytes, chosen);
        QCOMPARE(result.tracks[0].events()[0].velocity(), 1.0F);
        QCOMPARE(result.tracks[0].events()[1].velocity(), float(64 / 127.0));
    }

    void reportsShifts()
    {
        // 97 file ticks are 10185 model ticks; the nearest point of a grid is 10080, 105 ticks = 5.2 ms away.
        const auto result = importMidi(file({tempo(1, 1000000) + noteOn(96, 60) + noteOff(96, 60) + noteOn(95, 60) +
                                             noteOff(96, 60) + endOfTrack()}),
                                       options(true, true));
        QCOMPARE(result.report.shifts.shiftedNotes, 1);
        QVERIFY(qAbs(result.report.shifts.largestMs - 105 * 60000.0 / 604800) < 1e-9);
    }

    void boundsTheCopiesOfChanges()
    {
        QByteArray changes;
        for (int i = 0; i < 60000; ++i)
            changes += midiEvent(1, {0xFF, 0x59, 2, i % 2, 0});
        QByteArray notes;
        for (int channel = 0; channel < 16; ++channel)
            notes += noteOn(0, 60, 100, channel) + noteOff(1, 60, channel);
        const auto outcome = [](const QByteArray &events) {
            return thrownBy([&] { importMidi(file({events + endOfTrack()}), {}); });
        };
        QCOMPARE(outcome(changes + notes), QStringLiteral("Too many tempo, metre and key changes."));
        QCOMPARE(outcome(changes + notes.left(8)), QStringLiteral("nothing"));

        QByteArray bends;
        for (int key = 24; key < 100; ++key)
            bends += noteOn(0, key);
        for (int i = 0; i < 10000; ++i)
            bends += bend(1, i % 2 * 0x3FFF);
        QCOMPARE(outcome(bends), QStringLiteral("Too many pitch bends."));
    }

    // What is written is read back to the same events, each note pointing at its own text, and written the same again.
    void roundTrip_data()
    {
        QTest::addColumn<int>("seed");
        for (int seed = 0; seed < 40; ++seed)
            QTest::addRow("%d", seed) << seed;
    }

    void roundTrip()
    {
        QFETCH(int, seed);
        std::mt19937 random{unsigned(seed)};
        const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
        QByteArray events;
        for (int i = 0; i < 400; ++i) {
            const int delta = below(2) * below(100);
            const int key = 21 + below(88);
            const auto kind = below(30);
            if (kind == 0)
                events += tempo(delta, 300000 + below(700000));
            else if (kind == 1)
                events += midiEvent(delta, {0xFF, 0x59, 2, (below(15) - 7) & 0xFF, below(2)});
            else if (kind == 2)
                events += midiEvent(delta, {0xFF, 0x58, 4, 1 + below(12), below(5), 24, 8});
            else
                events += below(2) == 0 ? noteOn(delta, key, 100, below(3)) : noteOff(delta, key, below(3));
        }
        auto result = importMidi(file({events + endOfTrack(96)}), options(seed % 2 == 0, seed % 3 != 0));
        QVERIFY(!result.tracks.isEmpty());
        for (auto &track : result.tracks)
            checkRoundTrip(track);
    }

private:
    static void checkRoundTrip(Track &track)
    {
        const auto text = track.toAbc();
        const auto parsed = parseAbc(text);
        QCOMPARE(::describe(parsed), ::describe(track));
        QCOMPARE(parsed.ticksPerMinute(), track.ticksPerMinute());
        QCOMPARE(parsed.measureTicks(), track.measureTicks());
        const auto lines = text.split(u'\n');
        for (int i = 0; i < parsed.events().size(); ++i) {
            const auto &written = track.events()[i];
            const auto &read = parsed.events()[i];
            QVERIFY(read.textLine() == written.textLine() && read.textColumn() == written.textColumn() &&
                    read.textLength() == written.textLength());
            if (read.isNote())
                QVERIFY(lines[int(read.textLine())]
                            .mid(int(read.textColumn()), int(read.textLength()))
                            .contains(QRegularExpression(QStringLiteral("\\A[_^=]*[A-Ga-g][,']*[0-9/]*\\z"))));
        }
        auto again = parsed;
        again.clearAbc();
        const auto body = [](const QString &abc) { return abc.mid(abc.indexOf(QStringLiteral("\nK: "))); };
        QCOMPARE(body(again.toAbc()), body(text));
    }
};

QTEST_APPLESS_MAIN(TestMidiImport)
#include "test_midi_import.moc"
