#include "app/commands/SongCommands.h"

#include "app/commands/SaveCommands.h"
#include "app/services/Playback.h"
#include "app/services/RecentFiles.h"
#include "base/FileState.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <utility>

namespace {

constexpr int retryMs = 50;

const QString programName = QStringLiteral("Kelvarion Composer");

QSet<QString> partsInTheirFiles(const Song &song, const std::stop_token &stop)
{
    QSet<QString> ids;
    for (const auto &part : song.parts) {
        if (stop.stop_requested())
            break;
        if (!part.path.isEmpty() && holdsText(part.path, part.abc))
            ids.insert(part.id);
    }
    return ids;
}

} // namespace

SongCommands::SongCommands(const CommandContext &context, SaveCommands &parts, std::function<bool()> closeEditors)
    : context_(context), parts_(parts), closeEditors_(std::move(closeEditors)), saving_(context), folder_(context)
{
    waiting_.setInterval(retryMs);
    connect(&waiting_, &QTimer::timeout, this, &SongCommands::takeFound);
    connect(&parts_, &SaveCommands::idle, this, &SongCommands::onIdle);
    connect(&saving_, &SongSaving::idle, this, &SongCommands::onIdle);
    connect(&folder_, &PartsFolder::idle, this, &SongCommands::onIdle);
    connect(&parts_, &SaveCommands::saving, this, &SongCommands::saving);
    connect(&saving_, &SongSaving::saving, this, &SongCommands::saving);
    connect(&folder_, &PartsFolder::saving, this, &SongCommands::saving);
    connect(&parts_, &SaveCommands::saved, this, &SongCommands::saved);
    connect(&saving_, &SongSaving::saved, this, &SongCommands::saved);
    connect(&folder_, &PartsFolder::saved, this, &SongCommands::saved);
}

QVector<ActionRow> SongCommands::actions()
{
    return {
        {"actionNew_Song", tr("New Song"), "Ctrl+Shift+N", tr("Begin an empty song"), "", "onNewSong()"},
        {"actionSave_Song", tr("Save Song"), "Ctrl+S", tr("Save the song with its parts and mix in one file"), "save",
         "onSaveSong()"},
        {"actionSave_Song_As", tr("Save Song As..."), "", tr("Save the song in another file"), "saveas",
         "onSaveSongAs()"},
        {"actionSave_Parts", tr("Save Parts to Folder..."), "", tr("Save each part as an ABC file of one folder"), "",
         "onSaveParts()", Available::WithTracks},
        {"actionSong_Title", tr("Song Title..."), "", tr("Change the title of the song"), "", "onSongTitle()"},
    };
}

void SongCommands::startNew()
{
    leaveFor([this] { context_.session.startNew(); });
}

void SongCommands::open(const QString &path)
{
    auto options = readingOptions([this](Settings::Setting setting) { return context_.settings.value(setting); });
    options.tracks = ReadingOptions::Tracks::ToBeShown;
    const auto file = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    found_.reset();
    emit opening(tr("Loading %1...").arg(QFileInfo(file).fileName()));
    const auto wait = [this](const FoundSong &found) {
        found_ = found;
        waiting_.start();
        takeFound();
    };
    reading_.start([=](const TaskControl &control) { return read(file, options, control.stop()); }, wait,
                   [=](const QString &error) {
                       wait({{}, {{tr("Error while reading song file"), error, file}}});
                   });
}

void SongCommands::editTitle()
{
    const auto title =
        context_.dialogs.text(&context_.window, tr("Song Title"), tr("Title of the song:"),
                              context_.session.title().isEmpty() ? context_.session.name() : context_.session.title());
    if (title)
        context_.session.setTitle(title->simplified());
}

// What happened to the file while this looked at it is not another program's.
void SongCommands::checkFile()
{
    const auto &session = context_.session;
    const auto file = session.file();
    const auto known = session.fileStamp();
    if (file.isEmpty() || checking_.isRunning() || isSaving() || isOpening())
        return;
    const auto tell = [=, this, &session](const QString &stamp) {
        const bool isForeign = !stamp.isEmpty() && stamp != known && stamp != refusedStamp_;
        if (isForeign && session.file() == file && session.fileStamp() == known && !isSaving() && !isOpening())
            offerToReadAgain(stamp);
    };
    checking_.start([file](const TaskControl &) { return stampOf(file); }, tell,
                    [](const QString &error) { qWarning("%s", qUtf8Printable(error)); });
}

// A song that is not saved stays; its next save asks.
void SongCommands::offerToReadAgain(const QString &stamp)
{
    const auto file = context_.session.file();
    if (context_.session.isUnsaved() || QApplication::activeModalWidget())
        return;
    refusedStamp_ = stamp;
    const auto question =
        tr("The song was changed by another program:\n%1\nWould you like to read it again?").arg(file);
    if (context_.dialogs.ask(&context_.window, tr("Changed Song"), question) == Dialogs::Answer::Yes)
        open(file);
}

void SongCommands::cancelOpening()
{
    reading_.cancel();
    found_.reset();
    waiting_.stop();
    emit openingEnded();
}

// The stamp is older than what is read, so that no change is missed.
SongCommands::FoundSong SongCommands::read(const QString &path, const ReadingOptions &options,
                                           const std::stop_token &stop)
{
    const auto stamp = stampOf(path);
    const auto read = readSource({SongSource::Kind::SongFile, path}, options, stop);
    FoundSong found{{}, read.errors};
    if (read.song)
        found.song = {*read.song, read.tracks, partsInTheirFiles(*read.song, stop), path, OpenedSong::Origin::File,
                      stamp};
    return found;
}

// A dialog that is open may belong to a row of the song that would go.
void SongCommands::takeFound()
{
    if (!found_ || !isReady_ || QApplication::activeModalWidget())
        return;
    waiting_.stop();
    const auto found = *std::exchange(found_, std::nullopt);
    emit openingEnded();
    show(found);
}

void SongCommands::show(const FoundSong &found)
{
    if (found.song)
        leaveFor([this, found] { replaceWith(found); });
    else
        showErrors(found);
}

void SongCommands::replaceWith(FoundSong found)
{
    auto &opened = *found.song;
    for (int i = 0; i < opened.song.parts.size(); ++i) {
        auto &part = opened.song.parts[i];
        if (part.instrument.isEmpty())
            part.instrument = context_.playback.instrumentNameFor(opened.tracks[i]);
    }
    context_.session.open(opened);
    RecentFiles::add(context_.settings, {opened.file});
    showErrors(found);
}

void SongCommands::showErrors(const FoundSong &found)
{
    for (const auto &error : found.errors) // of one file, which makes one
        context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, error.title,
                                 QStringLiteral("%1: %2").arg(error.path, error.text));
}

void SongCommands::leaveFor(const std::function<void()> &then)
{
    const auto again = [this, then] { leaveFor(then); };
    if (!closeEditors_() || !mayLeave(again))
        return;
    emit leaving();
    context_.playback.stop();
    then();
}

bool SongCommands::mayLeave(const std::function<void()> &later)
{
    if (isSaving()) {
        afterSaving_ = later;
        return false;
    }
    if (!context_.session.isUnsaved())
        return true;
    const auto question =
        tr("The song '%1' is not saved yet.\nWould you like to save it?").arg(context_.session.name());
    switch (context_.dialogs.askToSave(&context_.window, programName, question)) {
    case Dialogs::CloseAnswer::Save:
        saveToLeave(later);
        return false;
    case Dialogs::CloseAnswer::Discard:
        return true;
    case Dialogs::CloseAnswer::Cancel:
        break;
    }
    return false;
}

// Who works with ABC files alone is not asked for a song file.
void SongCommands::saveToLeave(const std::function<void()> &later)
{
    context_.session.takeEdits(context_.tracks.ids());
    const auto then = [this, later](bool isSaved) { // called by what has to end first
        if (isSaved)
            QMetaObject::invokeMethod(this, later, Qt::QueuedConnection);
    };
    if (context_.session.isSavedByPartsAlone())
        parts_.save(context_.tracks.unsavedIds(), then);
    else
        saving_.save(then);
}

bool SongCommands::isSaving() const
{
    return parts_.isBusy() || saving_.isBusy() || folder_.isBusy();
}

// Called by what has just ended, which has to return first.
void SongCommands::onIdle()
{
    if (!isSaving() && afterSaving_)
        QMetaObject::invokeMethod(this, std::exchange(afterSaving_, nullptr), Qt::QueuedConnection);
}
