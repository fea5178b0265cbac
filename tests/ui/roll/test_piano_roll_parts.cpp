#include "core/AbcParser.h"
#include "core/Measures.h"
#include "edit/NoteText.h"
#include "support/Rows.h"
#include "ui/roll/RollGeometry.h"
#include "ui/roll/RollNotes.h"
#include "ui/roll/RollSnap.h"

#include <QRandomGenerator>

// What the piano roll counts with.
class TestPianoRollParts : public QObject
{
    Q_OBJECT

    static constexpr Ticks eighth = ticksPerWholeNote / 8;

private slots:
    void geometry()
    {
        for (const auto hScale : {-100, -10, 0, 4, 14, 100}) {
            for (const auto ratio : {1.0, 1.5, 2.0})
                checkGeometry(hScale, ratio);
        }
    }

    void measures()
    {
        auto track =
            parseAbc(QStringLiteral("X:1\nM:3/4\nL:1/4\nQ:1/4=90\nK:C\nCCC CC [M:2/4] CC CC [M:none] C4 [M:6/8] C2"));
        const Measures measures(track);
        QStringList positions;
        for (const double quarters : {0.0, 4.5, 5.0, 7.0, 12.0, 13.5})
            positions += NoteText::position(Ticks(quarters * ticksPerQuarter), measures);
        // The change cuts the second measure short and begins the third.
        QCOMPARE(positions.join(u'|').remove(QStringLiteral("Measure ")),
                 QStringLiteral("1, beat 1|2, beat 2 + 1/8|3, beat 1|4, beat 1|5, beat 4|6, beat 2"));
        QCOMPARE(measures.at(4 * ticksPerQuarter).end, 5 * ticksPerQuarter);
        QCOMPARE(measures.previousStart(5 * ticksPerQuarter), 3 * ticksPerQuarter);
        QCOMPARE(measures.marks().size(), size_t(5));

        QVector<qint64> drawn;
        measures.forEachIn(ticksPerQuarter, 8 * ticksPerQuarter, 1,
                           [&](const Measure &measure) { drawn.append(measure.number); });
        QCOMPARE(drawn, (QVector<qint64>{1, 2, 3, 4}));
    }

    void snap_data()
    {
        const Rows<int, QString, Ticks, Ticks> row("choice", "label", "tick", "nearest");
        const Ticks measure = 3 * ticksPerQuarter;
        row("eighths", 3, "1/8", eighth + 2521, 2 * eighth);
        row("32nds", 5, "1/32", eighth + 1, eighth);
        row("triplet", 9, "1/8 triplet", measure + 3300, measure + 3360);
        row("half notes end with the measure", 1, "1/2", measure - 100, measure);
        row("off", 12, "Off", Ticks(12345), Ticks(12345));
    }

    void snap()
    {
        QFETCH(int, choice);
        QFETCH(Ticks, tick);
        Track track;
        track.setMetre(3 * ticksPerQuarter, 3);
        RollSnap snap;
        snap.setUnit(eighth * 3 / 2);
        QCOMPARE(snap.step(), eighth); // until one is chosen
        snap.setChoice(choice);
        snap.setUnit(eighth);
        QTEST(RollSnap::label(choice), "label");
        QTEST(snap.nearest(tick, Measures(track)), "nearest");
    }

    void lengths()
    {
        const auto shown = [](Ticks length) {
            return QStringLiteral("%1|%2|%3")
                .arg(RollLengths::labelOf(length), RollLengths::labelOf(RollLengths::withDotToggled(length)),
                     RollLengths::labelOf(RollLengths::withTripletToggled(length)));
        };
        QCOMPARE(shown(eighth), QStringLiteral("1/8|1/8 dotted|1/8 triplet"));
        QCOMPARE(shown(eighth * 3 / 2), QStringLiteral("1/8 dotted|1/8|1/8"));
        QCOMPARE(shown(eighth * 2 / 3), QStringLiteral("1/8 triplet|1/8|1/8"));
        QCOMPARE(shown(eighth * 5), QStringLiteral("5/8|15/16|5/12"));
    }

    void pitchNames()
    {
        QStringList names; // by the pitch and the row of the key: C, D twice, Bb, C#, Cb
        for (const auto &[pitch, key] : {std::pair(60, 7), {66, 5}, {65, 5}, {58, 9}, {60, 0}, {59, 14}})
            names += NoteText::pitch(pitch, key);
        QCOMPARE(names.join(u' '), QStringLiteral("C4 F♯4 F4 B♭3 B♯3 C♭4"));
        QCOMPARE(NoteText::length(3 * eighth / 2), QStringLiteral("3/16"));
        QCOMPARE(NoteText::length(2 * ticksPerWholeNote), QStringLiteral("2"));
    }

    // Against a look at every note, with one note that is longer than all others together.
    void notesInAWindow()
    {
        QRandomGenerator random(3);
        Track track;
        track.appendEvent(TrackEvent::note(40, 10, 100'000));
        for (int i = 0; i < 1000; ++i)
            track.appendEvent(TrackEvent::note(60, Ticks(random.bounded(50'000)), Ticks(random.bounded(1, 300))));
        track.normalize();
        const RollNotes notes(track);
        for (int i = 0; i < 200; ++i) {
            const auto from = Ticks(random.bounded(52'000));
            const auto to = from + Ticks(random.bounded(1, 4000));
            QVector<int> expected;
            for (int note = 0; note < notes.count(); ++note) {
                if (notes[note].start < to && notes[note].end() >= from)
                    expected.append(note);
            }
            QVector<int> found;
            notes.forEachIn(from, to, [&](int note) { found.append(note); });
            QCOMPARE(found, expected);
        }
    }

private:
    static void checkGeometry(int hScale, double ratio)
    {
        RollGeometry geometry;
        geometry.setHScale(hScale);
        geometry.setDevicePixelRatio(ratio);
        geometry.setScroll({137, 55});
        for (const Ticks tick : {Ticks(0), eighth, 10 * ticksPerWholeNote + 1}) {
            const auto x = geometry.x(tick);
            QVERIFY(std::abs(geometry.tick(x) - tick) <= geometry.ticksIn(1));
            QVERIFY(qFuzzyIsNull(x * ratio - std::round(x * ratio)));
        }
        for (const auto pitch : {21, 60, 108}) {
            QCOMPARE(geometry.pitch(geometry.top(pitch) + 1), pitch);
            QCOMPARE(geometry.pitch(geometry.bottom(pitch) - 1), pitch);
        }
        QCOMPARE(geometry.pitch(-1e6), RollGeometry::highestPitch);
        QVERIFY(geometry.contentWidth(maxTicks) > 0);
    }
};

QTEST_APPLESS_MAIN(TestPianoRollParts)
#include "test_piano_roll_parts.moc"
