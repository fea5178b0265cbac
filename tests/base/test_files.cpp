#include "base/FilePaths.h"
#include "base/FileState.h"
#include "base/TextDecoding.h"
#include "support/Rows.h"
#include "support/TestFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <unistd.h>

// What is asked about files before they are read or replaced.
class TestFiles : public QObject
{
    Q_OBJECT

private slots:
    void knowsWhatIsInside_data()
    {
        const Rows<QString, QString, bool> row("directory", "path", "isInside");
        row("itself", "/a/b", "/a/b/", true);
        row("file", "/a/b", "/a/b/c", true);
        row("longer name", "/a/b", "/a/bc", false);
        row("above", "/a/b", "/a", false);
        row("there and back", "/a/b/", "/a/b/../b/./c", true);
        row("out again", "/a/b", "/a/b/../c", false);
        row("root", "/", "/a", true);
    }
    void knowsWhatIsInside()
    {
        QFETCH(QString, directory);
        QFETCH(QString, path);
        QTEST(isInside(directory, path), "isInside");
    }

    void followsLinksOut()
    {
        const TestFolder folder;
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("mod")));
        const auto mod = folder.path("mod");
        const auto within = folder.write("mod/a.json", "a"), outside = folder.write("b.json", "b");
        QVERIFY(QFile::link(within, folder.path("mod/same")) && QFile::link(outside, folder.path("mod/other")));
        QVERIFY(QFile::link(folder.path("none"), folder.path("mod/broken")));
        QVERIFY(!leadsOutOf(mod, within) && !leadsOutOf(mod, folder.path("mod/same")));
        QVERIFY(leadsOutOf(mod, folder.path("mod/other")) && leadsOutOf(mod, outside));
        QVERIFY(!leadsOutOf(mod, folder.path("mod/broken"))); // there is nothing
    }

    void expandsWildcards_data()
    {
        const Rows<QString, QString> row("path", "found");
        row("any ending", "*.mid", "[1] a.mid b.MID");
        row("one character", "?.mid", "b.MID");
        row("brackets are themselves", "[1]*", "[1] a.mid");
        row("folders, too", "s*", "song");
        row("none of them", "*.abc", "*.abc");
        row("in the name of a folder", "*/c.mid", "*/c.mid");
        row("plain", "b.mid", "b.mid");
    }
    void expandsWildcards()
    {
        QFETCH(QString, path);
        const TestFolder folder;
        for (const auto *const name : {"[1] a.mid", "b.MID", "c.kar", ".hidden.mid"})
            folder.write(name, {});
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("song")));
        auto paths = expandedWildcards(folder.path() + u'/' + path);
        for (auto &each : paths)
            each.remove(0, folder.path().size() + 1);
        QTEST(paths.join(u' '), "found");
        QCOMPARE(expandedWildcards(QStringLiteral("-")), QStringList(QStringLiteral("-")));
    }

    void decodes_data()
    {
        const Rows<QByteArray, QString, bool> row("bytes", "text", "isUtf8");
        row("utf-8", QByteArray("\xC3\xA4"), QStringLiteral("ä"), true);
        row("latin-1", QByteArray("a\xE4"), QStringLiteral("aä"), false);
        row("marks",
            QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF"
                       "a"),
            "a", false);
        row("utf-16", QByteArray("\xFF\xFE\xE4\0\x1E\x26\n", 7), QStringLiteral("ä\u261E"), false);
        row("utf-16, higher byte first", QByteArray("\xFE\xFF\0\xE4\x26\x1E", 6), QStringLiteral("ä\u261E"), false);
        row("a NUL", QByteArray("a\0b", 3), QString::fromLatin1("a\0b", 3), true);
        row("nothing", QByteArray(""), "", true);
    }
    void decodes()
    {
        QFETCH(QByteArray, bytes);
        QTEST(decodeText(bytes), "text");
        QTEST(isUtf8(bytes), "isUtf8");
    }

    void comparesTexts_data()
    {
        const Rows<QString, QString> row("file", "found"); // compared with "ääää": Same, Other, or nothing to compare
        row("same", QStringLiteral("ääää"), "Same");
        row("shorter", QStringLiteral("äää"), "Other");
        row("far longer", QString(100, u'a'), "Other");
        row("marked", QStringLiteral("\uFEFFääää"), "Same");
        row("four bytes each", QStringLiteral("\uFEFF𝄞𝄞"), "Other");
        row("not there", "", "-");
    }
    void comparesTexts()
    {
        QFETCH(QString, file);
        const TestFolder folder;
        const auto path = folder.path("a.abc");
        if (!file.isEmpty())
            folder.write("a.abc", file.toUtf8());
        const auto text = QStringLiteral("ääää");
        const bool isSame = holdsText(path, text), isOther = holdsAnotherText(path, text);
        QTEST(QString::fromLatin1(isSame && !isOther ? "Same" : isOther && !isSame ? "Other" : "-"), "found");
        QVERIFY(holdsText(folder.write("clefs", QStringLiteral("\uFEFF𝄞𝄞").toUtf8()), QStringLiteral("𝄞𝄞")));
        QVERIFY(!holdsText(folder.path(), text) && !holdsAnotherText(folder.path(), text)); // a folder
    }

    void seesProtectionAndChanges()
    {
        const TestFolder folder;
        const auto path = folder.path("a.abc");
        QCOMPARE(stampOf(path), QString());
        QCOMPARE(protectionOf(path), FileProtection::None);
        folder.write("a.abc", "one");
        const auto setTime = [&](int seconds) {
            QFile file(path);
            return file.open(QIODevice::ReadWrite) &&
                   file.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000 + seconds),
                                    QFileDevice::FileModificationTime);
        };
        QSet<QString> stamps;
        for (const int seconds : {0, 1, 0}) {
            QVERIFY(setTime(seconds));
            stamps += stampOf(path);
        }
        QCOMPARE(stamps.size(), 2);
        folder.write("a.abc", "four");
        QVERIFY(setTime(0));
        QVERIFY(!stamps.contains(stampOf(path)));
        QCOMPARE(protectionOf(path), FileProtection::None);
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteGroup));
        QCOMPARE(protectionOf(path), FileProtection::ReadOnly);
        const bool isRoot = geteuid() == 0;
        if (isRoot)
            QCOMPARE(chown(QFile::encodeName(path).constData(), 1, 1), 0);
        QCOMPARE(protectionOf(isRoot ? path : QStringLiteral("/")), FileProtection::OfAnotherUser);
    }
};

QTEST_GUILESS_MAIN(TestFiles)
#include "test_files.moc"
