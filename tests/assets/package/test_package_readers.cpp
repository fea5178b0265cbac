#include "assets/PackageWriter.h"
#include "assets/package/KVAssetPakReader.h"
#include "assets/package/LegacyPakReader.h"
#include "support/Rows.h"
#include "support/Thrown.h"

#include <QBuffer>
#include <QTemporaryFile>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(LegacyPackage)

namespace {
// A package in memory that notes which bytes are read.
class RecordingDevice : public QIODevice
{
public:
    explicit RecordingDevice(QByteArray bytes) : bytes_(std::move(bytes)) {}

    qint64 size() const override { return bytes_.size(); }
    std::vector<std::pair<qint64, qint64>> reads; // start and length

protected:
    qint64 readData(char *target, qint64 maxSize) override
    {
        const auto count = std::clamp<qint64>(size() - pos(), 0, maxSize);
        reads.emplace_back(pos(), count);
        std::copy_n(bytes_.constData() + std::min(pos(), size()), count, target);
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray bytes_;
};

template<typename Reader>
std::unique_ptr<Reader> opened(const QByteArray &package)
{
    auto reader = std::make_unique<Reader>(std::make_unique<RecordingDevice>(package));
    reader->open();
    return reader;
}

QVariantMap metadataOf(const CurrentPackage &package)
{
    return opened<KVAssetPakReader>(package.bytes())->metadata();
}

NamedFiles manyFiles(int count)
{
    NamedFiles files;
    for (int i = 0; i < count; ++i)
        files.emplace_back(QStringLiteral("/sfx/ü%1.ogg").arg(i), QByteArray(i * 7 % 301, char('a' + i % 26)));
    return files;
}

QByteArray leaf(qint32 count, const QByteArray &stream = {})
{
    return "LL" + int32(count) + stream;
}

QByteArray index(qint32 count, qint32 firstChild, const QByteArray &pairs = {})
{
    return "II" + QByteArray(1, '\0') + int32(count) + int32(firstChild) + pairs;
}

// Fills a 64-byte block up to the reserved bytes, which name the next one.
QByteArray continued(const QByteArray &block, qint32 next)
{
    return block.leftJustified(60, 'v') + int32(next);
}

const auto file = QStringLiteral("/a");
} // namespace

class TestPackageReaders : public QObject
{
    Q_OBJECT

private slots:
    void metadataValues()
    {
        CurrentPackage package;
        package.addMetadata("double", QByteArray("\2\xC0\x04\0\0\0\0\0\0", 9));
        package.addMetadata("bool", "\3\xFF");
        package.addMetadata("null", "\1");
        package.addMetadata("list", "\6\2\5\2hi\3" + QByteArray(1, '\0'));
        package.addMetadata("map", "\7\1\1k\4\5");
        package.addMetadata("most", '\4' + vlq(~quint64(0)));
        package.addMetadata("bool", QByteArray("\3\0", 2));
        QTest::ignoreMessage(QtWarningMsg, "Unknown JSON element type in KVAsset6 file: 1");
        const QVariantMap expected{{QStringLiteral("double"), -2.5},
                                   {QStringLiteral("bool"), false},
                                   {QStringLiteral("null"), QVariant()},
                                   {QStringLiteral("list"), QVariantList{QStringLiteral("hi"), false}},
                                   {QStringLiteral("most"), ~quint64(0)},
                                   {QStringLiteral("map"), QVariantMap{{QStringLiteral("k"), quint64(5)}}}};
        QCOMPARE(metadataOf(package), expected);
    }

    void metadataNesting()
    {
        const auto open = [](int depth) {
            CurrentPackage package;
            package.addMetadata("deep", QByteArray("\6\1").repeated(depth) + QByteArray("\3\1"));
            return thrownBy([&] { opened<KVAssetPakReader>(package.bytes()); });
        };
        QCOMPARE(open(64), QStringLiteral("nothing"));
        QCOMPARE(open(65), QStringLiteral("Package metadata is nested too deeply."));
    }

    void currentRefusals_data()
    {
        const Rows<QByteArray, QString> row("package", "message");
        const auto good = CurrentPackage({{file, "x"}}).bytes();
        const auto with = [&good](int at, const QByteArray &bytes) {
            return QByteArray(good).replace(at, bytes.size(), bytes);
        };
        for (int i = 0; i < 8; ++i)
            QTest::addRow("magic %d", i) << with(i, "?") << QStringLiteral("Invalid Asset File Header.");
        row("empty", "", "Invalid Asset File Header.");
        row("negative index", with(8, int64(-1)), "Could not seek to .pak root");
        row("index past the end", with(8, int64(qint64(1) << 40)), "Invalid INDEX header.");
        row("no index there", with(8, int64(3)), "Invalid INDEX header.");
        row("no index offset", "KVAsset6", "Invalid INDEX header.");
    }
    void currentRefusals()
    {
        QFETCH(QByteArray, package);
        QTemporaryFile onDisk;
        QVERIFY(onDisk.open());
        onDisk.write(package);
        onDisk.close();
        KVAssetPakReader reader(onDisk.fileName());
        QTEST(thrownBy([&] { reader.open(); }), "message");
    }

    void missingPackages()
    {
        const auto nowhere = QStringLiteral("/no/such/package.pak");
        QCOMPARE(thrownBy([&] { KVAssetPakReader(nowhere).open(); }), QStringLiteral("Could not open file."));
        QCOMPARE(thrownBy([&] { LegacyPakReader(nowhere).open(); }), QStringLiteral("Could not open file."));
    }

    void currentFiles()
    {
        const auto tilde = QStringLiteral("/\uFF5E");                            // after the next in code points,
        const auto note = QStringLiteral("/") + QString::fromUtf8("\U0001D11E"); // before it in code units
        CurrentPackage package({{"/b", "old"}, {tilde, "t"}, {"/a", ""}, {note, "n"}, {"/b", "new"}});
        package.add("/broken\xFF", "kept");
        const auto reader = opened<KVAssetPakReader>(package.bytes());
        const auto broken = QStringLiteral("/broken\uFFFD");
        QCOMPARE(reader->fileList(), (QStringList{QStringLiteral("/a"), QStringLiteral("/b"), broken, note, tilde}));
        QCOMPARE(reader->getFile(QStringLiteral("/b")), QByteArray("new"));
        QCOMPARE(reader->getFile(broken), QByteArray("kept"));
        QCOMPARE(reader->getFile(note), QByteArray("n"));
        QVERIFY(reader->getFile(QStringLiteral("/a")).isEmpty());
        QVERIFY(!reader->hasFile(QStringLiteral("/B")));
        QCOMPARE(thrownBy([&] { reader->getFile(QStringLiteral("/B")); }), QStringLiteral("File not found"));
    }

    void currentLongPaths()
    {
        CurrentPackage package;
        const QByteArray path(40000, 'p');
        package.addEntry(path + "2", 0, 4);
        package.addEntry(path + "1", 3, 5);
        const auto reader = opened<KVAssetPakReader>(package.bytes());
        QCOMPARE(reader->getFile(QString::fromLatin1(path + "2")), QByteArray("KVAs"));
        QCOMPARE(reader->getFile(QString::fromLatin1(path + "1")), QByteArray("sset6"));
    }

    void entriesOutsideThePackage_data()
    {
        const Rows<qint64, qint64> row("offset", "size");
        const auto most = std::numeric_limits<qint64>::max();
        row("negative offset", -1, 4);
        row("negative size", 4, -4);
        row("past the end", 8, 1000);
        row("starts past the end", 1000, 0);
        row("a sum that overflows", 8, most);
        row("4 in 32 bits", 8, (qint64(1) << 32) + 4);
    }
    void entriesOutsideThePackage()
    {
        QFETCH(qint64, offset);
        QFETCH(qint64, size);
        CurrentPackage package;
        package.addEntry("/a", offset, size);
        const auto reader = opened<KVAssetPakReader>(package.bytes());
        QVERIFY(reader->hasFile(file));
        QCOMPARE(thrownBy([&] { reader->getFile(file); }), QStringLiteral("File entry lies outside of the package."));
        QByteArray bytes("kept");
        QTest::ignoreMessage(QtWarningMsg, "tryGetFile failed on /a: File entry lies outside of the package.");
        QVERIFY(!reader->tryGetFile(file, bytes));
        QCOMPARE(bytes, QByteArray("kept"));
    }

    // Whatever is missing at its end, a package still yields the entries that are whole.
    void shortenedIndex()
    {
        CurrentPackage package(manyFiles(20));
        package.addMetadata("about", "\5\3abc");
        package.entryCount = quint64(1) << 62;
        const auto whole = package.bytes();
        for (auto length = package.data.size() + 5; length <= whole.size(); ++length) {
            const auto reader = opened<KVAssetPakReader>(whole.left(length));
            const auto absent = whole.size() - length;
            const auto lost = (absent + 28) / 29; // an entry has at least 29 bytes, and at most 30
            QVERIFY(reader->fileList().size() <= 20 - absent / 30);
            QVERIFY(reader->fileList().size() >= 20 - lost);
        }
    }

    // The index may stand before the data, and must not be read to the package's end then.
    void indexFirst()
    {
        const QByteArray start = "KVAsset6" + int64(16) + "INDEX";
        CurrentPackage package;
        package.addEntry("/a", start.size() + 21, 3);
        const auto bytes = start + package.index() + "abc" + QByteArray(8 << 20, '\0');
        auto device = std::make_unique<RecordingDevice>(bytes);
        const auto &reads = device->reads;
        KVAssetPakReader reader(std::move(device));
        reader.open();
        QCOMPARE(reader.getFile(file), QByteArray("abc"));
        for (const auto &[at, length] : reads)
            QVERIFY(length <= 1 << 20);
    }

    void reopening()
    {
        auto device = std::make_unique<RecordingDevice>(CurrentPackage({{file, "abc"}}).bytes());
        const auto &reads = device->reads;
        KVAssetPakReader reader(std::move(device));
        reader.open();
        const auto once = reads.size();
        reader.open();
        reader.close();
        reader.open();
        QCOMPARE(reads.size(), once);
        reader.close();
        QVERIFY(reader.hasFile(file));
        QCOMPARE(reader.getFile(file), QByteArray("abc"));

        const auto legacy = opened<LegacyPakReader>(LegacyPackage{{{file, "abc"}}}.bytes());
        QVERIFY(legacy->hasFile(file));
        legacy->open();
        QCOMPARE(legacy->getFile(file), QByteArray("abc"));
    }

    void legacyFiles_data()
    {
        const Rows<LegacyPackage> row("package");
        const auto files = manyFiles(40);
        row("as it comes", {.files = files});
        row("older", {.files = files, .magic = "KVBF02"});
        row("bare table", {.files = files, .content = "Assets1"});
        row("second root", {.files = files, .secondRoot = true});
        row("large blocks", {.files = files, .blockSize = 2048, .fanOut = 60});
        row("one leaf of the smallest blocks", {.files = files, .blockSize = 10, .entriesPerLeaf = 100});
        row("empty", {});
    }
    void legacyFiles()
    {
        QFETCH(LegacyPackage, package);
        const auto reader = opened<LegacyPakReader>(package.bytes());
        QStringList names;
        for (const auto &[path, contents] : package.files) {
            names.append(path);
            QVERIFY(reader->hasFile(path));
            QCOMPARE(reader->getFile(path), contents);
        }
        QCOMPARE(reader->fileList(), names);
        QVERIFY(!reader->hasFile(QStringLiteral("/absent")));
        QCOMPARE(thrownBy([&] { reader->getFile(QStringLiteral("/absent")); }), QStringLiteral("File not found"));
    }

    void legacyTableWithoutItsEnd()
    {
        LegacyPackage package;
        package.withTable = false;
        QCOMPARE(thrownBy([&] { opened<LegacyPakReader>(package.bytes())->fileList(); }),
                 QStringLiteral("File table not found"));
        package.files = {
            {QStringLiteral("_index"), vlq(9) + vlq(1000) + prefixed("/a") + prefixed("x") + vlq(99) + "/b"}};
        QCOMPARE(opened<LegacyPakReader>(package.bytes())->fileList(), QStringList{file});
    }

    void legacyRefusals_data()
    {
        const Rows<int, QByteArray, QString> row("at", "bytes", "message");
        row("magic", 5, "1", "Invalid Block File Header.");
        row("database", 39, "5", "Invalid Database File Identifier.");
        row("longer database", 40, "x", "Invalid Database File Identifier.");
        row("content", 50, "3", "Invalid Database Content Identifier.");
        row("key size", 56, int32(16), "Invalid Database Key Size.");
        row("block size", 10, int32(9), "Invalid block size.");
        row("negative block size", 10, int32(-128), "Invalid block size.");
        row("negative header", 6, int32(-1), "Invalid header size.");
    }
    void legacyRefusals()
    {
        QFETCH(int, at);
        QFETCH(QByteArray, bytes);
        LegacyPackage package;
        const auto damaged = package.bytes().replace(at, bytes.size(), bytes);
        LegacyPakReader reader(std::make_unique<RecordingDevice>(damaged));
        QTEST(thrownBy([&] { reader.open(); }), "message");
        QTEST(thrownBy([&] { reader.hasFile(file); }), "message");
    }

    void legacyDamage_data()
    {
        const Rows<QByteArray, QString> row("package", "outcome");
        const auto key = keyOf("/a");
        const auto other = keyOf("/b");
        const auto value = leaf(1, key + prefixed("value"));
        row("no keys", legacyOf({index(0, 1), value}), "nothing");
        row("equal to a separator", legacyOf({index(1, 2, key + int32(1)), value, leaf(0)}), "nothing");
        row("no blocks", legacyOf({}), "Unknown block type found.");
        row("unknown root", legacyOf({"XX"}), "Unknown block type found.");
        row("child past the end", legacyOf({index(0, 7)}), "Unknown block type found.");
        row("negative child", legacyOf({index(0, -1)}), "Invalid block referred to by index");
        row("negative key count", legacyOf({index(-1, 1), value}), "Invalid index block key count.");
        row("too many keys", legacyOf({index(2, 1), value}), "Invalid index block key count.");
        row("a root that is its child", legacyOf({index(0, 0)}), "Block 0 is reached twice.");
        row("parents in a circle", legacyOf({index(0, 1), index(0, 2), index(0, 1)}), "Block 1 is reached twice.");
        row("negative entry count", legacyOf({leaf(-1)}), "Invalid leaf block entry count.");
        row("entries that are not there", legacyOf({continued(leaf(1 << 30), -1)}), "Premature end of leaf block");
        const auto whole = leaf(1, key + vlq(60));
        row("value without an end", legacyOf({continued(whole, -1)}), "Premature end of leaf block");
        row("negative continuation", legacyOf({continued(whole, -7)}), "Invalid leaf block continuation index '-7'");
        row("value goes on in an index", legacyOf({continued(whole, 1), "II"}), "Invalid leaf block continuation");
        row("value goes on past the end", legacyOf({continued(whole, 9)}), "Invalid leaf block continuation");
        row("value that bites its tail", legacyOf({continued(whole, 0)}), "Block 0 is reached twice.");
        const auto before = leaf(2, other + vlq(60));
        row("skipped value goes on in an index", legacyOf({continued(before, 1), "II"}),
            "Invalid Leaf block continuation block");
        row("endless value", legacyOf({continued(leaf(1, key + vlq(~quint64(0))), -1)}), "Premature end of leaf block");
        row("length goes on in an index", legacyOf({leaf(1, key) + int32(1), "II"}, 42),
            "Invlaid Leaf block continuation block");
        row("count beyond a tiny first block", legacyOf({"LL" + int32(1) + int32(-1)}, 10),
            "Premature end of leaf block");
    }
    void legacyDamage()
    {
        QFETCH(QByteArray, package);
        const auto reader = opened<LegacyPakReader>(package);
        QTEST(thrownBy([&] { reader->getFile(file); }), "outcome");
    }

    void legacyReaderSurvivesAFailure()
    {
        const bool aIsLower = keyOf("/a") < keyOf("/b");
        const auto middle = std::max(keyOf("/a"), keyOf("/b"));
        const auto good = leaf(1, keyOf("/a") + prefixed("value"));
        const auto bad = QByteArray("XX");
        const auto reader = opened<LegacyPakReader>(
            legacyOf({index(1, 1, middle + int32(2)), aIsLower ? good : bad, aIsLower ? bad : good}));
        QCOMPARE(thrownBy([&] { reader->hasFile(QStringLiteral("/b")); }), QStringLiteral("Unknown block type found."));
        QCOMPARE(reader->getFile(file), QByteArray("value"));
    }

    // Two children and two files a block: 512 files are eight index blocks deep, and a value of 200 bytes is two
    // blocks.
    void legacyLookupTouchesItsPathOnly()
    {
        LegacyPackage package;
        for (int i = 0; i < 512; ++i)
            package.files.emplace_back(QString::number(i), QByteArray(30, 'v'));
        package.withTable = false;
        auto device = std::make_unique<RecordingDevice>(package.bytes());
        auto &reads = device->reads;
        LegacyPakReader reader(std::move(device));
        reader.open();
        reads.clear();
        QCOMPARE(reader.getFile(QStringLiteral("77")).size(), 30);
        QVERIFY(reads.size() <= 8 + 2);
        for (const auto &[start, length] : reads) {
            QCOMPARE((start - package.headerSize) % package.blockSize, qint64(0));
            QCOMPARE(length, qint64(package.blockSize));
        }
    }
};

QTEST_GUILESS_MAIN(TestPackageReaders)
#include "test_package_readers.moc"
