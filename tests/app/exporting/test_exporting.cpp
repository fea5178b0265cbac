// What the song becomes for other programs.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "app/exporting/ExportProgress.h"
#include "audio/TempoMap.h"
#include "core/AbcParser.h"
#include "support/GatedEngine.h"
#include "support/Rows.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QLockFile>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>

class TestExporting : public QObject
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

    void tellsWhyAnExportFailed()
    {
        QVERIFY(fixture_->import(jig, 3));
        auto &dialogs = fixture_->dialogs();
        for (const bool isCancelled : {true, false}) {
            dialogs.files = isCancelled ? QStringList() : QStringList(fixture_->path("no/folder.wav"));
            fixture_->trigger("actionExport_to_Wav");
            QTRY_COMPARE(dialogs.messages.size(), isCancelled ? 0 : 1);
            QTRY_VERIFY(!fixture_->child<QDialog>("exportProgress"));
        }
        QCOMPARE(dialogs.messages.first(),
                 QStringLiteral("Export to Wav|%1: The folder does not exist.").arg(fixture_->path("no/folder.wav")));
        QVERIFY(!fixture_->child<QWidget>("exportNote")->isVisible());
        auto told = dialogs.messages.first();
        QCOMPARE(dialogs.ends.last(),
                 told.replace(QStringLiteral("Export to Wav"), QStringLiteral("The export failed")));
    }

    // As Save Parts to Folder writes them, but not before they are asked for.
    void partsAreCopiedAsFiles()
    {
        QVERIFY(fixture_->import(jig, 3));
        const auto ids = fixture_->tracks().ids();
        for (const auto &id : {ids[0], ids[2]})
            fixture_->tracks().setSelected(id, true);
        const auto temporary = [] {
            return QDir::temp().entryList({QCoreApplication::applicationName() + QStringLiteral("-*")}).size();
        };
        const auto before = temporary();
        fixture_->trigger("actionCopy_as_File");
        const auto &data = *QGuiApplication::clipboard()->mimeData();
        QVERIFY(data.hasUrls() && data.hasText());
        QCOMPARE(temporary(), before);
        const auto urls = data.urls();
        QCOMPARE(temporary(), before + 1);

        fixture_->dialogs().directories = QStringList(QFileInfo(fixture_->write("parts/other", "")).path());
        fixture_->trigger("actionSave_Parts");
        QVERIFY(fixture_->waitUntilSaved());
        QStringList texts;
        for (const auto &url : urls) {
            const QFileInfo copied(url.toLocalFile());
            texts.append(QString::fromUtf8(WindowFixture::read(copied.filePath())));
            QVERIFY(copied.fileName().startsWith(QStringLiteral("harbour-jig - ")));
            QCOMPARE(WindowFixture::read(fixture_->path("parts/") + copied.fileName()), texts.last().toUtf8());
        }
        QCOMPARE(texts.size(), 2);
        QCOMPARE(data.text(), texts.join(u'\n'));
        QCOMPARE(data.data(QStringLiteral("x-special/gnome-copied-files")),
                 "copy\n" + urls[0].toEncoded() + '\n' + urls[1].toEncoded());
        QCOMPARE(data.urls(), urls);
    }

    void tellsHowLongItTakes()
    {
        ExportProgress progress;
        const auto *const dialog = progress.open(QStringLiteral("Song"), nullptr);
        QCOMPARE(dialog->labelText(), QStringLiteral("Song\nLoading samples..."));
        constexpr auto total = quint64(1) << 40;
        progress.set(total / 4, total);
        QCOMPARE(dialog->labelText(), QStringLiteral("Song"));
        QVERIFY(std::abs(double(dialog->value()) / dialog->maximum() - 0.25) < 0.001);
        QTest::qWait(1100);
        progress.set(total / 3, total); // an eighth of the rest in that time
        QVERIFY2(
            QRegularExpression(QStringLiteral("^Song\n0:(0[89]|1\\d) left$")).match(dialog->labelText()).hasMatch(),
            qPrintable(dialog->labelText()));
        progress.close();
        QVERIFY(!dialog->isVisible());
        progress.set(1, 2);
    }

    // Before the first sample is there.
    void exportIsCancelledAtOnce()
    {
        const auto gate = GatedEngine::makeGate(false);
        fixture_->makeFileEngine = [gate](const QString &file) {
            return std::make_unique<GatedEngine>(EngineOutput::WavFile, gate, file.toStdString());
        };
        fixture_->makeWindow();
        QVERIFY(fixture_->waitUntilLoaded() && fixture_->import(jig, 3));
        fixture_->dialogs().files = QStringList(fixture_->path("jig.wav"));
        fixture_->trigger("actionExport_to_Wav");
        auto *const progress = fixture_->child<QDialog>("exportProgress");
        QTRY_VERIFY(progress->isVisible());
        progress->findChild<QPushButton *>()->click();
        GatedEngine::open(gate);
        QTRY_VERIFY(!fixture_->child<QDialog>("exportProgress"));
        QVERIFY(!QFile::exists(fixture_->path("jig.wav")) && fixture_->dialogs().messages.isEmpty());
    }

    void exportsAudio()
    {
        fixture_->makeFileEngine = [](const QString &file) {
            return MadeEngine(std::make_unique<BuiltinEngine>(EngineOutput::WavFile, file.toStdString()),
                              QStringLiteral("in its place"));
        };
        fixture_->makeWindow();
        QVERIFY(fixture_->waitUntilLoaded() && fixture_->import(jig, 3));
        fixture_->tracks().setMuted({fixture_->tracks().ids().last()}, true);
        auto &dialogs = fixture_->dialogs();
        fixture_->write("jig - Track 1 - Flute.flac", "old");
        dialogs.inDialog = [](QDialog &dialog) {
            const auto choose = [&dialog](const char *name, int index) {
                dialog.findChild<QComboBox *>(QLatin1String(name))->setCurrentIndex(index);
            };
            choose("cmbFormat", 4);
            choose("cmbFiles", 2);
            dialog.findChild<QCheckBox *>(QStringLiteral("chkNormalise"))->setChecked(true);
            dialog.accept();
        };
        dialogs.files = QStringList{fixture_->path("jig.mp3"), fixture_->path("jig")};
        dialogs.answer = Dialogs::Answer::Yes;
        fixture_->trigger("actionExport_Audio");
        QCOMPARE(
            dialogs.takeMessages(),
            QStringList(QStringLiteral("Export Audio|'jig.mp3' does not end in \".flac\", as FLAC, 24 bit files do.")));
        QCOMPARE(QFileInfo(dialogs.starts.last()).fileName(), QStringLiteral("harbour-jig.flac"));
        auto *const note = fixture_->child<QWidget>("exportNote");
        QTRY_VERIFY(note->isVisible() && note->findChild<QLabel *>()->text().endsWith(QStringLiteral("in its place")));
        QVERIFY(dialogs.asked.last().contains(QStringLiteral("jig - Track 1 - Flute.flac\nWould you like")));
        const auto files = QDir(fixture_->path("")).entryInfoList({QStringLiteral("*.flac")});
        QCOMPARE(files.size(), 3); // the muted part has none
        for (const auto &file : files)
            QVERIFY(WindowFixture::read(file.filePath()).startsWith("fLaC"));
        QTRY_VERIFY(!fixture_->child<QDialog>("exportProgress"));
        QCOMPARE(dialogs.ends.last(),
                 QStringLiteral("The export is done|3 file(s) in %1\nin its place").arg(files.first().path()));
        QCOMPARE(fixture_->settings().value(Settings::ExportFormat).toInt(), 4);
    }

    void betterSoundTakesMoreRoom()
    {
        QVERIFY(fixture_->import(jig, 3));
        QVector<qint64> sizes;
        for (const int quality : {0, 10}) {
            fixture_->dialogs().inDialog = [quality](QDialog &dialog) {
                auto *const format = dialog.findChild<QComboBox *>(QStringLiteral("cmbFormat"));
                auto *const box = dialog.findChild<QSpinBox *>(QStringLiteral("spnQuality"));
                format->setCurrentIndex(0);
                QVERIFY(!box->isEnabled()); // nothing is lost there
                format->setCurrentText(QStringLiteral("Ogg Vorbis"));
                QVERIFY(box->isEnabled());
                box->setValue(quality);
                dialog.accept();
            };
            const auto file = fixture_->path(qPrintable(QStringLiteral("%1.ogg").arg(quality)));
            fixture_->dialogs().files = QStringList(file);
            fixture_->trigger("actionExport_Audio");
            QTRY_VERIFY(QFile::exists(file) && !fixture_->child<QDialog>("exportProgress"));
            sizes.append(QFileInfo(file).size());
            QCOMPARE(fixture_->settings().value(Settings::ExportQuality).toInt(), quality);
        }
        QVERIFY(sizes[1] > 2 * sizes[0]);
    }

    // By an export of a program that runs no more; what others write, and the user's own files, stay.
    void removesWhatAKilledExportLeft()
    {
        fixture_->write("journals/exports/dead.export", fixture_->path("song.wav").toUtf8());
        fixture_->write("journals/exports/busy.export", fixture_->path("busy.wav").toUtf8());
        QLockFile lock(fixture_->path("journals/exports/busy.export.lock"));
        QVERIFY(lock.tryLock(0));
        for (const char *name :
             {"song.wav~0123456789abc.saving", "song.wav~mine.saving", "busy.wav~0123456789abc.saving", "song.wav"})
            fixture_->write(name, "x");
        fixture_->makeWindow();
        QTRY_VERIFY(!QFile::exists(fixture_->path("song.wav~0123456789abc.saving")));
        for (const char *name :
             {"song.wav~mine.saving", "busy.wav~0123456789abc.saving", "song.wav", "journals/exports/busy.export"})
            QVERIFY2(QFile::exists(fixture_->path(name)), name);
        QVERIFY(!QFile::exists(fixture_->path("journals/exports/dead.export")));
    }

    void exportsNotation_data()
    {
        const Rows<QByteArray, QString, QString, QByteArray, QString> row("action", "asked", "file", "begins",
                                                                          "remark");
        row("MIDI", "actionExport_MIDI", "Export MIDI|MIDI file (*.mid)", "harbour-jig.mid", "MThd",
            "1 note(s) end where their pitch begins again; 1 note(s) are too high for MIDI; "
            "1 part(s) are written in the tempo of the longest");
        row("tunebook", "actionExport_Tunebook", "Export Tunebook|ABC Files (*.abc)", "harbour-jig.abc",
            "X: 1\nT:", "song.out");
    }
    void exportsNotation()
    {
        QFETCH(const QByteArray, action);
        QFETCH(const QString, asked);
        QFETCH(const QString, file);
        QFETCH(const QByteArray, begins);
        QFETCH(const QString, remark);
        QVERIFY(fixture_->import(jig, 3));
        auto odd = parseAbc(QStringLiteral("X:1\nL:1/4\nQ:1/4=77\nK:C\n[zC3]C"));
        odd.appendEvent(TrackEvent::note(130, 0, ticksPerQuarter));
        odd.normalize();
        fixture_->tracks().add(QStringLiteral("Add"), {{odd, QString()}});
        fixture_->tracks().setMuted({fixture_->tracks().ids().first()}, true); // written all the same
        auto &dialogs = fixture_->dialogs();
        dialogs.takeAsked();
        dialogs.files = QStringList{fixture_->path("song.out"), fixture_->path("no/song.out")};
        fixture_->trigger(action.constData());
        QCOMPARE(dialogs.asked, QStringList(asked));
        QCOMPARE(QFileInfo(dialogs.starts.last()).fileName(), file);
        auto *const note = fixture_->child<QWidget>("exportNote");
        QTRY_VERIFY(note->isVisible());
        QTEST(note->findChild<QLabel *>()->toolTip().right(remark.size()), "remark"); // whole, unlike its text
        QVERIFY(WindowFixture::read(fixture_->path("song.out")).startsWith(begins));
        const QString notice = dialogs.ends.last();
        QVERIFY(notice.startsWith(QStringLiteral("The export is done|%1").arg(fixture_->path("song.out"))));
        QVERIFY(notice.endsWith(remark));
        note->findChild<QToolButton *>(QStringLiteral("btnOpenFolder"))->click();
        QCOMPARE(dialogs.opened, QList<QUrl>{QUrl::fromLocalFile(QFileInfo(fixture_->path("song.out")).path())});
        fixture_->trigger(action.constData());
        QTRY_COMPARE(
            dialogs.messages,
            QStringList(QStringLiteral("Export|%1: The folder does not exist.").arg(fixture_->path("no/song.out"))));
    }

    void exportsWaves()
    {
        QVERIFY(fixture_->import(jig, 3));
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::No;
        fixture_->window().openFiles({fixture_->write("long.abc", "X:1\nK:C\nZ100|C")});
        QTRY_COMPARE(fixture_->tracks().song().size(), 4);
        fixture_->dialogs().takeAsked();
        fixture_->inRow<QCheckBox>(3, "btnMute")->click();
        const auto wave = fixture_->path("jig.wav");
        fixture_->dialogs().files = QStringList(wave);
        fixture_->trigger("actionExport_to_Wav");
        for (const auto *const action : {"actionExport_to_Wav", "actionExport_Audio"}) { // while it runs
            fixture_->trigger(action);
            QCOMPARE(fixture_->dialogs().takeMessages(),
                     QStringList(QStringLiteral("Renderer in use|You are already rendering to wav, please wait for it "
                                                "to finish and try again.")));
        }
        QCOMPARE(fixture_->dialogs().asked, QStringList(QStringLiteral("Export tracks to wav...|Wave file (*.wav)")));
        fixture_->dialogs().closeAnswer = Dialogs::CloseAnswer::Discard;
        QVERIFY(!fixture_->window().close()); // the export would be lost
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(wave), 30'000);
        QTRY_VERIFY(!fixture_->child<QDialog>("exportProgress"));
        QVERIFY(WindowFixture::read(wave).startsWith("RIFF"));
        QCOMPARE(fixture_->settings().value(Settings::WavSaveDir).toString(), QFileInfo(wave).path());
        const auto frames = (QFileInfo(wave).size() - 44) / 4;
        const auto &track = *fixture_->tracks().song()[0]->track;
        const auto written = qint64(TempoMap(track, 48000).samplesAt(track.length()));
        QVERIFY(frames >= written && frames < written + 3 * 48000); // the last notes fade out
        QVERIFY(fixture_->dialogs().messages.isEmpty());
    }
};

QTEST_MAIN(TestExporting)
#include "test_exporting.moc"
