#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "app/recovery/EndSignals.h"
#include "app/recovery/RecoveryDialog.h"
#include "ui/ValueDial.h"
#include "ui/editor/AbcEditorWindow.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>

#include <csignal>

// A window that is destroyed without having been closed leaves its journal as a crash does.
class TestRecovery : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowFixture> fixture_;

    SongSession &session() { return fixture_->window().session(); }
    QString folder() const { return fixture_->path("journals"); }
    AbcEditorWindow &openEditor(int row)
    {
        fixture_->inRow<QToolButton>(row, "btnEdit")->click();
        return *fixture_->window().findChildren<AbcEditorWindow *>().last();
    }
    // Three parts of which everything is changed, with a draft in an open editor and one of an editor that is closed.
    void work()
    {
        QVERIFY(fixture_->import(jig, 3));
        auto &tracks = fixture_->tracks();
        const auto ids = tracks.ids();
        tracks.setVolume({ids[0]}, 17);
        tracks.setPan({ids[1]}, -40);
        tracks.setMuted({ids[2]}, true);
        tracks.move(ids[2], 0);
        session().setMasterVolume(61);
        fixture_->dialogs().draftAnswer = Dialogs::DraftAnswer::KeepAsDraft;
        for (const int row : {0, 1}) {
            auto &document = openEditor(row).document();
            document.replaceText(document.text()->toPlainText() + QStringLiteral("[c9 ?\n"), QStringLiteral("Type"));
            QTRY_VERIFY(session().draft(tracks.ids()[row]));
        }
        fixture_->window().findChild<AbcEditorWindow *>()->close();
        QVERIFY(session().draft(tracks.ids()[0]) && session().draft(tracks.ids()[1]));
    }
    void crash()
    {
        QCoreApplication::processEvents();
        fixture_->makeWindow();
        QTRY_COMPARE(JournalFolder::recoverable(folder()).size(), 1); // written to its end
        QVERIFY(fixture_->waitUntilLoaded());
    }
    RecoveryDialog *dialog() { return fixture_->window().findChild<RecoveryDialog *>(); }
    QStringList shown()
    {
        QStringList rows;
        auto *const list = dialog()->findChild<QTreeWidget *>();
        for (int row = 0; row < list->topLevelItemCount(); ++row)
            rows.append(list->topLevelItem(row)->text(0) + u'|' + list->topLevelItem(row)->text(1) + u'|' +
                        list->topLevelItem(row)->text(3));
        return rows;
    }
    QPushButton *button(const char *name) { return dialog()->findChild<QPushButton *>(QLatin1String(name)); }
    int journals() { return int(QDir(folder()).entryList({QStringLiteral("*.journal")}).size()); }

private slots:
    void init()
    {
        fixture_ = std::make_unique<WindowFixture>(demoGame);
        QVERIFY(fixture_->waitUntilLoaded());
    }

    void bringsTheWholeSongBack()
    {
        work();
        const auto song = session().song();
        const auto name = session().name();
        QCOMPARE(song.parts.size(), 3);
        crash();
        QVERIFY(session().isBlank());
        fixture_->window().offerRecovery();
        QTRY_VERIFY(dialog() && dialog()->isVisible() && !shown().isEmpty());
        QCOMPARE(shown().join(u'\n'), QStringLiteral("%1|3|Not saved").arg(name));
        button("btnRecover")->click();
        QTRY_VERIFY(session().song() == song);
        QVERIFY(session().isUnsaved());
        QCOMPARE(fixture_->inRow<ValueDial>(1, "dlVolume")->value(), 17);
        QVERIFY(fixture_->row(0)->isMuted());
        QTRY_VERIFY(fixture_->inRow<QLabel>(0, "lblDraft")->isVisible());
        QVERIFY(!fixture_->inRow<QLabel>(2, "lblDraft")->isVisible());
        auto &editor = openEditor(0);
        QCOMPARE(editor.document().text()->toPlainText(), *song.parts[0].draft);
        QVERIFY(editor.isWindowModified());

        // The new journal has replaced the old one, and what is changed now is in it.
        QTRY_COMPARE(journals(), 1);
        fixture_->tracks().setVolume({fixture_->tracks().ids()[2]}, 5);
        const auto next = session().song();
        crash();
        const auto lost = JournalFolder::recoverable(folder());
        QVERIFY(JournalFolder::recover(lost.first().journal).song == next);
    }

    // A desktop that ends the program, and starts it again as it was told.
    void comesBackAfterALogOut()
    {
        work();
        auto &document = openEditor(0).document();
        document.replaceText(document.text()->toPlainText() + QStringLiteral("a"), QStringLiteral("Type"));
        QVERIFY(fixture_->window().keepForLater()); // what was typed at the last moment, too
        const auto song = session().song();
        QVERIFY(song.parts[0].draft->endsWith(u'a'));
        const auto restart = fixture_->window().restart();
        QVERIFY(!restart.journal.isEmpty() && restart.files.isEmpty());
        fixture_->makeWindow(); // while the other still has the journal
        QTRY_VERIFY(JournalFolder::isLeft(restart.journal));
        fixture_->window().restore(restart);
        QTRY_VERIFY(session().song() == song);
        QVERIFY(session().isUnsaved() && !dialog());

        const auto file = fixture_->path("song.kvsong");
        fixture_->dialogs().files = QStringList(file);
        QVERIFY(fixture_->waitUntilLoaded());
        fixture_->trigger("actionSave_Song");
        QVERIFY(fixture_->waitUntilSaved());
        const auto saved = fixture_->window().restart();
        QVERIFY(saved.journal.isEmpty() && fixture_->window().keepForLater());
        fixture_->dialogs().takeAsked();
        fixture_->makeWindow();
        fixture_->window().restore({restart.journal, saved.files}); // which is no more
        QTRY_COMPARE(session().file(), file);
        QVERIFY(!session().isUnsaved() && fixture_->dialogs().asked.isEmpty());
    }

#ifndef Q_OS_WIN
    void hearsThatItIsToEnd()
    {
        bool isTold = false;
        QObject context;
        onEndSignals(context, [&] { isTold = true; });
        std::raise(SIGTERM);
        QTRY_VERIFY(isTold);
    }
#endif

    // Over its own file a recovered song is saved as any other, unless the file is another one by now.
    void asksOnlyAboutAFileThatChanged()
    {
        work();
        auto &dialogs = fixture_->dialogs();
        const auto file = fixture_->path("song.kvsong");
        dialogs.files = QStringList(file);
        fixture_->trigger("actionSave_Song");
        QVERIFY(fixture_->waitUntilSaved());
        for (const bool isChanged : {false, true}) {
            fixture_->tracks().setVolume({fixture_->tracks().ids()[0]}, isChanged ? 9 : 8);
            const auto song = session().song();
            crash();
            if (isChanged)
                fixture_->write("song.kvsong", "of another program");
            fixture_->window().offerRecovery();
            QTRY_VERIFY(dialog() && !shown().isEmpty());
            button("btnRecover")->click();
            QTRY_VERIFY(session().song() == song && !dialog());
            dialogs.takeAsked();
            fixture_->trigger("actionSave_Song");
            QVERIFY(fixture_->waitUntilSaved());
            QCOMPARE(int(dialogs.takeAsked().size()), isChanged ? 1 : 0);
            QCOMPARE(session().isUnsaved(), isChanged);
        }
    }

    void keepsDiscardedSongs()
    {
        work();
        fixture_->dialogs().draftAnswer = Dialogs::DraftAnswer::Discard;
        fixture_->dialogs().closeAnswer = Dialogs::CloseAnswer::Discard;
        QVERIFY(fixture_->window().close());
        crash();
        QTRY_VERIFY(QDir(folder()).entryList({QStringLiteral("*.lock")}).isEmpty()); // it is written to its end
        fixture_->window().offerRecovery();                                          // nothing crashed
        fixture_->trigger("actionRecover");
        QTRY_VERIFY(dialog() && !shown().isEmpty());
        QVERIFY(shown().first().endsWith(QStringLiteral("|Discarded")));

        button("btnDelete")->click();
        QVERIFY(journals() == 1 && button("btnDelete")->isEnabled()); // asked first
        fixture_->dialogs().answer = Dialogs::Answer::Yes;
        button("btnDelete")->click();
        QTRY_VERIFY(!dialog());
        QCOMPARE(journals(), 0);
        fixture_->trigger("actionRecover");
        QTRY_COMPARE(fixture_->dialogs().messages.size(), 1);
    }

    void tellsWhatFails()
    {
        QVERIFY(fixture_->import(jig, 3));
        crash();
        fixture_->window().offerRecovery();
        QTRY_VERIFY(dialog() && !shown().isEmpty());
        const auto journal = JournalFolder::recoverable(folder()).first().journal;
        QVERIFY(QFile::remove(journal) && QDir().mkdir(journal)); // can be neither read nor deleted
        auto &dialogs = fixture_->dialogs();
        dialogs.answer = Dialogs::Answer::Yes;
        for (const auto *const name : {"btnRecover", "btnDelete"}) {
            QVERIFY(button(name)->isEnabled());
            button(name)->click();
            QTRY_COMPARE(dialogs.messages.size(), 1);
            QVERIFY(dialogs.takeMessages().first().startsWith(QStringLiteral("Recover Songs|")));
        }
        QTRY_VERIFY(!dialog()); // there is no song any more
    }

    void whatComesFromAJournalIsUnsaved()
    {
        TrackList tracks;
        SongSession opened(tracks);
        for (const auto origin : {OpenedSong::Origin::File, OpenedSong::Origin::Recovered}) {
            opened.open({{}, {}, {}, {}, origin, {}});
            QCOMPARE(opened.isUnsaved(), origin == OpenedSong::Origin::Recovered);
        }
    }

    void leavesNothingOfSavedSongs()
    {
        QVERIFY(fixture_->import(jig, 3));
        QTRY_COMPARE(journals(), 1);
        fixture_->dialogs().files =
            QStringList{fixture_->path("a.abc"), fixture_->path("b.abc"), fixture_->path("c.abc")};
        fixture_->trigger("actionSave_All");
        QTRY_VERIFY(!session().isUnsaved() && !fixture_->window().isSaving());
        QVERIFY(fixture_->window().close());
        QTRY_COMPARE(journals(), 0);
    }

    void showsWhatCannotBeRead()
    {
        QDir().mkpath(folder());
        fixture_->write("journals/foreign.journal", "no journal");
        fixture_->window().offerRecovery();
        QTRY_VERIFY(dialog() && !shown().isEmpty());
        QVERIFY(shown().first().endsWith(QStringLiteral("|Cannot be read")));
        QCOMPARE(dialog()->findChild<QLabel *>(QStringLiteral("lblNote"))->text(),
                 QStringLiteral("This is not a journal."));
        QVERIFY(!button("btnRecover")->isEnabled());
        button("btnLater")->click();
        QTRY_VERIFY(!dialog());
        QCOMPARE(journals(), 1);
    }

    void choosesAmongSongs_data()
    {
        const Rows<QString, QString, QString> row("rows", "note", "asks"); // of the buttons, and of a double click
        row("none", "", "", "");
        row("fresh", "0", "It was never saved as a song.", "recover a;remove a;recover a");
        row("discarded", "1", "Its song file: /b.kvsong", "recover b;remove b;recover b");
        row("broken", "2", "No journal.", "remove c");
        row("two", "0 2", "", "remove a,c");
    }
    void choosesAmongSongs()
    {
        QFETCH(QString, rows);
        RecoveryDialog chooser(RecoveryDialog::Occasion::Command);
        const auto name = [](const char *text) { return QString::fromLatin1(text); };
        chooser.setSongs({{name("a"), {}, 1, {}, {}, false, {}},
                          {name("b"), name("B"), 2, name("/b.kvsong"), {}, true, {}},
                          {name("c"), {}, 0, {}, {}, false, name("No journal.")}});
        QStringList asked;
        connect(&chooser, &RecoveryDialog::recoverRequested, this,
                [&](const QString &journal) { asked += QStringLiteral("recover ") + journal; });
        connect(&chooser, &RecoveryDialog::removeRequested, this,
                [&](const QStringList &journals) { asked += QStringLiteral("remove ") + journals.join(u','); });
        auto *const list = chooser.findChild<QTreeWidget *>();
        QVERIFY(list->topLevelItem(0)->isSelected());
        list->clearSelection();
        for (const auto &row : rows.split(u' ', Qt::SkipEmptyParts))
            list->topLevelItem(row.toInt())->setSelected(true);
        QTEST(chooser.findChild<QLabel *>(QStringLiteral("lblNote"))->text(), "note");
        for (const auto *const button : {"btnRecover", "btnDelete"})
            chooser.findChild<QPushButton *>(QLatin1String(button))->click();
        emit list->itemActivated(list->topLevelItem(0), 0);
        QTEST(asked.join(u';'), "asks");
    }

    void workGoesOnWithoutAJournal()
    {
        fixture_->write("journals", "in the way");
        QVERIFY(fixture_->import(jig, 3));
        auto *const problem = fixture_->child<QLabel>("journalProblem");
        QTRY_VERIFY(problem->isVisible());
        fixture_->tracks().setVolume({fixture_->tracks().ids()[0]}, 3);
        QVERIFY(QFile::remove(folder()));
        QTRY_VERIFY(!problem->isVisible());
        const auto song = session().song();
        crash();
        QVERIFY(JournalFolder::recover(JournalFolder::recoverable(folder()).first().journal).song == song);
    }
};

QTEST_MAIN(TestRecovery)
#include "test_recovery.moc"
