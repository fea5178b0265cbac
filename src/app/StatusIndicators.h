#pragma once

#include <QObject>
#include <QVector>

class BusyIndicator;
class InstrumentScanTask;
class Playback;
class QLabel;
class QMainWindow;
class QStatusBar;
class QTimer;
class Settings;
class SongCommands;
class SongImport;
class SoundOutput;

// The status bar: what the window is busy with, each with a button to cancel it and Esc for all, why nothing is
// heard, and what is wrong with the settings. On the interface thread.
class StatusIndicators : public QObject
{
    Q_OBJECT

public:
    explicit StatusIndicators(QMainWindow &window); // all of them outlive this

    void follow(SongImport &import);
    void follow(SongCommands &songs);
    void follow(InstrumentScanTask &scan);
    void follow(Playback &playback);
    void follow(SoundOutput &output);

    void showRecording(bool isRecording);
    void showLoadingSample(const QString &samplePath);
    // These stay while they are there; empty: there is none.
    void showEngineProblem(const QString &problem);
    void showOutputProblem(const QString &problem);
    void showJournalProblem(const QString &problem);
    void follow(const Settings &settings);

signals:
    void workEnded(const QString &what, qint64 took); // that had an indicator, but loading to play; milliseconds

private:
    BusyIndicator *addIndicator(const char *name);
    QLabel *addNotice(const char *name);
    void showUnderruns(quint64 underruns);
    void cancelAll();

    QStatusBar &bar_;
    QLabel *engineProblem_;
    QLabel *outputProblem_;
    QLabel *missingDevice_;
    QLabel *recording_;
    QLabel *underruns_;
    QString warning_;      // of the playback, the last
    QTimer *underrunsEnd_; // of telling about them
    QLabel *settingsProblem_;
    QLabel *journalProblem_;
    QVector<BusyIndicator *> indicators_;
};
