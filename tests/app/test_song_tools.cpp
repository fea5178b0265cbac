// What changes all parts together is one step that undo takes back.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "app/songtools/SourceTracks.h"
#include "core/AbcParser.h"
#include "support/Outline.h"
#include "support/Rows.h"
#include "ui/arranging/ArrangeDialog.h"
#include "ui/listening/GroupPlayer.h"
#include "ui/song/TrackVisualizationWidget.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QThreadPool>

class TestSongTools : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowFixture> fixture_;

    void open(const QByteArray &first, const QByteArray &second)
    {
        const auto tune = [](const char *title, const QByteArray &music) {
            return QByteArray("X:1\nT:") + title + "\nL:1/4\n" + (music.startsWith("Q:") ? "" : "Q:1/4=120\n") + music +
                   "\n";
        };
        fixture_->window().openFiles(
            {fixture_->write("one.abc", tune("One", first)), fixture_->write("two.abc", tune("Two", second))});
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
    }
    // From the tempo on.
    QString text(int part)
    {
        auto track = *fixture_->tracks().song()[part]->track;
        return track.toAbc().section(QStringLiteral("Q:"), 1).trimmed();
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
            const auto labels = dialog.findChildren<QLabel *>();
            for (const auto *const title : {"The song as it is", "As it would be"})
                QVERIFY(std::any_of(labels.begin(), labels.end(),
                                    [&](const QLabel *label) { return label->text() == QLatin1String(title); }));
            QVERIFY(dialog.findChild<QTableView *>(QStringLiteral("arrangeAfter"))->verticalHeader()->isHidden());
            const auto *const after = dialog.findChild<QTableView *>(QStringLiteral("arrangeAfter"))->model();
            QCOMPARE(outline(*dialog.findChild<QTableView *>(QStringLiteral("arrangeBefore"))->model()),
                     QStringLiteral("Track 1 - Choir Aahs|Accordion|19|8|11|G♯4 – D5|1\n"
                                    "Track 2 - Choir Aahs|Accordion|18|18|D4 – F4|1\n"
                                    "Track 3 - Choir Aahs|Accordion|18|8|10|A3 – C4|1\n"
                                    "Track 4 - String Ensemble 1|Accordion|18|18|A2 – A3|1\n"
                                    "All|73|36|16|21|A2 – D5|1\n"));
            QCOMPARE(outline(*after),
                     QStringLiteral("Track 2 - Choir Aahs + Track 1 - Choir Aahs + Track 3 - Choir Aahs|"
                                    "Accordion|18|D4 – F4|1\n"
                                    "Track 4 - String Ensemble 1|Accordion|18|A2 – A3|1\n"
                                    "All|36|A2 – F4|1\n"));
            QCOMPARE(
                dialog.findChild<QLabel *>(QStringLiteral("lblSummary"))->text(),
                QStringLiteral("36 of 73 notes are kept, by 2 player(s); 16 were doubled; for 21 no voice was free"));
            QCOMPARE(dialog.findChild<QComboBox *>(QStringLiteral("cbBass"))->itemText(0),
                     QStringLiteral("Found: Track 4 - String Ensemble 1"));
            const auto &player = *dialog.findChild<GroupPlayer *>();
            for (const auto &[name, parts] :
                 {std::pair("btnListenSource", 4), {"btnListenArrangement", 2}, {"btnListenPart", 1}}) {
                dialog.findChild<QPushButton *>(QLatin1String(name))->click();
                QCOMPARE(int(player.playing().size()), parts);
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
        // choices: of the dialog's controls, "name property value"
        const Rows<QString, QString, QByteArray, QByteArray, QString, QString> row("action", "choices", "first",
                                                                                   "second", "one", "two");
        row("transpose", "actionTranspose_Song", "spSongTranspose value 2", "K:C\nC", "K:G\nG", "1/4=120\nK: D\nD",
            "1/4=120\nK: A\nA");
        row("transpose and fold", "actionTranspose_Song", "spSongTranspose value 12", "K:C\nC c'''", "K:G\nG",
            "1/4=120\nK: C\nc c'''", "1/4=120\nK: G\ng");
        row("transpose and remove", "actionTranspose_Song",
            "spSongTranspose value 12;cbBeyondRange currentText are removed", "K:C\nC c'''", "K:G\nG",
            "1/4=120\nK: C\nc", "1/4=120\nK: G\ng");
        row("trim", "actionTrim_Silence", "", "K:C\nz2 C", "K:C\nz3 D", "1/4=120\nK: C\nC", "1/4=120\nK: C\nz D");
        row("pad", "actionPad_Parts", "", "K:C\nC", "K:C\nC2", "1/4=120\nK: C\nC z \nL: 1/4", "1/4=120\nK:C\nC2");
        row("one tempo, the same moments", "actionOne_Tempo", "", "K:C\nC4", "Q:1/4=60\nK:C\nC z D2",
            "1/4=120\nK:C\nC4", "1/4=120\nK: C\nC2 z2 \nD4");
        row("one tempo, as written", "actionOne_Tempo", "rbWrittenLengths checked 1", "K:C\nC4",
            "Q:1/4=60\nK:C\nC z D2", "1/4=120\nK:C\nC4", "1/4=120\nK: C\nC z D2");
        row("another part's tempo", "actionOne_Tempo", "cbTempoOf currentIndex 1;rbWrittenLengths checked 1", "K:C\nC4",
            "Q:1/4=60\nK:C\nC z D2", "1/4=60\nK: C\nC4", "1/4=60\nK:C\nC z D2");
    }
    void changesAllParts()
    {
        QFETCH(QString, action);
        QFETCH(QString, choices);
        QFETCH(QByteArray, first);
        QFETCH(QByteArray, second);
        open(first, second);
        const auto before = fixture_->tracks().song();
        fixture_->dialogs().inDialog = [choices](QDialog &dialog) {
            for (const auto &choice : choices.split(u';', Qt::SkipEmptyParts)) {
                const auto property = choice.section(u' ', 1, 1);
                dialog.findChild<QWidget *>(choice.section(u' ', 0, 0))
                    ->setProperty(qPrintable(property), choice.section(u' ', 2));
            }
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
        source->trigger();
        source->trigger(); // before it is read
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        QVERIFY(!overview->hasShadow());
        QVERIFY(QFile::remove(file));
        source->trigger();
        QTRY_COMPARE(fixture_->dialogs().messages.size(), 1);
        QVERIFY(!source->isChecked());

        // Another song is heard as it is.
        fixture_->write("jig.mid", WindowFixture::read(jig));
        source->trigger();
        QTRY_VERIFY(overview->hasShadow());
        fixture_->dialogs().closeAnswer = Dialogs::CloseAnswer::Discard;
        fixture_->trigger("actionNew_Song");
        QTRY_VERIFY(fixture_->tracks().isEmpty());
        QVERIFY(!source->isChecked());
    }

    void hearsStandardAbcAsItIsMeant()
    {
        const auto file = fixture_->write("reel.abc", "X:1\nT:Reel\nM:2/4\nL:1/8\nK:C\n|:CD:|\n");
        for (const auto *const text : {"X:1\nT:Reel\nK:C\nC", "X:1\nT:Renamed\nK:C\nC"}) {
            SongTrack part;
            part.id = QStringLiteral("T1");
            part.import = QStringLiteral("I1");
            part.track = std::make_shared<const Track>(parseAbc(QString::fromLatin1(text)));
            const auto sources = sourceTracks({std::make_shared<const SongTrack>(part)}, {{file, {}, {}, part.import}});
            QVERIFY(sources.tracks.contains(part.id));
            QCOMPARE(sources.tracks[part.id]->noteCount(), 4);
        }
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
        QTEST(text(0).section(u'\n', 1), "expected");
        QCOMPARE(dialogs.takeAsked().size(), 1);
        fixture_->row(1)->onTransposeUp();
        QVERIFY(dialogs.takeAsked().isEmpty());
    }
};

QTEST_MAIN(TestSongTools)
#include "test_song_tools.moc"
