// Packages and the scan, against plain reads of the same bytes. The packages are written for the run.
#include "assets/InstrumentScan.h"
#include "assets/PackageWriter.h"
#include "assets/package/KVAssetPakReader.h"
#include "assets/package/LegacyPakReader.h"
#include "support/Ratios.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtEndian>

#include <fcntl.h>
#include <malloc.h>
#include <sched.h>
#include <stdexcept>
#include <unistd.h>

namespace {

constexpr int manyFiles = 100'000;
constexpr int largeSize = 10'000'000;
constexpr int legacyBlockSize = 8192;
constexpr int packageCount = 50;
constexpr int instrumentsPerPackage = 4;
const auto large = QStringLiteral("/sfx/large.wav");

// A stretch of a file.
struct Piece
{
    qint64 offset;
    qint64 size;
};

QByteArray instrumentPath(const char *pattern, int number)
{
    return QByteArray(pattern).replace("NAME", "instrument" + QByteArray::number(number));
}

QByteArray tuningText()
{
    QByteArray text = "{ // How the notes of $instrument$ sound.\n  \"fadeout\": 0.25,\n  \"mapping\": {\n";
    for (int note = 21; note <= 108; ++note) {
        const auto file = note % 4 == 0 ? "\"file\": \"/sample-" + QByteArray::number(note) + ".ogg\", " : QByteArray();
        text += "    \"" + QByteArray::number(note) + "\": {" + file + "\"f\": " + QByteArray::number(note * 10.5) +
                (note < 108 ? "},\n" : "}\n");
    }
    return text + "  }\n}\n";
}

QByteArray iconBytes()
{
    QImage image(32, 32, QImage::Format_ARGB32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x)
            image.setPixel(x, y, qRgba(x * 8, y * 8, (x * y) & 255, 255));
    }
    QBuffer buffer;
    image.save(&buffer, "png");
    return buffer.data();
}

// Four instruments with their samples, as a package of the game has them.
QByteArray instrumentPackage(int number)
{
    CurrentPackage package;
    for (int i = number * instrumentsPerPackage; i < (number + 1) * instrumentsPerPackage; ++i) {
        const auto name = instrumentPath("NAME", i);
        package.add(instrumentPath("/items/instruments/NAME.instrument", i),
                    "{\"shortdescription\": \"" + name + "\", \"kind\": \"" + name + "\", \"inventoryIcon\": \"" +
                        name + ".png\"}");
        package.add(instrumentPath("/items/instruments/NAME.png", i), iconBytes());
        package.add(instrumentPath("/sfx/instruments/NAME/tuning.config", i), tuningText());
        for (int note = 24; note <= 108; note += 4)
            package.add(instrumentPath("/sfx/instruments/NAME/sample-", i) + QByteArray::number(note) + ".ogg",
                        QByteArray(20'000, char(note)));
    }
    return package.bytes();
}

// Every benchmark's input, made once.
class Packages
{
    const QTemporaryDir folder_;

public:
    static const Packages &get()
    {
        static const Packages packages;
        return packages;
    }

    QString path(const QString &name) const { return folder_.filePath(name); }
    QString instrumentPackagePath(int number) const { return path(QStringLiteral("game/assets/%1.pak").arg(number)); }

    const QString many = path(QStringLiteral("many.pak"));
    const QString shuffled = path(QStringLiteral("shuffled.pak"));
    const QString current = path(QStringLiteral("current.pak"));
    const QString legacy = path(QStringLiteral("legacy.pak"));
    const QString plain = path(QStringLiteral("plain.wav"));

private:
    Packages()
    {
        writeMany();
        const QByteArray contents(largeSize, 's');
        write(plain, contents);
        write(current, CurrentPackage({{large, contents}, {QStringLiteral("/small"), "s"}}).bytes());
        LegacyPackage package{{{large, contents}, {QStringLiteral("/small"), "s"}}};
        package.blockSize = legacyBlockSize;
        write(legacy, package.bytes());
        QDir().mkpath(path(QStringLiteral("game/assets")));
        for (int i = 0; i < packageCount; ++i)
            write(instrumentPackagePath(i), instrumentPackage(i));
    }

    void writeMany() const
    {
        CurrentPackage inOrder;
        CurrentPackage outOfOrder;
        for (int i = 0; i < manyFiles; ++i) {
            inOrder.addEntry(manyPath(i), i, 10);
            outOfOrder.addEntry(manyPath(int(qint64(i) * 7919 % manyFiles)), i, 10);
        }
        write(many, inOrder.bytes());
        write(shuffled, outOfOrder.bytes());
    }

    static QByteArray manyPath(int number)
    {
        return "/tiles/materials/rock" + QByteArray::number(number).rightJustified(6, '0') + ".material";
    }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
            fsync(file.handle()) != 0)
            throw std::runtime_error(path.toStdString());
    }
};

QByteArray readPlainFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw std::runtime_error(path.toStdString());
    return file.readAll();
}

// What any reader of the index must do: its bytes in memory and a hash of its names, in the simplest way.
QHash<QString, Piece> namesOf(const QByteArray &package)
{
    const char *at = package.constData() + qFromBigEndian<qint64>(package.constData() + 8) + 5;
    const auto number = [&at] {
        quint64 value = 0;
        while ((*at & 0x80) != 0)
            value = (value | quint64(*at++ & 0x7F)) << 7;
        return value | quint64(*at++);
    };
    number();
    QHash<QString, Piece> names;
    const auto count = number();
    names.reserve(int(count));
    for (quint64 i = 0; i < count; ++i) {
        const auto length = number();
        const auto name = QString::fromUtf8(at, int(length));
        at += length;
        names.insert(name, {qFromBigEndian<qint64>(at), qFromBigEndian<qint64>(at + 8)});
        at += 16;
    }
    return names;
}

void openPackage(benchmark::State &state, const QString &path)
{
    for (auto _ : state) {
        KVAssetPakReader reader(path);
        reader.open();
        benchmark::DoNotOptimize(reader);
    }
    state.SetItemsProcessed(state.iterations() * manyFiles);
}

void OpenPackage(benchmark::State &state)
{
    openPackage(state, Packages::get().many);
}

void OpenPackageOutOfOrder(benchmark::State &state)
{
    openPackage(state, Packages::get().shuffled);
}

void ReadAndHash(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(namesOf(readPlainFile(Packages::get().many)));
    state.SetItemsProcessed(state.iterations() * manyFiles);
}

template<typename Reader>
void getFile(benchmark::State &state, const QString &path)
{
    Reader reader(path);
    reader.open();
    for (auto _ : state)
        benchmark::DoNotOptimize(reader.getFile(large));
    state.SetBytesProcessed(state.iterations() * largeSize);
}

void GetFile(benchmark::State &state)
{
    getFile<KVAssetPakReader>(state, Packages::get().current);
}

void GetLegacyFile(benchmark::State &state)
{
    getFile<LegacyPakReader>(state, Packages::get().legacy);
}

// The blocks of a large file, each with a read of its own, as nothing says beforehand where the next one is.
void ReadBlocks(benchmark::State &state)
{
    QFile file(Packages::get().legacy);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw std::runtime_error("cannot read the legacy package");
    for (auto _ : state) {
        QByteArray contents;
        for (qint64 at = 512; contents.size() < largeSize; at += legacyBlockSize) {
            file.seek(at);
            contents.append(file.read(legacyBlockSize));
        }
        benchmark::DoNotOptimize(contents);
    }
    state.SetBytesProcessed(state.iterations() * largeSize);
}

void PlainRead(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(readPlainFile(Packages::get().plain));
    state.SetBytesProcessed(state.iterations() * largeSize);
}

// The next scan finds the packages on the disk only.
void forgetCachedPages()
{
    for (int i = 0; i < packageCount; ++i) {
        QFile file(Packages::get().instrumentPackagePath(i));
        if (!file.open(QIODevice::ReadOnly) || posix_fadvise(file.handle(), 0, 0, POSIX_FADV_DONTNEED) != 0)
            throw std::runtime_error("cannot drop cached pages");
    }
}

enum class Pages { Cached, OnDisk };

// The scan decodes on one core while it reads on another.
void useAllCores()
{
    cpu_set_t cores;
    CPU_ZERO(&cores);
    for (int core = 0; core < CPU_SETSIZE; ++core)
        CPU_SET(core, &cores);
    if (sched_setaffinity(0, sizeof cores, &cores) != 0)
        throw std::runtime_error("cannot use all cores");
}

// The packages stay cached by their paths, so every scan goes by another name of the game's folder.
void scan(benchmark::State &state, Pages pages)
{
    const auto game = Packages::get().path(QStringLiteral("game"));
    static int number = 0;
    useAllCores();
    InstrumentSet found;
    for (auto _ : state) {
        state.PauseTiming();
        found = {};
        const auto alias = Packages::get().path(QStringLiteral("alias%1").arg(++number));
        QFile::link(game, alias);
        if (pages == Pages::OnDisk)
            forgetCachedPages();
        state.ResumeTiming();
        found = scanInstruments(alias, Mods::Skip);
    }
    if (found.names().size() != packageCount * instrumentsPerPackage)
        state.SkipWithError("the scan did not find everything");
    state.SetItemsProcessed(state.iterations() * packageCount * instrumentsPerPackage);
}

// The bytes that a scan of a package needs: header, index, and every file but the samples.
std::vector<Piece> neededPieces(const QString &path)
{
    const auto package = readPlainFile(path);
    const auto indexAt = qFromBigEndian<qint64>(package.constData() + 8);
    std::vector<Piece> pieces{{0, 16}, {indexAt, package.size() - indexAt}};
    const auto names = namesOf(package);
    for (auto name = names.begin(); name != names.end(); ++name) {
        if (!name.key().endsWith(QStringLiteral(".ogg")))
            pieces.push_back(*name);
    }
    return pieces;
}

// The least that Qt takes for a file of an instrument.
void decodePlainly(QByteArray bytes)
{
    if (bytes.startsWith("\x89PNG"))
        benchmark::DoNotOptimize(QImage::fromData(bytes));
    if (!bytes.startsWith('{'))
        return;
    if (const auto comment = bytes.indexOf("//"); comment >= 0)
        bytes.remove(comment, bytes.indexOf('\n') - comment);
    const auto document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        throw std::runtime_error("an instrument is no JSON");
}

void keep(QByteArray bytes)
{
    benchmark::DoNotOptimize(bytes.constData());
}

void readNeeded(benchmark::State &state, Pages pages, void (*use)(QByteArray))
{
    useAllCores();
    std::vector<std::vector<Piece>> needed;
    for (int i = 0; i < packageCount; ++i)
        needed.push_back(neededPieces(Packages::get().instrumentPackagePath(i)));
    for (auto _ : state) {
        if (pages == Pages::OnDisk) {
            state.PauseTiming();
            forgetCachedPages();
            state.ResumeTiming();
        }
        for (int i = 0; i < packageCount; ++i) {
            QFile file(Packages::get().instrumentPackagePath(i));
            if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
                state.SkipWithError("cannot read a package");
            for (const auto &piece : needed[size_t(i)]) {
                file.seek(piece.offset);
                use(file.read(piece.size));
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * packageCount * instrumentsPerPackage);
}

void ScanFromDisk(benchmark::State &state)
{
    scan(state, Pages::OnDisk);
}

void ReadFromDisk(benchmark::State &state)
{
    readNeeded(state, Pages::OnDisk, keep);
}

void ScanFromCache(benchmark::State &state)
{
    scan(state, Pages::Cached);
}

void ReadAndDecode(benchmark::State &state)
{
    readNeeded(state, Pages::Cached, decodePlainly);
}

bool reportIndexMemory()
{
    const auto package = readPlainFile(Packages::get().many);
    const auto indexSize = package.size() - qFromBigEndian<qint64>(package.constData() + 8);
    const auto inUse = [] {
        const auto info = mallinfo2();
        return info.uordblks + info.hblkhd;
    };
    const auto before = inUse();
    KVAssetPakReader reader(Packages::get().many);
    reader.open();
    const auto used = double(inUse() - before);
    return report({"IndexMemory / index on disk", used / double(indexSize), 2.5, {}, Better::Less});
}

} // namespace

BENCHMARK(OpenPackage)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenPackageOutOfOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAndHash)->Unit(benchmark::kMillisecond);
BENCHMARK(GetFile)->Unit(benchmark::kMillisecond);
BENCHMARK(GetLegacyFile)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadBlocks)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainRead)->Unit(benchmark::kMillisecond);
BENCHMARK(ScanFromDisk)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ReadFromDisk)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ScanFromCache)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAndDecode)->UseRealTime()->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    const bool memoryIsGood = reportIndexMemory();
    const int status = runBenchmarks(argc, argv,
                                     {{"OpenPackage", "ReadAndHash", 1 / 3.0, 1},
                                      {"OpenPackageOutOfOrder", "ReadAndHash", 1 / 3.0, 1},
                                      {"GetFile", "PlainRead", 1 / 1.3, 1},
                                      {"GetLegacyFile", "ReadBlocks", 0.5, 1},
                                      {"ScanFromDisk", "ReadFromDisk", 0.5, 1},
                                      {"ScanFromCache", "ReadAndDecode", 1 / 3.0, 1}});
    return memoryIsGood ? status : 1;
}
