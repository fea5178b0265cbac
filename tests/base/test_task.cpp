#include "base/Interrupted.h"
#include "base/ParallelJobs.h"
#include "base/Task.h"
#include "support/Rows.h"
#include "support/Thrown.h"

#include <QtTest>

#include <atomic>
#include <new>
#include <numeric>
#include <stdexcept>
#include <thread>

Q_DECLARE_METATYPE(std::function<void()>)

// How many run at once, and the most of them so far.
class Crowd
{
public:
    void enter()
    {
        const auto now = ++inside_;
        for (auto most = most_.load(); most < now && !most_.compare_exchange_weak(most, now);) {
        }
    }
    void leave() { --inside_; }
    int most() const { return most_; }

private:
    std::atomic<int> inside_ = 0, most_ = 0;
};

class TestTask : public QObject
{
    Q_OBJECT

    using Throwing = std::function<void()>;

private slots:
    void deliversOnItsThread()
    {
        Task task;
        const auto *const here = QThread::currentThread();
        const QThread *worked = nullptr;
        task.start([](const TaskControl &) { return QThread::currentThread(); },
                   [&](const QThread *thread) {
                       QCOMPARE(QThread::currentThread(), here);
                       QVERIFY(!task.isRunning());
                       worked = thread;
                   },
                   [](const QString &error) { QFAIL(qPrintable(error)); });
        QVERIFY(task.isRunning());
        QTRY_VERIFY(worked);
        QVERIFY(worked != here);
    }

    void tellsWhatWasThrown_data()
    {
        const Rows<Throwing, QString> row("thrower", "text");
        row("text", Throwing([] { throw QStringLiteral("The file is broken."); }), "The file is broken.");
        row("memory", Throwing([] { throw std::bad_alloc(); }), "Not enough memory.");
        row("standard", Throwing([] { throw std::runtime_error("out of luck"); }), "out of luck");
        row("stopped", Throwing([] { throw Interrupted(); }), "Stopped.");
        row("anything", Throwing([] { throw 1; }), "Unknown failure.");
    }

    // Whether the work throws it or the one who takes the result.
    void tellsWhatWasThrown()
    {
        QFETCH(Throwing, thrower);
        for (const bool inWork : {true, false}) {
            Task task;
            QString told;
            const auto throwIf = [thrower](bool isDue) {
                if (isDue)
                    thrower();
                return 0;
            };
            task.start([=](const TaskControl &) { return throwIf(inWork); }, [=](int) { throwIf(true); },
                       [&](const QString &error) { told = error; });
            QTRY_VERIFY(!task.isRunning());
            QTEST(told, "text");
        }
    }

    void cancelledWorkDeliversNothing()
    {
        std::atomic<int> begun = 0, ended = 0, delivered = 0;
        const auto untilStopped = [&](const TaskControl &control) {
            ++begun;
            while (!control.stop().stop_requested())
                std::this_thread::yield();
            control.report(1, 2);
            return ++ended;
        };
        const auto count = [&](const auto &) { ++delivered; };
        Task task;
        task.onProgress(count);
        task.start(untilStopped, count, count);
        QTRY_COMPARE(begun.load(), 1);
        task.start(untilStopped, count, count); // cancels the first
        QTRY_COMPARE(begun.load(), 2);
        task.cancel();
        std::make_unique<Task>()->start(untilStopped, count, count); // and is gone
        JobPool::shared().wait();
        QCOMPARE(ended.load(), begun.load());
        QCoreApplication::processEvents();
        QCOMPARE(delivered.load(), 0);
        task.start(untilStopped, count, count);
        task.stop();
        QTRY_VERIFY(!task.isRunning());
        QVERIFY(delivered > 0);
    }

    void poolBoundsWhatWaits()
    {
        std::atomic<bool> isOpen = false;
        std::atomic<int> accepted = 0, done = 0;
        JobPool pool(1, 2);
        std::thread giver([&] {
            for (int i = 0; i < 5; ++i) {
                pool.start([&] {
                    while (!isOpen)
                        std::this_thread::yield();
                    ++done;
                });
                ++accepted;
            }
        });
        QTRY_COMPARE(accepted.load(), 3); // one runs, two wait
        QTest::qWait(20);
        QCOMPARE(accepted.load(), 3);
        isOpen = true;
        giver.join();
        pool.wait();
        QCOMPARE(done.load(), 5);
    }

    void progressIsThrottled()
    {
        Task task;
        QVector<int> told;
        task.onProgress([&](TaskProgress progress) { told.append(progress.done); });
        QElapsedTimer clock;
        clock.start();
        task.start(
            [](const TaskControl &control) {
                for (int step = 0; step < 300; ++step) {
                    control.report(step, 300);
                    std::this_thread::sleep_for(std::chrono::milliseconds(1));
                }
                return 0;
            },
            [&](int) { told.append(300); }, [](const QString &error) { QFAIL(qPrintable(error)); });
        QTRY_COMPARE(told.value(told.size() - 1), 300);
        QVERIFY(std::is_sorted(told.begin(), told.end()));
        QVERIFY(told.size() > 2 && told.size() <= clock.elapsed() / 50 + 2);
    }

    // Whatever the number of threads; what is larger than the budget runs, alone.
    void budgetBoundsWhatRuns_data()
    {
        const Rows<int, int> row("bytes", "most");
        row("free", 0, 4);
        row("half", 50, 2);
        row("more than half", 51, 1);
        row("too large", 1000, 1);
    }

    void budgetBoundsWhatRuns()
    {
        QFETCH(int, bytes);
        QFETCH(int, most);
        ByteBudget budget(100);
        Crowd crowd;
        QVector<int> taken;
        ParallelJobs jobs(
            4, [] {}, budget);
        int next = 0;
        jobs.run<int>([&]() -> std::optional<Job<int>> {
            if (next == 12)
                return std::nullopt;
            const auto work = [&, number = next++] {
                crowd.enter();
                std::this_thread::sleep_for(std::chrono::milliseconds(number % 3 == 0 ? 15 : 5));
                crowd.leave();
                return number;
            };
            return Job<int>{work, [&](int number) { taken.append(number); }, std::size_t(bytes)};
        });
        QVERIFY(crowd.most() <= most);
        QVector<int> all(12);
        std::iota(all.begin(), all.end(), 0);
        QCOMPARE(taken, all);
    }

    // In the order in which they came; whoever gives up makes room, and whoever goes takes nothing along.
    void budgetIsGivenInOrder()
    {
        ByteBudget budget(100);
        QString granted;
        std::vector<std::unique_ptr<ByteShare>> shares;
        for (const auto &[name, bytes] : {std::pair('a', 60), {'b', 50}, {'c', 40}, {'d', 40}, {'e', 0}, {'f', 100}}) {
            shares.push_back(std::make_unique<ByteShare>(budget, std::size_t(bytes)));
            shares.back()->ask([&granted, name = name] { granted += QLatin1Char(name); });
        }
        const auto after = [&](const char *expected) { return granted == QLatin1String(expected); };
        QVERIFY(after("ae")); // c has to stand behind b
        shares[1]->withdraw();
        QVERIFY(after("aec"));
        shares[3].reset(); // while it waits
        shares[0].reset();
        QVERIFY(after("aec"));
        shares[2].reset();
        QVERIFY(after("aecf"));
    }

    // A run that ends with a failure leaves neither work nor budget behind.
    void failingRunsAreOver()
    {
        ByteBudget budget(100);
        for (int repeat = 0; repeat < 20; ++repeat) {
            ParallelJobs jobs(
                2, [] {}, budget);
            int begun = 0;
            const auto failing = [&]() -> std::optional<Job<int>> {
                return Job<int>{[number = begun++]() -> int { throw QString::number(number); }, [](int) {}, 60};
            };
            QVERIFY(throws<QString>([&] { jobs.run<int>(failing); }));
            bool isGiven = false;
            jobs.run<int>([&]() -> std::optional<Job<int>> {
                if (std::exchange(isGiven, true))
                    return std::nullopt;
                return Job<int>{[] { return 7; }, [](int result) { QCOMPARE(result, 7); }, 100};
            });
        }
        ByteShare whole(budget, 100);
        bool isGranted = false;
        whole.ask([&] { isGranted = true; });
        QVERIFY(isGranted);
    }
};

QTEST_GUILESS_MAIN(TestTask)
#include "test_task.moc"
