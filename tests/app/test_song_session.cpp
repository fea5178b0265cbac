// The song of the window as one document: nothing of it is lost, and nobody is asked twice.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "app/services/RecentFiles.h"
#include "song/SongFile.h"
#include "support/Rows.h"
#include "ui/editor/AbcEditorWindow.h"

#include <QClipboard>
#include <QSlider>
#include <QStatusBar>
#include <QToolButton>

namespace {

using Step = void (*)(WindowFixture &fixture);
using Steps = QVector<Step>;

QString only(WindowFixture &fixture)
{
    return fixture.tracks().ids().first();
}

// What a musician does.
void importJig(WindowFixture &fixture)
{
    QVERIFY(fixture.import(jig, 3));
}

void barFirst(WindowFixture &fixture)
{
    auto track = *fixture.tracks().find(only(fixture))->track;
    track.setBarLines({10080, 50400});
    fixture.tracks().setTrack(QStringLiteral("Bar"), only(fixture), track);
    QVERIFY(!fixture.window().session().song().parts[0].barLines.isEmpty());
}

void openParts(WindowFixture &fixture)
{
    fixture.window().openFiles({fixture.write("one.abc", abc("One")), fixture.write("two.abc", abc("Two"))});
    QTRY_COMPARE(fixture.tracks().song().size(), 2);
}

void turnVolume(WindowFixture &fixture)
{
    fixture.tracks().setVolume({only(fixture)}, 40);
}

void turnMasterVolume(WindowFixture &fixture)
{
    fixture.child<QSlider>("slMasterVolume")->setValue(30);
}

void mute(WindowFixture &fixture)
{
    fixture.tracks().setMuted({only(fixture)}, true);
}

void move(WindowFixture &fixture)
{
    fixture.tracks().move(only(fixture), 1);
}

void chooseInstrument(WindowFixture &fixture)
{
    fixture.tracks().setInstrument({only(fixture)}, QStringLiteral("Another"));
}

void transposeFirst(WindowFixture &fixture)
{
    fixture.row(0)->onTransposeUp();
}

void removeFirst(WindowFixture &fixture)
{
    fixture.row(0)->onRemoveClicked();
}

void type(WindowFixture &fixture)
{
    fixture.window().session().setDraft(only(fixture), QStringLiteral("X:1\n[c"));
}

void typeInEditor(WindowFixture &fixture)
{
    fixture.inRow<QToolButton>(0, "btnEdit")->click();
    auto &document = fixture.window().findChild<AbcEditorWindow *>()->document();
    document.replaceText(QStringLiteral("X:1\n[c"), QStringLiteral("Type"));
    QTRY_VERIFY(fixture.window().session().draft(only(fixture)));
}

void entitle(WindowFixture &fixture)
{
    fixture.dialogs().enteredText = QStringLiteral(" Two  [*] ");
    fixture.trigger("actionSong_Title");
}

void undo(WindowFixture &fixture)
{
    fixture.trigger("actionUndo");
}

void saveSong(WindowFixture &fixture)
{
    fixture.dialogs().files = QStringList(fixture.path("song.kvsong"));
    fixture.trigger("actionSave_Song");
    QVERIFY(fixture.waitUntilSaved());
}

void saveToFolder(WindowFixture &fixture)
{
    fixture.dialogs().directories = QStringList(fixture.path("."));
    fixture.trigger("actionSave_Parts");
    QVERIFY(fixture.waitUntilSaved());
}

void saveAll(WindowFixture &fixture)
{
    fixture.trigger("actionSave_All");
    QVERIFY(fixture.waitUntilSaved());
}

} // namespace

Q_DECLARE_METATYPE(Steps)

class TestSongSession : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowFixture> fixture_;

    Song song() { return fixture_->window().session().song(); }
    void open(const QString &file)
    {
        fixture_->window().openFiles({file});
        QTRY_VERIFY(!fixture_->window().isLoading());
    }

private slots:
    void init()
    {
        fixture_ = std::make_unique<WindowFixture>(demoGame);
        QVERIFY(fixture_->waitUntilLoaded());
    }
    void cleanup()
    {
        QVERIFY(fixture_->waitUntilSaved());
        fixture_.reset();
    }

    void asksOnceAboutWhatWouldBeLost_data()
    {
        const Rows<Steps, bool> row("steps", "asks");
        row("nothing", Steps{}, false);
        row("master volume alone, which the settings keep", Steps{turnMasterVolume}, false);
        row("imported", Steps{importJig}, true);
        row("imported and undone", Steps{importJig, undo}, false);
        row("imported and removed", Steps{importJig, removeFirst, removeFirst, removeFirst}, true);
        row("opened", Steps{openParts}, false);
        row("opened and removed", Steps{openParts, removeFirst}, false);
        row("edited and removed", Steps{openParts, transposeFirst, removeFirst}, true);
        row("edited", Steps{openParts, transposeFirst}, true);
        row("edited and saved", Steps{openParts, transposeFirst, saveAll}, false);
        row("volume", Steps{openParts, turnVolume}, true);
        row("volume, undone", Steps{openParts, turnVolume, undo}, false);
        row("mute", Steps{openParts, mute}, true);
        row("order", Steps{openParts, move}, true);
        row("instrument", Steps{openParts, chooseInstrument}, true);
        row("draft", Steps{openParts, type}, true);
        row("draft in an editor", Steps{openParts, typeInEditor}, true);
        row("title", Steps{openParts, entitle}, true);
        row("title, undone", Steps{openParts, entitle, undo}, false);
        row("all parts in a folder", Steps{importJig, saveToFolder}, false);
        row("mix of parts in a folder", Steps{importJig, turnVolume, saveToFolder}, true);
        row("song saved", Steps{importJig, turnVolume, move, type, saveSong}, false);
        row("song changed", Steps{importJig, saveSong, turnVolume}, true);
        row("song's title", Steps{importJig, saveSong, entitle}, true);
        row("song's master volume", Steps{importJig, saveSong, turnMasterVolume}, true);
        row("part removed from the song", Steps{importJig, saveSong, removeFirst}, true);
    }
    void asksOnceAboutWhatWouldBeLost()
    {
        QFETCH(Steps, steps);
        QFETCH(bool, asks);
        for (const auto step : steps)
            step(*fixture_);
        auto &dialogs = fixture_->dialogs();
        dialogs.takeAsked();
        QCOMPARE(fixture_->window().isWindowModified(), asks);
        const auto before = song();
        dialogs.closeAnswer = Dialogs::CloseAnswer::Cancel;
        if (asks) {
            for (const auto *const action : {"actionNew_Song", "actionExit"}) {
                fixture_->trigger(action);
                QCOMPARE(dialogs.takeAsked().size(), 1);
                QVERIFY(fixture_->window().isVisible() && song() == before);
            }
        }
        dialogs.closeAnswer = Dialogs::CloseAnswer::Discard;
        fixture_->trigger("actionNew_Song");
        QCOMPARE(dialogs.takeAsked().size(), asks ? 1 : 0);
        QVERIFY(song().parts.isEmpty() && fixture_->tracks().history().count() == 0);
        QTRY_VERIFY(!fixture_->window().findChild<AbcEditorWindow *>());
        QCOMPARE(fixture_->window().windowTitle(), QStringLiteral("Kelvarion Composer"));
        fixture_->trigger("actionExit");
        QVERIFY(dialogs.takeAsked().isEmpty() && !fixture_->window().isVisible());
    }

    void comesBackAsItWasLeft_data()
    {
        const Rows<Steps> row("steps");
        row("imported", {importJig, barFirst, turnVolume, turnMasterVolume, mute, move, chooseInstrument, type});
        row("of files", {openParts, transposeFirst, move});
        row("empty", {});
    }
    void comesBackAsItWasLeft()
    {
        QFETCH(Steps, steps);
        for (const auto step : steps)
            step(*fixture_);
        saveSong(*fixture_);
        const auto left = song();
        const auto file = fixture_->path("song.kvsong");
        QVERIFY(SongFile::fromBytes(WindowFixture::read(file), QFileInfo(file).path()) == left);
        QCOMPARE(RecentFiles::list(fixture_->settings()).first(), file);
        fixture_->trigger("actionNew_Song");
        turnMasterVolume(*fixture_);
        fixture_->dialogs().takeAsked();
        const QSignalSpy ended(&fixture_->window().session(), &SongSession::left);
        open(file);
        QCOMPARE(ended.size(), 1);
        QVERIFY(song() == left);
        QVERIFY(fixture_->dialogs().takeAsked().isEmpty() && fixture_->dialogs().messages.isEmpty());
        QCOMPARE(fixture_->child<QSlider>("slMasterVolume")->value(), left.masterVolume);
        QCOMPARE(fixture_->window().windowTitle(), QStringLiteral("song[*] - Kelvarion Composer"));
        QVERIFY(!fixture_->window().isWindowModified());
        QCOMPARE(fixture_->tracks().history().count(), 0);
        saveSong(*fixture_); // the same song gives the same bytes
        QVERIFY(fixture_->dialogs().takeAsked().isEmpty());
        QVERIFY(SongFile::fromBytes(WindowFixture::read(file), QFileInfo(file).path()) == left);
    }

    void hasATitle()
    {
        importJig(*fixture_);
        const auto before = fixture_->window().windowTitle();
        entitle(*fixture_);
        QCOMPARE(song().title, QStringLiteral("Two [*]"));
        QCOMPARE(fixture_->window().windowTitle(), QStringLiteral("Two [*][*][*] - Kelvarion Composer"));
        QCOMPARE(fixture_->tracks().history().undoText(), QStringLiteral("Change Song Title"));
        undo(*fixture_);
        QCOMPARE(fixture_->window().windowTitle(), before);
        fixture_->dialogs().enteredText.reset(); // cancelled
        fixture_->trigger("actionSong_Title");
        QVERIFY(song().title.isEmpty() && fixture_->tracks().history().canRedo());
    }

    void keepsTheMixOfASongAmongOthers()
    {
        for (const auto step : {importJig, turnVolume, mute, chooseInstrument, type, saveSong})
            step(*fixture_);
        const auto parts = song().parts;
        QVERIFY(parts[0].volume == 40 && parts[0].isMuted && parts[0].instrument == u"Another");
        fixture_->trigger("actionNew_Song");
        fixture_->window().openFiles(
            {fixture_->write("one.abc", abc("One")), fixture_->path("song.kvsong"), fixture_->path("one.abc")});
        QTRY_COMPARE(fixture_->tracks().song().size(), 5);
        for (int i = 0; i < parts.size(); ++i) {
            auto part = song().parts[i + 1];
            part.id = parts[i].id;
            part.import = parts[i].import; // is that of another song
            QVERIFY(part == parts[i]);
        }
        QCOMPARE(song().parts[4].volume, 100);
    }

    // Only a song that would lose nothing is offered to be read again, once for each change.
    void offersToReadAChangedSongAgain_data()
    {
        const Rows<Steps, bool, int> row("steps", "isRead", "volume");
        row("unchanged here", Steps{}, true, 77);
        row("unchanged here, refused", Steps{}, false, 40);
        row("changed here", Steps{mute}, false, 40);
    }
    void offersToReadAChangedSongAgain()
    {
        QFETCH(Steps, steps);
        QFETCH(bool, isRead);
        QFETCH(int, volume);
        for (const auto step : Steps{importJig, turnVolume, saveSong} + steps)
            step(*fixture_);
        const auto comeBack = [this] {
            fixture_->window().activateWindow();
            QEvent event(QEvent::ActivationChange);
            QCoreApplication::sendEvent(&fixture_->window(), &event);
            QTest::qWait(100);
        };
        auto &dialogs = fixture_->dialogs();
        dialogs.takeAsked();
        comeBack();
        QVERIFY(dialogs.asked.isEmpty());
        auto changed = song();
        changed.parts[0].volume = 77;
        changed.title = QStringLiteral("Foreign");
        fixture_->write("song.kvsong", SongFile::toBytes(changed, fixture_->path("")));
        dialogs.answer = isRead ? Dialogs::Answer::Yes : Dialogs::Answer::No;
        const int asked = steps.isEmpty() ? 1 : 0;
        comeBack();
        QTRY_COMPARE(int(dialogs.asked.size()), asked);
        QTRY_COMPARE(song().parts.value(0).volume, volume);
        comeBack();
        QCOMPARE(int(dialogs.asked.size()), asked);
        QCOMPARE(fixture_->window().isWindowModified(), !steps.isEmpty());
    }

    void savesBeforeItIsLeft_data()
    {
        const Rows<Steps, QString, bool> row("steps", "written", "goes");
        row("parts with files", {openParts, transposeFirst}, "one.abc", true);
        row("parts with files, and a mix", {openParts, turnVolume}, "chosen.kvsong", true);
        row("imported", {importJig}, "chosen.kvsong", true);
        row("song", {importJig, saveSong, turnVolume}, "song.kvsong", true);
        row("cancelled in the dialog", {importJig}, "", false);
    }
    void savesBeforeItIsLeft()
    {
        QFETCH(Steps, steps);
        QFETCH(QString, written);
        QFETCH(bool, goes);
        for (const auto step : steps)
            step(*fixture_);
        const auto file = written.isEmpty() ? QString() : fixture_->path(qPrintable(written));
        const auto before = WindowFixture::read(file);
        auto &dialogs = fixture_->dialogs();
        dialogs.closeAnswer = Dialogs::CloseAnswer::Save;
        dialogs.files = written == u"chosen.kvsong" ? QStringList(file) : QStringList();
        fixture_->trigger("actionExit");
        QVERIFY(fixture_->waitUntilSaved());
        QTRY_COMPARE(!fixture_->window().isVisible(), goes);
        QVERIFY(file.isEmpty() || (QFile::exists(file) && WindowFixture::read(file) != before));
    }

    void ctrlSSavesTheTickedRowsOrElseTheSong()
    {
        openParts(*fixture_);
        auto *const rows = fixture_->action("actionSave_Selected");
        auto *const song = fixture_->action("actionSave_Song");
        for (const bool isTicked : {false, true, false}) {
            fixture_->tracks().setSelected(only(*fixture_), isTicked);
            QCOMPARE(rows->isEnabled(), isTicked);
            QCOMPARE(song->shortcut().isEmpty(), isTicked);
            QVERIFY(song->isEnabled());
        }
    }

    void savesPartsToAFolder()
    {
        for (const auto *const title : {"Reel", "Reel", "A/B"}) {
            QGuiApplication::clipboard()->setText(QString::fromUtf8(abc(title)));
            const auto count = fixture_->tracks().song().size() + 1;
            fixture_->trigger("actionImport_from_Clipboard");
            QTRY_COMPARE(fixture_->tracks().song().size(), count);
        }
        QVERIFY(QDir().mkpath(fixture_->path("set")));
        auto &dialogs = fixture_->dialogs();
        for (const auto answer : {Dialogs::Answer::Yes, Dialogs::Answer::No}) { // to overwriting
            dialogs.answer = answer;
            dialogs.directories = QStringList(fixture_->path("set"));
            fixture_->write("set/Untitled - Reel (2).abc", "before");
            fixture_->trigger("actionSave_Parts");
            const auto status = fixture_->window().statusBar()->currentMessage();
            QVERIFY2(status.startsWith(QStringLiteral("Saving ")), qPrintable(status));
            QVERIFY(fixture_->waitUntilSaved());
            QCOMPARE(dialogs.takeAsked().size(), 2); // where, and one about all files that are there
            QCOMPARE(WindowFixture::read(fixture_->path("set/Untitled - Reel (2).abc")) == "before",
                     answer == Dialogs::Answer::No);
        }
        QCOMPARE(QDir(fixture_->path("set")).entryList(QDir::Files),
                 (QStringList{QStringLiteral("Untitled - A_B.abc"), QStringLiteral("Untitled - Reel (2).abc"),
                              QStringLiteral("Untitled - Reel.abc")}));
        QCOMPARE(RecentFiles::filesOf(RecentFiles::list(fixture_->settings()).first()).size(), 3);
    }

    void tellsWhichPartsCouldNotBeWritten()
    {
        openParts(*fixture_);
        QVERIFY(QDir().mkpath(fixture_->path("set/Untitled - One.abc"))); // is in the way
        fixture_->dialogs().answer = Dialogs::Answer::Yes;
        fixture_->dialogs().directories = QStringList(fixture_->path("set"));
        fixture_->trigger("actionSave_Parts");
        QVERIFY(fixture_->waitUntilSaved());
        const auto messages = fixture_->dialogs().takeMessages();
        QVERIFY(messages.size() == 1 && messages[0].contains(QStringLiteral("Untitled - One.abc: ")));
        QVERIFY(!messages[0].contains(QStringLiteral("Two.abc")));
        QVERIFY(QFile::exists(fixture_->path("set/Untitled - Two.abc")));
    }

    // A part goes to its file, or with the song that holds it; what has errors only with a song.
    void savesFromAnEditor_data()
    {
        const Rows<Steps, QString, QString, QString> row("steps", "typed", "asked", "written");
        const auto good = QString::fromUtf8(abc("Good"));
        row("part of a file", Steps{openParts}, good, "", "one.abc");
        row("part without a file", Steps{importJig}, good, "Save track", "chosen.kvsong");
        row("part of a song", Steps{importJig, saveSong}, good, "", "song.kvsong");
        row("draft", Steps{openParts}, QStringLiteral("X:1\n[c9?\n"), "Save Song As", "chosen.kvsong");
    }
    void savesFromAnEditor()
    {
        QFETCH(Steps, steps);
        QFETCH(QString, typed);
        QFETCH(QString, asked);
        QFETCH(QString, written);
        for (const auto step : steps)
            step(*fixture_);
        const auto file = fixture_->path(qPrintable(written));
        const auto before = WindowFixture::read(file);
        fixture_->dialogs().takeAsked();
        fixture_->dialogs().files = QStringList(fixture_->path("chosen.kvsong"));
        fixture_->inRow<QToolButton>(0, "btnEdit")->click();
        auto &editor = *fixture_->window().findChild<AbcEditorWindow *>();
        editor.document().replaceText(typed, QStringLiteral("Type"));
        editor.findChild<QAction *>(QStringLiteral("actionSave"))->trigger();
        QVERIFY(fixture_->waitUntilSaved());
        const auto question = fixture_->dialogs().takeAsked().join(u' ');
        QVERIFY2(asked.isEmpty() ? question.isEmpty() : question.startsWith(asked), qPrintable(question));
        QVERIFY(QFile::exists(file) && WindowFixture::read(file) != before);
    }

    void savesTheSongElsewhere()
    {
        importJig(*fixture_);
        saveSong(*fixture_);
        QTRY_COMPARE(fixture_->window().statusBar()->currentMessage(),
                     QStringLiteral("Saved ") + fixture_->path("song.kvsong"));
        const auto first = WindowFixture::read(fixture_->path("song.kvsong"));
        turnVolume(*fixture_);
        auto &dialogs = fixture_->dialogs();
        dialogs.takeAsked();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no/folder.kvsong: .")));
        for (const auto *const name : {"no/folder.kvsong", "second.kvsong"}) {
            dialogs.files = QStringList(fixture_->path(name));
            fixture_->trigger("actionSave_Song_As");
            QVERIFY(fixture_->waitUntilSaved());
            const bool isSaved = QFile::exists(fixture_->path(name));
            QCOMPARE(fixture_->window().isWindowModified(), !isSaved);
            QCOMPARE(dialogs.takeMessages().join(u' ').contains(QLatin1String(name)), !isSaved);
            QCOMPARE(fixture_->window().session().name(), isSaved ? QStringLiteral("second") : QStringLiteral("song"));
        }
        QCOMPARE(dialogs.starts.last(), fixture_->path("song.kvsong")); // proposed
        turnVolume(*fixture_);
        fixture_->tracks().setVolume({only(*fixture_)}, 3);
        fixture_->trigger("actionSave_Song");
        QVERIFY(fixture_->waitUntilSaved());
        QCOMPARE(WindowFixture::read(fixture_->path("song.kvsong")), first);
        QVERIFY(!fixture_->window().isWindowModified());
    }

    void whatCannotBeOpenedReplacesNothing_data()
    {
        const Rows<QByteArray, QString> row("bytes", "says");
        row("not there", QByteArray(), "bad.kvsong");
        row("damaged", QByteArray("{\n\"format\": kelvarion"), "line 2");
        row("no song", QByteArray("{}"), "not a song file");
        row("newer", QByteArray(R"({"format": "kelvarion-song", "version": 7})"), "newer version");
    }
    void whatCannotBeOpenedReplacesNothing()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, says);
        importJig(*fixture_);
        const auto before = song();
        fixture_->dialogs().takeAsked();
        open(bytes.isEmpty() ? fixture_->path("bad.kvsong") : fixture_->write("bad.kvsong", bytes));
        QVERIFY(song() == before && fixture_->dialogs().asked.isEmpty());
        const auto messages = fixture_->dialogs().messages;
        QVERIFY2(messages.size() == 1 && messages[0].contains(says) &&
                     messages[0].contains(QStringLiteral("bad.kvsong")),
                 qPrintable(messages.join(u'\n')));
    }

    // What another program wrote is replaced only when the user wants it.
    void asksBeforeWritingOver_data()
    {
        const Rows<bool, int, bool> row("isChanged", "answer", "isReplaced");
        row("own", false, int(Dialogs::OverwriteAnswer::Cancel), true);
        row("changed, cancel", true, int(Dialogs::OverwriteAnswer::Cancel), false);
        row("changed, overwrite", true, int(Dialogs::OverwriteAnswer::Overwrite), true);
        row("changed, elsewhere", true, int(Dialogs::OverwriteAnswer::SaveAs), false);
    }
    void asksBeforeWritingOver()
    {
        QFETCH(bool, isChanged);
        QFETCH(int, answer);
        QFETCH(bool, isReplaced);
        importJig(*fixture_);
        saveSong(*fixture_);
        if (isChanged)
            fixture_->write("song.kvsong", "foreign");
        turnVolume(*fixture_);
        auto &dialogs = fixture_->dialogs();
        dialogs.takeAsked();
        dialogs.overwriteAnswer = Dialogs::OverwriteAnswer(answer);
        dialogs.files = QStringList(fixture_->path("other.kvsong"));
        fixture_->trigger("actionSave_Song");
        QVERIFY(fixture_->waitUntilSaved());
        const bool isElsewhere = QFile::exists(fixture_->path("other.kvsong"));
        QCOMPARE(isElsewhere, answer == int(Dialogs::OverwriteAnswer::SaveAs));
        QCOMPARE(int(dialogs.asked.size()), (isChanged ? 1 : 0) + (isElsewhere ? 1 : 0));
        QCOMPARE(WindowFixture::read(fixture_->path("song.kvsong")) != "foreign", isReplaced);
        QCOMPARE(fixture_->window().isWindowModified(), !isReplaced && !isElsewhere);
    }

    // Another import has taken the place of all that the file holds.
    void anotherSongIsNotSavedOverIt()
    {
        importJig(*fixture_);
        saveSong(*fixture_);
        const auto file = fixture_->path("song.kvsong");
        const auto saved = WindowFixture::read(file);
        auto &dialogs = fixture_->dialogs();
        dialogs.takeAsked();
        fixture_->trigger("actionClear_Tracks");
        openParts(*fixture_);
        dialogs.overwriteAnswer = Dialogs::OverwriteAnswer::Cancel;
        fixture_->trigger("actionSave_Song");
        QVERIFY(fixture_->waitUntilSaved());
        QVERIFY2(dialogs.asked.size() == 1 && dialogs.asked[0].contains(file),
                 qUtf8Printable(dialogs.asked.join(u' ')));
        QCOMPARE(WindowFixture::read(file), saved);
    }

    // What a song file says of a part's file is only its claim.
    void aPartsFileIsNotReplacedUnasked()
    {
        openParts(*fixture_);
        saveSong(*fixture_);
        fixture_->write("one.abc", "somebody's letter");
        fixture_->trigger("actionNew_Song");
        open(fixture_->path("song.kvsong"));
        QCOMPARE(fixture_->tracks().unsavedIds(), QStringList(only(*fixture_)));
        QVERIFY(!fixture_->window().isWindowModified()); // the song file has it
        saveAll(*fixture_);
        QVERIFY(fixture_->dialogs().asked.last().contains(QStringLiteral("one.abc")));
        QCOMPARE(WindowFixture::read(fixture_->path("one.abc")), QByteArray("somebody's letter"));
    }

    void closingWaitsForASave()
    {
        importJig(*fixture_);
        fixture_->dialogs().files = QStringList(fixture_->path("song.kvsong"));
        fixture_->trigger("actionSave_Song");
        QVERIFY(fixture_->window().isSaving());
        fixture_->trigger("actionExit");
        QVERIFY(fixture_->window().isVisible());
        QTRY_VERIFY(!fixture_->window().isVisible());
        QCOMPARE(fixture_->dialogs().asked.size(), 2); // for MIDI and for the song's file
        QVERIFY(SongFile::fromBytes(WindowFixture::read(fixture_->path("song.kvsong")), {}).parts.size() == 3);
    }
};

QTEST_MAIN(TestSongSession)
#include "test_song_session.moc"
