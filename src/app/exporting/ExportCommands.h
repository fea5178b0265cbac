#pragma once

#include "app/commands/ActionRow.h"
#include "app/commands/CommandContext.h"
#include "audio/TrackRenderer.h"

#include <QObject>
#include <QVector>

#include <memory>

class QProgressDialog;

// The export of the song as a WAV file, one at a time. On the interface thread.
class ExportCommands : public QObject
{
    Q_OBJECT

public:
    ExportCommands(const CommandContext &context, FileEngineFactory makeEngine);

    static QVector<ActionRow> actions();

    void exportWav();
    // Asks whether to stop an export that runs; false when the window is to stay.
    bool mayClose();

    void openProgress();
    void setProgress(quint64 progress, quint64 total); // any unit
    void closeProgress();

signals:
    // Of the renderer.
    void renderStarted();
    void renderProgress(quint64 progress, quint64 total);
    void renderFinished();
    void loadingSample(const QString &samplePath);

private:
    bool isRunning() const { return renderer_ && renderer_->isRunning(); }
    void start(const QString &fileName);
    void showFailure(const QString &message);

    CommandContext context_;
    FileEngineFactory makeEngine_;
    std::unique_ptr<TrackRenderer> renderer_; // kept until the next export
    QProgressDialog *progress_ = nullptr;
};
