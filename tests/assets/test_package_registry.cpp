#include "assets/PackageRegistry.h"
#include "assets/PackageWriter.h"
#include "assets/PakReader.h"
#include "assets/Thrown.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

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

    QTemporaryDir directory_;

    QString written(const QString &name, const QByteArray &bytes)
    {
        QFile file(directory_.filePath(name));
        QDir(directory_.path()).mkpath(QFileInfo(file).path());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the test's files");
        return file.fileName();
    }

private slots:
    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("contents");
        const NamedFiles files{{QStringLiteral("/a.ogg"), "sound"}, {QStringLiteral("a::b"), "odd"}};
        const auto current = written(QStringLiteral("C:/current.pak"), CurrentPackage(files).bytes());
        const auto legacy = written(QStringLiteral("legacy.pak"), LegacyPackage{files}.bytes());
        QTest::newRow("plain") << written(QStringLiteral("plain.ogg"), "loose") << QByteArray("loose");
        QTest::newRow("current") << pakFileName(current, QStringLiteral("/a.ogg")) << QByteArray("sound");
        QTest::newRow("legacy") << pakFileName(legacy, QStringLiteral("/a.ogg")) << QByteArray("sound");
        QTest::newRow("only the first colons part")
            << pakFileName(current, QStringLiteral("a::b")) << QByteArray("odd");
    }
    void names()
    {
        QFETCH(QString, name);
        QTEST(readGameFile(name), "contents");
        QTEST(readGameFile(name), "contents");
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("message");
        const auto package = written(QStringLiteral("some.pak"), CurrentPackage({{QStringLiteral("/a"), "x"}}).bytes());
        QTest::newRow("no colons") << QStringLiteral("pak://") + package << QStringLiteral("Invalid pak:// filename");
        QTest::newRow("absent inside") << pakFileName(package, QStringLiteral("/b"))
                                       << QStringLiteral("File not found");
        QTest::newRow("absent package") << pakFileName(QStringLiteral("/no.pak"), QStringLiteral("/b")) << incompatible;
        QTest::newRow("absent file") << QStringLiteral("/no/file") << QStringLiteral("Could not open file.");
        QTest::newRow("directory") << directory_.path() << QStringLiteral("Could not open file.");
        QTest::newRow("the scheme minds case")
            << QStringLiteral("PAK://x::y") << QStringLiteral("Could not open file.");
    }
    void refusals()
    {
        QFETCH(QString, name);
        QTEST(thrownBy([&] { readGameFile(name); }), "message");
    }

    void aRefusedPackageIsNotRemembered()
    {
        const auto path = written(QStringLiteral("late.pak"), "neither format");
        QCOMPARE(thrownBy([&] { OpenPackage{path}; }), incompatible);
        QCOMPARE(thrownBy([&] { OpenPackage{path}; }), incompatible);
        written(QStringLiteral("late.pak"), CurrentPackage({{QStringLiteral("/a"), "x"}}).bytes());
        QVERIFY(OpenPackage(path)->hasFile(QStringLiteral("/a")));
    }

    void oneReaderAPackage()
    {
        const auto path = written(QStringLiteral("cached.pak"), CurrentPackage({{QStringLiteral("/a"), "x"}}).bytes());
        const auto *first = OpenPackage(path).operator->();
        QCOMPARE(OpenPackage(path).operator->(), first);
    }

    void packagesAreClosedBetweenReads()
    {
        const auto path = written(QStringLiteral("closed.pak"), LegacyPackage{{{QStringLiteral("/a"), "x"}}}.bytes());
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
