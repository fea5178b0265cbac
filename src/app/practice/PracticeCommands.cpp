#include "app/practice/PracticeCommands.h"

#include "app/practice/RehearsalDialog.h"
#include "app/services/Playback.h"
#include "audio/clicks/ClickTrack.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"

#include <QActionGroup>
#include <QMenu>

#include <algorithm>

PracticeCommands::PracticeCommands(const CommandContext &context) : context_(context)
{
    apply();
    Rehearsal rehearsal;
    rehearsal.spread = std::clamp(context_.settings.value(Settings::RehearsalSpread).toInt(), 1, Rehearsal::mostSpread);
    context_.playback.setRehearsal(rehearsal);
}

QVector<ActionRow> PracticeCommands::actions()
{
    return {
        {"actionRehearsal", tr("Band Rehearsal"), "",
         tr("Let the parts come in a little sooner or later, as players do who start by hand; the song stays as it is"),
         "rehearsal", "onRehearsal(bool)"},
        {"actionRehearsal_Offsets", tr("Rehearsal Offsets..."), "",
         tr("Choose by how much the parts come in sooner or later"), "", "onRehearsalOffsets()", Available::WithTracks},
        {"actionMetronome", tr("Metronome"), "Ctrl+K",
         tr("Click on every beat while the song is played; no export has the clicks"), "metronome",
         "onMetronome(bool)"}};
}

void PracticeCommands::switchMetronome(bool isOn)
{
    set(Settings::MetronomeOn, isOn);
}

void PracticeCommands::switchRehearsal(bool isOn)
{
    auto rehearsal = context_.playback.rehearsal();
    rehearsal.isOn = isOn;
    context_.playback.setRehearsal(rehearsal);
}

bool PracticeCommands::chooseRehearsal()
{
    RehearsalDialog dialog(context_.playback.rehearsal(), context_.tracks.song(), &context_.window);
    if (!context_.dialogs.run(dialog))
        return false;
    const auto chosen = dialog.rehearsal();
    context_.settings.setValue(Settings::RehearsalSpread, chosen.spread);
    context_.playback.setRehearsal(chosen);
    return true;
}

void PracticeCommands::fillMenu(QMenu &menu)
{
    QVector<Choice> measures{{tr("None"), 0}};
    for (int count = 1; count <= ClickTrack::mostCountInMeasures; ++count)
        measures.append({count == 1 ? tr("1 Measure") : tr("%1 Measures").arg(count), count});
    addChoices(menu, tr("Count-In"), Settings::CountInMeasures, measures);
    QVector<Choice> volumes;
    for (const int percent : {100, 70, 45, 25})
        volumes.append({tr("%1 %").arg(percent), percent});
    addChoices(menu, tr("Volume of the Clicks"), Settings::MetronomeVolume, volumes);
}

void PracticeCommands::addChoices(QMenu &menu, const QString &title, SettingsTable::Setting setting,
                                  const QVector<Choice> &choices)
{
    menu.addSection(title);
    // Styles of Qt 6 make no room for it.
    const auto width = menu.fontMetrics().horizontalAdvance(title + QStringLiteral("MMMM"));
    menu.setMinimumWidth(std::max(menu.minimumWidth(), width));
    auto *const group = new QActionGroup(&menu);
    const auto chosen = context_.settings.value(setting).toInt();
    for (const auto &choice : choices) {
        auto *const action = menu.addAction(choice.text);
        action->setCheckable(true);
        action->setChecked(choice.value == chosen);
        action->setActionGroup(group);
        QObject::connect(action, &QAction::triggered, &menu, [=, this, value = choice.value] { set(setting, value); });
    }
}

void PracticeCommands::set(SettingsTable::Setting setting, const QVariant &value)
{
    context_.settings.setValue(setting, value);
    apply();
}

void PracticeCommands::apply()
{
    const auto &settings = context_.settings;
    context_.playback.setMetronome({settings.value(Settings::MetronomeOn).toBool(),
                                    std::clamp(settings.value(Settings::MetronomeVolume).toInt(), 0, 100),
                                    settings.value(Settings::CountInMeasures).toInt()});
}
