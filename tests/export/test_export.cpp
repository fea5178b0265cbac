#include "assets/ProgramInstruments.h"
#include "audio/TempoMap.h"
#include "core/AbcParser.h"
#include "export/MidiExport.h"
#include "export/ProgramGuess.h"
#include "export/Tunebook.h"
#include "song/SongReader.h"
#include "support/DescribeTrack.h"
#include "support/Rows.h"
#include "support/Thrown.h"

#include <QDirIterator>

namespace {

MidiImportOptions everything()
{
    MidiImportOptions options;
    options.mergeChannels = options.autoRealign = options.autoDetectUnitLength = false;
    options.processVolume = options.exactTempo = options.trackNames = true;
    options.velocityGate = 0;
    return options;
}

QVector<Track> readBack(const MidiExport &midi)
{
    return importMidi(midi.bytes, everything()).tracks;
}

// "Q:1/4=90 M:3/4 …" are fields of a header.
Track tuneOf(const Text &fields, const Text &notes)
{
    auto header = fields;
    return parseAbc(QStringLiteral("X:1\nT:Tune\n%1\nL:1/4\nK:C\n%2\n").arg(header.replace(u' ', u'\n'), notes));
}

QString notesOf(const Track &track)
{
    QStringList notes;
    for (const auto &event : track.events()) {
        if (event.isNote())
            notes.append(describe(event));
    }
    notes.sort();
    return notes.join(u' ');
}

int divisionOf(const MidiExport &midi)
{
    return int(quint8(midi.bytes[12]) << 8 | quint8(midi.bytes[13]));
}

// Both in samples of the same rate.
quint64 endOf(const Track &track)
{
    return TempoMap(track, 48000).samplesAt(track.length());
}

// Between the moments of the same notes in two tracks, in microseconds.
qint64 largestDistance(const Track &a, const Track &b)
{
    const auto momentsOf = [](const Track &track) {
        const TempoMap times(track, 1'000'000);
        QVector<qint64> moments;
        for (const auto &event : track.events()) {
            if (event.isNote())
                moments += {qint64(times.samplesAt(event.start())), qint64(times.samplesAt(event.end()))};
        }
        return moments;
    };
    const auto one = momentsOf(a), other = momentsOf(b);
    qint64 largest = one.size() == other.size() ? 0 : maxTicks;
    for (int i = 0; i < std::min(one.size(), other.size()); ++i)
        largest = std::max(largest, std::abs(one[i] - other[i]));
    return largest;
}

} // namespace

// Parts as MIDI files and as tunebooks, read again.
class TestExport : public QObject
{
    Q_OBJECT

private slots:
    void examplesComeBack_data()
    {
        const Rows<QString> row("file");
        QDirIterator files(QStringLiteral(COMPOSER_EXAMPLES), {QStringLiteral("*.mid"), QStringLiteral("*.abc")},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const auto file = files.next();
            row(qPrintable(files.fileName()), file);
        }
    }
    void examplesComeBack()
    {
        QFETCH(const QString, file);
        auto tracks = readSource(sourceOf(file), {}).tracks;
        QVERIFY(!tracks.isEmpty());
        QVector<ExportedPart> parts;
        QStringList texts;
        for (auto &track : tracks) {
            parts.append({track, track.title()});
            texts.append(track.toAbc());
        }
        const auto midi = exportMidi(QStringLiteral("Song"), parts);
        QCOMPARE(midi.cutNotes + midi.leftOut + midi.movedParts, 0);
        const auto back = readBack(midi);
        const auto book = readSource({SongSource::Kind::AbcText, tunebook(texts)}, {}).tracks;
        QCOMPARE(back.size(), tracks.size());
        QCOMPARE(book.size(), tracks.size());
        for (int i = 0; i < tracks.size(); ++i) {
            QCOMPARE(notesOf(back[i]), notesOf(tracks[i]));
            QCOMPARE(back[i].title(), tracks[i].title());
            QVERIFY(std::abs(double(endOf(back[i])) / double(endOf(tracks[i])) - 1) < 0.0001);
            QCOMPARE(describe(book[i]), describe(tracks[i]));
            QCOMPARE(book[i].headerField(QStringLiteral("X")), QString::number(i + 1));
        }
    }

    void timesAreExact_data()
    {
        const Rows<QString, int> row("notes", "division");
        row("quarters and sixty-fourths", "C D E/16 F/16", 480);
        row("triplets", "(3C/4D/4E/4 F", 480);
        row("nonuplets", "C/9 D/9", 1440);
        row("septuplets", "C/7 D", 3360);
        row("a tick", "C/10080 D", 10080);
    }
    void timesAreExact()
    {
        QFETCH(const QString, notes);
        QFETCH(const int, division);
        const auto tune = tuneOf({}, notes);
        const auto midi = exportMidi({}, {{tune}});
        QCOMPARE(divisionOf(midi), division);
        QCOMPARE(notesOf(readBack(midi).value(0)), notesOf(tune));
    }

    void whatHolds_data()
    {
        const Rows<QString, QString, QString> row("fields", "notes", "read");
        row("tempo, metre and key", "Q:1/4=90 M:6/8", "CC[Q:3/8=100][M:C|][K:Dm]D",
            "1/4=90,6/8,C,M2/4@20160,K8/1@20160,Q1512000@20160");
        row("nothing", "", "C", "1/4=120,,C");
        row("a metre that MIDI does not have", "M:4/3", "C", "1/4=120,,C");
        row("half a quarter note", "Q:1/8=75", "C", "1/8=75,,C");
        row("a tempo that is rounded, and a mode", "Q:1/4=110", "C[K:Gmix]D", "1/4=110,,C,K7/0@10080");
    }
    void whatHolds()
    {
        QFETCH(const QString, fields);
        QFETCH(const QString, notes);
        QFETCH(const QString, read);
        auto options = everything();
        options.mergeChannels = true; // what the first chunk says counts for all
        const auto track = importMidi(exportMidi({}, {{tuneOf(fields, notes)}}).bytes, options).tracks.value(0);
        QStringList found;
        for (const char *field : {"Q", "M", "K"})
            found.append(track.headerField(QLatin1String(field)));
        for (const auto &event : track.events()) {
            if (!event.isNote())
                found.append(describe(event));
        }
        QCOMPARE(found.join(u','), read);
    }

    // A channel plays one note at a pitch.
    void notesThatOverlapAreCut_data()
    {
        const Rows<QString, QString, int> row("notes", "read", "cut");
        row("struck again", "[zC3]C", "60@0+10080 60@10080+10080", 1);
        row("together", "[CC3]", "60@0+30240", 1);
        row("one after the other", "CC", "60@0+10080 60@10080+10080", 0);
        row("other pitches", "[zC3]D", "60@0+30240 62@10080+10080", 0);
    }
    void notesThatOverlapAreCut()
    {
        QFETCH(const QString, notes);
        QFETCH(const QString, read);
        QFETCH(const int, cut);
        const auto midi = exportMidi({}, {{tuneOf({}, notes)}});
        QCOMPARE(notesOf(readBack(midi).value(0)), read);
        QCOMPARE(midi.cutNotes, cut);
    }

    // One file has one tempo; what has another keeps its moments.
    void partsWithTemposOfTheirOwn()
    {
        const auto longest = tuneOf("Q:1/4=100", "z4C4[Q:1/4=50]C8");
        const auto same = tuneOf("Q:1/4=100", "z2C4");
        const auto other = tuneOf("Q:1/4=77", "C/3D/7[Q:1/4=131]E4z2F");
        const auto slow = tuneOf("Q:1/4=1", "C/2D");
        const auto midi = exportMidi({}, {{longest}, {same}, {other}});
        QCOMPARE(midi.movedParts, 1);
        const auto back = readBack(midi);
        QCOMPARE(notesOf(back.value(1)), notesOf(same));
        QVERIFY(largestDistance(back.value(2), other) < 120); // µs, half a tick of 1/4=50 is 60
        const auto alone = exportMidi({}, {{slow}});          // slower than a file can say
        QCOMPARE(alone.movedParts, 1);
        QVERIFY(largestDistance(readBack(alone).value(0), slow) < 9000); // within 0.01 % of 90 s
    }

    void partsHaveChannels()
    {
        QVector<ExportedPart> parts;
        for (int i = 0; i < 17; ++i)
            parts.append(
                {tuneOf({}, "C"), QStringLiteral("Part %1").arg(i), {}, i == 1 ? ProgramInstruments::percussion : i});
        const auto midi = exportMidi(QStringLiteral("Song"), parts);
        QStringList channels;
        for (const auto &part : importMidi(midi.bytes, everything()).parts)
            channels.append(QStringLiteral("%1:%2").arg(*part.channel).arg(*part.program));
        QCOMPARE(channels.join(u' '), QStringLiteral("1:0 10:0 2:2 3:3 4:4 5:5 6:6 7:7 8:8 9:9 11:10 12:11 13:12 14:13 "
                                                     "15:14 16:15 1:16"));
        QCOMPARE(midi.bytes.count(QByteArray("\xFF\x21\x01", 3)), 1); // the last is behind another port
        const auto named = importMidi(exportMidi({}, {{parts[0].track, {}, QStringLiteral("lute")}}).bytes, {}).tracks;
        QCOMPARE(named.value(0).title(), QStringLiteral("lute"));
    }

    void refusesWhatIsTooLong()
    {
        const auto tune = tuneOf({}, "z4000000000C/7");
        QCOMPARE(thrownBy([&] { exportMidi({}, {{tune}}); }), QStringLiteral("The song is too long for a MIDI file."));
        QVERIFY(readBack(exportMidi({}, {})).isEmpty());
    }

    void programs_data()
    {
        const Rows<QString, QString, int> row("instrument", "title", "program");
        row("chosen", "kazoo", "Violin", 75);
        row("by the instrument's name", "violin", "Flute", 40);
        row("by the title of an import", "", "Track 3 - Acoustic Bass", 32);
        row("drums by the title", "", "Track 10 - Percussion", 128);
        row("by kind", "bandlute", "The lutes", 24);
        row("by a title of the instrument's kind", "old fiddles", "Track 1 - Viola", 41);
        row("not by one of another", "western guitar", "Track 1 - Flute", 24);
        row("unknown", "gadget", "Untitled", -1);
    }
    void programs()
    {
        QFETCH(const QString, instrument);
        QFETCH(const QString, title);
        QFETCH(const int, program);
        const ProgramInstruments chosen(QStringLiteral("75=kazoo"));
        QCOMPARE(guessProgram(instrument, {title}, chosen).value_or(-1), program);
    }

    void tunebooks()
    {
        const auto book =
            tunebook({QStringLiteral("% mine\nT:A\nX:7\n\nK:C\nC\n \n\nX:3\nD"), QStringLiteral("E\r\n")});
        QCOMPARE(book, QStringLiteral("X: 1\n% mine\nT:A\nK:C\nC\nX:3\nD\n\nX: 2\nE\r\n"));
        QCOMPARE(tunesOf(book).size(), 2);
    }
};

QTEST_GUILESS_MAIN(TestExport)
#include "test_export.moc"
