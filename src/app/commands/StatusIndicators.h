#pragma once

#include <QObject>
#include <QVector>

class BusyIndicator;
class InstrumentScanTask;
class Playback;
class QLabel;
class QMainWindow;
class QStatusBar;
class SongImport;

// The status bar: what the window is busy with, each with a button to cancel it and Esc for all, and why nothing is
// heard. On the interface thread.
class StatusIndicators : public QObject
{
    Q_OBJECT

public:
    explicit StatusIndicators(QMainWindow &window); // all of them outlive this

    void follow(SongImport &import);
    void follow(InstrumentScanTask &scan);
    void follow(Playback &playback);

    void showLoadingSample(const QString &samplePath);
    void showOutputProblem(const QString &problem); // empty: there is none

private:
    BusyIndicator *addIndicator(const char *name);
    void cancelAll();

    QStatusBar &bar_;
    QLabel *outputProblem_;
    QVector<BusyIndicator *> indicators_;
};
