// Samples of every format, written by the library that also reads them, and files that are damaged.
#include "Signals.h"
#include "audio/sound/SampleDecoder.h"
#include "support/TestFolder.h"

#include <sndfile.h>

// libsndfile 1.2.0 forgets this of a Vorbis file with a damaged header; LeakSanitizer asks for the list by that name.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:vorbis_info_init";
}

namespace {

std::vector<char> encoded(int format, int channels, int sampleRate, const std::vector<float> &interleaved)
{
    const TestFolder folder;
    SF_INFO info{0, sampleRate, channels, format, 0, 0};
    SNDFILE *file = sf_open(qPrintable(folder.path("sample")), SFM_WRITE, &info);
    if (!file)
        qFatal("%s", sf_strerror(nullptr));
    sf_command(file, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    sf_writef_float(file, interleaved.data(), sf_count_t(interleaved.size()) / channels);
    sf_close(file);
    const auto bytes = folder.read("sample");
    return {bytes.begin(), bytes.end()};
}

// 440 Hz on every channel, at a level of its own.
std::vector<float> tone(int channels, int sampleRate, std::size_t frames)
{
    std::vector<float> samples;
    for (std::size_t i = 0; i < frames; ++i)
        for (int channel = 0; channel < channels; ++channel)
            samples.push_back(
                float(0.8 / (channel + 1) * std::sin(2 * std::numbers::pi * 440 * double(i) / sampleRate)));
    return samples;
}

AudioResult decode(const std::vector<char> &bytes, Sound &sound, std::size_t mostFrames = wholeSample)
{
    return decodeSample(std::as_bytes(std::span(bytes)), mostFrames, sound);
}

} // namespace

class TestSampleDecoder : public QObject
{
    Q_OBJECT

private slots:
    void formats_data()
    {
        // least: dB of the tone over the rest
        const Rows<int, int, int, double> row("format", "channels", "sampleRate", "least");
        row("WAV 16 bit", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 2, 44100, 80.0);
        row("WAV 24 bit", SF_FORMAT_WAVEX | SF_FORMAT_PCM_24, 1, 48000, 120.0);
        row("WAV float", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 2, 22050, 120.0);
        row("FLAC", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 1, 44100, 80.0);
        row("Vorbis", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 2, 44100, 20.0);
        row("Opus", SF_FORMAT_OGG | SF_FORMAT_OPUS, 1, 48000, 20.0);
        row("MP3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 2, 44100, 20.0);
    }

    void formats()
    {
        QFETCH(int, format);
        QFETCH(int, channels);
        QFETCH(int, sampleRate);
        QFETCH(double, least);
        constexpr std::size_t frames = 20000;
        Sound sound;
        const auto bytes = encoded(format, channels, sampleRate, tone(channels, sampleRate, frames));
        QCOMPARE(decode(bytes, sound), AudioResult::Ok);
        QCOMPARE(sound->channels(), channels);
        QCOMPARE(sound->sampleRate(), sampleRate);
        QVERIFY2(std::abs(double(sound->frames()) - double(frames)) < 2500,
                 qPrintable(QString::number(sound->frames())));
        const auto size = measureSample(std::as_bytes(std::span(bytes)));
        QVERIFY(size && size->bytes() == sound->frames() * std::size_t(channels) * sizeof(float));
        Sound part;
        QCOMPARE(decode(bytes, part, 7000), AudioResult::Ok);
        QCOMPARE(part->frames(), std::size_t(7000));
        for (int channel = 0; channel < channels; ++channel) {
            QVERIFY(std::equal(part->plane(channel), part->plane(channel) + 7000, sound->plane(channel)));
            const std::span<const float> middle(sound->plane(channel) + 5000, 10000);
            const double quality = signalToNoise(middle, 440.0 / sampleRate);
            QVERIFY2(quality >= least, qPrintable(QString::number(quality)));
            const float peak = *std::max_element(middle.begin(), middle.end());
            QVERIFY(std::abs(peak - 0.8F / float(channel + 1)) < 0.05F);
        }
    }

    void moreChannelsThanTwo()
    {
        Sound sound;
        QCOMPARE(decode(encoded(SF_FORMAT_WAV | SF_FORMAT_FLOAT, 6, 48000, tone(6, 48000, 1000)), sound),
                 AudioResult::Ok);
        QCOMPARE(sound->channels(), 2);
        QCOMPARE(sound->frames(), std::size_t(1000));
        QCOMPARE(sound->plane(1)[77] * 2, sound->plane(0)[77]);
    }

    void integersAreExact()
    {
        std::vector<float> values;
        for (int value = -32768; value < 32768; value += 7)
            values.push_back(float(value) / 32768);
        Sound sound;
        QCOMPARE(decode(encoded(SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, values), sound), AudioResult::Ok);
        QVERIFY(std::equal(values.begin(), values.end(), sound->plane(0), sound->plane(0) + sound->frames()));
    }

    void notNumbers()
    {
        const std::vector<float> values{1, HUGE_VALF, -HUGE_VALF, float(std::nan("")), 1e30F, -17};
        Sound sound;
        QCOMPARE(decode(encoded(SF_FORMAT_WAV | SF_FORMAT_FLOAT, 1, 48000, values), sound), AudioResult::Ok);
        const float expected[] = {1, 0, 0, 0, 16, -16};
        QVERIFY(
            std::equal(std::begin(expected), std::end(expected), sound->plane(0), sound->plane(0) + sound->frames()));
    }

    void brokenFiles_data() { formats_data(); }

    // Cut off or changed anywhere, a file is read in part or refused.
    void brokenFiles()
    {
        QFETCH(int, format);
        QFETCH(int, channels);
        QFETCH(int, sampleRate);
        const auto whole = encoded(format, channels, sampleRate, tone(channels, sampleRate, 6000));
        std::minstd_rand random(1);
        for (std::size_t round = 0; round < 60; ++round) {
            Sound sound;
            auto cut = whole;
            cut.resize(round < 30 ? round : random() % whole.size());
            if (decode(cut, sound) == AudioResult::Ok)
                QVERIFY(sound->frames() > 0 && sound->frames() < 12000);
            auto changed = whole;
            for (int i = 0; i < 4; ++i)
                changed[random() % std::min<std::size_t>(changed.size(), 200)] = char(random());
            Sound other;
            const auto result = decode(changed, other);
            QCOMPARE(result == AudioResult::Ok, other != nullptr);
        }
    }

    void otherFormats()
    {
        Sound sound;
        for (const int format : {SF_FORMAT_AIFF | SF_FORMAT_PCM_16, SF_FORMAT_AU | SF_FORMAT_PCM_16})
            QCOMPARE(decode(encoded(format, 1, 48000, tone(1, 48000, 100)), sound), AudioResult::UnreadableSample);
        QCOMPARE(decode({}, sound), AudioResult::UnreadableSample);
        QCOMPARE(decode(encoded(SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, {}), sound), AudioResult::UnreadableSample);
        QVERIFY(!sound);
    }

    void tooLong()
    {
        Sound sound;
        const std::vector<float> eleven(1000 * 60 * 11), nine(1000 * 60 * 9);
        const auto tooLong = encoded(SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 1, 1000, eleven);
        for (const auto mostFrames : {wholeSample, std::size_t(1000)})
            QCOMPARE(decode(tooLong, sound, mostFrames), AudioResult::SampleTooLong);
        QCOMPARE(decode(encoded(SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 1, 1000, nine), sound), AudioResult::Ok);
    }
};

QTEST_APPLESS_MAIN(TestSampleDecoder)
#include "test_sample_decoder.moc"
