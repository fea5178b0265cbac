#include "ui/preferences/EngineGroup.h"

#include "audio/choice/EngineChoice.h"
#include "audio/choice/ScaleTest.h"
#include "ui/Dialogs.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace {

QComboBox *kindBox(int chosen)
{
    auto *const box = new QComboBox;
    box->setObjectName(QStringLiteral("cboSoundEngine"));
    box->addItem(EngineGroup::tr("Built-in"), int(EngineKind::Builtin));
    box->addItem(QStringLiteral("FMOD"), int(EngineKind::Fmod));
    box->setCurrentIndex(qMax(0, box->findData(chosen)));
    box->setToolTip(EngineGroup::tr("What mixes the tracks, from the next Play on"));
    return box;
}

QLineEdit *fileLine(const QString &file)
{
    auto *const line = new QLineEdit(file);
    line->setObjectName(QStringLiteral("txtFmodFile"));
    line->setPlaceholderText(EngineGroup::tr("The game's or the system's"));
    line->setToolTip(EngineGroup::tr("Your FMOD library, version 1.08 to 2.03, as games come with"));
    return line;
}

QPushButton *namedButton(const char *name, const QString &text, const QString &tip)
{
    auto *const button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    return button;
}

QLabel *libraryLabel()
{
    auto *const label = new QLabel;
    label->setObjectName(QStringLiteral("lblFmod"));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

} // namespace

EngineGroup::EngineGroup(const Settings &settings, Dialogs &dialogs, QWidget *parent)
    : QGroupBox(tr("Sound Engine"), parent), dialogs_(dialogs),
      gameFolder_(settings.value(Settings::RootPath).toString()),
      chosenFile_(settings.value(Settings::FmodFile).toString()),
      kind_(kindBox(settings.value(Settings::SoundEngine).toInt())), file_(fileLine(chosenFile_)),
      browse_(namedButton("btnBrowseFmod", tr("Browse..."), tr("Choose the file of an FMOD library"))),
      test_(namedButton("btnTestFmod", tr("Test"), tr("Play a scale with this library"))), library_(libraryLabel())
{
    auto *const file = new QHBoxLayout;
    file->addWidget(file_, 1);
    file->addWidget(browse_);
    file->addWidget(test_);
    auto *const rows = new QFormLayout(this);
    rows->addRow(tr("Engine:"), kind_);
    rows->addRow(tr("Library:"), file);
    rows->addRow(library_);
    qobject_cast<QLabel *>(rows->labelForField(file))->setBuddy(file_);
    connect(kind_, qOverload<int>(&QComboBox::activated), this, [this] {
        emit changed(Settings::SoundEngine, kind_->currentData());
        showLibrary();
    });
    connect(file_, &QLineEdit::editingFinished, this, &EngineGroup::chooseFile);
    connect(browse_, &QPushButton::clicked, this, &EngineGroup::browse);
    connect(test_, &QPushButton::clicked, this, &EngineGroup::test);
    showLibrary();
}

EngineWish EngineGroup::wish() const
{
    return {EngineKind(kind_->currentData().toInt()), chosenFile_, gameFolder_};
}

void EngineGroup::chooseFile()
{
    const auto file = file_->text();
    if (std::exchange(chosenFile_, file) == file)
        return;
    emit changed(Settings::FmodFile, file);
    showLibrary();
}

void EngineGroup::browse()
{
    const auto file = dialogs_.openFile(this, tr("Choose the FMOD library"), chosenFile_,
                                        tr("Libraries (*.so *.so.* *.dll *.dylib);;All files (*)"));
    if (file.isEmpty())
        return;
    file_->setText(file);
    chooseFile();
}

// The version, or what is wrong; no library is opened before it is wanted.
void EngineGroup::showLibrary()
{
    const bool isWanted = wish().kind == EngineKind::Fmod;
    for (QWidget *const each : std::initializer_list<QWidget *>{file_, browse_, test_})
        each->setEnabled(isWanted);
    testing_.cancel();
    describing_.cancel();
    library_->clear();
    library_->setVisible(isWanted);
    if (!isWanted)
        return;
    const auto describe = [wish = wish()](const TaskControl &) { return describeFmod(wish); };
    const auto show = [this](const QString &text) {
        library_->setText(tr("%1\nIt plays on the system's default device.").arg(text));
    };
    describing_.start(describe, show, [this](const QString &reason) { showFailure(reason); });
}

void EngineGroup::showFailure(const QString &reason)
{
    library_->setText(insteadText(reason));
}

void EngineGroup::test()
{
    const auto play = [wish = wish()](const TaskControl &control) {
        playScale(*makeFmodEngine(wish), control.stop());
        return true;
    };
    const auto end = [this] { test_->setEnabled(true); };
    test_->setEnabled(false);
    testing_.start(
        play, [end](bool) { end(); },
        [this, end](const QString &reason) {
            end();
            showFailure(reason);
        });
}
