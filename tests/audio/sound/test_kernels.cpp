// Each set of kernels against the definition in double precision, and the quality of the two resampling kernels.
#include "Signals.h"
#include "audio/engine/ReferenceMix.h"
#include "audio/sound/Kernels.h"
#include "audio/sound/Resampler.h"
#include "support/Rows.h"

#include <QtTest>

namespace {

constexpr double minus100dB = 1e-5;
constexpr float untouched = 77;

std::vector<float> buffer(std::size_t n)
{
    return std::vector<float>(n + 1, untouched);
}

} // namespace

class TestKernels : public QObject
{
    Q_OBJECT

private slots:
    void adds_data() { sets(); }

    void adds()
    {
        const auto noise = noiseSound(1, 100, 1);
        for (std::size_t n = 0; n <= 41; ++n) {
            auto held = buffer(n), fading = buffer(n);
            chosen()->add(held.data(), noise->plane(0) + n % 7, n, 0.75F);
            chosen()->addFading(fading.data(), noise->plane(0) + n % 7, n, 50, 0.02F);
            for (std::size_t i = 0; i < n; ++i) {
                const auto source = double(noise->plane(0)[i + n % 7]);
                QVERIFY(std::abs(double(held[i]) - (77 + 0.75 * source)) < minus100dB);
                QVERIFY(std::abs(double(fading[i]) - (77 + double(50 - i) / 50 * source)) < minus100dB);
            }
            QCOMPARE(held[n], untouched);
            QCOMPARE(fading[n], untouched);
        }
    }

    void measures_data() { sets(); }

    void measures()
    {
        const auto noise = noiseSound(1, 100, 1);
        for (std::size_t n = 0; n <= 41; ++n) {
            double energy = 1, expected = 1;
            float peak = 0.001F, highest = 0.001F;
            chosen()->measure(noise->plane(0) + n % 7, n, energy, peak);
            for (std::size_t i = 0; i < n; ++i) {
                const auto sample = noise->plane(0)[i + n % 7];
                expected += double(sample) * double(sample);
                highest = std::max(highest, std::abs(sample));
            }
            QVERIFY(std::abs(energy - expected) < minus100dB);
            QCOMPARE(peak, highest);
        }
    }

    void interpolates_data() { sets(); }

    void interpolates()
    {
        const auto noise = noiseSound(2, 4000, 2);
        for (const double ratio : {0.1, 0.918, 1.0594631, 2.7, 11.3}) {
            const auto step = Position(std::llround(ratio * 0x1p32));
            for (const std::size_t n : {1, 7, 8, 19, 63, 64, 65, 150}) {
                const Position at = 17 * step + n;
                constexpr auto multiple = Kernels::interpolateMultiple;
                const auto room = (n + multiple - 1) / multiple * multiple;
                auto left = buffer(room), right = buffer(room), mono = buffer(room);
                chosen()->interpolate({left.data(), right.data()}, {noise->plane(0), noise->plane(1)}, n, at, step);
                chosen()->interpolate({mono.data(), nullptr}, {noise->plane(0), nullptr}, n, at, step);
                for (std::size_t i = 0; i < n; ++i) {
                    const Position position = at + i * step;
                    QVERIFY(std::abs(double(left[i]) - ReferenceMix::interpolated(noise->plane(0), position)) <
                            minus100dB);
                    QVERIFY(std::abs(double(right[i]) - ReferenceMix::interpolated(noise->plane(1), position)) <
                            minus100dB);
                }
                QVERIFY(left == mono);
                QCOMPARE(right[room], untouched);
            }
        }
    }

    void resamples_data() { sets(); }

    void resamples()
    {
        const auto noise = noiseSound(1, 4000, 3);
        for (const double ratio : {0.1, 0.918, 1.0594631, 1.9, 5.1}) {
            const FineKernel kernel(ratio);
            const auto step = Position(std::llround(ratio * 0x1p32));
            for (std::size_t n = 1; n <= 20; n += 3) {
                const Position at = (Position(1000) << 32) + 5 * step;
                auto to = buffer(n);
                chosen()->resample(to.data(), noise->plane(0), n, at, step, kernel);
                for (std::size_t i = 0; i < n; ++i) {
                    const double position = double(at + i * step) / 0x1p32, frame = std::floor(position);
                    const double expected = ReferenceMix::weighted(noise->plane(0), std::ptrdiff_t(frame),
                                                                   position - frame, FineKernel::design(ratio));
                    QVERIFY(std::abs(double(to[i]) - expected) < minus100dB);
                }
                QCOMPARE(to[n], untouched);
            }
        }
    }

    void liveQuality_data() { tones(); }

    // A tone of 48 kHz that a ratio makes `hertz`.
    void liveQuality()
    {
        QFETCH(double, hertz);
        QFETCH(double, ratio);
        const double frequency = hertz / 48000;
        if (frequency / ratio > 0.25)
            QSKIP("above half of what 48 kHz can hold, which only the kernel for exports is made for");
        const auto sine = sineSound(frequency / ratio, 40000);
        std::vector<float> left(20000);
        const auto step = Position(std::llround(ratio * 0x1p32));
        bestKernels().interpolate({left.data(), nullptr}, {sine->plane(0), nullptr}, left.size(), 100 * step, step);
        const double ratioInDb = signalToNoise(left, frequency);
        QVERIFY2(ratioInDb >= 65, qPrintable(QString::number(ratioInDb)));
    }

    void exportQuality_data() { tones(); }

    void exportQuality()
    {
        QFETCH(double, hertz);
        QFETCH(double, ratio);
        Resampler resampler;
        const double frequency = hertz / 48000;
        Sound sound;
        QCOMPARE(resampler.resample(*sineSound(frequency / ratio, 40000), ratio, 20200, sound), AudioResult::Ok);
        const double ratioInDb = signalToNoise({sound->plane(0) + 100, 20000}, frequency);
        QVERIFY2(ratioInDb >= 95, qPrintable(QString::number(ratioInDb)));
    }

    // What lies above half the new rate vanishes.
    void nothingAliases()
    {
        Resampler resampler;
        for (const double ratio : {1.01, 1.1224620, 1.2, 1.5, 2.0, 3.1, 6.0, 15.9}) {
            for (const double above : {1.0, 1.05, 1.3}) {
                const double frequency = 0.5 / ratio * above;
                if (frequency >= 0.5)
                    continue;
                Sound sound;
                QCOMPARE(resampler.resample(*sineSound(frequency, 40000, 48000, 1), ratio, 2000, sound),
                         AudioResult::Ok);
                for (std::size_t i = 100; i < 2000; ++i)
                    QVERIFY2(std::abs(sound->plane(0)[i]) < 2 * float(minus100dB),
                             qPrintable(QStringLiteral("%1 %2").arg(ratio).arg(above)));
            }
        }
    }

    void resampledSoundIsBounded()
    {
        Resampler resampler;
        const auto source = noiseSound(2, 1001, 4);
        Sound whole, part;
        QCOMPARE(resampler.resample(*source, 0.5, 1000000, whole), AudioResult::Ok);
        QCOMPARE(whole->frames(), std::size_t(2002));
        QCOMPARE(resampler.resample(*source, 0.5, 333, part), AudioResult::Ok);
        QCOMPARE(part->frames(), std::size_t(333));
        for (int channel = 0; channel < 2; ++channel)
            QVERIFY(std::equal(part->plane(channel), part->plane(channel) + 333, whole->plane(channel)));
        for (const double ratio : {0.0, -1.0, 1e-9, 1e9, std::nan(""), HUGE_VAL})
            QCOMPARE(resampler.resample(*source, ratio, 10, part), AudioResult::InvalidArgument);
        QCOMPARE(resampler.resample(SoundData(1, 0, 48000), 2, 10, part), AudioResult::Ok);
        QCOMPARE(part->frames(), std::size_t(0));
    }

private:
    static void sets()
    {
        const Rows<bool> row("avx2");
        row("portable", false);
        if (avx2Kernels())
            row("AVX2", true);
    }

    static void tones()
    {
        QTest::addColumn<double>("hertz");
        QTest::addColumn<double>("ratio");
        for (const double hertz : {1000.0, 5000.0, 10000.0})
            for (const double ratio : {0.75, 0.91875, 0.97, 1.0594631, 1.1224620, 1.26, 1.5})
                QTest::addRow("%g Hz at %g", hertz, ratio) << hertz << ratio;
    }

    static const Kernels *chosen()
    {
        const bool avx2 = *static_cast<bool *>(QTest::qData("avx2", QMetaType::Bool));
        return avx2 ? avx2Kernels() : &portableKernels();
    }
};

QTEST_APPLESS_MAIN(TestKernels)
#include "test_kernels.moc"
