#include "app/commands/InstrumentCommands.h"

#include "app/services/Playback.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"
#include "ui/InstrumentComboBox.h"

#include <QSignalBlocker>

InstrumentCommands::InstrumentCommands(const CommandContext &context, InstrumentSetModel &instruments,
                                       InstrumentComboBox &selector)
    : context_(context), instruments_(instruments), selector_(selector)
{
    connect(&scan_, &InstrumentScanTask::finished, this, &InstrumentCommands::takeScanned);
    connect(&scan_, &InstrumentScanTask::failed, this, [this](const QString &error) {
        context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, tr("Load Instruments"), error);
    });
}

QVector<ActionRow> InstrumentCommands::actions()
{
    return {{"actionApplyInstrument", tr("Apply Instrument"), "",
             tr("Apply this instrument to selected tracks or all if none are selected."), "applyinstrument",
             "onApplyInstrument()", Available::WithTracks}};
}

void InstrumentCommands::scan()
{
    if (scan_.isRunning() || isScanned_)
        return;
    const bool loadsMods = context_.settings.value(Settings::LoadMods).toBool();
    scan_.start(context_.settings.value(Settings::RootPath).toString(), loadsMods ? Mods::Load : Mods::Skip);
}

void InstrumentCommands::takeScanned(const InstrumentSet &instruments)
{
    isScanned_ = true;
    {
        const QSignalBlocker blocker(selector_); // what is shown then is no choice of the user
        instruments_.setInstruments(instruments);
        const auto wanted = context_.settings.value(Settings::DefaultInstrument).toString();
        selector_.setCurrentText(context_.playback.resolvedName(wanted));
    }
    context_.playback.setDefaultInstrument(selector_.currentText());
    emit scanned();
}

void InstrumentCommands::setDefault(const QString &name)
{
    context_.playback.setDefaultInstrument(name);
    context_.settings.setValue(Settings::DefaultInstrument, name);
}

void InstrumentCommands::apply()
{
    const auto selected = context_.tracks.selectedIds();
    context_.tracks.setInstrument(selected.isEmpty() ? context_.tracks.ids() : selected, selector_.currentText());
}
