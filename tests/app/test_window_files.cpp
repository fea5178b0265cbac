// How songs get into the window and out of it.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "app/services/RecentFiles.h"
#include "song/SongFile.h"
#include "support/MidiBytes.h"
#include "support/Rows.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/song/TrackVisualizationWidget.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolButton>
#include <QTreeView>

class TestWindowFiles : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowFixture> fixture_;

private slots:
    void init()
    {
        fixture_ = std::make_unique<WindowFixture>(demoGame);
        QVERIFY(fixture_->waitUntilLoaded());
    }

    void cleanup() { fixture_.reset(); }

    void importsMidi()
    {
        QVERIFY(fixture_->import(jig, 3));
        QCOMPARE(fixture_->dialogs().takeAsked(),
                 QStringList(QStringLiteral(
                     "Choose MIDI file to import...|MIDI files (*.mid);;Other endings of MIDI files (*.midi *.kar)")));
        QCOMPARE(fixture_->settings().value(Settings::MidiOpenDir).toString(), songs);
        QCOMPARE(fixture_->tracks().history().undoText(), QStringLiteral("Import MIDI"));
        QCOMPARE(fixture_->row(0)->instrumentName(), fixture_->child<QComboBox>("instrumentList")->currentText());
        fixture_->trigger("actionUndo");
        QVERIFY(fixture_->tracks().isEmpty());
        fixture_->trigger("actionRedo");
        QCOMPARE(fixture_->tracks().song().size(), 3);

        const int hymnTracks = int(importMidi(WindowFixture::read(hymn), {}).tracks.size());
        fixture_->dialogs().takeAsked();
        fixture_->dialogs().files = QStringList(hymn);
        fixture_->trigger("actionImport_MIDI"); // and the user cancels
        QCOMPARE(fixture_->dialogs().takeAsked().value(1),
                 QStringLiteral("Import MIDI|Would you like to remove the existing tracks first?"));
        QVERIFY(!fixture_->window().isLoading() && fixture_->tracks().song().size() == 3);
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::No;
        QVERIFY(fixture_->import(hymn, 3 + hymnTracks));
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::Yes;
        QVERIFY(fixture_->import(hymn, hymnTracks));
    }

    void tellsWhatAnImportLost()
    {
        const auto *const line = fixture_->child<QLabel>("importLine");
        auto *const report = fixture_->child<QTreeView>("importReport");
        fixture_->settings().setValue(Settings::MidiAutoRealign, false);
        const auto again = MidiBytes::noteOn(384, 60) + MidiBytes::noteOn(96, 60) + MidiBytes::noteOff(96, 60);
        QVERIFY(fixture_->import(fixture_->write("again.mid", MidiBytes::file({again + MidiBytes::endOfTrack()})), 1));
        QTRY_VERIFY(line->isVisible());
        QVERIFY2(line->text().startsWith(QStringLiteral("1 of 2 notes were struck again and lost - ")),
                 qPrintable(line->text()));
        emit const_cast<QLabel *>(line)->linkActivated({});
        QVERIFY(report->isVisible());
        auto *const model = report->model();
        fixture_->tracks().add(QStringLiteral("Add"), QVector<NewTrack>(12));
        auto *const bar = fixture_->child<QScrollArea>("scrTrackArea")->verticalScrollBar();
        QTRY_VERIFY(bar->maximum() > 0);
        bar->setValue(bar->maximum());
        emit report->clicked(model->index(0, 0, model->index(0, 0)));
        QTRY_COMPARE(bar->value(), 0); // where it can be seen
        QCOMPARE(fixture_->row(0)->findChild<TrackVisualizationWidget *>()->position(), ticksPerWholeNote);
        emit report->doubleClicked(model->index(0, 0, model->index(0, 0)));
        QVERIFY(fixture_->window().findChild<AbcEditorWindow *>());
        fixture_->trigger("actionUndo");
        fixture_->trigger("actionUndo");
        emit report->clicked(model->index(0, 0, model->index(0, 0))); // of a part that is gone
        fixture_->trigger("actionRedo");

        fixture_->dialogs().answerOrCancel = Dialogs::Answer::No;
        const auto whole = MidiBytes::noteOn(0, 60) + MidiBytes::noteOff(96, 60) + MidiBytes::endOfTrack();
        QVERIFY(fixture_->import(fixture_->write("whole.mid", MidiBytes::file({whole})), 2));
        QVERIFY(!line->isVisible() && model->rowCount() == 0);
        QVERIFY(fixture_->import(fixture_->path("again.mid"), 3));
        QTRY_VERIFY(line->isVisible());
        fixture_->dialogs().closeAnswer = Dialogs::CloseAnswer::Discard;
        fixture_->trigger("actionNew_Song");
        QVERIFY(!line->isVisible());
    }

    void asksAboutAbcThatTheGameReadsOtherwise()
    {
        auto &dialogs = fixture_->dialogs();
        const QByteArray tune("M:4/4\nL:1/4\nQ:1/4=120\nK:C\n|:CDEF:|\n");
        const auto book = fixture_->write("book.abc", "X:1\nT:A\n" + tune + "\nX:2\nT:B\n" + tune);
        dialogs.files = QStringList(book);
        dialogs.foreignAnswer = {};
        fixture_->trigger("actionOpen");
        QTRY_COMPARE(dialogs.asked.size(), 2);
        QVERIFY2(dialogs.takeAsked()[1].startsWith(QStringLiteral(
                     "Open Tracks|book.abc uses notation that the game reads otherwise: repeats, bar lines.")),
                 "named");
        QVERIFY(fixture_->tracks().isEmpty());

        dialogs.foreignAnswer = Dialogs::ForeignAnswer::OpenAsItIs;
        fixture_->trigger("actionOpen");
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
        QCOMPARE(fixture_->row(0)->shown()->track->noteCount(), 4);

        dialogs.foreignAnswer = Dialogs::ForeignAnswer::Convert;
        dialogs.files.append(fixture_->write("whole.abc", "X:1\nT:C\n" + tune)); // of one tune
        dialogs.inDialog = [](QDialog &chooser) {
            chooser.findChild<QListWidget *>()->item(0)->setCheckState(Qt::Unchecked);
            chooser.accept();
        };
        fixture_->trigger("actionOpen");
        QTRY_COMPARE(fixture_->tracks().song().size(), 4);
        QCOMPARE(fixture_->titles().join(u' '), QStringLiteral("A B B C"));
        QCOMPARE(fixture_->row(2)->shown()->track->noteCount(), 8);

        dialogs.inDialog = [](QDialog &again) { again.accept(); };
        fixture_->trigger("actionImport_Again"); // and takes both tunes now
        QTRY_COMPARE(fixture_->titles().join(u' '), QStringLiteral("A B A B C"));

        fixture_->settings().setValue(Settings::AbcForeign, int(ForeignAbc::Convert));
        dialogs.takeAsked();
        dialogs.answerOrCancel = Dialogs::Answer::Yes;
        fixture_->settings().setValue(Settings::AbcForeign, int(ForeignAbc::Ask));
        dialogs.foreignAnswer = {};
        dialogs.files.clear();
        for (int i = 0; i < 23; ++i)
            dialogs.files.append(fixture_->write(qPrintable(QStringLiteral("%1.abc").arg(i)), "X:1\nT:A\n" + tune));
        fixture_->trigger("actionOpen");
        QTRY_VERIFY(dialogs.asked.join(u' ').contains(QStringLiteral("bar lines.\nSo do 3 more.\n")));
        fixture_->settings().setValue(Settings::AbcForeign, int(ForeignAbc::Convert));
        dialogs.takeAsked();
        fixture_->drop({book});
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
        QCOMPARE(dialogs.asked.size(), 1); // about the tracks that were there
    }

    void importsAgainWithOtherSettings()
    {
        auto *const again = fixture_->action("actionImport_Again");
        QVERIFY(!again->isEnabled());
        fixture_->settings().setValue(Settings::MidiAutoRealign, false);
        const auto notes = MidiBytes::noteOn(0, 60) + MidiBytes::noteOn(96, 60) + MidiBytes::noteOff(96, 60);
        const auto file = fixture_->write("again.mid", MidiBytes::file({notes + MidiBytes::endOfTrack()}));
        QVERIFY(fixture_->import(file, 1));
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::No;
        QVERIFY(fixture_->import(jig, 4));
        fixture_->tracks().setVolume({QStringLiteral("T1")}, 30);
        const auto before = fixture_->tracks().song();
        fixture_->dialogs().inDialog = [](QDialog &dialog) {
            dialog.findChild<QCheckBox *>(QStringLiteral("chkEndRestruck"))->click();
            dialog.accept();
        };
        QVERIFY(again->isEnabled());
        again->trigger();
        QTRY_COMPARE(fixture_->tracks().history().undoText(), QStringLiteral("Import Again"));
        const auto &after = fixture_->tracks().song();
        QVERIFY(after.size() == 4 && after[0]->id == u"T1" && after[0]->volume == 30);
        QCOMPARE(after[0]->track->noteCount(), 2);
        QVERIFY(fixture_->window().session().imports()[0].settings[QStringLiteral("midi/endRestruck")].toBool());
        fixture_->trigger("actionUndo");
        QCOMPARE(fixture_->tracks().song(), before);
        QCOMPARE(fixture_->window().session().song().parts[3].import, QStringLiteral("I2"));

        fixture_->dialogs().foreignAnswer = Dialogs::ForeignAnswer::Convert;
        QGuiApplication::clipboard()->setText(QStringLiteral("X:1\nK:C\n|:{D}C:|\n"));
        fixture_->trigger("actionImport_from_Clipboard");
        QTRY_COMPARE(fixture_->tracks().song().size(), 5);
        fixture_->dialogs().inDialog = [](QDialog &dialog) {
            dialog.findChild<QComboBox *>(QStringLiteral("cboFile"))->setCurrentIndex(2);
            dialog.findChild<QCheckBox *>(QStringLiteral("chkGraceNotes"))->click();
            dialog.accept();
        };
        again->trigger();
        QTRY_COMPARE(fixture_->tracks().song()[4]->track->noteCount(), 2);
        fixture_->tracks().remove({}, {QStringLiteral("T1")});
        fixture_->dialogs().inDialog = [](QDialog &dialog) {
            QCOMPARE(dialog.findChild<QComboBox *>(QStringLiteral("cboFile"))->count(), 2); // that have parts
            dialog.reject();
        };
        again->trigger();
    }

    void findsPartsAgainByTheirNames()
    {
        QVERIFY(fixture_->import(jig, 3));
        const auto titles = fixture_->titles();
        fixture_->tracks().setVolume({QStringLiteral("T3")}, 30);
        fixture_->row(0)->onRemoveClicked();
        fixture_->trigger("actionImport_Again");
        QTRY_COMPARE(fixture_->titles(), titles);
        QCOMPARE(fixture_->tracks().song()[2]->volume, 30);
    }

    void keepsTheTracksWhenNothingIsRead_data()
    {
        const Rows<QVector<QByteArray>, QString> row("files", "message"); // with the folder's name left out
        const auto silent = MidiBytes::file({MidiBytes::endOfTrack()});
        row("one", {"MThd"}, "Error while reading MIDI file|0.mid: Invalid MIDI file.");
        row("without notes", {silent}, "Error while reading MIDI file|0.mid: There are no notes in it.");
        row("several", {silent, "MThd"},
            "Error while reading MIDI file|0.mid: There are no notes in it.\n1.mid: Invalid MIDI file.");
        row("many", QVector<QByteArray>(22, "MThd"), "2 more could not be read.");
    }
    void keepsTheTracksWhenNothingIsRead()
    {
        QVERIFY(fixture_->import(jig, 3));
        QFETCH(QVector<QByteArray>, files);
        QFETCH(QString, message);
        QStringList paths;
        for (const auto &bytes : files)
            paths.append(fixture_->write(qPrintable(QStringLiteral("%1.mid").arg(paths.size())), bytes));
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::Yes; // to remove the tracks
        fixture_->drop(paths);
        QTRY_COMPARE(fixture_->dialogs().messages.size(), 1);
        QTest::qWait(20);
        const auto shown = fixture_->dialogs().messages.join(u'/').remove(fixture_->path("") + u'/');
        QVERIFY2(shown.endsWith(message) && shown.count(u'\n') <= 20, qPrintable(shown));
        QCOMPARE(fixture_->tracks().song().size(), 3);
    }

    void opensAbcFilesAndGoesOnAfterABadOne()
    {
        fixture_->dialogs().files = QStringList{fixture_->write("one.abc", abc("One")), fixture_->path("missing.abc"),
                                                fixture_->write("two.abc", abc("Two"))};
        fixture_->trigger("actionOpen");
        QTRY_COMPARE(fixture_->titles(), (QStringList{QStringLiteral("One"), QStringLiteral("Two")}));
        QCOMPARE(fixture_->dialogs().messages,
                 QStringList(
                     QStringLiteral("Error while reading ABC file|%1: Could not open file: No such file or directory.")
                         .arg(fixture_->path("missing.abc"))));
        QCOMPARE(fixture_->dialogs().asked,
                 QStringList(QStringLiteral("Choose ABC file(s) to open|ABC files (*.abc);;Songs (*.kvsong);;All music "
                                            "(*.abc *.kvsong *.mid *.midi *.kar *.mml)")));
        QCOMPARE(fixture_->tracks().filePath(QStringLiteral("T1")), fixture_->path("one.abc"));
        QVERIFY(fixture_->tracks().unsavedIds().isEmpty());
    }

    void givesTracksTheInstrumentOfTheirHeader()
    {
        const auto last = fixture_->child<QComboBox>("instrumentList")->itemText(3);
        QGuiApplication::clipboard()->setText(
            QString::fromUtf8(abc("Named", "1/4=120", qPrintable(QStringLiteral("I:Instrument:%1\n").arg(last)))));
        fixture_->trigger("actionImport_from_Clipboard");
        QTRY_COMPARE(fixture_->tracks().song().size(), 1);
        QCOMPARE(fixture_->row(0)->instrumentName(), last);

        QTest::ignoreMessage(QtWarningMsg, "Unknown: there is no instrument 'Kazoo'");
        QGuiApplication::clipboard()->setText(QString::fromUtf8(abc("Unknown", "1/4=120", "I:Instrument:Kazoo\n")));
        fixture_->trigger("actionImport_from_Clipboard");
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
        QCOMPARE(fixture_->row(1)->instrumentName(), fixture_->child<QComboBox>("instrumentList")->currentText());
    }

    void pastes_data()
    {
        const Rows<QString, int> row("text", "tracks");
        row("abc", QString::fromUtf8(abc("Pasted")), 1);
        row("two tunes", QString::fromUtf8(abc("A") + "\n" + abc("B")), 2);
        row("lower case", "x:1\nK:C\nCDE\n", 0);
        row("mml", "MML@cdefg,c2e2;", 2);
        row("lower-case mml", "mml@cdefg;", 0);
        row("prose", "Dear diary", 0);
    }
    void pastes()
    {
        QFETCH(QString, text);
        QGuiApplication::clipboard()->setText(text);
        fixture_->trigger("actionImport_from_Clipboard");
        QTRY_VERIFY(!fixture_->window().isLoading());
        QTEST(int(fixture_->tracks().song().size()), "tracks");
        QVERIFY(fixture_->dialogs().asked.isEmpty() && fixture_->dialogs().messages.isEmpty());
    }

    void pastesFiles()
    {
        const auto midi = fixture_->path("song.MIDI");
        QVERIFY(QFile::copy(jig, midi));
        auto *const urls = new QMimeData;
        urls->setUrls({QUrl::fromLocalFile(midi), QUrl(QStringLiteral("https://example.org/a.mid"))});
        QGuiApplication::clipboard()->setMimeData(urls);
        fixture_->trigger("actionImport_from_Clipboard");
        QTRY_COMPARE(fixture_->tracks().song().size(), 3);
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::No;
        fixture_->trigger("actionImport_from_Clipboard");
        QTRY_COMPARE(fixture_->tracks().song().size(), 6);
        QCOMPARE(
            fixture_->dialogs().takeAsked(),
            QStringList(QStringLiteral("Import from clipboard|Would you like to remove the existing tracks first?")));
        QGuiApplication::clipboard()->setMimeData(new QMimeData);
        fixture_->trigger("actionImport_from_Clipboard");
        QCOMPARE(
            fixture_->dialogs().messages,
            QStringList(QStringLiteral("Import from clipboard|The clipboard does not contain anything to import.")));
    }

    void takesDrops_data()
    {
        const Rows<QString, int> row("name", "tracks");
        row("midi", "song.mid", 3);
        row("upper case", "SONG.MID", 3);
        row("long suffix", "song.midi", 0);
        row("other", "song.txt", 0);
    }
    void takesDrops()
    {
        QFETCH(QString, name);
        const auto copy = fixture_->path(qPrintable(name));
        QVERIFY(QFile::copy(jig, copy));
        fixture_->drop({copy});
        QTRY_VERIFY(!fixture_->window().isLoading());
        QTEST(int(fixture_->tracks().song().size()), "tracks");
        if (fixture_->tracks().isEmpty())
            return;
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::Yes;
        fixture_->drop({fixture_->write("one.abc", abc("One")), copy});
        QTRY_COMPARE(fixture_->tracks().song().size(), 4);
        QCOMPARE(fixture_->dialogs().asked,
                 QStringList(QStringLiteral("Import Files|Would you like to remove the existing tracks first?")));
    }

    void opensRecentFiles()
    {
        auto *const menu = fixture_->child<QMenu>("menuRecent");
        auto *const file = fixture_->child<QMenu>("menuFile");
        emit file->aboutToShow();
        QVERIFY(!menu->isEnabled());
        QVERIFY(fixture_->import(jig, 3));
        emit file->aboutToShow();
        QVERIFY(menu->isEnabled());
        fixture_->trigger("actionClear_Tracks");
        emit menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 1);
        QCOMPARE(menu->actions().first()->text(), QStringLiteral("harbour-jig.mid"));
        menu->actions().first()->trigger();
        QTRY_COMPARE(fixture_->tracks().song().size(), 3);
        RecentFiles::add(fixture_->settings(), {fixture_->path("gone.abc"), fixture_->path("too.abc")});
        RecentFiles::add(fixture_->settings(), {QStringLiteral("/two\nlines.abc")});
        emit menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 2);
        QCOMPARE(menu->actions().first()->text(), QStringLiteral("gone.abc and 1 more"));
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::No;
        menu->actions().first()->trigger(); // both of the entry
        QTRY_COMPARE(fixture_->dialogs().messages.size(), 1);
        QCOMPARE(RecentFiles::list(fixture_->settings()), QStringList(jig));

        for (int i = 0; i < 20; ++i) // the last ones, each once
            RecentFiles::add(fixture_->settings(), {QStringLiteral("/%1.abc").arg(i % 15)});
        emit menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 10);
        QCOMPARE(menu->actions()[0]->text() + menu->actions()[9]->text(), QStringLiteral("4.abc10.abc"));
    }

    void savesWhatDiffersFromItsFile()
    {
        QVERIFY(fixture_->import(jig, 3));
        QCOMPARE(fixture_->tracks().unsavedIds().size(), 3);
        fixture_->dialogs().files =
            QStringList{fixture_->path("1.abc"), fixture_->path("2.abc"), fixture_->path("3.abc")};
        fixture_->tracks().setSelected(QStringLiteral("T1"), true);
        fixture_->trigger("actionSave_Selected");
        QVERIFY(fixture_->waitUntilSaved());
        QCOMPARE(fixture_->tracks().unsavedIds().size(), 2);
        fixture_->trigger("actionSave_All");
        QVERIFY(fixture_->waitUntilSaved());
        QVERIFY(fixture_->tracks().unsavedIds().isEmpty());
        QCOMPARE(fixture_->window().statusBar()->currentMessage(), QStringLiteral("Saved 2 part(s)"));
        QCOMPARE(RecentFiles::filesOf(RecentFiles::list(fixture_->settings()).first()).size(), 2);
        const auto saved = [this](int row) {
            auto track = *fixture_->tracks().song()[row]->track;
            return track.toAbc().toUtf8();
        };
        QCOMPARE(WindowFixture::read(fixture_->path("2.abc")), saved(1));
        QCOMPARE(fixture_->settings().value(Settings::AbcSaveDir).toString(),
                 QFileInfo(fixture_->path("1.abc")).path());

        fixture_->row(1)->onTransposeDown();
        QCOMPARE(fixture_->tracks().unsavedIds(), QStringList(QStringLiteral("T2")));
        fixture_->write("1.abc", "of another program");
        QVERIFY(QFile::remove(fixture_->path("3.abc")));
        fixture_->dialogs().takeAsked();
        fixture_->trigger("actionSave_All"); // without a dialog
        QVERIFY(fixture_->waitUntilSaved());
        QVERIFY(fixture_->dialogs().takeAsked().isEmpty());
        QVERIFY(fixture_->tracks().unsavedIds().isEmpty());
        QCOMPARE(WindowFixture::read(fixture_->path("1.abc")), QByteArray("of another program"));
        QCOMPARE(WindowFixture::read(fixture_->path("2.abc")), saved(1));
        QCOMPARE(WindowFixture::read(fixture_->path("3.abc")), saved(2));
    }

    void asksWhereToSave()
    {
        const auto file = fixture_->write("named.abc", abc("Jig/Reel"));
        fixture_->settings().setValue(Settings::AbcSaveDir, QFileInfo(file).path());
        fixture_->window().openFiles({file});
        QTRY_COMPARE(fixture_->tracks().song().size(), 1);
        auto &dialogs = fixture_->dialogs();
        fixture_->row(0)->onSaveAs(); // and the user cancels
        QCOMPARE(dialogs.takeAsked(), QStringList(QStringLiteral("Save track 'Jig/Reel' as..|ABC Files (*.abc)")));
        QCOMPARE(dialogs.starts.last(), fixture_->path("Jig_Reel.abc"));
        QCOMPARE(fixture_->tracks().filePath(QStringLiteral("T1")), file);

        const auto nowhere = fixture_->path("no/folder.abc");
        for (const auto &failure : {QStringLiteral("Could not open the file for saving."),
                                    QStringLiteral("Could not open '%1' for saving.").arg(nowhere)}) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no/folder.abc: .")));
            dialogs.files = QStringList(nowhere);
            if (fixture_->tracks().filePath(QStringLiteral("T1")) == nowhere)
                fixture_->row(0)->onSave();
            else
                fixture_->row(0)->onSaveAs();
            QVERIFY(fixture_->waitUntilSaved());
            QVERIFY(dialogs.takeMessages().value(0).startsWith(
                QStringLiteral("Kelvarion Composer|%1\n%2: ").arg(failure, nowhere)));
        }
        QCOMPARE(fixture_->tracks().unsavedIds().size(), 1);
    }

    void noRowLosesItsFileToAnotherUnasked_data()
    {
        const Rows<int, QByteArray, QByteArray, QStringList> row("answer", "file", "other", "unsaved");
        const QStringList first(QStringLiteral("T1"));
        const QStringList second(QStringLiteral("T2"));
        row("cancel", int(Dialogs::OverwriteAnswer::Cancel), abc("Old"), QByteArray(), first);
        row("overwrite", int(Dialogs::OverwriteAnswer::Overwrite), abc("New"), QByteArray(), second);
        row("save as", int(Dialogs::OverwriteAnswer::SaveAs), abc("Old"), abc("New"), QStringList());
    }
    void noRowLosesItsFileToAnotherUnasked()
    {
        QFETCH(int, answer);
        const auto file = fixture_->write("old.abc", abc("Old"));
        const auto link = fixture_->path("link.abc");
        QVERIFY(QFile::link(file, link));
        fixture_->window().openFiles({file, link});
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
        auto &dialogs = fixture_->dialogs();
        dialogs.enteredText = QStringLiteral("New");
        dialogs.overwriteAnswer = Dialogs::OverwriteAnswer(answer);
        fixture_->row(0)->onChangeTitle();
        dialogs.takeAsked();
        dialogs.files = QStringList(fixture_->path("new.abc"));
        fixture_->trigger("actionSave_All");
        QVERIFY(fixture_->waitUntilSaved());
        QVERIFY(dialogs.takeAsked().first().contains(QStringLiteral("'Old'")));
        QTEST(WindowFixture::read(file), "file");
        QTEST(WindowFixture::read(fixture_->path("new.abc")), "other");
        QTEST(fixture_->tracks().unsavedIds(), "unsaved");
    }

    void asksBeforeWritingOver_data()
    {
        const Rows<QByteArray, int, QString> row("found", "permissions", "objection");
        const int own = QFile::ReadOwner | QFile::WriteOwner;
        row("nothing", abc("Old"), own, "");
        row("changed", abc("Foreign"), own, "was changed by another program.");
        row("read-only", abc("Old"), int(QFile::ReadOwner), "is read-only.");
    }
    void asksBeforeWritingOver()
    {
        QFETCH(QByteArray, found);
        QFETCH(QString, objection);
        const auto file = fixture_->write("old.abc", abc("Old"));
        fixture_->window().openFiles({file});
        QTRY_COMPARE(fixture_->tracks().song().size(), 1);
        auto &dialogs = fixture_->dialogs();
        fixture_->write("old.abc", found);
        QFETCH(int, permissions);
        QVERIFY(QFile::setPermissions(file, QFile::Permissions(permissions)));
        fixture_->row(0)->onTransposeUp();
        fixture_->row(0)->onSave();
        QVERIFY(fixture_->waitUntilSaved());
        QVERIFY(objection.isEmpty() ? dialogs.asked.isEmpty() : dialogs.asked.value(0).contains(objection));
        QCOMPARE(WindowFixture::read(file) == found, !objection.isEmpty());
        dialogs.overwriteAnswer = Dialogs::OverwriteAnswer::Overwrite;
        fixture_->row(0)->onSave();
        QVERIFY(fixture_->waitUntilSaved());
        QVERIFY(WindowFixture::read(file) != found);
        QVERIFY(fixture_->tracks().unsavedIds().isEmpty() && dialogs.messages.isEmpty());
    }

    void offersToReadChangedFilesAgain()
    {
        const auto file = fixture_->write("old.abc", abc("Old"));
        fixture_->window().openFiles({file, file, fixture_->write("other.abc", abc("Other"))});
        QTRY_COMPARE(fixture_->tracks().song().size(), 3);
        auto &dialogs = fixture_->dialogs();
        const auto comeBack = [this] {
            fixture_->window().activateWindow();
            QEvent event(QEvent::ActivationChange);
            QCoreApplication::sendEvent(&fixture_->window(), &event);
        };
        fixture_->write("old.abc", abc("New"));
        dialogs.answer = Dialogs::Answer::Yes;
        comeBack();
        const QStringList titles{QStringLiteral("New"), QStringLiteral("New"), QStringLiteral("Other")};
        QTRY_COMPARE(fixture_->titles(), titles);
        QVERIFY(fixture_->tracks().unsavedIds().isEmpty());
        QVERIFY(dialogs.asked.size() == 1 && dialogs.takeAsked().first().contains(file));

        fixture_->row(0)->onTransposeUp();
        fixture_->write("old.abc", abc("Newer, by more"));
        dialogs.answer = Dialogs::Answer::No;
        comeBack();
        QTRY_COMPARE(dialogs.asked.size(), 1);
        comeBack();
        QTest::qWait(100);
        QCOMPARE(dialogs.asked.size(), 1); // each change is told once
        QCOMPARE(fixture_->titles(), titles);
    }

    void stopsSavingWhenCancelled()
    {
        QVERIFY(fixture_->import(jig, 3));
        fixture_->dialogs().takeAsked();
        fixture_->dialogs().files = QStringList{fixture_->path("1.abc")};
        fixture_->trigger("actionSave_All");
        QVERIFY(fixture_->waitUntilSaved());
        QCOMPARE(fixture_->dialogs().asked.size(), 2); // the second was cancelled
        QCOMPARE(fixture_->tracks().unsavedIds().size(), 2);
    }

    void waitsForTheEndOfADialog()
    {
        QDialog modal;
        modal.setModal(true);
        modal.show();
        fixture_->window().openFiles({fixture_->write("one.abc", abc("One"))});
        QTest::qWait(150);
        QVERIFY(fixture_->tracks().isEmpty());
        modal.close();
        QTRY_COMPARE(fixture_->tracks().song().size(), 1);
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::No;
        fixture_->window().openFiles({fixture_->write("a.mid", "MThd"), fixture_->write("b.abc", "X:1\nK:C\n[c?")});
        QTRY_COMPARE(fixture_->dialogs().messages.size(), 1); // of both
        QVERIFY(
            fixture_->dialogs().takeMessages().first().startsWith(QStringLiteral("Error while reading files|a.mid")));
        fixture_->window().openFiles({fixture_->write("c.txt", "?")});
        QVERIFY(fixture_->dialogs().messages.value(0).startsWith(QStringLiteral("Open Files|")));
    }

    void cancelsWhatIsOnItsWay()
    {
        fixture_->settings().setValue(Settings::MidiMergeChannels, false);
        QByteArray notes;
        for (int note = 0; note < 300'000; ++note)
            notes += MidiBytes::noteOn(0, 60) + MidiBytes::noteOff(96, 60);
        fixture_->dialogs().files =
            QStringList(fixture_->write("long.mid", MidiBytes::file({notes + MidiBytes::endOfTrack()})));
        for (const bool isLeft : {false, true}) {
            fixture_->trigger("actionImport_MIDI");
            QVERIFY(!fixture_->window().statusBar()->currentMessage().isEmpty());
            if (isLeft)
                fixture_->trigger("actionNew_Song");
            else
                fixture_->child<QWidget>("importIndicator")->findChild<QToolButton *>()->click();
            QVERIFY(!fixture_->window().isLoading() && fixture_->window().statusBar()->currentMessage().isEmpty());
        }
        fixture_->window().openFiles({fixture_->write("some.kvsong", SongFile::toBytes({}, fixture_->path("")))});
        fixture_->child<QWidget>("songIndicator")->findChild<QToolButton *>()->click();
        QVERIFY(fixture_->import(jig, 3)); // nothing is in the way of the next, or added
        QVERIFY(fixture_->window().session().file().isEmpty());
    }
};

QTEST_MAIN(TestWindowFiles)
#include "test_window_files.moc"
