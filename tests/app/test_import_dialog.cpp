// What becomes parts is chosen before it does.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/Rows.h"
#include "ui/importing/ImportPreviewDialog.h"
#include "ui/importing/PartsTable.h"
#include "ui/importing/PreviewPlayer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>

class TestImportDialog : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowFixture> fixture_;

    static bool waitUntilSettled(QDialog &dialog)
    {
        const auto &preview = static_cast<ImportPreviewDialog &>(dialog).preview();
        return QTest::qWaitFor([&] { return !preview.isBusy() && !preview.parts().isEmpty(); });
    }
    static void choose(QDialog &dialog, int part, int column, const QVariant &value, int role = Qt::EditRole)
    {
        auto *const model = dialog.findChild<QTableView *>()->model();
        model->setData(model->index(part, column), value, role);
    }
    static QString shown(const QDialog &dialog, int part, int column)
    {
        const auto *const model = dialog.findChild<QTableView *>()->model();
        return model->index(part, column).data().toString();
    }

private slots:
    void init()
    {
        fixture_ = std::make_unique<WindowFixture>(demoGame);
        fixture_->settings().setValue(Settings::ChooseParts, true);
        QVERIFY(fixture_->waitUntilLoaded());
    }

    void cleanup() { fixture_.reset(); }

    void takesEverythingAsProposedAtOnce()
    {
        QStringList proposed;
        fixture_->dialogs().inDialog = [&](QDialog &dialog) {
            connect(&dialog, &QDialog::accepted, this,
                    [&] { proposed = static_cast<ImportPreviewDialog &>(dialog).preview().instruments(); });
            QTest::keyClick(&dialog, Qt::Key_Return);
        };
        QVERIFY(fixture_->import(jig, 3));
        QCOMPARE(proposed.size(), 3);
        for (int row = 0; row < 3; ++row)
            QCOMPARE(fixture_->row(row)->instrumentName(), proposed[row]);
        QVERIFY(!fixture_->settings().contains(Settings::ProgramInstrument)); // nobody chose any
        QCOMPARE(fixture_->window().session().song().imports.size(), 1);
    }

    void takesWhatWasChosenAndRemembersIt()
    {
        fixture_->dialogs().inDialog = [](QDialog &dialog) {
            QVERIFY(waitUntilSettled(dialog));
            const auto characters = shown(dialog, 2, PartsTable::Characters);
            choose(dialog, 1, PartsTable::Name, Qt::Unchecked, Qt::CheckStateRole);
            choose(dialog, 0, PartsTable::Instrument, QStringLiteral("Accordion"));
            choose(dialog, 2, PartsTable::Octaves, QStringLiteral("-1"));
            dialog.findChild<QCheckBox *>(QStringLiteral("chkMergeChannels"))->click();
            QVERIFY(waitUntilSettled(dialog));
            QVERIFY(shown(dialog, 2, PartsTable::Characters) != characters);
            dialog.accept();
        };
        QVERIFY(fixture_->import(jig, 2));
        QCOMPARE(fixture_->row(0)->instrumentName(), QStringLiteral("Accordion"));
        QCOMPARE(fixture_->settings().value(Settings::MidiMergeChannels).toBool(), false);
        const auto remembered = fixture_->settings().value(Settings::ProgramInstrument).toString();
        QVERIFY2(remembered.endsWith(QStringLiteral("=Accordion")), qPrintable(remembered));

        fixture_->dialogs().inDialog = [](QDialog &dialog) {
            QVERIFY(waitUntilSettled(dialog));
            QCOMPARE(shown(dialog, 0, PartsTable::Instrument), QStringLiteral("Accordion"));
            dialog.findChild<QPushButton *>(QStringLiteral("btnTakeNone"))->click();
            QVERIFY(!dialog.findChild<QPushButton *>(QStringLiteral("btnImport"))->isEnabled());
            dialog.findChild<QPushButton *>(QStringLiteral("btnTakeAll"))->click();
            QTest::keyClick(&dialog, Qt::Key_Return);
        };
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::Yes;
        QVERIFY(fixture_->import(jig, 3));
    }

    void changesNothingWhenCancelled()
    {
        bool wasShown = false;
        fixture_->dialogs().inDialog = [&](QDialog &dialog) {
            wasShown = true;
            QVERIFY(waitUntilSettled(dialog));
            dialog.findChild<QCheckBox *>(QStringLiteral("chkSustainPedal"))->click();
            choose(dialog, 0, PartsTable::Instrument, QStringLiteral("Accordion"));
            QTest::keyClick(&dialog, Qt::Key_Escape);
        };
        fixture_->dialogs().files = QStringList(jig);
        fixture_->trigger("actionImport_MIDI");
        QTRY_VERIFY(wasShown && !QApplication::activeModalWidget());
        QVERIFY(fixture_->window().session().isBlank());
        QVERIFY(fixture_->window().session().song().imports.isEmpty());
        QVERIFY(!fixture_->settings().contains(Settings::MidiSustainPedal));
        QVERIFY(!fixture_->settings().contains(Settings::ProgramInstrument));
        QVERIFY(!fixture_->settings().contains(Settings::RecentFiles));
    }

    void soundsPartsBefore()
    {
        fixture_->dialogs().inDialog = [](QDialog &dialog) {
            const auto &player = *dialog.findChild<PreviewPlayer *>();
            QVERIFY(waitUntilSettled(dialog));
            dialog.findChild<QTableView *>()->selectRow(1);
            dialog.findChild<QPushButton *>(QStringLiteral("btnListenPart"))->click();
            QVERIFY(player.isPlaying());
            choose(dialog, 1, PartsTable::Instrument, QStringLiteral("Accordion"));
            QTRY_VERIFY_WITH_TIMEOUT(!player.isPlaying(), 30'000); // it ended
            dialog.findChild<QPushButton *>(QStringLiteral("btnListenAll"))->click();
            QVERIFY(player.isPlaying());
            dialog.findChild<QPushButton *>(QStringLiteral("btnListenAll"))->click();
            QVERIFY(!player.isPlaying());
            dialog.accept();
        };
        QVERIFY(fixture_->import(jig, 3));
    }

    void showsAbcThatIsConverted()
    {
        auto &dialogs = fixture_->dialogs();
        dialogs.files = QStringList(
            fixture_->write("two.abc", "X:1\nT:One\nK:C\n|:C:|\n\n"
                                       "X:2\nT:Two\nM:4/4\nL:1/4\nK:C\nV:1\n|:\"G\"C{D}DEF:|\nV:2\n|:cdef:|\n"));
        dialogs.foreignAnswer = Dialogs::ForeignAnswer::Convert;
        dialogs.inDialog = [](QDialog &dialog) {
            if (auto *const book = dialog.findChild<QListWidget *>()) {
                book->item(0)->setCheckState(Qt::Unchecked);
                return dialog.accept();
            }
            QVERIFY(waitUntilSettled(dialog));
            QCOMPARE(shown(dialog, 1, PartsTable::Notes), QStringLiteral("8"));
            QCOMPARE(shown(dialog, 0, PartsTable::Notes), QStringLiteral("10"));
            auto *const table = dialog.findChild<QTableView *>();
            table->selectionModel()->setCurrentIndex(table->model()->index(1, 0), QItemSelectionModel::SelectCurrent);
            for (const auto *const name : {"chkGraceNotes", "chkPlayChordNames"})
                dialog.findChild<QCheckBox *>(QLatin1String(name))->click();
            QVERIFY(waitUntilSettled(dialog));
            QCOMPARE(table->currentIndex().row(), 1); // the part that is looked at
            QCOMPARE(shown(dialog, 0, PartsTable::Notes), QStringLiteral("8"));
            QCOMPARE(shown(dialog, 2, PartsTable::Name), QStringLiteral("Two - 1 - Chords"));
            choose(dialog, 0, PartsTable::Name, Qt::Unchecked, Qt::CheckStateRole);
            dialog.accept();
        };
        fixture_->trigger("actionOpen");
        QTRY_COMPARE(fixture_->tracks().song().size(), 2);
        QCOMPARE(fixture_->row(0)->shown()->track->noteCount(), 8);
        const auto imported = fixture_->window().session().imports().first().settings;
        QVERIFY(imported[QStringLiteral("abc/playChordNames")].toBool());
        QVERIFY(!imported[QStringLiteral("abc/graceNotes")].toBool());
        dialogs.foreignAnswer = Dialogs::ForeignAnswer::OpenAsItIs; // without more questions
        fixture_->trigger("actionOpen");
        QTRY_COMPARE(fixture_->tracks().song().size(), 4);
    }

    void comesOnlyWhereItIsWanted()
    {
        int shownCount = 0;
        fixture_->dialogs().inDialog = [&](QDialog &dialog) {
            ++shownCount;
            dialog.accept();
        };
        fixture_->drop({jig});
        QTRY_COMPARE(fixture_->tracks().song().size(), 3);
        fixture_->settings().setValue(Settings::ChooseParts, false);
        fixture_->dialogs().answerOrCancel = Dialogs::Answer::No;
        QVERIFY(fixture_->import(jig, 6));
        QCOMPARE(shownCount, 0);
        QCOMPARE(fixture_->row(3)->instrumentName(), fixture_->child<QComboBox>("instrumentList")->currentText());
    }
};

QTEST_MAIN(TestImportDialog)
#include "test_import_dialog.moc"
