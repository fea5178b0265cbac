#include "ui/preferences/PreferencesDialog.h"

#include "assets/GameInstallation.h"
#include "language/Language.h"
#include "ui/Dialogs.h"
#include "ui/Icons.h"
#include "ui/ImportSettingsBox.h"
#include "ui/ManualPage.h"
#include "ui/ScreenFit.h"
#include "ui/preferences/ChecksPage.h"
#include "ui/preferences/ColourSwatch.h"
#include "ui/preferences/ProgramsPage.h"
#include "ui/preferences/SoundPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>

#include <algorithm>
#include <utility>

namespace {

QPushButton *namedButton(const QString &name, const QString &text, const QString &tip, const char *drawing = nullptr)
{
    auto *const button = new QPushButton(drawing ? icon(drawing) : QIcon(), text);
    button->setObjectName(name);
    button->setToolTip(tip);
    return button;
}

// A page with one group, which gets the rows.
QWidget *pageOf(const QString &groupTitle, QLayout *rows)
{
    auto *const group = new QGroupBox(groupTitle);
    group->setLayout(rows);
    auto *const page = new QWidget;
    auto *const column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(group);
    column->addStretch();
    return page;
}

} // namespace

PreferencesDialog::PreferencesDialog(Settings &settings, Dialogs &dialogs, const SoundDevices &sound,
                                     const InstrumentSet &instruments, QWidget *parent)
    : QDialog(parent), settings_(settings), dialogs_(dialogs), selector_(new QListWidget), pages_(new QStackedWidget)
{
    setWindowTitle(tr("Preferences"));
    selector_->setObjectName(QStringLiteral("propertySelector"));
    selector_->setAccessibleName(tr("Pages"));
    selector_->setToolTip(tr("What the preferences are about"));
    selector_->setIconSize({24, 24});
    pages_->setObjectName(QStringLiteral("propertyPages"));
    connect(selector_, &QListWidget::currentRowChanged, pages_, &QStackedWidget::setCurrentIndex);
    connect(pages_, &QStackedWidget::currentChanged, this,
            [this] { setProperty(manualPageProperty, manualPage(*pages_->currentWidget())); });

    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    apply_ = buttons->addButton(QDialogButtonBox::Apply);
    apply_->setEnabled(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PreferencesDialog::reject);
    connect(apply_, &QPushButton::clicked, this, &PreferencesDialog::apply);

    addPage(tr("Instruments"), "instrument", instrumentsPage(), "instruments.md");
    addPage(tr("Track Preview"), "preview", previewPage(), "window.md");
    addPage(tr("Midi Import"), "midiimport", midiPage(), "import.md");
    addPage(tr("ABC Import"), "import", abcPage(), "import.md");
    addPage(tr("Programs"), "applyinstrument", programsPage(instruments), "import.md");
    addPage(tr("Sound"), "sound", soundPage(sound), "window.md");
    addPage(tr("Checks"), "find", checksPage(), "checks.md");
    addPage(tr("Appearance"), "preferences", appearancePage(), "window.md");
    constexpr int usualWidth = 160;
    selector_->setFixedWidth(std::max(usualWidth, selector_->sizeHintForColumn(0) + 2 * selector_->frameWidth()));
    selector_->setCurrentRow(0);

    auto *const row = new QHBoxLayout;
    row->addWidget(selector_);
    row->addWidget(pages_, 1);
    auto *const column = new QVBoxLayout(this);
    column->addLayout(row, 1);
    column->addWidget(buttons);
    const int margin = column->contentsMargins().left();
    const auto room = roomOfPages_ + QSize(selector_->width() + row->spacing(), column->spacing());
    resize(room + QSize(0, buttons->sizeHint().height()) + 2 * QSize(margin, margin));
    fitToScreen(*this);
}

void PreferencesDialog::addPage(const QString &title, const char *drawing, QWidget *page, const char *manual)
{
    selector_->addItem(new QListWidgetItem(icon(drawing), title));
    auto *const area = new QScrollArea; // on a small screen
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(page);
    setManualPage(*area, manual);
    pages_->addWidget(area);
    const int bar = area->verticalScrollBar()->sizeHint().width();
    roomOfPages_ = roomOfPages_.expandedTo(page->sizeHint() + QSize(bar, 0));
}

QWidget *PreferencesDialog::instrumentsPage()
{
    auto *const path = new QLineEdit;
    path->setObjectName(QStringLiteral("txtKelvarionPath"));
    path->setReadOnly(true);
    path->setToolTip(tr("The folder that Kelvarion is installed in"));
    auto *const browseButton = namedButton(QStringLiteral("btnBrowseKVPath"), tr("Browse..."),
                                           tr("Choose the folder that Kelvarion is installed in"));
    const Binding binding{Settings::RootPath, Restart::Needed, Kind::Path, path};
    bind(binding);
    connect(browseButton, &QPushButton::clicked, this, [this, binding] { browse(binding); });

    auto *const label = new QLabel(tr("Kelvarion Location:"));
    label->setBuddy(path);
    auto *const location = new QHBoxLayout;
    location->addWidget(label);
    location->addWidget(path, 1);
    location->addWidget(browseButton);
    auto *const rows = new QVBoxLayout;
    rows->addLayout(location);
    rows->addWidget(addCheckBox(Settings::LoadMods, QStringLiteral("chkLoadMods"),
                                tr("Load instruments from mods directory"), tr("Also offer the instruments of mods"),
                                Restart::Needed));
    return pageOf(tr("Kelvarion"), rows);
}

QWidget *PreferencesDialog::previewPage()
{
    auto *const rows = new QVBoxLayout;
    rows->addWidget(addCheckBox(Settings::DrawOctaveLines, QStringLiteral("chkPreviewDrawOctave"),
                                tr("Draw octave lines"), tr("Show a line below every C")));
    rows->addWidget(addCheckBox(Settings::DrawMeasureLines, QStringLiteral("chkPreviewDrawMeasure"),
                                tr("Draw measure lines"), tr("Show where each measure begins")));

    auto *const swatch = new ColourSwatch;
    swatch->setObjectName(QStringLiteral("clNoteColor"));
    swatch->setAccessibleName(tr("Note color"));
    swatch->setToolTip(tr("The color that notes are drawn in"));
    auto *const pick = namedButton(QStringLiteral("btnPickNoteColor"), tr("Change color"),
                                   tr("Choose the color that notes are drawn in"), "color-swatch");
    auto *const reset = namedButton(QStringLiteral("btnResetNoteColor"), tr("Revert to default"),
                                    tr("Draw notes in the usual color again"), "revert");
    const Binding binding{Settings::NoteColor, Restart::NotNeeded, Kind::Colour, nullptr, nullptr, swatch};
    bind(binding);
    connect(pick, &QPushButton::clicked, this, [this, binding] {
        changeColour(binding, dialogs_.colour(this, tr("Pick note color"), binding.swatch->colour()));
    });
    connect(reset, &QPushButton::clicked, this,
            [this, binding] { changeColour(binding, SettingsTable::defaultValue(binding.setting).value<QColor>()); });

    auto *const colour = new QHBoxLayout;
    colour->addWidget(new QLabel(tr("Note color")));
    colour->addWidget(swatch);
    colour->addStretch();
    auto *const changes = new QHBoxLayout;
    changes->addWidget(pick);
    changes->addWidget(reset);
    changes->addStretch();
    rows->addLayout(colour);
    rows->addLayout(changes);
    return pageOf(tr("Visualization"), rows);
}

QWidget *PreferencesDialog::midiPage()
{
    auto *const page = new QWidget;
    auto *const rows = new QVBoxLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(addCheckBox(Settings::ChooseParts, QStringLiteral("chkChooseParts"),
                                tr("Choose parts when importing"),
                                tr("Show what would become parts, and how, before Import MIDI brings them in")));
    rows->addWidget(importSettings(ImportKind::Midi));
    return page;
}

QWidget *PreferencesDialog::abcPage()
{
    auto *const page = new QWidget;
    auto *const rows = new QVBoxLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addLayout(foreignAbcRow());
    rows->addWidget(importSettings(ImportKind::StandardAbc));
    return page;
}

QWidget *PreferencesDialog::importSettings(ImportKind kind)
{
    auto *const box = new ImportSettingsBox({kind}, settings_);
    connect(box, &ImportSettingsBox::changed, this,
            qOverload<Settings::Setting, const QVariant &>(&PreferencesDialog::change));
    return box;
}

QLayout *PreferencesDialog::foreignAbcRow()
{
    auto *const box = new QComboBox;
    box->setObjectName(QStringLiteral("cboForeignAbc"));
    box->addItems({tr("Ask"), tr("Convert for the game"), tr("Open as it is")}); // as the setting counts
    box->setToolTip(tr("ABC that was written for other programs has repeats, voices and more that the game reads "
                       "otherwise"));
    box->setCurrentIndex(settings_.value(Settings::AbcForeign).toInt());
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int index) { change(Settings::AbcForeign, index); });
    auto *const label = new QLabel(tr("ABC that the game reads otherwise:"));
    label->setBuddy(box);
    auto *const row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(box);
    row->addStretch();
    return row;
}

QWidget *PreferencesDialog::programsPage(const InstrumentSet &instruments)
{
    auto *const programs =
        new ProgramsPage(ProgramInstruments(settings_.value(Settings::ProgramInstrument).toString()), instruments);
    connect(programs, &ProgramsPage::changed, this,
            [this](const QString &text) { change(Settings::ProgramInstrument, text); });
    return programs;
}

QWidget *PreferencesDialog::soundPage(const SoundDevices &devices)
{
    auto *const page = new SoundPage(settings_, devices, dialogs_);
    connect(page, &SoundPage::changed, this,
            qOverload<Settings::Setting, const QVariant &>(&PreferencesDialog::change));
    return page;
}

QWidget *PreferencesDialog::checksPage()
{
    auto *const page = new ChecksPage(settings_);
    connect(page, &ChecksPage::changed, this,
            qOverload<Settings::Setting, const QVariant &>(&PreferencesDialog::change));
    return page;
}

QWidget *PreferencesDialog::appearancePage()
{
    auto *const rows = new QVBoxLayout;
    rows->addWidget(addCheckBox(Settings::DarkPalette, QStringLiteral("chkDarkPalette"), tr("Dark colors"),
                                tr("Draw the windows in dark colors")));
    rows->addWidget(addCheckBox(Settings::OpenInRunning, QStringLiteral("chkOpenInRunning"),
                                tr("Open files in the running window"),
                                tr("Open what is opened in a file manager in the window that is there already")));
    rows->addLayout(languageRow());
    return pageOf(tr("Windows"), rows);
}

QLayout *PreferencesDialog::languageRow()
{
    auto *const box = new QComboBox;
    box->setObjectName(QStringLiteral("cboLanguage"));
    box->addItem(tr("System"));
    for (const auto &choice : Language::choices())
        box->addItem(choice.name, choice.code);
    box->setToolTip(tr("The language of menus, dialogs and messages, and how numbers are written"));
    box->setCurrentIndex(std::max(0, box->findData(settings_.value(Settings::Language))));
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, [=, this](int index) {
        tellAboutRestart(Settings::Language);
        change(Settings::Language, box->itemData(index).toString());
    });
    auto *const label = new QLabel(tr("&Language:"));
    label->setBuddy(box);
    auto *const row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(box);
    row->addStretch();
    return row;
}

QCheckBox *PreferencesDialog::addCheckBox(Settings::Setting setting, const QString &name, const QString &text,
                                          const QString &tip, Restart restart)
{
    auto *const box = new QCheckBox(text);
    box->setObjectName(name);
    box->setToolTip(tip);
    const Binding binding{setting, restart, Kind::CheckBox, nullptr, box};
    bind(binding);
    connect(box, &QCheckBox::toggled, this, [this, binding](bool isChecked) { change(binding, isChecked); });
    return box;
}

// Called before the control's signals are connected, so that loading is no change.
void PreferencesDialog::bind(const Binding &binding)
{
    const auto value = settings_.value(binding.setting);
    switch (binding.kind) {
    case Kind::Path:
        binding.path->setText(value.toString());
        break;
    case Kind::CheckBox:
        binding.box->setChecked(value.toBool());
        break;
    case Kind::Colour:
        binding.swatch->setColour(value.value<QColor>());
        break;
    }
}

void PreferencesDialog::change(const Binding &binding, const QVariant &value)
{
    if (binding.restart == Restart::Needed)
        tellAboutRestart(binding.setting);
    change(binding.setting, value);
}

void PreferencesDialog::tellAboutRestart(Settings::Setting setting)
{
    if (!pending_.contains(setting))
        dialogs_.message(this, Dialogs::Severity::Information, QStringLiteral("Kelvarion Composer"),
                         tr("This change will take effect next time you start Kelvarion Composer."));
}

void PreferencesDialog::change(Settings::Setting setting, const QVariant &value)
{
    pending_.insert(setting, value);
    apply_->setEnabled(true);
}

void PreferencesDialog::browse(const Binding &binding)
{
    const auto directory = dialogs_.directory(this, tr("Please locate the Kelvarion directory."), binding.path->text());
    if (directory.isEmpty())
        return;
    if (!isGameInstallation(directory)) {
        dialogs_.message(this, Dialogs::Severity::Critical, QStringLiteral("Kelvarion Composer"),
                         tr("No Kelvarion installation was found at the specified directory."));
        return;
    }
    binding.path->setText(directory);
    change(binding, directory);
}

void PreferencesDialog::changeColour(const Binding &binding, const QColor &colour)
{
    if (!colour.isValid() || colour == binding.swatch->colour())
        return;
    binding.swatch->setColour(colour);
    change(binding, colour);
}

void PreferencesDialog::apply()
{
    const auto changes = std::exchange(pending_, {});
    for (auto change = changes.constBegin(); change != changes.constEnd(); ++change)
        settings_.setValue(change.key(), change.value());
    apply_->setEnabled(false);
}

void PreferencesDialog::accept()
{
    apply();
    QDialog::accept();
}
