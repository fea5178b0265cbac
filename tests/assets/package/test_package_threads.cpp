#include "assets/InstrumentScan.h"
#include "assets/PackageWriter.h"
#include "assets/package/PackageRegistry.h"
#include "support/TestFolder.h"

#include <atomic>
#include <thread>

// The window scans while several players load their samples, all through the one registry.
class TestPackageThreads : public QObject
{
    Q_OBJECT

    static constexpr int samples = 40;

    static QByteArray sample(int number) { return QByteArray(5000 + number, char('a' + number % 26)); }
    static QString samplePath(int number) { return QStringLiteral("/sfx/%1.ogg").arg(number); }

private slots:
    void manyReaders()
    {
        const TestFolder folder;
        auto files = instrumentFiles({}, "Lute");
        for (int i = 0; i < samples; ++i)
            files.emplace_back(samplePath(i), sample(i));
        const QStringList packages{folder.write("assets/a.pak", CurrentPackage(files).bytes()),
                                   folder.write("assets/b.pak", LegacyPackage{files}.bytes())};

        std::atomic<int> right = 0;
        const auto player = [&right, packages](int shift) {
            for (int i = 0; i < samples; ++i) {
                const auto number = (i + shift) % samples;
                for (const auto &package : packages)
                    right += readGameFile(pakFileName(package, samplePath(number))) == sample(number);
            }
        };
        const auto scan = [&right, &folder] {
            const auto found = scanInstruments(folder.path(), Mods::Skip);
            right += found.icon(QStringLiteral("Lute")).width() == 16;
        };
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back(player, i * 7);
        for (int i = 0; i < 2; ++i)
            threads.emplace_back(scan);
        for (auto &thread : threads)
            thread.join();
        QCOMPARE(right.load(), 4 * samples * 2 + 2);
    }
};

QTEST_GUILESS_MAIN(TestPackageThreads)
#include "test_package_threads.moc"
