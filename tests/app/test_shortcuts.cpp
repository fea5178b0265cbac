// The table of keys: what may have which key, how it is changed and kept, and that the manual has it.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/Rows.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/preferences/FixedKeys.h"
#include "ui/preferences/ShortcutsDialog.h"

#include <QAbstractButton>
#include <QFile>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QTreeWidget>

namespace {

QVector<KeyRow> allKeys(WindowFixture &fixture)
{
    QVector<KeyRow> rows;
    for (const auto *const action : fixture.window().actions())
        if (!action->objectName().isEmpty())
            rows.append({QStringLiteral("window.") + action->objectName(), KeyScope::Window, plainText(action->text()),
                         keyOf(*action)});
    return rows + EditorWindows::keyRows() + fixedKeys();
}

const KeyRow &rowOf(const QVector<KeyRow> &rows, const QString &id)
{
    return *std::find_if(rows.begin(), rows.end(), [&](const KeyRow &row) { return row.id == id; });
}

template<typename Widget>
Widget *in(const QDialog &dialog, const char *name)
{
    return dialog.findChild<Widget *>(QLatin1String(name));
}

void select(QDialog &dialog, const QString &command)
{
    auto *const list = in<QTreeWidget>(dialog, "keys");
    list->setCurrentItem(list->findItems(command, Qt::MatchExactly | Qt::MatchRecursive).value(0));
}

void choose(QDialog &dialog, const QString &command, const QString &key)
{
    select(dialog, command);
    in<QKeySequenceEdit>(dialog, "keyWished")->setKeySequence(QKeySequence(key));
}

bool press(QDialog &dialog, const char *button)
{
    const bool isEnabled = in<QAbstractButton>(dialog, button)->isEnabled();
    in<QAbstractButton>(dialog, button)->click();
    return isEnabled;
}

} // namespace

class TestShortcuts : public QObject
{
    Q_OBJECT

private slots:
    void usualKeysAreFree()
    {
        WindowFixture fixture(demoGame);
        const auto rows = allKeys(fixture);
        QVERIFY(rows.size() > 150);
        for (const auto &row : rows) {
            const auto *const rival = Shortcuts().rivalOf(row, row.usual, rows);
            QVERIFY2(!rival, qPrintable(row.text + QStringLiteral(" and ") + (rival ? rival->text : QString())));
            QVERIFY2(row.kind == KeyRow::Kind::Fixed || !isTyped(row, row.usual), qPrintable(row.text));
        }
    }

    void conflicts_data()
    {
        const Rows<QString, QString, QString> row("command", "key", "rival");
        row("free", "window.actionPlay", "F12", "");
        row("of the same window", "window.actionPlay", "Ctrl+O", "window.actionOpen");
        row("fixed", "window.actionPlay", "Esc", "Cancel what takes long");
        row("of another window", "window.actionPlay", "Ctrl+Return", "");
        row("of a view of the editor", "editor.actionApply", "Ctrl+D", "roll.Duplicate Notes");
        row("of the editor, for a view", "roll.Duplicate Notes", "F5", "editor.actionPlayFromCaret");
        row("of the other view", "roll.Duplicate Notes", "Ctrl+Right", "roll.Move a Measure Later");
        row("of every text", "editor.actionApply", "Ctrl+Backspace", "Delete to the start of the word");
        row("typed", "editor.actionApply", "X", "typed");
        row("typed with Shift", "editor.actionApply", "Shift+X", "typed");
        row("not typed in the roll", "roll.Duplicate Notes", "X", "");
        row("shared by the table", "window.actionSave_Song", "Ctrl+S", "");
        row("its own", "window.actionOpen", "Ctrl+O", "");
    }

    void conflicts()
    {
        QFETCH(QString, command);
        QFETCH(QString, key);
        QFETCH(QString, rival);
        WindowFixture fixture(demoGame);
        const auto rows = allKeys(fixture);
        const auto &row = rowOf(rows, command);
        const auto *const found = Shortcuts().rivalOf(row, QKeySequence(key), rows);
        const auto said = found ? (found->kind == KeyRow::Kind::Fixed ? found->text : found->id) : QString();
        QCOMPARE(isTyped(row, QKeySequence(key)) ? QStringLiteral("typed") : said, rival);
    }

    void areChangedAndKept()
    {
        WindowFixture fixture(demoGame);
        QVERIFY(fixture.waitUntilLoaded());
        QVERIFY(fixture.import(jig, 3));
        fixture.inRow<QAbstractButton>(0, "btnEdit")->click();
        const auto keyOfAction = [&](const char *name) { return fixture.action(name)->shortcut().toString(); };
        const auto inDialog = [&](const std::function<void(QDialog &)> &act) {
            fixture.dialogs().inDialog = act;
            fixture.trigger("actionShortcuts");
        };
        inDialog([](QDialog &dialog) {
            choose(dialog, QStringLiteral("Play"), QStringLiteral("Ctrl+K, Ctrl+O")); // of which the last is taken
            QCOMPARE(in<QKeySequenceEdit>(dialog, "keyWished")->keySequence(), QKeySequence(QStringLiteral("Ctrl+O")));
            QVERIFY(in<QLabel>(dialog, "lblKeyNotice")->text().contains(QStringLiteral("Open")));
            QVERIFY(!press(dialog, "btnAssignKey")); // not in silence
            QVERIFY(press(dialog, "btnTakeKey"));
            choose(dialog, QStringLiteral("Apply"), QStringLiteral("X"));
            QVERIFY(!press(dialog, "btnAssignKey")); // typed
            choose(dialog, QStringLiteral("Apply"), QStringLiteral("F12"));
            QVERIFY(press(dialog, "btnAssignKey"));
            choose(dialog, QStringLiteral("Duplicate Notes"), QStringLiteral("X"));
            QVERIFY(press(dialog, "btnAssignKey"));
            choose(dialog, QStringLiteral("Next control"), QStringLiteral("F11"));
            QVERIFY(!press(dialog, "btnAssignKey")); // fixed
            dialog.accept();
        });
        QCOMPARE(keyOfAction("actionPlay"), QStringLiteral("Ctrl+O"));
        QCOMPARE(keyOfAction("actionOpen"), QString());
        const auto *const apply = fixture.window().findChild<QAction *>(QStringLiteral("actionApply"));
        QCOMPARE(apply->shortcut(), QKeySequence(Qt::Key_F12));
        QVERIFY2(apply->toolTip().endsWith(QStringLiteral("(F12)")), qPrintable(apply->toolTip()));

        fixture.makeWindow(); // at the next start
        QCOMPARE(keyOfAction("actionPlay"), QStringLiteral("Ctrl+O"));
        inDialog([](QDialog &dialog) {
            choose(dialog, QStringLiteral("Open"), QString());
            QVERIFY(press(dialog, "btnResetKey"));
            QVERIFY(in<QLabel>(dialog, "lblKeyNotice")->text().contains(QStringLiteral("Play")));
            choose(dialog, QStringLiteral("Play"), QString());
            QVERIFY(press(dialog, "btnResetKey"));
            choose(dialog, QStringLiteral("Open"), QString());
            QVERIFY(press(dialog, "btnResetKey"));
            choose(dialog, QStringLiteral("Stop"), QStringLiteral("F9"));
            QVERIFY(press(dialog, "btnAssignKey"));
            dialog.accept();
        });
        QCOMPARE(keyOfAction("actionPlay"), QString());
        QCOMPARE(keyOfAction("actionOpen"), QStringLiteral("Ctrl+O"));
        QCOMPARE(keyOfAction("actionStop"), QStringLiteral("F9"));
        inDialog([](QDialog &dialog) {
            choose(dialog, QStringLiteral("Play"), QStringLiteral("F12"));
            select(dialog, QStringLiteral("Stop"));
            QCOMPARE(in<QKeySequenceEdit>(dialog, "keyWished")->keySequence(), QKeySequence(Qt::Key_F9));
            QVERIFY(press(dialog, "btnResetAllKeys"));
            dialog.accept();
        });
        QCOMPARE(keyOfAction("actionStop"), QString());
        QCOMPARE(fixture.settings().value(Settings::Shortcuts).toString(), QString());
    }

    // One key saves the song or what is selected of it; another one for the song is always its own.
    void theKeyOfTheSelectionMayBeParted()
    {
        WindowFixture fixture(demoGame);
        QVERIFY(fixture.waitUntilLoaded());
        QVERIFY(fixture.import(jig, 3));
        fixture.trigger("actionSelect_All");
        QCOMPARE(fixture.action("actionSave_Song")->shortcut(), QKeySequence());
        fixture.settings().setValue(Settings::Shortcuts, QStringLiteral("window.actionSave_Song=Ctrl+Alt+S"));
        QCOMPARE(fixture.action("actionSave_Song")->shortcut(), QKeySequence(QStringLiteral("Ctrl+Alt+S")));
        QCOMPARE(fixture.action("actionSave_Selected")->shortcut(), QKeySequence(QStringLiteral("Ctrl+S")));
    }

    void rowsHaveKeys()
    {
        WindowFixture fixture(demoGame);
        QVERIFY(fixture.waitUntilLoaded());
        QVERIFY(fixture.import(jig, 3));
        fixture.window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&fixture.window()));
        QTRY_VERIFY(fixture.row(2)->isVisible());
        fixture.trigger("actionNext_Track"); // into the rows
        fixture.inRow<QWidget>(0, "cboInstrument")->setFocus();
        fixture.trigger("actionNext_Track");
        QCOMPARE(QApplication::focusWidget(), fixture.inRow<QWidget>(1, "cboInstrument"));
        const auto second = fixture.titles().at(1);
        fixture.trigger("actionMove_Down");
        QCOMPARE(fixture.titles().at(2), second);
        fixture.dialogs().enteredText = QStringLiteral("Reel");
        fixture.trigger("actionRename_Track");
        QCOMPARE(fixture.titles().at(2), QStringLiteral("Reel"));
        fixture.trigger("actionNext_Track"); // it is the last
        QCOMPARE(QApplication::focusWidget(), fixture.inRow<QWidget>(2, "cboInstrument"));
    }

    void theManualHasThem()
    {
        WindowFixture fixture(demoGame);
        QFile page(QStringLiteral(":/docs/manual/keys.md"));
        QVERIFY(page.open(QIODevice::ReadOnly));
        const auto text = QString::fromUtf8(page.readAll());
        QStringList missing;
        for (const auto &row : allKeys(fixture)) {
            const auto key = row.usual.toString().replace(QStringLiteral("Return"), QStringLiteral("Enter"));
            const QRegularExpression words(QStringLiteral("(^|[ (])%1([ ,;)]|$)").arg(QRegularExpression::escape(key)),
                                           QRegularExpression::MultilineOption);
            if (key.size() > 1 && row.kind == KeyRow::Kind::Changeable && !text.contains(words))
                missing.append(key + QStringLiteral(": ") + row.text);
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u'\n')));
    }
};

QTEST_MAIN(TestShortcuts)
#include "test_shortcuts.moc"
