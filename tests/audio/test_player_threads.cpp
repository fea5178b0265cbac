#include "RandomRequests.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/player/PlayerWorker.h"
#include "audio/render/RenderWorker.h"

#include <QtTest>

#include <deque>
#include <mutex>
#include <thread>

namespace {

using Request = std::function<void(PlayerWorker &)>;

// The audio thread as a TrackPlayer runs it, with a queue of our own: ThreadSanitizer does not see the locks inside
// Qt's and would take every argument that passes through it for a race.
class AudioThread
{
public:
    ~AudioThread()
    {
        post(nullptr);
        thread_.join();
    }

    void post(Request request)
    {
        const std::lock_guard lock(mutex_);
        queue_.push_back(std::move(request));
    }

    std::atomic<int> pressed = 0;

private:
    void run()
    {
        PlayerWorker worker([] { return std::make_unique<BuiltinEngine>(HeardOutput::Paced); });
        QObject::connect(&worker, &PlayerWorker::notePressed, &worker, [this] { ++pressed; });
        worker.initialize();
        while (const auto request = next()) {
            request(worker);
            worker.update();
        }
        worker.terminate();
    }

    Request next()
    {
        const std::lock_guard lock(mutex_);
        if (queue_.empty())
            return [](PlayerWorker &) { std::this_thread::sleep_for(std::chrono::milliseconds(1)); };
        auto request = std::move(queue_.front());
        queue_.pop_front();
        return request;
    }

    std::mutex mutex_;
    std::deque<Request> queue_;
    std::thread thread_{[this] { run(); }};
};

} // namespace

// The audio, mixer, render and decoding threads all at work.
class TestPlayerThreads : public QObject
{
    Q_OBJECT

private slots:
    void playingWhileRendering()
    {
        RandomRequests requests;
        const auto file = requests.files().path(QStringLiteral("song.wav"));
        std::thread rendering([&file, melody = requests.anyMelody(), instrument = requests.anyInstrument()] {
            const auto makeEngine = [](const QString &path) {
                return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, path.toStdU16String());
            };
            for (int i = 0; i < 3; ++i) {
                RenderWorker worker(RenderPlan::wave(file), makeEngine, 3);
                worker.addTrack(melody, instrument, {});
                worker.addTrack(melody, instrument, {1, 1});
                worker.__render();
            }
        });
        {
            AudioThread audio;
            std::stop_source stop;
            for (int i = 0; i < 500; ++i) {
                audio.post([token = stop.get_token(), request = requests.next<PlayerWorker>()](PlayerWorker &worker) {
                    if (!token.stop_requested())
                        request(worker);
                });
                if (i % 16 == 0) {
                    stop.request_stop();
                    stop = {};
                }
                if (i % 3 == 0)
                    std::this_thread::sleep_for(std::chrono::milliseconds(requests.pick(15)));
            }
            QTRY_VERIFY(audio.pressed > 10);
        }
        rendering.join();
        QVERIFY(QFile::exists(file));
    }
};

QTEST_GUILESS_MAIN(TestPlayerThreads)
#include "test_player_threads.moc"
