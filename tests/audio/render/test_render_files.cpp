#include "audio/SampleFiles.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/render/TrackRenderer.h"
#include "audio/sound/SampleDecoder.h"
#include "support/Rows.h"

#include <QDir>
#include <QSignalSpy>

#include <random>

namespace {

// Interleaved.
std::vector<float> samplesOf(const QString &path)
{
    QFile file(path);
    Sound sound;
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto bytes = file.readAll();
    const auto span = std::as_bytes(std::span(bytes.constData(), std::size_t(bytes.size())));
    if (decodeSample(span, wholeSample, sound) != AudioResult::Ok || sound->channels() != 2)
        return {};
    std::vector<float> samples;
    for (std::size_t i = 0; i < sound->frames(); ++i)
        samples.insert(samples.end(), {sound->plane(0)[i], sound->plane(1)[i]});
    return samples;
}

float peakOf(const std::vector<float> &samples)
{
    float peak = 0;
    for (const auto sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

double decibels(float level)
{
    return 20 * std::log10(double(level));
}

// Of two of the same length; a sum of the second ones if there are several.
double largestDifference(const std::vector<float> &a, const std::vector<std::vector<float>> &b)
{
    double largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        double sum = 0;
        for (const auto &each : b)
            sum += each.size() == a.size() ? double(each[i]) : 1000;
        largest = std::max(largest, std::abs(double(a[i]) - sum));
    }
    return largest;
}

QString tagOf(const QString &path, int tag)
{
    SF_INFO info{};
    auto *const file = sf_open(qPrintable(path), SFM_READ, &info);
    const auto text = QString::fromUtf8(sf_get_string(file, tag));
    sf_close(file);
    return text;
}

constexpr double step16 = 1.0 / 32768;

} // namespace

// Everything that a render writes but plain wave files: codings, parts, ranges, levels.
class TestRenderFiles : public QObject
{
    Q_OBJECT

    const SampleFiles files_;
    const QStringList names_{QStringLiteral("Flute"), QStringLiteral("Lute/2"), QStringLiteral("flute")};

    // A melody of three tones of its own, half a second each, which fade.
    static Track melody(int pitch)
    {
        QVector<TrackEvent> events;
        for (int i = 0; i < 3; ++i)
            events.append(TrackEvent::note(quint32(pitch + 4 * i), Ticks(i) * ticksPerQuarter, ticksPerQuarter));
        return trackOf(events);
    }
    Instrument instrument(int level) const
    {
        QVector<qint16> tone;
        for (int i = 0; i < 48000; ++i)
            tone.append(qint16(std::lround(level * std::sin(i * 0.03) * std::cos(i * 0.0011))));
        auto made = instrumentOf(files_.write(QStringLiteral("tone-%1.wav").arg(level), waveBytes(tone)), 0.3);
        for (auto note = made.tuning.notes.begin(); note != made.tuning.notes.end(); ++note)
            note->rate = std::exp2((int(note.key()) - 60) / 12.0);
        return made;
    }

    RenderPlan plan(const char *name, RenderFiles files, SoundCoding coding) const
    {
        auto plan = planOf({files_.path(QLatin1String(name)), QStringLiteral("Song"), names_, files});
        plan.coding = coding;
        return plan;
    }
    // Gives what went wrong or was clipped.
    QString render(const RenderPlan &plan, int level = 9000) const
    {
        TrackRenderer renderer(
            plan, [](const QString &) { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); }, 2);
        for (int i = 0; i < names_.size(); ++i)
            renderer.addTrack(melody(50 + 7 * i), instrument(level), {0.8F, float(i - 1) * 0.6F});
        QString told;
        connect(&renderer, &TrackRenderer::renderFailed, this, [&](const QString &why) { told = why; });
        connect(&renderer, &TrackRenderer::samplesClipped, this,
                [&](quint64 clipped, quint64 samples) { told = clippingText(clipped, samples); });
        QSignalSpy finished(&renderer, &TrackRenderer::renderFinished);
        renderer.render();
        return finished.wait(20000) ? told : QStringLiteral("too slow");
    }
    QString rendered(const char *name, SoundCoding coding, RenderFiles files = RenderFiles::Mix) const
    {
        const auto wanted = plan(name, files, coding);
        return render(wanted).isEmpty() ? wanted.files.front().path : QString();
    }

private slots:
    void codings_data()
    {
        const Rows<int, QString, double> row("coding", "file", "difference"); // below 0: in dB, of the peaks
        row("16 bit", int(SoundCoding::Wav16), "c16.wav", step16 / 2);
        row("24 bit", int(SoundCoding::Wav24), "c24.wav", step16 / 512);
        row("FLAC, 16 bit", int(SoundCoding::Flac16), "c16.flac", step16 / 2);
        row("FLAC, 24 bit", int(SoundCoding::Flac24), "c24.flac", step16 / 512);
        row("Vorbis", int(SoundCoding::Vorbis), "c.ogg", -0.5);
        row("Opus", int(SoundCoding::Opus), "c.opus", -0.5);
        row("MP3", int(SoundCoding::Mp3), "c.mp3", -0.5);
    }
    void codings()
    {
        QFETCH(const int, coding);
        QFETCH(const QString, file);
        QFETCH(const double, difference);
        if (!isBuiltIn(SoundCoding(coding)))
            QSKIP("not in this build of the library");
        const auto floats = samplesOf(rendered("float.wav", SoundCoding::WavFloat));
        const auto path = rendered(qPrintable(file), SoundCoding(coding));
        const auto samples = samplesOf(path);
        QVERIFY(floats.size() > 2 * 72000 && peakOf(floats) > 0.2F);
        QCOMPARE(samples.size(), floats.size());
        if (difference > 0)
            QVERIFY(largestDifference(floats, {samples}) <= difference * 1.0001);
        else
            QVERIFY(std::abs(decibels(peakOf(samples)) - decibels(peakOf(floats))) < -difference);
        QCOMPARE(tagOf(path, SF_STR_TITLE), QStringLiteral("Song"));
        QCOMPARE(tagOf(path, SF_STR_COMMENT), QStringLiteral("Flute, Lute/2, flute"));
    }

    void qualityMakesFilesLarger()
    {
        for (const auto coding : {SoundCoding::Vorbis, SoundCoding::Opus, SoundCoding::Mp3}) {
            qint64 last = 0;
            for (const double quality : {0.0, 0.5, 1.0}) {
                auto wanted = plan("quality", RenderFiles::Mix, coding);
                wanted.quality = quality;
                QCOMPARE(render(wanted), QString());
                QVERIFY(QFileInfo(wanted.files.front().path).size() > last);
                last = QFileInfo(wanted.files.front().path).size();
            }
        }
    }

    void parts_data()
    {
        const Rows<int, double> row("coding", "steps"); // of 16 bit that the sum may differ by
        row("16 bit", int(SoundCoding::Wav16), 1.001);
        row("24 bit", int(SoundCoding::Wav24), 1 / 64.0);
    }
    void parts()
    {
        QFETCH(const int, coding);
        QFETCH(const double, steps);
        const auto wanted = plan("parts.wav", RenderFiles::Both, SoundCoding(coding));
        QCOMPARE(render(wanted), QString());
        QStringList files;
        for (const auto &file : wanted.files)
            files.append(QFileInfo(file.path).fileName());
        QCOMPARE(files.join(u'|'),
                 QStringLiteral("parts.wav|parts - Flute.wav|parts - Lute_2.wav|parts - flute (2).wav"));
        std::vector<std::vector<float>> parts;
        for (int i = 1; i < 4; ++i)
            parts.push_back(samplesOf(wanted.files[std::size_t(i)].path));
        QVERIFY(peakOf(parts[0]) > 0.1F && peakOf(parts[1]) > 0.1F);
        QVERIFY(largestDifference(samplesOf(wanted.files[0].path), parts) < steps * step16);
        QCOMPARE(tagOf(wanted.files[2].path, SF_STR_TITLE), QStringLiteral("Lute/2"));
        QCOMPARE(tagOf(wanted.files[2].path, SF_STR_ALBUM), QStringLiteral("Song"));
        QCOMPARE(plan("x.wav", RenderFiles::Parts, SoundCoding::Wav16).files.size(), std::size_t(3));
    }

    // What sounds between two moments of the song, to the sample: 24000 frames a quarter note.
    void ranges_data()
    {
        const Rows<qint64, qint64> row("begin", "end");
        row("the beginning", 0, 10080);
        row("inside", 10001, 20003);
        row("the end and silence", 25000, 90000);
    }
    void ranges()
    {
        QFETCH(const qint64, begin);
        QFETCH(const qint64, end);
        auto whole = samplesOf(rendered("whole.wav", SoundCoding::WavFloat));
        auto wanted = plan("range.wav", RenderFiles::Mix, SoundCoding::WavFloat);
        wanted.range = TickRange{begin, end};
        QCOMPARE(render(wanted), QString());
        const auto frameAt = [](qint64 tick) { return std::size_t(double(tick) * 24000 / 10080); };
        whole.resize(std::max(whole.size(), 2 * frameAt(end)));
        const auto from = whole.begin() + std::ptrdiff_t(2 * frameAt(begin));
        const auto to = whole.begin() + std::ptrdiff_t(2 * frameAt(end));
        QVERIFY(samplesOf(wanted.files.front().path) == std::vector<float>(from, to));
    }

    // Of two parts with clicks at 0 and at a quarter note. What sounds sooner begins the file.
    void startOffsets_data()
    {
        const Rows<double, double, QString> row("first", "second", "frames"); // ms
        row("none", 0.0, 0.0, "0 24000");
        row("late", 0.0, 250.0, "0 12000 24000 36000");
        row("early", 0.0, -250.0, "0 12000 24000 36000");
        row("all early", -100.0, -350.0, "0 12000 24000 36000");
        row("all late", 100.0, 350.0, "4800 16800 28800 40800");
    }
    void startOffsets()
    {
        QFETCH(const double, first);
        QFETCH(const double, second);
        QFETCH(const QString, frames);
        const auto wanted = plan("offsets.wav", RenderFiles::Mix, SoundCoding::WavFloat);
        TrackRenderer renderer(
            wanted, [](const QString &) { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); }, 2);
        for (const double offset : {first, second})
            renderer.addTrack(trackOf({TrackEvent::note(60, 0, 100), TrackEvent::note(60, 10080, 100)}),
                              instrumentOf(files_.click()), {}, offset);
        QSignalSpy finished(&renderer, &TrackRenderer::renderFinished);
        renderer.render();
        QVERIFY(finished.wait(20000));
        const auto samples = samplesOf(wanted.files.front().path);
        QStringList found;
        for (std::size_t frame = 0; frame < samples.size() / 2; ++frame) {
            if (samples[2 * frame] != 0)
                found.append(QString::number(frame));
        }
        QCOMPARE(found.join(u' '), frames);
    }

    void normalises()
    {
        auto wanted = plan("loud.wav", RenderFiles::Both, SoundCoding::WavFloat);
        wanted.isNormalised = true;
        QCOMPARE(render(wanted, 30000), QString());
        std::vector<std::vector<float>> all;
        for (const auto &file : wanted.files)
            all.push_back(samplesOf(file.path));
        QVERIFY(std::abs(decibels(peakOf(all[0])) + 1) < 0.001);
        QVERIFY(largestDifference(all[0], {all[1], all[2], all[3]}) < 1e-6);
    }

    void tellsWhatIsClipped()
    {
        const auto wanted = plan("clipped.wav", RenderFiles::Mix, SoundCoding::Wav24);
        const auto floats = [this] {
            auto exact = plan("beyond.wav", RenderFiles::Mix, SoundCoding::WavFloat);
            return render(exact, 30000).isEmpty() ? samplesOf(exact.files.front().path) : std::vector<float>();
        }();
        const auto isBeyond = [](float sample) { return std::abs(sample) >= 1; };
        const auto beyond = std::count_if(floats.begin(), floats.end(), isBeyond);
        QVERIFY(beyond > 100);
        const auto percent = QString::number(100.0 * double(beyond) / double(floats.size()), 'f', 1);
        QCOMPARE(render(wanted, 30000), percent + QStringLiteral(" % of the samples are clipped"));
        QCOMPARE(clippingText(1, 100'000), QStringLiteral("< 0.1 % of the samples are clipped"));
    }

    void leavesNothingBehind()
    {
        QDir(files_.path(QString())).mkdir(QStringLiteral("bad - Lute_2.flac"));
        QCOMPARE(render(plan("bad.flac", RenderFiles::Both, SoundCoding::Flac16)),
                 QStringLiteral("bad - Lute_2.flac: Not a regular file."));
        TrackRenderer renderer(plan("bad.wav", RenderFiles::Mix, SoundCoding::WavFloat),
                               [](const QString &) { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); });
        renderer.addTrack(trackOf({TrackEvent::note(60, 300 * defaultTicksPerMinute, 100)}), instrument(9));
        QSignalSpy failed(&renderer, &TrackRenderer::renderFailed);
        renderer.render();
        QVERIFY(failed.wait());
        QCOMPARE(failed[0][0].toString(),
                 QStringLiteral("The song is too long for a file of this kind: WAV, 32 bit float."));
        QCOMPARE(
            QDir(files_.path(QString())).entryList({QStringLiteral("bad*"), QStringLiteral("*.saving")}, QDir::Files),
            QStringList());
    }
};

QTEST_GUILESS_MAIN(TestRenderFiles)
#include "test_render_files.moc"
