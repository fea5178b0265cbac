#pragma once

#include "app/WindowFixture.h"
#include "app/recovery/RecoveryDialog.h"
#include "support/MidiBytes.h"
#include "ui/InstrumentComboBox.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/manual/ManualWindow.h"
#include "ui/preferences/PreferencesDialog.h"
#include "ui/preferences/SoundPage.h"
#include "ui/report/TuneChooser.h"
#include "ui/transform/KeyDialog.h"
#include "ui/transform/RealignNotesDialog.h"
#include "ui/transform/TransposeDialog.h"
#include "ui/transform/UnitLengthDialog.h"

#include <QAbstractButton>
#include <QDockWidget>
#include <QListWidget>
#include <QMenu>

#include <functional>

// Opens the windows and dialogs one after the other, and looks at each.
class WindowWalk
{
public:
    using Look = std::function<void(QWidget &)>;

    WindowWalk(const QString &game, const Look &look) : look_(look), fixture_(game) {}

    bool run()
    {
        if (!fixture_.waitUntilLoaded())
            return false;
        look_(fixture_.window());
        fixture_.window().openFiles({song()});
        if (!QTest::qWaitFor([this] { return fixture_.tracks().song().size() == 2; }, 10'000))
            return false;
        for (const auto *const dock : {"dockHistory", "dockFindings", "dockImportReport"})
            fixture_.child<QDockWidget>(dock)->show();
        fixture_.tracks().setStartOffset({fixture_.tracks().ids().first()}, 20);
        look_(fixture_.window());
        look_(*fixture_.row(0)->contextMenu());
        lookAtEditor();
        lookAtOtherDialogs();
        return lookAtDialogsOfCommands();
    }

private:
    QString song()
    {
        using namespace MidiBytes;
        const auto part = [](int channel) {
            return noteOn(0, 60, 90, channel) + noteOff(96, 60, channel) + noteOn(0, 20, 90, channel) +
                   noteOff(96, 20, channel);
        };
        return fixture_.write("song.mid", file({part(0) + part(1) + endOfTrack()}));
    }

    void lookAtEditor()
    {
        fixture_.inRow<QAbstractButton>(0, "btnEdit")->click();
        auto &editor = *fixture_.window().findChild<AbcEditorWindow *>();
        for (const auto *const action : {"actionShowRoll", "actionShowProblems", "actionReplace"})
            editor.findChild<QAction *>(QLatin1String(action))->trigger();
        look_(editor);
    }

    bool lookAtDialogsOfCommands()
    {
        fixture_.settings().setValue(Settings::ChooseParts, true);
        fixture_.dialogs().files = QStringList(song());
        fixture_.dialogs().answerOrCancel = Dialogs::Answer::No;
        fixture_.dialogs().inDialog = [this](QDialog &dialog) {
            look_(dialog);
            dialog.reject();
        };
        for (const auto *const action :
             {"actionImport_MIDI", "actionImport_Again", "actionExport_Audio", "actionRehearsal_Offsets",
              "actionArrange", "actionTranspose_Song", "actionOne_Tempo", "actionShortcuts"})
            fixture_.trigger(action);
        fixture_.row(0)->onChooseStartOffset();
        return QTest::qWaitFor([this] { return !fixture_.window().isLoading(); });
    }

    void lookAtOtherDialogs()
    {
        const auto *const model = fixture_.inRow<InstrumentComboBox>(0, "cboInstrument")->model();
        PreferencesDialog preferences(fixture_.settings(), fixture_.dialogs(), SoundDevices{*fixture_.output},
                                      static_cast<const InstrumentSetModel *>(model)->instruments());
        auto *const pages = preferences.findChild<QListWidget *>();
        for (int row = 0; row < pages->count(); ++row) {
            pages->setCurrentRow(row);
            look_(preferences);
        }
        KeyDialog key(fixture_.dialogs());
        RealignNotesDialog realign(fixture_.settings());
        TransposeDialog transpose;
        UnitLengthDialog unitLength;
        RecoveryDialog recovery(RecoveryDialog::Occasion::Command, &fixture_.window());
        TuneChooser tunes(QStringLiteral("song"), {QStringLiteral("Track 1"), QStringLiteral("Track 2")});
        ManualWindow manual(nullptr);
        manual.setAttribute(Qt::WA_DeleteOnClose, false);
        manual.showPage(QStringLiteral("index.md"));
        for (QWidget *const dialog :
             std::initializer_list<QWidget *>{&key, &realign, &transpose, &unitLength, &recovery, &tunes, &manual})
            look_(*dialog);
    }

    const Look look_;
    WindowFixture fixture_;
};
