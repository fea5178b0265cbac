#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "app/exporting/ExportEnd.h"
#include "app/exporting/ExportProgress.h"
#include "app/exporting/UnfinishedExports.h"
#include "audio/render/TrackRenderer.h"
#include "base/Task.h"

#include <QObject>
#include <QVector>

#include <memory>

class AudioExportDialog;

// The exports of the song as sound, one at a time. On the interface thread.
class ExportCommands : public QObject
{
    Q_OBJECT

public:
    // folder: of what is known of exports that are under way; empty: nothing is. What was left by those of a program
    // that was killed is removed.
    ExportCommands(const CommandContext &context, FileEngineFactory makeEngine, const QString &folder);

    static QVector<ActionRow> actions();

    // A plain WAV file; asks for its name only.
    void exportWav();
    // Asks what to write and where to. At the master's volume, as it is heard.
    void exportAudio();
    // Asks whether to stop an export that runs; false when the window is to stay.
    bool mayClose();

    void openProgress();
    void setProgress(quint64 progress, quint64 total) { progress_.set(progress, total); } // any unit
    void closeProgress();

signals:
    // Of the renderer.
    void renderStarted();
    void renderProgress(quint64 progress, quint64 total);
    void renderFinished();
    void loadingSample(const QString &samplePath);
    // remark: for people; may be empty.
    void written(const QStringList &paths, const QString &remark);

private:
    struct Export
    {
        RenderPlan plan;
        QString title; // of what is told
        QString progress;
        float volume = 1; // of the master
        bool hasOffsets = false;
    };

    bool isRunning() const { return task_.isRunning() || (renderer_ && renderer_->isRunning()); }
    bool isFree();
    QString chosenFile(SoundCoding coding);
    std::unique_ptr<AudioExportDialog> makeDialog();
    Export exportOf(const AudioExportDialog &dialog, const QString &path) const;
    void considerFiles(const Export &wanted);
    void start(const Export &wanted);
    void showFailure(const QString &title, const QString &text);

    CommandContext context_;
    FileEngineFactory makeEngine_;
    std::unique_ptr<TrackRenderer> renderer_; // kept until the next export
    Export export_;                           // of the renderer
    QString failure_;                         // of the renderer, or why there is none
    QStringList remarks_;                     // on what was written
    ExportProgress progress_;
    ExportEnd end_;
    UnfinishedExports unfinished_;
    Task task_;
    Task cleaning_;
};
