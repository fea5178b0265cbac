// The pages of the manual that are built into the program: their links and pictures, and how the window shows them.
#include "support/Rows.h"
#include "ui/ManualPage.h"
#include "ui/manual/ManualBrowser.h"
#include "ui/manual/ManualWindow.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextDocument>
#include <QWindow>

#include <functional>

namespace {

const auto contents = QStringLiteral(":/docs/manual/index.md");

QStringList allPages()
{
    QStringList pages{QStringLiteral(":/docs/command-line.md")};
    for (const auto &name : QDir(QStringLiteral(":/docs/manual")).entryList({QStringLiteral("*.md")}))
        pages.append(QStringLiteral(":/docs/manual/") + name);
    return pages;
}

void forEachFragment(const QString &page, const std::function<void(const QTextCharFormat &)> &tell)
{
    QFile file(page);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(page));
    QTextDocument document;
    document.setMarkdown(QString::fromUtf8(file.readAll()));
    for (auto block = document.begin(); block.isValid(); block = block.next()) {
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment)
            tell(fragment.fragment().charFormat());
    }
}

// What a page names, from its own place; addresses of the web apart.
QString target(const QString &page, const QString &name)
{
    return name.contains(u"://") ? QString() : QDir::cleanPath(QFileInfo(page).path() + u'/' + name);
}

QStringList linksOf(const QString &page)
{
    QStringList links;
    forEachFragment(page, [&](const QTextCharFormat &format) {
        if (const auto link = target(page, format.anchorHref()); format.isAnchor() && !link.isEmpty())
            links.append(link);
    });
    return links;
}

QStringList picturesOf(const QString &page)
{
    QStringList pictures;
    forEachFragment(page, [&](const QTextCharFormat &format) {
        if (format.isImageFormat())
            pictures.append(target(page, format.toImageFormat().name()));
    });
    return pictures;
}

} // namespace

class TestManual : public QObject
{
    Q_OBJECT

private slots:
    void hasWhatItNames_data()
    {
        const Rows<QString> row("page");
        for (const auto &page : allPages())
            row(qPrintable(page), page);
    }

    void hasWhatItNames()
    {
        QFETCH(QString, page);
        for (const auto &link : linksOf(page))
            QVERIFY2(QFile::exists(link), qPrintable(link));
        for (const auto &picture : picturesOf(page))
            QVERIFY2(!QImage(picture).isNull(), qPrintable(picture));
        QVERIFY2(page == contents || linksOf(contents).contains(page), "not in the contents");
    }

    // Else they are in every package for nothing.
    void showsEveryPicture()
    {
        QStringList shown;
        for (const auto &page : allPages())
            shown += picturesOf(page);
        const auto pictures = QDir(QStringLiteral(":/docs/manual/pictures")).entryInfoList();
        QVERIFY(pictures.size() >= 10);
        for (const auto &picture : pictures)
            QVERIFY2(shown.contains(picture.filePath()), qPrintable(picture.fileName()));
    }

    void fitsPicturesIntoItsWidth()
    {
        ManualBrowser browser;
        browser.resize(500, 400);
        browser.show();
        browser.setSource(QUrl(QStringLiteral("qrc:/docs/manual/window.md")));
        for (const int width : {500, 300, 1400}) {
            browser.resize(width, 400);
            QCoreApplication::processEvents();
            const QUrl name(QStringLiteral("qrc:/docs/manual/pictures/window.png"));
            const auto picture = browser.document()->resource(QTextDocument::ImageResource, name).value<QImage>();
            QVERIFY(picture.width() > width / 2 && picture.width() <= browser.viewport()->width());
            QCOMPARE(picture.width() == 900, width > 900);
        }
    }

    // The page of what has the keyboard. The window's handle gets the key before its widgets do.
    void keyOpensThePage()
    {
        ManualKey key;
        QCoreApplication::instance()->installEventFilter(&key);
        for (const auto &[page, opened] : {std::pair("export.md", "export.md"), {"", "index.md"}}) {
            QWidget window;
            auto *const line = new QLineEdit(&window);
            setManualPage(window, page);
            window.show();
            line->setFocus();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            QTest::keyClick(window.windowHandle(), Qt::Key_A);
            QVERIFY(!window.findChild<ManualWindow *>());
            QTest::keyClick(window.windowHandle(), Qt::Key_F1);
            QCOMPARE(window.findChildren<ManualWindow *>().size(), 1);
            QCOMPARE(window.findChild<QTextBrowser *>()->source().fileName(), QLatin1String(opened));
        }
    }

    void findsAndGoesBack()
    {
        QPointer<ManualWindow> manual(new ManualWindow(nullptr));
        manual->showPage(QStringLiteral("window.md"));
        manual->show();
        auto &browser = *manual->findChild<QTextBrowser *>();
        auto &search = *manual->findChild<QLineEdit *>();
        search.setText(QStringLiteral("song"));
        QTest::qWait(300); // until the button that clears it has faded in, which Qt leaks otherwise
        QVector<int> places;
        while (places.size() < 2 || places.last() > places[places.size() - 2]) { // until it begins again
            QTest::keyClick(&search, Qt::Key_Return);
            QCOMPARE(browser.textCursor().selectedText().toLower(), QStringLiteral("song"));
            places.append(browser.textCursor().position());
        }
        QCOMPARE(places.last(), places.first());

        const auto action = [&](const QString &text) {
            const auto actions = manual->findChildren<QAction *>();
            return *std::find_if(actions.begin(), actions.end(), [&](auto *one) { return one->text() == text; });
        };
        QVERIFY(!action(QStringLiteral("Back"))->isEnabled());
        action(QStringLiteral("Contents"))->trigger();
        QCOMPARE(browser.source().fileName(), QStringLiteral("index.md"));
        QVERIFY(action(QStringLiteral("Back"))->isEnabled());
        QVERIFY(QTest::qWaitForWindowActive(manual));
        QTest::keySequence(manual, QKeySequence(QKeySequence::Back));
        QCOMPARE(browser.source().fileName(), QStringLiteral("window.md"));
        QTest::keyClick(manual, Qt::Key_Escape);
        QTRY_VERIFY(!manual);
    }
};

QTEST_MAIN(TestManual)
#include "test_manual.moc"
