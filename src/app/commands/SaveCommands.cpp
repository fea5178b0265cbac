#include "app/commands/SaveCommands.h"

#include "app/services/RecentFiles.h"
#include "base/ErrorText.h"
#include "base/FileState.h"
#include "base/SafeFile.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"
#include "ui/tracks/TrackList.h"

#include <QDir>
#include <QFileInfo>
#include <QWidget>

namespace {

const QString programName = QStringLiteral("Kelvarion Composer");

QString shownTitle(const Track &track)
{
    const auto title = track.title();
    return title.isEmpty() ? QStringLiteral("Untitled") : title;
}

} // namespace

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
    QStringList changed;
    for (const auto &id : context_.tracks.ids()) {
        if (!isInItsFile(id))
            changed.append(id);
    }
    save(changed);
}

bool SaveCommands::isInItsFile(const QString &id) const
{
    return context_.tracks.isFiled(id) && QFileInfo::exists(context_.tracks.filePath(id));
}

bool SaveCommands::mayClose()
{
    const auto unsaved = context_.tracks.unsavedIds();
    if (unsaved.isEmpty())
        return true;
    const auto text = tr("%n track(s) are not saved yet.\nWould you like to save them?", nullptr, int(unsaved.size()));
    switch (context_.dialogs.askToSave(&context_.window, QStringLiteral("Kelvarion Composer"), text)) {
    case Dialogs::CloseAnswer::SaveAll:
        return save(unsaved);
    case Dialogs::CloseAnswer::Discard:
        return true;
    case Dialogs::CloseAnswer::Cancel:
        break;
    }
    return false;
}

// A dialog that is cancelled ends the command; a file that cannot be written does not.
bool SaveCommands::save(const QStringList &ids)
{
    QStringList failures;
    bool isComplete = true;
    for (const auto &id : ids) {
        try {
            const auto target = agreedTarget(id, targetOf(id));
            isComplete = target && saveTo(id, *target, failures) && isComplete;
            if (!target)
                break;
        } catch (...) {
            failures.append(QStringLiteral("%1: %2").arg(context_.tracks.filePath(id), currentErrorText()));
            isComplete = false;
        }
    }
    showFailures(failures);
    return isComplete;
}

void SaveCommands::saveAs(const QString &id)
{
    QStringList failures;
    if (const auto target = agreedTarget(id, chosenTarget(id)))
        saveTo(id, *target, failures);
    showFailures(failures);
}

std::optional<SaveCommands::Target> SaveCommands::targetOf(const QString &id)
{
    const auto path = context_.tracks.filePath(id);
    if (path.isEmpty())
        return chosenTarget(id);
    return Target{path, tr("Could not open '%1' for saving.").arg(path)};
}

std::optional<SaveCommands::Target> SaveCommands::chosenTarget(const QString &id)
{
    const auto *const track = context_.tracks.find(id);
    if (!track)
        return {};
    const auto title = shownTitle(*track->track);
    const auto folder = context_.settings.value(Settings::AbcSaveDir).toString();
    const auto proposed =
        QStringLiteral("%1/%2.abc").arg(folder.isEmpty() ? QDir::homePath() : folder, SafeFile::cleanName(title));
    const auto path = context_.dialogs.saveFile(&context_.window, tr("Save track '%1' as..").arg(title), proposed,
                                                tr("ABC Files (*.abc)"));
    if (path.isEmpty())
        return {};
    context_.settings.setValue(Settings::AbcSaveDir, QFileInfo(path).path());
    return Target{path, tr("Could not open the file for saving.")};
}

// What the user wants after being told what speaks against it; nothing when he cancels.
std::optional<SaveCommands::Target> SaveCommands::agreedTarget(const QString &id, std::optional<Target> target)
{
    while (target) {
        const auto objection = objectionTo(id, target->path);
        if (objection.isEmpty())
            return target;
        const auto question = objection + u'\n' + tr("Would you like to overwrite it?");
        switch (context_.dialogs.askToOverwrite(&context_.window, programName, question)) {
        case Dialogs::OverwriteAnswer::Overwrite:
            return target;
        case Dialogs::OverwriteAnswer::SaveAs:
            target = chosenTarget(id);
            break;
        case Dialogs::OverwriteAnswer::Cancel:
            return {};
        }
    }
    return target;
}

QString SaveCommands::objectionTo(const QString &id, const QString &path) const
{
    const auto rivals = context_.tracks.rivalsFor(path, id);
    if (!rivals.isEmpty())
        return tr("'%1' is also the file of the track '%2', which would be lost from it.")
            .arg(path, shownTitle(*context_.tracks.find(rivals.first())->track));
    const auto known = context_.tracks.savedText(id);
    if (known && path == context_.tracks.filePath(id) && holdsAnotherText(path, *known))
        return tr("'%1' was changed by another program.").arg(path);
    switch (protectionOf(path)) {
    case FileProtection::ReadOnly:
        return tr("'%1' is read-only.").arg(path);
    case FileProtection::OfAnotherUser:
        return tr("'%1' belongs to another user.").arg(path);
    case FileProtection::None:
        break;
    }
    return {};
}

bool SaveCommands::saveTo(const QString &id, const Target &target, QStringList &failures)
{
    const auto *const saved = context_.tracks.find(id);
    if (!saved)
        return false;
    try {
        auto track = *saved->track; // making the text may complete the header; a save changes nothing
        SafeFile::write(target.path, track.toAbc().toUtf8());
    } catch (...) {
        const auto reason = currentErrorText();
        qWarning("%s: %s", qUtf8Printable(target.path), qUtf8Printable(reason));
        failures.append(QStringLiteral("%1\n%2: %3").arg(target.failure, target.path, reason));
        if (target.path != context_.tracks.filePath(id))
            context_.tracks.setFilePath(id, target.path);
        return false;
    }
    context_.tracks.markSaved(id, target.path);
    RecentFiles::add(context_.settings, target.path);
    return true;
}

void SaveCommands::showFailures(const QStringList &failures)
{
    if (!failures.isEmpty())
        context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, programName,
                                 failures.join(QStringLiteral("\n\n")));
}
