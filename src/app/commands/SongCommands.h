#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "app/commands/PartsFolder.h"
#include "app/commands/SongSaving.h"
#include "app/services/SongSession.h"
#include "base/Task.h"
#include "song/SongReader.h"

#include <QTimer>
#include <QVector>

#include <functional>
#include <optional>

class SaveCommands;

// The commands about the song as a whole: new, open, save. Whoever leaves a song that is not saved is asked once. A
// song is read beside the interface thread, and takes the place of the one in the window when it is there. [ui]
class SongCommands : public QObject
{
    Q_OBJECT

public:
    // closeEditors: false when one stays open.
    SongCommands(const CommandContext &context, SaveCommands &parts, std::function<bool()> closeEditors);

    static QVector<ActionRow> actions();

    void startNew();
    void open(const QString &path);
    void save() { saving_.save(); }
    void saveAs() { saving_.saveAs(); }
    void savePartsToFolder() { folder_.save(); }
    void editTitle();
    // Offers to read the song again when another program changed its file and nothing would be lost.
    void checkFile();

    // The instruments' names are known: from here on songs come into the window.
    void begin() { isReady_ = true; }
    // From the request to the song in the window.
    bool isOpening() const { return reading_.isRunning() || found_; }
    void cancelOpening();
    bool isSaving() const; // the song or parts of it

    // Asks whether to save. True when nothing is in the way of leaving the song; otherwise it stays, and `later` is
    // called when it was saved meanwhile.
    bool mayLeave(const std::function<void()> &later);
    // Calls `then`, now or when the song was saved, once another one may take its place; editors are closed, and what
    // plays or arrives is stopped.
    void leaveFor(const std::function<void()> &then);

signals:
    void opening(const QString &status);
    void openingEnded();
    void leaving(); // the song is replaced next
    void saving(const QString &what);
    void saved(const QStringList &paths);

private:
    struct FoundSong
    {
        std::optional<OpenedSong> song;
        QVector<ReadingError> errors;
    };

    static FoundSong read(const QString &path, const ReadingOptions &options, const std::stop_token &stop);
    void takeFound();
    void show(const FoundSong &found);
    void replaceWith(FoundSong found);
    void showErrors(const FoundSong &found);
    void offerToReadAgain(const QString &stamp);
    void saveToLeave(const std::function<void()> &later);
    void onIdle();

    CommandContext context_;
    SaveCommands &parts_;
    std::function<bool()> closeEditors_;
    SongSaving saving_;
    PartsFolder folder_;
    Task reading_;
    Task checking_;
    QString refusedStamp_;           // of a change that was told
    std::optional<FoundSong> found_; // waits until it can be shown
    QTimer waiting_;
    bool isReady_ = false;
    std::function<void()> afterSaving_;
};
