#include "app/AnsweringDialogs.h"
#include "midi/MidiKeyboard.h"
#include "support/PlayedKeyboard.h"
#include "support/Rows.h"
#include "ui/preferences/ColourSwatch.h"
#include "ui/preferences/KeyboardGroup.h"
#include "ui/preferences/PreferencesDialog.h"
#include "ui/preferences/SoundPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTreeWidget>

class TestPreferences : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        directory_ = std::make_unique<QTemporaryDir>();
        dialogs_ = std::make_unique<AnsweringDialogs>();
        settings_ = std::make_unique<Settings>(directory_->filePath(QStringLiteral("Composer.cfg")));
        settings_->setValue(Settings::RootPath, QStringLiteral("/games/old"));
        changes_ = std::make_unique<QSignalSpy>(settings_.get(), &Settings::settingChanged);
        dialog_ = std::make_unique<PreferencesDialog>(*settings_, *dialogs_, SoundDevices{output_});
    }

    void cleanup()
    {
        dialog_.reset();
        changes_.reset();
        settings_.reset();
    }

    void bindsEveryCheckBox_data()
    {
        const Rows<QString, Settings::Setting> row("box", "setting");
        row("mods", "chkLoadMods", Settings::LoadMods);
        row("octaves", "chkPreviewDrawOctave", Settings::DrawOctaveLines);
        row("measures", "chkPreviewDrawMeasure", Settings::DrawMeasureLines);
        row("channels", "chkMergeChannels", Settings::MidiMergeChannels);
        row("realign", "chkRealign", Settings::MidiAutoRealign);
        row("bend", "chkPitchBend", Settings::MidiPitchBend);
        row("unit", "chkOptimizeUnitLength", Settings::MidiAutoDetectUnitLength);
        row("volume", "chkNoteVolume", Settings::MidiProcessVolume);
        row("choosing parts", "chkChooseParts", Settings::ChooseParts);
        row("pedal", "chkSustainPedal", Settings::MidiSustainPedal);
        row("chords", "chkPlayChordNames", Settings::AbcPlayChordNames);
        row("dark", "chkDarkPalette", Settings::DarkPalette);
        row("running window", "chkOpenInRunning", Settings::OpenInRunning);
    }

    void bindsEveryCheckBox()
    {
        QFETCH(QString, box);
        QFETCH(Settings::Setting, setting);
        auto *const checkBox = dialog_->findChild<QCheckBox *>(box);
        QVERIFY(checkBox);
        const bool before = settings_->value(setting).toBool();
        QCOMPARE(checkBox->isChecked(), before);
        QVERIFY(!button(QDialogButtonBox::Apply)->isEnabled());
        checkBox->click();
        QVERIFY(button(QDialogButtonBox::Apply)->isEnabled());
        QCOMPARE(changes_->count(), 0);
        button(QDialogButtonBox::Ok)->click();
        QCOMPARE(settings_->value(setting).toBool(), !before);
        QCOMPARE(changes_->count(), 1);
        QCOMPARE(dialog_->result(), int(QDialog::Accepted));
    }

    void bindsOtherControls_data()
    {
        const Rows<QString, int, Settings::Setting, QString> row("control", "value", "setting", "kept");
        row("language", "cboLanguage", 1, Settings::Language, "en");
        row("standard ABC", "cboForeignAbc", 2, Settings::AbcForeign, "2");
        row("semitones", "spnCheckSemitones", 7, Settings::CheckSemitones, "7");
        row("notes at once", "spnCheckNotes", 9, Settings::CheckNotesAtOnce, "9");
        row("characters", "spnCheckCharacters", 1234, Settings::CheckCharacters, "1234");
        row("velocity", "spnVelocityGate", 33, Settings::MidiVelocityGate, "33");
    }

    void bindsOtherControls()
    {
        QFETCH(QString, control);
        QFETCH(int, value);
        QFETCH(Settings::Setting, setting);
        const auto *const widget = dialog_->findChild<QWidget *>(control);
        const auto before = settings_->value(setting).toString();
        const bool isList = widget->inherits("QComboBox");
        QVERIFY(isList || widget->property("value").toString() == before);
        dialog_->findChild<QWidget *>(control)->setProperty(isList ? "currentIndex" : "value", value);
        QCOMPARE(settings_->value(setting).toString(), before);
        button(QDialogButtonBox::Ok)->click();
        QTEST(settings_->value(setting).toString(), "kept");
        QCOMPARE(dialogs_->messages.size(), setting == Settings::Language ? 1 : 0);
    }

    void keepsAKeyboardThatIsNotThere()
    {
        settings_->setValue(Settings::KeyboardPort, QStringLiteral("Gone"));
        PlayedKeyboard::State state;
        state.ports = QStringList(QStringLiteral("Piano"));
        MidiKeyboard keyboard(std::make_unique<PlayedKeyboard>(state), [](KeyEvent) {});
        KeyboardGroup group(*settings_, keyboard);
        const auto *const ports = group.findChild<QComboBox *>(QStringLiteral("cboKeyboard"));
        const auto *const connected = group.findChild<QLabel *>(QStringLiteral("lblKeyboard"));
        QCOMPARE(ports->currentText(), QStringLiteral("Gone (not found)"));
        QCOMPARE(ports->count(), 4);
        QCOMPARE(connected->text(), QStringLiteral("none"));
        keyboard.choose(MidiKeyboard::any);
        QCOMPARE(connected->text(), QStringLiteral("Piano"));

        QSignalSpy changed(&group, &KeyboardGroup::changed);
        for (const auto *const name : {"cboKeyboard", "cboRecordingGrid"}) {
            auto *const box = group.findChild<QComboBox *>(QLatin1String(name));
            QVERIFY(box);
            box->setCurrentIndex(1);
            emit box->activated(1);
        }
        QCOMPARE(changed[0].last().toString(), MidiKeyboard::none);
        QCOMPARE(changed[1].last().toInt(), 12);
    }

    void showsThePageOfTheSelectedRow()
    {
        auto *const selector = child<QListWidget>("propertySelector");
        auto *const pages = child<QStackedWidget>("propertyPages");
        QCOMPARE(selector->count(), pages->count());
        for (int row = 0; row < selector->count(); ++row) {
            selector->setCurrentRow(row);
            QCOMPARE(pages->currentIndex(), row);
        }
    }

    void tellsAboutARestartOnce()
    {
        child<QCheckBox>("chkLoadMods")->click();
        child<QCheckBox>("chkLoadMods")->click();
        child<QCheckBox>("chkRealign")->click();
        QCOMPARE(dialogs_->messages, QStringList(restart_));
    }

    void choosesOnlyAGame()
    {
        auto *const path = child<QLineEdit>("txtKelvarionPath");
        const auto game = directory_->filePath(QStringLiteral("game"));
        QVERIFY(QDir().mkpath(game + QStringLiteral("/linux64/kelvarion")));
        dialogs_->directories = QStringList{game};
        click("btnBrowseKVPath");
        QCOMPARE(dialogs_->takeMessages(),
                 QStringList(QStringLiteral(
                     "Kelvarion Composer|No Kelvarion installation was found at the specified directory.")));
        QCOMPARE(path->text(), QStringLiteral("/games/old"));
        QCOMPARE(dialogs_->starts, QStringList(QStringLiteral("/games/old")));
        click("btnBrowseKVPath"); // cancelled
        QVERIFY(!button(QDialogButtonBox::Apply)->isEnabled());

        QVERIFY(QDir().mkpath(game + QStringLiteral("/assets")));
        dialogs_->directories = QStringList{game};
        click("btnBrowseKVPath");
        QCOMPARE(dialogs_->takeMessages(), QStringList(restart_));
        QCOMPARE(path->text(), game);
        button(QDialogButtonBox::Apply)->click();
        QCOMPARE(settings_->value(Settings::RootPath).toString(), game);
        QVERIFY(!button(QDialogButtonBox::Apply)->isEnabled());
    }

    void changesTheNoteColour()
    {
        auto *const swatch = static_cast<ColourSwatch *>(child<QFrame>("clNoteColor"));
        const QColor standard(32, 96, 255);
        QCOMPARE(swatch->colour(), standard);
        click("btnResetNoteColor"); // is shown already
        click("btnPickNoteColor");  // cancelled
        QVERIFY(!button(QDialogButtonBox::Apply)->isEnabled());

        dialogs_->pickedColour = QColor(10, 20, 30);
        click("btnPickNoteColor");
        QCOMPARE(swatch->colour(), QColor(10, 20, 30));
        button(QDialogButtonBox::Apply)->click();
        QCOMPARE(settings_->value(Settings::NoteColor).value<QColor>(), QColor(10, 20, 30));
        click("btnResetNoteColor");
        button(QDialogButtonBox::Ok)->click();
        QCOMPARE(settings_->value(Settings::NoteColor).value<QColor>(), standard);
        QVERIFY(dialogs_->messages.isEmpty());
    }

    void keepsInstrumentsForPrograms()
    {
        InstrumentSet instruments;
        for (const auto *const name : {"Drums", "Lute", "Violin"})
            instruments.add({QLatin1String(name), {}, {}});
        settings_->setValue(Settings::ProgramInstrument, QStringLiteral("40=Violin\n24=Lute\n900=Lute\nx\n128=Violin"));
        dialog_ = std::make_unique<PreferencesDialog>(*settings_, *dialogs_, SoundDevices{output_}, instruments);
        auto *const list = child<QTreeWidget>("rememberedPrograms");
        auto *const instrument = child<QComboBox>("cboProgramInstrument");
        QCOMPARE(list->topLevelItemCount(), 3);
        QCOMPARE(list->topLevelItem(1)->text(0), QStringLiteral("Violin"));
        QCOMPARE(list->topLevelItem(2)->text(0), QStringLiteral("Percussion"));
        list->clearSelection();
        QVERIFY(!instrument->isEnabled());
        list->topLevelItem(2)->setSelected(true);
        QCOMPARE(instrument->currentText(), QStringLiteral("Violin"));
        instrument->setCurrentIndex(0);
        emit instrument->activated(0);
        list->clearSelection();
        list->topLevelItem(1)->setSelected(true);
        click("btnForgetProgram");
        child<QSpinBox>("spnVelocityGate")->setValue(20);
        button(QDialogButtonBox::Ok)->click();
        QCOMPARE(settings_->value(Settings::ProgramInstrument).toString(), QStringLiteral("24=Lute\n128=Drums"));
        QCOMPARE(settings_->value(Settings::MidiVelocityGate).toInt(), 20);
    }

    // A device that is not there stays chosen, and what plays instead is told.
    void choosesSound()
    {
        settings_->setValue(Settings::SoundDevice, QStringLiteral("Gone"));
        output_.tellOpened("Gone", 42.67);
        output_.tellUnderruns(3);
        dialog_ = std::make_unique<PreferencesDialog>(*settings_, *dialogs_, SoundDevices{output_});
        auto *const device = child<QComboBox>("cboSoundDevice");
        child<QListWidget>("propertySelector")->setCurrentRow(5);
        dialog_->show();
        QTRY_COMPARE(device->count(), 4);
        QCOMPARE(device->currentData().toString(), QStringLiteral("Gone"));
        QVERIFY(child<QLabel>("lblLatency")->text().startsWith(QStringLiteral("42")));
        QCOMPARE(child<QLabel>("lblUnderruns")->text(), QStringLiteral("3"));
        QVERIFY(child<QLabel>("lblMissingDevice")->text().contains(QStringLiteral("Gone")));
        output_.tellUnderruns(2);
        QTRY_COMPARE(child<QLabel>("lblUnderruns")->text(), QStringLiteral("5"));

        device->setCurrentIndex(2);
        emit device->activated(2);
        auto *const block = child<QComboBox>("cboSoundBlock");
        block->setCurrentIndex(block->findData(512));
        emit block->activated(block->currentIndex());
        button(QDialogButtonBox::Ok)->click();
        QCOMPARE(settings_->value(Settings::SoundDevice).toString(), QStringLiteral("Speakers"));
        QCOMPARE(settings_->value(Settings::SoundBlock).toInt(), 512);
    }

    // Whether a library can be used is found out beside the window.
    void choosesAnEngine()
    {
        auto *const engine = child<QComboBox>("cboSoundEngine");
        auto *const file = child<QLineEdit>("txtFmodFile");
        QVERIFY(!file->isEnabled());
        engine->setCurrentIndex(1);
        emit engine->activated(1);
        file->setText(QStringLiteral("/nowhere/library"));
        emit file->editingFinished();
        QTRY_VERIFY(child<QLabel>("lblFmod")->text().contains(QStringLiteral("/nowhere/library")));
        click("btnTestFmod");
        QVERIFY(!child<QPushButton>("btnTestFmod")->isEnabled());
        QTRY_VERIFY(child<QPushButton>("btnTestFmod")->isEnabled());
        dialogs_->files = QStringList(QStringLiteral("/elsewhere/library"));
        click("btnBrowseFmod");
        dialogs_->files.clear();
        click("btnBrowseFmod"); // cancelled
        QTRY_VERIFY(child<QLabel>("lblFmod")->text().contains(QStringLiteral("/elsewhere/library")));
        button(QDialogButtonBox::Ok)->click();
        QCOMPARE(settings_->value(Settings::SoundEngine).toInt(), 1);
        QCOMPARE(settings_->value(Settings::FmodFile).toString(), QStringLiteral("/elsewhere/library"));
    }

    void discardsWhenCancelled()
    {
        dialogs_->pickedColour = QColor(10, 20, 30);
        click("btnPickNoteColor");
        child<QCheckBox>("chkRealign")->click();
        button(QDialogButtonBox::Cancel)->click();
        QCOMPARE(changes_->count(), 0);
        QVERIFY(!settings_->contains(Settings::NoteColor));
    }

private:
    template<typename Widget>
    Widget *child(const char *name) const
    {
        return dialog_->findChild<Widget *>(QLatin1String(name));
    }
    void click(const char *name) const { child<QPushButton>(name)->click(); }
    QPushButton *button(QDialogButtonBox::StandardButton which) const
    {
        return child<QDialogButtonBox>("buttonBox")->button(which);
    }

    std::unique_ptr<QTemporaryDir> directory_;
    std::unique_ptr<AnsweringDialogs> dialogs_;
    std::unique_ptr<Settings> settings_;
    std::unique_ptr<QSignalSpy> changes_;
    OutputControl output_{[] {
        std::promise<OutputControl::Names> names;
        names.set_value({"Headset", "Speakers"});
        return names.get_future();
    }};
    std::unique_ptr<PreferencesDialog> dialog_;
    const QString restart_ =
        QStringLiteral("Kelvarion Composer|This change will take effect next time you start Kelvarion Composer.");
};

QTEST_MAIN(TestPreferences)
#include "test_preferences.moc"
