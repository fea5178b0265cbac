#include "app/WindowFixture.h"
#include "core/AbcParser.h"
#include "support/Outline.h"
#include "ui/editor/AbcEditorWindow.h"

#include <QPushButton>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

// What is wrong with the window's song, at its rows and in the panel.
class TestSongFindings : public QObject
{
    Q_OBJECT

private slots:
    void showsAndMends()
    {
        WindowFixture fixture(QStringLiteral(DEMO_GAME));
        QVERIFY(fixture.waitUntilLoaded());
        auto &tracks = fixture.tracks();
        const auto track = parseAbc(QStringLiteral("X:1\nT:Air\nM:4/4\nL:1/4\nK:C\n|CEFG||C4|\n"));
        tracks.add(QStringLiteral("Add"), {{track, QString()}, {track, QString()}});
        const auto text = [&](int index) { return Track(*tracks.song()[index]->track).toAbc().section(u'\n', 5); };
        const auto mark = [&](int index) {
            auto *const button = fixture.inRow<QToolButton>(index, "btnFindings");
            return button->isVisible() ? button->text().toInt() : 0;
        };
        QTRY_COMPARE(mark(0), 2);

        fixture.inRow<QToolButton>(1, "btnFindings")->click();
        auto *const view = fixture.child<QTreeView>("findings");
        QVERIFY(view->isVisible());
        const auto place =
            QStringLiteral("    The bar line “|” makes an empty measure: the game is silent for it.|measure %1\n");
        const auto part = QStringLiteral("  Air|2\n") + place.arg(1) + place.arg(3);
        QCOMPARE(outline(*view->model()), QStringLiteral("Empty measures|4\n") + part + part);
        const auto hasIcon = [&](int column) {
            return view->model()->index(0, column).data(Qt::DecorationRole).isValid();
        };
        QVERIFY(hasIcon(0) && !hasIcon(1));
        QVERIFY(view->isExpanded(view->model()->index(1, 0, view->model()->index(0, 0))));
        fixture.child<QPushButton>("btnFixFinding")->click();
        QTRY_COMPARE(text(1), QStringLiteral("CEFG||C4|\n"));
        QTRY_COMPARE(mark(1), 1);
        QCOMPARE(mark(0), 2);

        fixture.child<QPushButton>("btnFixAllFindings")->setFocus();
        fixture.child<QPushButton>("btnFixAllFindings")->click();
        QTRY_COMPARE(text(0), QStringLiteral("CEFG|C4|\n"));
        QCOMPARE(text(1), text(0));
        QTRY_COMPARE(mark(0), 0);
        QVERIFY(!fixture.child<QPushButton>("btnFixAllFindings")->isEnabled());
        QCOMPARE(fixture.window().focusWidget(), view); // the keys stay in the panel
        fixture.trigger("actionUndo");                  // both
        QCOMPARE(text(0), QStringLiteral("|CEFG||C4|\n"));
        QCOMPARE(text(1), QStringLiteral("CEFG||C4|\n"));

        // A place is shown in the editor of its part.
        QTRY_COMPARE(mark(0), 2);
        const auto kind = view->model()->index(0, 0);
        emit view->clicked(view->model()->index(1, 0, view->model()->index(0, 0, kind)));
        auto &editor = *fixture.window().findChild<AbcEditorWindow *>();
        QTRY_COMPARE(editor.document().text()->toPlainText().mid(editor.document().caret().offset),
                     QStringLiteral("|C4|\n"));

        const auto many =
            QStringLiteral("X:1\nT:Air\nM:4/4\nL:1/4\nK:C\n") + QStringLiteral("C4||").repeated(502) + u'C';
        tracks.setTrack(QStringLiteral("Change"), tracks.ids()[1], parseAbc(many));
        QTRY_VERIFY(outline(*view->model()).contains(QStringLiteral("Empty measures|502+\n")));
        QVERIFY(outline(*view->model()).contains(QStringLiteral("  Air|500+\n")));

        for (const auto &[limit, found] : {std::pair(10, 3), {0, 2}}) {
            fixture.settings().setValue(Settings::CheckCharacters, limit);
            QTRY_COMPARE(mark(0), found);
        }
    }
};

QTEST_MAIN(TestSongFindings)
#include "test_song_findings.moc"
