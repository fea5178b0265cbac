// When keys were pressed in the song, and the notes that become of them.
#include "app/keyboard/RecordedNotes.h"
#include "app/keyboard/SongClock.h"
#include "support/Rows.h"

#include <QRandomGenerator>

class TestRecordedNotes : public QObject
{
    Q_OBJECT

private slots:
    // Reports that come up to a block late, of a device that is a little slower than the clock, and stands still once.
    void clockFollowsTheSong()
    {
        Track track;
        track.setTempo(defaultTicksPerMinute);
        SongClock clock(track, 0.5);
        QVERIFY(!clock.tickAt(1000));
        const double ticksPerMs = defaultTicksPerMinute / 60'000.0 * 0.5;
        constexpr double start = 5000, block = 43, slower = 0.9999;
        QRandomGenerator random(1);
        double gap = 0;
        for (double at = start + 50; at < start + 60'000; at += 25) {
            if (at > start + 30'000)
                gap = 100;
            const auto heard = (at - start - gap) * slower;
            const auto mixed = std::floor(heard / block) * block;
            clock.report(Ticks(mixed * ticksPerMs), at + random.bounded(5));
            const bool isSettled = at > start + 500 && (gap == 0 || at > start + 40'000);
            const auto error = double(*clock.tickAt(at)) / ticksPerMs - heard;
            QVERIFY2(!isSettled || std::abs(error) < 15, qPrintable(QString::number(error)));
        }
        clock.report(0, 100'000); // sought to the start
        QCOMPARE(*clock.tickAt(100'000), Ticks(0));
        QCOMPARE(*clock.tickAt(99'000), Ticks(0));
    }

    void notesGoToTheGrid_data()
    {
        const Rows<QString, QString> row("played", "notes"); // start, length and pitch; 12 are a sixteenth
        row("near", "2,10,60 10,14,62", "0,12,60 12,12,62");
        row("not shorter than a step", "5,1,60 30,2,60", "0,12,60 36,12,60");
        row("chord", "1,22,60 4,22,64", "0,24,60 0,24,64");
        row("legato", "0,30,60 22,30,60", "0,24,60 24,24,60");
        row("struck twice at once", "0,12,60 3,30,60", "0,36,60");
        row("behind the bar line", "189,15,60", "192,12,60");
        row("out of order", "48,12,60 0,12,60", "0,12,60 48,12,60");
        row("none", "", "");
    }

    void notesGoToTheGrid()
    {
        QFETCH(QString, played);
        constexpr Ticks unit = ticksPerWholeNote / 192;
        QVector<NoteSpec> notes;
        for (const auto &note : played.split(u' ', Qt::SkipEmptyParts)) {
            const auto numbers = note.split(u',');
            notes.append({numbers[0].toInt() * unit, numbers[1].toInt() * unit, numbers[2].toUInt()});
        }
        QStringList texts;
        for (const auto &note : onGrid(notes, Measures(), 12 * unit))
            texts += QStringLiteral("%1,%2,%3").arg(note.start / unit).arg(note.length / unit).arg(note.pitch);
        QTEST(texts.join(u' '), "notes");
    }
};

QTEST_GUILESS_MAIN(TestRecordedNotes)
#include "test_recorded_notes.moc"
