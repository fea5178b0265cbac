#include "app/commands/SaveCommands.h"

#include "app/services/RecentFiles.h"
#include "ui/Dialogs.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"

#include <algorithm>

QVector<ActionRow> SaveCommands::actions()
{
    return {
        {"actionSave_Selected", "Save Selected", "Ctrl+S", "Save the selected tracks to disk", "save",
         "onSaveSelected()", Available::WithSelection},
        {"actionSave_All", "Save All", "Ctrl+Shift+S", "Save all tracks to disk", "saveall", "onSaveAll()",
         Available::WithTracks},
    };
}

void SaveCommands::saveSelected()
{
    save(context_.tracks.selectedIds());
}

void SaveCommands::saveAll()
{
    save(context_.tracks.ids());
}

bool SaveCommands::mayClose()
{
    const auto unsaved = context_.tracks.unsavedIds();
    if (unsaved.isEmpty())
        return true;
    const auto text = tr("%n track(s) are not saved yet.\nWould you like to save them?", nullptr, int(unsaved.size()));
    switch (context_.dialogs.askToSave(&context_.window, context_.window.windowTitle(), text)) {
    case Dialogs::CloseAnswer::SaveAll:
        return save(unsaved);
    case Dialogs::CloseAnswer::Discard:
        return true;
    case Dialogs::CloseAnswer::Cancel:
        break;
    }
    return false;
}

bool SaveCommands::save(const QStringList &ids)
{
    return std::all_of(ids.cbegin(), ids.cend(), [this](const QString &id) {
        auto *const row = rows_.row(id);
        return row && row->save();
    });
}

void SaveCommands::noteSaved(const QString &id, const QString &path)
{
    context_.tracks.markSaved(id, path);
    RecentFiles::add(context_.settings, path);
}
