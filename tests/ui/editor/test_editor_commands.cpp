// Commands of the editor that work on many notes at once, and what it shows of other parts.
#include "ui/EditorFixture.h"
#include "ui/editor/EditorCleanUp.h"
#include "ui/editor/GhostParts.h"
#include "ui/roll/PianoRoll.h"

#include <QMenu>
#include <QStatusBar>

class TestEditorCommands : public QObject
{
    Q_OBJECT

    static QVector<int> numbers(const QString &text)
    {
        QVector<int> numbers;
        for (const auto &number : text.split(u' ', Qt::SkipEmptyParts))
            numbers.append(number.toInt());
        return numbers;
    }

private slots:
    void cleansUp_data()
    {
        // notes: that are selected, before and after; cursor: in quarters
        const Rows<QString, int, QString, QString, QString, QString> row("body", "cursor", "notes", "command", "result",
                                                                         "selected");
        row("split", "C2 D\n", 1, "", "SplitNotes", "C C D\n", "");
        row("split what is chosen", "C2 D\n", 1, "0", "SplitNotes", "C C D\n", "0 1");
        row("join", "C C D\n", 0, "0 1", "JoinNotes", "C2 D\n", "0");
        row("join nothing", "C C D\n", 0, "", "JoinNotes", "C C D\n", "");
        row("legato", "C z D E|\n", 0, "0 1", "Legato", "C2 D E|\n", "0 1");
        row("legato of all", "C z D E|\n", 0, "", "Legato", "C2 D E|\n", "");
        row("nothing to change", "C D E F|\n", 0, "", "Legato", "C D E F|\n", "");
        row("double", "C z D E|\n", 0, "0", "DoubleLengths", "C2 D E|\n", "0");
        row("halve", "C2 D E|\n", 0, "0", "HalveLengths", "C z D E|\n", "0");
        row("quantise", "C9/8 D7/8 E F|\n", 0, "0 1", "Quantise", "C D E F|\n", "0 1");
        row("half way", "C9/8 D7/8 E F|\n", 0, "0 1", "QuantiseHalf", "C17/16 D15/16 E F|\n", "0 1");
        row("invert", "C D E\n", 0, "0", "InvertSelection", "C D E\n", "1 2");
        row("same pitch", "C D C\n", 0, "0", "SelectSamePitch", "C D C\n", "0 2");
        row("pitch range", "C D E G\n", 0, "0 2", "SelectPitchRange", "C D E G\n", "0 1 2");
        row("insert a measure", "C4|D4|\n", 4, "", "InsertMeasure", "C4| z4 |D4|\n", "");
        row("delete a measure", "C4|D4|E4|\n", 4, "", "DeleteMeasures", "C4|E4|\n", "");
        row("delete chosen measures", "C4|D4|E4|F4|\n", 0, "1 2", "DeleteMeasures", "C4|F4|\n", "");
        row("no measure", "C4|\n", 8, "", "DeleteMeasures", "C4|\n", "");
    }

    void cleansUp()
    {
        QFETCH(QString, body);
        QFETCH(int, cursor);
        QFETCH(QString, notes);
        QFETCH(QString, command);
        QFETCH(QString, result);
        QFETCH(QString, selected);
        EditorFixture editor(body);
        editor.show();
        auto &document = editor.window.document();
        editor.child<PianoRoll>("pianoRoll")->commands().placeCursor(cursor * ticksPerQuarter, 60);
        document.selectNotes(numbers(notes));
        QSignalSpy said(editor.window.findChild<EditorCleanUp *>(), &EditorCleanUp::said);
        editor.trigger(qPrintable(QStringLiteral("action") + command));
        QCOMPARE(editor.body(), result);
        QCOMPARE(document.selectedNotes(), numbers(selected));
        const bool isChange = body != result;
        QCOMPARE(document.canUndo(), isChange);
        QCOMPARE(said.isEmpty(),
                 isChange || notes != selected); // what cannot be done says why, until something changes
        const auto isShown = [&] {
            return !said.isEmpty() && editor.window.statusBar()->currentMessage() == said.last().first().toString();
        };
        QCOMPARE(isShown(), !said.isEmpty());
        editor.trigger("actionUndo");
        QCOMPARE(editor.body(), body);
        editor.text->insertPlainText(QStringLiteral("z"));
        QVERIFY(!isShown());
    }

    void choosesGhosts()
    {
        EditorFixture editor("C\n");
        auto &ghosts = editor.window.ghosts();
        const auto part = [](const char *title) {
            return std::make_shared<const Track>(
                parseAbc(QStringLiteral("X:1\nT:%1\nK:C\nC\n").arg(QLatin1String(title))));
        };
        ghosts.setParts({{QStringLiteral("T2"), part("Lute & Harp")}, {QStringLiteral("T3"), part("Bass")}});
        const auto &roll = *editor.child<PianoRoll>("pianoRoll");
        QMenu menu;
        const auto shown = [&] {
            ghosts.fill(menu);
            QStringList texts;
            for (const auto *const action : menu.actions())
                texts.append(action->text() + QLatin1String(action->isChecked()   ? "*"
                                                            : action->isEnabled() ? ""
                                                                                  : "-"));
            return texts.join(u'|') + u' ' + QString::number(roll.state().ghosts.size());
        };
        const auto choose = [&](int row) { menu.actions()[row]->trigger(); };
        QCOMPARE(shown(), QStringLiteral("&All Parts|&None-||Lute && Harp|Bass 0"));
        choose(4);
        QCOMPARE(shown(), QStringLiteral("&All Parts|&None||Lute && Harp|Bass* 1"));
        choose(0);
        QCOMPARE(shown(), QStringLiteral("&All Parts|&None||Lute && Harp*|Bass* 2"));
        choose(3);
        QCOMPARE(shown(), QStringLiteral("&All Parts|&None||Lute && Harp|Bass* 1"));
        ghosts.setParts({{QStringLiteral("T3"), part("Bass")}}); // what was chosen stays so
        QCOMPARE(shown(), QStringLiteral("&All Parts|&None||Bass* 1"));
        choose(1);
        QCOMPARE(shown(), QStringLiteral("&All Parts|&None-||Bass 0"));
    }
};

QTEST_MAIN(TestEditorCommands)
#include "test_editor_commands.moc"
