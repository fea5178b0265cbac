#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

class QProgressDialog;
class QWidget;

// The progress of an export in a window of its own, with a button to cancel it and the time that it still takes. [ui]
class ExportProgress
{
public:
    // Shows itself soon. Gives the window, which says when it is cancelled.
    QProgressDialog *open(const QString &text, QWidget *parent);
    void set(quint64 done, quint64 total); // any unit
    // At once, so that it is not behind what is told next.
    void close();

private:
    QString remaining(quint64 done, quint64 total) const;

    QPointer<QProgressDialog> dialog_;
    QString text_;
    QElapsedTimer time_; // since something was done first
    quint64 doneBefore_ = 0;
};
