// What becomes parts is chosen before it does.
#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/Outline.h"
#include "ui/importing/ImportPreviewDialog.h"
#include "ui/importing/PartsTable.h"
#include "ui/importing/PreviewPlayer.h"
#include "ui/report/TuneChooser.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
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
    static QString summary(const QDialog &dialog)
    {
        return dialog.findChild<QLabel *>(QStringLiteral("lblSummary"))->text();
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
            QCOMPARE(outline(*dialog.findChild<QTableView *>()->model()),
                     QStringLiteral("Track 1 - Flute|Flute|0|1: Flute|84|G4 – E5|1|376\n"
                                    "Track 2 - Fiddle|Fiddle|0|2: Fiddle|32|G3 – G4|2|252\n"
                                    "Track 3 - Acoustic Bass|Bass|0|3: Acoustic Bass|60|D2 – G3|1|379\n"));
            QCOMPARE(summary(dialog), QStringLiteral("3 of 3 parts, 176 notes, 1,007 characters"));
            const auto characters = shown(dialog, 2, PartsTable::Characters);
            choose(dialog, 1, PartsTable::Name, Qt::Unchecked, Qt::CheckStateRole);
            auto *const table = dialog.findChild<QTableView *>();
            const auto openBox = [table] { return table->viewport()->findChild<QComboBox *>(); };
            table->edit(table->model()->index(0, PartsTable::Instrument));
            QTRY_VERIFY(openBox()->view()->isVisible()); // unfolded at once
            openBox()->setCurrentText(QStringLiteral("Accordion"));
            emit openBox()->activated(openBox()->currentIndex());
            QTRY_VERIFY(!openBox());
            QString told; // by the table, of the part that is moved
            connect(table->model(), &QAbstractItemModel::dataChanged, &dialog,
                    [&] { told = shown(dialog, 2, PartsTable::Characters); });
            choose(dialog, 2, PartsTable::Octaves, QStringLiteral("-1"));
            QVERIFY(waitUntilSettled(dialog));
            QVERIFY(told != characters);
            table->selectRow(1);
            QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("lblLoss"))->text(), QString());
            choose(dialog, 1, PartsTable::Octaves, QStringLiteral("-3"));
            QVERIFY(waitUntilSettled(dialog));
            const auto loss = dialog.findChild<QLabel *>(QStringLiteral("lblLoss"))->text();
            QVERIFY2(loss.contains(QStringLiteral("out of range")), qPrintable(loss));
            dialog.findChild<QCheckBox *>(QStringLiteral("chkMergeChannels"))->click();
            QVERIFY(waitUntilSettled(dialog));
            QVERIFY(shown(dialog, 2, PartsTable::Characters) != characters);
            QCOMPARE(summary(dialog), QStringLiteral("2 of 3 parts, 144 notes, 721 characters"));
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

    void choosesTunesByTheirNames()
    {
        QStringList tunes;
        for (int i = 0; i < 30; ++i)
            tunes.append(i % 3 == 0 ? QStringLiteral("Jig %1").arg(i) : QStringLiteral("Reel %1").arg(i));
        TuneChooser chooser(QStringLiteral("book.abc"), tunes);
        chooser.show();
        const auto *const box = chooser.findChild<QDialogButtonBox *>();
        const auto click = [&](const char *text) {
            for (auto *const button : box->buttons()) {
                if (button->text().remove(u'&') == QLatin1String(text))
                    button->click();
            }
        };
        QCOMPARE(chooser.chosen().size(), 30);
        click("None");
        QVERIFY(chooser.chosen().isEmpty() && !box->button(QDialogButtonBox::Open)->isEnabled());
        auto *const find = chooser.findChild<QLineEdit *>(QStringLiteral("edtFindTune"));
        QVERIFY(find->isVisible());
        find->setText(QStringLiteral(" jig 1"));
        click("All"); // that are shown
        QCOMPARE(chooser.chosen(), QVector<int>({12, 15, 18}));
        QVERIFY(box->button(QDialogButtonBox::Open)->isEnabled());
        find->clear();
        const auto *const list = chooser.findChild<QListWidget *>();
        for (int row = 0; row < list->count(); ++row)
            QVERIFY(!list->item(row)->isHidden());
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
