#include "assets/GameInstallation.h"
#include "assets/InstrumentScan.h"
#include "assets/package/PackageRegistry.h"
#include "audio/sound/SampleDecoder.h"
#include "core/AbcParser.h"
#include "support/Rows.h"

#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <complex>
#include <numbers>
#include <numeric>
#include <span>

namespace {
Sound decoded(const QByteArray &bytes)
{
    Sound sound;
    if (decodeSample(std::as_bytes(std::span(bytes.constData(), std::size_t(bytes.size()))), wholeSample, sound) !=
        AudioResult::Ok)
        qFatal("a sample cannot be read");
    return sound;
}

// How loud the first channel is at a frequency, up to a factor, after its noisy beginning: in as many cycles as tell it
// from a semitone beside it.
double loudnessAt(const SoundData &sound, double hertz)
{
    const auto begin = std::size_t(sound.sampleRate() / 20);
    const auto end = std::min(sound.frames(), begin + std::size_t(sound.sampleRate() * std::min(2.0, 100 / hertz)));
    const auto turn = std::polar(1.0, -2 * std::numbers::pi * hertz / sound.sampleRate());
    std::complex<double> sum = 0, phase = 1;
    for (auto i = begin; i < end; ++i, phase *= turn) {
        const auto window = 0.5 - 0.5 * std::cos(2 * std::numbers::pi * double(i - begin) / double(end - begin));
        sum += window * phase * double(sound.plane(0)[i]);
    }
    return std::abs(sum);
}

QMap<QString, QByteArray> filesIn(const QString &root)
{
    QMap<QString, QByteArray> files;
    QDirIterator walk(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const auto path = walk.next();
        files.insert(QDir(root).relativeFilePath(path), readGameFile(path));
    }
    return files;
}
} // namespace

class TestDemoGame : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(isGameInstallation(root_));
        instruments_ = scanInstruments(root_, Mods::Load);
        withoutMods_ = scanInstruments(root_, Mods::Skip);
    }

    void twoRunsWriteTheSame()
    {
        const QTemporaryDir directory;
        const auto again = directory.filePath(QStringLiteral("again"));
        QCOMPARE(QProcess::execute(QStringLiteral(DEMOGAME_PROGRAM), {again}), 0);
        const auto files = filesIn(root_);
        const auto others = filesIn(again);
        QCOMPARE(others.keys(), files.keys());
        for (auto file = files.begin(); file != files.end(); ++file)
            QVERIFY2(others.value(file.key()) == *file, qPrintable(file.key()));
        const auto size = std::accumulate(files.begin(), files.end(), qint64(0),
                                          [](qint64 sum, const QByteArray &bytes) { return sum + bytes.size(); });
        QVERIFY2(size < 20'000'000, qPrintable(QString::number(size)));
    }

    void findsWhatEveryPlaceHolds()
    {
        const std::pair<const char *, const char *> places[] = {
            {"assets/packed.pak::/sfx/", "Bass,Bells,Choir,Drums,Flute,Lute,Organ"},
            {"assets/legacy.pak::/sfx/", "Accordion,Fiddle,Marimba"},
            {"assets/sfx/", "Harp"},
            {"assets/user/sfx/", "Oboe"},
            {"mods/reedcutter/content/sfx/", "Panpipes"},
            {"mods/clockwork.modpak::/clockwork/sfx/", "Music Box"}};
        for (const auto &[place, names] : places) {
            for (const auto &name : QString::fromLatin1(names).split(u',')) {
                QVERIFY2(instruments_.contains(name), qPrintable(name));
                const auto sample = instruments_.instrument(name).tuning.notes.first().files.first();
                QVERIFY2(sample.contains(root_ + u'/' + QLatin1String(place)), qPrintable(sample));
                QCOMPARE(withoutMods_.contains(name), !QByteArray(place).startsWith("mods"));
            }
        }
        QCOMPARE(instruments_.names().size(), 14);
    }

    void everySampleSounds_data()
    {
        const Rows<QString> row("name");
        for (const auto &name : instruments_.names())
            row(qPrintable(name), name);
    }
    void everySampleSounds()
    {
        QFETCH(QString, name);
        const auto &instrument = instruments_.instrument(name);
        QCOMPARE(instrument.icon.size(), QSize(32, 32));
        QStringList paths;
        for (const auto &note : instrument.tuning.notes)
            paths.append(note.files);
        paths.removeDuplicates();
        for (const auto &path : paths) {
            const auto sound = decoded(readGameFile(path));
            QVERIFY2(sound->frames() > 4000, qPrintable(path));
            for (int channel = 0; channel < sound->channels(); ++channel) {
                const std::span frames(sound->plane(channel), sound->frames());
                const auto [lowest, highest] = std::minmax_element(frames.begin(), frames.end());
                const auto peak = std::max(*highest, -*lowest);
                const auto mean = std::accumulate(frames.begin(), frames.end(), 0.0) / double(frames.size());
                QVERIFY2(peak > 0.03F && peak < 0.7F, qPrintable(path));
                QVERIFY2(std::abs(mean) < 0.002, qPrintable(path));
                QVERIFY2(std::abs(frames.front()) < 0.05F * peak, qPrintable(path));
                QVERIFY2(std::abs(frames.back()) < 0.01F * peak, qPrintable(path));
            }
        }
        if (name != u"Drums") // they have a sound of their own on each key
            checkTuning(instrument.tuning.notes);
    }

    void songsPlayOnIt()
    {
        QDirIterator walk(QStringLiteral(EXAMPLES "/songs"), {QStringLiteral("*.abc")}, QDir::Files,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const auto track = parseAbc(QString::fromUtf8(readGameFile(walk.next())));
            const auto field = track.headerField(QStringLiteral("I"));
            QVERIFY2(field.startsWith(QLatin1String("Instrument:")), qPrintable(walk.filePath()));
            const auto &notes = withoutMods_.instrument(field.mid(11)).tuning.notes;
            QVERIFY(track.length() > 0);
            for (const auto &event : track.events())
                QVERIFY(!event.isNote() || notes.contains(event.pitch()));
        }
    }

private:
    template<typename Notes>
    static void checkTuning(const Notes &notes)
    {
        QCOMPARE(notes.firstKey(), lowestPlayablePitch);
        QCOMPARE(notes.lastKey(), highestPlayablePitch);
        for (auto note = notes.begin(); note != notes.end(); ++note) {
            QVERIFY(std::abs(std::log2(note->frequency / 440) * 12 + 69 - note.key()) < 0.001);
            if (note->rate != 1.0)
                continue; // borrowed
            const auto sound = decoded(readGameFile(note->files.last()));
            const auto loudness = loudnessAt(*sound, note->frequency);
            for (const auto semitone : {-1, 1})
                QVERIFY2(loudnessAt(*sound, note->frequency * std::exp2(semitone / 12.0)) < 0.5 * loudness,
                         qPrintable(note->files.last()));
        }
    }

    const QString root_ = QStringLiteral(DEMO_GAME); // of the build
    InstrumentSet instruments_;
    InstrumentSet withoutMods_;
};

QTEST_GUILESS_MAIN(TestDemoGame)
#include "test_demogame.moc"
