#include "assets/PackageWriter.h"
#include "assets/package/PackageRegistry.h"
#include "assets/package/PakReader.h"
#include "support/TestFolder.h"
#include "support/Thrown.h"

namespace {
const auto incompatible = QStringLiteral("Could not find compatible pak reader.");

bool isOpenInThisProcess(const QString &path)
{
    const auto files = QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files | QDir::System);
    return std::any_of(files.begin(), files.end(), [&](const QFileInfo &file) { return file.symLinkTarget() == path; });
}
} // namespace

class TestPackageRegistry : public QObject
{
    Q_OBJECT

    const TestFolder folder_;
    const QByteArray package_ = CurrentPackage(NamedFiles{{"/a", "x"}}).bytes();

private slots:
    void names_data()
    {
        const Rows<QString, QByteArray> row("name", "contents");
        const NamedFiles files{{"/a.ogg", "sound"}, {"a::b", "odd"}};
        const auto current = folder_.write("C:/current.pak", CurrentPackage(files).bytes());
        const auto legacy = folder_.write("legacy.pak", LegacyPackage{files}.bytes());
        row("plain", folder_.write("plain.ogg", "loose"), "loose");
        row("current", pakFileName(current, QStringLiteral("/a.ogg")), "sound");
        row("legacy", pakFileName(legacy, QStringLiteral("/a.ogg")), "sound");
        row("only the first colons part", pakFileName(current, QStringLiteral("a::b")), "odd");
    }
    void names()
    {
        QFETCH(QString, name);
        QTEST(readGameFile(name), "contents");
        QTEST(readGameFile(name), "contents");
    }

    void refusals_data()
    {
        const Rows<QString, QString> row("name", "message");
        const auto package = folder_.write("some.pak", package_);
        row("no colons", QStringLiteral("pak://") + package, "Invalid pak:// filename");
        row("absent inside", pakFileName(package, QStringLiteral("/b")), "File not found");
        row("absent package", pakFileName(QStringLiteral("/no.pak"), QStringLiteral("/b")), incompatible);
        row("absent file", "/no/file", "Could not open file.");
        row("directory", folder_.path(), "Could not open file.");
        row("the scheme minds case", "PAK://x::y", "Could not open file.");
    }
    void refusals()
    {
        QFETCH(QString, name);
        QTEST(thrownBy([&] { readGameFile(name); }), "message");
    }

    void aRefusedPackageIsNotRemembered()
    {
        const auto path = folder_.write("late.pak", "neither format");
        QCOMPARE(thrownBy([&] { OpenPackage{path}; }), incompatible);
        QCOMPARE(thrownBy([&] { OpenPackage{path}; }), incompatible);
        folder_.write("late.pak", package_);
        QVERIFY(OpenPackage(path)->hasFile(QStringLiteral("/a")));
    }

    void oneReaderAPackage()
    {
        const auto path = folder_.write("cached.pak", package_);
        const auto *first = OpenPackage(path).operator->();
        QCOMPARE(OpenPackage(path).operator->(), first);
    }

    void packagesAreClosedBetweenReads()
    {
        const auto path = folder_.write("closed.pak", LegacyPackage{{{"/a", "x"}}}.bytes());
        {
            const OpenPackage package(path);
            if (!isOpenInThisProcess(path))
                QSKIP("this system does not tell which files are open");
        }
        QVERIFY(!isOpenInThisProcess(path));
        readGameFile(pakFileName(path, QStringLiteral("/a")));
        QVERIFY(!isOpenInThisProcess(path));
    }
};

QTEST_GUILESS_MAIN(TestPackageRegistry)
#include "test_package_registry.moc"
