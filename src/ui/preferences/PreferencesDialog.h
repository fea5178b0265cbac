#pragma once

#include "assets/InstrumentSet.h"
#include "settings/Settings.h"

#include <QDialog>
#include <QHash>
#include <QVector>

class Dialogs;
struct SoundDevices;
class ColourSwatch;
enum class ImportKind;
class QCheckBox;
class QLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;

// Edits the settings that are not remembered by themselves. Changes wait until they are applied.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    // instruments: what a program of MIDI can be played on.
    PreferencesDialog(Settings &settings, Dialogs &dialogs, const SoundDevices &sound,
                      const InstrumentSet &instruments = {}, QWidget *parent = nullptr);

    void accept() override; // applies and closes

private:
    enum class Restart { NotNeeded, Needed };
    enum class Kind { Path, CheckBox, Colour };
    // One setting and the control that shows it: the one of its kind is set.
    struct Binding
    {
        Settings::Setting setting;
        Restart restart;
        Kind kind;
        QLineEdit *path = nullptr;
        QCheckBox *box = nullptr;
        ColourSwatch *swatch = nullptr;
    };

    void addPage(const QString &title, const char *drawing, QWidget *page, const char *manual);
    QWidget *instrumentsPage();
    QWidget *previewPage();
    QWidget *midiPage();
    QWidget *abcPage();
    QWidget *importSettings(ImportKind kind);
    QLayout *foreignAbcRow();
    QWidget *programsPage(const InstrumentSet &instruments);
    QWidget *soundPage(const SoundDevices &devices);
    QWidget *checksPage();
    QWidget *appearancePage();
    QLayout *languageRow();
    QCheckBox *addCheckBox(Settings::Setting setting, const QString &name, const QString &text, const QString &tip,
                           Restart restart = Restart::NotNeeded);
    void bind(const Binding &binding);
    void change(const Binding &binding, const QVariant &value);
    void change(Settings::Setting setting, const QVariant &value);
    void tellAboutRestart(Settings::Setting setting);
    void browse(const Binding &binding);
    void changeColour(const Binding &binding, const QColor &colour);
    void apply();

    Settings &settings_;
    Dialogs &dialogs_;
    QListWidget *selector_;
    QStackedWidget *pages_;
    QSize roomOfPages_; // that the largest asks for
    QPushButton *apply_ = nullptr;
    QHash<Settings::Setting, QVariant> pending_;
};
