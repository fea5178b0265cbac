#include "assets/CostLimit.h"
#include "assets/InstrumentScan.h"
#include "assets/PackageWriter.h"
#include "support/TestFolder.h"

#include <QLoggingCategory>

#include <ctime>
#include <sys/resource.h>

namespace {
constexpr double secondsPerKilobyte = 0.05;
constexpr qint64 memoryPerKilobyte = 16 << 20;

// The sanitizers keep freed memory, so that what they leave cannot be told from what the scan takes.
#ifdef SANITIZED_PROGRAM
constexpr bool memoryTells = false;
#else
constexpr bool memoryTells = true;
#endif

qint64 peakMemory()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) * 1024;
}

QByteArray item(const QByteArray &name, const QByteArray &kind)
{
    return "{\"shortdescription\":\"" + name + "\",\"kind\":\"" + kind + "\",\"inventoryIcon\":\"i\"}";
}

QByteArray itemPath(int number)
{
    return "/items/instruments/" + QByteArray::number(number) + ".instrument";
}

QByteArray tuningPath(const QByteArray &kind)
{
    return "/sfx/instruments/" + kind + "/tuning.config";
}

// One note with `count` samples of the given name.
QByteArray tuning(int count, const QByteArray &name)
{
    const auto names = ('"' + name + "\",").repeated(count);
    return "{\"mapping\":{\"1\":{\"files\":[" + names.left(names.size() - 1) + "]}}}";
}

CurrentPackage oneInstrument(const QByteArray &kind, const QByteArray &tuningBytes)
{
    CurrentPackage package;
    package.add(itemPath(0), item("a", kind));
    package.add(tuningPath(kind), tuningBytes);
    return package;
}

// Every instrument has a kind of its own, and the tunings of all kinds are the same bytes.
QByteArray sharedTuning(int instruments)
{
    CurrentPackage package;
    const auto bytes = tuning(2048, "");
    package.add("/t", bytes);
    for (int i = 0; i < instruments; ++i) {
        const auto number = QByteArray::number(i);
        package.add(itemPath(i), item(number, number));
        package.addEntry(tuningPath(number), 16, bytes.size());
    }
    return package.bytes();
}

QByteArray sharedIcon(int instruments)
{
    CurrentPackage package;
    package.add("/items/instruments/i", picture(1024, 1024));
    package.add(tuningPath(""), "{}");
    for (int i = 0; i < instruments; ++i)
        package.add(itemPath(i), item(QByteArray::number(i), ""));
    return package.bytes();
}

QByteArray longPrefix()
{
    const QByteArray prefix(15000, 'p');
    CurrentPackage package;
    package.add("pak.modinfo", "{\"path\":\"" + prefix + "\"}");
    package.add('/' + prefix + itemPath(0), item("a", "k"));
    package.add('/' + prefix + tuningPath("k"), tuning(5000, ""));
    return package.bytes();
}

QByteArray manyNulls()
{
    CurrentPackage package;
    package.addMetadata("nulls", '\6' + vlq(60000) + QByteArray(60000, '\1'));
    return package.bytes();
}

// All files are in one leaf of tiny blocks, so that a look-up goes through the whole package.
QByteArray endlessLeaf(int instruments)
{
    LegacyPackage package;
    package.blockSize = 10;
    package.entriesPerLeaf = instruments + 2;
    package.content = "Assets1";
    for (int i = 0; i < instruments; ++i)
        package.files.emplace_back(QString::fromLatin1(itemPath(i)), "");
    return package.bytes();
}

// The root's only child has one only child, and so on down to the leaf.
QByteArray deepTree(int levels)
{
    std::vector<QByteArray> blocks;
    for (int i = 1; i <= levels; ++i)
        blocks.push_back("II" + QByteArray(1, '\0') + int32(0) + int32(i));
    blocks.push_back("LL" + int32(0));
    return legacyOf(blocks, 11);
}
} // namespace

// What strangers' packages cost the scan, for their size.
class TestHostilePackages : public QObject
{
    Q_OBJECT

private slots:
    void costsOfNothingEndAfterHalfASecond()
    {
        const CostLimit limit(0);
        const auto begin = std::clock();
        while (!limit.isReached() && std::clock() - begin < 2 * CLOCKS_PER_SEC)
            continue;
        const auto seconds = double(std::clock() - begin) / CLOCKS_PER_SEC; // of the processor, busy machine or not
        QVERIFY2(seconds > 0.45 && seconds < 0.8, qPrintable(QString::number(seconds)));
    }

    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("kelvarion.*=false")); }

    void costs_data()
    {
        const Rows<QByteArray> row("package");
        row("one icon for many instruments", sharedIcon(600));
        row("long kind in every sample",
            oneInstrument(QByteArray(255, 'k'), tuning(600, QByteArray("$instrument$").repeated(5))).bytes());
        row("endless kind in every sample",
            oneInstrument(QByteArray(15000, 'k'), tuning(60, QByteArray("$instrument$").repeated(60))).bytes());
        row("long prefix of every sample", longPrefix());
        row("unknown metadata", manyNulls());
        row("comments", oneInstrument("k", QByteArray("//\n").repeated(20000)).bytes());
        row("lists in lists", oneInstrument("k", QByteArray("[").repeated(60000)).bytes());
        row("look-ups through every block", endlessLeaf(1600));
        row("as many levels as blocks", deepTree(5000));
        // Last, as the peak of memory never falls.
        row("one tuning for many kinds", sharedTuning(400));
    }
    void costs()
    {
        QFETCH(QByteArray, package);
        const TestFolder game;
        game.write("mods/hostile.pak", package);

        const auto memory = peakMemory();
        const auto start = std::clock();
        const auto found = scanInstruments(game.path(), Mods::Load);
        const auto seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
        const auto kilobytes = package.size() / 1024 + 1;
        qInfo("%lld kB, %d instruments, %.3f s, %lld MiB", qint64(kilobytes), int(found.names().size()), seconds,
              (peakMemory() - memory) >> 20);
        QVERIFY(seconds <= secondsPerKilobyte * double(kilobytes));
        QVERIFY(!memoryTells || peakMemory() - memory <= memoryPerKilobyte * kilobytes);
    }
};

QTEST_GUILESS_MAIN(TestHostilePackages)
#include "test_hostile_packages.moc"
