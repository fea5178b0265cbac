// Samples that are loaded ahead, within less memory than all of them need.
#include "audio/SampleCache.h"
#include "audio/SampleFiles.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/samples/SampleFeed.h"
#include "support/Rows.h"

#include <QtTest>

class TestSampleFeed : public QObject
{
    Q_OBJECT

    static constexpr int sampleFrames = 10000;
    static constexpr int files = 24;
    const std::size_t sampleBytes = SoundData(1, sampleFrames, 48000).bytes();

    const SampleFiles samples_;
    const BuiltinEngine engine_{EngineOutput::Silent};
    QStringList loaded_;
    QStringList warnings_;

    SampleFeed::Host host()
    {
        loaded_.clear();
        warnings_.clear();
        return {[this](const QString &path) { loaded_.append(path); },
                [this](const QString &text) { warnings_.append(text); }};
    }
    QString file(int number) const { return samples_.level(qint16(1000 * (number + 1)), sampleFrames); }
    // One after the other, a second apart.
    SampleNeed need(int number, double rate = 1) const
    {
        return {file(number), rate, 1000, std::uint64_t(number + 1) * 48000};
    }

    static void finish(SampleFeed &feed, std::uint64_t now)
    {
        do {
            feed.work(now);
            QTest::qSleep(1);
        } while (!feed.isIdle());
    }

private slots:
    void allComeInTime_data()
    {
        const Rows<int, double> row("threads", "rate");
        for (const int threads : {0, 1, 4}) {
            row(qUtf8Printable(QStringLiteral("%1 as they are").arg(threads)), threads, 1.0);
            row(qUtf8Printable(QStringLiteral("%1 resampled").arg(threads)), threads, 1.5);
        }
    }

    // There is room for eight; what comes next is always there, and nothing that is needed leaves for something later.
    void allComeInTime()
    {
        QFETCH(int, threads);
        QFETCH(double, rate);
        SampleFeed feed(decoderOf(engine_), 48000, host(), threads, 8 * sampleBytes + sampleBytes / 2);
        int wanted = 0;
        for (int now = 0; now < files; ++now) {
            for (bool isTaken = true; isTaken && wanted < files; wanted += isTaken ? 1 : 0)
                isTaken = feed.want(need(wanted, rate));
            finish(feed, std::uint64_t(now) * 48000);
            const auto found = feed.find(need(now, rate));
            QCOMPARE(found.state, SampleFeed::State::Ready);
            QCOMPARE(found.ratio, 1.0);
            QVERIFY(std::abs(found.sound->plane(0)[500] - float(1000 * (now + 1)) / 32768) < 1e-4F);
        }
        QVERIFY(loaded_.size() >= files && loaded_.size() < files + files / 4); // some gave way to sooner ones
        QCOMPARE(warnings_, QStringList());
    }

    void lateOnesComeFirst()
    {
        SampleFeed feed(decoderOf(engine_), 48000, host(), 1);
        for (int i = 0; i < 10; ++i)
            feed.want(need(i));
        feed.wantNow(need(7));
        feed.work(0);
        QCOMPARE(loaded_.first(), file(7));
        finish(feed, 0);
        QCOMPARE(loaded_.size(), 10);
        QVERIFY(feed.find(need(3)).state == SampleFeed::State::Ready);
    }

    // What is in use is not given up, and what found no room is loaded when there is some.
    void roomForWhatSounds()
    {
        SampleFeed feed(decoderOf(engine_), 48000, host(), 0, 2 * sampleBytes);
        const auto need = [this](int number) { return SampleNeed{file(number), 1, sampleFrames, 0}; };
        std::vector<Sound> sounding;
        for (int i = 0; i < 2; ++i) {
            feed.want(need(i));
            feed.work(0);
            sounding.push_back(feed.find(need(i)).sound);
        }
        feed.wantNow(need(2));
        feed.work(10 * 48000);
        QVERIFY(feed.find(need(2)).state == SampleFeed::State::Loading && feed.lacksRoom() && feed.isIdle());
        sounding.pop_back();
        feed.work(10 * 48000);
        QVERIFY(feed.find(need(2)).state == SampleFeed::State::Ready && !feed.lacksRoom());
        QVERIFY(feed.find(need(0)).state == SampleFeed::State::Ready);
        QVERIFY(feed.find(need(1)).state == SampleFeed::State::Loading);
    }

    void whatCannotSoundIsSilent()
    {
        SampleFeed feed(decoderOf(engine_), 48000, host(), 2, 4 * sampleBytes);
        const auto junk = samples_.write(QStringLiteral("junk.wav"), QByteArray("RIFF") + QByteArray(100, 'x'));
        const auto huge = samples_.level(5, 5 * sampleFrames);
        for (const auto &path : {junk, huge, samples_.path(QStringLiteral("missing.wav")), QString()}) {
            const SampleNeed need{path, 1, endless, 0};
            feed.want(need);
            finish(feed, 0);
            finish(feed, 0);
            QCOMPARE(feed.find(need).state, SampleFeed::State::Silent);
        }
        QCOMPARE(warnings_.size(), 3);
        QVERIFY(warnings_[1].contains(QStringLiteral("too much memory")));
        const SampleNeed back{samples_.path(QStringLiteral("missing.wav")), 1, 10, 0}; // a drive that is there again
        QVERIFY(QFile::copy(file(1), back.path) && feed.isRejected(back.path));
        feed.tryAgain();
        feed.want(back);
        finish(feed, 0);
        finish(feed, 0);
        QCOMPARE(feed.find(back).state, SampleFeed::State::Ready);
        feed.want({file(1), 1e9, 10, 0});
        finish(feed, 0);
        QCOMPARE(feed.find({file(1), 1e9, 10, 0}).state, SampleFeed::State::Silent);
        QCOMPARE(feed.find({file(1), -1, 10, 0}).state, SampleFeed::State::Silent);
    }
};

QTEST_GUILESS_MAIN(TestSampleFeed)
#include "test_sample_feed.moc"
