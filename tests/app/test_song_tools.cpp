// What changes all parts together is one step that undo takes back.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "app/songtools/SourceTracks.h"
#include "core/AbcParser.h"
#include "support/Rows.h"
#include "ui/arranging/ArrangeDialog.h"
#include "ui/listening/GroupPlayer.h"
#include "ui/song/TrackVisualizationWidget.h"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>

class TestSongTools : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowFixture> fixture_;

    void open(const QByteArray &first, const QByteArray &second)
    {
        const auto tune = [](const char *title, const QByteArray &music) {
            return QByteArray("X:1\nT:") + title + "\nL:1/4\nQ:1/4=120\n" + music + "\n";
        };
        fixture_->window().openFiles(
            {fixture_->write("one.abc", tune("One", first)), fixture_->write("two.abc", tune("Two", second))});
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
    }
    QString text(int part)
    {
        auto track = *fixture_->tracks().song()[part]->track;
        return track.toAbc().section(QStringLiteral("120\n"), 1).trimmed();
    }
    // One step, and its way back.
    void verifyOneStep(const SongTracks &before)
    {
        QVERIFY(fixture_->tracks().song() != before);
        fixture_->tracks().history().undo();
        QVERIFY(fixture_->tracks().song() == before);
        fixture_->tracks().history().redo();
    }

private slots:
    void init()
    {
        fixture_ = std::make_unique<WindowFixture>(demoGame);
        QVERIFY(fixture_->waitUntilLoaded());
    }
    void cleanup() { fixture_.reset(); }

    void arrangesForPlayers()
    {
        QVERIFY(fixture_->import(hymn, 4));
        const auto before = fixture_->tracks().song();
        fixture_->dialogs().inDialog = [](QDialog &shown) {
            auto &dialog = static_cast<ArrangeDialog &>(shown);
            QTRY_COMPARE(dialog.arrangement().parts.size(), 4);
            dialog.findChild<QSpinBox *>(QStringLiteral("spPlayers"))->setValue(2);
            dialog.findChild<QSpinBox *>(QStringLiteral("spVoices"))->setValue(1);
            dialog.findChild<QComboBox *>(QStringLiteral("cbMelody"))->setCurrentIndex(2);
            QTRY_VERIFY(!dialog.isBusy());
            QCOMPARE(dialog.arrangement().melody, std::optional(1));
            const auto *const after = dialog.findChild<QTableView *>(QStringLiteral("arrangeAfter"))->model();
            QCOMPARE(after->rowCount(), 3); // with the sums
            const auto &player = *dialog.findChild<GroupPlayer *>();
            for (const auto *const name : {"btnListenSource", "btnListenArrangement", "btnListenPart"}) {
                dialog.findChild<QPushButton *>(QLatin1String(name))->click();
                QVERIFY(player.isPlaying());
            }
            dialog.findChild<QPushButton *>(QStringLiteral("btnListenPart"))->click();
            QVERIFY(!player.isPlaying());
            dialog.accept();
        };
        fixture_->trigger("actionArrange");
        QCOMPARE(fixture_->tracks().song().size(), 2);
        QVERIFY(fixture_->tracks().filePath(fixture_->tracks().ids().first()).isEmpty());
        verifyOneStep(before);

        // The source is heard as it was, each of its notes once.
        const auto notesOf = [](const auto &all) {
            int notes = 0;
            for (const auto &track : all)
                notes += track->noteCount();
            return notes;
        };
        const auto sources = sourceTracks(fixture_->tracks().song(), fixture_->window().session().imports());
        QCOMPARE(sources.tracks.size(), 2);
        QVector<std::shared_ptr<const Track>> imported;
        for (const auto &part : before)
            imported.append(part->track);
        QCOMPARE(notesOf(sources.tracks), notesOf(imported));
    }

    void changesAllParts_data()
    {
        const Rows<QString, QByteArray, QByteArray, QString, QString> row("action", "first", "second", "one", "two");
        row("transpose", "actionTranspose_Song", "K:C\nC", "K:G\nG", "K: D\nD", "K: A\nA");
        row("trim", "actionTrim_Silence", "K:C\nz2 C", "K:C\nz3 D", "K: C\nC", "K: C\nz D");
        row("pad", "actionPad_Parts", "K:C\nC", "K:C\nC2", "K: C\nC z \nL: 1/4", "K:C\nC2");
    }
    void changesAllParts()
    {
        QFETCH(QString, action);
        QFETCH(QByteArray, first);
        QFETCH(QByteArray, second);
        open(first, second);
        const auto before = fixture_->tracks().song();
        fixture_->dialogs().inDialog = [](QDialog &dialog) {
            dialog.findChild<QSpinBox *>(QStringLiteral("spSongTranspose"))->setValue(2);
            dialog.accept();
        };
        fixture_->trigger(action.toLatin1().constData());
        QTRY_VERIFY(fixture_->tracks().song() != before);
        QTEST(text(0), "one");
        QTEST(text(1), "two");
        verifyOneStep(before);
    }

    void saysThatThereIsNothingToDo()
    {
        open("K:C\nC", "K:C\nD");
        for (const auto *const action : {"actionTrim_Silence", "actionPad_Parts", "actionOne_Tempo"}) {
            fixture_->trigger(action);
            QTRY_COMPARE(fixture_->dialogs().messages.size(), 1);
            fixture_->dialogs().takeMessages();
        }
        QCOMPARE(fixture_->tracks().history().count(), 1); // they were opened
    }

    void hearsTheSource()
    {
        const auto file = fixture_->write("jig.mid", WindowFixture::read(jig));
        QVERIFY(fixture_->import(file, 3));
        const auto &session = fixture_->window().session();
        const auto sources = sourceTracks(fixture_->tracks().song(), session.imports());
        QCOMPARE(sources.tracks.size(), 3);
        for (const auto &part : fixture_->tracks().song())
            QCOMPARE(sources.tracks[part->id]->noteCount(), part->track->noteCount());
        auto *const source = fixture_->action("actionListen_to_Source");
        fixture_->trigger("actionPlay");
        source->trigger();
        auto *const overview = fixture_->row(0)->findChild<TrackVisualizationWidget *>();
        QTRY_VERIFY(overview->hasShadow());
        source->trigger();
        QVERIFY(!overview->hasShadow());
        QVERIFY(QFile::remove(file));
        source->trigger();
        QTRY_COMPARE(fixture_->dialogs().messages.size(), 1);
        QVERIFY(!source->isChecked());
    }

    void hearsStandardAbcAsItIsMeant()
    {
        SongTrack part;
        part.id = QStringLiteral("T1");
        part.import = QStringLiteral("I1");
        part.track = std::make_shared<const Track>(parseAbc(QStringLiteral("X:1\nT:Reel\nK:C\nC")));
        const auto file = fixture_->write("reel.abc", "X:1\nT:Reel\nM:2/4\nL:1/8\nK:C\n|:CD:|\n");
        const auto sources = sourceTracks({std::make_shared<const SongTrack>(part)}, {{file, {}, {}, part.import}});
        QCOMPARE(sources.tracks[part.id]->noteCount(), 4);
    }

    void asksBeforeNotesAreRemoved_data()
    {
        const Rows<int, QString> row("answer", "expected"); // -1: cancelled
        row("fold", int(Dialogs::Answer::Yes), "K: C\nc c'''");
        row("remove", int(Dialogs::Answer::No), "K: C\nc");
        row("cancel", -1, "K:C\nC c'''");
    }
    void asksBeforeNotesAreRemoved()
    {
        QFETCH(int, answer);
        open("K:C\nC c'''", "K:C\nC");
        auto &dialogs = fixture_->dialogs();
        dialogs.answerOrCancel = answer < 0 ? std::nullopt : std::optional(Dialogs::Answer(answer));
        dialogs.takeAsked();
        fixture_->row(0)->onTransposeUp();
        QTEST(text(0), "expected");
        QCOMPARE(dialogs.takeAsked().size(), 1);
        fixture_->row(1)->onTransposeUp();
        QVERIFY(dialogs.takeAsked().isEmpty());
    }
};

QTEST_MAIN(TestSongTools)
#include "test_song_tools.moc"
