#include "app/commands/PartsFolder.h"

#include "app/services/RecentFiles.h"
#include "app/services/SongSession.h"
#include "base/ErrorText.h"
#include "base/SafeFile.h"
#include "settings/Settings.h"
#include "song/SongParts.h"
#include "ui/Dialogs.h"

#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int longestList = 20; // lines of a message

QString linesOf(const QStringList &lines)
{
    return lines.mid(0, longestList).join(u'\n') + (lines.size() > longestList ? QStringLiteral("\n…") : QString());
}

} // namespace

void PartsFolder::save()
{
    if (isBusy() || context_.tracks.isEmpty())
        return;
    const auto start = context_.settings.value(Settings::AbcSaveDir).toString();
    const auto folder = context_.dialogs.directory(&context_.window, tr("Save Parts to Folder"), start);
    if (folder.isEmpty())
        return;
    context_.settings.setValue(Settings::AbcSaveDir, folder);
    emit saving(folder);
    consider(partsFor(folder));
}

PartsFolder::Parts PartsFolder::partsFor(const QString &folder) const
{
    const auto names = SongParts::fileNames(context_.session.songToSave(), context_.session.name());
    const auto &tracks = context_.tracks.song();
    Parts parts;
    for (int i = 0; i < tracks.size(); ++i)
        parts.append({tracks[i]->id, tracks[i]->track, folder + u'/' + names[i]});
    return parts;
}

void PartsFolder::consider(const Parts &parts)
{
    const auto look = [parts](const TaskControl &) {
        QStringList existing;
        for (const auto &part : parts) {
            if (QFileInfo::exists(part.path))
                existing.append(QFileInfo(part.path).fileName());
        }
        return existing;
    };
    const auto decide = [this, parts](const QStringList &existing) {
        if (existing.isEmpty() || mayReplace(existing))
            write(parts);
        else
            emit idle();
    };
    task_.start(look, decide, [this](const QString &error) { showFailure(error); });
}

bool PartsFolder::mayReplace(const QStringList &existing)
{
    const auto question =
        tr("%n file(s) are there already:\n%1\nWould you like to overwrite them?", nullptr, int(existing.size()))
            .arg(linesOf(existing));
    return context_.dialogs.ask(&context_.window, tr("Save Parts to Folder"), question) == Dialogs::Answer::Yes;
}

void PartsFolder::write(const Parts &parts)
{
    std::size_t characters = 0;
    for (const auto &part : parts)
        characters = std::max(characters, std::size_t(Track(*part.track).toAbc().size()));
    task_.start([parts](const TaskControl &) { return written(parts); }, [this](const Parts &done) { take(done); },
                [this](const QString &error) { showFailure(error); }, 4 * characters);
}

PartsFolder::Parts PartsFolder::written(Parts parts)
{
    for (auto &part : parts) {
        try {
            SafeFile::write(part.path, Track(*part.track).toAbc().toUtf8());
        } catch (...) {
            part.failure = part.path + QStringLiteral(": ") + currentErrorText();
        }
    }
    return parts;
}

void PartsFolder::take(const Parts &parts)
{
    QStringList paths;
    QStringList failures;
    for (const auto &part : parts) {
        if (!part.failure.isEmpty()) {
            failures.append(part.failure);
            continue;
        }
        context_.tracks.markSaved(part.id, part.path, part.track);
        paths.append(part.path);
    }
    RecentFiles::add(context_.settings, paths);
    emit saved(paths);
    if (!failures.isEmpty())
        showFailure(tr("Could not open the file for saving.") + u'\n' + linesOf(failures));
    else
        emit idle();
}

void PartsFolder::showFailure(const QString &text)
{
    context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, QStringLiteral("Kelvarion Composer"), text);
    emit idle();
}
