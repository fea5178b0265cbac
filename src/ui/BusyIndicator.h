#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;

// What takes time, at the right of the status bar: a text, how far it is and a cancel button. It appears only when the
// work lasts longer than half a second. The window emits cancelled() of all that it shows for Esc.
class BusyIndicator : public QWidget
{
    Q_OBJECT

public:
    explicit BusyIndicator(QWidget *parent = nullptr);

    // total 0: it is not known how far the work is.
    void showProgress(const QString &text, int done, int total);
    void finish();

signals:
    void cancelled();
    void finished(const QString &text, qint64 took); // after some showProgress(); the last text, and milliseconds

private:
    QLabel *text_;
    QProgressBar *bar_;
    QTimer delay_;
    QElapsedTimer time_; // while there is something
};
